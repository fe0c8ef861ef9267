#include "plugins/modelingplugin/utilities/componentframe/localizationhelper.h"

#include "framework/appframe/pluginsupport/helpers/messagehelper.h"
#include "plugins/modelingplugin/utilities/componentframe/loghelper.h"

#include <utility>

namespace vrn::orlo::plugin::modeling {

LocalizationHelper::LocalizationHelper() = default;
LocalizationHelper::~LocalizationHelper() = default;

LocalizationHelper* LocalizationHelper::instance()
{
    static LocalizationHelper helper;
    return &helper;
}

void LocalizationHelper::initialize(std::string const& pluginName,
                                    KFRSmartPointer<KFRIServiceProviderInterface>& provider)
{
    if (m_messages == nullptr) {
        m_messages = std::make_unique<appfw::MessageHelper>(pluginName, provider);
    }
}

void LocalizationHelper::release()
{
    m_messages.reset();
}

icu::UnicodeString LocalizationHelper::getLocaleStringByIntId(int id,
                                                              KFRSequence<KFRAny> const& params)
{
    return m_messages != nullptr ? m_messages->getText(id, params) : icu::UnicodeString();
}

icu::UnicodeString LocalizationHelper::getLocaleStringByTextId(std::string const& id,
                                                               KFRSequence<KFRAny> const& params)
{
    return m_messages != nullptr ? m_messages->getText(id, params) : icu::UnicodeString();
}

LocalStr::LocalStr(int id, std::string const& fallback) : m_id(id), m_default(fallback)
{
}

LocalStr::LocalStr(std::string textId, std::string const& fallback)
    : m_textId(std::move(textId)), m_default(fallback)
{
}

icu::UnicodeString LocalStr::getUStr() const
{
    static KFRSequence<KFRAny> const kNoParams;
    if (m_text.isEmpty()) {
        m_text = loadRes(kNoParams);
    }
    return m_text;
}

std::string LocalStr::getStr() const
{
    std::string utf8;
    return getUStr().toUTF8String(utf8);
}

LocalStr& LocalStr::format(KFRSequence<KFRAny> const& params)
{
    m_text = loadRes(params);
    return *this;
}

LocalStr& LocalStr::format(icu::UnicodeString const& first)
{
    return format({KFRAny(first)});
}

LocalStr& LocalStr::format(icu::UnicodeString const& first, icu::UnicodeString const& second)
{
    return format({KFRAny(first), KFRAny(second)});
}

LocalStr& LocalStr::format(icu::UnicodeString const& first, icu::UnicodeString const& second,
                           icu::UnicodeString const& third)
{
    return format({KFRAny(first), KFRAny(second), KFRAny(third)});
}

icu::UnicodeString LocalStr::loadRes(KFRSequence<KFRAny> const& params) const
{
    LocalizationHelper* const texts = LocalizationHelper::instance();
    icu::UnicodeString const text = m_id != 0 ? texts->getLocaleStringByIntId(m_id, params)
                                              : texts->getLocaleStringByTextId(m_textId, params);
    if (!text.isEmpty()) {
        return text;
    }
    constexpr int kWarning = 2;
    if (LogHelper::isAllowLog(kWarning)) {
        LogHelper::instance()->logMessage(
            kWarning, "Localization warning, can not get locale string for res : id=%d, text=%s",
            m_id, m_textId.c_str());
    }
    return icu::UnicodeString::fromUTF8(m_default);
}

}  // namespace vrn::orlo::plugin::modeling
