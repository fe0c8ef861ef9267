#include "plugins/modelingplugin/utilities/geometrymesh/geometryaccess.h"

#include "platform/kfr/kfrexception.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

namespace vrn::orlo::plugin::modeling::geometryaccess {

using KFR::NULLSP;

namespace {

/// A service that is there but of another kind throws on its way through ServiceHelper.
template <class I, class Find>
KFRSmartPointer<I> quietly(Find const& find) noexcept
{
    try {
        return KFR::loose_cast<I>(find());
    } catch (KFRException const&) {
        return {};
    }
}

}  // namespace

KFRSmartPointer<gsc::GSCIQueryTool> queryTool() noexcept
{
    return quietly<gsc::GSCIQueryTool>(ServiceHelper::getGSCQueryTool);
}

KFRSmartPointer<gsc::GSCIModifyTool> modifyTool() noexcept
{
    return quietly<gsc::GSCIModifyTool>(ServiceHelper::getGSCModifyTool);
}

KFRSmartPointer<geometry::KFRIGeomCommonService> commonService() noexcept
{
    return quietly<geometry::KFRIGeomCommonService>(ServiceHelper::getGeomCommonService);
}

KFRSmartPointer<geometry::KFRIGeomSession> session() noexcept
{
    auto const service = commonService();
    KFRSmartPointer<geometry::KFRIGeomSession> session;
    if (service != NULLSP) {
        static_cast<void>(service->getSession(session));
    }
    return session;
}

KFRSmartPointer<fem::KFRIFEMeshWrapper> meshWrapper() noexcept
{
    auto const access = quietly<fem::KFRICompAccess>(ServiceHelper::getFEMCompAccess);
    KFRSmartPointer<fem::KFRIFEMeshWrapper> wrapper;
    if (access != NULLSP) {
        static_cast<void>(access->getFEMeshWrapper(wrapper));
    }
    return wrapper;
}

KFRSmartPointer<gsc::KFRIVTKEntity> entity(int number) noexcept
{
    KFRSmartPointer<gsc::KFRIVTKEntity> found;
    if (auto const tool = queryTool(); tool != NULLSP) {
        static_cast<void>(tool->getEntity(number, found));
    }
    return found;
}

}  // namespace vrn::orlo::plugin::modeling::geometryaccess
