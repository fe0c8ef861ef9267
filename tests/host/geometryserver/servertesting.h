/// \file
/// Models that are open in a geometry server.

#pragma once

#include "host/geometry/modelbuilder.h"
#include "host/geometry/shapestore.h"
#include "host/geometryserver/geometryserver.h"
#include "host/geometryserver/session.h"
#include "host/kernel/typeregistry.h"
#include "host/model/model.h"

#include <gmock/gmock.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <BRepPrimAPI_MakeBox.hxx>
#include <TopoDS_Shape.hxx>

namespace vrn::orlo::host::geometryserver {

using geometry::EntityClass;
using Entity = KFRSmartPointer<gsc::KFRIVTKEntity>;

/// A value that nobody answers, to see what is left as it was.
inline constexpr gsc::GSCPointStruct kUntouched{9.0, 9.0, 9.0};

/// One part with the shape.
inline geometry::GeometryModel modelOf(std::string const& name, TopoDS_Shape const& shape)
{
    geometry::GeometryModel model;
    model.m_sourceFile = name;
    geometry::addPart(model, name, shape, geometry::bodiesOf(shape));
    model.m_roots.emplace_back().m_part = 0;
    return model;
}

inline geometry::GeometryModel boxModel(std::string const& name)
{
    return modelOf(name, BRepPrimAPI_MakeBox(2.0, 3.0, 4.0).Shape());
}

template <class Base = ::testing::Test>
class WithServer : public Base {
protected:
    WithServer()
    {
        m_session->getQueryTool(m_query);
        m_session->getModifyTool(m_modify);
    }

    std::unique_ptr<model::Model> open(geometry::GeometryModel geometry)
    {
        geometry.numberFrom(m_server->takeNumbers(geometry.m_entities.size()));
        auto model = std::make_unique<model::Model>(std::move(geometry), *m_types);
        m_server->open(model->geometryStore());
        return model;
    }

    [[nodiscard]] static std::vector<int> numbersOf(model::Model const& model,
                                                    EntityClass entityClass)
    {
        std::vector<int> numbers;
        for (geometry::Entity const& entity : model.geometry().m_entities) {
            if (entity.m_class == entityClass) {
                numbers.push_back(static_cast<int>(entity.m_number));
            }
        }
        return numbers;
    }
    [[nodiscard]] Entity entity(int number)
    {
        Entity entity;
        EXPECT_TRUE(m_query->getEntity(number, entity).isOk()) << number;
        return entity;
    }
    [[nodiscard]] bool exists(int number)
    {
        int entityClass = 0;
        return m_query->getClass(number, entityClass).isOk();
    }
    [[nodiscard]] std::vector<int> children(int number, int entityClass)
    {
        KFRSequence<int> found{-1};
        EXPECT_TRUE(m_query->getChildren(number, entityClass, found).isOk()) << number;
        return {std::as_const(found).begin(), std::as_const(found).end()};
    }
    [[nodiscard]] std::vector<int> parents(int number, int entityClass)
    {
        KFRSequence<int> found{-1};
        EXPECT_TRUE(m_query->getParents(number, entityClass, found).isOk()) << number;
        return {std::as_const(found).begin(), std::as_const(found).end()};
    }

    KFRSmartPointer<kernel::TypeRegistry> m_types = KFR::make<kernel::TypeRegistry>();
    std::shared_ptr<GeometryServer> m_server = std::make_shared<GeometryServer>();
    KFRSmartPointer<Session> m_session = KFR::make<Session>(m_server);
    KFRSmartPointer<gsc::GSCIQueryTool> m_query;
    KFRSmartPointer<gsc::GSCIModifyTool> m_modify;
};

MATCHER_P(IsNearRecord, expected, "")
{
    return std::abs(arg.x - expected.x) < 1e-6 && std::abs(arg.y - expected.y) < 1e-6 &&
           std::abs(arg.z - expected.z) < 1e-6;
}

}  // namespace vrn::orlo::host::geometryserver
