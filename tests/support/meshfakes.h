/// \file
/// A part with a mesh, in memory. External ids lie above 2^32, so that none is a local number.

#pragma once

#include "platform/fem/componentaccess.h"
#include "platform/muc/meshutilities.h"
#include "tests/selection/selectionscope.h"
#include "tests/support/modelfakes.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace vrn::orlo::plugin::modeling::test {

using LongId = unsigned long long;
using LongIds = KFRSequence<LongId>;

/// External ids of local numbers.
constexpr LongId nodeId(LongId number)
{
    return (1ULL << 32) + 10 * number;
}
constexpr LongId elementId(LongId number)
{
    return (1ULL << 33) + 10 * number;
}

struct MemoryMeshBody;

struct MemoryNode final : KFRServiceObjectImpl<CAE::INodeInterface> {
    HANDS_OUT(getId, LongId, id)
    HANDS_OUT(getNumber, int, number)
    HANDS_OUT(getLocation, KFRDouble3DPoint, location)
};

/// Of any kind, with its entity.
struct MemoryMesh final : EntityOf<silent::MeshView, silent::FEMeshView, silent::PersistentView,
                                   CAE::IContinuousMeshInterface> {
    MemoryMeshBody* body = nullptr;  ///< not kept
    std::optional<bool> visible;

    HANDS_OUT(getDimension, unsigned char, dimension)
    HANDS_OUT(isContinuous, bool, continuous)
    HANDS_OUT(isSurface, bool, surface)
    HANDS_OUT(isDeleted, bool, deleted)
    HANDS_OUT(getElementIds, LongIds, elementIds)
    HANDS_OUT(getSubMeshes, CAE::IMeshSequence, subMeshes)
    HANDS_OUT(getGeometry, SP<CAE::IGeometryInterface>, geometry)
    KFRResult getMeshBody(MeshBody& out) override;
    KFRResult getParent(Persistent& out) override;
    KFRResult getProperty(std::string const& name, KFRAny& value) override
    {
        if (name != "visible" || !visible.has_value()) {
            return KFR::notDone;
        }
        value <<= *visible;
        return KFR::ok;
    }
};

struct MemoryElement final : KFRServiceObjectImpl<silent::ElementView> {
    std::vector<SP<MemoryNode>> nodes;

    HANDS_OUT(getId, LongId, id)
    HANDS_OUT(getNumber, int, number)
    HANDS_OUT(getShape, int, shape)
    HANDS_OUT(getMesh, Mesh, mesh)
    KFRResult getNodeCount(int& out) override
    {
        return out = static_cast<int>(nodes.size()), KFR::ok;
    }
    KFRResult getNodes(CAE::INodeSequence& out) override
    {
        return out = {nodes.begin(), nodes.end()}, KFR::ok;
    }
};

/// Has the elements and nodes whose numbers it is given.
struct MemoryMeshBody final : ObjectOf<silent::MeshBodyView> {
    std::map<int, SP<MemoryElement>> elements;
    std::vector<int> nodeNumbers;

    HANDS_OUT(getMeshList, CAE::IMeshSequence, meshes)
    HANDS_OUT(getElementIds, LongIds, elementIds)
    HANDS_OUT(getNodeIds, LongIds, nodeIds)
    HANDS_OUT(getGeomBody, SP<CAE::IGeomBodyInterface>, geomBody)
    KFRResult getElement(LongId id, SP<CAE::IElementInterface>& out, bool flag) override
    {
        auto const found = flag ? elements.end() : elements.find(static_cast<int>(id));
        return giveView(found != elements.end() ? found->second : SP<MemoryElement>(), out);
    }
    KFRResult getElementId(int number, LongId& out) override
    {
        auto const found = elements.find(number);
        return found != elements.end() ? found->second->getId(out) : KFRResult(KFR::notDone);
    }
    KFRResult getNodeId(int number, LongId& out) override
    {
        bool const isHere = std::count(nodeNumbers.begin(), nodeNumbers.end(), number) > 0;
        out = isHere ? nodeId(static_cast<LongId>(number)) : out;
        return isHere ? KFR::ok : KFR::notDone;
    }
};

inline KFRResult MemoryMesh::getMeshBody(MeshBody& out)
{
    out = MeshBody(body);
    return body != nullptr ? KFR::ok : KFR::notDone;
}
inline KFRResult MemoryMesh::getParent(Persistent& out)
{
    return giveView(MeshBody(body), out);
}

struct MemoryMeshPart final : KFRServiceObjectImpl<silent::MeshPartView> {
    std::vector<SP<MemoryNode>> nodes;
    std::vector<SP<MemoryElement>> elements;
    bool isReadable = true;  ///< in one go

    HANDS_OUT(getMeshBodies, CAE::IMeshBodySequence, bodies)

    /// An element of new nodes.
    MemoryElement& add(int shape, std::vector<KFRDouble3DPoint> const& points)
    {
        MemoryElement& element = *elements.emplace_back(KFR::make<MemoryElement>());
        element.number = static_cast<int>(elements.size());
        element.id = elementId(elements.size());
        element.shape = shape;
        for (KFRDouble3DPoint const& point : points) {
            auto const& node = nodes.emplace_back(KFR::make<MemoryNode>());
            node->number = static_cast<int>(nodes.size());
            node->id = nodeId(nodes.size());
            node->location = point;
            element.nodes.push_back(node);
        }
        return element;
    }
    KFRResult getNodeById(LongId id, SP<CAE::INodeInterface>& out, bool flag) override
    {
        return find(nodes, id, flag, out);
    }
    KFRResult getElementById(LongId id, SP<CAE::IElementInterface>& out, bool flag) override
    {
        return find(elements, id, flag, out);
    }
    KFRResult getElementsConnectedTo(SP<CAE::INodeInterface> const& node,
                                     CAE::IElementSequence& out) override
    {
        for (auto const& element : elements) {
            if (std::count(element->nodes.begin(), element->nodes.end(), node) > 0) {
                out.append(element);
            }
        }
        return KFR::ok;
    }
    KFRResult getElementNodes(std::span<long long const> ids, CAE::ElementNodes& out) override
    {
        out = {{0}, {}, {}};
        for (long long const id : ids) {
            SP<MemoryElement> element;
            static_cast<void>(find(elements, static_cast<LongId>(id), true, element));
            for (std::size_t i = 0; element != KFR::NULLSP && i < element->nodes.size(); ++i) {
                out.m_ids.push_back(static_cast<long long>(*element->nodes[i]->id));
                out.m_locations.push_back(*element->nodes[i]->location);
            }
            out.m_first.push_back(out.m_ids.size());
        }
        return isReadable ? KFR::ok : KFR::notDone;
    }

private:
    template <class T, class I>
    static KFRResult find(std::vector<SP<T>> const& all, LongId id, bool flag, SP<I>& out)
    {
        auto const found = std::find_if(all.begin(), all.end(), [&](SP<T> const& one) {
            return flag ? one->id == id : static_cast<LongId>(*one->number) == id;
        });
        out = found != all.end() ? *found : out;
        return found != all.end() ? KFR::ok : KFR::notDone;
    }
};

struct MeshedPart final : ObjectOf<silent::PartView> {
    HANDS_OUT(getMeshParts, CAE::IMeshPartSequence, meshParts)
    HANDS_OUT(getMeshBodies, CAE::IMeshBodySequence, meshBodies)
    HANDS_OUT(getBodies, CAE::IPersistentObjectSequence, bodies)
};

/// A body, or what bounds one.
struct MeshedGeometry final : ObjectOf<silent::GeometryView, CAE::IGeomBodyInterface> {
    HANDS_OUT(getNumber, int, number)
    HANDS_OUT(getMeshes, CAE::IMeshSequence, meshes)
    HANDS_OUT(getMeshBodies, CAE::IMeshBodySequence, meshBodies)
};

/// The geometry server and the FE plug-in's way to meshes, with all that leads there.
struct FakeGeometryServer final
    : KFRServiceObjectImpl<silent::QueryToolView, silent::GeomSessionView,
                           silent::GeomCommonServiceView, fem::KFRIFEMeshWrapper,
                           fem::KFRICompAccess> {
    std::map<int, int> classes;
    std::map<std::pair<int, int>, KFRSequence<int>> children;  ///< by number and class
    std::map<int, SP<MeshedGeometry>> bodies;
    std::map<int, FEMesh> meshes;
    std::map<int, FEMesh> subMeshes;
    std::map<int, CAE::INodeSequence> nodes;

    template <class I>
    KFRResult self(SP<I>& out)
    {
        return out = SP<I>(this), KFR::ok;
    }
    template <class Map, class T>
    static KFRResult find(Map const& map, typename Map::key_type const& key, T& out)
    {
        auto const found = map.find(key);
        out = found != map.end() ? T(found->second) : out;
        return found != map.end() ? KFR::ok : KFR::notDone;
    }
    KFRResult getSession(SP<geometry::KFRIGeomSession>& out) override { return self(out); }
    KFRResult getQueryTool(SP<gsc::GSCIQueryTool>& out) override { return self(out); }
    KFRResult getFEMeshWrapper(SP<fem::KFRIFEMeshWrapper>& out) override { return self(out); }
    KFRResult getClass(int number, int& out) override { return find(classes, number, out); }
    KFRResult getChildren(int number, int of, KFRSequence<int>& out) override
    {
        return find(children, {number, of}, out);
    }
    KFRResult getGeomBody(int number, SP<CAE::IGeomBodyInterface>& out) override
    {
        return find(bodies, number, out);
    }
    KFRResult getMesh(int number, FEMesh& out) override { return find(meshes, number, out); }
    KFRResult getSubMesh(int number, FEMesh& out) override { return find(subMeshes, number, out); }
    KFRResult getContinuousMesh(int, unsigned char, SP<CAE::IContinuousMeshInterface>&) override
    {
        return KFR::notDone;
    }
    KFRResult getMeshBody(int, MeshBody&) override { return KFR::notDone; }
    KFRResult getNodes(int number, CAE::INodeSequence& out) override
    {
        return find(nodes, number, out);
    }
    KFRResult getNodeIds(int number, LongIds& out) override
    {
        for (auto const& node : std::as_const(nodes[number])) {
            LongId id = 0;
            static_cast<void>(node->getId(id));
            out.append(id);
        }
        return KFR::ok;
    }
    KFRResult getElementFaces(int, LongIds&, KFRSequence<int>&) override { return KFR::notDone; }
};

/// A platform with one part, which has a mesh part.
struct MeshScope : ModelScope<SelectionScope> {
    SP<MeshedPart> part = KFR::make<MeshedPart>();
    SP<MemoryMeshPart> mesh = KFR::make<MemoryMeshPart>();
    SP<FakeGeometryServer> geometry = KFR::make<FakeGeometryServer>();

    MeshScope()
    {
        part->meshParts = {mesh};
        services().put("vrn.orlo.plugin.geometry.GeometryCommonService", geometry);
        services().put("vrn.orlo.plugin.fem.ComponentAccess", geometry);
    }
    Ref reference(char const* type, Word number, Word subId = 0)
    {
        return {part, idOf(type), number, subId};
    }
    Ref node(Word number) { return reference("Simulation.FEM.Node", number); }
};

inline constexpr char const* kElementTypes[] = {
    "FEM.Simulation.1DElement", "FEM.Simulation.2DElement", "FEM.Simulation.3DElement",
    "FEM.Simulation.ElementFace", "Simulation.FEM.Element"};

}  // namespace vrn::orlo::plugin::modeling::test
