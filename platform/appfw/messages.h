/// \file
/// Texts for the user, and where they are shown.

#pragma once

#include "platform/appfw/severity.h"
#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

#include <string>

namespace vrn::orlo::appfw {

/// The texts of all plug-ins in the language of the run.
///
/// Failure    What there is no text for fails, with the last argument as it was.
class KFRIMessageCatalogInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.KFRIMessageCatalog")

    /// \param params  put in by position: {0} is the first
    virtual KFRResult getTextByNumber(int id, KFRSequence<KFRAny> const& params,
                                      icu::UnicodeString& text) = 0;
    virtual KFRResult getTextById(std::string const& id, KFRSequence<KFRAny> const& params,
                                  icu::UnicodeString& text) = 0;
    /// The key of the help page for a message.
    /// \param number  the message's number as a decimal text
    virtual KFRResult getHelpKey(std::string const& number, std::string& key) = 0;
    /// The domain of a plug-in's messages.
    virtual KFRResult getDomain(std::string const& pluginName, int& domain) = 0;
};

/// Shows messages to the user.
class KFRIMessageDisplayInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.KFRIMessageDisplay")

    /// Words the message by its domain and id, with its parameters, and shows it.
    /// \param flag  passed through by the library
    virtual KFRResult show(KFRResult const& message, Severity severity, bool flag) = 0;
};

}  // namespace vrn::orlo::appfw
