/// \file
/// The entries to the geometry server.

#pragma once

#include "host/geometryserver/geometryserver.h"
#include "host/geometryserver/tools.h"
#include "host/kernel/kernel.h"
#include "host/model/geometryservice.h"
#include "platform/geometry/geometryservice.h"
#include "platform/gsc/geometryserver.h"
#include "platform/kfr/kfrserviceobject.h"

#include <memory>
#include <string>
#include <utility>

namespace vrn::orlo::host::geometryserver {

/// The one session, of the geometry server and of the geometry plug-in alike: the same tools, and
/// the objects behind the server's numbers.
///
/// Failure    KFR::notDone for what is not there; the tools are there always, and fail when the
///            server has gone.
/// Ownership  Holds the tools, but not the server.
/// Threads    Tools as the server; the objects of entities on the main thread.
class Session final
    : public KFRServiceObjectImpl<plugin::geometry::KFRIGeomSession, gsc::KFRIGSCSession> {
public:
    explicit Session(std::shared_ptr<GeometryServer> const& server);

    KFRResult getQueryTool(KFRSmartPointer<gsc::GSCIQueryTool>& tool) override;
    KFRResult getModifyTool(KFRSmartPointer<gsc::GSCIModifyTool>& tool) override;

    KFRResult getGeometry(int number, KFRSmartPointer<CAE::IGeometryInterface>& geometry) override;
    KFRResult getGeomBody(int number, KFRSmartPointer<CAE::IGeomBodyInterface>& body) override;
    KFRResult getPart(int number, KFRSmartPointer<CAE::IPartInterface>& part) override;
    KFRResult getTypeId(int number, unsigned int& typeId) override;

    std::string getObjectName() override { return "vrn.orlo.host.geometryserver:Session"; }

private:
    std::weak_ptr<GeometryServer> m_server;
    KFRSmartPointer<QueryTool> m_queryTool;
    KFRSmartPointer<ModifyTool> m_modifyTool;
};

/// The service through which the session is found.
class ServerService final : public KFRServiceObjectImpl<gsc::KFRIGSCServer> {
public:
    explicit ServerService(KFRSmartPointer<Session> session) : m_session(std::move(session)) {}

    KFRResult getActiveSession(KFRSmartPointer<gsc::KFRIGSCSession>& session) override;

    std::string getObjectName() override { return "vrn.orlo.host.geometryserver:ServerService"; }

private:
    KFRSmartPointer<Session> m_session;
};

/// Makes the session and has it found: as the kernel's service "getGSCServer", and through
/// `common`. To be called once, before a component is loaded. The server stays its owner's.
KFRSmartPointer<Session> registerGeometryServer(kernel::Kernel& kernel,
                                                std::shared_ptr<GeometryServer> const& server,
                                                model::GeometryCommonService& common);

}  // namespace vrn::orlo::host::geometryserver
