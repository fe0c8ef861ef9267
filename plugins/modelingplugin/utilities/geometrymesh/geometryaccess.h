/// \file
/// The services behind GeomTopo, without their exceptions. Not installed.

#pragma once

#include "platform/fem/componentaccess.h"
#include "platform/geometry/geometryservice.h"
#include "platform/gsc/geometryserver.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::plugin::modeling::geometryaccess {

/// Each null where the service is missing or of another kind.
[[nodiscard]] KFRSmartPointer<gsc::GSCIQueryTool> queryTool() noexcept;
[[nodiscard]] KFRSmartPointer<gsc::GSCIModifyTool> modifyTool() noexcept;
[[nodiscard]] KFRSmartPointer<geometry::KFRIGeomCommonService> commonService() noexcept;
[[nodiscard]] KFRSmartPointer<geometry::KFRIGeomSession> session() noexcept;
[[nodiscard]] KFRSmartPointer<fem::KFRIFEMeshWrapper> meshWrapper() noexcept;
/// Of the server's number; null for one that is not there.
[[nodiscard]] KFRSmartPointer<gsc::KFRIVTKEntity> entity(int number) noexcept;

/// A view of the server's entity; null where it has none.
template <class View>
[[nodiscard]] KFRSmartPointer<View> viewOf(int number) noexcept
{
    return KFR::loose_cast<View>(entity(number));
}

}  // namespace vrn::orlo::plugin::modeling::geometryaccess
