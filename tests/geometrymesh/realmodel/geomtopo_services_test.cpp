// Every operation of GeomTopo: with all that it needs, without one service or the other, and about
// entities that are not there.

#include "host/kernel/servicename.h"
#include "platform/servicecaches/servicecachemodelingplugin.h"
#include "tests/geometrymesh/realmodel/realmodel.h"
#include "tests/support/fakeservices.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace vrn::orlo::plugin::modeling::test {
namespace {

using ::testing::IsEmpty;

class Operations : public RealModel {
protected:
    /// Asks for something that is there, and says whether there was an answer.
    struct Operation {
        char const* name;
        std::vector<EntityClass> of;
        char const* needs;  ///< g: geometry plug-in, q: query tool, m: FE plug-in, v: viewport
        std::function<bool(GeomTopo const&)> answers;
    };

    template <class Ask>
    static bool writes(Ask const& ask)
    {
        Point point = kUnset;
        bool const isDone = ask(point);
        EXPECT_EQ(isDone, point != kUnset);
        return isDone;
    }
    /// At the pixel of a point of the entity.
    static bool isPicked(GeomTopo const& topo, host::display::Camera const& camera)
    {
        Point middle{5, 0, 12};
        static_cast<void>(topo.getMidPoint(middle));
        auto const pixel = camera.modelToScreen({middle.x, middle.y, middle.z});
        return writes([&](Point& point) {
            return topo
                .getNearestPoint(static_cast<float>(pixel->at(0)), static_cast<float>(pixel->at(1)),
                                 point)
                .isOk();
        });
    }

    Operations()
    {
        open({{cylinder()}, {sheet()}, {wire()}, {pointBody()}});
        EXPECT_EQ(mesh(4.0)[2].m_nodes, 7U);
        using enum EntityClass;
        auto const camera = session().application().viewport().camera();
        using T = GeomTopo;
        // clang-format off
        m_operations = {
            {"body dimension", {solidBody},  "q", [](T t) { return t.tryGetBodyDimension() != -1; }},
            {"body type",      {vertex},     "q", [](T t) { return t.tryGetBodyType() != -1; }},
            {"is body",        {wireBody},   "q", [](T t) { return t.isBody() || t.is1DBody(); }},
            {"is acorn",       {pointBody},  "q", [](T t) { return t.isAcornBody(); }},
            {"is sheet",       {sheetBody},  "q", [](T t) { return t.isSheetBody() && t.is2DBody(); }},
            {"is region",      {volume},     "q", [](T t) { return t.isRegion(); }},
            {"is face",        {face},       "q", [](T t) { return t.isFace(); }},
            {"is edge",        {edge},       "q", [](T t) { return t.isEdge(); }},
            {"is valid",       {face},       "q", [](T t) { return t.isValidInGSC(); }},
            {"is straight",    {edge},       "q", [](T t) { return t.isStraingtLine(); }},
            {"is visible",     {face},       "g", [](T t) { return t.isVisible(); }},
            {"child regions",  {solidBody},  "q", [](T t) { return !t.getChildRegions().empty(); }},
            {"child faces",    {volume},     "q", [](T t) { return !t.getChildFaces().empty(); }},
            {"child edges",    {face},       "q", [](T t) { return !t.getChildEdges().empty(); }},
            {"child vertices", {edge},       "q", [](T t) { return !t.getChildVertices().empty(); }},
            {"parent regions", {face},       "q", [](T t) { return !t.getParentRegions().empty(); }},
            {"parent faces",   {edge},       "q", [](T t) { return !t.getParentFaces().empty(); }},
            {"parent edges",   {vertex},     "q", [](T t) { return !t.getParentEdges().empty(); }},
            {"parent body",    {face},       "q", [](T t) { return t.getParentBody() != T(); }},
            {"geometry",       {edge},       "g", [](T t) { return t.getIGeometry() != KFR::NULLSP; }},
            {"geometry (Ex)",  {edge},       "g", [](T t) { return t.getIGeometryEx() != KFR::NULLSP; }},
            {"body object",    {solidBody},  "g", [](T t) { return t.getIGeomBody() != KFR::NULLSP; }},
            {"body of a face", {face},       "gq", [](T t) { return t.getIGeomBodyEx() != KFR::NULLSP; }},
            {"part",           {vertex},     "g", [](T t) { return t.getIPart() != KFR::NULLSP; }},
            {"entity",         {face},       "g", [](T t) { return t.getIEntity() != KFR::NULLSP; }},
            {"type id",        {volume},     "g", [](T t) { return t.getTypeId() != 0; }},
            {"geometries",     {face},       "g", [](T t) { return !t.getAuxGeometries().empty(); }},
            {"area",           {face},       "q", [](T t) { return t.getArea() > 0.0; }},
            {"length",         {edge},       "q", [](T t) { return t.getLength() > 0.0; }},
            {"periodic",       {face},       "q", [](T t) { return t.getPeriodic(); }},
            {"periodic curve", {edge},       "q", [](T t) { return t.getPeriodic(); }},
            {"middle",         {face, edge, vertex}, "q", [](T t) { return writes([&](Point& p) { return t.getMidPoint(p); }); }},
            {"vertex",         {vertex},     "q", [](T t) { return writes([&](Point& p) { return t.getPointOfVertex(p); }); }},
            {"ends",           {edge},       "q", [](T t) { Point a; return writes([&](Point& p) { return t.getEndPointsOfEdge(a, p); }); }},
            {"normal",         {face},       "q", [](T t) { return writes([&](Point& p) { return t.getNormal({9, 1, 1}, p); }); }},
            {"projection",     {face, edge}, "q", [](T t) { return writes([&](Point& p) { return t.getProjectPoint({9, 1, 1}, p); }); }},
            {"nearest of all", {face},       "q", [](T t) { Point n; return writes([&](Point& p) { return T::getNearestPointAndNormal({9, 1, 1}, {t}, p, n); }); }},
            {"seed points",    {face, edge, vertex}, "q", [](T t) { KFRDouble3DPointSequence all; return t.getSeedPoints(all) && !all.empty(); }},
            {"close to face",  {face},       "q", [](T t) { GSCPointStruct p; return T::movePointCloseToFace(p, {0, 0, 1}, t.getVTKId()); }},
            {"pixel",          {face, edge}, "qv", [camera](T t) { return isPicked(t, camera); }},
            {"pixel, vertex",  {vertex},     "q", [camera](T t) { return isPicked(t, camera); }},
            {"mesh body",      {face},       "gq", [](T t) { return t.getIMeshBody() != KFR::NULLSP; }},
            {"1D mesh",        {wireBody},   "m", [](T t) { return t.get1DConMesh() != KFR::NULLSP; }},
            {"2D mesh",        {sheetBody},  "m", [](T t) { return t.has2DMesh() && t.get2DConMesh() != KFR::NULLSP; }},
            {"3D mesh",        {solidBody},  "m", [](T t) { return t.has3DMesh() && t.get3DConMesh() != KFR::NULLSP; }},
            {"mesh",           {solidBody, volume}, "m", [](T t) { return t.hasMesh() && t.getMesh() != KFR::NULLSP; }},
            {"sub-mesh",       {volume},     "m", [](T t) { return t.getSubMesh() != KFR::NULLSP; }},
            {"elements",       {volume},     "m", [](T t) { return !t.getElementIds().empty(); }},
            {"all elements",   {solidBody},  "mq", [](T t) { return !t.getElementIds().empty(); }},
            {"nodes",          {face, vertex}, "m", [](T t) { return !t.getNodes().empty(); }},
            {"is meshed",      {face},       "g", [](T t) { return t.isMeshed(); }},
            {"is full meshed", {volume},     "m", [](T t) { return t.isFullMeshed(); }},
            {"all meshes",     {face},       "gq", [](T t) { return !t.getAllGeometryRefMesh().empty(); }},
            {"own meshes",     {volume},     "g", [](T t) { return !t.getIGeometryRefMesh().empty(); }},
            {"meshes around",  {solidBody},  "gq", [](T t) { return !t.getAuxMeshes().empty(); }},
        };
        // clang-format on
    }

    /// Whether an entity of each class has an answer.
    bool answers(Operation const& operation) const
    {
        return std::all_of(operation.of.begin(), operation.of.end(), [&](EntityClass kind) {
            bool answers = false;
            for (std::size_t part = 0; part < model().parts().size(); ++part) {
                Topos const topos = all(kind, part);
                for (GeomTopo const& topo : topos) {
                    answers = operation.answers(topo) || answers;
                }
            }
            return answers;
        });
    }

    std::vector<Operation> m_operations;
};

TEST_F(Operations, SaySoMuchOfWhatIsThereAndNothingWithoutTheirServices)
{
    using host::kernel::serviceNameOf;
    char const* const plugin = serviceNameOf("getGeomCommonService");
    char const* const server = serviceNameOf("getGSCServer");
    char const* const fem = serviceNameOf("getFEMCompAccess");
    char const* const display = serviceNameOf("getDisplayDataManager");
    struct {
        char const* name;
        std::vector<char const*> missing;
        std::string dead;
    } const rows[] = {
        {"all there", {}, ""},
        {"no geometry plug-in, but the server's tools", {plugin}, "g"},
        {"no geometry server, but the plug-in's tools", {server}, ""},
        {"no geometry", {plugin, server}, "gq"},
        {"no FE plug-in", {fem}, "m"},
        {"no display", {display}, "v"},
    };
    // The host's services by way of a registry that gives them back.
    auto const services = KFR::make<FakeServices>();
    KFR::Framework::KFRIServiceAccess* const access =
        std::exchange(ServiceCacheModelingPlugin::kfrServiceAccess_, services.get());
    for (bool const isOfAnotherKind : {false, true}) {
        for (auto const& [name, missing, dead] : rows) {
            for (char const* const service : {plugin, server, fem, display}) {
                services->put(service, access->getService(service, ""));
            }
            for (char const* const service : missing) {
                isOfAnotherKind ? static_cast<void>(services->putStranger(service))
                                : services->remove(service);
            }
            ServiceHelper::releaseServices();
            for (Operation const& operation : m_operations) {
                SCOPED_TRACE(std::string(name) + ": " + operation.name);
                std::string const needs = operation.needs;
                EXPECT_EQ(answers(operation), needs.find_first_of(dead) == std::string::npos);
            }
        }
    }
    ServiceCacheModelingPlugin::kfrServiceAccess_ = access;
    ServiceHelper::releaseServices();
}

TEST_F(Operations, SayNothingOfNumbersThatNobodyHas)
{
    for (int const number : {0, -1, 999999, std::numeric_limits<int>::max()}) {
        for (Operation const& operation : m_operations) {
            EXPECT_FALSE(operation.answers(number)) << operation.name << " of " << number;
        }
        GeomTopo const nobody(number);
        EXPECT_FALSE(nobody.isFullMeshed());
        EXPECT_THAT(nobody.getSubEdgeEntities(), IsEmpty());
        EXPECT_THAT(nobody.getChildHardPoints(), IsEmpty());
    }
    EXPECT_EQ(GeomTopo(KFRSmartPointer<CAE::IGeometryInterface>()), GeomTopo());
    EXPECT_EQ(GeomTopo(KFRSmartPointer<CAE::IGeomBodyInterface>()), GeomTopo());
    EXPECT_LT(GeomTopo(-1), GeomTopo(0));
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling::test
