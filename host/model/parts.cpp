#include "host/model/parts.h"

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

void declareNodeProperties(TreeNode& node, std::string const& name)
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

void Part::addInstance(PartInstance& instance)
{
    m_instances.push_back(instance.weakReference());
}

KFRResult Part::getMeshBodies(CAE::IMeshBodySequence& bodies)
{
    bodies = m_meshBodies.all();
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
    : TreeNode(std::move(persistentName), KFR::NULLSP, typeId, number, std::move(service)),
      m_part(std::move(part))
{
    declareNodeProperties(*this, name);
}

KFRResult PartInstance::getReferenceObject(KFRSmartPointer<CAE::IPersistentObjectInterface>& object)
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
    : TreeNode(std::move(persistentName), KFR::NULLSP, typeId, number, std::move(service))
{
    declareNodeProperties(*this, name);
}

KFRResult Assembly::getReferenceObject(KFRSmartPointer<CAE::IPersistentObjectInterface>& object)
{
    return getPersistentObject(object);
}

KFRResult Assembly::getPart(KFRIService&)
{
    return KFR::notDone;
}

}  // namespace vrn::orlo::host::model
