#include "host/kernel/systemutilities.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace vrn::orlo::host::kernel {

namespace {

icu::UnicodeString withSlashes(icu::UnicodeString path)
{
    return path.findAndReplace(u"\\", u"/");
}

std::filesystem::path toPath(icu::UnicodeString const& path)
{
    std::string utf8;
    withSlashes(path).toUTF8String(utf8);
    return utf8;
}

}  // namespace

KFRResult SystemUtilities::exists(icu::UnicodeString const& path)
{
    std::error_code error;
    if (std::filesystem::exists(toPath(path), error)) {
        return KFR::ok;
    }
    return error ? error.value() : ENOENT;
}

KFRResult SystemUtilities::remove(icu::UnicodeString const& path)
{
    std::filesystem::path const file = toPath(path);
    std::error_code error;
    if (std::filesystem::is_directory(std::filesystem::symlink_status(file, error))) {
        return EISDIR;
    }
    std::filesystem::remove(file, error);
    return error ? error.value() : KFR::ok;
}

KFRResult SystemUtilities::getEnvironmentVariable(icu::UnicodeString const& name,
                                                  std::string& value)
{
    std::string utf8;
    char const* const found = std::getenv(name.toUTF8String(utf8).c_str());
    if (found == nullptr) {
        return ENOENT;
    }
    value = found;
    return KFR::ok;
}

icu::UnicodeString SystemUtilities::toNative(icu::UnicodeString const& path)
{
    return withSlashes(path);
}

icu::UnicodeString SystemUtilities::join(icu::UnicodeString const& folder,
                                         icu::UnicodeString const& path)
{
    icu::UnicodeString const below = withSlashes(path);
    icu::UnicodeString joined = withSlashes(folder);
    if (joined.isEmpty() || below.startsWith(u"/")) {
        return below;
    }
    if (!below.isEmpty() && !joined.endsWith(u"/")) {
        joined.append(u'/');
    }
    return joined.append(below);
}

}  // namespace vrn::orlo::host::kernel
