#include "host/modelfile/modelframe.h"

#include "host/modelfile/modelfileerror.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

namespace vrn::orlo::host::modelfile {

namespace {

namespace fs = std::filesystem;

// Where the header of an SQLite database has what; its numbers are big-endian.
constexpr std::size_t kHeaderSize = 100;
constexpr std::string_view kMagic{"SQLite format 3\0", 16};
constexpr std::size_t kPageSizeAt = 16;
constexpr std::size_t kReadVersionAt = 19;
constexpr std::size_t kPageCountAt = 28;
constexpr std::size_t kUserVersionAt = 60;
constexpr std::size_t kApplicationIdAt = 68;

constexpr char const* kGiveAnother = "give a file that `orlo mesh` has made";
constexpr char const* kUseNewer = "use a newer orlo, or make it again with `orlo mesh`";

class Header {
public:
    explicit Header(fs::path const& file)
    {
        std::ifstream in(file, std::ios::binary);
        m_isReadable = in.is_open();
        in.read(m_bytes.data(), kHeaderSize);
        m_size = static_cast<std::size_t>(in.gcount());
    }

    [[nodiscard]] bool isReadable() const { return m_isReadable; }
    [[nodiscard]] std::size_t size() const { return m_size; }
    [[nodiscard]] bool isWhole() const { return m_size == kHeaderSize; }
    /// Also for the first bytes of a header.
    [[nodiscard]] bool isSqlite() const
    {
        std::size_t const size = std::min(m_size, kMagic.size());
        return size > 0 && std::string_view(m_bytes.data(), size) == kMagic.substr(0, size);
    }
    [[nodiscard]] std::uint32_t number(std::size_t at, std::size_t size = 4) const
    {
        std::uint32_t number = 0;
        for (std::size_t i = at; i < at + size; ++i) {
            number = number << 8 | static_cast<unsigned char>(m_bytes[i]);
        }
        return number;
    }
    [[nodiscard]] std::uintmax_t fileSize() const
    {
        std::uint32_t const pageSize = number(kPageSizeAt, 2);
        constexpr std::uintmax_t kLargestPage = 65536;  // which does not fit, and is written as 1
        return (pageSize == 1 ? kLargestPage : pageSize) * number(kPageCountAt);
    }

private:
    std::array<char, kHeaderSize> m_bytes{};
    std::size_t m_size = 0;
    bool m_isReadable = false;
};

void checkKind(fs::path const& file)
{
    std::error_code error;
    fs::file_status const status = fs::status(file, error);
    if (status.type() == fs::file_type::not_found) {
        throw ModelFileError(file, "there is no such file",
                             "check the name, or make it with `orlo mesh`");
    }
    if (!fs::exists(status)) {
        throw ModelFileError(file, "cannot be reached: " + error.message(), "check its folder");
    }
    if (fs::is_directory(status)) {
        throw ModelFileError(file, "is a folder, not a model file", kGiveAnother);
    }
    if (!fs::is_regular_file(status)) {
        throw ModelFileError(file, "is a device or the like, not a model file", kGiveAnother);
    }
}

[[noreturn]] void refuseCut(fs::path const& file, std::uintmax_t size, std::string const& of)
{
    throw ModelFileError(file, "is cut off after " + std::to_string(size) + " bytes" + of,
                         kMakeAgain);
}

}  // namespace

void checkFrame(fs::path const& file)
{
    checkKind(file);
    Header const header(file);
    if (!header.isReadable()) {
        throw ModelFileError(file, "cannot be read", "ask for the permission to read it");
    }
    if (!header.isSqlite()) {
        throw ModelFileError(file, "is no model file", kGiveAnother);
    }
    if (!header.isWhole()) {
        refuseCut(file, header.size(), {});
    }
    if (header.number(kApplicationIdAt) != kApplicationId) {
        throw ModelFileError(file, "is an SQLite database, but no model file", kGiveAnother);
    }
    if (std::uint32_t const version = header.number(kUserVersionAt); version != kVersion) {
        std::string const wrong = "is a model file of version " + std::to_string(version) +
                                  ", and version " + std::to_string(kVersion) + " is known";
        throw ModelFileError(file, wrong, version > kVersion ? kUseNewer : kMakeAgain);
    }
    // Reading a database that has a log beside it would make one.
    if (header.number(kReadVersionAt, 1) != 1) {
        throw ModelFileError(file, "has been changed by another program", kMakeAgain);
    }
    std::error_code error;
    if (std::uintmax_t const size = fs::file_size(file, error); size < header.fileSize()) {
        refuseCut(file, size, " of " + std::to_string(header.fileSize()));
    }
}

void checkNoJournal(fs::path const& file)
{
    std::error_code error;
    fs::path target = fs::weakly_canonical(file, error);
    if (error) {
        target = file;
    }
    for (char const* const ending : {"-journal", "-wal"}) {
        fs::path journal = target;
        journal += ending;
        if (fs::exists(fs::symlink_status(journal, error))) {
            throw ModelFileError(file,
                                 "is in use by another program, or one was stopped while it "
                                 "changed the file: there is " +
                                     journal.filename().string(),
                                 "close that program, or remove both files");
        }
    }
}

}  // namespace vrn::orlo::host::modelfile
