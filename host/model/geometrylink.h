/// \file
/// From numbers of geometry to its objects, for those who know no geometry kernel.

#pragma once

#include "platform/caedata/caedata.h"

namespace vrn::orlo::host::model {

/// Finds the objects of a geometry.
///
/// Ownership  Held weakly by whoever asks: a link that has gone means that the geometry has gone.
/// Threads    Main thread.
class GeometryLink {
public:
    GeometryLink() = default;
    GeometryLink(GeometryLink const&) = delete;
    GeometryLink& operator=(GeometryLink const&) = delete;
    virtual ~GeometryLink() = default;

    /// Null for a number that is not there, or no longer.
    [[nodiscard]] virtual KFRSmartPointer<CAE::IGeometryInterface> geometry(unsigned number) = 0;
};

}  // namespace vrn::orlo::host::model
