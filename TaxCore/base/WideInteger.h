#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// Unsigned integer arithmetic of 128 and 256 bits and its powers of ten: the machinery below
/// `Decimal`. Preconditions are the caller's business; nothing here checks them.
namespace taxcore::wide {

__extension__ typedef unsigned __int128 Uint128; // NOLINT(modernize-use-using)
__extension__ typedef __int128 Int128;           // NOLINT(modernize-use-using)

struct Uint256 {
    Uint128 high = 0;
    Uint128 low = 0;
};

constexpr std::uint64_t upperHalf(Uint128 value) noexcept {
    return static_cast<std::uint64_t>(value >> 64);
}

constexpr std::uint64_t lowerHalf(Uint128 value) noexcept {
    return static_cast<std::uint64_t>(value);
}

/// The exact product.
constexpr Uint256 multiply(Uint128 a, Uint128 b) noexcept {
    const Uint128 low = Uint128{lowerHalf(a)} * lowerHalf(b);
    const Uint128 cross = Uint128{upperHalf(a)} * lowerHalf(b) + upperHalf(low);
    const Uint128 middle = Uint128{lowerHalf(a)} * upperHalf(b) + lowerHalf(cross);
    return {Uint128{upperHalf(a)} * upperHalf(b) + upperHalf(cross) + upperHalf(middle),
            (middle << 64) | lowerHalf(low)};
}

/// `augend + addend`; the sum must fit.
constexpr Uint256 add(Uint256 augend, Uint128 addend) noexcept {
    const Uint128 low = augend.low + addend;
    return {augend.high + (low < addend ? 1U : 0U), low};
}

/// `minuend - subtrahend`; the difference must not be negative.
constexpr Uint256 subtract(Uint256 minuend, Uint128 subtrahend) noexcept {
    return {minuend.high - (minuend.low < subtrahend ? 1U : 0U), minuend.low - subtrahend};
}

struct Quotient {
    Uint128 quotient = 0;
    Uint128 remainder = 0;
};

/// One digit of long division in base 2^64: divides `high`·2^64 + `next` by a divisor whose top
/// bit is set, and leaves the remainder in `high`. Requires `high` < `divisor`.
constexpr std::uint64_t divideStep(Uint128& high, std::uint64_t next, Uint128 divisor) noexcept {
    const std::uint64_t lead = upperHalf(divisor);
    Uint128 digit = high / lead;
    Uint128 rest = high - digit * lead;
    // The leading half alone overestimates the digit by two at most.
    while (upperHalf(rest) == 0 && digit * lowerHalf(divisor) > ((rest << 64) | next)) {
        --digit;
        rest += lead;
    }
    high = ((high << 64) | next) - digit * divisor;
    return lowerHalf(digit);
}

/// Quotient and remainder. Requires `dividend.high` < `divisor`, so that the quotient fits.
constexpr Quotient divide(Uint256 dividend, Uint128 divisor) noexcept {
    const int shift = std::countl_zero(upperHalf(divisor)) == 64
                          ? 64 + std::countl_zero(lowerHalf(divisor))
                          : std::countl_zero(upperHalf(divisor));
    if (shift > 0) {
        // NOLINTNEXTLINE(clang-analyzer-core.*): the divisor is not 0, so shift is below 128
        divisor <<= shift;
        dividend.high = (dividend.high << shift) | (dividend.low >> (128 - shift));
        dividend.low <<= shift;
    }
    Uint128 rest = dividend.high;
    const std::uint64_t first = divideStep(rest, upperHalf(dividend.low), divisor);
    const std::uint64_t second = divideStep(rest, lowerHalf(dividend.low), divisor);
    return {(Uint128{first} << 64) | second, rest >> shift};
}

/// 10^0 to 10^38, all the powers of ten a 128-bit integer holds.
inline constexpr std::array<Uint128, 39> powersOfTen = [] {
    std::array<Uint128, 39> powers{};
    Uint128 power = 1;
    for (Uint128& entry : powers) {
        entry = power;
        power *= 10;
    }
    return powers;
}();

/// 10^`exponent`, `exponent` from 0 to 38.
constexpr Uint128 powerOfTen(int exponent) noexcept {
    return powersOfTen[static_cast<std::size_t>(exponent)];
}

/// 10^`exponent`, `exponent` from 0 to 19.
constexpr std::uint64_t smallPowerOfTen(int exponent) noexcept {
    return lowerHalf(powerOfTen(exponent));
}

constexpr int bitWidth(Uint128 value) noexcept {
    return upperHalf(value) != 0 ? 64 + static_cast<int>(std::bit_width(upperHalf(value)))
                                 : static_cast<int>(std::bit_width(lowerHalf(value)));
}

/// Number of decimal digits; 0 has none.
constexpr int digitCount(Uint128 value) noexcept {
    const int atLeast = (bitWidth(value) * 1233) >> 12; // 1233 / 4096 is just below log10(2)
    return atLeast + (value >= powerOfTen(atLeast) ? 1 : 0);
}

/// Number of decimal digits of a value below 10^76.
constexpr int digitCount(Uint256 value) noexcept {
    if (value.high == 0)
        return digitCount(value.low);
    const int atLeast = ((128 + bitWidth(value.high)) * 1233) >> 12;
    const Uint256 power = multiply(powerOfTen(38), powerOfTen(atLeast - 38));
    const bool reached =
        value.high != power.high ? value.high > power.high : value.low >= power.low;
    return atLeast + (reached ? 1 : 0);
}

namespace detail {

/// Factors that turn division by 10^k into a multiplication: ceil(2^(127 + L) / 10^k), L being the
/// bit width of 10^k. The product's error stays below one unit for every dividend up to 2^127.
inline constexpr std::array<Uint128, 39> reciprocals = [] {
    std::array<Uint128, 39> factors{};
    for (std::size_t k = 1; k < factors.size(); ++k) {
        const Uint256 dividend{Uint128{1} << (bitWidth(powersOfTen[k]) - 1), 0};
        factors[k] = divide(dividend, powersOfTen[k]).quotient + 1;
    }
    return factors;
}();

/// The same for dividends up to 2^63: ceil(2^(63 + L) / 10^k).
inline constexpr std::array<std::uint64_t, 20> smallReciprocals = [] {
    std::array<std::uint64_t, 20> factors{};
    for (std::size_t k = 1; k < factors.size(); ++k) {
        const int width = bitWidth(powersOfTen[k]);
        factors[k] = lowerHalf((Uint128{1} << (63 + width)) / powersOfTen[k] + 1);
    }
    return factors;
}();

} // namespace detail

/// floor(`value` / 10^`digits`) for `value` up to 2^63, `digits` from 1 to 19.
constexpr std::uint64_t dropDigitsOfWord(std::uint64_t value, int digits) noexcept {
    const std::uint64_t factor = detail::smallReciprocals[static_cast<std::size_t>(digits)];
    // NOLINTNEXTLINE(clang-analyzer-core.*): the table has every power
    return upperHalf(Uint128{value} * factor) >> (std::bit_width(smallPowerOfTen(digits)) - 1);
}

/// floor(`value` / 10^`digits`) for `value` up to 2^127, `digits` from 0 to 38.
constexpr Uint128 dropDigits(Uint128 value, int digits) noexcept {
    if (digits == 0)
        return value;
    if (value <= Uint128{1} << 63)
        return digits <= 19 ? dropDigitsOfWord(lowerHalf(value), digits) : 0;
    const Uint128 factor = detail::reciprocals[static_cast<std::size_t>(digits)];
    return multiply(value, factor).high >> (bitWidth(powerOfTen(digits)) - 1);
}

/// `value` / 10^`digits`, rounded to nearest, half up, `digits` from 1 to 76. Requires `value`
/// below 2^127 · 10^38 and a result below 2^127.
constexpr Uint128 roundDigits(Uint256 value, int digits) noexcept {
    if (digits > 38) {
        // Cutting first is no second rounding: the half that decides lies above the cut.
        value = {0, divide(value, powerOfTen(38)).quotient};
        digits -= 38;
    }
    value = add(value, powerOfTen(digits) / 2);
    return value.high == 0 && (value.low >> 127) == 0 ? dropDigits(value.low, digits)
                                                      : divide(value, powerOfTen(digits)).quotient;
}

/// Takes the trailing zeros off `value`, which must be positive and below 2^127; returns how many.
constexpr int stripZeros(Uint128& value) noexcept {
    int stripped = 0;
    for (int step = 32; step > 0; step /= 2) {
        // Each zero is a factor of two as well; counting those rules out most divisions.
        const int twos = lowerHalf(value) != 0 ? std::countr_zero(lowerHalf(value)) : 64;
        if (step > twos)
            continue;
        const Uint128 shorter = dropDigits(value, step);
        if (shorter * powerOfTen(step) == value) {
            value = shorter;
            stripped += step;
        }
    }
    return stripped;
}

/// `digits` / 10^`places`, cut at the last digit; `roundsUp` if what was cut is half a unit or
/// more.
struct Fraction {
    Uint128 digits = 0;
    int places = 0;
    bool roundsUp = false;
};

namespace detail {

constexpr Fraction divideWords(std::uint64_t dividend, std::uint64_t divisor) noexcept {
    Fraction result{dividend / divisor, 0, false};
    std::uint64_t rest = dividend % divisor;
    int count = digitCount(result.digits);
    while (rest != 0 && count < 38) {
        int step = 38 - count < 19 ? 38 - count : 19;
        const Uint128 scaled = Uint128{rest} * smallPowerOfTen(step);
        Uint128 next = lowerHalf(scaled / divisor);
        rest = lowerHalf(scaled - next * divisor);
        if (rest == 0)
            step -= stripZeros(next);
        result.digits = result.digits * smallPowerOfTen(step) + next;
        result.places += step;
        count = count == 0 ? digitCount(result.digits) : count + step;
    }
    result.roundsUp = rest != 0 && rest >= divisor - rest;
    return result;
}

} // namespace detail

/// The quotient of two positive integers of up to 38 digits: exact and without zeros at the end of
/// the fraction if 38 digits suffice, else its first 38 digits.
constexpr Fraction divideToDigits(Uint128 dividend, Uint128 divisor) noexcept {
    if (upperHalf(dividend) == 0 && upperHalf(divisor) == 0)
        return detail::divideWords(lowerHalf(dividend), lowerHalf(divisor));
    const int gap = digitCount(divisor) - digitCount(dividend);
    dividend *= powerOfTen(gap > 0 ? gap : 0);
    divisor *= powerOfTen(gap < 0 ? -gap : 0);
    // Now of the same length, they have a quotient between 1/10 and 10.
    const int scale = dividend < divisor ? 38 : 37;
    Quotient result = divide(multiply(dividend, powerOfTen(scale)), divisor);
    const int spare = result.remainder == 0 ? stripZeros(result.quotient) : 0;
    return {result.quotient, gap + scale - spare, result.remainder >= divisor - result.remainder};
}

/// The number that the digits of `text` make, at most 38 of them; other characters are passed over.
constexpr Uint128 readDigits(std::string_view text) noexcept {
    Uint128 value = 0;
    std::uint64_t word = 0; // words multiply faster
    int inWord = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            continue;
        word = word * 10 + static_cast<std::uint64_t>(c - '0');
        if (++inWord == 19) {
            value = value * smallPowerOfTen(inWord) + word;
            word = 0;
            inWord = 0;
        }
    }
    return value * smallPowerOfTen(inWord) + word;
}

/// Writes the digits of `value`, below 2^127, so that they end before `end`; returns their start.
/// 0 has no digits.
constexpr char* writeDigits(Uint128 value, char* end) noexcept {
    while (upperHalf(value) != 0) {
        const Uint128 above = dropDigits(value, 18);
        std::uint64_t word = lowerHalf(value - above * smallPowerOfTen(18));
        for (int i = 0; i < 18; ++i, word /= 10)
            *--end = static_cast<char>('0' + word % 10);
        value = above;
    }
    for (std::uint64_t word = lowerHalf(value); word != 0; word /= 10)
        *--end = static_cast<char>('0' + word % 10);
    return end;
}

} // namespace taxcore::wide
