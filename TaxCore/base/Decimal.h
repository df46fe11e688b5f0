#pragma once

#include "TaxCore/base/WideInteger.h"

#include <tl/expected.hpp>

#include <array>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace taxcore {

/// Why a text is not a `Decimal`.
enum class DecimalFault {
    syntax,        ///< not a number in the JSON grammar
    tooManyDigits, ///< more than 38 significant digits
    outOfRange,    ///< too large, or finer than the finest step
};

namespace detail {

template <class T>
concept DecimalSource =
    std::integral<T> && !std::same_as<
        T,
        bool> && !std::same_as<T, char> && !std::same_as<T, signed char> && !std::same_as<T, unsigned char> && !std::same_as<T, wchar_t> && !std::same_as<T, char8_t> && !std::same_as<T, char16_t> && !std::same_as<T, char32_t>;

} // namespace detail

/// A base-10 number, coefficient · 10^exponent, for money and everything computed from it.
///
/// Range: coefficients of up to 38 digits, exponents from -128 to 128; so magnitudes up to
/// (10^38 - 1) · 10^128 in steps no finer than 10^-128.
///
/// Rounding: results that fit are exact. Others are rounded once, to 38 digits or to a multiple of
/// 10^-128, whichever is coarser: to nearest, half away from zero.
///
/// Nothing traps: what is too large becomes the largest magnitude of its sign, what is smaller
/// than half the finest step becomes zero; x / 0 is the largest magnitude of x's sign and 0 / 0 is
/// zero. There is no negative zero, no infinity, no not-a-number.
///
/// Comparison and hash go by value: 100 and 100.00 are equal.
class Decimal {
  public:
    static constexpr int maxDigits = 38;
    static constexpr int maxExponent = 128;
    static constexpr int minExponent = -128;
    /// The most characters `writeTo` writes: a sign, 38 digits and 128 zeros.
    static constexpr std::size_t maxPlainLength = 1 + maxDigits + maxExponent;

    /// Zero.
    constexpr Decimal() noexcept = default;

    /// Any integer, exactly. Truth values and characters are not numbers here.
    template <detail::DecimalSource T>
    constexpr Decimal(T value) noexcept // NOLINT(google-explicit-constructor): a whole amount
        : low_(static_cast<std::uint64_t>(value)),
          high_(std::is_signed_v<T> && value < T{} ? -1 : 0) {}

    /// Binary floating point has no exact cents; it does not get in, not even by a cast.
    template <class T>
    requires(std::is_arithmetic_v<T> && !detail::DecimalSource<T>) Decimal(T)
    = delete;

    /// (10^38 - 1) · 10^128; overflow ends here and at its negative.
    static constexpr Decimal largest() noexcept {
        return {wide::powerOfTen(maxDigits) - 1, maxExponent};
    }

    /// Reads exactly the number grammar of JSON: no leading plus, no leading zeros, digits on both
    /// sides of a point, no blanks. Never rounds; zeros before and after the significant digits do
    /// not count as digits. Time is linear in the length. A text with several faults reports the
    /// first in the order of `DecimalFault`.
    static constexpr tl::expected<Decimal, DecimalFault> parse(std::string_view text) noexcept;

    /// Writes the value in plain notation and returns the end: no exponent, no zeros at the end of
    /// the fraction, "0" for zero. `first` needs room for `maxPlainLength` characters; no
    /// terminator is written.
    constexpr char* writeTo(char* first) const noexcept;

    /// The text of `writeTo`.
    std::string toString() const {
        std::array<char, maxPlainLength> text; // NOLINT(cppcoreguidelines-pro-type-member-init)
        return {text.data(), writeTo(text.data())};
    }

    constexpr bool isZero() const noexcept { return low_ == 0 && high_ == 0; }
    constexpr bool isNegative() const noexcept { return high_ < 0; }

    /// Whether there is no fraction: 3 and 3.00, not 3.01.
    constexpr bool isInteger() const noexcept {
        return exponent_ >= 0 || isZero()
               || (exponent_ >= -maxDigits
                   && wide::dropDigits(magnitude(), -exponent_) * wide::powerOfTen(-exponent_)
                          == magnitude());
    }

    /// The value as a machine integer; absent when it has a fraction or does not fit.
    constexpr std::optional<std::int64_t> toInteger() const noexcept;

    constexpr Decimal abs() const noexcept { return isNegative() ? -*this : *this; }

    /// Rounds to `places` digits after the point, to nearest, half away from zero. Negative places
    /// count digits before the point: -2 gives full hundreds. Too large a result saturates.
    constexpr Decimal roundPlain(int places) const noexcept { return roundTo(places, false); }

    /// Rounds to `places` digits after the point toward negative infinity: 1.29 to 1.2, -1.21 to
    /// -1.3. Negative places count digits before the point: -2 cuts to full hundreds. Too large a
    /// result saturates.
    constexpr Decimal roundDown(int places) const noexcept { return roundTo(places, true); }

    friend constexpr Decimal operator-(const Decimal& value) noexcept {
        return {0 - value.bits(), value.exponent_};
    }

    friend constexpr Decimal operator+(const Decimal& a, const Decimal& b) noexcept {
        if (const Aligned both = align(a, b); both.fits) [[likely]] {
            const wide::Uint128 sum = both.a + both.b;
            if (isSafe(sum)) [[likely]]
                return {sum, both.exponent};
        }
        return addWide(a, b);
    }

    friend constexpr Decimal operator-(const Decimal& a, const Decimal& b) noexcept {
        return a + -b;
    }

    friend constexpr Decimal operator*(const Decimal& a, const Decimal& b) noexcept {
        const int exponent = a.exponent_ + b.exponent_;
        if (a.isWord() && b.isWord() && exponent >= minExponent && exponent <= maxExponent)
            [[likely]]
            return {static_cast<wide::Uint128>(wide::Int128{a.word()} * b.word()), exponent};
        return fit(a.isNegative() != b.isNegative(), wide::multiply(a.magnitude(), b.magnitude()),
                   exponent);
    }

    /// The quotient is exact, and short, whenever 38 digits suffice for it.
    friend constexpr Decimal operator/(const Decimal& a, const Decimal& b) noexcept {
        return divide(a, b);
    }

    constexpr Decimal& operator+=(const Decimal& other) noexcept { return *this = *this + other; }
    constexpr Decimal& operator-=(const Decimal& other) noexcept { return *this = *this - other; }
    constexpr Decimal& operator*=(const Decimal& other) noexcept { return *this = *this * other; }
    constexpr Decimal& operator/=(const Decimal& other) noexcept { return *this = *this / other; }

    friend constexpr bool operator==(const Decimal& a, const Decimal& b) noexcept {
        const Aligned both = align(a, b);
        return both.fits ? both.a == both.b : compareWide(a, b) == 0;
    }

    friend constexpr std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) noexcept {
        if (const Aligned both = align(a, b); both.fits) [[likely]]
            return order(both.a, both.b);
        return compareWide(a, b);
    }

    friend constexpr std::size_t hash_value(const Decimal& value) noexcept {
        if (value.isZero())
            return 0;
        wide::Uint128 digits = value.magnitude();
        const int exponent = value.exponent_ + wide::stripZeros(digits);
        std::uint64_t mixed =
            wide::lowerHalf(digits) ^ (wide::upperHalf(digits) * 0x9E3779B97F4A7C15);
        mixed += static_cast<std::uint64_t>(exponent * 2 + (value.isNegative() ? 1 : 0)) << 48;
        mixed = (mixed ^ (mixed >> 32)) * 0xD6E8FEB86659FD93;
        mixed = (mixed ^ (mixed >> 32)) * 0xD6E8FEB86659FD93;
        return static_cast<std::size_t>(mixed ^ (mixed >> 32));
    }

    template <class Traits>
    friend std::basic_ostream<char, Traits>& operator<<(std::basic_ostream<char, Traits>& out,
                                                        const Decimal& value) {
        return out << value.toString();
    }

  private:
    /// Two coefficients of one exponent, in two's complement.
    struct Aligned {
        wide::Uint128 a = 0;
        wide::Uint128 b = 0;
        int exponent = 0;
        bool fits = false;
    };

    constexpr Decimal(wide::Uint128 bits, int exponent) noexcept
        : low_(wide::lowerHalf(bits)), high_(static_cast<std::int64_t>(wide::upperHalf(bits))),
          exponent_(exponent) {}

    /// The coefficient in two's complement.
    constexpr wide::Uint128 bits() const noexcept {
        return (wide::Uint128{static_cast<std::uint64_t>(high_)} << 64) | low_;
    }

    constexpr wide::Uint128 magnitude() const noexcept {
        return isNegative() ? 0 - bits() : bits();
    }

    /// Whether the coefficient is a signed 64-bit integer, as nearly all amounts and rates are.
    constexpr bool isWord() const noexcept { return high_ == (word() < 0 ? -1 : 0); }
    constexpr std::int64_t word() const noexcept { return static_cast<std::int64_t>(low_); }

    /// Whether a sum of two coefficients certainly has at most 38 digits. Looks at the upper half
    /// alone; sums beyond 127 bits wrap to halves that fail the test too.
    static constexpr bool isSafe(wide::Uint128 sum) noexcept {
        constexpr std::uint64_t limit = wide::upperHalf(wide::powerOfTen(maxDigits));
        return wide::upperHalf(sum) + limit < 2 * limit;
    }

    /// Order of two coefficients in two's complement.
    static constexpr std::strong_ordering order(wide::Uint128 bitsA, wide::Uint128 bitsB) noexcept {
        const auto a = static_cast<wide::Int128>(bitsA);
        const auto b = static_cast<wide::Int128>(bitsB);
        return a < b   ? std::strong_ordering::less
               : b < a ? std::strong_ordering::greater
                       : std::strong_ordering::equal;
    }

    /// Both coefficients at the smaller exponent, unless that takes more than 127 bits.
    static constexpr Aligned align(const Decimal& a, const Decimal& b) noexcept {
        const int distance = a.exponent_ - b.exponent_;
        if (distance == 0) [[likely]]
            return {a.bits(), b.bits(), a.exponent_, true};
        if (distance > 0 && distance <= 18 && a.isWord())
            return {a.widened(distance), b.bits(), b.exponent_, true};
        if (distance < 0 && distance >= -18 && b.isWord())
            return {a.bits(), b.widened(-distance), a.exponent_, true};
        return {};
    }

    /// The coefficient, one word, times 10^`digits`, at most 10^18.
    constexpr wide::Uint128 widened(int digits) const noexcept {
        return static_cast<wide::Uint128>(
            wide::Int128{word()} * static_cast<std::int64_t>(wide::smallPowerOfTen(digits)));
    }

    static constexpr Decimal signedValue(bool negative, wide::Uint128 digits,
                                         int exponent) noexcept {
        return {negative ? 0 - digits : digits, exponent};
    }

    /// The value nearest to (`magnitude` + rest) · 10^`exponent`, the rest being below one unit;
    /// `roundsUp` tells whether it is a half or more.
    static constexpr Decimal fit(bool negative, wide::Uint256 magnitude, std::int64_t exponent,
                                 bool roundsUp = false) noexcept;
    static constexpr Decimal addWide(const Decimal& a, const Decimal& b) noexcept;
    static constexpr Decimal divide(const Decimal& a, const Decimal& b) noexcept;
    static constexpr std::strong_ordering compareWide(const Decimal& a, const Decimal& b) noexcept;
    constexpr Decimal roundWide(int places, bool down) const noexcept;

    /// Rounds to `places`, toward negative infinity if `down`, else to nearest.
    constexpr Decimal roundTo(int places, bool down) const noexcept {
        const std::int64_t cut = -std::int64_t{places} - exponent_;
        if (cut <= 0)
            return *this;
        if (cut <= 18 && isWord() && places >= -maxExponent) [[likely]] {
            const int digits = static_cast<int>(cut);
            const std::uint64_t unit = wide::smallPowerOfTen(digits);
            const std::uint64_t all = wide::lowerHalf(magnitude());
            const std::uint64_t kept = wide::dropDigitsOfWord(all, digits);
            const std::uint64_t rest = all - kept * unit;
            const bool grows = down ? isNegative() && rest != 0 : rest >= unit - rest;
            return signedValue(isNegative(), kept + (grows ? 1U : 0U), -places);
        }
        return roundWide(places, down);
    }

    std::uint64_t low_ = 0; ///< lower half of the coefficient in two's complement
    std::int64_t high_ = 0; ///< upper half, with the sign
    std::int32_t exponent_ = 0;
};

constexpr std::optional<std::int64_t> Decimal::toInteger() const noexcept {
    if (isZero())
        return 0;
    if (!isInteger() || exponent_ > 18)
        return std::nullopt;
    const wide::Uint128 whole =
        exponent_ < 0 ? wide::dropDigits(magnitude(), -exponent_) : magnitude();
    const wide::Uint128 limit = (wide::Uint128{1} << 63) - (isNegative() ? 0U : 1U);
    const wide::Uint128 factor = wide::powerOfTen(exponent_ > 0 ? exponent_ : 0);
    if (whole > limit || whole * factor > limit)
        return std::nullopt;
    const std::uint64_t size = wide::lowerHalf(whole * factor);
    return static_cast<std::int64_t>(isNegative() ? 0 - size : size);
}

constexpr Decimal Decimal::fit(bool negative, wide::Uint256 magnitude, std::int64_t exponent,
                               bool roundsUp) noexcept {
    const wide::Uint128 whole = magnitude.low + (roundsUp ? 1U : 0U);
    if (magnitude.high == 0 && whole < wide::powerOfTen(maxDigits) && exponent >= minExponent
        && exponent <= maxExponent) [[likely]]
        return signedValue(negative, whole, static_cast<int>(exponent));
    const int digits = wide::digitCount(magnitude);
    std::int64_t excess = digits - maxDigits;
    if (excess < minExponent - exponent)
        excess = minExponent - exponent;
    if (digits == 0 || excess > digits)
        return {};
    wide::Uint128 kept = whole;
    if (excess > 0) {
        kept = wide::roundDigits(magnitude, static_cast<int>(excess));
        exponent += excess;
    }
    if (kept == wide::powerOfTen(maxDigits)) {
        kept = wide::powerOfTen(maxDigits - 1);
        ++exponent;
    }
    if (kept == 0)
        return {};
    if (exponent > maxExponent) {
        if (wide::digitCount(kept) + exponent - maxExponent > maxDigits)
            return negative ? -largest() : largest();
        kept *= wide::powerOfTen(static_cast<int>(exponent - maxExponent));
        exponent = maxExponent;
    }
    return signedValue(negative, kept, static_cast<int>(exponent));
}

constexpr Decimal Decimal::addWide(const Decimal& a, const Decimal& b) noexcept {
    if (a.exponent_ < b.exponent_)
        return addWide(b, a);
    if (a.isZero() || b.isZero())
        return a.isZero() ? b : a;
    // The operand of the larger exponent moves left until the exponents agree or it has 76 digits.
    const int distance = a.exponent_ - b.exponent_;
    const int room = 2 * maxDigits - wide::digitCount(a.magnitude());
    const int shift = distance < room ? distance : room;
    const int early = shift > maxDigits ? shift - maxDigits : 0;
    const wide::Uint256 shifted =
        wide::multiply(a.magnitude() * wide::powerOfTen(early), wide::powerOfTen(shift - early));
    // The other one loses the digits that hang over, which are too small to decide the rounding.
    const int over = distance - shift;
    const wide::Uint128 rest = over > maxDigits ? 0 : wide::dropDigits(b.magnitude(), over);
    const int exponent = a.exponent_ - shift;
    if (a.isNegative() == b.isNegative())
        return fit(a.isNegative(), wide::add(shifted, rest), exponent);
    if (shifted.high == 0 && shifted.low < rest)
        return fit(b.isNegative(), {0, rest - shifted.low}, exponent);
    // A subtrahend that lost digits is rounded up, so that the difference is cut, never raised.
    const bool lossy = over > maxDigits || rest * wide::powerOfTen(over) != b.magnitude();
    return fit(a.isNegative(), wide::subtract(shifted, rest + (lossy ? 1U : 0U)), exponent);
}

constexpr Decimal Decimal::divide(const Decimal& a, const Decimal& b) noexcept {
    if (a.isZero())
        return {};
    if (b.isZero())
        return a.isNegative() ? -largest() : largest();
    const bool negative = a.isNegative() != b.isNegative();
    const int exponent = a.exponent_ - b.exponent_;
    const int zeros = wide::digitCount(b.magnitude()) - 1;
    if (b.magnitude() == wide::powerOfTen(zeros))
        return fit(negative, {0, a.magnitude()}, exponent - zeros);
    const wide::Fraction quotient = wide::divideToDigits(a.magnitude(), b.magnitude());
    return fit(negative, {0, quotient.digits}, exponent - quotient.places, quotient.roundsUp);
}

constexpr std::strong_ordering Decimal::compareWide(const Decimal& a, const Decimal& b) noexcept {
    const auto sign = [](const Decimal& x) { return x.isNegative() ? -1 : x.isZero() ? 0 : 1; };
    if (sign(a) != sign(b) || sign(a) == 0)
        return sign(a) <=> sign(b);
    if (a.isNegative())
        return compareWide(-b, -a);
    const int aDigits = wide::digitCount(a.magnitude());
    const int bDigits = wide::digitCount(b.magnitude());
    if (aDigits + a.exponent_ != bDigits + b.exponent_)
        return aDigits + a.exponent_ <=> bDigits + b.exponent_;
    return aDigits < bDigits
               ? order(a.magnitude() * wide::powerOfTen(bDigits - aDigits), b.magnitude())
               : order(a.magnitude(), b.magnitude() * wide::powerOfTen(aDigits - bDigits));
}

constexpr Decimal Decimal::roundWide(int places, bool down) const noexcept {
    const std::int64_t exponent = -std::int64_t{places};
    const bool whole = exponent - exponent_ > maxDigits; // every digit goes, and is below a half
    const int digits = whole ? 0 : static_cast<int>(exponent - exponent_);
    const wide::Uint128 kept = whole ? 0 : wide::dropDigits(magnitude(), digits);
    const wide::Uint128 rest = magnitude() - kept * wide::powerOfTen(digits);
    const bool grows =
        down ? isNegative() && rest != 0 : !whole && rest >= wide::powerOfTen(digits) - rest;
    return fit(isNegative(), {0, kept + (grows ? 1U : 0U)}, exponent);
}

} // namespace taxcore

template <>
struct std::hash<taxcore::Decimal> {
    constexpr std::size_t operator()(const taxcore::Decimal& value) const noexcept {
        return hash_value(value);
    }
};

#include "TaxCore/base/DecimalText.h" // IWYU pragma: export
