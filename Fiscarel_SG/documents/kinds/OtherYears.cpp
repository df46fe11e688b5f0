#include "Fiscarel_SG/documents/kinds/OtherYears.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace fiscarel {

namespace {

using taxcore::Decimal;

/// What a row says of a year.
struct YearRow {
    int year = 0;
    std::string words; ///< its others, by which the rows of several years are told to say the same
    std::size_t amounts = 0;
    Decimal last; ///< its last amount
};

/// The year a word is, or whose last day it is.
std::optional<int> yearAt(const Row& row, std::size_t at) {
    std::string_view text = row.words[at].text;
    while (!text.empty() && std::string_view(",;:)").find(text.back()) != text.npos) {
        text.remove_suffix(1);
    }
    while (text.starts_with('(')) {
        text.remove_prefix(1);
    }
    const auto day = parseDay(text);
    return day && day->month() == 12 && day->day() == 31 ? std::optional(day->year())
           : day                                         ? std::nullopt
                                                         : yearOf2000s(text);
}

/// Absent for rows without an amount, of no year or of several, or that tell another day.
std::optional<YearRow> yearRowOf(const Row& row) {
    YearRow told;
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        const auto amount = std::ranges::find_if(row.amounts, [i](const RowAmount& one) {
            return one.amount.isFirm() && one.first <= i && i <= one.last;
        });
        if (amount != row.amounts.end()) {
            told.amounts += amount->first == i ? 1U : 0U;
            told.last = amount->amount.value;
            continue;
        }
        const auto year = yearAt(row, i);
        const bool isOfOther = year && told.year != 0 && told.year != *year;
        if (isOfOther || (!year && parseDay(row.words[i].text))) {
            return std::nullopt;
        }
        told.year = year.value_or(told.year);
        if (!year && !row.words[i].folded.empty() && !isFrancs(row.words[i].text)) {
            told.words += row.words[i].folded + ' ';
        }
    }
    const bool isBare = told.words.empty() && !yearAt(row, 0);
    return told.year == 0 || told.amounts == 0 || isBare ? std::nullopt : std::optional(told);
}

class YearRows {
  public:
    explicit YearRows(const PageRows& page) : page_(page) {
        for (const Row& row : page.rows) {
            if (const auto told = yearRowOf(row)) {
                all_[{told->words, told->amounts}].push_back(*told);
            }
        }
    }

    /// Whether a row is of another year, says the same as one of the year, and no total is of both.
    bool isOther(const Row& row, int year) const {
        const auto told = yearRowOf(row);
        if (!told || told->year == year) {
            return false;
        }
        const auto& same = all_.at({told->words, told->amounts});
        return std::ranges::count(same, year, &YearRow::year) == 1 && !haveTotal(same);
    }

  private:
    bool haveTotal(const std::vector<YearRow>& rows) const {
        Decimal sum;
        for (const YearRow& row : rows) {
            sum = sum + row.last;
        }
        return findSum(page_, sum) != nullptr;
    }

    const PageRows& page_;
    std::map<std::pair<std::string, std::size_t>, std::vector<YearRow>> all_;
};

} // namespace

DocumentRows withoutOtherYears(const DocumentRows& document, std::optional<int> year) {
    DocumentRows kept = document;
    for (std::size_t i = 0; year && i < kept.pages.size(); ++i) {
        const YearRows rows(document.pages[i]);
        std::erase_if(kept.pages[i].rows, [&](const Row& row) { return rows.isOther(row, *year); });
    }
    return kept;
}

} // namespace fiscarel
