#include "host/modelfile/sqlite.h"

#include <sqlite3.h>

namespace vrn::orlo::host::modelfile {

namespace {

void check(int code)
{
    if (code != SQLITE_OK) {
        throw DatabaseError(code);
    }
}

/// The library takes a null pointer for no value at all.
char const* startOf(std::string_view bytes)
{
    return bytes.empty() ? "" : bytes.data();
}

}  // namespace

DatabaseError::DatabaseError(int code)
    : std::runtime_error(sqlite3_errstr(code)), m_code(code & 0xFF)
{
}

void Database::Close::operator()(sqlite3* handle) const noexcept
{
    sqlite3_close_v2(handle);
}

Database::Database(char const* name, int flags)
{
    sqlite3* handle = nullptr;
    int const code = sqlite3_open_v2(name, &handle, flags, nullptr);
    m_handle.reset(handle);  // there is one even for a database that could not be opened
    check(code);
}

Database Database::inMemory()
{
    return {":memory:", SQLITE_OPEN_READWRITE};
}

Database Database::readOnly(std::filesystem::path const& file)
{
    // An absolute path is never one of the names that mean something else, such as ":memory:".
    Database database(std::filesystem::absolute(file).c_str(), SQLITE_OPEN_READONLY);
    database.run("PRAGMA cell_size_check = ON; PRAGMA trusted_schema = OFF");
    return database;
}

void Database::run(std::string const& sql)
{
    check(sqlite3_exec(m_handle.get(), sql.c_str(), nullptr, nullptr, nullptr));
}

void Database::Image::Free::operator()(unsigned char* bytes) const noexcept
{
    sqlite3_free(bytes);
}

Database::Image::Image(Database& database)
{
    sqlite3_int64 size = 0;
    m_bytes.reset(sqlite3_serialize(database.m_handle.get(), "main", &size, 0));
    if (m_bytes == nullptr) {
        // It says no more; by far the likeliest is that one block of memory cannot be that large.
        throw DatabaseError(SQLITE_TOOBIG);
    }
    m_size = static_cast<std::size_t>(size);
}

std::string_view Database::Image::bytes() const noexcept
{
    return {reinterpret_cast<char const*>(m_bytes.get()), m_size};
}

void Statement::Finalize::operator()(sqlite3_stmt* handle) const noexcept
{
    sqlite3_finalize(handle);
}

Statement::Statement(Database& database, std::string_view sql)
{
    sqlite3_stmt* handle = nullptr;
    check(sqlite3_prepare_v2(database.m_handle.get(), sql.data(), static_cast<int>(sql.size()),
                             &handle, nullptr));
    m_handle.reset(handle);
}

bool Statement::next()
{
    int const code = sqlite3_step(m_handle.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        throw DatabaseError(code);
    }
    return code == SQLITE_ROW;
}

void Statement::reset()
{
    sqlite3_reset(m_handle.get());  // gives the code of the last step again, which next() threw
}

void Statement::bind(int place, std::int64_t value)
{
    check(sqlite3_bind_int64(m_handle.get(), place, value));
}

void Statement::bind(int place, std::string_view value)
{
    check(sqlite3_bind_text64(m_handle.get(), place, startOf(value), value.size(), SQLITE_STATIC,
                              SQLITE_UTF8));
}

void Statement::bind(int place, Bytes const& value)
{
    check(sqlite3_bind_blob64(m_handle.get(), place, startOf(value.m_bytes), value.m_bytes.size(),
                              SQLITE_STATIC));
}

std::int64_t Statement::integer(int column) const
{
    return sqlite3_column_int64(m_handle.get(), column);
}

std::string_view Statement::text(int column) const
{
    auto const* const start = sqlite3_column_text(m_handle.get(), column);
    return {reinterpret_cast<char const*>(start),
            start == nullptr
                ? 0
                : static_cast<std::size_t>(sqlite3_column_bytes(m_handle.get(), column))};
}

std::string_view Statement::bytes(int column) const
{
    auto const* const start = sqlite3_column_blob(m_handle.get(), column);
    return {static_cast<char const*>(start),
            start == nullptr
                ? 0
                : static_cast<std::size_t>(sqlite3_column_bytes(m_handle.get(), column))};
}

}  // namespace vrn::orlo::host::modelfile
