/// \file
/// Which of a place's six degrees of freedom are fixed, in two integer encodings.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <unicode/unistr.h>

#include <array>
#include <cstddef>
#include <string>

namespace vrn::orlo::plugin::modeling {

/// Six flags, true for a fixed degree of freedom; what both encodings share.
///
/// Order      tx, ty, tz, rx, ry, rz.
/// Failure    get is false for an index outside 0 to 5; indexing is not checked.
class MODELING_API DegreeFreedomFlags {
public:
    static constexpr std::size_t kCount = 6;

    [[nodiscard]] bool get(int i) const
    {
        return i >= 0 && i < static_cast<int>(kCount) && m_fixed[static_cast<std::size_t>(i)];
    }
    [[nodiscard]] bool operator[](int i) const { return m_fixed[static_cast<std::size_t>(i)]; }
    [[nodiscard]] bool& operator[](int i) { return m_fixed[static_cast<std::size_t>(i)]; }
    [[nodiscard]] bool tx() const { return m_fixed[0]; }
    [[nodiscard]] bool ty() const { return m_fixed[1]; }
    [[nodiscard]] bool tz() const { return m_fixed[2]; }
    [[nodiscard]] bool rx() const { return m_fixed[3]; }
    [[nodiscard]] bool ry() const { return m_fixed[4]; }
    [[nodiscard]] bool rz() const { return m_fixed[5]; }
    [[nodiscard]] bool& tx() { return m_fixed[0]; }
    [[nodiscard]] bool& ty() { return m_fixed[1]; }
    [[nodiscard]] bool& tz() { return m_fixed[2]; }
    [[nodiscard]] bool& rx() { return m_fixed[3]; }
    [[nodiscard]] bool& ry() { return m_fixed[4]; }
    [[nodiscard]] bool& rz() { return m_fixed[5]; }

    [[nodiscard]] bool isAllTranslationalDegreesFixed() const { return tx() && ty() && tz(); }
    /// All six are fixed.
    [[nodiscard]] bool isClamped() const;

    /// Flag by flag; not 0 is fixed.
    void set(int const (&flags)[kCount]);
    void set(long const (&flags)[kCount]);
    void set(long long const (&flags)[kCount]);

    /// The other's flags, whichever its encoding.
    void set(DegreeFreedomFlags const& other) { *this = other; }

    /// Clears all six; each character "1" to "6" sets flag 1 to 6, in any order and number, and
    /// any other character is ignored.
    void set(std::string const& digits);

    /// The digits of the fixed ones, in order: "135" for tx, tz, ry.
    [[nodiscard]] std::string toString() const;

protected:
    DegreeFreedomFlags() = default;
    ~DegreeFreedomFlags() = default;
    DegreeFreedomFlags(DegreeFreedomFlags const&) = default;
    DegreeFreedomFlags& operator=(DegreeFreedomFlags const&) = default;

    [[nodiscard]] std::array<bool, kCount> const& fixed() const { return m_fixed; }
    [[nodiscard]] std::array<bool, kCount>& fixed() { return m_fixed; }

private:
    std::array<bool, kCount> m_fixed{};
};

class BitDegreeFreedom;

/// Fixed degrees of freedom whose integer is a list of decimal digits: 135 is tx, tz, ry.
///
/// Not to be confused with BitDegreeFreedom, whose integer is a mask. The two are made of each
/// other's flags, explicitly, and neither converts to the other's integer.
class MODELING_API DegreeFreedom : public DegreeFreedomFlags {
public:
    DegreeFreedom() = default;
    explicit DegreeFreedom(std::string const& digits) { set(digits); }
    explicit DegreeFreedom(char const* digits) { set(std::string(digits)); }
    explicit DegreeFreedom(int digits) { set(digits); }
    explicit DegreeFreedom(BitDegreeFreedom const& other);

    using DegreeFreedomFlags::set;
    void set(char const* digits) { set(std::string(digits)); }
    /// From the number's decimal digits; a sign is ignored like any other character.
    void set(long long digits) { set(std::to_string(digits)); }
    void set(unsigned long long digits) { set(std::to_string(digits)); }
    void set(int digits) { set(static_cast<long long>(digits)); }
    void set(unsigned int digits) { set(static_cast<unsigned long long>(digits)); }
    void set(long digits) { set(static_cast<long long>(digits)); }
    void set(unsigned long digits) { set(static_cast<unsigned long long>(digits)); }

    /// The number whose digits are those of the fixed ones; 0 for none.
    [[nodiscard]] int toInt() const;
    operator int() const { return toInt(); }  // NOLINT: it is what callers store
};

/// Fixed degrees of freedom whose integer is a mask: tx 32, ty 16, tz 8, rx 4, ry 2, rz 1.
class MODELING_API BitDegreeFreedom : public DegreeFreedomFlags {
public:
    BitDegreeFreedom() = default;
    explicit BitDegreeFreedom(unsigned long long mask) { set(mask); }
    explicit BitDegreeFreedom(DegreeFreedom const& other) : DegreeFreedomFlags(other) {}

    using DegreeFreedomFlags::set;
    /// Divides by the weights in turn: 64 and more still sets tx, and the rest goes on.
    void set(unsigned long long mask);
    void set(long long mask) { set(static_cast<unsigned long long>(mask)); }
    void set(int mask) { set(static_cast<unsigned long long>(mask)); }
    void set(unsigned int mask) { set(static_cast<unsigned long long>(mask)); }
    void set(long mask) { set(static_cast<unsigned long long>(mask)); }
    void set(unsigned long mask) { set(static_cast<unsigned long long>(mask)); }

    /// Sum of the weights of the fixed ones.
    [[nodiscard]] unsigned long long toInt() const;
    operator unsigned long long() const { return toInt(); }  // NOLINT: it is what callers store
    /// Six characters, "1" for a fixed one and "0" for a free one, in order.
    [[nodiscard]] icu::UnicodeString toUString() const;
};

/// Compared as integers the two would differ where their flags agree.
bool operator==(DegreeFreedom const&, BitDegreeFreedom const&) = delete;

static_assert(sizeof(DegreeFreedom) == 6 && sizeof(BitDegreeFreedom) == 6);

}  // namespace vrn::orlo::plugin::modeling
