#include "tests/support/RandomCase.h"

#include <iterator>

namespace taxcore::testing {

void RandomCase::fill(int& value) {
    const auto any = static_cast<int>(static_cast<std::uint32_t>(draw_()));
    value = below(2) == 0 ? any : any % 100;
}

void RandomCase::fill(std::string& text) {
    using namespace std::string_view_literals;
    constexpr std::string_view pieces[] = {"a",      "Bahnhofstrasse 7",
                                           "ä",      "ÖÜ",
                                           "é",      "’",
                                           "😀",      "👩‍👧",
                                           "\"",     "\\",
                                           "\\u",    "/",
                                           "\n",     "\t",
                                           "\r",     "\0"sv,
                                           "\x01",   "\x1f",
                                           "\x7f",   "\u0080",
                                           "\u2028", "\ufeff",
                                           "\uffff", "\U0010ffff",
                                           " ",      ",",
                                           "null",   "{\"x\":[1,"};
    text.clear();
    for (std::size_t left = below(8); left > 0; --left) {
        text += pieces[below(std::size(pieces))];
    }
}

void RandomCase::fill(Decimal& amount) {
    const bool everyday = below(3) == 0;
    const std::size_t digits = 1 + below(everyday ? 8 : Decimal::maxDigits);
    std::string text = below(2) == 0 ? "-" : "";
    for (std::size_t i = 0; i < digits; ++i) {
        text += static_cast<char>(i == 0 ? '1' + below(9) : '0' + below(10));
    }
    const int exponent = everyday ? -2 : static_cast<int>(below(257)) + Decimal::minExponent;
    amount = below(10) == 0 ? 0 : Decimal::parse(text + "e" + std::to_string(exponent)).value();
}

void RandomCase::fill(Date& date) {
    const auto number = [this](int first, std::size_t count) {
        return first + static_cast<int>(below(count));
    };
    std::optional<Date> drawn;
    while (!drawn) {
        drawn = Date::of(number(1900, 201), number(1, 12), number(1, 31));
    }
    date = *drawn;
}

void RandomCase::fill(Uuid& id) {
    std::string text = "00000000-0000-0000-0000-000000000000";
    for (char& c : text) {
        c = c == '-' ? c : "0123456789ABCDEF"[below(16)];
    }
    id = Uuid::parse(text).value();
}

} // namespace taxcore::testing
