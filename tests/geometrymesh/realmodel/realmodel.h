/// \file
/// The library on the services of the real host, with models of real shapes and their meshes.

#pragma once

#include "apps/orlo/session.h"
#include "host/display/camera.h"
#include "host/geometry/modelbuilder.h"
#include "host/geometry/shapestore.h"
#include "host/meshing/meshtypes.h"
#include "host/modelspace/modelmesher.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/geometrymesh/geomtopo.h"
#include "tests/support/shareddata.h"
#include "tests/support/temporaryfolder.h"

#include <gmock/gmock.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <stdlib.h>  // NOLINT: setenv is POSIX's

#include <BRep_Builder.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakePolygon.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <gp_Pln.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_CompSolid.hxx>

namespace vrn::orlo::plugin::modeling {

inline void PrintTo(GeomTopo const& topo, std::ostream* out)
{
    *out << '#' << topo.getVTKId();
}

}  // namespace vrn::orlo::plugin::modeling

namespace vrn::orlo::plugin::modeling::test {

using host::geometry::EntityClass;
using host::modelspace::MeshRequest;
using Ids = KFRSequence<unsigned long long>;
using Point = KFRDouble3DPoint;
using Topos = std::vector<GeomTopo>;

inline constexpr Point kUnset{7, 8, 9};

MATCHER_P2(IsWithin, tolerance, point, "")
{
    return std::hypot(arg.x - point.x, arg.y - point.y, arg.z - point.z) < tolerance;
}

inline double dot(Point const& a, Point const& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline TopoDS_Shape cube(double x = 0.0)
{
    return BRepPrimAPI_MakeBox(gp_Pnt(x, 0, 0), 10.0, 10.0, 10.0).Shape();
}
/// About z, of radius 5 from 0 to 12.
inline TopoDS_Shape cylinder()
{
    return BRepPrimAPI_MakeCylinder(5.0, 12.0).Shape();
}
inline TopoDS_Shape sheet()
{
    return BRepBuilderAPI_MakeFace(gp_Pln(), 0.0, 8.0, 0.0, 6.0).Shape();
}
inline TopoDS_Shape wire()
{
    return BRepBuilderAPI_MakePolygon(gp_Pnt(0, 0, 0), gp_Pnt(9, 0, 0), gp_Pnt(9, 9, 0)).Shape();
}
inline TopoDS_Shape pointBody()
{
    return BRepBuilderAPI_MakeVertex(gp_Pnt(1, 2, 3)).Shape();
}
/// One body of two volumes.
inline TopoDS_Shape twoVolumes()
{
    TopoDS_CompSolid both;
    BRep_Builder builder;
    builder.MakeCompSolid(both);
    builder.Add(both, cube());
    builder.Add(both, cube(10));
    return both;
}

/// One run of the application for all tests of the program: ids of types differ from run to run, and
/// the library keeps some for as long as the process lives.
class Application final : public ::testing::Environment {
public:
    void SetUp() override
    {
        // The application's resources, wherever the test program lies.
        setenv("ORLO_RESOURCES", ORLO_RESOURCES_FOLDER, 1);
        app::SessionOptions options;
        options.m_logFolder = m_folder.path();
        s_session = std::make_unique<app::Session>(options);
    }
    void TearDown() override { s_session.reset(); }

    static inline std::unique_ptr<app::Session> s_session;

private:
    vrn::orlo::test::TemporaryFolder m_folder;
};

inline ::testing::Environment* const kApplication = [] {
    GTEST_FLAG_SET(recreate_environments_when_repeating, false);
    return ::testing::AddGlobalTestEnvironment(new Application);  // gtest's from here
}();

/// A model in the application.
template <class Base = ::testing::Test>
class WithRealModel : public Base {
protected:
    struct Piece {
        TopoDS_Shape m_shape;
        EntityClass m_class = EntityClass::volume;  ///< Of the body; a volume: as the shape says.
    };

    ~WithRealModel() override
    {
        EXPECT_TRUE(session().application().processor().history().clear().isOk());
    }

    /// One part of each shape, in two places.
    void open(std::vector<Piece> const& pieces)
    {
        host::geometry::GeometryModel geometry;
        geometry.m_sourceFile = "pieces.step";
        for (auto const& [shape, entityClass] : pieces) {
            std::string const name = "piece" + std::to_string(geometry.m_parts.size());
            auto const bodies = entityClass == EntityClass::volume
                                    ? host::geometry::bodiesOf(shape)
                                    : std::vector{host::geometry::BodyShape{shape, entityClass}};
            unsigned const part = addPart(geometry, name, shape, bodies);
            for (char const* const place : {"", "again"}) {
                auto& root = geometry.m_roots.emplace_back();
                root.m_name = name + place;
                root.m_part = static_cast<int>(part);
            }
        }
        sumOverInstances(geometry);
        open(std::move(geometry));
    }
    void open(host::geometry::GeometryModel geometry)
    {
        m_model = session().space().open(std::move(geometry));
    }

    std::vector<host::modelspace::PartMeshReport> mesh(MeshRequest const& request)
    {
        auto& application = session().application();
        return meshModel(*m_model, request,
                         host::meshing::MeshTypes(session().kernel().typeRegistry()),
                         application.entityService(), &application.processor().history());
    }
    std::vector<host::modelspace::PartMeshReport> mesh(double size, int order = 1,
                                                       bool faces = false)
    {
        MeshRequest request;
        request.m_options.m_size = size;
        request.m_options.m_order = order;
        request.m_options.m_meshFaces = faces;
        return mesh(request);
    }

    [[nodiscard]] Topos all(EntityClass entityClass, std::size_t part = 0) const
    {
        Topos found;
        for (auto const& entity : m_model->geometry().entitiesOf(part)) {
            if (entity.m_class == entityClass) {
                found.emplace_back(static_cast<int>(entity.m_number));
            }
        }
        return found;
    }
    [[nodiscard]] GeomTopo body(std::size_t part = 0) const
    {
        return static_cast<int>(m_model->geometry().entitiesOf(part).front().m_number);
    }
    /// The face, edge or vertex whose middle is there.
    [[nodiscard]] GeomTopo at(EntityClass entityClass, Point const& middle,
                              std::size_t part = 0) const
    {
        Topos const candidates = all(entityClass, part);
        for (GeomTopo const& topo : candidates) {
            Point point;
            if (topo.getMidPoint(point) &&
                std::hypot(point.x - middle.x, point.y - middle.y, point.z - middle.z) < 1e-6) {
                return topo;
            }
        }
        ADD_FAILURE() << "nothing has its middle at " << middle.x << ' ' << middle.y << ' '
                      << middle.z;
        return {};
    }
    /// The first place of a part, as picks have it.
    [[nodiscard]] KFRIService instance(std::size_t part = 0) const
    {
        CAE::IInstanceSequence instances;
        EXPECT_TRUE(m_model->parts()[part]->getInstances(instances).isOk());
        return std::as_const(instances).at(0);
    }
    [[nodiscard]] static app::Session& session() { return *Application::s_session; }
    [[nodiscard]] host::model::Model& model() const { return *m_model; }
    /// The model, which stays open beside the next one.
    [[nodiscard]] std::unique_ptr<host::model::Model> take() { return std::move(m_model); }

private:
    std::unique_ptr<host::model::Model> m_model;
};

using RealModel = WithRealModel<>;
using RealAssembly = WithRealModel<vrn::orlo::test::WithSharedData>;

}  // namespace vrn::orlo::plugin::modeling::test
