#include "host/modelfile/modelfile.h"

#include "host/modelfile/renumbering.h"
#include "tests/support/temporaryfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <limits>
#include <optional>
#include <stdexcept>
#include <tuple>

namespace vrn::orlo::host::meshing {

static auto tied(MeshSet const& s)
{
    return std::tie(s.m_name, s.m_numbers);
}
static auto tied(MeshBodyRow const& b)
{
    return std::tie(b.m_name, b.m_entity);
}
static auto tied(MeshGroup const& g)
{
    return std::tie(g.m_body, g.m_dimension, g.m_entity, g.m_name);
}
static auto tied(EntityMesh const& e)
{
    return std::tie(e.m_entity, e.m_nodes, e.m_faces);
}
static auto tied(MeshStore::Row const& r)
{
    return std::tie(r.m_firstNode, r.m_typeName, r.m_type, r.m_group);
}
template <class Row>
requires requires(Row const& row)
{
    tied(row);
}
bool operator==(Row const& a, Row const& b)
{
    return tied(a) == tied(b);
}

}  // namespace vrn::orlo::host::meshing

namespace vrn::orlo::host::modelfile {
namespace {

namespace fs = std::filesystem;
using meshing::ElementType;
using meshing::MeshStore;
using meshing::Numbering;
using ::testing::HasSubstr;

/// Two bodies, of which the second is empty, and something in each array.
MeshStore::Content tetrahedron()
{
    MeshStore::Content mesh;
    mesh.m_name = "Bracket \xC3\xA9";
    mesh.m_nodes = Numbering({7, 5'000'000'000, 3, 2});
    mesh.m_positions = {{0.1, -0.0, 1e-300}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    mesh.m_elements = Numbering({std::numeric_limits<meshing::ExternalId>::max(), 1});
    mesh.m_rows = {{0, 1, ElementType::tetra4, 0}, {4, 0, ElementType::triangle3, 1}};
    mesh.m_connectivity = {1, 2, 3, 4, 3, 2, 1};
    mesh.m_typeNames = {"S3", "C3D4"};
    mesh.m_nodeSets = {{"FIX", {1, 4}}, {"", {}}};
    mesh.m_elementSets = {{"ALL", {1, 2}}};
    mesh.m_bodies = {{"body 8", 8}, {"body 9", 9}};
    mesh.m_groups = {{0, 3, 10, "volume 10"}, {0, 2, 12, "skin 12"}};
    mesh.m_entities = {{12, {1, 2, 3}, {{1, 0}}}, {13, {4}, {}}};
    return mesh;
}

std::shared_ptr<MeshStore const> storeOf(MeshStore::Content content)
{
    return std::make_shared<MeshStore const>(std::move(content));
}

ModelFile sample()
{
    return {"bracket.stp",
            std::string("ISO\0\xFF", 5) + std::string(9000, 'x'),
            {{"Pa\nrt", 3, storeOf(tetrahedron())}, {"Part", 1, storeOf({})}},
            {{"size", "2.5"}, {"order", "1\n2"}}};
}

void expectSame(MeshStore const& store, MeshStore const& other)
{
    MeshStore::Content const& a = store.content();
    MeshStore::Content const& b = other.content();
    EXPECT_EQ(a.m_name, b.m_name);
    EXPECT_EQ(a.m_nodes.ids(), b.m_nodes.ids());
    EXPECT_EQ(a.m_positions, b.m_positions);
    EXPECT_EQ(a.m_elements.ids(), b.m_elements.ids());
    EXPECT_TRUE(a.m_rows == b.m_rows);
    EXPECT_EQ(a.m_connectivity, b.m_connectivity);
    EXPECT_EQ(a.m_typeNames, b.m_typeNames);
    EXPECT_TRUE(a.m_nodeSets == b.m_nodeSets);
    EXPECT_TRUE(a.m_elementSets == b.m_elementSets);
    EXPECT_TRUE(a.m_bodies == b.m_bodies);
    EXPECT_TRUE(a.m_groups == b.m_groups);
    EXPECT_TRUE(a.m_entities == b.m_entities);
}

void expectSame(ModelFile const& a, ModelFile const& b)
{
    EXPECT_EQ(a.m_geometryName, b.m_geometryName);
    EXPECT_EQ(a.m_geometryBytes, b.m_geometryBytes);
    EXPECT_EQ(a.m_notes, b.m_notes);
    ASSERT_EQ(a.m_meshes.size(), b.m_meshes.size());
    for (std::size_t i = 0; i < a.m_meshes.size(); ++i) {
        EXPECT_EQ(a.m_meshes[i].m_part, b.m_meshes[i].m_part);
        EXPECT_EQ(a.m_meshes[i].m_index, b.m_meshes[i].m_index);
        expectSame(*a.m_meshes[i].m_store, *b.m_meshes[i].m_store);
    }
}

class ModelFileTest : public ::testing::Test {
protected:
    /// The message of a file that is refused; the model of one that is not has to be the sample.
    [[nodiscard]] std::optional<std::string> refusal() const
    {
        try {
            expectSame(readModelFile(m_file), sample());
            return {};
        } catch (ModelFileError const& error) {
            std::string const text = error.what();
            EXPECT_TRUE(text.starts_with(m_file.string() + ": ")) << text;
            EXPECT_EQ(text.find('\n'), std::string::npos) << text;
            return text;
        }
    }
    void put(std::string const& bytes) const
    {
        std::ofstream(m_file, std::ios::binary | std::ios::trunc) << bytes;
    }

    test::TemporaryFolder m_folder;
    fs::path m_file = m_folder.path() / "model.orlo";
};

/// Another program that works on a database.
class Sqlite {
public:
    Sqlite(fs::path const& file, char const* sql)
    {
        EXPECT_EQ(sqlite3_open(file.c_str(), &m_handle), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
    }
    Sqlite(Sqlite const&) = delete;
    Sqlite& operator=(Sqlite const&) = delete;
    ~Sqlite() { sqlite3_close(m_handle); }

private:
    sqlite3* m_handle = nullptr;
};

TEST_F(ModelFileTest, ReadingGivesWhatWasWritten)
{
    writeModelFile(m_file, {});
    expectSame(readModelFile(m_file), {});
    writeModelFile(m_file, sample());
    expectSame(readModelFile(m_file), sample());
    EXPECT_EQ(m_folder.names(), std::vector<std::string>{"model.orlo"});
}

TEST_F(ModelFileTest, EntitiesCountFromOneWhereverTheGeometryHasThem)
{
    MeshStore::Content only = tetrahedron();
    only.m_bodies = {{"body 8", 8}};  // the part's name, which is not to change
    ModelFile const model{
        "a", "b", {{"P", 0, storeOf(tetrahedron())}, {"Q", 1, storeOf(only)}}, {}};
    writeModelFile(m_file, model, 8);
    ModelFile const read = readModelFile(m_file);
    MeshStore const& store = *read.m_meshes[0].m_store;
    EXPECT_TRUE(store.bodies() ==
                (std::vector<meshing::MeshBodyRow>{{"body 1", 1}, {"body 2", 2}}));
    EXPECT_TRUE(store.groups() ==
                (std::vector<meshing::MeshGroup>{{0, 3, 3, "volume 3"}, {0, 2, 5, "skin 12"}}));
    EXPECT_NE(store.meshOn(5), nullptr);
    EXPECT_EQ(read.m_meshes[1].m_store->bodies()[0].m_name, "body 8");
    EXPECT_EQ(read.m_meshes[1].m_store->bodies()[0].m_entity, 1U);
    for (std::size_t i = 0; i < 2; ++i) {
        expectSame(*renumbered(read.m_meshes[i].m_store, 1, 8), *model.m_meshes[i].m_store);
    }
    EXPECT_THROW(writeModelFile(m_file, model, 9), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(renumbered(model.m_meshes[0].m_store, 1, 0xFFFFFFFFU - 3)),
                 std::invalid_argument);
}

TEST_F(ModelFileTest, AFailureLeavesTheFileThatWasThere)
{
    struct Row {
        char const* m_name;
        void (*m_spoil)(MeshStore::Content&);
    };
    constexpr Row kRows[] = {
        {"node of an element",
         [](auto& mesh) {
             mesh.m_connectivity[0] = 5;
         }},
        {"end of an element",
         [](auto& mesh) {
             mesh.m_rows[1].m_firstNode = 5;
         }},
        {"type",
         [](auto& mesh) {
             mesh.m_rows[0].m_typeName = 2;
         }},
        {"group",
         [](auto& mesh) {
             mesh.m_rows[0].m_group = 2;
         }},
        {"body",
         [](auto& mesh) {
             mesh.m_groups[0].m_body = 2;
         }},
        {"ids",
         [](auto& mesh) {
             mesh.m_nodes = Numbering({1});
         }},
        {"set",
         [](auto& mesh) {
             mesh.m_elementSets[0].m_numbers[1] = 3;
         }},
        {"node of an entity",
         [](auto& mesh) {
             mesh.m_entities[1].m_nodes[0] = 0;
         }},
        {"face of an entity",
         [](auto& mesh) {
             mesh.m_entities[0].m_faces[0].m_face = 4;
         }},
    };
    writeModelFile(m_file, sample());
    for (Row const& row : kRows) {
        MeshStore::Content mesh = tetrahedron();
        row.m_spoil(mesh);
        EXPECT_THROW(writeModelFile(m_file, {"", "", {{"P", 0, storeOf(mesh)}}, {}}),
                     std::invalid_argument)
            << row.m_name;
    }
    EXPECT_THROW(writeModelFile(m_file, {"", "", {{}}, {}}), std::invalid_argument);
    fs::path const journal = m_folder.write("model.orlo-journal", "another's");
    EXPECT_THROW(writeModelFile(m_file, {}), ModelFileError);
    fs::remove(journal);
    EXPECT_THROW(writeModelFile(m_folder.path(), {}), ModelFileError);
    EXPECT_EQ(refusal(), std::nullopt);
    EXPECT_EQ(m_folder.names(), std::vector<std::string>{"model.orlo"});
}

TEST_F(ModelFileTest, WhatCannotBeAModelFileIsRefusedWithItsReason)
{
    EXPECT_THAT(refusal().value_or(""), HasSubstr("no such file; check the name"));
    fs::create_directory(m_file);
    EXPECT_THAT(refusal().value_or(""), HasSubstr("is a folder"));
    fs::remove(m_file);
    for (char const* const text : {"", "ISO-10303-21;", "SQLite format 2"}) {
        put(text);
        EXPECT_THAT(refusal().value_or(""), HasSubstr("is no model file; give")) << text;
    }
    struct Row {
        char const* m_sql;
        char const* m_message;
    };
    constexpr Row kRows[] = {
        {"PRAGMA application_id = 1", "SQLite database, but no model file; give"},
        {"PRAGMA user_version = 2", "of version 2, and version 1 is known; use a newer"},
        {"BEGIN EXCLUSIVE", "is locked by another program; close it"},
        {"BEGIN; DELETE FROM note", "in use by another program"},
        {"PRAGMA journal_mode = WAL", "changed by another program; make it again"},
        {"DELETE FROM meta WHERE key = 'parts'", "damaged: the number of its parts is missing"},
        {"UPDATE meta SET value = 1", "damaged: the number of its notes does not match"},
        {"DELETE FROM note WHERE key = 'size'", "damaged: a note is missing"},
        {"UPDATE note SET key = key || ' '", "damaged: a note does not match"},
        {"DELETE FROM geometry", "damaged: the geometry is missing"},
        {"UPDATE geometry SET name = ''", "damaged: the geometry does not match"},
        {"DELETE FROM part WHERE place = 1", "damaged: part 2 is missing"},
        {"UPDATE part SET number = 4", "damaged: part 1 does not match"},
        {"DELETE FROM array WHERE name = 'types'", "\"Pa?rt\": the array of its types is missing"},
        {"UPDATE array SET count = count + 1", "the array of its node ids does not match"},
        {"DROP TABLE array", "is damaged: "},
    };
    for (Row const& row : kRows) {
        fs::remove(m_file);
        writeModelFile(m_file, sample());
        Sqlite const other(m_file, row.m_sql);
        EXPECT_THAT(refusal().value_or("read"), HasSubstr(row.m_message));
    }
    EXPECT_EQ(m_folder.names(), std::vector<std::string>{"model.orlo"});
}

TEST_F(ModelFileTest, NoChangedByteGivesOtherData)
{
    writeModelFile(m_file, sample());
    std::string const bytes = test::contentOf(m_file);
    std::size_t refused = 0;
    std::fstream file(m_file, std::ios::binary | std::ios::in | std::ios::out);
    auto const putByte = [&file](std::size_t at, char byte) {
        file.seekp(static_cast<std::streamoff>(at)).put(byte).flush();
    };
    for (std::size_t at = 0; at < bytes.size(); at += at < 100 ? 1 : 13) {
        for (char const change : {'\x01', '\x7F'}) {
            putByte(at, static_cast<char>(bytes[at] ^ change));
            refused += refusal().has_value() ? 1 : 0;
            ASSERT_FALSE(HasFailure()) << "byte " << at;
        }
        putByte(at, bytes[at]);
    }
    EXPECT_GT(refused, 400U);
    EXPECT_EQ(m_folder.names(), std::vector<std::string>{"model.orlo"});
}

TEST_F(ModelFileTest, ACutFileIsRefusedWhereverTheCutIs)
{
    writeModelFile(m_file, sample());
    std::string const bytes = test::contentOf(m_file);
    for (std::size_t size = 1; size < bytes.size(); size += size < 110 ? 1 : 997) {
        put(bytes.substr(0, size));
        EXPECT_THAT(refusal().value_or("read"), HasSubstr("is cut off after ")) << size;
    }
    put(bytes.substr(0, bytes.size() - 1));
    EXPECT_THAT(refusal().value_or("read"), HasSubstr("is cut off after "));
}

}  // namespace
}  // namespace vrn::orlo::host::modelfile
