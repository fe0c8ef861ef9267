#include "plugins/modelingplugin/utilities/numerics/boundingbox.h"

#include "plugins/modelingplugin/utilities/numerics/plugintolerance.h"

#include <algorithm>

namespace vrn::orlo::plugin::modeling {

namespace {

bool isOutside(double value, double low, double high)
{
    return value - high >= kPluginTolerance || low - value >= kPluginTolerance;
}

}  // namespace

void BoundingBox::inflate(KFRDouble3DPoint const& low, KFRDouble3DPoint const& high)
{
    m_min = {m_min.x - low.x, m_min.y - low.y, m_min.z - low.z};
    m_max = {m_max.x + high.x, m_max.y + high.y, m_max.z + high.z};
}

void BoundingBox::deflate(KFRDouble3DPoint const& low, KFRDouble3DPoint const& high)
{
    inflate({-low.x, -low.y, -low.z}, {-high.x, -high.y, -high.z});
}

BoundingBox BoundingBox::operator+(BoundingBox const& other) const
{
    return {KFRDouble3DPoint{std::min(m_min.x, other.m_min.x), std::min(m_min.y, other.m_min.y),
                             std::min(m_min.z, other.m_min.z)},
            KFRDouble3DPoint{std::max(m_max.x, other.m_max.x), std::max(m_max.y, other.m_max.y),
                             std::max(m_max.z, other.m_max.z)}};
}

BoundingBox BoundingBox::intersection(BoundingBox const& other) const
{
    return {KFRDouble3DPoint{std::max(m_min.x, other.m_min.x), std::max(m_min.y, other.m_min.y),
                             m_min.z > m_max.z ? m_min.z : other.m_min.z},
            KFRDouble3DPoint{std::min(m_max.x, other.m_max.x), std::min(m_max.y, other.m_max.y),
                             std::min(m_max.z, other.m_max.z)}};
}

bool BoundingBox::inBoundingBox(KFRDouble3DPoint const& p) const
{
    return !isOutside(p.x, m_min.x, m_max.x) && !isOutside(p.y, m_min.y, m_max.y) &&
           !isOutside(p.z, m_min.z, m_max.z);
}

bool BoundingBox::isValid() const
{
    return m_min.x - m_max.x < kPluginTolerance && m_min.y - m_max.y < kPluginTolerance &&
           m_min.z - m_max.z < kPluginTolerance;
}

}  // namespace vrn::orlo::plugin::modeling
