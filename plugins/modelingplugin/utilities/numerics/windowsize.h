/// \file
/// The size of the drawing area.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Remembers how large the drawing area is; 0 by 0 until it is told.
///
/// Units      Pixels.
/// Threads    Main thread; no lock.
class MODELING_API WindowSize {
public:
    WindowSize(WindowSize const&) = delete;
    WindowSize& operator=(WindowSize const&) = delete;

    static WindowSize* instance();

    static void setWindowSize(int width, int height);
    static void getWindowSize(int& width, int& height);

private:
    WindowSize() = default;

    int m_width = 0;
    int m_height = 0;
};

}  // namespace vrn::orlo::plugin::modeling
