#include "host/modelfile/modelfile.h"

#include "host/modelfile/checksum.h"
#include "host/modelfile/meshblob.h"
#include "host/modelfile/modelframe.h"
#include "host/modelfile/renumbering.h"
#include "host/modelfile/sqlite.h"
#include "host/study/atomicfile.h"

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace vrn::orlo::host::modelfile {

namespace {

namespace fs = std::filesystem;
using meshing::MeshStore;

// Each row has the checksum of all of it: not one column can change unseen. How many rows there
// are is in meta, but for arrays, which are asked for by name.
constexpr char const* kTables = R"(
    CREATE TABLE meta (key TEXT PRIMARY KEY, value INTEGER, checksum INTEGER) WITHOUT ROWID;
    CREATE TABLE note (key TEXT PRIMARY KEY, value TEXT, checksum INTEGER) WITHOUT ROWID;
    CREATE TABLE geometry (name TEXT, bytes BLOB, checksum INTEGER);
    CREATE TABLE part (place INTEGER PRIMARY KEY, number INTEGER, name TEXT, mesh TEXT,
                       checksum INTEGER);
    CREATE TABLE array (place INTEGER, name TEXT, count INTEGER, bytes BLOB, checksum INTEGER,
                        UNIQUE (place, name));
)";

/// Bytes count as their text does.
std::string_view plain(std::string_view text)
{
    return text;
}
std::string_view plain(Bytes const& bytes)
{
    return bytes.m_bytes;
}
std::int64_t plain(std::int64_t number)
{
    return number;
}

template <class... Values>
std::int64_t checksumOf(Values const&... values)
{
    Checksum checksum;
    (checksum.add(plain(values)), ...);
    return checksum.value();
}

/// Adds a row and its checksum.
template <class... Values>
void insert(Statement& statement, Values const&... values)
{
    static_cast<void>(statement.start(values..., checksumOf(values...)));
}

std::string labelOf(std::size_t place, std::string const& part)
{
    return "the mesh of part " + std::to_string(place + 1) + ", \"" + part + "\"";
}

void writeMeshes(Database& database, ModelFile const& model, unsigned firstNumber)
{
    Statement addPart(database, "INSERT INTO part VALUES (?, ?, ?, ?, ?)");
    Statement addArray(database, "INSERT INTO array VALUES (?, ?, ?, ?, ?)");
    for (std::size_t i = 0; i < model.m_meshes.size(); ++i) {
        PartMeshRecord const& record = model.m_meshes[i];
        if (record.m_store == nullptr) {
            throw std::invalid_argument("part \"" + record.m_part + "\" has no mesh to be written");
        }
        auto const store = renumbered(record.m_store, firstNumber, 1);
        auto const place = static_cast<std::int64_t>(i);
        insert(addPart, place, std::int64_t{record.m_index}, std::string_view(record.m_part),
               std::string_view(store->name()));
        try {
            packMesh(store->content(), [&](MeshBlob const& blob) {
                insert(addArray, place, blob.m_name, static_cast<std::int64_t>(blob.m_count),
                       Bytes{blob.m_bytes});
            });
        } catch (MeshBlobError const& error) {
            throw std::invalid_argument(labelOf(i, record.m_part) + ": " + error.what());
        }
    }
}

void writeTables(Database& database, ModelFile const& model, unsigned firstNumber)
{
    database.run("PRAGMA application_id = " + std::to_string(kApplicationId) +
                 "; PRAGMA user_version = " + std::to_string(kVersion) + "; BEGIN;" + kTables);
    Statement addMeta(database, "INSERT INTO meta VALUES (?, ?, ?)");
    insert(addMeta, std::string_view("notes"), static_cast<std::int64_t>(model.m_notes.size()));
    insert(addMeta, std::string_view("parts"), static_cast<std::int64_t>(model.m_meshes.size()));
    Statement addNote(database, "INSERT INTO note VALUES (?, ?, ?)");
    for (auto const& [key, value] : model.m_notes) {
        insert(addNote, std::string_view(key), std::string_view(value));
    }
    Statement addGeometry(database, "INSERT INTO geometry VALUES (?, ?, ?)");
    insert(addGeometry, std::string_view(model.m_geometryName), Bytes{model.m_geometryBytes});
    writeMeshes(database, model, firstNumber);
    database.run("COMMIT");
}

[[noreturn]] void refuseWriting(fs::path const& file, DatabaseError const& error)
{
    if (error.code() == SQLITE_TOOBIG) {
        throw ModelFileError(file,
                             "would be larger than a model file can be, 1 GB per array and 2 "
                             "GB in all",
                             "mesh fewer parts into one file, or with larger elements");
    }
    if (error.code() == SQLITE_NOMEM) {
        throw std::bad_alloc();
    }
    throw ModelFileError(file, std::string("cannot be written: ") + error.what(), "try again");
}

[[noreturn]] void refuseReading(fs::path const& file, DatabaseError const& error)
{
    switch (error.code()) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            throw ModelFileError(file, "is locked by another program", "close it there");
        case SQLITE_NOMEM:
            throw std::bad_alloc();
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
        case SQLITE_READONLY:
        case SQLITE_IOERR:
            throw ModelFileError(file, std::string("cannot be read: ") + error.what(),
                                 "check the disk and your permissions");
        default:
            throw ModelFileError(file, std::string("is damaged: ") + error.what(), kMakeAgain);
    }
}

class Reader {
public:
    explicit Reader(fs::path const& file) : m_file(file), m_database(Database::readOnly(file))
    {
        m_database.run("BEGIN");  // what others write from now on stays unseen
    }

    ModelFile read()
    {
        ModelFile model;
        readNotes(model);
        readGeometry(model);
        readMeshes(model);
        return model;
    }

private:
    [[noreturn]] void refuse(std::string const& what) const
    {
        throw ModelFileError(m_file, "is damaged: " + what, kMakeAgain);
    }

    template <class... Values>
    void require(std::int64_t checksum, std::string const& what, Values const&... values) const
    {
        if (checksumOf(values...) != checksum) {
            refuse(what + " does not match its checksum");
        }
    }

    std::int64_t count(std::string_view what)
    {
        Statement ask(m_database, "SELECT value, checksum FROM meta WHERE key = ?");
        if (!ask.start(what)) {
            refuse("the number of its " + std::string(what) + " is missing");
        }
        std::int64_t const number = ask.integer(0);
        require(ask.integer(1), "the number of its " + std::string(what), what, number);
        return number;
    }

    void readNotes(ModelFile& model)
    {
        Statement ask(m_database, "SELECT key, value, checksum FROM note");
        for (bool isThere = ask.start(); isThere; isThere = ask.next()) {
            require(ask.integer(2), "a note", ask.text(0), ask.text(1));
            model.m_notes.emplace(ask.text(0), ask.text(1));
        }
        if (static_cast<std::int64_t>(model.m_notes.size()) != count("notes")) {
            refuse("a note is missing");
        }
    }

    void readGeometry(ModelFile& model)
    {
        Statement ask(m_database, "SELECT name, bytes, checksum FROM geometry");
        if (!ask.start()) {
            refuse("the geometry is missing");
        }
        require(ask.integer(2), "the geometry", ask.text(0), ask.bytes(1));
        model.m_geometryName = ask.text(0);
        model.m_geometryBytes = ask.bytes(1);
    }

    void readMeshes(ModelFile& model)
    {
        Statement askPart(m_database,
                          "SELECT number, name, mesh, checksum FROM part WHERE place = ?");
        Statement askArray(m_database,
                           "SELECT count, bytes, checksum FROM array WHERE place = ? AND name = ?");
        std::int64_t const parts = count("parts");
        for (std::int64_t place = 0; place < parts; ++place) {
            std::string const which = "part " + std::to_string(place + 1);
            if (!askPart.start(place)) {
                refuse(which + " is missing");
            }
            std::int64_t const number = askPart.integer(0);
            require(askPart.integer(3), which, place, number, askPart.text(1), askPart.text(2));
            if (number < 0 || number > std::numeric_limits<unsigned>::max()) {
                refuse(which + " has no number in the geometry");
            }
            PartMeshRecord record{std::string(askPart.text(1)), static_cast<unsigned>(number), {}};
            std::string const label = labelOf(static_cast<std::size_t>(place), record.m_part);
            record.m_store = readMesh(askArray, place, label, std::string(askPart.text(2)));
            model.m_meshes.push_back(std::move(record));
        }
    }

    std::shared_ptr<MeshStore const> readMesh(Statement& ask, std::int64_t place,
                                              std::string const& label, std::string name) const
    {
        try {
            MeshStore::Content mesh = unpackMesh([&](std::string_view array) {
                std::string const what = label + ": the array of its " + std::string(array);
                if (!ask.start(place, array)) {
                    refuse(what + " is missing");
                }
                std::int64_t const count = ask.integer(0);
                require(ask.integer(2), what, place, array, count, ask.bytes(1));
                return MeshBlob{array, static_cast<std::size_t>(count), ask.bytes(1)};
            });
            mesh.m_name = std::move(name);
            return std::make_shared<MeshStore const>(std::move(mesh));
        } catch (MeshBlobError const& error) {
            refuse(label + ": " + error.what());
        }
    }

    fs::path const& m_file;
    Database m_database;
};

}  // namespace

void writeModelFile(fs::path const& file, ModelFile const& model, unsigned firstNumber)
{
    // The journal of the file before would be taken for the new one's.
    checkNoJournal(file);
    try {
        Database database = Database::inMemory();
        writeTables(database, model, firstNumber);
        Database::Image const image(database);
        study::writeFileAtomically(file, image.bytes());
    } catch (DatabaseError const& error) {
        refuseWriting(file, error);
    } catch (study::WriteError const& error) {
        std::string const text = error.what();
        std::string const place = file.string() + ": ";
        throw ModelFileError(file, text.starts_with(place) ? text.substr(place.size()) : text,
                             "give another name, or make room and mend the permissions");
    }
}

ModelFile readModelFile(fs::path const& file)
{
    checkFrame(file);
    checkNoJournal(file);
    try {
        return Reader(file).read();
    } catch (DatabaseError const& error) {
        refuseReading(file, error);
    }
}

}  // namespace vrn::orlo::host::modelfile
