/// \file
/// The one way in which the library tells a user about anything.

#pragma once

#include "platform/appfw/severity.h"
#include "platform/kfr/floatvalue.h"
#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <unicode/unistr.h>

#include <string>

namespace vrn::orlo::plugin::modeling {

class FloatValueRange;

using appfw::Severity;

/// Messages, status texts and boxes.
///
/// Failure    A message that cannot be shown is dropped in silence. Only the boxes return what
///            became of them.
/// Threads    Main thread.
class MODELING_API MessageHandler {
public:
    using FloatValue = KFR::Util::Units::FloatValue;

    MessageHandler() = delete;

    /// A failure with a message of the plug-in's catalogue, the id being the code as well.
    static KFRResult createKFRResult(int id);
    static KFRResult createKFRResult(int code, int id);

    /// \param flag  passed on to the display unchanged
    static void showMessage(KFRResult const& message, Severity severity, bool flag);
    static void showMessage(unsigned int id, Severity severity, bool flag);
    /// \param params  of the kinds int, 64-bit integer, double, std::string and UnicodeString;
    ///                others are left out
    static void showMessage(unsigned int id, KFRSequence<KFRAny> const& params, Severity severity,
                            bool flag);
    /// A text for the status line.
    /// \param flag  not used
    static void showMessage(icu::UnicodeString const& text, Severity severity, bool flag);
    static void showKFRResultError(KFRResult const& message, bool flag);
    /// Opens the help page of a message.
    static void showDrupalMessage(int id, KFRSequence<KFRAny> const& params, bool flag);

    /// A box with one or two buttons.
    /// \param firstButton  empty for the usual text
    /// \return OK for the first button and where nobody sits in front of the application
    static KFRResult showPopMessage(icu::UnicodeString const& text, Severity severity,
                                    icu::UnicodeString const& firstButton,
                                    icu::UnicodeString const& secondButton);

    /// A box with a question.
    /// \param answer       true when another button than the first was taken, and that one's text
    ///                     differs from the last button's
    /// \param firstButton, secondButton  empty for the usual texts
    /// \return what the box gave back; KFR::notDone where nobody sits in front of the application
    static KFRResult showThreeButtonMessageBox(icu::UnicodeString const& text, bool& answer,
                                               Severity severity,
                                               icu::UnicodeString const& firstButton,
                                               icu::UnicodeString const& secondButton);

    /// Whether the value is in the range; if not, the status line says what it would have to be.
    /// \param name  of the value, for the text
    static bool checkFloatValueWithMsg(FloatValue const& value, FloatValueRange const& range,
                                       icu::UnicodeString const& name);
    static bool checkFloatValueWithMsg(FloatValue const& value, FloatValueRange const& range,
                                       std::string const& nameId);
    /// False, and nothing shown, for a KFRAny without a FloatValue.
    static bool checkFloatValueWithMsg(KFRAny const& value, FloatValueRange const& range,
                                       unsigned int nameId);
};

}  // namespace vrn::orlo::plugin::modeling
