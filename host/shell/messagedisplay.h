/// \file
/// Messages on the terminal.

#pragma once

#include "host/shell/terminalsink.h"
#include "platform/appfw/messages.h"
#include "platform/kfr/kfrserviceobject.h"

namespace vrn::orlo::host::shell {

/// Words an outcome and says it, one line per message.
///
/// The words are those of its message id with its parameters; without an id, or a text for it, its
/// first parameter that is a text; else "code 7 (no text)".
///
/// Failure    None: there is always something to say.
/// Threads    Main thread.
class MessageDisplay final : public KFRServiceObjectImpl<appfw::KFRIMessageDisplayInterface> {
public:
    /// \param catalogue  may be null; then no id has a text
    MessageDisplay(KFRSmartPointer<appfw::KFRIMessageCatalogInterface> catalogue,
                   TerminalSink sink);

    /// \param flag  of no meaning on a terminal
    KFRResult show(KFRResult const& message, appfw::Severity severity, bool flag) override;

    std::string getObjectName() override { return "vrn.orlo.host.shell:MessageDisplay"; }

protected:
    ~MessageDisplay() override = default;

private:
    [[nodiscard]] icu::UnicodeString wordsOf(KFRResult const& message) const;

    KFRSmartPointer<appfw::KFRIMessageCatalogInterface> m_catalogue;
    TerminalSink m_sink;
};

}  // namespace vrn::orlo::host::shell
