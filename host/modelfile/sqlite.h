/// \file
/// The database library behind handles that close themselves.

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace vrn::orlo::host::modelfile {

/// A call to the database that failed. what() is the library's fixed text for the code: one that
/// quotes a damaged file could be anything.
class DatabaseError : public std::runtime_error {
public:
    explicit DatabaseError(int code);

    /// Without the library's finer distinctions.
    [[nodiscard]] int code() const noexcept { return m_code; }

private:
    int m_code;
};

/// A value for a statement that is no text.
struct Bytes {
    std::string_view m_bytes;
};

/// An open database.
///
/// Failure    DatabaseError.
/// Threads    One at a time.
class Database {
public:
    [[nodiscard]] static Database inMemory();
    /// Of a file, which is never written to.
    [[nodiscard]] static Database readOnly(std::filesystem::path const& file);

    /// Statements whose answers nobody wants.
    void run(std::string const& sql);

    /// The file that a database in memory would be.
    class Image {
    public:
        explicit Image(Database& database);
        [[nodiscard]] std::string_view bytes() const noexcept;

    private:
        struct Free {
            void operator()(unsigned char* bytes) const noexcept;
        };
        std::unique_ptr<unsigned char, Free> m_bytes;
        std::size_t m_size = 0;
    };

private:
    friend class Statement;
    Database(char const* name, int flags);

    struct Close {
        void operator()(sqlite3* handle) const noexcept;
    };
    std::unique_ptr<sqlite3, Close> m_handle;
};

/// A statement to be run any number of times.
///
/// Failure    DatabaseError.
/// Ownership  The database must live as long. Texts and bytes of a row live until the next call.
class Statement {
public:
    Statement(Database& database, std::string_view sql);

    /// Runs it anew with these values, which must live as long as the rows are asked for.
    /// \return whether there is a row
    template <class... Values>
    bool start(Values const&... values)
    {
        reset();
        int place = 0;
        (bind(++place, values), ...);
        return next();
    }
    /// \return whether there is another row
    bool next();

    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] std::string_view text(int column) const;
    [[nodiscard]] std::string_view bytes(int column) const;

private:
    void reset();
    void bind(int place, std::int64_t value);
    void bind(int place, std::string_view value);
    void bind(int place, Bytes const& value);

    struct Finalize {
        void operator()(sqlite3_stmt* handle) const noexcept;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_handle;
};

}  // namespace vrn::orlo::host::modelfile
