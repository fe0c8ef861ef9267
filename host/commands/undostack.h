/// \file
/// The history of what was done.

#pragma once

#include "host/commands/undorecord.h"

#include <algorithm>
#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::commands {

/// Events of the domain of undo and redo.
enum HistoryEvent : int {
    kUndone = 2,
    kRedone = 3,
    kStepAdded = 5,
    kHistoryCleared = 6,
};

/// Steps that can be undone and redone, and the groups in which steps become one.
///
/// A group is opened by a command for the time of its run, or by a transaction. While one is open,
/// steps go into the innermost; when it closes they go on to the group around it, or into the
/// history as one step. A step in the history is what makes redoing impossible: runs that leave
/// nothing to undo do not.
///
/// Failure    undo, redo and clear fail with kBusy while a group is open or a step is replayed, and
///            change nothing; so do undo and redo when the step fails.
/// Threads    Main thread. Nothing of the stack's is in flux while a step or `told` is called.
class UndoStack {
public:
    using GroupId = unsigned long long;
    /// Hears of an event, with the name of the step that it is about.
    using Told = std::function<void(HistoryEvent, std::string const& step)>;

    /// \param depth  how many steps are kept, at least one; the oldest go first
    UndoStack(std::size_t depth, Told told)
        : m_depth(std::max<std::size_t>(depth, 1)), m_told(std::move(told))
    {
    }
    UndoStack(UndoStack const&) = delete;
    UndoStack& operator=(UndoStack const&) = delete;

    KFRResult undo();
    KFRResult redo();
    KFRResult clear();
    [[nodiscard]] bool canUndo() const noexcept { return isIdle() && !m_done.empty(); }
    [[nodiscard]] bool canRedo() const noexcept { return isIdle() && !m_undone.empty(); }
    /// Names of the steps, the next one first.
    [[nodiscard]] std::vector<std::string> undoNames() const { return namesOf(m_done); }
    [[nodiscard]] std::vector<std::string> redoNames() const { return namesOf(m_undone); }

    /// True while a step is undone or redone.
    [[nodiscard]] bool isReplaying() const noexcept { return m_replaying; }

    /// Adds what was done to the innermost group, or to the history.
    void add(std::string const& name, Step const& step);

    [[nodiscard]] GroupId open();

    /// Closes a transaction's group. One that has open groups inside closes with the last of them.
    /// A group that is unknown has closed with one around it. A step of several is named after the
    /// first: "ModifyObjects and 2 more".
    void close(GroupId group);

    /// Closes a command's group with all inside it, and adds what was added to them as one step.
    /// \return the step; null where there was nothing
    Step keep(GroupId group, std::string const& name);

    /// Closes a command's group with all inside it, and takes back what was added to them.
    /// \return OK, or the first step's failure; the others are taken back all the same
    KFRResult discard(GroupId group);

    /// Takes steps back that were never added.
    KFRResult takeBack(std::vector<Step> const& steps);

private:
    struct Entry {
        std::string m_name;
        Step m_step;
    };
    struct Group {
        GroupId m_id;
        bool m_isClosed = false;
        std::vector<Entry> m_entries;
    };
    using Entries = std::deque<Entry>;

    [[nodiscard]] static std::vector<std::string> namesOf(Entries const& entries);
    [[nodiscard]] bool isIdle() const noexcept { return m_groups.empty() && !m_replaying; }
    [[nodiscard]] KFRResult checkIdle(std::string const& what) const;
    KFRResult replay(Entries& from, Entries& to, std::string const& what,
                     KFRResult (appfw::IURCommandInterface::*action)(), HistoryEvent event);
    [[nodiscard]] std::vector<Step> take(GroupId group);
    void closeFinished();

    std::size_t m_depth;
    Told m_told;
    Entries m_done;  // the last is the next to undo
    Entries m_undone;
    std::vector<Group> m_groups;  // the last is the innermost
    GroupId m_lastGroup = 0;
    bool m_replaying = false;
};

}  // namespace vrn::orlo::host::commands
