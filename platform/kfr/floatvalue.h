/// \file
/// A value with its unit.

#pragma once

namespace KFR::Util::Units {

/// A number and the id of the unit it is in.
struct FloatValue {
    unsigned short m_unit = 0;   ///< Unit id.
    unsigned char m_first = 0;   ///< Passed on unchanged; part of the value's identity.
    unsigned char m_second = 0;  ///< Passed on unchanged; part of the value's identity.
    double m_value = 0.0;        ///< In the unit of `m_unit`.

    friend bool operator==(FloatValue const&, FloatValue const&) = default;
};

}  // namespace KFR::Util::Units
