#include "apps/orlorun.h"

#include <sys/wait.h>

#include <cstdlib>

namespace vrn::orlo::app {

namespace {

std::string quoted(std::string const& text)
{
    std::string result = "'";
    for (char const c : text) {
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return result + "'";
}

}  // namespace

OrloRun runOrlo(std::vector<std::string> const& arguments, std::filesystem::path const& folder)
{
    TemporaryFolder const capture;
    std::filesystem::path const out = capture.path() / "out";
    std::filesystem::path const err = capture.path() / "err";
    std::string command = "cd " + quoted(folder.string()) + " && " + quoted(ORLO_PROGRAM);
    for (std::string const& argument : arguments) {
        command += ' ' + quoted(argument);
    }
    command += " >" + quoted(out.string()) + " 2>" + quoted(err.string()) + " </dev/null";
    int const status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(out), contentOf(err)};
}

}  // namespace vrn::orlo::app
