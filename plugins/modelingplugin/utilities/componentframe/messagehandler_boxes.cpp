// Message boxes.

#include "platform/appfw/guiexecutive.h"
#include "plugins/modelingplugin/utilities/componentframe/localizationhelper.h"
#include "plugins/modelingplugin/utilities/componentframe/messagehandler.h"
#include "plugins/modelingplugin/utilities/componentframe/pluginenv.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

#include <array>
#include <cstddef>

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

/// Ids of the titles by severity. They are text ids, though they look like numbers.
constexpr std::array<char const*, 4> kTitles{"10085", "10084", "10083", "10082"};
constexpr char const* kFirstButton = "10076";
constexpr char const* kSecondButton = "10077";

icu::UnicodeString titleOf(Severity severity)
{
    auto const row = static_cast<std::size_t>(severity);
    return row < kTitles.size() ? LocalStr(kTitles[row]).getUStr() : icu::UnicodeString();
}

icu::UnicodeString orDefault(icu::UnicodeString const& text, char const* textId)
{
    return text.isEmpty() ? LocalStr(textId).getUStr() : text;
}

/// A box whose third button is its second once more.
KFRResult showBox(KFRSmartPointer<appfw::KFRIGuiExecutive> const& executive,
                  icu::UnicodeString const& title, icu::UnicodeString const& text,
                  icu::UnicodeString const& first, icu::UnicodeString const& second)
{
    return executive != NULLSP ? executive->messageBox(title, text, first, second, second, 1)
                               : KFR::notDone;
}

}  // namespace

KFRResult MessageHandler::showPopMessage(icu::UnicodeString const& text, Severity severity,
                                         icu::UnicodeString const& firstButton,
                                         icu::UnicodeString const& secondButton)
{
    icu::UnicodeString const title = titleOf(severity);
    icu::UnicodeString const first = orDefault(firstButton, kFirstButton);
    auto const executive =
        KFR::strict_cast<appfw::KFRIGuiExecutive>(ServiceHelper::getGuiExeutive());
    if (PluginEnv::instance()->isHeadlessOrHandlessMode()) {
        return KFR::ok;
    }
    return showBox(executive, title, text, first, secondButton);
}

KFRResult MessageHandler::showThreeButtonMessageBox(icu::UnicodeString const& text, bool& answer,
                                                    Severity severity,
                                                    icu::UnicodeString const& firstButton,
                                                    icu::UnicodeString const& secondButton)
{
    answer = false;
    icu::UnicodeString const title = titleOf(severity);
    icu::UnicodeString const first = orDefault(firstButton, kFirstButton);
    icu::UnicodeString const second = orDefault(secondButton, kSecondButton);
    auto const executive =
        KFR::strict_cast<appfw::KFRIGuiExecutive>(ServiceHelper::getGuiExeutive());
    if (PluginEnv::instance()->isHeadlessOrHandlessMode()) {
        return KFR::notDone;
    }
    KFRResult const result = showBox(executive, title, text, first, second);
    answer = !result.isOk() && first != second;
    return result;
}

}  // namespace vrn::orlo::plugin::modeling
