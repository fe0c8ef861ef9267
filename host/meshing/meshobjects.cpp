#include "host/meshing/meshobjects.h"

#include <limits>
#include <utility>

namespace vrn::orlo::host::meshing {

namespace {

/// What the object is reached through: its topmost parent, which is the part.
KFRIService partAbove(CAE::IPersistentObjectInterface& object)
{
    KFRSmartPointer<CAE::IPersistentObjectInterface> above(&object);
    for (KFRSmartPointer<CAE::IPersistentObjectInterface> parent; above->getParent(parent).isOk();
         parent.release()) {
        above = parent;
        if (KFR::loose_cast<CAE::IPartInterface>(above) != KFR::NULLSP) {
            break;
        }
    }
    return above;
}

KFRAny nameValue(std::string const& name)
{
    return KFRAny(icu::UnicodeString::fromUTF8(name));
}

}  // namespace

// --- Mesh --------------------------------------------------------------------------------------

Mesh::Mesh(MeshBody& body, std::uint8_t dimension, std::shared_ptr<model::EntityService> service)
    : ModelObjectOf(body.persistentName() + "/" + std::to_string(dimension) + "D", KFR::NULLSP,
                    body.types().m_displayMesh.at(dimension), dimension, std::move(service)),
      m_body(&body),
      m_store(body.sharedStore()),
      m_dimension(dimension)
{
    attach(&body);
    declareProperty(model::kNameProperty,
                    nameValue(m_store->name() + " " + std::to_string(dimension) + "D"));
    declareProperty("visible", KFRAny(true));
}

CAE::EntityReference Mesh::getEntityReference()
{
    CAE::EntityReference reference = ModelObjectOf::getEntityReference();
    reference.service = partAbove(*this);
    return reference;
}

KFRResult Mesh::getDimension(unsigned char& dimension)
{
    dimension = m_dimension;
    return KFR::ok;
}

KFRResult Mesh::getMeshBody(KFRSmartPointer<CAE::IMeshBodyInterface>& body)
{
    if (m_body == nullptr) {
        return KFRResult(kBodyIsGone)
            .addParam("The mesh body of " + persistentName() + " is gone.");
    }
    body = KFRSmartPointer<MeshBody>(m_body);
    return KFR::ok;
}

void Mesh::leaveBody() noexcept
{
    m_body = nullptr;
    detach();
}

// --- MeshBody ----------------------------------------------------------------------------------

MeshBody::MeshBody(std::string const& fileStem, std::shared_ptr<MeshStore const> store,
                   MeshTypes const& types, std::shared_ptr<model::EntityService> const& service)
    : ModelObjectOf(fileStem + "/mesh/" + store->name(), KFR::NULLSP, types.m_meshBody, 1, service),
      m_store(std::move(store)),
      m_types(types)
{
    declareProperty(model::kNameProperty, nameValue(m_store->name()));
    declareProperty("visible", KFRAny(true));
    for (std::uint8_t dimension = 1; dimension < m_meshes.size(); ++dimension) {
        if (m_store->countOf(dimension) > 0) {
            m_meshes[dimension] = KFR::make<Mesh>(*this, dimension, service);
        }
    }
}

MeshBody::~MeshBody()
{
    for (KFRSmartPointer<Mesh> const& mesh : m_meshes) {
        if (mesh != KFR::NULLSP) {
            mesh->leaveBody();
        }
    }
}

CAE::EntityReference MeshBody::getEntityReference()
{
    CAE::EntityReference reference = ModelObjectOf::getEntityReference();
    reference.service = partAbove(*this);
    return reference;
}

KFRResult MeshBody::getMeshes(unsigned int typeId, CAE::IMeshSequence& meshes)
{
    CAE::IMeshSequence found;
    for (std::uint8_t dimension = 1; dimension < m_meshes.size(); ++dimension) {
        bool const isWanted =
            typeId == m_types.m_continuousMesh || typeId == m_types.m_displayMesh[dimension];
        if (isWanted && m_meshes[dimension] != KFR::NULLSP) {
            found.append(KFRSmartPointer<CAE::IMeshInterface>(m_meshes[dimension]));
        }
    }
    if (found.empty()) {
        return KFRResult(kNoMesh).addParam("Mesh body " + persistentName() +
                                           " has no mesh of type " + std::to_string(typeId) + ".");
    }
    meshes = found;
    return KFR::ok;
}

KFRResult MeshBody::getElement(unsigned long long id,
                               KFRSmartPointer<CAE::IElementInterface>& element, bool flag)
{
    Numbering const& elements = m_store->elements();
    constexpr auto kLargest =
        static_cast<unsigned long long>(std::numeric_limits<ExternalId>::max());
    LocalNumber number = 0;
    if (flag) {
        number = id <= kLargest ? elements.numberOf(static_cast<ExternalId>(id)) : 0;
    } else if (id <= elements.size()) {
        number = static_cast<LocalNumber>(id);
    }
    if (number == 0) {
        return KFRResult(kNoElement)
            .addParam("Mesh body " + persistentName() + " has no element with the " +
                      (flag ? "id " : "number ") + std::to_string(id) + ".");
    }
    element = KFR::make<Element>(KFRSmartPointer<MeshBody>(this), number);
    return KFR::ok;
}

// --- Element -----------------------------------------------------------------------------------

Element::Element(KFRSmartPointer<MeshBody> body, LocalNumber number)
    : m_body(std::move(body)), m_number(number)
{
}

ElementTraits const& Element::traits() const
{
    return traitsOf(m_body->store().typeOf(m_number));
}

KFRResult Element::getId(unsigned long long& id)
{
    id = static_cast<unsigned long long>(m_body->store().elements().idOf(m_number));
    return KFR::ok;
}

KFRResult Element::getNumber(int& number)
{
    number = static_cast<int>(m_number);
    return KFR::ok;
}

KFRResult Element::getNodeCount(int& count)
{
    count = traits().m_nodeCount;
    return KFR::ok;
}

KFRResult Element::getShape(int& shape)
{
    if (traits().m_shape == kNoShape) {
        return kShapeless;
    }
    shape = traits().m_shape;
    return KFR::ok;
}

KFRResult Element::getMesh(KFRSmartPointer<CAE::IMeshInterface>& mesh)
{
    KFRSmartPointer<Mesh> const& holder = m_body->meshOf(traits().m_dimension);
    if (holder == KFR::NULLSP) {
        return kNoMesh;
    }
    mesh = holder;
    return KFR::ok;
}

}  // namespace vrn::orlo::host::meshing
