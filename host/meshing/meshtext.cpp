#include "host/meshing/meshtext.h"

#include "host/meshing/meshfileerror.h"

#include <fstream>
#include <system_error>

namespace vrn::orlo::host::meshing {

namespace fs = std::filesystem;

std::string shown(std::string_view text)
{
    constexpr std::size_t kMost = 40;
    std::string quoted(text.substr(0, kMost));
    for (char& c : quoted) {
        c = c >= ' ' && c <= '~' ? c : '?';
    }
    return quoted + (text.size() > kMost ? "..." : "");
}

std::string meshTextOf(fs::path const& file, std::string& reason)
{
    std::error_code error;
    fs::file_status const status = fs::status(file, error);
    if (!fs::exists(status)) {
        reason = "there is no such file";
        return {};
    }
    if (fs::is_directory(status)) {
        reason = "is a folder, not a mesh file";
        return {};
    }
    std::ifstream in(file, std::ios::binary);
    auto const size = fs::file_size(file, error);
    if (!in || error) {
        reason = "cannot be read; are you allowed to read it?";
        return {};
    }
    std::string text(size, '\0');
    in.read(text.data(), static_cast<std::streamsize>(size));
    text.resize(static_cast<std::size_t>(in.gcount()));
    if (text.find_first_not_of("\n" + std::string(kBlanks)) == text.npos) {
        reason = "is empty";
    }
    return text;
}

std::string meshTextOf(fs::path const& file)
{
    std::string reason;
    std::string text = meshTextOf(file, reason);
    if (!reason.empty()) {
        throw MeshFileError(file, 0, reason, "");
    }
    return text;
}

}  // namespace vrn::orlo::host::meshing
