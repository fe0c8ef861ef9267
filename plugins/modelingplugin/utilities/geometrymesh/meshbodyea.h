/// \file
/// A mesh body and its meshes.

#pragma once

#include "platform/caedata/caedata.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <utility>

namespace vrn::orlo::plugin::modeling {

/// Wraps a mesh body.
///
/// Failure    Empty answers: null, false, 0, no ids. Also for everything about null.
/// Ownership  A value; holds the mesh body.
/// Threads    Main thread.
class MODELING_API MeshBodyEA {
public:
    MeshBodyEA() = default;
    explicit MeshBodyEA(KFRSmartPointer<CAE::IMeshBodyInterface> meshBody)
        : m_meshBody(std::move(meshBody))
    {
    }

    [[nodiscard]] KFRSmartPointer<CAE::IMeshBodyInterface> getIMeshBody() const
    {
        return m_meshBody;
    }
    /// Null for a mesh body without geometry.
    [[nodiscard]] KFRSmartPointer<CAE::IGeomBodyInterface> getIGeomBody() const;

    /// The first continuous mesh of the dimension, deleted and empty ones among them.
    [[nodiscard]] KFRSmartPointer<CAE::IMeshInterface> getContinuousMesh(
        unsigned int dimension) const;
    /// The first that is not deleted and has elements. `mesh` is left alone where there is none.
    bool getValidContinuousMesh(unsigned int dimension,
                                KFRSmartPointer<CAE::IMeshInterface>& mesh) const;

    /// Bit d is set for each dimension d that has a mesh, bit 0 for points.
    [[nodiscard]] unsigned int getDimensionalities() const
    {
        return getDimensionalities(m_meshBody);
    }
    [[nodiscard]] static unsigned int getDimensionalities(
        KFRSmartPointer<CAE::IMeshBodyInterface> const& meshBody);
    /// External ids.
    [[nodiscard]] KFRSequence<unsigned long long> getElementIds() const
    {
        return getElementIds(m_meshBody);
    }
    [[nodiscard]] static KFRSequence<unsigned long long> getElementIds(
        KFRSmartPointer<CAE::IMeshBodyInterface> const& meshBody);

    /// Whether there is a surface mesh that is not deleted and has elements.
    [[nodiscard]] bool has2DMesh() const;
    /// Whether there is no geometry under it.
    [[nodiscard]] bool isPureMesh() const;

private:
    KFRSmartPointer<CAE::IMeshBodyInterface> m_meshBody;
};

}  // namespace vrn::orlo::plugin::modeling
