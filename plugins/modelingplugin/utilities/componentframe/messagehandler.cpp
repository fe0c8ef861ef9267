#include "plugins/modelingplugin/utilities/componentframe/messagehandler.h"

#include "framework/appframe/pluginsupport/helpers/messagehelper.h"
#include "platform/appfw/frameworkaccess.h"
#include "platform/shell/shell.h"
#include "plugins/modelingplugin/utilities/componentframe/localizationhelper.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

appfw::MessageHelper* messages()
{
    return LocalizationHelper::instance()->getMsgHelper();
}

/// The parameter, if its kind is one that messages take.
void addParam(KFRResult& result, KFRAny const& param)
{
    switch (static_cast<KFR::AnyKind>(param.getTypeID())) {
        case KFR::AnyKind::integer:
            result.addParam(*param.get<int>());
            break;
        case KFR::AnyKind::integer64:
            result.addParam(*param.get<long long>());
            break;
        case KFR::AnyKind::doublePrecision:
            result.addParam(*param.get<double>());
            break;
        case KFR::AnyKind::string:
            result.addParam(*param.get<std::string>());
            break;
        case KFR::AnyKind::unicodeString:
            result.addParam(*param.get<icu::UnicodeString>());
            break;
        default:
            break;
    }
}

}  // namespace

KFRResult MessageHandler::createKFRResult(int id)
{
    return createKFRResult(id, id);
}

KFRResult MessageHandler::createKFRResult(int code, int id)
{
    constexpr int kNoDomain = -1;
    appfw::MessageHelper* const helper = messages();
    return {code, helper != nullptr ? helper->getDomain() : kNoDomain, id};
}

void MessageHandler::showMessage(KFRResult const& message, Severity severity, bool flag)
{
    if (appfw::MessageHelper* const helper = messages(); helper != nullptr) {
        static_cast<void>(helper->show(message, severity, flag));
    }
}

void MessageHandler::showMessage(unsigned int id, Severity severity, bool flag)
{
    showMessage(createKFRResult(static_cast<int>(id)), severity, flag);
}

void MessageHandler::showMessage(unsigned int id, KFRSequence<KFRAny> const& params,
                                 Severity severity, bool flag)
{
    KFRResult message = createKFRResult(static_cast<int>(id));
    for (KFRAny const& param : params) {
        addParam(message, param);
    }
    showMessage(message, severity, flag);
}

void MessageHandler::showMessage(icu::UnicodeString const& text, Severity severity, bool /*flag*/)
{
    auto const framework =
        KFR::strict_cast<appfw::IFrameworkAccessInterface>(ServiceHelper::getFrameworkAccess());
    if (framework != NULLSP) {
        static_cast<void>(framework->showStatusMessage(text, severity));
    }
}

void MessageHandler::showKFRResultError(KFRResult const& message, bool flag)
{
    showMessage(KFRResult(message), Severity::error, flag);
}

void MessageHandler::showDrupalMessage(int id, KFRSequence<KFRAny> const& params, bool flag)
{
    std::string key;
    std::string const number = std::to_string(id);
    if (appfw::MessageHelper* const helper = messages(); helper != nullptr) {
        key = helper->getHelpKey(number);
    }
    if (key.empty()) {
        key = number;
    }
    auto const help = KFR::strict_cast<shell::IShellHelp>(ServiceHelper::getFrameworkAccess());
    if (help != NULLSP) {
        static_cast<void>(help->show(key, params, flag));
    }
}

}  // namespace vrn::orlo::plugin::modeling
