/// \file
/// Named selections.

#pragma once

#include "platform/caedata/entityreferencelist.h"
#include "platform/deps/critical_section.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <map>
#include <string>

namespace vrn::orlo::plugin::modeling {

/// Keeps selections across the steps of a tool, which has to take out what it put in.
///
/// Threads    Any; entering twice on one thread throws tbb_compat::improper_lock.
class MODELING_API SelectionBuffer {
public:
    using List = KFRSmartPointer<CAE::IEntityReferenceConstListInterface>;

    static SelectionBuffer* instance();
    SelectionBuffer(SelectionBuffer const&) = delete;
    SelectionBuffer& operator=(SelectionBuffer const&) = delete;

    /// In place of what is there; null is kept as null.
    void setSelectionList(std::string const& name, List const& list);
    /// Null for an unknown name.
    List getSelectionList(std::string const& name);
    /// Takes the list out; an unknown name is no error.
    void popSelectionList(std::string const& name);

private:
    SelectionBuffer() = default;
    ~SelectionBuffer() = default;

    tbb_compat::critical_section m_mutex;  // guards m_lists
    std::map<std::string, List> m_lists;
};

}  // namespace vrn::orlo::plugin::modeling
