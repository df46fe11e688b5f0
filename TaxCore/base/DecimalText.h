#pragma once

// The text form of `Decimal`: reading, writing and literals. Comes with "TaxCore/base/Decimal.h".

#include "TaxCore/base/Decimal.h" // IWYU pragma: keep

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace taxcore {

constexpr char* Decimal::writeTo(char* first) const noexcept {
    std::array<char, maxDigits> digits{};
    const char* end = digits.data() + digits.size();
    const char* start = wide::writeDigits(magnitude(), digits.data() + digits.size());
    int exponent = isZero() ? 0 : exponent_;
    for (; exponent < 0 && end[-1] == '0'; ++exponent)
        --end;
    if (isNegative())
        *first++ = '-';
    const int wholeDigits = static_cast<int>(end - start) + exponent;
    if (wholeDigits <= 0)
        *first++ = '0';
    for (int i = 0; i < wholeDigits; ++i)
        *first++ = start < end ? *start++ : '0';
    if (exponent < 0)
        *first++ = '.';
    for (int i = wholeDigits; i < 0; ++i)
        *first++ = '0';
    while (start < end)
        *first++ = *start++;
    return first;
}

namespace detail {

/// Where the parts of a number stand in its text.
struct NumberParts {
    std::size_t first = 0; ///< the first digit
    std::size_t point = 0; ///< the point, or the end of the whole digits when there is none
    std::size_t last = 0;  ///< the end of the digits
    std::int64_t exponent = 0;
};

/// Takes a text apart by the number grammar of JSON; absent when it is not one.
constexpr std::optional<NumberParts> numberParts(std::string_view text) noexcept {
    const auto skipDigits = [text](std::size_t at) {
        while (at < text.size() && text[at] >= '0' && text[at] <= '9')
            ++at;
        return at;
    };
    const auto is = [text](std::size_t at, char mark) {
        return at < text.size() && text[at] == mark;
    };
    NumberParts parts{.first = text.starts_with('-') ? 1U : 0U};
    parts.point = skipDigits(parts.first);
    if (parts.point == parts.first || (text[parts.first] == '0' && parts.point > parts.first + 1))
        return std::nullopt;
    parts.last = parts.point;
    if (is(parts.point, '.')) {
        parts.last = skipDigits(parts.point + 1);
        if (parts.last == parts.point + 1)
            return std::nullopt;
    }
    std::size_t at = parts.last;
    if (is(at, 'e') || is(at, 'E')) {
        ++at;
        const bool down = is(at, '-');
        at += down || is(at, '+') ? 1U : 0U;
        const std::size_t end = skipDigits(at);
        if (end == at)
            return std::nullopt;
        for (; at < end; ++at) {
            // Capped where no text is long enough to bring it back into range.
            if (parts.exponent < 100'000'000'000'000'000)
                parts.exponent = parts.exponent * 10 + (text[at] - '0');
        }
        parts.exponent = down ? -parts.exponent : parts.exponent;
    }
    return at == text.size() ? std::optional(parts) : std::nullopt;
}

} // namespace detail

constexpr tl::expected<Decimal, DecimalFault> Decimal::parse(std::string_view text) noexcept {
    const auto fault = [](DecimalFault reason) { return tl::unexpected<DecimalFault>(reason); };
    const auto parts = detail::numberParts(text);
    if (!parts)
        return fault(DecimalFault::syntax);
    auto [first, point, last, exponent] = *parts;
    while (first < last && (text[first] == '0' || text[first] == '.'))
        ++first;
    if (first == last)
        return Decimal{};
    const auto digitsUpTo = [start = first, point = point](std::size_t end) {
        return end - start - (start < point && point < end ? 1 : 0);
    };
    if (digitsUpTo(last) > maxDigits) {
        while (text[last - 1] == '0' || text[last - 1] == '.')
            --last;
        if (digitsUpTo(last) > maxDigits)
            return fault(DecimalFault::tooManyDigits);
    }
    exponent += last > point ? -static_cast<std::int64_t>(last - point - 1)
                             : static_cast<std::int64_t>(point - last);
    wide::Uint128 digits = wide::readDigits(text.substr(first, last - first));
    if (exponent < minExponent)
        exponent += wide::stripZeros(digits);
    const std::int64_t above = exponent > maxExponent ? exponent - maxExponent : 0;
    if (exponent < minExponent || wide::digitCount(digits) + above > maxDigits)
        return fault(DecimalFault::outOfRange);
    if (above > 0)
        digits *= wide::powerOfTen(static_cast<int>(above));
    return signedValue(text.starts_with('-'), digits, static_cast<int>(exponent - above));
}

namespace detail {

template <char... Text>
inline constexpr auto decimalLiteral = [] {
    constexpr std::array<char, sizeof...(Text)> written{Text...};
    std::array<char, sizeof...(Text)> digits{};
    std::size_t length = 0;
    for (const char c : written) {
        if (c != '\'')
            digits[length++] = c;
    }
    return Decimal::parse({digits.data(), length});
}();

} // namespace detail

inline namespace literals {

/// 12.35_dec, 1'000_dec, 2.5e-3_dec: exactly the number written. What `Decimal::parse` would not
/// read without the digit separators does not compile.
template <char... Text>
requires(detail::decimalLiteral<Text...>.has_value()) consteval Decimal operator""_dec() noexcept {
    return *detail::decimalLiteral<Text...>;
}

} // namespace literals

} // namespace taxcore
