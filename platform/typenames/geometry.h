/// \file
/// Geometry and marker keywords. EDGEUNKNOW is the name as the geometry server spells it.

#pragma once

#include "platform/typenames/typename.h"

namespace vrn::orlo::typenames {

// clang-format off
inline TypeName const kVertex                    {true, u"VERTEX", -1};
inline TypeName const kEdge                      {true, u"EDGE", -1};
inline TypeName const kEdgeUnknow                {true, u"EDGEUNKNOW", -1};
inline TypeName const kEdgeWireframe             {true, u"EDGEWIREFRAME", -1};
inline TypeName const kEdgeLaminar               {true, u"EDGELAMINAR", -1};
inline TypeName const kEdgeNormal                {true, u"EDGENORMAL", -1};
inline TypeName const kEdgeGeneral               {true, u"EDGEGENERAL", -1};
inline TypeName const kEdgeShare                 {true, u"EDGESHARE", -1};
inline TypeName const kFace                      {true, u"FACE", -1};
inline TypeName const kAcornBody                 {true, u"ACORNBODY", -1};
inline TypeName const kWireBody                  {true, u"WIREBODY", -1};
inline TypeName const kFacetWire                 {true, u"FACETWIRE", -1};
inline TypeName const kFacetSolid                {true, u"FACETSOLID", -1};
inline TypeName const kSheetBody                 {true, u"SHEETBODY", -1};
inline TypeName const kFacetSheet                {true, u"FACETSHEET", -1};
inline TypeName const kBody                      {true, u"BODY", -1};
inline TypeName const kGeneralBody               {true, u"GENERALBODY", -1};
inline TypeName const kFacetGeneral              {true, u"FACETGENERAL", -1};
inline TypeName const kPrimitiveBoxSolid         {true, u"PRIMITIVEBOXSOLID", -1};
inline TypeName const kPrimitiveCylinderSolid    {true, u"PRIMITIVECYLINDERSOLID", -1};
inline TypeName const kPrimitiveSphereSolid      {true, u"PRIMITIVESPHERESOLID", -1};
inline TypeName const kPrimitiveEllipsoidSolid   {true, u"PRIMITIVEELLIPSOIDSOLID", -1};
inline TypeName const kRegion                    {true, u"REGION", -1};
inline TypeName const kMarkerOn1DEntity          {true, u"MARKERON1DENTITY", -1};
inline TypeName const kMarkerOn1DEntityCenter    {true, u"MARKERON1DENTITYCENTER", -1};
inline TypeName const kMarkerOn2DEntityCenter    {true, u"MARKERON2DENTITYCENTER", -1};
inline TypeName const kMarkerOn2DEntityCentroid  {true, u"MARKERON2DENTITYCENTROID", -1};
inline TypeName const kMarkerOnAxisCenter        {true, u"MARKERONAXISCENTER", -1};
inline TypeName const kMarkerOnAxisEnd           {true, u"MARKERONAXISEND", -1};
inline TypeName const kDatumPlane                {true, u"CONSTRUCTION.DATUMPLANE", -1};
inline TypeName const kTransformNormalManipulator{true, u"TransformNormalManipulatorType", -1};
// clang-format on

}  // namespace vrn::orlo::typenames
