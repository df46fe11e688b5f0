#include "TaxCore/base/Decimal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <vector>

namespace taxcore {
namespace {

Decimal number(std::string_view text) { return Decimal::parse(text).value(); }

std::string nines(std::size_t count) { return std::string(count, '9'); }
std::string zeros(std::size_t count) { return std::string(count, '0'); }

// What the compiler must know and what it must refuse.

static_assert(sizeof(Decimal) <= 24);
static_assert(std::is_trivially_copyable_v<Decimal>);
static_assert(std::is_nothrow_default_constructible_v<Decimal>);

template <class... T>
constexpr bool allConvert = (std::is_convertible_v<T, Decimal> && ...);
template <class... T>
constexpr bool noneConstructs = (!std::is_constructible_v<Decimal, T> && ...);

static_assert(allConvert<short, unsigned short, int, unsigned, long, unsigned long, long long,
                         unsigned long long>);
static_assert(noneConstructs<float, double, long double>);
static_assert(noneConstructs<bool, char, signed char, unsigned char, wchar_t, char8_t, char16_t,
                             char32_t, const char*, std::string>);

template <class A, class B>
concept Computable = requires(A a, B b) {
    a + b;
}
|| requires(A a, B b) { a* b; }
|| requires(A a, B b) { a == b; }
|| requires(A a, B b) { a < b; };
static_assert(Computable<Decimal, int> && Computable<long, Decimal>);
static_assert(!Computable<Decimal, double> && !Computable<float, Decimal>);
static_assert(!Computable<Decimal, bool> && !Computable<Decimal, char>);

template <char... Text>
concept Literal = requires {
    operator""_dec<Text...>();
};
static_assert(Literal<'0'> && Literal<'1', '2', '.', '3', '5'> && Literal<'1', 'e', '-', '3'>);
static_assert(!Literal<'0', '0', '7'> && !Literal<'0', 'x', '1', '0'>);
static_assert(!Literal<'1', '.'> && !Literal<'.', '5'>);
static_assert(!Literal<'1', 'e', '9', '9', '9'>);

static_assert(12.35_dec + 0.65_dec == 13);
static_assert(-12.35_dec == 0 - 12.35_dec);
static_assert(1'234'567.05_dec == 123456705_dec / 100);
static_assert(0.1_dec + 0.2_dec == 0.3_dec);
static_assert(10_dec / 4 == 2.5_dec);
static_assert((2_dec / 3).roundPlain(4) == 0.6667_dec);
static_assert((-1.21_dec).roundDown(1) == -1.3_dec);
static_assert(1.05_dec * 99999999999999999999999999999999999999_dec == 1.05e38_dec);
static_assert(std::max(2.50_dec, 2.5_dec) == 2.5_dec && std::min(-1_dec, 1_dec) == -1_dec);
static_assert(hash_value(100_dec) == hash_value(100.00_dec));
static_assert((12.00_dec).toInteger() == 12);
static_assert(Decimal::parse("1e-129").error() == DecimalFault::outOfRange);
static_assert([] {
    std::array<char, Decimal::maxPlainLength> text{};
    const char* end = (-12.50_dec).writeTo(text.data());
    return std::string_view(text.data(), end) == "-12.5";
}());

TEST(Decimal, parseReadsTheJsonGrammar) {
    struct Case {
        std::string text;
        std::string plain;
    };
    const std::vector<Case> cases{
        {"0", "0"},
        {"-0", "0"},
        {"-0.00", "0"},
        {"0e999999", "0"},
        {"0.000E-999999999999999999999999", "0"},
        {"12.50", "12.5"},
        {"-12.05", "-12.05"},
        {"1e2", "100"},
        {"1E+2", "100"},
        {"1.5e-3", "0.0015"},
        {"0e1", "0"},
        {"1e007", "10000000"},
        {nines(38), nines(38)},
        {"-" + nines(19) + "." + nines(19), "-" + nines(19) + "." + nines(19)},
        {"0." + zeros(60) + "1", "0." + zeros(60) + "1"},
        {nines(38) + zeros(5), nines(38) + zeros(5)},
        {"123." + zeros(500), "123"},
        {"1" + zeros(300) + "e-300", "1"},
        {"1." + zeros(300) + "e-128", "0." + zeros(127) + "1"},
        {"0." + zeros(300) + "25e300", "0.25"},
        {"1e165", "1" + zeros(165)},
        {nines(38) + "e128", nines(38) + zeros(128)},
        {"9." + nines(37) + "e165", nines(38) + zeros(128)},
        {"1000e-131", "0." + zeros(127) + "1"},
    };
    for (const Case& c : cases) {
        const auto parsed = Decimal::parse(c.text);
        ASSERT_TRUE(parsed) << c.text;
        EXPECT_EQ(parsed->toString(), c.plain) << c.text;
    }
}

TEST(Decimal, parseReportsFaults) {
    struct Case {
        std::string text;
        DecimalFault fault;
    };
    std::vector<Case> cases{
        {nines(39), DecimalFault::tooManyDigits},
        {"1" + zeros(37) + "1", DecimalFault::tooManyDigits},
        {"0.1" + zeros(37) + "1", DecimalFault::tooManyDigits},
        {"1." + zeros(37) + "1e-300", DecimalFault::tooManyDigits},
        {nines(38) + ".1", DecimalFault::tooManyDigits},
        {"1e166", DecimalFault::outOfRange},
        {"10e165", DecimalFault::outOfRange},
        {"99e165", DecimalFault::outOfRange},
        {"1e-129", DecimalFault::outOfRange},
        {"-1.1e-128", DecimalFault::outOfRange},
        {nines(38) + "e129", DecimalFault::outOfRange},
        {nines(38) + "e-129", DecimalFault::outOfRange},
        {"1e2147483648", DecimalFault::outOfRange},
        {"1e-18446744073709551617", DecimalFault::outOfRange},
        {"1e" + nines(400), DecimalFault::outOfRange},
        {nines(39) + "x", DecimalFault::syntax},
        {"1e999x", DecimalFault::syntax},
        {std::string("1\0", 2), DecimalFault::syntax},
    };
    for (const char* text :
         {"",      "-",   "+1",  "007",  "00",    "-01", "01.5", ".5",    "5.",  "-.5",
          "1.e5",  "1e",  "1e+", "1e-",  "e5",    " 1",  "1 ",   "1\n",   "--1", "1-",
          "1.2.3", "1,5", "1'0", "0x10", "1e5.0", "NaN", "inf",  "1e+-2", "-e1", "1_dec"})
        cases.push_back({text, DecimalFault::syntax});
    for (const Case& c : cases) {
        const auto parsed = Decimal::parse(c.text);
        ASSERT_FALSE(parsed) << c.text;
        EXPECT_EQ(parsed.error(), c.fault) << c.text;
    }
}

TEST(Decimal, parseTakesTextsOfMillionsOfDigits) {
    constexpr std::size_t many = 10'000'000;
    EXPECT_EQ(Decimal::parse(nines(many)).error(), DecimalFault::tooManyDigits);
    EXPECT_EQ(Decimal::parse("1" + zeros(many)).error(), DecimalFault::outOfRange);
    EXPECT_EQ(Decimal::parse("1e" + nines(many)).error(), DecimalFault::outOfRange);
    EXPECT_EQ(number("25." + zeros(many)), 25);
    EXPECT_EQ(number("1" + zeros(many) + "e-10000000"), 1);
    EXPECT_EQ(number("0." + zeros(many) + "7e10000001"), 7);
}

TEST(Decimal, literalsAreExact) {
    EXPECT_EQ((12.35_dec).toString(), "12.35");
    EXPECT_EQ((-0.05_dec).toString(), "-0.05");
    EXPECT_EQ((1'000_dec).toString(), "1000");
    EXPECT_EQ((2.5e-3_dec).toString(), "0.0025");
    EXPECT_EQ((0.12345678901234567890123456789012345678_dec).toString(),
              "0.12345678901234567890123456789012345678");
}

TEST(Decimal, integersConvertExactly) {
    EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::min()).toString(), "-9223372036854775808");
    EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::max()).toString(), "9223372036854775807");
    EXPECT_EQ(Decimal(std::numeric_limits<std::uint64_t>::max()).toString(),
              "18446744073709551615");
    EXPECT_EQ(Decimal(std::numeric_limits<std::int32_t>::min()).toString(), "-2147483648");
    EXPECT_EQ(Decimal(std::numeric_limits<std::uint32_t>::max()).toString(), "4294967295");
    EXPECT_EQ(Decimal(std::int16_t{-1}).toString(), "-1");
    EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::min()).abs().toString(),
              "9223372036854775808");
}

TEST(Decimal, printsPlainNotation) {
    struct Case {
        Decimal value;
        std::string plain;
    };
    const std::vector<Case> cases{
        {Decimal{}, "0"},
        {0.00_dec, "0"},
        {-0_dec, "0"},
        {1.5_dec - 1.50_dec, "0"},
        {-1_dec * 0_dec, "0"},
        {0_dec / -3, "0"},
        {(-0.4_dec).roundPlain(0), "0"},
        {100_dec, "100"},
        {1e20_dec, "1" + zeros(20)},
        {-0.10_dec, "-0.1"},
        {10_dec / 4, "2.5"},
        {1_dec / 8, "0.125"},
        {100.00_dec * 1.00_dec, "100"},
        {Decimal::largest(), nines(38) + zeros(128)},
        {-Decimal::largest(), "-" + nines(38) + zeros(128)},
        {-1e-128_dec, "-0." + zeros(127) + "1"},
        {1_dec / 3, "0." + std::string(38, '3')},
        {2_dec / 3, "0." + std::string(37, '6') + "7"},
        {-2000_dec / 3, "-666." + std::string(34, '6') + "7"},
        {1_dec / 7000, "0.000" + std::string("14285714285714285714285714285714285714")},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.value.toString(), c.plain);
        std::ostringstream stream;
        stream << c.value;
        EXPECT_EQ(stream.str(), c.plain);
    }
    EXPECT_EQ((-Decimal::largest()).toString().size(), Decimal::maxPlainLength);
}

TEST(Decimal, roundingTable) {
    struct Case {
        Decimal value;
        int places;
        Decimal plain;
        Decimal down;
    };
    const Decimal big = 1e165_dec;
    const std::vector<Case> cases{
        {1.005_dec, 2, 1.01_dec, 1_dec},
        {-1.005_dec, 2, -1.01_dec, -1.01_dec},
        {1.0049_dec, 2, 1.00_dec, 1.00_dec},
        {-1.0049_dec, 2, -1_dec, -1.01_dec},
        {2.5_dec, 0, 3_dec, 2_dec},
        {-2.5_dec, 0, -3_dec, -3_dec},
        {12'399_dec, -2, 12'400_dec, 12'300_dec},
        {12'350_dec, -2, 12'400_dec, 12'300_dec},
        {-12'301_dec, -2, -12'300_dec, -12'400_dec},
        {12'300.00_dec, -2, 12'300_dec, 12'300_dec},
        {49_dec, -2, 0_dec, 0_dec},
        {50_dec, -2, 100_dec, 0_dec},
        {-0.01_dec, -2, 0_dec, -100_dec},
        {12.34_dec, 5, 12.34_dec, 12.34_dec},
        {12.34_dec, std::numeric_limits<int>::max(), 12.34_dec, 12.34_dec},
        {12.34_dec, std::numeric_limits<int>::min(), 0_dec, 0_dec},
        {-12.34_dec, std::numeric_limits<int>::min(), 0_dec, -Decimal::largest()},
        {0_dec, -200, 0_dec, 0_dec},
        {-1_dec, -165, 0_dec, -big},
        {-1_dec, -166, 0_dec, -Decimal::largest()},
        {6 * big, -165, 6 * big, 6 * big},
        {6 * big, -166, Decimal::largest(), 0_dec},
        {99999999999999999999999999999999999999_dec, -38, 1e38_dec, 0_dec},
        {99999999999999999999999999999999999999_dec, -39, 0_dec, 0_dec},
        {9.9999999999999999999999999999999999999_dec, 36, 10_dec,
         9.999999999999999999999999999999999999_dec},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.value.roundPlain(c.places), c.plain) << c.value << " to " << c.places;
        EXPECT_EQ(c.value.roundDown(c.places), c.down) << c.value << " to " << c.places;
    }
}

TEST(Decimal, overflowSaturatesAndUnderflowVanishes) {
    const Decimal largest = Decimal::largest();
    const Decimal step = 1e-128_dec;
    struct Case {
        const char* what;
        Decimal actual;
        Decimal expected;
    };
    const std::vector<Case> cases{
        {"largest * 10", largest * 10, largest},
        {"-largest * 10", -largest * 10, -largest},
        {"largest + largest", largest + largest, largest},
        {"-largest - largest", -largest - largest, -largest},
        {"largest / 0.1", largest / 0.1_dec, largest},
        {"-largest * -largest", -largest * -largest, largest},
        {"largest + below half a unit", largest + 4e127_dec, largest},
        {"largest - largest", largest - largest, 0_dec},
        {"1e83 * 1e82", 1e83_dec * 1e82_dec, 1e165_dec},
        {"1e83 * 1e83", 1e83_dec * 1e83_dec, largest},
        {"1 / 0", 1_dec / 0, largest},
        {"-1 / 0", -1_dec / 0, -largest},
        {"1 / 0.00", 1_dec / 0.00_dec, largest},
        {"0 / 0", 0_dec / 0, 0_dec},
        {"step / 2", step / 2, step},
        {"-step / 2", -step / 2, -step},
        {"step * 0.49", step * 0.49_dec, 0_dec},
        {"-step * 0.49", -step * 0.49_dec, 0_dec},
        {"step * step", step * step, 0_dec},
        {"step / largest", step / largest, 0_dec},
        {"14 steps / 10", 14e-128_dec / 10, step},
        {"15 steps / 10", 15e-128_dec / 10, 2e-128_dec},
        {"largest + step", largest + step, largest},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.actual, c.expected) << c.what;
    EXPECT_FALSE((-step * 0.49_dec).isNegative());
}

TEST(Decimal, additionRoundsOnTheExactSum) {
    const Decimal wide = 12345678901234567890123456789012345678_dec * 10;
    const Decimal half = 50000000000000000000000000000000000000_dec;
    struct Case {
        const char* what;
        Decimal actual;
        Decimal expected;
    };
    const std::vector<Case> cases{
        {"tie above", wide + 5, wide + 10},
        {"below the tie above", wide + 4.999_dec, wide},
        {"tie below", wide - 5, wide},
        {"beyond the tie below", wide - 5.001_dec, wide - 10},
        {"negative tie", -wide - 5, -wide - 10},
        {"tie at a power of ten", 1e76_dec - half, 1e76_dec},
        {"one digit of 77 beyond the tie", 1e76_dec - (half + 1),
         99999999999999999999999999999999999999e38_dec},
        {"the same, swapped", half + 1 - 1e76_dec, -99999999999999999999999999999999999999e38_dec},
        {"far below the last digit", 1e100_dec - 1e-100_dec, 1e100_dec},
        {"carry into a 39th digit", 99999999999999999999999999999999999999_dec + 1, 1e38_dec},
        {"fraction carried into a 39th digit", 99999999999999999999999999999999999999_dec + 0.5_dec,
         1e38_dec},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.actual, c.expected) << c.what;
}

TEST(Decimal, equalValuesAreOneKey) {
    const std::unordered_set<Decimal> keys{100_dec,      100.00_dec,  1e2_dec,
                                           Decimal(100), 10_dec * 10, 0_dec,
                                           0.00_dec,     -0_dec,      5_dec - 5.0_dec};
    EXPECT_EQ(keys.size(), 2U);
    EXPECT_TRUE(keys.contains(100.000_dec));
    EXPECT_FALSE(keys.contains(-100_dec));
}

TEST(Decimal, hashSpreadsAmounts) {
    std::unordered_set<std::size_t> low;
    for (int cents = 0; cents < 65536; ++cents)
        low.insert(hash_value(Decimal(cents) / 100) & 0xFFFF);
    // Random values would fill about 63 % of the slots.
    EXPECT_GT(low.size(), 40'000U);
}

TEST(Decimal, toIntegerTable) {
    struct Case {
        const char* text;
        std::optional<std::int64_t> integer;
        bool whole;
    };
    const std::vector<Case> cases{
        {"0", 0, true},
        {"0.00e-100", 0, true},
        {"3.00", 3, true},
        {"-3.00", -3, true},
        {"3.01", std::nullopt, false},
        {"1e-50", std::nullopt, false},
        {"12e3", 12000, true},
        {"9223372036854775807", INT64_MAX, true},
        {"9223372036854775808", std::nullopt, true},
        {"-9223372036854775808", INT64_MIN, true},
        {"-9223372036854775809", std::nullopt, true},
        {"-922337203685477580800e-2", INT64_MIN, true},
        {"922337203685477580.700", std::nullopt, false},
        {"1e18", 1'000'000'000'000'000'000, true},
        {"9e18", 9'000'000'000'000'000'000, true},
        {"1e19", std::nullopt, true},
        {"18446744073709551616e18", std::nullopt, true},
        {"1e128", std::nullopt, true},
        {"50000000000000000000000000000000000000e-37", 5, true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(number(c.text).toInteger(), c.integer) << c.text;
        EXPECT_EQ(number(c.text).isInteger(), c.whole) << c.text;
    }
}

TEST(Decimal, compoundAssignmentReadsItsOwnValue) {
    Decimal value = 12.5_dec;
    const Decimal& same = value;
    value += same;
    EXPECT_EQ(value, 25);
    value *= same;
    EXPECT_EQ(value, 625);
    value /= same;
    EXPECT_EQ(value, 1);
    value -= same;
    EXPECT_EQ(value, 0);
}

} // namespace
} // namespace taxcore
