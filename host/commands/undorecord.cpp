#include "host/commands/undorecord.h"

#include "host/commands/commandfailure.h"
#include "host/kernel/frameworklog.h"

#include <utility>

namespace vrn::orlo::host::commands {

namespace {

class FunctionStep final : public KFRServiceObjectImpl<appfw::IURCommandInterface> {
public:
    FunctionStep(std::function<KFRResult()> undo, std::function<KFRResult()> redo)
        : m_undo(std::move(undo)), m_redo(std::move(redo))
    {
    }

    KFRResult undo() override { return m_undo(); }
    KFRResult redo() override { return m_redo(); }

private:
    std::function<KFRResult()> m_undo;
    std::function<KFRResult()> m_redo;
};

KFRResult undoStep(Step const& step)
{
    return guarded("Undoing", [&step] { return step->undo(); });
}

KFRResult redoStep(Step const& step)
{
    return guarded("Redoing", [&step] { return step->redo(); });
}

void logIfFailed(KFRResult const& result)
{
    if (!result.isOk()) {
        kernel::logToFramework("A step could not be put back: " + failureText(result),
                               kernel::LogLevel::error);
    }
}

}  // namespace

Step makeStep(std::function<KFRResult()> undo, std::function<KFRResult()> redo)
{
    return KFR::make<FunctionStep>(std::move(undo), std::move(redo));
}

KFRResult UndoRecord::undo()
{
    if (!m_done) {
        return KFR::ok;
    }
    for (std::size_t i = m_steps.size(); i-- > 0;) {
        if (KFRResult const answer = undoStep(m_steps[i]); !answer.isOk()) {
            for (std::size_t undone = i + 1; undone < m_steps.size(); ++undone) {
                logIfFailed(redoStep(m_steps[undone]));
            }
            return answer;
        }
    }
    m_done = false;
    return KFR::ok;
}

KFRResult UndoRecord::redo()
{
    if (m_done) {
        return KFR::ok;
    }
    for (std::size_t i = 0; i < m_steps.size(); ++i) {
        if (KFRResult const answer = redoStep(m_steps[i]); !answer.isOk()) {
            while (i-- > 0) {
                logIfFailed(undoStep(m_steps[i]));
            }
            return answer;
        }
    }
    m_done = true;
    return KFR::ok;
}

KFRResult takeBack(std::vector<Step> const& steps)
{
    KFRResult first = KFR::ok;
    for (std::size_t i = steps.size(); i-- > 0;) {
        KFRResult const answer = undoStep(steps[i]);
        logIfFailed(answer);
        if (first.isOk()) {
            first = answer;
        }
    }
    return first;
}

}  // namespace vrn::orlo::host::commands
