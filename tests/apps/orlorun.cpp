#include "apps/orlorun.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

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

TemporaryFolder::TemporaryFolder()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "orlo-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), pattern);
    }
    m_path = pattern;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::filesystem::path TemporaryFolder::write(std::string const& name,
                                             std::string const& content) const
{
    std::filesystem::path const file = m_path / name;
    std::ofstream(file, std::ios::binary) << content;
    return file;
}

std::string contentOf(std::filesystem::path const& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace vrn::orlo::app
