/// \file
/// Work for the application's GUI executive.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <functional>

namespace vrn::orlo::plugin::modeling {

/// Hands functions to the GUI executive, which runs them when their turn comes.
///
/// Failure    Silent: without an executive the work is dropped.
/// Ownership  The function is copied.
/// Threads    The calls are the main thread's; where the work runs is the executive's.
class MODELING_API WorkItemManager {
public:
    static WorkItemManager* instance();
    WorkItemManager(WorkItemManager const&) = delete;
    WorkItemManager& operator=(WorkItemManager const&) = delete;

    /// Always queued.
    /// \param showWait  whether the wait cursor shows while it runs
    void push(std::function<void()> const& work, bool showWait);
    /// Queued or run at once, as the executive likes.
    void execAsyncOnWorkThread(std::function<void()> const& work, bool showWait);

private:
    WorkItemManager() = default;
};

}  // namespace vrn::orlo::plugin::modeling
