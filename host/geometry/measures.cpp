#include "host/geometry/measures.h"

#include <cmath>

#include <BRep_Tool.hxx>
#include <BRepGProp.hxx>
#include <GProp_GProps.hxx>
#include <Standard_Failure.hxx>
#include <TopoDS.hxx>

namespace vrn::orlo::host::geometry {

double measureOf(TopoDS_Shape const& shape)
{
    try {
        GProp_GProps properties;
        switch (shape.ShapeType()) {
            case TopAbs_SOLID:
                BRepGProp::VolumeProperties(shape, properties);
                break;
            case TopAbs_FACE:
                BRepGProp::SurfaceProperties(shape, properties);
                break;
            case TopAbs_EDGE:
                if (BRep_Tool::Degenerated(TopoDS::Edge(shape))) {
                    return 0.0;
                }
                BRepGProp::LinearProperties(shape, properties);
                break;
            default:
                return 0.0;
        }
        double const measure = std::abs(properties.Mass());
        return std::isfinite(measure) ? measure : 0.0;
    } catch (Standard_Failure const&) {
        return 0.0;
    }
}

}  // namespace vrn::orlo::host::geometry
