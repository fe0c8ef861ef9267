/// \file
/// Geometry server: entities and their views, curves and surfaces.
///
/// Units      Model length units, in coordinates of the part.
/// Failure    What an entity does not have, and what the kernel fails on: a failure, with the last
///            arguments as they were.

#pragma once

#include "platform/caedata/caedata.h"
#include "platform/kfr/kfrrecords.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::gsc {

struct GSCPointStruct {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    friend bool operator==(GSCPointStruct const&, GSCPointStruct const&) = default;
};

struct GSCVectorStruct {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    friend bool operator==(GSCVectorStruct const&, GSCVectorStruct const&) = default;
};

using GSCPointList = KFRSequence<GSCPointStruct>;

/// Where the kernel keeps an entity.
struct GSCKernelTag {
    int partition = 0;  ///< The part, from 0.
    int tag = 0;        ///< Number among the entities of its kind in the part, from 1.

    friend bool operator==(GSCKernelTag const&, GSCKernelTag const&) = default;
};

/// An entity of the server, or a temporary one. The object answers the views of its kind as well.
class KFRIVTKEntity : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIVTKEntity")

    virtual KFRResult getNumber(int& number) = 0;
    /// Fails for a temporary entity, which the kernel does not keep.
    virtual KFRResult getKernelTag(GSCKernelTag& tag) = 0;
    /// Whether the entity is left out of what follows, such as meshing.
    virtual KFRResult isSuppressed(bool& suppressed) = 0;
};

class KFRIVTKFace : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIVTKFace")

    virtual KFRResult getArea(double& area) = 0;
    /// Whether the surface closes on itself over the face.
    virtual KFRResult isPeriodic(bool& periodic) = 0;
    /// The nearest point of the face.
    virtual KFRResult getProjection(GSCPointStruct const& point, GSCPointStruct& projection) = 0;
    /// The unit normal out of the body at the nearest point of the face.
    virtual KFRResult getNormal(GSCPointStruct const& point, GSCVectorStruct& normal) = 0;
    virtual KFRResult getMidPoint(GSCPointStruct& point) = 0;
    /// A few points spread over the face.
    virtual KFRResult getSeedPoints(GSCPointList& points) = 0;
};

class KFRIVTKCurve : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIVTKCurve")

    virtual KFRResult getLength(double& length) = 0;
    /// Whether the curve closes on itself.
    virtual KFRResult isPeriodic(bool& periodic) = 0;
    virtual KFRResult isStraight(bool& straight) = 0;
    /// The point in the middle of the parameters.
    virtual KFRResult getMidPoint(GSCPointStruct& point) = 0;
    /// The geometries that lie on the curve: the edge, and what it was split from or into.
    virtual KFRResult getGeometries(CAE::IGeometrySequence& geometries) = 0;
};

/// An edge is a curve as well.
class KFRIVTKEdge : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIVTKEdge")

    /// The same point twice for a closed edge.
    virtual KFRResult getEndPoints(GSCPointStruct& start, GSCPointStruct& end) = 0;
    /// The nearest point of the edge.
    virtual KFRResult getProjection(GSCPointStruct const& point, GSCPointStruct& projection) = 0;
    /// Whether a point lies on the edge, ends included.
    virtual KFRResult contains(GSCPointStruct const& point, bool& contained) = 0;
};

class KFRIVTKVertex : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIVTKVertex")

    virtual KFRResult getPoint(GSCPointStruct& point) = 0;
};

/// An entity that may stand for several of the kernel's.
class KFRIVTKVirtuable : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIVTKVirtuable")

    virtual KFRResult isVirtual(bool& isVirtual) = 0;
};

/// An edge as the polyline that displays it.
class KFRIGSCTessellationEdge : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIGSCTessellationEdge")

    virtual KFRResult getPoints(GSCPointList& points) = 0;
};

/// The curve of an edge.
class GSCICurve : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.GSCICurve")

    virtual KFRResult closestParameter(GSCPointStruct const& point, double& parameter) = 0;
    /// Unit vectors. Normal and binormal are zero where the curve is straight.
    virtual KFRResult evaluate(double parameter, GSCVectorStruct& tangent, GSCVectorStruct& normal,
                               GSCVectorStruct& binormal) = 0;
};

/// Parameters of a place on a surface.
struct GSCSurfaceParameters {
    double u = 0.0;
    double v = 0.0;
};

/// The surface of a face.
class GSCISurface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.GSCISurface")

    virtual KFRResult closestParameters(GSCPointStruct const& point,
                                        GSCSurfaceParameters& parameters) = 0;
    /// Unit vectors.
    virtual KFRResult evaluate(GSCSurfaceParameters const& parameters, GSCVectorStruct& normal,
                               GSCVectorStruct& uDirection, GSCVectorStruct& vDirection) = 0;
};

}  // namespace vrn::orlo::gsc
