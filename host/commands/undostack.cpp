#include "host/commands/undostack.h"

#include "host/commands/commandfailure.h"

#include <algorithm>
#include <utility>

namespace vrn::orlo::host::commands {

KFRResult UndoStack::undo()
{
    return replay(m_done, m_undone, "undo", &appfw::IURCommandInterface::undo, kUndone);
}

KFRResult UndoStack::redo()
{
    return replay(m_undone, m_done, "redo", &appfw::IURCommandInterface::redo, kRedone);
}

KFRResult UndoStack::clear()
{
    if (KFRResult const idle = checkIdle("clear the history"); !idle.isOk()) {
        return idle;
    }
    // Dropped last: the end of a step may lead back here.
    Entries const done = std::exchange(m_done, {});
    Entries const undone = std::exchange(m_undone, {});
    m_told(kHistoryCleared, "");
    return KFR::ok;
}

KFRResult UndoStack::replay(Entries& from, Entries& to, std::string const& what,
                            KFRResult (appfw::IURCommandInterface::*action)(), HistoryEvent event)
{
    if (KFRResult const idle = checkIdle(what); !idle.isOk()) {
        return idle;
    }
    if (from.empty()) {
        return failure(kNoHistory, "There is nothing to " + what + ".");
    }
    Entry const entry = from.back();
    m_replaying = true;
    KFRResult const answer =
        guarded("Cannot " + what + " " + entry.m_name, [&] { return ((*entry.m_step).*action)(); });
    m_replaying = false;
    if (!answer.isOk()) {
        return answer;
    }
    from.pop_back();
    to.push_back(entry);
    m_told(event, entry.m_name);
    return KFR::ok;
}

void UndoStack::add(std::string const& name, Step const& step)
{
    if (!m_groups.empty()) {
        m_groups.back().m_entries.push_back({name, step});
        closeFinished();
        return;
    }
    // What goes is dropped last, as in clear().
    Entries dropped = std::exchange(m_undone, {});
    m_done.push_back({name, step});
    while (m_done.size() > m_depth) {
        dropped.push_back(std::move(m_done.front()));
        m_done.pop_front();
    }
    m_told(kStepAdded, name);
}

UndoStack::GroupId UndoStack::open()
{
    m_groups.push_back({++m_lastGroup, false, {}});
    return m_lastGroup;
}

void UndoStack::close(GroupId group)
{
    for (Group& open : m_groups) {
        open.m_isClosed = open.m_isClosed || open.m_id == group;
    }
    closeFinished();
}

Step UndoStack::keep(GroupId group, std::string const& name)
{
    std::vector<Step> steps = take(group);
    if (steps.empty()) {
        closeFinished();
        return {};
    }
    Step const step = KFR::make<UndoRecord>(std::move(steps));
    add(name, step);
    return step;
}

KFRResult UndoStack::discard(GroupId group)
{
    KFRResult answer = takeBack(take(group));
    closeFinished();
    return answer;
}

KFRResult UndoStack::takeBack(std::vector<Step> const& steps)
{
    bool const wasReplaying = std::exchange(m_replaying, true);
    KFRResult answer = commands::takeBack(steps);
    m_replaying = wasReplaying;
    return answer;
}

std::vector<Step> UndoStack::take(GroupId group)
{
    auto const first = std::find_if(m_groups.begin(), m_groups.end(),
                                    [group](Group const& open) { return open.m_id == group; });
    std::vector<Step> steps;
    for (auto inner = first; inner != m_groups.end(); ++inner) {
        for (Entry const& entry : inner->m_entries) {
            steps.push_back(entry.m_step);
        }
    }
    m_groups.erase(first, m_groups.end());
    return steps;
}

void UndoStack::closeFinished()
{
    while (!m_groups.empty() && m_groups.back().m_isClosed) {
        std::vector<Entry> const entries = std::move(m_groups.back().m_entries);
        m_groups.pop_back();
        if (entries.empty()) {
            continue;
        }
        if (!m_groups.empty()) {
            auto& outer = m_groups.back().m_entries;
            outer.insert(outer.end(), entries.begin(), entries.end());
        } else if (entries.size() == 1) {
            add(entries.front().m_name, entries.front().m_step);
        } else {
            std::vector<Step> steps;
            for (Entry const& entry : entries) {
                steps.push_back(entry.m_step);
            }
            add(entries.front().m_name + " and " + std::to_string(entries.size() - 1) + " more",
                KFR::make<UndoRecord>(std::move(steps)));
        }
    }
}

std::vector<std::string> UndoStack::namesOf(Entries const& entries)
{
    std::vector<std::string> names;
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        names.push_back(entry->m_name);
    }
    return names;
}

KFRResult UndoStack::checkIdle(std::string const& what) const
{
    if (m_replaying) {
        return failure(kBusy, "Cannot " + what + " while a step is undone or redone.");
    }
    if (!m_groups.empty()) {
        return failure(kBusy, "Cannot " + what + " while a transaction is open or a command runs.");
    }
    return KFR::ok;
}

}  // namespace vrn::orlo::host::commands
