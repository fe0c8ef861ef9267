/// \file
/// The application's loop: work for later, and boxes.

#pragma once

#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

#include <string>

namespace vrn::orlo::appfw {

/// A piece of work that the executive runs when its turn comes.
class KFRIWorkCommandInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.KFRIWorkCommand")

    virtual KFRResult execute() = 0;
};

class KFRIGuiExecutive : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.KFRIGuiExecutive")

    /// Runs something, now or when its turn comes; which, and on what thread, is the executive's.
    /// \param name        "<plug-in>.<command>"
    /// \param parameters  CmdParameters
    virtual KFRResult run(std::string const& name, KFRAny const& parameters) = 0;

    /// Shows a box and waits for the answer: OK for the first button, a failure for the others.
    /// \param third  a button like the second one means that there is none
    /// \param kind   passed through; the library always says 1
    virtual KFRResult messageBox(icu::UnicodeString const& title, icu::UnicodeString const& text,
                                 icu::UnicodeString const& first, icu::UnicodeString const& second,
                                 icu::UnicodeString const& third, int kind) = 0;
};

}  // namespace vrn::orlo::appfw
