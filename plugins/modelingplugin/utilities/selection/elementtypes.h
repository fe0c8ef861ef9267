/// \file
/// Type ids of elements by their shape.

#pragma once

#include "platform/typenames/femdisplay.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"

namespace vrn::orlo::plugin::modeling {

/// The three ids, resolved once: for loops over elements.
struct ElementTypes {
    unsigned int m_line = EntityTypeID(typenames::kDisplay1DElement).typeID();
    unsigned int m_surface = EntityTypeID(typenames::kDisplay2DElement).typeID();
    unsigned int m_solid = EntityTypeID(typenames::kDisplay3DElement).typeID();

    /// \param shape  0 line, 1 triangle, 2 quadrilateral, any other a solid
    [[nodiscard]] unsigned int ofShape(int shape) const noexcept
    {
        switch (shape) {
            case 0:
                return m_line;
            case 1:
            case 2:
                return m_surface;
            default:
                return m_solid;
        }
    }
};

}  // namespace vrn::orlo::plugin::modeling
