#include "plugins/modelingplugin/utilities/selection/selectiondivider.h"

#include "platform/appfw/entity.h"
#include "platform/eom/eom.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/identity/entconvert.h"
#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"
#include "plugins/modelingplugin/utilities/selection/selectfilter.h"

#include <unordered_map>

namespace vrn::orlo::plugin::modeling {

using appfw::IEntityInterface;
using KFR::NULLSP;

namespace {

using References = CAE::EntityReferenceSequence;
using MeshBody = KFRSmartPointer<CAE::IMeshBodyInterface>;

/// The references of a list, by its containers if it has them.
References expanded(KFRSmartPointer<CAE::IEntityReferenceConstListInterface> const& list)
{
    References references;
    appfw::IEntRefSequence containers;
    if (list != NULLSP && list->getContainers(containers).isOk()) {
        for (auto const& container : containers) {
            if (container == NULLSP) {
                continue;
            }
            KFRSequence<unsigned int> types;
            static_cast<void>(container->getTypes(types));
            for (unsigned int const type : types) {
                KFRSequence<unsigned int> ids;
                static_cast<void>(container->getIds(type, ids));
                for (unsigned int const id : ids) {
                    CAE::EntityReference reference;
                    if (container->getReference(type, id, reference).isOk()) {
                        references.append(reference);
                    }
                }
            }
        }
    }
    return references.empty() ? EntConvert().toEntRefSeq(list) : references;
}

KFRSmartPointer<IEntityInterface> entityOf(CAE::EntityReference const& reference)
{
    auto const manager = ServiceHelper::getRootManager();
    return manager != NULLSP ? manager->getEntity(reference) : KFRSmartPointer<IEntityInterface>();
}

/// The first place where a part stands.
KFRSmartPointer<IEntityInterface> firstInstanceOf(CAE::EntityReference const& reference)
{
    return KFR::loose_cast<IEntityInterface>(PluginHelper::getPartInstancebyPart(
        KFR::loose_cast<CAE::IPersistentObjectInterface>(entityOf(reference))));
}

/// The objects of a bucket that are of a kind, each by way of its entity.
template <class Sequence, class Find>
Sequence objectsOf(References const& references, Find const& find)
{
    Sequence objects;
    for (CAE::EntityReference const& reference : references) {
        if (auto const object = find(entityOf(reference)); object != NULLSP) {
            objects.append(object);
        }
    }
    return objects;
}

template <class I>
KFRSmartPointer<I> castTo(KFRSmartPointer<IEntityInterface> const& entity)
{
    return KFR::loose_cast<I>(entity);
}

/// The persistent object behind an entity of the object model.
template <class I>
KFRSmartPointer<I> persistentOf(KFRSmartPointer<IEntityInterface> const& entity)
{
    auto const object = KFR::loose_cast<KFR::EOM::IEOMObjectInterface>(entity);
    KFRSmartPointer<CAE::IPersistentObjectInterface> persistent;
    if (object != NULLSP) {
        static_cast<void>(object->getPersistentObject(persistent));
    }
    return KFR::loose_cast<I>(persistent);
}

MeshBody bodyOf(KFRSmartPointer<CAE::IMeshInterface> const& mesh)
{
    MeshBody body;
    if (mesh != NULLSP) {
        static_cast<void>(mesh->getMeshBody(body));
    }
    return body;
}

/// Where the elements of one service are found.
struct Holder {
    CAE::IMeshBodySequence m_bodies;  ///< Null-free; several for a part.
};

Holder holderOf(KFRIService const& service)
{
    Holder holder;
    auto const add = [&holder](MeshBody const& body) {
        if (body != NULLSP) {
            holder.m_bodies.append(body);
        }
    };
    if (auto const body = KFR::loose_cast<CAE::IMeshBodyInterface>(service); body != NULLSP) {
        add(body);
    } else if (auto const mesh = KFR::loose_cast<CAE::IMeshInterface>(service); mesh != NULLSP) {
        add(bodyOf(mesh));
    } else if (auto const part = KFR::loose_cast<CAE::IPartInterface>(service); part != NULLSP) {
        CAE::IMeshBodySequence bodies;
        static_cast<void>(part->getMeshBodies(bodies));
        for (MeshBody const& partBody : bodies) {
            add(partBody);
        }
    }
    return holder;
}

}  // namespace

SelectionDivider::SelectionDivider(References const& selection)
{
    divide(selection, Tests::predicates);
}

SelectionDivider::SelectionDivider(
    KFRSmartPointer<CAE::IEntityReferenceConstListInterface> const& selection)
{
    divide(expanded(selection), Tests::table);
}

void SelectionDivider::divide(References const& selection, Tests tests)
{
    // Where a type goes; neither, and it is left out.
    struct Way {
        References* m_bucket = nullptr;
        bool m_isPart = false;
    };
    // The answer depends on the type alone, and a selection has many references of few types.
    std::unordered_map<unsigned int, Way> ways;
    auto const bucketOf = [this, tests](CAE::EntityReference const& reference) -> References* {
        unsigned int const type = reference.typeId;
        bool const isBody = tests == Tests::table ? SelectFilter::isSelectFilter(FilterBody, type)
                                                  : SelectFilter::isBody(reference);
        if (isBody) {
            return &m_bodies;
        }
        bool const isMeshGroup = tests == Tests::table
                                     ? SelectFilter::isSelectFilter(FilterMeshGroup, type)
                                     : SelectFilter::isMeshGroup(reference);
        if (isMeshGroup) {
            return &m_meshes;
        }
        if (SelectFilter::is1DElement(reference) || SelectFilter::is2DElement(reference) ||
            SelectFilter::is3DElement(reference) || SelectFilter::isPFWElement(reference)) {
            return &m_elements;
        }
        if (SelectFilter::isEdge(reference) || SelectFilter::isFace(reference) ||
            SelectFilter::isRegion(reference)) {
            return &m_geometries;
        }
        if (SelectFilter::isLineISOMaterial(reference)) {
            return &m_materials;
        }
        return SelectFilter::isSectionProperty(reference) ? &m_sections : nullptr;
    };
    for (CAE::EntityReference const& reference : selection) {
        auto const [row, isNew] = ways.try_emplace(reference.typeId);
        Way& way = row->second;
        if (isNew) {
            if (SelectFilter::isSelectFilter(FilterPartInstance, reference.typeId)) {
                way.m_bucket = &m_parts;
            } else if (SelectFilter::isPart(reference)) {
                way.m_isPart = true;
            } else {
                way.m_bucket = bucketOf(reference);
            }
        }
        if (way.m_bucket != nullptr) {
            way.m_bucket->append(reference);
        } else if (way.m_isPart) {
            if (auto const instance = firstInstanceOf(reference); instance != NULLSP) {
                m_parts.append(instance->getEntityReference());
            }
        }
    }
}

CAE::IPartSequence SelectionDivider::getParts() const
{
    return objectsOf<CAE::IPartSequence>(
        m_parts, [](KFRSmartPointer<IEntityInterface> const& entity) {
            auto const instance = castTo<CAE::IInstanceInterface>(entity);
            KFRSmartPointer<CAE::IPersistentObjectInterface> placed;
            if (instance != NULLSP) {
                static_cast<void>(instance->getReferenceObject(placed));
            }
            return KFR::loose_cast<CAE::IPartInterface>(placed);
        });
}

CAE::IGeomBodySequence SelectionDivider::getGeomBodies() const
{
    return objectsOf<CAE::IGeomBodySequence>(m_bodies, castTo<CAE::IGeomBodyInterface>);
}

CAE::IMeshSequence SelectionDivider::getMeshes() const
{
    return objectsOf<CAE::IMeshSequence>(m_meshes, castTo<CAE::IMeshInterface>);
}

CAE::IMeshBodySequence SelectionDivider::getMeshBodies() const
{
    return objectsOf<CAE::IMeshBodySequence>(m_meshes,
                                             [](KFRSmartPointer<IEntityInterface> const& entity) {
                                                 return bodyOf(castTo<CAE::IMeshInterface>(entity));
                                             });
}

CAE::IGeometrySequence SelectionDivider::getGeometries() const
{
    return objectsOf<CAE::IGeometrySequence>(m_geometries, castTo<CAE::IGeometryInterface>);
}

CAE::IMaterialSequence SelectionDivider::getMaterials() const
{
    return objectsOf<CAE::IMaterialSequence>(m_materials, persistentOf<CAE::IMaterialInterface>);
}

CAE::ISectionPropertySequence SelectionDivider::getSections() const
{
    return objectsOf<CAE::ISectionPropertySequence>(m_sections,
                                                    persistentOf<CAE::ISectionPropertyInterface>);
}

CAE::IBehaviorPropertySequence SelectionDivider::getBehaviors() const
{
    return objectsOf<CAE::IBehaviorPropertySequence>(m_behaviors,
                                                     persistentOf<CAE::IBehaviorPropertyInterface>);
}

SelectionDivider::ElementsByBody SelectionDivider::getElementIds(bool flag) const
{
    ElementsByBody elements;
    KFRIServiceInterface* lastService = nullptr;
    Holder holder;
    CAE::IMeshBodyInterface* lastBody = nullptr;
    KFRSequence<unsigned long long>* ids = nullptr;
    for (CAE::EntityReference const& reference : m_elements) {
        if (reference.service.get() != lastService) {
            lastService = reference.service.get();
            holder = holderOf(reference.service);
        }
        for (MeshBody const& body : holder.m_bodies) {
            KFRSmartPointer<CAE::IElementInterface> element;
            unsigned long long elementId = 0;
            if (!body->getElement(reference.id, element, flag).isOk() || element == NULLSP ||
                !element->getId(elementId).isOk()) {
                continue;
            }
            if (body.get() != lastBody) {
                lastBody = body.get();
                ids = &elements[body];
            }
            ids->append(elementId);
            break;
        }
    }
    return elements;
}

}  // namespace vrn::orlo::plugin::modeling
