#include "host/display/edgepoints.h"

#include <algorithm>
#include <optional>

namespace vrn::orlo::host::display {

namespace {

using geometry::GeometryQueries;

/// The point of a straight piece that is nearest to the spot on the screen. Nothing when one of its
/// ends has no place there.
std::optional<Vector> nearestOnPiece(Vector const& from, Vector const& to, PickSpot const& spot)
{
    auto const start = spot.m_camera.modelToScreen(from);
    auto const end = spot.m_camera.modelToScreen(to);
    if (!start || !end) {
        return std::nullopt;
    }
    Vector along = difference(*end, *start);
    along[2] = 0.0;
    double const square = dot(along, along);
    double const share =
        square > 0.0
            ? std::clamp(dot(difference({spot.m_x, spot.m_y, 0.0}, *start), along) / square, 0.0,
                         1.0)
            : 0.0;
    // Half of the way on the screen is not half of the way in perspective.
    double const nearStart = share * spot.m_camera.pixelSize((*start)[2]);
    double const nearEnd = (1.0 - share) * spot.m_camera.pixelSize((*end)[2]);
    return sum(from, difference(to, from), nearStart / (nearStart + nearEnd));
}

/// From a point near an edge to the edge's own point that looks nearest to the spot, by tangents.
/// \param stride  mm of the model that the next point may be away along a tangent
std::optional<Vector> settle(GeometryQueries const& queries, unsigned edge, Frame const& frame,
                             PickSpot const& spot, Vector const& guess, double stride)
{
    constexpr int kMostRounds = 8;
    constexpr double kSame = 1e-9;  // share of the stride
    Vector point = guess;
    for (int round = 0; round < kMostRounds; ++round) {
        Vector const before = point;
        auto const onEdge = queries.projection(edge, frame.toPart(before));
        if (!onEdge) {
            return std::nullopt;
        }
        point = frame.toModel(*onEdge);
        auto const parameter = queries.closestParameter(edge, *onEdge);
        auto const axes = parameter ? queries.curveFrame(edge, *parameter) : std::nullopt;
        bool const isLast = round > 0 && length(difference(point, before)) <= kSame * stride;
        if (!axes || isLast || round + 1 == kMostRounds) {
            break;
        }
        Vector const ahead = difference(frame.toModel(sum(*onEdge, axes->m_tangent)), point);
        double const reach = stride / length(ahead);
        point = nearestOnPiece(sum(point, ahead, -reach), sum(point, ahead, reach), spot)
                    .value_or(point);
    }
    return point;
}

}  // namespace

std::vector<PixelHit> edgePointsNear(GeometryQueries const& queries, unsigned edge,
                                     Frame const& frame, PickSpot const& spot)
{
    std::vector<Vector> corners = queries.seedPoints(edge);
    if (corners.size() < 2) {
        return {};
    }
    Box inPart;
    for (Vector& corner : corners) {
        inPart.add(corner);
        corner = frame.toModel(corner);
    }
    std::vector<PixelHit> hits;
    auto const add = [&](Vector const& point) {
        auto const hit = hitAt(spot.m_camera, point, spot.m_x, spot.m_y, spot.m_pixels);
        if (hit) {
            hits.push_back(*hit);
        }
    };
    add(corners.front());
    add(corners.back());

    bool const isStraight = queries.isStraight(edge).value_or(false);
    double const chord = 2.0 * GeometryQueries::kSeedChord * inPart.diagonal() * frame.scale();
    for (std::size_t i = 1; i < corners.size(); ++i) {
        auto const guess = nearestOnPiece(corners[i - 1], corners[i], spot);
        auto const screen = guess ? spot.m_camera.modelToScreen(*guess) : std::nullopt;
        if (!screen) {
            continue;
        }
        double const reach = spot.m_pixels + chord / spot.m_camera.pixelSize((*screen)[2]);
        if (std::hypot((*screen)[0] - spot.m_x, (*screen)[1] - spot.m_y) > reach) {
            continue;
        }
        double const stride = length(difference(corners[i], corners[i - 1]));
        auto const point = isStraight ? guess : settle(queries, edge, frame, spot, *guess, stride);
        if (point) {
            add(*point);
        }
    }
    std::stable_sort(hits.begin(), hits.end(), isBetter);
    return hits;
}

}  // namespace vrn::orlo::host::display
