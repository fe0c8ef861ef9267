#include "plugins/modelingplugin/utilities/selection/selectionmakeup.h"

#include "platform/appfw/entity.h"
#include "platform/fem/fementities.h"
#include "platform/geometry/geometryservice.h"
#include "platform/servicecaches/servicecachemodelingplugin.h"
#include "platform/typenames/femesh.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"
#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"
#include "plugins/modelingplugin/utilities/selection/elementtypes.h"

#include <algorithm>
#include <utility>

namespace vrn::orlo::plugin::modeling {

using appfw::IEntityInterface;
using KFR::NULLSP;

namespace {

using References = CAE::EntityReferenceSequence;

enum class Cast { loose, strict };

/// Items by their entities in the object model.
template <class Item>
void addObjects(KFRSequence<KFRSmartPointer<Item>> const& items, Cast cast, References& out)
{
    auto const factory = KFR::strict_cast<KFR::EOM::IEOMObjectFactoryInterface>(
        KFRIService(ServiceCacheModelingPlugin::eomObjectFactory_));
    if (factory == NULLSP) {
        return;
    }
    for (auto const& item : items) {
        KFRSmartPointer<KFR::EOM::IEOMObjectInterface> object;
        static_cast<void>(
            factory->getEOMObject(KFR::loose_cast<CAE::IPersistentObjectInterface>(item), object));
        KFRSmartPointer<IEntityInterface> const entity =
            cast == Cast::strict ? KFR::strict_cast<IEntityInterface>(object)
                                 : KFR::loose_cast<IEntityInterface>(object);
        if (entity != NULLSP) {
            out.append(entity->getEntityReference());
        }
    }
}

/// Items by their persistent names.
/// \tparam Named  the interface that knows the name
template <class Named, class Item>
void addNamed(KFRSequence<KFRSmartPointer<Item>> const& items, References& out)
{
    auto const service = KFR::strict_cast<geometry::IGeometryCommonServiceInterface>(
        ServiceHelper::getGeomCommonService());
    if (service == NULLSP) {
        return;
    }
    for (auto const& item : items) {
        auto const named = KFR::loose_cast<Named>(item);
        std::string name;
        CAE::EntityReference reference;
        if (named != NULLSP && named->getPersistentName(name).isOk() &&
            service->getReferenceByName(name, reference).isOk()) {
            out.append(reference);
        }
    }
}

/// Appends elements of one body, or of one after the other.
class ElementAppender {
public:
    explicit ElementAppender(References& out) : m_out(out) {}
    /// All of one part, whatever part their bodies are in.
    ElementAppender(References& out, KFRIService part)
        : m_out(out), m_hasOnePart(true), m_part(std::move(part))
    {
    }

    void append(KFRSmartPointer<CAE::IMeshBodyInterface> const& body, unsigned long long id,
                bool flag)
    {
        if (body == NULLSP || !enter(body)) {
            return;
        }
        KFRSmartPointer<CAE::IElementInterface> element;
        static_cast<void>(body->getElement(id, element, flag));
        int number = -1;
        int shape = -1;
        if (element == NULLSP || !element->getNumber(number).isOk() ||
            !element->getShape(shape).isOk()) {
            return;
        }
        m_out.append({m_part, m_types.ofShape(shape), static_cast<unsigned int>(number), 0});
    }

private:
    /// Finds the body's part, which is that of the body before for most elements.
    bool enter(KFRSmartPointer<CAE::IMeshBodyInterface> const& body)
    {
        if (!m_hasOnePart && body.get() != m_body) {
            m_body = body.get();
            m_part = KFR::loose_cast<CAE::IPartInterface>(PluginHelper::getPart(body));
        }
        return m_part != NULLSP;
    }

    References& m_out;
    ElementTypes m_types;
    CAE::IMeshBodyInterface* m_body = nullptr;
    bool m_hasOnePart = false;
    KFRIService m_part;
};

/// Room for what comes, but never so little more that many small calls copy everything each time.
void reserveFor(References& references, std::size_t more)
{
    std::size_t const needed = references.size() + more;
    if (needed > references.capacity()) {
        references.reserve(std::max(needed, 2 * references.capacity()));
    }
}

}  // namespace

void SelectionMakeup::add(CAE::IPartSequence const& parts)
{
    addObjects(parts, Cast::loose, m_references);
}

void SelectionMakeup::add(CAE::IBehaviorPropertySequence const& behaviors)
{
    addObjects(behaviors, Cast::strict, m_references);
}

void SelectionMakeup::add(CAE::ISectionPropertySequence const& sections)
{
    addObjects(sections, Cast::strict, m_references);
}

void SelectionMakeup::add(CAE::IMaterialSequence const& materials)
{
    addObjects(materials, Cast::strict, m_references);
}

void SelectionMakeup::add(CAE::IGeometrySequence const& geometries)
{
    addNamed<CAE::IGeometryInterface>(geometries, m_references);
}

void SelectionMakeup::add(CAE::IGeomBodySequence const& bodies)
{
    addNamed<CAE::IGeometryInterface>(bodies, m_references);
}

void SelectionMakeup::add(KFR::EOM::IEOMGeometrySequence const& geometries)
{
    addNamed<KFR::EOM::IEOMGeometryInterface>(geometries, m_references);
}

void SelectionMakeup::add(CAE::IMeshSequence const& meshes)
{
    auto const service =
        KFR::strict_cast<fem::IFEMEntitiesInterface>(ServiceHelper::getFEMEntities());
    if (service == NULLSP) {
        return;
    }
    for (auto const& mesh : meshes) {
        auto const feMesh = KFR::loose_cast<CAE::IFEMeshInterface>(mesh);
        KFRSmartPointer<IEntityInterface> entity;
        if (feMesh != NULLSP) {
            static_cast<void>(service->getEntity(feMesh, entity));
        }
        if (entity != NULLSP) {
            m_references.append(entity->getEntityReference());
        }
    }
}

void SelectionMakeup::add(CAE::IMeshBodySequence const& bodies)
{
    unsigned int const continuousMesh = EntityTypeID(typenames::kFemContinuousMesh).typeID();
    for (auto const& body : bodies) {
        CAE::IMeshSequence meshes;
        if (body != NULLSP && body->getMeshes(continuousMesh, meshes).isOk()) {
            add(meshes);
        }
    }
}

void SelectionMakeup::add(CAE::IMeshBodySequence const& bodies, ElementIds ids, bool flag)
{
    if (ids.empty() || bodies.size() != ids.size()) {
        return;
    }
    reserveFor(m_references, ids.size());
    ElementAppender elements(m_references);
    for (std::size_t i = 0; i < ids.size(); ++i) {
        elements.append(bodies[i], ids[i], flag);
    }
}

void SelectionMakeup::add(KFRSmartPointer<CAE::IPartInterface> part, ElementIds ids, bool flag)
{
    CAE::IMeshBodySequence bodies;
    if (part == NULLSP || ids.empty() || !part->getMeshBodies(bodies).isOk() || bodies.empty()) {
        return;
    }
    reserveFor(m_references, ids.size());
    ElementAppender elements(m_references, part);
    for (unsigned long long const id : ids) {
        elements.append(bodies[0], id, flag);
    }
}

void SelectionMakeup::add(ElementsByBody const& elements)
{
    constexpr bool kExternal = true;
    ElementAppender appender(m_references);
    for (auto const& [body, ids] : elements) {
        reserveFor(m_references, ids.size());
        for (unsigned long long const id : ids) {
            appender.append(body, id, kExternal);
        }
    }
}

}  // namespace vrn::orlo::plugin::modeling
