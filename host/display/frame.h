/// \file
/// The coordinates of a part that is placed in the model.

#pragma once

#include "host/display/space.h"

#include <array>

namespace vrn::orlo::host::display {

/// A placement and its inverse; it may turn, mirror, scale and shear.
///
/// Failure    The frame of a placement that flattens is not usable: toPart() has no meaning.
class Frame {
public:
    using Rows = std::array<double, 12>;  ///< Three rows of four; the fourth column is the shift.

    /// Of the model itself.
    Frame() : Frame(Rows{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0}) {}
    explicit Frame(Rows const& toModel);

    [[nodiscard]] bool isUsable() const noexcept { return m_scale > 0.0; }
    /// How many mm of the model 1 mm of the part is, in the mean of all directions.
    [[nodiscard]] double scale() const noexcept { return m_scale; }

    [[nodiscard]] Vector toModel(Vector const& inPart) const noexcept;
    [[nodiscard]] Vector toPart(Vector const& inModel) const noexcept;
    /// Its depths stay those of the model.
    [[nodiscard]] Ray toPart(Ray const& inModel) const noexcept;
    /// The box around the moved box.
    [[nodiscard]] Box toModel(Box const& inPart) const noexcept;

private:
    [[nodiscard]] Vector turnedBack(Vector const& direction) const noexcept;

    Vector m_shift{};
    std::array<Vector, 3> m_rows{};     // to the model
    std::array<Vector, 3> m_inverse{};  // rows, to the part
    double m_scale = 0.0;
};

}  // namespace vrn::orlo::host::display
