#include "Fiscarel_SG/documents/text/DocumentAmount.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace fiscarel {

using taxcore::Date;

namespace {

/// The numbers of a text that are separated by one mark, at most three; empty for anything else.
std::vector<int> numbersBetween(std::string_view text, char mark) {
    std::vector<int> numbers;
    while (!text.empty() && numbers.size() < 3) {
        const std::size_t end = std::min(text.find(mark), text.size());
        int number = 0;
        const auto [stop, error] = std::from_chars(text.data(), text.data() + end, number);
        if (error != std::errc() || stop != text.data() + end || number < 0 || end > 4) {
            return {};
        }
        numbers.push_back(number);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return text.empty() ? numbers : std::vector<int>{};
}

std::string_view withoutMarks(std::string_view text) {
    while (!text.empty() && std::string_view("(«").find(text.front()) != std::string_view::npos) {
        text.remove_prefix(1);
    }
    while (!text.empty() && std::string_view(",;:)").find(text.back()) != std::string_view::npos) {
        text.remove_suffix(1);
    }
    return text;
}

/// A year of two digits is of this century, or of the last when that would lie far ahead.
int fullYear(int year) { return year >= 100 ? year : year > 60 ? 1900 + year : 2000 + year; }

} // namespace

bool PrintedAmount::isYearLike() const {
    return !hasDecimals && !hasMark && value >= 1900 && value <= 2100 && value.isInteger();
}

std::optional<int> parseYear(std::string_view text) {
    const auto number = parseAmount(text);
    const auto year = number && number->isYearLike() ? number->value.toInteger() : std::nullopt;
    return year ? std::optional(static_cast<int>(*year)) : std::nullopt;
}

std::optional<Date> parseDay(std::string_view text) {
    std::string_view day = withoutMarks(text);
    if (day.ends_with('.')) {
        day.remove_suffix(1);
    }
    if (day.size() < 6 || day.size() > 10) {
        return std::nullopt;
    }
    for (const char mark : {'.', '/', '-'}) {
        const auto parts = numbersBetween(day, mark);
        if (parts.size() != 3) {
            continue;
        }
        if (parts[0] > 31) {
            return Date::of(parts[0], parts[1], parts[2]);
        }
        if (mark != '-') {
            return Date::of(fullYear(parts[2]), parts[1], parts[0]);
        }
    }
    return std::nullopt;
}

bool isDayOfYear(std::string_view text) {
    const auto parts = numbersBetween(withoutMarks(text), '.');
    return parts.size() == 2 && Date::of(2024, parts[1], parts[0]).has_value();
}

int monthOf(std::string_view word) {
    struct Row {
        std::string_view name; ///< folded
        int month;
    };
    static constexpr std::array rows{
        Row{"januar", 1},    Row{"janner", 1},    Row{"janvier", 1},   Row{"gennaio", 1},
        Row{"january", 1},   Row{"februar", 2},   Row{"fevrier", 2},   Row{"febbraio", 2},
        Row{"february", 2},  Row{"marz", 3},      Row{"mars", 3},      Row{"marzo", 3},
        Row{"march", 3},     Row{"april", 4},     Row{"avril", 4},     Row{"aprile", 4},
        Row{"mai", 5},       Row{"maggio", 5},    Row{"may", 5},       Row{"juni", 6},
        Row{"juin", 6},      Row{"giugno", 6},    Row{"june", 6},      Row{"juli", 7},
        Row{"juillet", 7},   Row{"luglio", 7},    Row{"july", 7},      Row{"august", 8},
        Row{"aout", 8},      Row{"agosto", 8},    Row{"september", 9}, Row{"septembre", 9},
        Row{"settembre", 9}, Row{"oktober", 10},  Row{"octobre", 10},  Row{"ottobre", 10},
        Row{"october", 10},  Row{"november", 11}, Row{"novembre", 11}, Row{"dezember", 12},
        Row{"decembre", 12}, Row{"dicembre", 12}, Row{"december", 12},
    };
    const std::string folded = foldWords(word);
    const auto row = std::ranges::find(rows, std::string_view(folded), &Row::name);
    return row == rows.end() ? 0 : row->month;
}

std::optional<Date> parseDay(std::string_view day, std::string_view month, std::string_view year) {
    const int monthNumber = monthOf(month);
    if (day.ends_with('.')) {
        day.remove_suffix(1);
    }
    const auto first = numbersBetween(day, '.');
    const auto last = numbersBetween(withoutMarks(year), '.');
    if (monthNumber == 0 || first.size() != 1 || last.size() != 1 || last[0] < 1900) {
        return std::nullopt;
    }
    return Date::of(last[0], monthNumber, first[0]);
}

} // namespace fiscarel
