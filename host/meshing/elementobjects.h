/// \file
/// Elements and nodes as objects of the platform.

#pragma once

#include "host/meshing/meshobjects.h"
#include "host/meshing/meshtables.h"
#include "platform/caedata/caedata.h"
#include "platform/kfr/kfrserviceobject.h"

#include <memory>

namespace vrn::orlo::host::meshing {

/// A node. Two of one number are different objects.
///
/// Ownership  Holds the revision of the mesh that it was asked of: a part that is meshed anew does
///            not change it.
/// Cost       Some 60 bytes; for long lists the store is there.
class Node final : public KFRServiceObjectImpl<CAE::INodeInterface> {
public:
    /// \param number  of a node that the mesh has
    Node(std::shared_ptr<MeshTables const> tables, LocalNumber number)
        : m_tables(std::move(tables)), m_number(number)
    {
    }

    KFRResult getId(unsigned long long& id) override;
    KFRResult getNumber(int& number) override;
    KFRResult getLocation(KFRDouble3DPoint& location) override;

private:
    std::shared_ptr<MeshTables const> m_tables;
    LocalNumber m_number;
};

/// An element. Two of one number are different objects.
///
/// Ownership  Holds its mesh body, and the revision of the mesh as Node does.
/// Cost       As Node.
class Element final : public KFRServiceObjectImpl<CAE::IElementInterface> {
public:
    /// \param number  of an element that the mesh has
    Element(std::shared_ptr<MeshTables const> tables, KFRSmartPointer<MeshBody> body,
            LocalNumber number)
        : m_tables(std::move(tables)), m_body(std::move(body)), m_number(number)
    {
    }

    KFRResult getId(unsigned long long& id) override;
    KFRResult getNumber(int& number) override;
    KFRResult getNodeCount(int& count) override;
    /// Fails for a point element, which references cannot name.
    KFRResult getShape(int& shape) override;
    KFRResult getNodes(CAE::INodeSequence& nodes) override;
    /// Fails for a point element, which no mesh holds. The mesh of an element of an earlier
    /// revision may be deleted.
    KFRResult getMesh(KFRSmartPointer<CAE::IMeshInterface>& mesh) override;

private:
    [[nodiscard]] ElementTraits const& traits() const;

    std::shared_ptr<MeshTables const> m_tables;
    KFRSmartPointer<MeshBody> m_body;
    LocalNumber m_number;
};

/// The element of an id in a mesh, as the `flag` of IMeshBodyInterface::getElement() has it.
///
/// \param holder  names the mesh in the failure
/// \return 0, with the failure in `result`, for an element that is not there
[[nodiscard]] LocalNumber findElement(MeshStore const& store, unsigned long long id, bool flag,
                                      std::string const& holder, KFRResult& result);

}  // namespace vrn::orlo::host::meshing
