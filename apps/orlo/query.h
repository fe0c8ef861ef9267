/// \file
/// Files that can be asked about what is in them.

#pragma once

#include "apps/orlo/pixelview.h"
#include "apps/orlo/querycommand.h"
#include "apps/orlo/session.h"
#include "platform/kfr/kfrrecords.h"

#include <nlohmann/json.hpp>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vrn::orlo::app {

using Json = nlohmann::ordered_json;

/// What a pixel hits.
struct QueryHit {
    Json m_hit;                     ///< Where, in one line.
    std::function<Json()> m_query;  ///< Asks about it, as long as the source is there.
};

/// A loaded file, asked through the library's classes. Answers are a map of labels to numbers,
/// texts, lists and maps again.
///
/// Units      mm, mm2; of a mesh file, its own. Places are in coordinates of the part, those of
///            hits in the model's.
class QuerySource {
public:
    QuerySource() = default;
    QuerySource(QuerySource const&) = delete;
    QuerySource& operator=(QuerySource const&) = delete;
    virtual ~QuerySource() = default;

    /// Failure    UsageError for what is not there, and for what the file does not have at all.
    [[nodiscard]] virtual Json ofEntity(unsigned long long number) = 0;
    [[nodiscard]] virtual Json ofNode(unsigned long long id) = 0;
    /// In the order in which they are met.
    [[nodiscard]] virtual std::vector<QueryHit> at(PixelOptions const& pixel) = 0;
};

/// Opens a geometry or model file, meshed if the options ask for it, or a mesh file. The stage of
/// the pick filters is to be open.
///
/// Failure    As loadModel(), meshWithProgress() and loadMesh().
[[nodiscard]] std::unique_ptr<QuerySource> openGeometryQuery(Session& session,
                                                             QueryOptions const& options);
[[nodiscard]] std::unique_ptr<QuerySource> openMeshQuery(Session& session,
                                                         QueryOptions const& options);

// For both.

/// The property "name" of an object that has one; else nothing.
[[nodiscard]] std::string nameOf(KFRIService const& object);

[[nodiscard]] inline Json toJson(KFRDouble3DPoint const& point)
{
    return {point.x, point.y, point.z};
}

/// What the library says of a mesh body; null for null.
[[nodiscard]] Json describe(KFRSmartPointer<CAE::IMeshBodyInterface> const& body);
/// And of a mesh.
[[nodiscard]] Json describe(KFRSmartPointer<CAE::IMeshInterface> const& mesh);
/// "none", "partly" or "fully".
[[nodiscard]] std::string meshStateOf(KFRIService const& part);

}  // namespace vrn::orlo::app
