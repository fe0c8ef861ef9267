/// \file
/// Loading of components.

#pragma once

#include "platform/kfr/kfrframework.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::kernel {

/// A component that cannot be used. The text is one line: the path as it was given, and why.
class ComponentError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What a component says of itself.
struct Component {
    std::string m_path;  ///< As it was given to the loader.
    /// Rows of the information block: the keys that the component lists, in its order, and last
    /// "VersionNumbers", which it does not list.
    std::vector<std::pair<std::string, std::string>> m_info;
    std::vector<std::string> m_versionTable;
    std::string m_serviceTable;  ///< Name under which look-ups refer to the component's services.

    /// Value of a row; empty without one.
    [[nodiscard]] std::string info(std::string const& key) const;
};

/// Loads one component and calls its entry functions: the information and the version table on
/// construction, the initialisation when it is told to.
///
/// Failure    ComponentError.
/// Ownership  A library once loaded stays for the life of the process, and so may all that came
///            from it.
/// Threads    Main thread.
class ComponentLoader {
public:
    /// \param path  a path, or a plain file name for the system's library search
    explicit ComponentLoader(std::string const& path);

    [[nodiscard]] Component const& component() const noexcept { return m_component; }

    /// Has the component publish its factories. What it published before a failure stays published.
    void initialise(KFRSmartPointer<KFRIServicePublisherInterface> const& publisher) const;

private:
    using InitFunction = int(KFRSmartPointer<KFRIServicePublisherInterface>);

    Component m_component;
    InitFunction* m_init = nullptr;
};

}  // namespace vrn::orlo::host::kernel
