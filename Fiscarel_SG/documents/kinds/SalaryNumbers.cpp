#include "Fiscarel_SG/documents/kinds/SalaryNumbers.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace fiscarel {

namespace {

/// The number a row begins with: 10 for "10.1", 0 for none.
int leadingNumber(const Row& row) {
    if (row.words.empty()) {
        return 0;
    }
    const std::string& first = row.words.front().folded;
    int number = 0;
    for (const char c : first.substr(0, std::min(first.find(' '), first.size()))) {
        if (c < '0' || c > '9' || number > 99) {
            return 0;
        }
        number = number * 10 + (c - '0');
    }
    return number;
}

/// The number a box has behind its label: 10 for "[10.1]", "(10.1)" and "(Ziffer 10.1)"; 0 for
/// none.
int closingNumber(const Row& row) {
    static const Labels names{"Ziffer", "Ziff",     "Feld",  "Pos",     "chiffre",
                              "ch",     "rubrique", "cifra", "casella", "box"};
    for (std::size_t i = row.words.size(); i-- > 1;) {
        std::string_view text = row.words[i].text;
        const bool isOpened = text.starts_with('(') || text.starts_with('[');
        const bool isNamed = isAnyIn(row.words[i - 1].folded, names);
        if ((!text.ends_with(')') && !text.ends_with(']')) || (!isOpened && !isNamed)) {
            continue;
        }
        text.remove_prefix(isOpened ? 1 : 0);
        text = text.substr(0, text.find_first_of(".)]"));
        if (const auto number = smallNumber(text, 2)) {
            return *number;
        }
    }
    return 0;
}

/// A box's own number as the form prints it: "8", "8.", "10.1", "[10.1]"; empty for other words.
std::string_view printedNumber(std::string_view word) {
    while (!word.empty() && std::string_view("([").find(word.front()) != word.npos) {
        word.remove_prefix(1);
    }
    while (!word.empty() && std::string_view(".:)]").find(word.back()) != word.npos) {
        word.remove_suffix(1);
    }
    return word;
}

/// The place of a number among those of the form, in its order; absent for other words.
std::optional<std::size_t> orderOfNumber(std::string_view word) {
    static constexpr std::array<std::string_view, 30> numbers{
        "1",      "2",    "2.1",    "2.2",    "2.3",    "3",    "4",  "5",  "6",    "7",
        "8",      "9",    "10",     "10.1",   "10.2",   "11",   "12", "13", "13.1", "13.1.1",
        "13.1.2", "13.2", "13.2.1", "13.2.2", "13.2.3", "13.3", "14", "15", "16",   "17"};
    const auto found = std::ranges::find(numbers, printedNumber(word));
    return found == numbers.end()
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(found - numbers.begin()));
}

/// That of a row's number.
std::optional<std::size_t> orderOf(const Row& row) {
    if (row.words.size() < 2) {
        return std::nullopt;
    }
    if (const auto first = orderOfNumber(row.words.front().text)) {
        return first;
    }
    for (std::size_t i = row.words.size(); i-- > 1;) {
        const std::string& text = row.words[i].text;
        if (text.ends_with(')') || text.ends_with(']')) {
            return boxNumberOf(row) != 0 ? orderOfNumber(text) : std::nullopt;
        }
    }
    return std::nullopt;
}

/// The box of a number; `none` for those of no interest.
SalaryBox boxOf(std::size_t order) {
    switch (order) {
    case 10:
        return SalaryBox::gross;
    case 11:
        return SalaryBox::social;
    case 12: // a form without the parts of its tenth box
    case 13:
        return SalaryBox::pensionFund;
    case 14:
        return SalaryBox::buyIn;
    case 15:
        return SalaryBox::net;
    default:
        return SalaryBox::none;
    }
}

/// Whether whole francs that may be a year are taken for amounts: "10.1   1911".
enum class YearLike { no, yes };

bool canBeOfBox(const RowAmount& amount, YearLike years = YearLike::no) {
    return amount.amount.isFirm()
           || ((years == YearLike::yes || !amount.amount.isYearLike())
               && amount.amount.value.abs() >= 100);
}

/// The last amount of a row that may be one of a box, behind the box's own number.
const RowAmount* amountOf(const PageRows& page, std::size_t at, YearLike years) {
    const RowAmount* amount = lastOrNewest(page, at);
    return amount != nullptr && amount->first > 0 && canBeOfBox(*amount, years) ? amount : nullptr;
}

/// A box of a grid: its number at the start of a cell, up to where the next one begins.
struct GridBox {
    SalaryBox box = SalaryBox::none;
    double left = 0;
    double right = 0;
};

std::vector<GridBox> gridBoxesIn(const Row& row, double width) {
    std::vector<GridBox> boxes;
    for (const LabelPlace& cell : cellsOf(row)) {
        const auto order = orderOfNumber(row.words[cell.first].text);
        const bool isLabelled =
            cell.first + 1 < row.words.size()
            && lettersIn(row, {cell.first + 1, std::max(cell.last, cell.first + 1)}) >= 2;
        if (order && isLabelled) {
            if (!boxes.empty()) {
                boxes.back().right = cell.left;
            }
            boxes.push_back({boxOf(*order), cell.left, 3 * width});
        }
    }
    return boxes;
}

/// The amount of a grid's box: in its own row or the first below that has any within its edges;
/// null where there is none, or more than one.
const RowAmount* amountIn(const PageRows& page, std::size_t at, const GridBox& box) {
    constexpr std::size_t farthest = 3; // rows
    const std::size_t end = std::min(page.rows.size(), at + farthest + 1);
    for (std::size_t below = at; below < end; ++below) {
        if (below > at && !gridBoxesIn(page.rows[below], page.width).empty()) {
            return nullptr;
        }
        const RowAmount* found = nullptr;
        for (const RowAmount& amount : page.rows[below].amounts) {
            // Where it is printed: rows that begin with theirs have been laid out anew.
            const PagePlace& place =
                amount.place.right > page.width ? amount.printed : amount.place;
            const bool isIn = place.left > box.left && place.right < box.right
                              && (below > at || amount.first > 0) && canBeOfBox(amount);
            if (isIn && found != nullptr) {
                return nullptr;
            }
            found = isIn ? &amount : found;
        }
        if (found != nullptr) {
            return found;
        }
    }
    return nullptr;
}

/// The boxes of a form that stand beside one another, each with its number in its corner.
std::map<SalaryBox, RowAmount> boxesOfGrid(const PageRows& page) {
    std::map<SalaryBox, RowAmount> boxes;
    for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
        for (const GridBox& box : gridBoxesIn(page.rows[at], page.width)) {
            const RowAmount* amount =
                box.box == SalaryBox::none ? nullptr : amountIn(page, at, box);
            if (amount != nullptr) {
                boxes.emplace(box.box, inBox(box.box, *amount));
            }
        }
    }
    return boxes;
}

std::map<SalaryBox, RowAmount> ifProven(const PageRows& page,
                                        std::map<SalaryBox, RowAmount> boxes) {
    SalaryForm form{.page = &page, .boxes = std::move(boxes)};
    return isProven(form) ? std::move(form.boxes) : std::map<SalaryBox, RowAmount>();
}

/// The boxes of a form that stand below one another.
std::map<SalaryBox, RowAmount> boxesOfList(const PageRows& page, YearLike years) {
    std::map<SalaryBox, RowAmount> boxes;
    std::optional<std::size_t> reached;
    SalaryBox current = SalaryBox::none;
    double left = 0; // where the numbers of the boxes stand
    for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
        const Row& row = page.rows[at];
        const auto order = orderOf(row);
        if (order && (!reached || *order > *reached)
            && (!reached || row.words.front().place.left < left + row.height())) {
            left = reached ? left : row.words.front().place.left;
            reached = order;
            current = boxOf(*order);
        }
        const RowAmount* amount = current == SalaryBox::none ? nullptr : amountOf(page, at, years);
        if (amount == nullptr) {
            continue;
        }
        if (!boxes.emplace(current, inBox(current, *amount)).second) {
            return {}; // several amounts in a box
        }
    }
    return boxes;
}

} // namespace

int boxNumberOf(const Row& row) {
    const int leading = leadingNumber(row);
    return leading != 0 ? leading : closingNumber(row);
}

std::map<SalaryBox, RowAmount> boxesByNumber(const PageRows& page) {
    for (const YearLike years : {YearLike::no, YearLike::yes}) {
        if (auto boxes = ifProven(page, boxesOfList(page, years)); !boxes.empty()) {
            return boxes;
        }
    }
    return ifProven(page, boxesOfGrid(page));
}

} // namespace fiscarel
