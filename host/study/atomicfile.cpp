#include "host/study/atomicfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <string>
#include <system_error>
#include <utility>

namespace vrn::orlo::host::study {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuse(fs::path const& file, std::string const& reason)
{
    throw WriteError(file.string() + ": cannot be written: " + reason);
}

[[noreturn]] void refuseWithErrno(fs::path const& file, char const* step)
{
    int const code = errno;
    refuse(file, step + (": " + std::generic_category().message(code)));
}

/// A new file beside the one to write. Closed and removed with the object unless it took its place.
class TemporaryFile {
public:
    /// \param file the file to be replaced, for its folder and for messages.
    explicit TemporaryFile(fs::path file) : m_file(std::move(file))
    {
        // A name that does not grow with the file's: that one may be as long as names can be.
        static std::atomic<unsigned> s_counter{0};
        do {
            std::string const name =
                ".orlo-" + std::to_string(::getpid()) + "-" + std::to_string(s_counter++) + ".tmp";
            m_temporary = m_file.parent_path() / name;
            m_descriptor =
                ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        } while (m_descriptor < 0 && (errno == EEXIST || errno == EINTR));
        if (m_descriptor < 0) {
            refuseWithErrno(m_file, "no file can be made in its folder");
        }
    }

    ~TemporaryFile()
    {
        if (m_descriptor >= 0) {
            ::close(m_descriptor);
        }
        if (!m_done) {
            ::unlink(m_temporary.c_str());
        }
    }

    TemporaryFile(TemporaryFile const&) = delete;
    TemporaryFile& operator=(TemporaryFile const&) = delete;

    void takePermissionsOf(fs::path const& existing)
    {
        struct stat status {};
        if (::stat(existing.c_str(), &status) == 0 &&
            ::fchmod(m_descriptor, status.st_mode & 07777U) != 0) {
            refuseWithErrno(m_file, "its permissions cannot be kept");
        }
    }

    void write(std::string_view text)
    {
        while (!text.empty()) {
            ssize_t const count = ::write(m_descriptor, text.data(), text.size());
            if (count >= 0) {
                text.remove_prefix(static_cast<std::size_t>(count));
            } else if (errno != EINTR) {
                refuseWithErrno(m_file, "writing failed");
            }
        }
    }

    /// Some file systems tell of a full disk only here.
    void flush()
    {
        if (::fsync(m_descriptor) != 0 && errno != EINVAL && errno != ENOTSUP) {
            refuseWithErrno(m_file, "flushing failed");
        }
        if (::close(std::exchange(m_descriptor, -1)) != 0) {
            refuseWithErrno(m_file, "closing failed");
        }
    }

    void takePlace()
    {
        if (::rename(m_temporary.c_str(), m_file.c_str()) != 0) {
            refuseWithErrno(m_file, "renaming failed");
        }
        m_done = true;
    }

private:
    fs::path m_file;
    fs::path m_temporary;
    int m_descriptor = -1;
    bool m_done = false;
};

/// Where a symbolic link leads; the path itself when there is nothing yet.
fs::path targetOf(fs::path const& file)
{
    std::error_code error;
    fs::file_status const status = fs::status(file, error);
    if (fs::is_directory(status)) {
        refuse(file, "it is a folder");
    }
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        refuse(file, "it is a device or the like, not a file");
    }
    if (!fs::exists(status)) {
        if (status.type() != fs::file_type::not_found) {
            refuse(file, error.message());
        }
        return file;
    }
    fs::path target = fs::canonical(file, error);
    if (error) {
        refuse(file, error.message());
    }
    return target;
}

}  // namespace

void writeFileAtomically(fs::path const& file, std::string_view text)
{
    if (!file.has_filename()) {
        refuse(file, "it names no file");
    }
    fs::path const target = targetOf(file);
    if (fs::path const folder = target.parent_path(); !folder.empty()) {
        std::error_code error;
        fs::create_directories(folder, error);
        if (error) {
            refuse(file, "its folder cannot be made: " + error.message());
        }
    }
    TemporaryFile temporary(target);
    temporary.takePermissionsOf(target);
    temporary.write(text);
    temporary.flush();
    temporary.takePlace();
}

}  // namespace vrn::orlo::host::study
