/// \file
/// Objects of the geometry server, the geometry plug-in, the transform plug-in and the shell. Each
/// hands out what the test has put into it, and always with a failing result: nobody is to read it.

#pragma once

#include "platform/geometry/geometryservice.h"
#include "platform/gsc/geometryserver.h"
#include "platform/shell/shell.h"
#include "tests/support/appframefakes.h"
#include "tests/support/silent.h"

namespace vrn::orlo::plugin::modeling::test {

/// A session with tools: `I` is that of the geometry plug-in, silent otherwise, or that of the
/// geometry server.
template <class I>
class FakeToolSession final : public KFRServiceObjectImpl<I> {
public:
    KFRSmartPointer<gsc::GSCIQueryTool> queryTool;
    KFRSmartPointer<gsc::GSCIModifyTool> modifyTool;

    KFRResult getQueryTool(KFRSmartPointer<gsc::GSCIQueryTool>& out) override
    {
        return handOut(queryTool, out);
    }
    KFRResult getModifyTool(KFRSmartPointer<gsc::GSCIModifyTool>& out) override
    {
        return handOut(modifyTool, out);
    }
};

using FakeGeomSession = FakeToolSession<silent::GeomSessionView>;
using FakeGSCSession = FakeToolSession<gsc::KFRIGSCSession>;

class FakeGSCServer final : public KFRServiceObjectImpl<gsc::KFRIGSCServer> {
public:
    KFRSmartPointer<gsc::KFRIGSCSession> session;

    KFRResult getActiveSession(KFRSmartPointer<gsc::KFRIGSCSession>& out) override
    {
        return handOut(session, out);
    }
};

class FakeGSCUtilityFactory final : public KFRServiceObjectImpl<gsc::KFRIGSCUtilityFactory> {
public:
    KFRSmartPointer<gsc::KFRIGSCMath> math;

    KFRResult getMath(KFRSmartPointer<gsc::KFRIGSCMath>& out) override
    {
        return handOut(math, out);
    }
};

class FakeGeomCommonService final : public KFRServiceObjectImpl<silent::GeomCommonServiceView> {
public:
    KFRSmartPointer<geometry::KFRIGeomSession> session;
    KFRIService progress;

    KFRResult getSession(KFRSmartPointer<geometry::KFRIGeomSession>& out) override
    {
        return handOut(session, out);
    }
    KFRResult getProgress(KFRIService& out) override { return handOut(progress, out); }
};

class FakeTransformCommon final : public KFRServiceObjectImpl<appfw::KFRICommonService> {
public:
    KFRIService transform;

    KFRResult getTransformService(KFRIService& out) override { return handOut(transform, out); }
};

class FakeViewportManager final : public KFRServiceObjectImpl<shell::IViewportManager> {
public:
    KFRSmartPointer<shell::IViewport> viewport;

    KFRResult getCurrentViewport(KFRSmartPointer<shell::IViewport>& out) override
    {
        return handOut(viewport, out);
    }
};

class FakeManagers final : public KFRServiceObjectImpl<shell::IGetManagers> {
public:
    KFRSmartPointer<shell::IViewportManager> viewports;

    KFRResult getViewportManager(KFRSmartPointer<shell::IViewportManager>& out) override
    {
        return handOut(viewports, out);
    }
};

}  // namespace vrn::orlo::plugin::modeling::test
