#include "plugins/modelingplugin/utilities/selection/selectionbuffer.h"

#include <mutex>

namespace vrn::orlo::plugin::modeling {

SelectionBuffer* SelectionBuffer::instance()
{
    static SelectionBuffer buffer;
    return &buffer;
}

void SelectionBuffer::setSelectionList(std::string const& name, List const& list)
{
    List replaced = list;  // goes after the lock: its end may lead back here
    std::lock_guard const lock(m_mutex);
    m_lists[name].swap(replaced);
}

SelectionBuffer::List SelectionBuffer::getSelectionList(std::string const& name)
{
    std::lock_guard const lock(m_mutex);
    auto const found = m_lists.find(name);
    return found != m_lists.end() ? found->second : List();
}

void SelectionBuffer::popSelectionList(std::string const& name)
{
    List taken;
    std::lock_guard const lock(m_mutex);
    if (auto const found = m_lists.find(name); found != m_lists.end()) {
        taken.swap(found->second);
        m_lists.erase(found);
    }
}

}  // namespace vrn::orlo::plugin::modeling
