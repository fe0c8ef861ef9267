#include "plugins/modelingplugin/utilities/componentframe/userexception.h"

#include "plugins/modelingplugin/utilities/componentframe/localizationhelper.h"
#include "plugins/modelingplugin/utilities/componentframe/messagehandler.h"

namespace vrn::orlo::plugin::modeling {

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
        return MessageHandler::createKFRResult(m_code, m_id);
    }
    if (m_id != 0) {
        return MessageHandler::createKFRResult(m_id);
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
    return m_id != 0 ? LocalStr(m_id).getUStr() : icu::UnicodeString::fromUTF8(m_text);
}

}  // namespace vrn::orlo::plugin::modeling
