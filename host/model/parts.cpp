#include "host/model/parts.h"

#include "host/model/entityname.h"

#include <utility>

namespace vrn::orlo::host::model {

namespace {

std::string checkColor(KFRAny const& value)
{
    constexpr int kWhite = 0xFFFFFF;
    int const color = *value.get<int>();
    return color >= 0 && color <= kWhite ? "" : "a color from 0 to 16777215 (0xRRGGBB)";
}

std::string checkTransparency(KFRAny const& value)
{
    double const transparency = *value.get<double>();
    return transparency >= 0.0 && transparency <= 1.0 ? "" : "a number from 0 to 1";
}

template <class Node>
void declareNodeProperties(Node& node, std::string const& name)
{
    node.declareProperty(kNameProperty, KFRAny(icu::UnicodeString::fromUTF8(name)));
    node.declareProperty("visible", KFRAny(true));
}

/// The objects behind weak references, as far as they are still part of a model.
template <class I>
void collectLiving(
    std::vector<KFRSmartPointer<KFR::Framework::KFRIWeakReferenceInterface>> const& references,
    KFRSequence<KFRSmartPointer<I>>& objects)
{
    KFRSequence<KFRSmartPointer<I>> living;
    for (auto const& reference : references) {
        KFRIService const object = reference->lock();
        if (object != KFR::NULLSP && !isDeleted(object)) {
            living.append(KFR::strict_cast<I>(object));
        }
    }
    objects = living;
}

/// The one mesh part there may be, in the view `I`.
template <class I>
KFRSequence<KFRSmartPointer<I>> meshPartsOf(Part const& part)
{
    KFRSequence<KFRSmartPointer<I>> meshParts;
    if (auto const view = KFR::loose_cast<I>(part.mesh()); view != KFR::NULLSP) {
        meshParts.append(view);
    }
    return meshParts;
}

}  // namespace

Part::Part(std::string name, std::string persistentName, unsigned int typeId, unsigned int number,
           std::shared_ptr<EntityService> service)
    : ModelObjectOf(std::move(persistentName), KFR::NULLSP, typeId, number, std::move(service)),
      m_name(std::move(name))
{
    constexpr int kGrey = 0xB0B0B0;
    declareProperty(kNameProperty, KFRAny(icu::UnicodeString::fromUTF8(m_name)));
    declareProperty("description", KFRAny(icu::UnicodeString()));
    declareProperty("visible", KFRAny(true));
    declareProperty("color", KFRAny(kGrey), checkColor);
    declareProperty("transparency", KFRAny(0.0), checkTransparency);
}

Part::~Part()
{
    if (m_mesh != KFR::NULLSP) {
        m_mesh->leavePart();
    }
}

void Part::addInstance(PartInstance& instance)
{
    m_instances.push_back(instance.weakReference());
}

KFRSmartPointer<PartMeshInterface> Part::mesh() const
{
    return model::isDeleted(m_mesh) ? KFRSmartPointer<PartMeshInterface>() : m_mesh;
}

KFRResult Part::getMeshBodies(CAE::IMeshBodySequence& bodies)
{
    CAE::IMeshBodySequence found = m_meshBodies.all();
    if (auto const meshed = mesh(); meshed != KFR::NULLSP) {
        found.append(meshed->bodies());
    }
    bodies = found;
    return KFR::ok;
}

KFRResult Part::getMeshParts(CAE::IMeshPartSequence& meshParts)
{
    meshParts = meshPartsOf<CAE::IMeshPartInterface>(*this);
    return KFR::ok;
}

KFRResult Part::getMeshParts(KFR::EOM::IEOMMeshPartSequence& meshParts)
{
    meshParts = meshPartsOf<KFR::EOM::IEOMMeshPartInterface>(*this);
    return KFR::ok;
}

KFRResult Part::getBodies(CAE::IPersistentObjectSequence& bodies)
{
    CAE::IPersistentObjectSequence found;
    if (auto const link = m_geometry.lock(); link != nullptr) {
        for (unsigned const number : m_geomBodies) {
            if (auto const body = link->geometry(number); body != KFR::NULLSP) {
                found.append(KFR::strict_cast<CAE::IPersistentObjectInterface>(body));
            }
        }
    }
    CAE::IMeshBodySequence meshBodies;
    static_cast<void>(getMeshBodies(meshBodies));
    for (auto const& body : std::as_const(meshBodies)) {
        KFRSmartPointer<CAE::IGeomBodyInterface> below;
        auto const object = KFR::loose_cast<CAE::IPersistentObjectInterface>(body);
        if (object != KFR::NULLSP && !body->getGeomBody(below).isOk()) {
            found.append(object);
        }
    }
    bodies = found;
    return KFR::ok;
}

KFRResult Part::getChild(std::string const& name,
                         KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& child)
{
    auto const entity = KFR::loose_cast<appfw::IEntityInterface>(mesh());
    if (entity == KFR::NULLSP || nameOf(*entity) != name) {
        return KFR::notDone;
    }
    child = KFR::strict_cast<KFR::EOM::IEOMObjectInterface>(entity);
    return KFR::ok;
}

KFRResult Part::getInstances(CAE::IInstanceSequence& instances)
{
    collectLiving(m_instances, instances);
    return KFR::ok;
}

KFRResult Part::getInstances(KFR::EOM::IEOMInstanceSequence& instances)
{
    collectLiving(m_instances, instances);
    return KFR::ok;
}

PartInstance::PartInstance(std::string const& name, std::string persistentName,
                           KFRSmartPointer<Part> part, unsigned int typeId, unsigned int number,
                           std::shared_ptr<EntityService> service)
    : ModelObjectOf(std::move(persistentName), KFR::NULLSP, typeId, number, std::move(service)),
      m_part(std::move(part))
{
    declareNodeProperties(*this, name);
}

KFRResult PartInstance::getReferenceObject(KFRSmartPointer<CAE::IPersistentObjectInterface>& object)
{
    object = m_part;
    return KFR::ok;
}

KFRResult PartInstance::getReferenceObject(KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& object)
{
    object = m_part;
    return KFR::ok;
}

KFRResult PartInstance::getPart(KFRIService& part)
{
    part = KFRSmartPointer<KFR::EOM::IEOMPartInterface>(m_part);
    return KFR::ok;
}

Assembly::Assembly(std::string const& name, std::string persistentName, unsigned int typeId,
                   unsigned int number, std::shared_ptr<EntityService> service)
    : ModelObjectOf(std::move(persistentName), KFR::NULLSP, typeId, number, std::move(service))
{
    declareNodeProperties(*this, name);
}

KFRResult Assembly::getReferenceObject(KFRSmartPointer<CAE::IPersistentObjectInterface>& object)
{
    return getPersistentObject(object);
}

KFRResult Assembly::getReferenceObject(KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& object)
{
    object = KFRSmartPointer<KFR::EOM::IEOMObjectInterface>(this);
    return KFR::ok;
}

KFRResult Assembly::getMeshParts(KFR::EOM::IEOMMeshPartSequence& meshParts)
{
    meshParts = {};
    return KFR::ok;
}

KFRResult Assembly::getChild(std::string const& name,
                             KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& child)
{
    for (auto const& node : m_children) {
        if (!model::isDeleted(node) && nameOf(*node) == name) {
            child = KFR::strict_cast<KFR::EOM::IEOMObjectInterface>(node);
            return KFR::ok;
        }
    }
    return KFR::notDone;
}

KFRResult Assembly::getPart(KFRIService&)
{
    return KFR::notDone;
}

}  // namespace vrn::orlo::host::model
