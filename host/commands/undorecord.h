/// \file
/// What was done, as steps that can be taken back.

#pragma once

#include "platform/appfw/commands.h"
#include "platform/kfr/kfrserviceobject.h"

#include <functional>
#include <string>
#include <vector>

namespace vrn::orlo::host::commands {

/// Something done, for taking back and doing again.
using Step = KFRSmartPointer<appfw::IURCommandInterface>;

/// A step from two functions.
[[nodiscard]] Step makeStep(std::function<KFRResult()> undo, std::function<KFRResult()> redo);

/// Several steps as one, which is done when it is made.
///
/// Order      Undone from the last to the first, redone from the first to the last.
/// Failure    All or nothing: when one step fails or throws, those before it are put back, and its
///            failure is the answer. A step that cannot be put back either is logged. Undoing what
///            is undone, and redoing what is done, is OK and does nothing.
/// Threads    Main thread.
class UndoRecord final : public KFRServiceObjectImpl<appfw::IURCommandInterface> {
public:
    explicit UndoRecord(std::vector<Step> steps) : m_steps(std::move(steps)) {}

    KFRResult undo() override;
    KFRResult redo() override;

    std::string getObjectName() override { return "vrn.orlo.host.commands:UndoRecord"; }

private:
    std::vector<Step> m_steps;
    bool m_done = true;
};

/// Takes steps back, the last first. One that fails is logged, and the others are taken back all
/// the same.
/// \return OK, or the first failure
KFRResult takeBack(std::vector<Step> const& steps);

}  // namespace vrn::orlo::host::commands
