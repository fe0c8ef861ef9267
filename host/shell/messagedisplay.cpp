#include "host/shell/messagedisplay.h"

#include <utility>

namespace vrn::orlo::host::shell {

MessageDisplay::MessageDisplay(KFRSmartPointer<appfw::KFRIMessageCatalogInterface> catalogue,
                               TerminalSink sink)
    : m_catalogue(std::move(catalogue)), m_sink(std::move(sink))
{
}

KFRResult MessageDisplay::show(KFRResult const& message, appfw::Severity severity, bool)
{
    tell(m_sink, severity, wordsOf(message));
    return KFR::ok;
}

icu::UnicodeString MessageDisplay::wordsOf(KFRResult const& message) const
{
    icu::UnicodeString words;
    KFRSequence<KFRAny> const params = message.getParams();
    int const id = message.getMessageId();
    if (id != 0 && m_catalogue != KFR::NULLSP &&
        m_catalogue->getTextByNumber(id, params, words).isOk()) {
        return words;
    }
    for (KFRAny const& param : params) {
        if (param >>= words) {
            return words;
        }
        if (auto const* const utf8 = param.get<std::string>()) {
            return icu::UnicodeString::fromUTF8(*utf8);
        }
    }
    return icu::UnicodeString::fromUTF8("code " + std::to_string(message.getCode()) + " (no text)");
}

}  // namespace vrn::orlo::host::shell
