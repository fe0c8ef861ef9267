#include "host/geometryserver/session.h"

#include "host/geometryserver/entityhandle.h"
#include "host/kernel/servicename.h"

#include <optional>

namespace vrn::orlo::host::geometryserver {

namespace {

template <class I>
std::optional<KFRSmartPointer<I>> ifThere(KFRSmartPointer<I> const& object)
{
    return object != KFR::NULLSP ? std::optional(object) : std::nullopt;
}

}  // namespace

Session::Session(std::shared_ptr<GeometryServer> const& server)
    : m_server(server),
      m_queryTool(KFR::make<QueryTool>(server)),
      m_modifyTool(KFR::make<ModifyTool>(server))
{
}

KFRResult Session::getQueryTool(KFRSmartPointer<gsc::GSCIQueryTool>& tool)
{
    tool = m_queryTool;
    return KFR::ok;
}

KFRResult Session::getModifyTool(KFRSmartPointer<gsc::GSCIModifyTool>& tool)
{
    tool = m_modifyTool;
    return KFR::ok;
}

KFRResult Session::getGeometry(int number, KFRSmartPointer<CAE::IGeometryInterface>& geometry)
{
    return EntityHandle(m_server, number).answer(geometry, [](FoundEntity const& found) {
        return ifThere(found.m_store->object(found.number()));
    });
}

KFRResult Session::getGeomBody(int number, KFRSmartPointer<CAE::IGeomBodyInterface>& body)
{
    return EntityHandle(m_server, number).answer(body, [](FoundEntity const& found) {
        return ifThere(
            KFR::loose_cast<CAE::IGeomBodyInterface>(found.m_store->object(found.number())));
    });
}

KFRResult Session::getPart(int number, KFRSmartPointer<CAE::IPartInterface>& part)
{
    return EntityHandle(m_server, number).answer(part, [](FoundEntity const& found) {
        return ifThere(
            KFR::loose_cast<CAE::IPartInterface>(found.m_store->reference(found.number()).service));
    });
}

KFRResult Session::getTypeId(int number, unsigned int& typeId)
{
    return EntityHandle(m_server, number).answer(typeId, [](FoundEntity const& found) {
        return std::optional(found.m_store->reference(found.number()).typeId);
    });
}

KFRResult ServerService::getActiveSession(KFRSmartPointer<gsc::KFRIGSCSession>& session)
{
    session = m_session;
    return KFR::ok;
}

KFRSmartPointer<Session> registerGeometryServer(kernel::Kernel& kernel,
                                                std::shared_ptr<GeometryServer> const& server,
                                                model::GeometryCommonService& common)
{
    auto const session = KFR::make<Session>(server);
    auto const service = KFR::make<ServerService>(session);
    static_cast<void>(kernel.services().addService(kernel::serviceNameOf("getGSCServer"),
                                                   [service] { return KFRIService(service); }));
    common.setSession(session);
    return session;
}

}  // namespace vrn::orlo::host::geometryserver
