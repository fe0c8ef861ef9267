#include "host/geometry/faceprobe.h"

#include "host/geometry/edgeplaces.h"
#include "host/geometry/partframe.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include <Bnd_Box.hxx>
#include <BRep_Tool.hxx>
#include <BRepBndLib.hxx>
#include <Precision.hxx>
#include <TopExp.hxx>
#include <TopoDS.hxx>
#include <TopTools_IndexedMapOfShape.hxx>

namespace vrn::orlo::host::geometry {

namespace {

/// How far from a place without axes they are looked for, as a share of the range.
constexpr double kAside = 1e-4;

std::array<double, 3> arrayOf(gp_Pnt const& point)
{
    return {point.X(), point.Y(), point.Z()};
}

/// What a unit vector tends to, from its values one and two steps away.
gp_Vec limitOf(gp_Vec const& near, gp_Vec const& far)
{
    return (near * 2.0 - far).Normalized();
}

}  // namespace

bool FaceProbe::Range::holds(double value) const
{
    double const spare = 1e-9 * (1.0 + length());
    return value >= m_first - spare && value <= m_last + spare;
}

bool FaceProbe::Range::isBounded() const
{
    return !Precision::IsInfinite(m_first) && !Precision::IsInfinite(m_last);
}

FaceProbe::FaceProbe(TopoDS_Face const& face)
    : m_face(face),
      m_surface(face),
      m_u{m_surface.FirstUParameter(), m_surface.LastUParameter()},
      m_v{m_surface.FirstVParameter(), m_surface.LastVParameter()}
{
}

void FaceProbe::addSide(TopoDS_Edge const& edge)
{
    Side side{edge, nullptr, {}};
    if (!BRep_Tool::Degenerated(edge)) {
        side.m_curve = std::make_unique<BRepAdaptor_Curve>(edge);
        Bnd_Box bounds;
        BRepBndLib::Add(edge, bounds, Standard_False);
        if (!bounds.IsVoid() && !bounds.IsOpen()) {
            side.m_box.add(arrayOf(bounds.CornerMin()));
            side.m_box.add(arrayOf(bounds.CornerMax()));
        }
    }
    m_sides.push_back(std::move(side));
}

void FaceProbe::prepareSearch()
{
    if (m_search) {
        return;
    }
    m_sides.clear();
    TopTools_IndexedMapOfShape edges;
    TopExp::MapShapes(m_face, TopAbs_EDGE, edges);
    for (int i = 1; i <= edges.Extent(); ++i) {
        addSide(TopoDS::Edge(edges.FindKey(i)));
    }
    double const spareU =
        std::max(m_surface.UResolution(Precision::Confusion()), Precision::PConfusion());
    double const spareV =
        std::max(m_surface.VResolution(Precision::Confusion()), Precision::PConfusion());
    auto search = std::make_unique<Extrema_ExtPS>();
    search->SetFlag(Extrema_ExtFlag_MIN);
    search->Initialize(m_surface, m_u.m_first, m_u.m_last, m_v.m_first, m_v.m_last, spareU, spareV);
    m_search = std::move(search);
}

bool FaceProbe::isInside(gp_Pnt2d const& place, bool withBoundary)
{
    if (!m_classifier) {
        m_classifier = std::make_unique<BRepTopAdaptor_FClass2d>(m_face, Precision::PConfusion());
    }
    TopAbs_State const state = m_classifier->Perform(place);
    return state == TopAbs_IN || (withBoundary && state == TopAbs_ON);
}

std::optional<FacePlace> FaceProbe::nearest(gp_Pnt const& point)
{
    std::lock_guard const lock(m_mutex);
    prepareSearch();
    std::optional<FacePlace> best;
    auto const take = [&](gp_Pnt2d const& place, gp_Pnt const& onFace) {
        double const distance = onFace.Distance(point);
        if (std::isfinite(distance) && (!best || distance < best->m_distance)) {
            best = FacePlace{place, onFace, distance};
        }
    };
    // Finds nothing where all places are equally near, as on the axis of a cylinder: a side, or the
    // seam, then has one of them.
    m_search->Perform(point);
    for (int i = 1; m_search->IsDone() && i <= m_search->NbExt(); ++i) {
        double u = 0.0;
        double v = 0.0;
        m_search->Point(i).Parameter(u, v);
        if (isInside({u, v}, true)) {
            take({u, v}, m_search->Point(i).Value());
        }
    }
    for (Side const& side : m_sides) {
        if (best && !side.m_box.isEmpty() &&
            distanceTo(side.m_box, arrayOf(point)) >= best->m_distance) {
            continue;
        }
        std::optional<EdgePlace> const onSide =
            side.m_curve ? nearestOnCurve(*side.m_curve, point) : nearestOnEdge(side.m_edge, point);
        std::optional<gp_Pnt2d> const place =
            onSide ? placeOnFace(side.m_edge, m_face, onSide->m_parameter) : std::nullopt;
        if (place) {
            take(*place, onSide->m_point);
        }
    }
    return best;
}

std::vector<double> FaceProbe::crossings(gp_Lin const& line, double reach)
{
    std::lock_guard const lock(m_mutex);
    if (!m_intersector) {
        m_intersector = std::make_unique<IntCurvesFace_Intersector>(m_face, Precision::Confusion());
    }
    m_intersector->Perform(line, -reach, reach);
    std::vector<double> found;
    for (int i = 1; m_intersector->IsDone() && i <= m_intersector->NbPnt(); ++i) {
        found.push_back(m_intersector->WParameter(i));
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::array<gp_Vec, 2> FaceProbe::derivativesAt(gp_Pnt2d const& place) const
{
    gp_Pnt point;
    std::array<gp_Vec, 2> derivatives;
    m_surface.D1(place.X(), place.Y(), point, derivatives[0], derivatives[1]);
    return derivatives;
}

/// True when all of the range of a parameter is no way at all with a derivative.
bool FaceProbe::isFlat(gp_Vec const& derivative, Range const& range)
{
    return derivative.Magnitude() * range.length() <= Precision::Confusion();
}

std::optional<FaceAxes> FaceProbe::regularAxes(gp_Pnt2d const& place) const
{
    auto [alongU, alongV] = derivativesAt(place);
    if (isFlat(alongU, m_u) || isFlat(alongV, m_v)) {
        return std::nullopt;
    }
    alongU.Normalize();
    alongV.Normalize();
    gp_Vec normal = alongU.Crossed(alongV);
    if (!(normal.Magnitude() > Precision::Angular())) {
        return std::nullopt;
    }
    normal.Normalize();
    if (m_face.Orientation() == TopAbs_REVERSED) {
        normal.Reverse();
    }
    return FaceAxes{normal, alongU, alongV};
}

/// The axes that those along the parameter with a direction tend to.
std::optional<FaceAxes> FaceProbe::limitAxes(gp_Pnt2d const& place, bool isUFlat) const
{
    Range const& range = isUFlat ? m_v : m_u;
    double const at = isUFlat ? place.Y() : place.X();
    double const step =
        std::copysign(kAside * range.length(), (range.m_first + range.m_last) / 2.0 - at);
    gp_Vec2d const aside = isUFlat ? gp_Vec2d(0.0, step) : gp_Vec2d(step, 0.0);
    std::optional<FaceAxes> const near = regularAxes(place.Translated(aside));
    std::optional<FaceAxes> const far = regularAxes(place.Translated(aside * 2.0));
    if (!near || !far) {
        return std::nullopt;
    }
    return FaceAxes{limitOf(near->m_normal, far->m_normal), limitOf(near->m_u, far->m_u),
                    limitOf(near->m_v, far->m_v)};
}

/// The axes at a place that a whole range of one parameter shares; nothing at a tip, where the
/// normal depends on that parameter.
std::optional<FaceAxes> FaceProbe::poleAxes(gp_Pnt2d const& place, bool isUFlat) const
{
    constexpr double kSameNormal = 1e-3;  // radians
    std::optional<FaceAxes> const own = limitAxes(place, isUFlat);
    Range const& range = isUFlat ? m_u : m_v;
    for (double const share : {0.2, 0.5, 0.8}) {
        double const at = range.m_first + share * range.length();
        std::optional<FaceAxes> const other =
            limitAxes(isUFlat ? gp_Pnt2d(at, place.Y()) : gp_Pnt2d(place.X(), at), isUFlat);
        if (!own || !other || (own->m_normal - other->m_normal).Magnitude() > kSameNormal) {
            return std::nullopt;
        }
    }
    return own;
}

std::optional<FaceAxes> FaceProbe::axesAt(gp_Pnt2d const& place)
{
    std::lock_guard const lock(m_mutex);
    if (!m_u.holds(place.X()) || !m_v.holds(place.Y())) {
        return std::nullopt;
    }
    if (std::optional<FaceAxes> const axes = regularAxes(place)) {
        return axes;
    }
    auto const [alongU, alongV] = derivativesAt(place);
    bool const isUFlat = isFlat(alongU, m_u);
    bool const isOneFlat = isUFlat != isFlat(alongV, m_v);
    return isOneFlat && m_u.isBounded() && m_v.isBounded() ? poleAxes(place, isUFlat)
                                                           : std::nullopt;
}

std::vector<gp_Pnt> FaceProbe::innerPoints(int cells)
{
    std::lock_guard const lock(m_mutex);
    std::vector<gp_Pnt> found;
    if (!m_u.isBounded() || !m_v.isBounded()) {
        return found;
    }
    for (int index = 0; index < cells * cells; ++index) {
        gp_Pnt2d const place(m_u.m_first + m_u.length() * (index % cells + 0.5) / cells,
                             m_v.m_first + m_v.length() * (index / cells + 0.5) / cells);
        if (isInside(place, false)) {
            found.push_back(m_surface.Value(place.X(), place.Y()));
        }
    }
    return found;
}

bool FaceProbe::isClosed()
{
    std::lock_guard const lock(m_mutex);
    return m_surface.IsUClosed() || m_surface.IsVClosed();
}

}  // namespace vrn::orlo::host::geometry
