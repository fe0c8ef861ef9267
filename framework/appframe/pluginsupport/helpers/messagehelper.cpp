#include "framework/appframe/pluginsupport/helpers/messagehelper.h"

#include "platform/servicenames.h"

namespace vrn::orlo::appfw {

using KFR::NULLSP;

namespace {

template <class I>
I* lookedUp(KFRSmartPointer<I>& kept, char const* name,
            KFRSmartPointer<KFRIServiceProviderInterface> const& provider)
{
    if (kept == NULLSP && provider != NULLSP) {
        KFRResult dropped;
        kept = provider->getService(name, std::string(), dropped);
    }
    return kept.get();
}

}  // namespace

MessageHelper::MessageHelper(std::string const& pluginName,
                             KFRSmartPointer<KFRIServiceProviderInterface> const& provider)
    : m_pluginName(pluginName), m_provider(provider)
{
}

KFRIMessageCatalogInterface* MessageHelper::catalog()
{
    return lookedUp(m_catalog, servicenames::kMessageCatalog, m_provider);
}

KFRIMessageDisplayInterface* MessageHelper::display()
{
    return lookedUp(m_display, servicenames::kMessageDisplay, m_provider);
}

icu::UnicodeString MessageHelper::getText(int id, KFRSequence<KFRAny> const& params)
{
    icu::UnicodeString text;
    if (auto* const texts = catalog(); texts != nullptr) {
        static_cast<void>(texts->getTextByNumber(id, params, text));
    }
    return text;
}

icu::UnicodeString MessageHelper::getText(std::string const& id, KFRSequence<KFRAny> const& params)
{
    icu::UnicodeString text;
    if (auto* const texts = catalog(); texts != nullptr) {
        static_cast<void>(texts->getTextById(id, params, text));
    }
    return text;
}

std::string MessageHelper::getHelpKey(std::string const& number)
{
    std::string key;
    if (auto* const texts = catalog(); texts != nullptr) {
        static_cast<void>(texts->getHelpKey(number, key));
    }
    return key;
}

KFRResult MessageHelper::show(KFRResult const& message, Severity severity, bool flag)
{
    auto* const shown = display();
    return shown != nullptr ? shown->show(message, severity, flag) : KFR::notDone;
}

int MessageHelper::getDomain()
{
    if (m_domain == -1) {
        if (auto* const texts = catalog(); texts != nullptr) {
            static_cast<void>(texts->getDomain(m_pluginName, m_domain));
        }
    }
    return m_domain;
}

}  // namespace vrn::orlo::appfw
