#include "host/meshing/gmshsession.h"

#include "host/geometry/kernelsession.h"

#include <atomic>
#include <exception>
#include <new>
#include <string>
#include <vector>

#include <gmsh.h>

namespace vrn::orlo::host::meshing {

namespace {

std::atomic_flag isOpen = ATOMIC_FLAG_INIT;

struct OptionRow {
    char const* m_name;
    double m_value;
};

// One thread, Delaunay and no optimisation of curved elements: with any other choice two runs
// differ. Points without a size of their own count as a tenth of the body's box for the mesher.
// Errors are read from the log: surfaces are meshed in a parallel region, which nothing may leave by
// an exception without ending the process.
// clang-format off
constexpr OptionRow kOptions[]{
    {"General.AbortOnError", 0},
    {"General.Terminal", 0},
    {"General.NumThreads", 1},
    {"Mesh.Algorithm3D", 1},
    {"Mesh.HighOrderOptimize", 0},
    {"Mesh.MeshSizeFromPoints", 0},
    {"Mesh.SecondOrderIncomplete", 1},
    {"Mesh.SecondOrderLinear", 0},
};
// clang-format on

[[noreturn]] void fail(char const* who, std::string text)
{
    for (char& c : text) {
        c = c == '\n' || c == '\r' ? ' ' : c;
    }
    text.erase(text.find_last_not_of(' ') + 1);
    throw MesherError(std::string(who) + " failed on it: " + (text.empty() ? "no reason" : text) +
                      " (numbers count within the body); try another size, or repair the geometry");
}

void throwLoggedError()
{
    std::vector<std::string> lines;
    gmsh::logger::get(lines);
    for (std::string const& line : lines) {
        if (line.starts_with("Error: ")) {
            throw line.substr(line.find(' ') + 1);
        }
    }
}

}  // namespace

void onGmsh(std::function<void()> const& run)
{
    try {
        run();
        throwLoggedError();
    } catch (MesherError const&) {
        throw;
    } catch (std::bad_alloc const&) {
        throw;
    } catch (std::string const& text) {
        fail("the mesher", text);
    } catch (Standard_Failure const& failure) {
        fail("the geometry kernel", failure.GetMessageString());
    } catch (std::exception const& error) {
        fail("the mesher", error.what());
    }
}

GmshSession::GmshSession()
{
    if (isOpen.test_and_set()) {
        throw std::logic_error("GmshSession: another session is open");
    }
    try {
        onGmsh([] {
            geometry::silenceKernel();
            gmsh::initialize(0, nullptr, false);
            gmsh::logger::start();
            for (OptionRow const& row : kOptions) {
                gmsh::option::setNumber(row.m_name, row.m_value);
            }
        });
    } catch (...) {
        isOpen.clear();
        throw;
    }
}

GmshSession::~GmshSession()
{
    try {
        gmsh::logger::stop();
        gmsh::finalize();
    } catch (...) {  // NOLINT: it is gone either way, and initialising starts afresh
    }
    isOpen.clear();
}

}  // namespace vrn::orlo::host::meshing
