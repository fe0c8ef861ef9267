#include "plugins/modelingplugin/utilities/numerics/floatvaluerange.h"

#include "platform/kfr/numbertext.h"

namespace vrn::orlo::plugin::modeling {

namespace {

constexpr int kindOf(bool isOpen)
{
    return isOpen ? FloatValueRange::open : FloatValueRange::closed;
}

icu::UnicodeString textOf(KFR::Util::Units::FloatValue const& value)
{
    return icu::UnicodeString::fromUTF8(KFR::numberText(value.m_value));
}

}  // namespace

FloatValueRange::FloatValueRange(FloatValue const& low, bool lowOpen, FloatValue const& high,
                                 bool highOpen)
    : m_lowKind(kindOf(lowOpen)), m_highKind(kindOf(highOpen)), m_low(low), m_high(high)
{
}

FloatValueRange::FloatValueRange(FloatValue const& value, bool isLow, bool isOpen)
{
    (isLow ? m_lowKind : m_highKind) = kindOf(isOpen);
    (isLow ? m_low : m_high) = value;
}

int FloatValueRange::getLowBound(FloatValue& out) const
{
    out = m_low;
    return m_lowKind;
}

int FloatValueRange::getUpBound(FloatValue& out) const
{
    out = m_high;
    return m_highKind;
}

bool FloatValueRange::inRange(FloatValue const& value) const
{
    double const v = value.m_value;
    bool const isBelow =
        (m_lowKind == closed && m_low.m_value > v) || (m_lowKind == open && m_low.m_value >= v);
    bool const isAbove =
        (m_highKind == closed && v > m_high.m_value) || (m_highKind == open && v >= m_high.m_value);
    return !isBelow && !isAbove;
}

icu::UnicodeString FloatValueRange::toString() const
{
    icu::UnicodeString text;
    if (m_lowKind == none) {
        text.append(u"(-\u221E", -1);
    } else {
        text.append(m_lowKind == closed ? u'[' : u'(').append(textOf(m_low));
    }
    text.append(u',');
    if (m_highKind == none) {
        text.append(u"+\u221E)", -1);
    } else {
        text.append(textOf(m_high)).append(m_highKind == closed ? u']' : u')');
    }
    return text;
}

}  // namespace vrn::orlo::plugin::modeling
