#include "host/display/frame.h"

namespace vrn::orlo::host::display {

Frame::Frame(Rows const& toModel)
    : m_shift{toModel[3], toModel[7], toModel[11]},
      m_rows{Vector{toModel[0], toModel[1], toModel[2]}, Vector{toModel[4], toModel[5], toModel[6]},
             Vector{toModel[8], toModel[9], toModel[10]}}
{
    // The columns of the inverse are the cross products of the rows, over the determinant.
    std::array<Vector, 3> const columns{cross(m_rows[1], m_rows[2]), cross(m_rows[2], m_rows[0]),
                                        cross(m_rows[0], m_rows[1])};
    double const determinant = dot(m_rows[0], columns[0]);
    m_scale = std::cbrt(std::abs(determinant));
    for (std::size_t row = 0; row < 3; ++row) {
        m_inverse[row] = {columns[0][row] / determinant, columns[1][row] / determinant,
                          columns[2][row] / determinant};
    }
}

Vector Frame::toModel(Vector const& inPart) const noexcept
{
    return sum(m_shift, {dot(m_rows[0], inPart), dot(m_rows[1], inPart), dot(m_rows[2], inPart)});
}

Vector Frame::toPart(Vector const& inModel) const noexcept
{
    return turnedBack(difference(inModel, m_shift));
}

Ray Frame::toPart(Ray const& inModel) const noexcept
{
    return {toPart(inModel.m_origin), turnedBack(inModel.m_direction)};
}

Box Frame::toModel(Box const& inPart) const noexcept
{
    Box moved;
    for (unsigned i = 0; i < 8 && !inPart.isEmpty(); ++i) {
        moved.add(toModel(inPart.corner(i)));
    }
    return moved;
}

Vector Frame::turnedBack(Vector const& direction) const noexcept
{
    return {dot(m_inverse[0], direction), dot(m_inverse[1], direction),
            dot(m_inverse[2], direction)};
}

}  // namespace vrn::orlo::host::display
