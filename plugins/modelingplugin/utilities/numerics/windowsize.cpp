#include "plugins/modelingplugin/utilities/numerics/windowsize.h"

namespace vrn::orlo::plugin::modeling {

WindowSize* WindowSize::instance()
{
    static WindowSize size;
    return &size;
}

void WindowSize::setWindowSize(int width, int height)
{
    instance()->m_width = width;
    instance()->m_height = height;
}

void WindowSize::getWindowSize(int& width, int& height)
{
    width = instance()->m_width;
    height = instance()->m_height;
}

}  // namespace vrn::orlo::plugin::modeling
