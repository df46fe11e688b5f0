#include "TaxCore/base/Decimal.h"

#include <boost/multiprecision/cpp_int.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

namespace taxcore {
namespace {

using Big = boost::multiprecision::cpp_int;

Decimal number(std::string_view text) { return Decimal::parse(text).value(); }

// Random operations against exact arithmetic.

const Big& powerOfTen(int exponent) {
    static const std::vector<Big> powers = [] {
        std::vector<Big> all{1};
        for (int i = 0; i < 700; ++i)
            all.push_back(all.back() * 10);
        return all;
    }();
    return powers.at(static_cast<std::size_t>(exponent));
}

/// value · 10^exponent.
struct Scaled {
    Big value;
    int exponent = 0;
};

/// An operand, built from its text, beside what it should be worth.
struct Operand {
    Decimal decimal;
    Scaled exact;
    std::string text;
};

Scaled alignedTo(const Scaled& number, int exponent) {
    return {number.value * powerOfTen(number.exponent - exponent), exponent};
}

Scaled sum(const Scaled& a, const Scaled& b) {
    const int exponent = std::min(a.exponent, b.exponent);
    return {alignedTo(a, exponent).value + alignedTo(b, exponent).value, exponent};
}

/// numerator / denominator as a `Decimal` must give it: 38 digits, no digit beyond 10^-128, half
/// away from zero, bounded by the largest value.
Scaled rounded(const Scaled& numerator, const Big& denominator = 1) {
    if (numerator.value == 0)
        return {};
    const bool negative = (numerator.value < 0) != (denominator < 0);
    const Big over = abs(numerator.value);
    const Big under = abs(denominator);
    const auto bits = static_cast<int>(msb(over)) - static_cast<int>(msb(under));
    // Starts with 38 digits or a little more, never with fewer.
    int exponent = std::max(numerator.exponent + (bits - 1) * 30103 / 100000 - 38, -128);
    Big digits;
    Big rest;
    Big unit;
    for (;; ++exponent) {
        const int shift = numerator.exponent - exponent;
        unit = shift < 0 ? Big(under * powerOfTen(-shift)) : under;
        divide_qr(shift > 0 ? Big(over * powerOfTen(shift)) : over, unit, digits, rest);
        if (digits < powerOfTen(38))
            break;
    }
    if (2 * rest >= unit)
        ++digits;
    if (exponent > 128 || (exponent == 128 && digits == powerOfTen(38))) {
        digits = powerOfTen(38) - 1;
        exponent = 128;
    }
    return {negative ? Big(-digits) : digits, exponent};
}

/// A plain text read back, digit by digit, without `Decimal`.
Scaled readPlain(std::string_view text) {
    const bool negative = text.starts_with('-');
    if (negative)
        text.remove_prefix(1);
    int exponent = 0;
    const std::size_t point = text.find('.');
    if (point != std::string_view::npos)
        exponent = -static_cast<int>(text.size() - point - 1);
    const std::size_t last = text.find_last_not_of('0');
    if (point == std::string_view::npos && last != std::string_view::npos) {
        exponent = static_cast<int>(text.size() - last - 1);
        text = text.substr(0, last + 1);
    }
    Big value;
    std::uint64_t word = 0;
    std::uint64_t scale = 1;
    for (const char c : text) {
        if (c == '.')
            continue;
        word = word * 10 + static_cast<std::uint64_t>(c - '0');
        scale *= 10;
        if (scale == 1'000'000'000'000'000'000) {
            value = value * scale + word;
            word = 0;
            scale = 1;
        }
    }
    value = value * scale + word;
    return {negative ? Big(-value) : value, exponent};
}

bool equal(const Scaled& a, const Scaled& b) {
    if (a.value == 0 || b.value == 0)
        return a.value == b.value;
    return a.exponent < b.exponent ? a.value == alignedTo(b, a.exponent).value
                                   : alignedTo(a, b.exponent).value == b.value;
}

class Operands {
  public:
    explicit Operands(std::uint64_t seed) : random_(seed) {
        for (std::size_t i = 0; i < 512; ++i)
            pool_.push_back(make());
    }

    /// A number from a slowly changing pool: making one costs more than computing with it.
    const Operand& next() {
        if (below(8) == 0)
            pool_[below(pool_.size())] = make();
        return pool_[below(pool_.size())];
    }

    /// The same value as `other`, with zeros moved between coefficient and exponent.
    Operand respelled(const Operand& other) {
        Scaled same = other.exact;
        while (same.exponent > -128 && abs(same.value) < powerOfTen(37) && below(4) != 0)
            same = alignedTo(same, same.exponent - 1);
        return made(same);
    }

    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(random_() % limit); }
    int between(int low, int high) {
        return low + static_cast<int>(below(static_cast<std::size_t>(high - low + 1)));
    }

  private:
    Operand make() {
        Scaled number{coefficient(), exponent()};
        if (below(2) == 0)
            number.value = -number.value;
        return made(number);
    }

    static Operand made(const Scaled& number) {
        std::string text = number.value.str() + "e" + std::to_string(number.exponent);
        const Decimal decimal = taxcore::number(text);
        return {decimal, number, std::move(text)};
    }

    Big coefficient() {
        static const std::array<Big, 9> edges{
            0,
            powerOfTen(38) - 1,
            Big(1) << 63,
            (Big(1) << 63) - 1,
            (Big(1) << 64) - 1,
            Big(1) << 64,
            (Big(1) << 64) + 1,
            Big(5421010862427522170) << 64, // the upper half of 10^38
            (Big(5421010862427522170) << 64) - 1,
        };
        const int digits = between(1, 38);
        switch (below(10)) {
        case 0:
            return edges[below(edges.size())];
        case 1: // 10^n - 1, 10^n, 10^n + 1
            return powerOfTen(digits - 1) + between(-1, 1);
        case 2: // halves
            return 5 * powerOfTen(digits - 1) + between(-1, 1);
        case 3: // finite quotients
            return (Big(1) << between(0, 120)) % powerOfTen(38);
        case 4: // money
            return Big(below(100'000'000));
        default: {
            const Big bits = (Big(random_()) << 64) + random_();
            return bits % powerOfTen(digits);
        }
        }
    }

    int exponent() {
        switch (below(8)) {
        case 0:
            return between(-128, 128);
        case 1:
            return below(2) == 0 ? between(-128, -110) : between(110, 128);
        case 2:
        case 3:
            return between(-45, 45);
        default:
            return between(-8, 3);
        }
    }

    std::mt19937_64 random_;
    std::vector<Operand> pool_;
};

constexpr int operationsEach = 155'000; // of eight kinds: 1,240,000

void expectValue(const Decimal& actual, const Scaled& expected, std::string_view operation,
                 const Operand& a, const Operand& b) {
    const std::string text = actual.toString();
    ASSERT_TRUE(equal(readPlain(text), expected))
        << operation << "\n  a: " << a.text << "\n  b: " << b.text << "\n  result: " << text
        << "\n  expected: " << expected.value << "e" << expected.exponent;
}

TEST(DecimalRandom, add) {
    Operands operands(1);
    for (int i = 0; i < operationsEach && !HasFatalFailure(); ++i) {
        const Operand a = operands.next();
        const Operand& b = operands.next();
        expectValue(a.decimal + b.decimal, rounded(sum(a.exact, b.exact)), "a + b", a, b);
    }
}

TEST(DecimalRandom, subtract) {
    Operands operands(2);
    for (int i = 0; i < operationsEach && !HasFatalFailure(); ++i) {
        const Operand a = operands.next();
        const Operand b = i % 8 == 0 ? operands.respelled(a) : operands.next();
        const Scaled negated{-b.exact.value, b.exact.exponent};
        expectValue(a.decimal - b.decimal, rounded(sum(a.exact, negated)), "a - b", a, b);
    }
}

TEST(DecimalRandom, multiply) {
    Operands operands(3);
    for (int i = 0; i < operationsEach && !HasFatalFailure(); ++i) {
        const Operand a = operands.next();
        const Operand& b = operands.next();
        const Scaled product{a.exact.value * b.exact.value, a.exact.exponent + b.exact.exponent};
        expectValue(a.decimal * b.decimal, rounded(product), "a * b", a, b);
    }
}

TEST(DecimalRandom, divide) {
    Operands operands(4);
    const Big largest = powerOfTen(38) - 1;
    for (int i = 0; i < operationsEach && !HasFatalFailure(); ++i) {
        const Operand a = operands.next();
        const Operand& b = operands.next();
        Scaled expected;
        if (b.exact.value != 0)
            expected = rounded({a.exact.value, a.exact.exponent - b.exact.exponent}, b.exact.value);
        else if (a.exact.value != 0)
            expected = {a.exact.value < 0 ? Big(-largest) : largest, 128};
        expectValue(a.decimal / b.decimal, expected, "a / b", a, b);
    }
}

TEST(DecimalRandom, compare) {
    Operands operands(5);
    for (int i = 0; i < operationsEach; ++i) {
        const Operand a = operands.next();
        const Operand b = i % 4 == 0 ? operands.respelled(a) : operands.next();
        const Big difference = sum(a.exact, {-b.exact.value, b.exact.exponent}).value;
        ASSERT_EQ(a.decimal == b.decimal, difference == 0) << a.text << " == " << b.text;
        ASSERT_EQ(a.decimal < b.decimal, difference < 0) << a.text << " < " << b.text;
        ASSERT_EQ(a.decimal > b.decimal, difference > 0) << a.text << " > " << b.text;
        if (difference == 0) {
            ASSERT_EQ(hash_value(a.decimal), hash_value(b.decimal)) << a.text << ", " << b.text;
        }
    }
}

/// floor or half away from zero to a multiple of 10^-places.
Scaled roundedAt(const Scaled& number, int places, bool down) {
    const int cut = -places - number.exponent;
    if (cut <= 0)
        return number;
    Big kept;
    Big rest;
    divide_qr(Big(abs(number.value)), powerOfTen(cut), kept, rest);
    const bool grows = down ? number.value < 0 && rest != 0 : 2 * rest >= powerOfTen(cut);
    if (grows)
        ++kept;
    return rounded({number.value < 0 ? Big(-kept) : kept, -places});
}

void checkRounding(std::uint64_t seed, bool down) {
    Operands operands(seed);
    for (int i = 0; i < operationsEach; ++i) {
        const Operand& a = operands.next();
        // Mostly somewhere in the coefficient, else anywhere.
        const int places = operands.below(4) != 0 ? -a.exact.exponent - operands.between(-2, 40)
                                                  : operands.between(-180, 180);
        const Decimal actual = down ? a.decimal.roundDown(places) : a.decimal.roundPlain(places);
        const Scaled expected = roundedAt(a.exact, places, down);
        ASSERT_TRUE(equal(readPlain(actual.toString()), expected))
            << a.text << " to " << places << " gave " << actual << ", not " << expected.value << "e"
            << expected.exponent;
    }
}

TEST(DecimalRandom, roundPlain) { checkRounding(6, false); }

TEST(DecimalRandom, roundDown) { checkRounding(7, true); }

TEST(DecimalRandom, parseAndPrint) {
    Operands operands(8);
    for (int i = 0; i < operationsEach; ++i) {
        const Operand& a = operands.next();
        std::array<char, Decimal::maxPlainLength> buffer{};
        const std::string_view text(buffer.data(), a.decimal.writeTo(buffer.data()));
        ASSERT_TRUE(equal(readPlain(text), a.exact)) << a.text << " printed as " << text;
        ASSERT_FALSE(text.find('.') != text.npos && text.ends_with('0')) << text;
        const auto again = Decimal::parse(text);
        ASSERT_TRUE(again && *again == a.decimal) << a.text << " read back from " << text;
    }
}

// The integers below, where carries and estimates go wrong for one value in 2^64.

wide::Uint128 joined(std::uint64_t high, std::uint64_t low) {
    return (wide::Uint128{high} << 64) | low;
}

Big big(wide::Uint128 value) {
    return (Big(wide::upperHalf(value)) << 64) + wide::lowerHalf(value);
}

Big big(wide::Uint256 value) { return (big(value.high) << 128) + big(value.low); }

TEST(WideInteger, multipliesAndDividesAtTheEdgesOfWords) {
    std::mt19937_64 random(9);
    const std::array<std::uint64_t, 6> edges{
        0, 1, UINT64_MAX, UINT64_MAX - 1, std::uint64_t{1} << 63, (std::uint64_t{1} << 63) - 1};
    const auto word = [&] { return random() % 4 == 0 ? random() : edges[random() % edges.size()]; };
    for (int i = 0; i < 20'000; ++i) {
        const wide::Uint128 a = joined(word(), word());
        const wide::Uint128 divisor = joined(word(), word());
        ASSERT_EQ(big(wide::multiply(a, divisor)), big(a) * big(divisor));
        if (divisor == 0)
            continue;
        // Dividends right below a multiple of the divisor push the digit estimates up.
        const wide::Uint256 dividend =
            random() % 2 == 0
                ? wide::Uint256{joined(word(), word()) % divisor, joined(word(), word())}
                : wide::Uint256{divisor - 1, joined(word(), word())};
        const wide::Quotient result = wide::divide(dividend, divisor);
        ASSERT_EQ(big(result.quotient), big(dividend) / big(divisor))
            << big(dividend) << " / " << big(divisor);
        ASSERT_EQ(big(result.remainder), big(dividend) % big(divisor))
            << big(dividend) << " / " << big(divisor);
    }
}

TEST(WideInteger, dropsDigitsExactlyUpToItsBounds) {
    std::mt19937_64 random(10);
    for (int i = 0; i < 20'000; ++i) {
        const int digits = static_cast<int>(random() % 39);
        const wide::Uint128 unit = wide::powerOfTen(digits);
        const wide::Uint128 bound = wide::Uint128{1} << (random() % 2 == 0 ? 127 : 63);
        const wide::Uint128 any = joined(random(), random()) % (bound + 1);
        // Right below, at and above a multiple, where the reciprocal's error would show.
        for (const wide::Uint128 value : {any, any / unit * unit, any / unit * unit - 1,
                                          bound / unit * unit, bound / unit * unit - 1, bound}) {
            if (value <= bound) {
                ASSERT_EQ(big(wide::dropDigits(value, digits)), big(value / unit))
                    << big(value) << " without " << digits;
            }
        }
    }
}

// Tables.

} // namespace
} // namespace taxcore
