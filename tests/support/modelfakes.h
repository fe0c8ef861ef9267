/// \file
/// A model in small, with the services that lead from one object to the other. What a test has not
/// put in is not there.

#pragma once

#include "platform/appfw/entref.h"
#include "platform/caedata/entityreferencelist.h"
#include "platform/eom/eom.h"
#include "platform/fem/fementities.h"
#include "platform/servicecaches/servicecachemodelingplugin.h"
#include "plugins/modelingplugin/utilities/identity/entitycompare.h"
#include "tests/support/platformscope.h"
#include "tests/support/silent.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling::test {

template <class I>
using SP = KFRSmartPointer<I>;
using Entity = SP<appfw::IEntityInterface>;
using EntityList = SP<appfw::IEntityListInterface>;
using Persistent = SP<CAE::IPersistentObjectInterface>;
using EOMObject = SP<KFR::EOM::IEOMObjectInterface>;
using Container = SP<appfw::IEntRefInterface>;
using List = SP<CAE::IEntityReferenceListInterface>;
using Iterator = SP<CAE::IEntityReferenceIteratorInterface>;
using FEMesh = SP<CAE::IFEMeshInterface>;
using Mesh = SP<CAE::IMeshInterface>;
using MeshBody = SP<CAE::IMeshBodyInterface>;
using MeshData = SP<fem::IFEMeshDataInterface>;
using Ref = CAE::EntityReference;
using Refs = CAE::EntityReferenceSequence;
using Word = unsigned int;
using Ids = KFRSequence<Word>;

/// Fails, with `out` as it was, when there is nothing to give.
template <class T>
KFRResult give(std::optional<T> const& held, T& out)
{
    out = held.value_or(out);
    return held.has_value() ? KFR::ok : KFR::notDone;
}
/// A view of an object, which may lack it.
template <class I>
KFRResult giveView(KFRIService const& object, SP<I>& out)
{
    out = KFR::loose_cast<I>(object);
    return out != KFR::NULLSP ? KFR::ok : KFR::notDone;
}

/// A member, empty or with the value that follows, and the operation that hands it out.
#define HANDS_OUT(operation, Type, member, ...) \
    std::optional<Type> member{__VA_ARGS__};    \
    KFRResult operation(Type& out) override     \
    {                                           \
        return test::give(member, out);         \
    }

/// An entity with the views `Is` besides, one of which a test can take away.
template <class... Is>
struct EntityOf : KFRServiceObjectImpl<appfw::IEntityInterface, Is...> {
    Ref reference;
    std::optional<KFRUUID> lost;

    Ref getEntityReference() override { return reference; }
    KFRResult setProperty(std::string const&, KFRAny const&) override { return KFR::notDone; }
    KFRResult getProperty(std::string const&, KFRAny&) override { return KFR::notDone; }
    [[nodiscard]] void* queryInterface(KFRUUID const& id) noexcept override
    {
        return id == lost ? nullptr : EntityOf::KFRServiceObjectImpl::queryInterface(id);
    }
};

using PlainEntity = EntityOf<>;

/// An object of all three worlds: persistent, of the object model, and an entity.
template <class... Is>
struct ObjectOf : EntityOf<silent::PersistentView, KFR::EOM::IEOMObjectInterface, Is...> {
    CAE::GUIDDATA guid;

    HANDS_OUT(getParent, Persistent, parent)
    KFRIService self() { return {this->kfrRoot(), {}}; }
    CAE::GUIDDATA getGuid() override { return guid; }
    bool isSameObject(EOMObject const& other) override { return other == self(); }
    KFRResult getPersistentObject(Persistent& out) override { return giveView(self(), out); }
};

using FakeObject = ObjectOf<>;
using FakeProperty = ObjectOf<CAE::IMaterialInterface, CAE::ISectionPropertyInterface,
                              CAE::IBehaviorPropertyInterface>;

struct FakeInstance final : EntityOf<CAE::IInstanceInterface> {
    HANDS_OUT(getReferenceObject, Persistent, placed)
};

struct FakePart final : ObjectOf<silent::PartView> {
    HANDS_OUT(getMeshBodies, CAE::IMeshBodySequence, bodies)
    HANDS_OUT(getInstances, CAE::IInstanceSequence, instances)
};

/// A mesh, its entity and its element tables in one.
struct FakeMesh final : EntityOf<silent::MeshView, silent::FEMeshView, fem::IFEMeshDataInterface> {
    HANDS_OUT(getDimension, unsigned char, dimension)
    HANDS_OUT(getMeshBody, MeshBody, body)
    HANDS_OUT(getTriangleOwner, Entity, triangles)
    HANDS_OUT(getQuadOwner, Entity, quads)
    HANDS_OUT(getSolidOwner, Entity, solids)
};

struct FakeElement final : KFRServiceObjectImpl<silent::ElementView> {
    HANDS_OUT(getId, unsigned long long, id)
    HANDS_OUT(getNumber, int, number)
    HANDS_OUT(getNodeCount, int, nodeCount)
    HANDS_OUT(getShape, int, shape, 1)
    HANDS_OUT(getMesh, Mesh, mesh)
};

/// Its elements stand in a flat array: numbers from 0, ids from 1000.
struct FakeMeshBody final : KFRServiceObjectImpl<silent::MeshBodyView, silent::PersistentView> {
    CAE::IMeshSequence meshes;
    std::vector<SP<FakeElement>> elements;

    HANDS_OUT(getParent, Persistent, parent)
    FakeElement& add(int nodeCount, Mesh const& mesh)
    {
        FakeElement& element = *elements.emplace_back(KFR::make<FakeElement>());
        element.number = static_cast<int>(elements.size()) - 1;
        element.id = 999 + elements.size();
        element.nodeCount = nodeCount;
        element.mesh = mesh;
        return element;
    }
    KFRResult getMeshes(Word, CAE::IMeshSequence& out) override { return out = meshes, KFR::ok; }
    KFRResult getElement(unsigned long long id, SP<CAE::IElementInterface>& out, bool flag) override
    {
        unsigned long long const number = flag ? id - 1000 : id;
        out = number < elements.size() ? elements[number] : SP<FakeElement>();
        return out != KFR::NULLSP ? KFR::ok : KFR::notDone;
    }
};

/// 0 is the id of nothing.
struct FakeContainer final : KFRServiceObjectImpl<appfw::IEntRefInterface> {
    std::map<Word, Ids> ids;
    std::map<Word, Entity> entities;
    Ids subIds;
    int emptyFlag = 0;

    HANDS_OUT(getOwner, Ref, owner)
    KFRResult getTypes(Ids& out) override
    {
        for (auto const& row : ids) {
            out.append(row.first);
        }
        return KFR::ok;
    }
    KFRResult getIds(Word type, Ids& out) override { return out = ids[type], KFR::ok; }
    KFRResult getReference(Word type, Word id, Ref& out) override
    {
        out = {owner->service, type, id, owner->id};
        return id != 0 ? KFR::ok : KFR::notDone;
    }
    KFRResult getEntity(Word, Word id, Entity& out) override { return out = entities[id], KFR::ok; }
    KFRResult addIds(Word type, Ids const& added, Ids const& subs) override
    {
        ids[type].append(added);
        return subIds = subs, KFR::ok;
    }
};

/// A list and its iterator in one.
struct FakeList final : KFRServiceObjectImpl<CAE::IEntityReferenceListInterface,
                                             CAE::IEntityReferenceIteratorInterface> {
    explicit FakeList(Refs held = {}) : references(held) {}
    Refs references;

    HANDS_OUT(getContainers, appfw::IEntRefSequence, containers)
    Iterator getIterator() override { return KFR::make<FakeList>(references); }
    KFRResult next(Ref& out) override
    {
        bool const isThere = !references.empty();
        out = isThere ? references[0] : out;
        references.erase(0);
        return isThere ? KFR::ok : KFR::notDone;
    }
    KFRResult add(Ref const& one) override { return references.append(one), KFR::ok; }
    KFRResult addContainer(Container const& one) override { return containers = {one}, KFR::ok; }
};

/// Every service of the model in one object.
struct FakeModelServices final
    : KFRServiceObjectImpl<appfw::IRootManagerInterface, appfw::IInterfaceAdapterManagerInterface,
                           KFR::EOM::IEOMObjectFactoryInterface,
                           CAE::IEntityReferenceListFactoryInterface,
                           appfw::IEntRefContainerFactoryInterface, fem::IFEMEntitiesInterface> {
    std::map<Word, Entity> entities;  ///< found by their numbers
    Entity objectsEntity;
    std::vector<SP<FakeContainer>> made;

    Entity getEntity(Ref const& reference) override { return entities[reference.id]; }
    Entity getEntityOfObject(KFRIService const&) override { return objectsEntity; }
    EntityList createEntityList(appfw::IEntities const&) override { return {}; }

    // An order and a hash that nobody would guess.
    bool equals(Ref const& left, Ref const& right) override { return left == right; }
    bool lessThan(Ref const& a, Ref const& b) override { return a.typeId < b.typeId; }
    int hashCode(Ref const& reference) override { return -static_cast<int>(reference.id); }

    KFRResult getEOMObject(Persistent const& of, EOMObject& out) override
    {
        return giveView(of, out);
    }
    List createList() override { return KFR::make<FakeList>(); }
    /// Starts with the empty reference, to be told from the other.
    List createOrderedList() override { return KFR::make<FakeList>(Refs{{}}); }
    /// Finds what was made last.
    Container find(KFRIService const& owner, Word type, Word id, Word subId) override
    {
        bool const isLast = !made.empty() && made.back()->owner == Ref{owner, type, id, subId};
        return isLast ? made.back() : SP<FakeContainer>();
    }
    Container create(KFRIService const& owner, Word type, Word id, Word subId, int empty) override
    {
        made.push_back(KFR::make<FakeContainer>());
        made.back()->owner = {owner, type, id, subId};
        made.back()->emptyFlag = empty;
        return made.back();
    }
    KFRResult getEntity(FEMesh const& mesh, Entity& out) override { return giveView(mesh, out); }
    KFRResult getMeshData(Mesh const& of, MeshData& out) override { return giveView(of, out); }
};

/// A platform with these services in it. The comparators forget them at its end.
template <class Platform = PlatformScope>
struct ModelScope : Platform {
    SP<FakeModelServices> model = KFR::make<FakeModelServices>();

    ModelScope()
    {
        using Cache = ServiceCacheModelingPlugin;
        Cache::rootManager_ = model;
        Cache::eomObjectFactory_ = model;
        Cache::entRefListFactory_ = model;
        Cache::entRefContainerFactory_ = Cache::entRefFactory_ = model;
        this->services().put("vrn.orlo.plugin.fem.FEMEntities", model);
    }
    ~ModelScope() { EntityCompare::release(); }

    /// An object that the root manager finds.
    template <class T>
    SP<T> make(Word type, Word id, KFRIService const& service = {})
    {
        auto const made = KFR::make<T>();
        made->reference = {service, type, id, 0};
        model->entities[id] = made;
        return made;
    }
};

}  // namespace vrn::orlo::plugin::modeling::test
