/// \file
/// Geometry server: sessions and their tools.

#pragma once

#include "platform/gsc/geometryentities.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::gsc {

/// Class numbers of entities; 7 to 15 are bodies. As an argument to queries for parents, `body`
/// stands for any of them.
enum GSCEntityClass : int {
    kBodyOfAnyClass = 6,
    kVolumeClass = 16,
    kFaceClass = 18,
    kEdgeClass = 21,
    kVertexClass = 22,
    kHardPointClass = 23,
    kSubEdgeClass = 82,
};

/// Reads entities of the geometry server. Numbers are the server's: above 0, each given once.
///
/// Failure    A number or an entity that is not there: a failure, with the last arguments as they
///            were. An entity without children or parents of the class is no failure.
class GSCIQueryTool : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.GSCIQueryTool")

    virtual KFRResult getEntity(int number, KFRSmartPointer<KFRIVTKEntity>& entity) = 0;
    virtual KFRResult getClass(int number, int& entityClass) = 0;
    /// Numbers of the entities below, directly or not, of a class; ascending, each once.
    virtual KFRResult getChildren(int number, int entityClass, KFRSequence<int>& children) = 0;
    /// Numbers of the entities above.
    virtual KFRResult getParents(int number, int entityClass, KFRSequence<int>& parents) = 0;
    /// Two corners of the upright box around the entity.
    virtual KFRResult getBoundingBox(int number, GSCPointStruct& low, GSCPointStruct& high) = 0;
    virtual KFRResult getCurve(KFRSmartPointer<KFRIVTKEntity> const& entity,
                               KFRSmartPointer<GSCICurve>& curve) = 0;
    virtual KFRResult getSurface(KFRSmartPointer<KFRIVTKEntity> const& entity,
                                 KFRSmartPointer<GSCISurface>& surface) = 0;
    /// The points of an edge and of a temporary line that are nearest to each other.
    virtual KFRResult getLeastDistance(KFRSmartPointer<KFRIVTKEntity> const& edge,
                                       KFRSmartPointer<KFRIVTKEntity> const& line,
                                       GSCPointStruct& onEdge, GSCPointStruct& onLine) = 0;
    /// Where a temporary line meets a face, along the line; nowhere is no failure.
    virtual KFRResult getIntersections(KFRSmartPointer<KFRIVTKEntity> const& line,
                                       KFRSmartPointer<KFRIVTKEntity> const& face,
                                       GSCPointList& points) = 0;
};

/// Makes and deletes temporary entities, which have numbers of the server while they are there.
class GSCIModifyTool : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.GSCIModifyTool")

    /// An endless straight line.
    virtual KFRResult makeLine(GSCPointStruct const& origin, GSCVectorStruct const& direction,
                               KFRSmartPointer<KFRIVTKEntity>& line) = 0;
    /// The same for use with one face only.
    virtual KFRResult makeLineForFace(GSCPointStruct const& origin,
                                      GSCVectorStruct const& direction,
                                      KFRSmartPointer<KFRIVTKEntity> const& face,
                                      KFRSmartPointer<KFRIVTKEntity>& line) = 0;
    /// Fails for what is no temporary entity.
    virtual KFRResult deleteEntity(KFRSmartPointer<KFRIVTKEntity> const& entity) = 0;
};

class KFRIGSCSession : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIGSCSession")

    virtual KFRResult getQueryTool(KFRSmartPointer<GSCIQueryTool>& tool) = 0;
    virtual KFRResult getModifyTool(KFRSmartPointer<GSCIModifyTool>& tool) = 0;
};

class KFRIGSCServer : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIGSCServer")

    virtual KFRResult getActiveSession(KFRSmartPointer<KFRIGSCSession>& session) = 0;
};

class KFRIGSCMath : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIGSCMath")
};

class KFRIGSCUtilityFactory : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIGSCUtilityFactory")

    virtual KFRResult getMath(KFRSmartPointer<KFRIGSCMath>& math) = 0;
};

}  // namespace vrn::orlo::gsc
