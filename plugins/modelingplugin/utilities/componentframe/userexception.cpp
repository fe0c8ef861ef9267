#include "plugins/modelingplugin/utilities/componentframe/userexception.h"

namespace vrn::orlo::plugin::modeling {

namespace {

/// Domain of the plug-in's messages while no message catalogue is connected.
constexpr int kNoMessageDomain = -1;

}  // namespace

UserException::UserException(int id) : m_id(id)
{
}

UserException::UserException(int code, int id) : m_code(code), m_id(id)
{
}

UserException::UserException(std::string const& text) : m_text(text)
{
}

KFRResult UserException::getKFRResult() const
{
    if (m_code != 0) {
        return {m_code, kNoMessageDomain, m_id};
    }
    if (m_id != 0) {
        return {m_id, kNoMessageDomain, m_id};
    }
    KFRResult result(KFR::notDone);
    result.addParam(m_text);
    return result;
}

std::string UserException::getTextStr() const
{
    return m_text;
}

icu::UnicodeString UserException::getTextUStr() const
{
    return m_id != 0 ? icu::UnicodeString() : icu::UnicodeString::fromUTF8(m_text);
}

}  // namespace vrn::orlo::plugin::modeling
