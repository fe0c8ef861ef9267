/// \file
/// A model in small: parts, instances, geometry, meshes and their entities, and the services that
/// lead from one to the other. What a test has not put in is not there.

#pragma once

#include "platform/appfw/entref.h"
#include "platform/caedata/entityreferencelist.h"
#include "platform/eom/eom.h"
#include "platform/fem/fementities.h"
#include "platform/geometry/geometryservice.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/servicecaches/servicecachemodelingplugin.h"
#include "plugins/modelingplugin/utilities/identity/entitycompare.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::plugin::modeling::test {

template <class I>
using SP = KFRSmartPointer<I>;
using Entity = SP<appfw::IEntityInterface>;
using Persistent = SP<CAE::IPersistentObjectInterface>;
using EOMObject = SP<KFR::EOM::IEOMObjectInterface>;
using Container = SP<appfw::IEntRefInterface>;
using List = SP<CAE::IEntityReferenceListInterface>;
using FEMesh = SP<CAE::IFEMeshInterface>;
using Mesh = SP<CAE::IMeshInterface>;
using MeshBody = SP<CAE::IMeshBodyInterface>;
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
template <class Key, class T>
KFRResult giveAt(std::map<Key, T> const& held, Key const& key, T& out)
{
    auto const found = held.find(key);
    return give(found != held.end() ? std::optional<T>(found->second) : std::nullopt, out);
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

/// An entity with the views `Is` besides, any of which a test can take away.
template <class... Is>
class EntityOf : public KFRServiceObjectImpl<appfw::IEntityInterface, Is...> {
public:
    Ref reference;
    std::vector<KFRUUID> lost;

    Ref getEntityReference() override { return reference; }
    KFRResult setProperty(std::string const&, KFRAny const&) override { return KFR::notDone; }
    KFRResult getProperty(std::string const&, KFRAny&) override { return KFR::notDone; }

protected:
    [[nodiscard]] void* queryInterface(KFRUUID const& id) noexcept override
    {
        bool const isLost = std::find(lost.begin(), lost.end(), id) != lost.end();
        return isLost ? nullptr : EntityOf::KFRServiceObjectImpl::queryInterface(id);
    }
};

using PlainEntity = EntityOf<>;

/// An object of all three worlds: persistent, of the object model, and an entity.
template <class... Is>
class ObjectOf
    : public EntityOf<CAE::IPersistentObjectInterface, KFR::EOM::IEOMObjectInterface, Is...> {
public:
    CAE::GUIDDATA guid;

    HANDS_OUT(getParent, Persistent, parent)
    KFRResult getIdentifier(CAE::GUIDDATA&) override { return KFR::notDone; }
    CAE::GUIDDATA getGuid() override { return guid; }
    bool isSameObject(EOMObject const& other) override { return other == self(); }
    KFRResult getPersistentObject(Persistent& out) override { return giveView(self(), out); }

private:
    KFRIService self() { return {this->kfrRoot(), {}}; }
};

using FakeObject = ObjectOf<>;
using FakeProperty = ObjectOf<CAE::IMaterialInterface, CAE::ISectionPropertyInterface,
                              CAE::IBehaviorPropertyInterface>;

class FakeInstance final
    : public EntityOf<CAE::IInstanceInterface, KFR::EOM::IEOMInstanceInterface> {
public:
    HANDS_OUT(getReferenceObject, Persistent, placed)
    HANDS_OUT(getPart, KFRIService, part)
};

class FakePart final : public ObjectOf<CAE::IPartInterface, KFR::EOM::IEOMPartInterface> {
public:
    HANDS_OUT(getMeshBodies, CAE::IMeshBodySequence, bodies)
    HANDS_OUT(getInstances, CAE::IInstanceSequence, instances)
    HANDS_OUT(getInstances, KFR::EOM::IEOMInstanceSequence, eomInstances)
};

/// A face or a body, with its number in the display.
class FakeGeometry final
    : public ObjectOf<CAE::IGeometryInterface, CAE::IGeomBodyInterface,
                      KFR::EOM::IEOMGeometryInterface, KFR::EOM::IEOMGeomBodyInterface> {
public:
    std::optional<Word> number;

    HANDS_OUT(getPersistentName, std::string, name)
    HANDS_OUT(getOwningBody, SP<CAE::IGeometryInterface>, body)
    HANDS_OUT(getMeshBodies, CAE::IMeshBodySequence, meshBodies)
    HANDS_OUT(getPart, SP<KFR::EOM::IEOMPartInterface>, part)
    KFRResult getDisplayEntity(Ref& entity, Word& out) override
    {
        entity = reference;
        return give(number, out);
    }
};

/// A mesh, its entity and its element tables in one.
class FakeMesh final
    : public EntityOf<CAE::IMeshInterface, CAE::IFEMeshInterface, fem::IFEMeshDataInterface> {
public:
    HANDS_OUT(getDimension, unsigned char, dimension, 2)
    HANDS_OUT(getMeshBody, MeshBody, body)
    HANDS_OUT(getTriangleOwner, Entity, triangles)
    HANDS_OUT(getQuadOwner, Entity, quads)
    HANDS_OUT(getSolidOwner, Entity, solids)
};

class FakeElement final : public KFRServiceObjectImpl<CAE::IElementInterface> {
public:
    HANDS_OUT(getId, unsigned long long, id)
    HANDS_OUT(getNumber, int, number)
    HANDS_OUT(getNodeCount, int, nodeCount)
    HANDS_OUT(getShape, int, shape, 1)
    HANDS_OUT(getMesh, Mesh, mesh)
};

/// Its elements stand in a flat array: numbers from 0, ids from 1000.
class FakeMeshBody final
    : public KFRServiceObjectImpl<CAE::IMeshBodyInterface, CAE::IPersistentObjectInterface> {
public:
    std::map<Word, CAE::IMeshSequence> meshes;
    std::vector<SP<FakeElement>> elements;

    HANDS_OUT(getParent, Persistent, parent)
    FakeElement& add(int nodeCount, Mesh const& mesh)
    {
        FakeElement& element = *elements.emplace_back(KFR::make<FakeElement>());
        element.number = static_cast<int>(elements.size()) - 1;
        element.id = *element.number + 1000ULL;
        element.nodeCount = nodeCount;
        element.mesh = mesh;
        return element;
    }
    KFRResult getMeshes(Word typeId, CAE::IMeshSequence& out) override
    {
        return giveAt(meshes, typeId, out);
    }
    KFRResult getElement(unsigned long long id, SP<CAE::IElementInterface>& out, bool flag) override
    {
        unsigned long long const number = flag ? id - 1000 : id;
        out = number < elements.size() ? elements[number] : SP<FakeElement>();
        return out != KFR::NULLSP ? KFR::ok : KFR::notDone;
    }
    KFRResult getIdentifier(CAE::GUIDDATA&) override { return KFR::notDone; }
};

/// Keeps its types in the order of their ids. 0 is the id of nothing.
class FakeContainer final : public KFRServiceObjectImpl<appfw::IEntRefInterface> {
public:
    std::map<Word, Ids> ids;
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
    KFRResult getIds(Word type, Ids& out) override { return giveAt(ids, type, out); }
    KFRResult getReference(Word type, Word id, Ref& out) override
    {
        out = {owner->service, type, id, owner->id};
        return id != 0 ? KFR::ok : KFR::notDone;
    }
    KFRResult getEntity(Word type, Word id, Entity& out) override
    {
        auto const entity = KFR::make<PlainEntity>();
        out = entity;
        return getReference(type, id, entity->reference);
    }
    KFRResult addIds(Word type, Ids const& added, Ids const& subs) override
    {
        ids[type].append(added);
        subIds = subs;
        return KFR::ok;
    }
};

/// A list and its iterator in one. Without an order of its own it puts what is added in front.
class FakeList final : public KFRServiceObjectImpl<CAE::IEntityReferenceListInterface,
                                                   CAE::IEntityReferenceIteratorInterface> {
public:
    explicit FakeList(bool ordered, Refs held = {}) : references(held), isOrdered(ordered) {}
    Refs references;
    bool isOrdered;

    HANDS_OUT(getContainers, appfw::IEntRefSequence, containers)
    SP<CAE::IEntityReferenceIteratorInterface> getIterator() override
    {
        return KFR::make<FakeList>(true, references);
    }
    KFRResult next(Ref& out) override
    {
        std::optional<Ref> const first{references.empty() ? std::nullopt
                                                          : std::optional(references[0])};
        references.erase(0);
        return give(first, out);
    }
    KFRResult add(Ref const& reference) override
    {
        references.insert(isOrdered ? references.size() : 0, reference);
        return KFR::ok;
    }
    KFRResult addContainer(Container const& container) override
    {
        containers = appfw::IEntRefSequence{container};
        return KFR::ok;
    }
};

class FakeEntityList final : public KFRServiceObjectImpl<appfw::IEntityListInterface> {
public:
    explicit FakeEntityList(appfw::IEntities const& listed) : entities(listed) {}
    HANDS_OUT(getEntities, appfw::IEntities, entities)
};

/// Every service of the model in one object.
class FakeModelServices final
    : public KFRServiceObjectImpl<
          appfw::IRootManagerInterface, appfw::IInterfaceAdapterManagerInterface,
          KFR::EOM::IEOMObjectFactoryInterface, CAE::IEntityReferenceListFactoryInterface,
          appfw::IEntRefContainerFactoryInterface, fem::IFEMEntitiesInterface,
          geometry::IGeometryCommonServiceInterface, geometry::IGeometryDisplayServiceInterface> {
public:
    std::map<Word, Entity> entities;  ///< found by their numbers
    Entity objectsEntity;
    std::map<std::string, Ref> names;
    std::vector<SP<FakeContainer>> made;

    Entity getEntity(Ref const& reference) override { return entities[reference.id]; }
    Entity getEntityOfObject(KFRIService const&) override { return objectsEntity; }
    SP<appfw::IEntityListInterface> createEntityList(appfw::IEntities const& listed) override
    {
        return KFR::make<FakeEntityList>(listed);
    }

    // An order and a hash that nobody would guess.
    bool equals(Ref const& left, Ref const& right) override { return left == right; }
    bool lessThan(Ref const& a, Ref const& b) override { return a.typeId < b.typeId; }
    int hashCode(Ref const& reference) override { return -static_cast<int>(reference.id); }

    KFRResult getEOMObject(Persistent const& object, EOMObject& out) override
    {
        return giveView(object, out);
    }
    List createList() override { return KFR::make<FakeList>(false); }
    List createOrderedList() override { return KFR::make<FakeList>(true); }
    /// Finds what was made last.
    Container find(KFRIService const& owner, Word type, Word id, Word subId) override
    {
        bool const isLast = !made.empty() && made.back()->owner == Ref{owner, type, id, subId};
        return isLast ? made.back() : SP<FakeContainer>();
    }
    Container create(KFRIService const& owner, Word type, Word id, Word subId, int empty) override
    {
        FakeContainer& container = *made.emplace_back(KFR::make<FakeContainer>());
        container.owner = {owner, type, id, subId};
        container.emptyFlag = empty;
        return made.back();
    }
    KFRResult getEntity(FEMesh const& mesh, Entity& out) override { return giveView(mesh, out); }
    KFRResult getMeshData(Mesh const& mesh, SP<fem::IFEMeshDataInterface>& out) override
    {
        return giveView(mesh, out);
    }
    KFRResult getReferenceByName(std::string const& name, Ref& out) override
    {
        return giveAt(names, name, out);
    }
    KFRResult getDisplayService(SP<geometry::IGeometryDisplayServiceInterface>& out) override
    {
        return giveView({kfrRoot(), {}}, out);
    }
    /// What is displayed is the entity with the number 100 further.
    KFRResult getDisplayReference(Ref const& entity, Word, Ref& out) override
    {
        return give(std::optional(Ref{entity.service, entity.typeId, entity.id + 100, 0}), out);
    }
};

/// A platform with these services in it. The comparators forget them at its end.
template <class Platform>
class ModelScope : public Platform {
public:
    SP<FakeModelServices> model = KFR::make<FakeModelServices>();

    ModelScope()
    {
        ServiceCacheModelingPlugin::rootManager_ = model;
        ServiceCacheModelingPlugin::eomObjectFactory_ = model;
        ServiceCacheModelingPlugin::entRefListFactory_ = model;
        ServiceCacheModelingPlugin::entRefContainerFactory_ = model;
        ServiceCacheModelingPlugin::entRefFactory_ = model;
        this->services().put("vrn.orlo.plugin.fem.FEMEntities", model);
        this->services().put("vrn.orlo.plugin.geometry.GeometryCommonService", model);
    }
    ~ModelScope() { EntityCompare::release(); }

    /// An object that the root manager finds.
    template <class T>
    SP<T> make(Word typeId, Word id, KFRIService const& service = {})
    {
        auto const made = KFR::make<T>();
        made->reference = {service, typeId, id, 0};
        model->entities[id] = made;
        return made;
    }
};

}  // namespace vrn::orlo::plugin::modeling::test
