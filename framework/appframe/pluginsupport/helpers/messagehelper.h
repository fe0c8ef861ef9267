/// \file
/// A plug-in's way to the application's texts and messages.

#pragma once

#include "platform/appfw/messages.h"
#include "platform/kfr/kfrframework.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <string>

namespace vrn::orlo::appfw {

/// Texts and messages of one plug-in.
///
/// The services are looked up when they are first needed, and looked up again as long as they are
/// missing.
///
/// Failure    Without a service: an empty text, and nothing shown.
/// Ownership  Keeps the services and the provider alive.
/// Threads    Main thread.
class MODELING_API MessageHelper {
public:
    MessageHelper(std::string const& pluginName,
                  KFRSmartPointer<KFRIServiceProviderInterface> const& provider);

    /// The text with its parameters put in; empty when there is none.
    icu::UnicodeString getText(int id, KFRSequence<KFRAny> const& params);
    icu::UnicodeString getText(std::string const& id, KFRSequence<KFRAny> const& params);

    /// Key of a message's help page; empty when there is none.
    /// \param number  the message's number as a decimal text
    std::string getHelpKey(std::string const& number);

    /// Shows a result as the display words it.
    KFRResult show(KFRResult const& message, Severity severity, bool flag);

    /// Domain of the plug-in's messages; -1 while it is not known.
    int getDomain();

private:
    KFRIMessageCatalogInterface* catalog();
    KFRIMessageDisplayInterface* display();

    KFRSmartPointer<KFRIMessageCatalogInterface> m_catalog;
    KFRSmartPointer<KFRIMessageDisplayInterface> m_display;
    std::string m_pluginName;
    int m_domain = -1;
    KFRSmartPointer<KFRIServiceProviderInterface> m_provider;
};

}  // namespace vrn::orlo::appfw
