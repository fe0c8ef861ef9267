/// \file
/// Meshes as objects of the platform.

#pragma once

#include "host/meshing/meshstore.h"
#include "host/meshing/meshtypes.h"
#include "host/model/modelobject.h"
#include "platform/caedata/caedata.h"
#include "platform/kfr/kfrserviceobject.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace vrn::orlo::host::meshing {

class MeshBody;

/// Codes of what a mesh does not have.
enum MeshFailure : int {
    kNoElement = 101,
    kNoMesh = 102,      ///< Of the type, or that holds the element.
    kShapeless = 103,   ///< A point element has no shape.
    kBodyIsGone = 104,  ///< The mesh has outlived its body.
    kNoOwner = 105,     ///< The mesh has no elements of the kind.
};

/// The elements of one dimension of a body.
///
/// Its reference has the part as its service, the display's type for the dimension, and the
/// dimension as its id. Properties: "name" and "visible".
class Mesh final : public model::ModelObjectOf<CAE::IMeshInterface, CAE::IFEMeshInterface> {
public:
    /// \param body  tells the mesh when it goes
    Mesh(MeshBody& body, std::uint8_t dimension, std::shared_ptr<model::EntityService> service);

    CAE::EntityReference getEntityReference() override;
    KFRResult getDimension(unsigned char& dimension) override;
    KFRResult getMeshBody(KFRSmartPointer<CAE::IMeshBodyInterface>& body) override;

    [[nodiscard]] LocalNumber elementCount() const { return m_store->countOf(m_dimension); }
    /// To be called by the body when it goes.
    void leaveBody() noexcept;

private:
    MeshBody* m_body;
    std::shared_ptr<MeshStore const> m_store;
    std::uint8_t m_dimension;
};

/// The mesh of a part. Elements are made as they are asked for.
///
/// Its reference has the part as its service, where it is attached to one. Properties: "name" and
/// "visible".
///
/// Ownership  Holds its meshes; they and its elements hold the body's data, and elements the body.
class MeshBody final : public model::ModelObjectOf<CAE::IMeshBodyInterface> {
public:
    /// \param fileStem  begins the persistent name: "<file stem>/mesh/<part>"
    MeshBody(std::string const& fileStem, std::shared_ptr<MeshStore const> store,
             MeshTypes const& types, std::shared_ptr<model::EntityService> const& service);

    CAE::EntityReference getEntityReference() override;
    /// \param typeId  that of "Simulation.FEM.ContinuousMesh" for all meshes, by ascending
    ///                dimension; that of the display's type for one dimension's
    KFRResult getMeshes(unsigned int typeId, CAE::IMeshSequence& meshes) override;
    KFRResult getElement(unsigned long long id, KFRSmartPointer<CAE::IElementInterface>& element,
                         bool flag) override;

    [[nodiscard]] MeshStore const& store() const noexcept { return *m_store; }
    [[nodiscard]] std::shared_ptr<MeshStore const> const& sharedStore() const noexcept
    {
        return m_store;
    }
    [[nodiscard]] MeshTypes const& types() const noexcept { return m_types; }
    /// Null where the body has no elements of the dimension; always for 0.
    [[nodiscard]] KFRSmartPointer<Mesh> const& meshOf(std::uint8_t dimension) const
    {
        return m_meshes.at(dimension);
    }

private:
    ~MeshBody() override;

    std::shared_ptr<MeshStore const> m_store;
    MeshTypes m_types;
    std::array<KFRSmartPointer<Mesh>, 4> m_meshes;
};

/// An element. Two of one number are different objects.
///
/// Cost       Some 60 bytes; for long lists the store is there.
class Element final : public KFRServiceObjectImpl<CAE::IElementInterface> {
public:
    /// \param number  of an element that the body has
    Element(KFRSmartPointer<MeshBody> body, LocalNumber number);

    KFRResult getId(unsigned long long& id) override;
    KFRResult getNumber(int& number) override;
    KFRResult getNodeCount(int& count) override;
    /// Fails for a point element, which references cannot name.
    KFRResult getShape(int& shape) override;
    /// Fails for a point element, which no mesh holds.
    KFRResult getMesh(KFRSmartPointer<CAE::IMeshInterface>& mesh) override;

private:
    [[nodiscard]] ElementTraits const& traits() const;

    KFRSmartPointer<MeshBody> m_body;
    LocalNumber m_number;
};

}  // namespace vrn::orlo::host::meshing
