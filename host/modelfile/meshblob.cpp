#include "host/modelfile/meshblob.h"

#include "host/modelfile/meshcheck.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>
#include <vector>

namespace vrn::orlo::host::modelfile {

namespace {

using meshing::ElementType;
using meshing::ExternalId;
using meshing::LocalNumber;
using meshing::MeshSet;
using meshing::MeshStore;
using meshing::Numbering;
using meshing::Point;

static_assert(std::endian::native == std::endian::little, "the bytes are stored that way");

/// Lists end to end, and how long each is.
template <class Value>
struct FlatLists {
    std::vector<std::uint32_t> m_counts;
    std::vector<Value> m_values;

    void add(std::vector<Value> const& list)
    {
        m_counts.push_back(static_cast<std::uint32_t>(list.size()));
        m_values.insert(m_values.end(), list.begin(), list.end());
    }
};

struct FlatSets {
    std::vector<std::string> m_names;
    FlatLists<LocalNumber> m_numbers;
};

/// A mesh without structs and without lists of lists.
struct FlatMesh {
    std::vector<ExternalId> m_nodeIds;
    std::vector<Point> m_positions;
    std::vector<ExternalId> m_elementIds;
    std::vector<std::uint32_t> m_firstNodes;
    std::vector<std::uint16_t> m_typeNameOf;
    std::vector<ElementType> m_types;
    std::vector<std::uint16_t> m_groupOf;
    std::vector<LocalNumber> m_connectivity;
    std::vector<std::string> m_typeNames;
    FlatSets m_nodeSets;
    FlatSets m_elementSets;
    std::vector<std::string> m_bodyNames;
    std::vector<unsigned> m_bodyEntities;
    std::vector<std::uint16_t> m_groupBodies;
    std::vector<std::uint8_t> m_groupDimensions;
    std::vector<unsigned> m_groupEntities;
    std::vector<std::string> m_groupNames;
    std::vector<unsigned> m_entities;
    FlatLists<LocalNumber> m_entityNodes;
    FlatLists<LocalNumber> m_entityFaceElements;
    std::vector<std::uint8_t> m_entityFaceNumbers;
};

/// The one list of what is stored, for both ways.
template <class Mesh, class Visit>
void forEachArray(Mesh& mesh, Visit const& visit)
{
    visit("node ids", mesh.m_nodeIds);
    visit("positions", mesh.m_positions);
    visit("element ids", mesh.m_elementIds);
    visit("first nodes", mesh.m_firstNodes);
    visit("type names of elements", mesh.m_typeNameOf);
    visit("types", mesh.m_types);
    visit("groups of elements", mesh.m_groupOf);
    visit("connectivity", mesh.m_connectivity);
    visit("type names", mesh.m_typeNames);
    visit("node set names", mesh.m_nodeSets.m_names);
    visit("node set counts", mesh.m_nodeSets.m_numbers.m_counts);
    visit("node set numbers", mesh.m_nodeSets.m_numbers.m_values);
    visit("element set names", mesh.m_elementSets.m_names);
    visit("element set counts", mesh.m_elementSets.m_numbers.m_counts);
    visit("element set numbers", mesh.m_elementSets.m_numbers.m_values);
    visit("body names", mesh.m_bodyNames);
    visit("body entities", mesh.m_bodyEntities);
    visit("group bodies", mesh.m_groupBodies);
    visit("group dimensions", mesh.m_groupDimensions);
    visit("group entities", mesh.m_groupEntities);
    visit("group names", mesh.m_groupNames);
    visit("entities", mesh.m_entities);
    visit("entity node counts", mesh.m_entityNodes.m_counts);
    visit("entity nodes", mesh.m_entityNodes.m_values);
    visit("entity face counts", mesh.m_entityFaceElements.m_counts);
    visit("entity face elements", mesh.m_entityFaceElements.m_values);
    visit("entity face numbers", mesh.m_entityFaceNumbers);
}

FlatSets flatten(std::vector<MeshSet> const& sets)
{
    FlatSets flat;
    for (MeshSet const& set : sets) {
        flat.m_names.push_back(set.m_name);
        flat.m_numbers.add(set.m_numbers);
    }
    return flat;
}

FlatMesh flatten(MeshStore::Content const& mesh)
{
    FlatMesh flat;
    flat.m_nodeIds = mesh.m_nodes.ids();
    flat.m_positions = mesh.m_positions;
    flat.m_elementIds = mesh.m_elements.ids();
    for (MeshStore::Row const& row : mesh.m_rows) {
        flat.m_firstNodes.push_back(row.m_firstNode);
        flat.m_typeNameOf.push_back(row.m_typeName);
        flat.m_types.push_back(row.m_type);
        flat.m_groupOf.push_back(row.m_group);
    }
    flat.m_connectivity = mesh.m_connectivity;
    flat.m_typeNames = mesh.m_typeNames;
    flat.m_nodeSets = flatten(mesh.m_nodeSets);
    flat.m_elementSets = flatten(mesh.m_elementSets);
    for (meshing::MeshBodyRow const& body : mesh.m_bodies) {
        flat.m_bodyNames.push_back(body.m_name);
        flat.m_bodyEntities.push_back(body.m_entity);
    }
    for (meshing::MeshGroup const& group : mesh.m_groups) {
        flat.m_groupBodies.push_back(group.m_body);
        flat.m_groupDimensions.push_back(group.m_dimension);
        flat.m_groupEntities.push_back(group.m_entity);
        flat.m_groupNames.push_back(group.m_name);
    }
    std::vector<LocalNumber> elements;
    for (meshing::EntityMesh const& entity : mesh.m_entities) {
        elements.clear();
        for (meshing::ElementFace const& face : entity.m_faces) {
            elements.push_back(face.m_element);
            flat.m_entityFaceNumbers.push_back(face.m_face);
        }
        flat.m_entities.push_back(entity.m_entity);
        flat.m_entityNodes.add(entity.m_nodes);
        flat.m_entityFaceElements.add(elements);
    }
    return flat;
}

void requireSameSize(std::size_t size, std::size_t other, char const* what)
{
    if (size != other) {
        throw MeshBlobError(std::string("the arrays of ") + what + " differ in length");
    }
}

/// Takes the lists of FlatLists apart again.
template <class Value>
class ListReader {
public:
    ListReader(FlatLists<Value> const& lists, std::size_t count, char const* what) : m_lists(lists)
    {
        requireSameSize(lists.m_counts.size(), count, what);
        std::uint64_t sum = 0;
        for (std::uint32_t const length : lists.m_counts) {
            sum += length;
        }
        requireSameSize(lists.m_values.size(), sum, what);
    }

    std::vector<Value> next()
    {
        auto const start = m_lists.m_values.begin() + m_at;
        m_at += m_lists.m_counts[m_index++];
        return {start, m_lists.m_values.begin() + m_at};
    }

private:
    FlatLists<Value> const& m_lists;
    std::size_t m_index = 0;
    std::ptrdiff_t m_at = 0;
};

std::vector<MeshSet> setsOf(FlatSets& flat, char const* what)
{
    ListReader lists(flat.m_numbers, flat.m_names.size(), what);
    std::vector<MeshSet> sets;
    for (std::string& name : flat.m_names) {
        sets.push_back({std::move(name), lists.next()});
    }
    return sets;
}

/// What the index of a mesh can count, and a numbering can take.
Numbering numberingOf(std::vector<ExternalId> ids, char const* what)
{
    for (ExternalId const id : ids) {
        if (id <= 0) {
            throw MeshBlobError(std::string("an id of its ") + what + " is not above 0");
        }
    }
    return Numbering(std::move(ids));
}

std::vector<MeshStore::Row> rowsOf(FlatMesh const& flat)
{
    std::size_t const count = flat.m_types.size();
    for (std::size_t const size :
         {flat.m_firstNodes.size(), flat.m_typeNameOf.size(), flat.m_groupOf.size()}) {
        requireSameSize(size, count, "elements");
    }
    std::vector<MeshStore::Row> rows;
    rows.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        rows.push_back(
            {flat.m_firstNodes[i], flat.m_typeNameOf[i], flat.m_types[i], flat.m_groupOf[i]});
    }
    return rows;
}

void takeBodies(FlatMesh& flat, MeshStore::Content& mesh)
{
    requireSameSize(flat.m_bodyNames.size(), flat.m_bodyEntities.size(), "bodies");
    for (std::size_t i = 0; i < flat.m_bodyNames.size(); ++i) {
        mesh.m_bodies.push_back({std::move(flat.m_bodyNames[i]), flat.m_bodyEntities[i]});
    }
    std::size_t const count = flat.m_groupNames.size();
    for (std::size_t const size :
         {flat.m_groupBodies.size(), flat.m_groupDimensions.size(), flat.m_groupEntities.size()}) {
        requireSameSize(size, count, "groups");
    }
    for (std::size_t i = 0; i < count; ++i) {
        mesh.m_groups.push_back({flat.m_groupBodies[i], flat.m_groupDimensions[i],
                                 flat.m_groupEntities[i], std::move(flat.m_groupNames[i])});
    }
}

void takeEntities(FlatMesh const& flat, MeshStore::Content& mesh)
{
    ListReader nodes(flat.m_entityNodes, flat.m_entities.size(), "entities");
    ListReader elements(flat.m_entityFaceElements, flat.m_entities.size(), "entities");
    requireSameSize(flat.m_entityFaceNumbers.size(), flat.m_entityFaceElements.m_values.size(),
                    "entities");
    auto number = flat.m_entityFaceNumbers.begin();
    for (unsigned const entity : flat.m_entities) {
        meshing::EntityMesh row{entity, nodes.next(), {}};
        for (LocalNumber const element : elements.next()) {
            row.m_faces.push_back({element, *number++});
        }
        mesh.m_entities.push_back(std::move(row));
    }
}

std::string packed(std::vector<std::string> const& texts)
{
    std::string bytes;
    for (std::string const& text : texts) {
        auto const length =
            std::bit_cast<std::array<char, 4>>(static_cast<std::uint32_t>(text.size()));
        bytes.append(length.data(), length.size()).append(text);
    }
    return bytes;
}

[[noreturn]] void refuseLength(MeshBlob const& blob)
{
    throw MeshBlobError("its " + std::string(blob.m_name) + " are not as many as they say");
}

void unpack(MeshBlob const& blob, std::vector<std::string>& texts)
{
    std::string_view rest = blob.m_bytes;
    while (!rest.empty()) {
        std::uint32_t length = 0;
        if (rest.size() < sizeof length) {
            refuseLength(blob);
        }
        std::memcpy(&length, rest.data(), sizeof length);
        rest.remove_prefix(sizeof length);
        if (rest.size() < length) {
            refuseLength(blob);
        }
        texts.emplace_back(rest.substr(0, length));
        rest.remove_prefix(length);
    }
    if (texts.size() != blob.m_count) {
        refuseLength(blob);
    }
}

template <class Value>
void unpack(MeshBlob const& blob, std::vector<Value>& values)
{
    static_assert(std::is_trivially_copyable_v<Value>);
    if (blob.m_bytes.size() % sizeof(Value) != 0 ||
        blob.m_bytes.size() / sizeof(Value) != blob.m_count) {
        refuseLength(blob);
    }
    values.resize(blob.m_count);
    if (!values.empty()) {
        std::memcpy(values.data(), blob.m_bytes.data(), blob.m_bytes.size());
    }
}

}  // namespace

void packMesh(MeshStore::Content const& mesh, std::function<void(MeshBlob const&)> const& put)
{
    checkMesh(mesh);
    FlatMesh const flat = flatten(mesh);
    forEachArray(flat, [&put]<class Value>(char const* name, std::vector<Value> const& values) {
        if constexpr (std::is_same_v<Value, std::string>) {
            put({name, values.size(), packed(values)});
        } else {
            static_assert(std::is_same_v<Value, Point> ||
                          std::has_unique_object_representations_v<Value>);
            put({name,
                 values.size(),
                 {reinterpret_cast<char const*>(values.data()), values.size() * sizeof(Value)}});
        }
    });
}

MeshStore::Content unpackMesh(std::function<MeshBlob(std::string_view name)> const& get)
{
    FlatMesh flat;
    forEachArray(flat, [&get](char const* name, auto& values) { unpack(get(name), values); });
    MeshStore::Content mesh;
    mesh.m_nodes = numberingOf(std::move(flat.m_nodeIds), "nodes");
    mesh.m_positions = std::move(flat.m_positions);
    mesh.m_elements = numberingOf(std::move(flat.m_elementIds), "elements");
    mesh.m_rows = rowsOf(flat);
    mesh.m_connectivity = std::move(flat.m_connectivity);
    mesh.m_typeNames = std::move(flat.m_typeNames);
    mesh.m_nodeSets = setsOf(flat.m_nodeSets, "node sets");
    mesh.m_elementSets = setsOf(flat.m_elementSets, "element sets");
    takeBodies(flat, mesh);
    takeEntities(flat, mesh);
    checkMesh(mesh);
    return mesh;
}

}  // namespace vrn::orlo::host::modelfile
