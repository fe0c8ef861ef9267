/// \file
/// What a pick can hit in a loaded file.

#pragma once

#include "apps/orlo/pickcommand.h"
#include "apps/orlo/session.h"
#include "host/meshing/meshedpart.h"
#include "host/model/model.h"
#include "host/selection/pickfiltermanager.h"
#include "platform/caedata/entityreference.h"

#include <memory>
#include <string>

namespace vrn::orlo::app {

/// A loaded file that can be picked from.
class PickSource {
public:
    PickSource() = default;
    PickSource(PickSource const&) = delete;
    PickSource& operator=(PickSource const&) = delete;
    virtual ~PickSource() = default;

    /// What the criteria hit, of the kinds that the filter allows.
    ///
    /// Failure    UsageError for criteria that the file cannot answer.
    [[nodiscard]] virtual CAE::EntityReferenceSequence hits(
        PickOptions const& options, host::selection::PickFilterManager const& filter) = 0;

    /// The references made anew, from the objects behind them, by the library.
    [[nodiscard]] virtual CAE::EntityReferenceSequence madeUp(
        CAE::EntityReferenceSequence const& picked) = 0;

    /// One reference for people: "#12 FACE of bolt, 230.4 mm2, at (1, 2, 3), looks to (0, 0, 1)".
    [[nodiscard]] virtual std::string describe(CAE::EntityReference const& reference) = 0;
};

/// A geometry file or a mesh file, by its ending.
///
/// Failure    ImportError, MeshFileError.
[[nodiscard]] std::unique_ptr<PickSource> openPickSource(Session& session,
                                                         std::filesystem::path const& file);

// The two kinds.
[[nodiscard]] std::unique_ptr<PickSource> openGeometryPicks(Session& session,
                                                            std::filesystem::path const& file);
[[nodiscard]] std::unique_ptr<PickSource> openMeshPicks(Session& session,
                                                        std::filesystem::path const& file);

}  // namespace vrn::orlo::app
