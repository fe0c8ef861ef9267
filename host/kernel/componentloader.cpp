#include "host/kernel/componentloader.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <string_view>
#include <system_error>

#include <dlfcn.h>
#include <link.h>

namespace vrn::orlo::host::kernel {

namespace {

constexpr std::string_view kKernelMajorVersion = "24";

using InfoFunction = std::string(std::string);
using VersionTableFunction = void(KFRSequence<std::string>&);

[[noreturn]] void refuse(std::string const& path, std::string const& why)
{
    throw ComponentError(path + ": " + why);
}

void* openLibrary(std::string const& path)
{
    std::error_code error;
    if (path.find('/') != std::string::npos && !std::filesystem::exists(path, error)) {
        refuse(path, "there is no such file");
    }
    // An empty name would open the program itself.
    void* const library = path.empty() ? nullptr : ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        refuse(path, path.empty() ? std::string("a component needs a name")
                                  : std::string("cannot be loaded (") + ::dlerror() + ")");
    }
    return library;
}

/// The entry function `name` of the library itself: one that only a library below it has does not
/// count.
template <class Function>
Function* entry(void* library, std::string const& path, char const* name)
{
    void* const symbol = ::dlsym(library, name);
    link_map* own = nullptr;
    link_map* found = nullptr;
    Dl_info unread;
    if (symbol == nullptr || ::dlinfo(library, RTLD_DI_LINKMAP, &own) != 0 ||
        ::dladdr1(symbol, &unread, reinterpret_cast<void**>(&found), RTLD_DL_LINKMAP) == 0 ||
        own != found) {
        refuse(path, std::string("is no component: it has no entry function ") + name);
    }
    return reinterpret_cast<Function*>(symbol);
}

/// Calls an entry function; what it throws becomes a ComponentError.
template <class Call>
auto guarded(std::string const& path, char const* name, Call const& call)
{
    try {
        return call();
    } catch (std::exception const& thrown) {
        refuse(path, std::string(name) + " failed: " + thrown.what());
    }
}

std::vector<std::string> splitKeys(std::string_view list)
{
    std::vector<std::string> keys;
    while (!list.empty()) {
        std::size_t const end = std::min(list.find(','), list.size());
        if (end > 0) {
            keys.emplace_back(list.substr(0, end));
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return keys;
}

std::string serviceTableOf(std::string name)
{
    std::ranges::replace(name, '.', '_');
    return name + "_ServiceTable";
}

}  // namespace

std::string Component::info(std::string const& key) const
{
    auto const row = std::ranges::find(m_info, key, &std::pair<std::string, std::string>::first);
    return row != m_info.end() ? row->second : std::string();
}

ComponentLoader::ComponentLoader(std::string const& path)
{
    void* const library = openLibrary(path);
    // All three before the first call, so that half a component is never run.
    auto* const info = entry<InfoFunction>(library, path, "KFR_Comp_Info");
    auto* const versionTable =
        entry<VersionTableFunction>(library, path, "KFR_Get_ServiceVersionTable");
    m_init = entry<InitFunction>(library, path, "KFR_Comp_Init");

    m_component.m_path = path;
    guarded(path, "KFR_Comp_Info", [&] {
        for (std::string const& key : splitKeys(info("*"))) {
            m_component.m_info.emplace_back(key, info(key));
        }
        m_component.m_info.emplace_back("VersionNumbers", info("VersionNumbers"));
    });
    if (std::string const major = m_component.info("KernelMajorVersion");
        major != kKernelMajorVersion) {
        refuse(path, "was built for version " + (major.empty() ? "(unknown)" : major) +
                         " of the framework, this is version " + std::string(kKernelMajorVersion));
    }
    std::string const name = m_component.info("Name");
    if (name.empty()) {
        refuse(path, "does not tell its name");
    }
    m_component.m_serviceTable = serviceTableOf(name);

    guarded(path, "KFR_Get_ServiceVersionTable", [&] {
        KFRSequence<std::string> rows;
        versionTable(rows);
        m_component.m_versionTable.assign(rows.cbegin(), rows.cend());
    });
}

void ComponentLoader::initialise(
    KFRSmartPointer<KFRIServicePublisherInterface> const& publisher) const
{
    std::string const& path = m_component.m_path;
    int const status = guarded(path, "KFR_Comp_Init", [&] { return m_init(publisher); });
    if (status != 0) {
        refuse(path, "KFR_Comp_Init failed with " + std::to_string(status));
    }
}

}  // namespace vrn::orlo::host::kernel
