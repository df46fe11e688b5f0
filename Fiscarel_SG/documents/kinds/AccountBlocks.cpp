#include "Fiscarel_SG/documents/kinds/AccountBlocks.h"

#include "Fiscarel_SG/documents/kinds/AccountList.h"
#include "Fiscarel_SG/documents/kinds/AccountPages.h"
#include "Fiscarel_SG/documents/kinds/BankShares.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace fiscarel {

namespace {

constexpr std::size_t tallest = 3; ///< rows of a block's title

bool hasAmounts(const PageRows& page, std::size_t from, std::size_t end) {
    return std::any_of(page.rows.begin() + static_cast<std::ptrdiff_t>(from),
                       page.rows.begin() + static_cast<std::ptrdiff_t>(end),
                       [](const Row& row) { return hasFirmAmount(row); });
}

/// Whether a row begins with the letter or number of its section: "A  Anteilschein", "3) Hypothek".
bool isNumbered(const Row& row) {
    if (row.words.size() < 2) {
        return false;
    }
    std::string_view mark = row.words[0].text;
    const bool isClosed = mark.ends_with('.') || mark.ends_with(')');
    mark.remove_suffix(isClosed ? 1 : 0);
    const bool isLetter = mark.size() == 1 && mark[0] >= (isClosed ? 'A' : 'B') && mark[0] <= 'z';
    const bool isFirst = mark == "A" || mark == "I" || mark == "II" || mark == "III";
    const bool isNumber = !mark.empty() && mark.size() <= 2 && hasOnlyDigits(mark);
    return isLetter || isFirst || isNumber;
}

/// Whether one of the first two words of a row means something.
bool beginsWith(const PageRows& page, std::size_t at, Concept meant) {
    const auto place = findLabel(page.rows[at], wordsFor(meant), page.isRecognised);
    return place && place->first <= (isNumbered(page.rows[at]) ? 2U : 1U);
}

/// The words of a title without its number and what brackets add, "A Anteilschein (zu CHF 200.–)".
Row bareTitle(const Row& row) {
    std::vector<RowWord> bare;
    int depth = 0;
    for (std::size_t i = isNumbered(row) ? 1 : 0; i < row.words.size(); ++i) {
        const std::string& text = row.words[i].text;
        depth += static_cast<int>(std::ranges::count(text, '('));
        if (depth == 0) {
            bare.push_back(row.words[i]);
        }
        depth = std::max(0, depth - static_cast<int>(std::ranges::count(text, ')')));
    }
    return rowOfWords(std::move(bare), false);
}

/// Whether a sentence begins with a loan and its number: "Per il prestito a tasso fisso
/// n. 77.1043".
bool namesNumberedLoan(const PageRows& page, std::size_t at) {
    static const Labels loans{"prestito",   "mutuo",  "ipoteca*", "prêt",       "hypothèque*",
                              "*darlehen*", "crédit", "*kredit*", "*hypothek*", "credito"};
    static const Labels signs{"n", "nr", "no", "numero", "numéro", "Nummer"};
    constexpr std::size_t latest = 3;   // word of the loan
    constexpr std::size_t farthest = 6; // words from it to the number
    const Row& row = page.rows[at];
    const auto loan = findLabel(row, loans, page.isRecognised);
    if (!loan || loan->first > latest || cellsOf(row).size() != 1) {
        return false;
    }
    const std::size_t end = std::min(row.words.size(), loan->last + farthest);
    for (std::size_t i = loan->last + 1; i + 1 < end; ++i) {
        if (isAnyIn(row.words[i].folded, signs) && countDigits(row.words[i + 1].text) >= 4) {
            return true;
        }
    }
    return false;
}

/// Whether a row begins with the name of an account or loan and its number; the number may stand
/// below.
bool isNamedBlock(const PageRows& page, std::size_t at) {
    const Row& row = page.rows[at];
    const auto cells = cellsOf(row);
    const bool isNumberBelow =
        cells.size() == 1 && at + 1 < page.rows.size() && page.rows[at + 1].words.size() == 1
        && hasNumber(page.rows[at + 1]) && !hasFirmAmount(page.rows[at + 1]) && !namesLastDay(row);
    const bool hasAmount = std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
        const bool isApart = cells.size() > 1 && amount.first >= cells.back().first;
        return amount.amount.hasDecimals || amount.amount.hasCurrency
               || (amount.amount.hasMark && isApart);
    });
    constexpr std::size_t fewest = 9; // words of a sentence
    constexpr std::size_t first = 4;  // of them name the loan: "Hypothek Nr. 12.345: Restschuld"
    const bool isSentence =
        row.words.size() >= fewest && cells.size() == 1
        && std::any_of(row.words.begin(), row.words.begin() + first,
                       [](const RowWord& word) { return word.text.ends_with(':'); });
    if (namesNumberedLoan(page, at)) {
        return true;
    }
    return (hasNumber(row) || isNumberBelow)
           && ((!hasAmount && row.words.size() <= 12) || isSentence) && !isContactLine(page, row)
           && (beginsWith(page, at, Concept::account) || beginsWith(page, at, Concept::debt)
               || namesCard(row));
}

/// Whether one of the next rows has a label and its amount.
bool hasFiguresBelow(const PageRows& page, std::size_t at) {
    constexpr std::size_t farthest = 4; // rows from the name to the first amount
    std::size_t labels = 0;             // rows with what their amount is
    for (std::size_t below = at + 1; below < std::min(page.rows.size(), at + 1 + farthest);
         ++below) {
        if (hasOnlyAmounts(page.rows[below])) {
            return labels > 0;
        }
        labels += hasFirmAmount(page.rows[below]) ? 1U : 0U;
    }
    return labels > 0;
}

/// Whether a row is nothing but the name of a loan, over rows of labels and amounts; a part of one
/// may be meant: "Tranche B – 2,15 %".
bool isLoanTitle(const PageRows& page, std::size_t at) {
    static const Labels parts{"Tranche*", "tranche*"};
    const Row& row = page.rows[at];
    const std::size_t words = bareTitle(row).words.size(); // "Crédit (clos le 30.06.2025)"
    const auto part = findLabel(row, parts, page.isRecognised);
    // "Tranche B, 2,15 %", "Ipoteca fissa – casa in Tegna"
    const bool isWide = words <= 8 && std::ranges::any_of(row.words, [](const auto& word) {
                            return word.folded.empty() || word.text.ends_with(',');
                        });
    const bool isPart = part && part->first == 0 && words <= 8;
    if ((words > 5 && !isPart && !isWide) || hasFirmAmount(row) || cellsOf(row).size() != 1
        || (!isPart && !beginsWith(page, at, Concept::debt) && !namesCard(row))) {
        return false;
    }
    const bool isOther =
        !isPart && !namesCard(row)
        && namesAny(row,
                    {Concept::account, Concept::interest, Concept::debtInterest, Concept::repayment,
                     Concept::rate, Concept::total, Concept::balance},
                    page.isRecognised);
    return !isOther && !namesLastDay(row) && hasFiguresBelow(page, at);
}

std::vector<std::size_t> namedBlocks(const PageRows& page) {
    std::vector<std::size_t> starts;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        if (isNamedBlock(page, at)) {
            starts.push_back(at);
        }
    }
    return starts;
}

/// What a row calls its first amount; empty for other rows.
std::string labelOf(const Row& row) {
    constexpr std::size_t fewest = 4; // letters
    std::string label;
    if (!hasFirmAmount(row)) {
        return label;
    }
    for (std::size_t i = 0; i < row.amounts.front().first; ++i) {
        label += row.words[i].folded.empty() ? "" : row.words[i].folded + ' '; // leaders
    }
    const auto letters = std::ranges::count_if(label, [](char c) { return c >= 'a' && c <= 'z'; });
    return static_cast<std::size_t>(letters) < fewest ? std::string() : label;
}

/// The first row of words only between two rows; `end` where there is none.
std::size_t titleBetween(const PageRows& page, std::size_t from, std::size_t end) {
    while (from < end && (hasFirmAmount(page.rows[from]) || page.rows[from].words.empty())) {
        ++from;
    }
    return from;
}

/// Blocks of which each says the same of another account or loan, under a title of its own: where
/// they begin. At least two labels come back in each. Empty for a page set otherwise.
std::vector<std::size_t> repeatedBlocks(const PageRows& page) {
    std::map<std::string, std::vector<std::size_t>> places;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        if (std::string label = labelOf(page.rows[at]); !label.empty()) {
            places[std::move(label)].push_back(at);
        }
    }
    std::erase_if(places, [](const auto& label) { return label.second.size() < 2; });
    const auto first = std::ranges::min_element(
        places, {}, [](const auto& label) { return label.second.front(); });
    if (first == places.end()) {
        return {};
    }
    const std::vector<std::size_t>& firsts = first->second;
    std::vector<std::size_t> lasts = firsts; // of each block
    std::size_t alike = 0;
    bool isOfBank = false;
    for (const auto& [label, rows] : places) {
        bool comesBack = rows.size() == firsts.size();
        for (std::size_t i = 0; i < firsts.size() && comesBack; ++i) {
            comesBack = rows[i] >= firsts[i] && (i + 1 == firsts.size() || rows[i] < firsts[i + 1]);
        }
        alike += comesBack ? 1U : 0U;
        isOfBank |=
            comesBack
            && namesAny(page.rows[rows.front()],
                        {Concept::balance, Concept::debt, Concept::interest}, page.isRecognised);
        for (std::size_t i = 0; i < firsts.size() && comesBack; ++i) {
            lasts[i] = std::max(lasts[i], rows[i]);
        }
    }
    std::size_t start = firsts.front();
    while (start > 0 && firsts.front() - start < tallest && !hasFirmAmount(page.rows[start - 1])) {
        --start;
    }
    std::vector<std::size_t> starts{start};
    for (std::size_t i = 1; i < firsts.size(); ++i) {
        starts.push_back(titleBetween(page, lasts[i - 1] + 1, firsts[i]));
        if (starts.back() == firsts[i]) {
            return {};
        }
    }
    return alike >= 2 && isOfBank && start < firsts.front() ? starts : std::vector<std::size_t>();
}

/// The place in its series of the letter or number that a section's title begins with: 1 for "A."
/// and "1)"; 0 for other rows.
std::size_t sectionOf(const Row& row) {
    const std::string& mark = row.words.empty() ? std::string() : row.words[0].text;
    if (mark.size() != 2 || (mark[1] != '.' && mark[1] != ')') || row.words.size() < 2
        || cellsOf(row).size() != 1 || hasFirmAmount(row)) {
        return 0;
    }
    return mark[0] >= 'A' && mark[0] <= 'Z'   ? static_cast<std::size_t>(mark[0] - 'A') + 1
           : mark[0] >= '1' && mark[0] <= '9' ? static_cast<std::size_t>(mark[0] - '0')
                                              : 0;
}

/// Sections numbered in turn, "A. Prêt personnel", "B. Carte", where they begin; empty unless two
/// of them state what is kept or owed.
std::vector<std::size_t> numberedBlocks(const PageRows& page) {
    std::vector<std::size_t> starts;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        if (sectionOf(page.rows[at]) == starts.size() + 1) {
            starts.push_back(at);
        }
    }
    std::size_t stating = 0;
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const std::size_t end = i + 1 < starts.size() ? starts[i + 1] : page.rows.size();
        const auto rows = page.rows.begin();
        stating += std::any_of(rows + static_cast<std::ptrdiff_t>(starts[i]),
                               rows + static_cast<std::ptrdiff_t>(end),
                               [&](const Row& row) {
                                   return hasFirmAmount(row)
                                          && namesAny(row, {Concept::balance, Concept::debt},
                                                      page.isRecognised);
                               })
                       ? 1U
                       : 0U;
    }
    return stating >= 2 ? starts : std::vector<std::size_t>();
}

/// The rows that blocks begin with whose numbers stand below their figures: the last one without
/// an amount before each block's first amount. Empty where the numbers stand above.
std::vector<std::size_t> startsAboveFigures(const PageRows& page,
                                            const std::vector<AccountNumber>& ibans) {
    constexpr std::size_t nearest = 3; // rows in which a number above its figures has an amount
    if (ibans.size() < 2
        || hasAmounts(page, ibans.back().row,
                      std::min(page.rows.size(), ibans.back().row + nearest))) {
        return {};
    }
    std::vector<std::size_t> starts;
    std::size_t from = 0;
    for (const AccountNumber& iban : ibans) {
        std::size_t first = from;
        while (first < iban.row && !hasFirmAmount(page.rows[first])) {
            ++first;
        }
        if (first == iban.row || first == from) {
            return {};
        }
        starts.push_back(first - 1);
        from = iban.row + 1;
    }
    return starts;
}

/// The rows right above the numbers where each of them holds the balance, with the interest below:
/// "Sparkonto   1'200.50", "CH12 …", "Zins   3.50".
std::vector<std::size_t> startsAtBalances(const PageRows& page,
                                          const std::vector<AccountNumber>& ibans) {
    std::vector<std::size_t> starts;
    for (const AccountNumber& iban : ibans) {
        const bool isBelow = iban.row > (starts.empty() ? 0 : starts.back() + 1)
                             && hasFirmAmount(page.rows[iban.row - 1])
                             && !hasFirmAmount(page.rows[iban.row])
                             && namesAny(page.rows[iban.row - 1], {Concept::balance, Concept::debt},
                                         page.isRecognised);
        if (!isBelow) {
            return {};
        }
        starts.push_back(iban.row - 1);
    }
    return starts.size() >= 2 ? starts : std::vector<std::size_t>();
}

std::vector<std::size_t> startsByName(const PageRows& page,
                                      const std::vector<AccountNumber>& ibans) {
    std::vector<std::size_t> starts = startsAtBalances(page, ibans);
    if (starts.empty()) {
        starts = startsAboveFigures(page, ibans);
    }
    if (starts.empty()) {
        std::ranges::transform(ibans, std::back_inserter(starts), &AccountNumber::row);
    }
    std::vector<std::size_t> shares;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        if (namesShares(page.rows[at]) && hasFiguresBelow(page, at)) {
            shares.push_back(at);
        }
    }
    auto named = namedBlocks(page);
    if (ibans.size() < 2 && named.size() >= 2) {
        std::ranges::copy_if(shares, std::back_inserter(named), [&](std::size_t at) {
            return std::ranges::find(named, at) == named.end();
        });
        std::ranges::sort(named);
        return named;
    }
    const auto isLoan = [&](std::size_t at) {
        return namesLoan(page, at) && (at > starts.front() || hasAmounts(page, at, starts.front()))
               && std::ranges::find(ibans, at, &AccountNumber::row) == ibans.end();
    };
    std::vector<std::size_t> parts; // of one loan, where no account is told of
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        if (starts.empty() && isLoanTitle(page, at)) {
            parts.push_back(at);
        }
    }
    if (parts.size() >= 2) {
        return parts;
    }
    if (starts.empty()) {
        return shares;
    }
    std::vector<std::size_t> loans;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        const bool isNamed = std::ranges::find(named, at) != named.end();
        const bool isTitle =
            !isNamed && isLoanTitle(page, at)
            && std::ranges::find(ibans, at + 1, &AccountNumber::row) == ibans.end();
        const bool isSame = !loans.empty() && !hasAmounts(page, loans.back(), at);
        if ((isNamed || isTitle) && isLoan(at) && !isSame) {
            loans.push_back(at);
        }
    }
    starts.insert(starts.end(), loans.begin(), loans.end());
    starts.insert(starts.end(), shares.begin(), shares.end());
    std::ranges::sort(starts);
    return starts;
}

/// The first amount of which its row says nothing but the day it stands at.
std::optional<FoundAmount> amountOfLastDay(const RowRange& range) {
    for (std::size_t at = range.first; at < range.end; ++at) {
        const Row& row = range.page->rows[at];
        const bool isOther = namesAny(row,
                                      {Concept::interest, Concept::debtInterest, Concept::other,
                                       Concept::repayment, Concept::total, Concept::rate,
                                       Concept::withholding, Concept::fee, Concept::limit},
                                      range.page->isRecognised);
        if (!isOther && row.amounts.size() == 1 && hasFirmAmount(row) && namesLastDay(row)
            && row.amounts[0].first > 0) {
            return FoundAmount{.page = range.page,
                               .row = at,
                               .amount = row.amounts[0],
                               .label = textBetween(row, 0, row.amounts[0].first - 1),
                               .isAlone = false};
        }
    }
    return std::nullopt;
}

} // namespace

bool namesShares(const Row& titled) {
    constexpr std::size_t longest = 5; // words of a title
    if (!mentionsShares(titled)) {
        return false;
    }
    const Row row = bareTitle(titled);
    const auto cells = cellsOf(row);
    // "3. Anteilscheine   Valor 8892595"
    const bool isNumbered = cells.size() == 2 && cells[0].last < longest && hasNumber(row)
                            && cells[1].last - cells[1].first < longest;
    return !hasFirmAmount(row) && ((cells.size() == 1 && row.words.size() <= longest) || isNumbered)
           && mentionsShares(row);
}

bool isTitledAsLoan(const PageRows& page, std::size_t start) {
    for (std::size_t at = start; at < std::min(page.rows.size(), start + tallest); ++at) {
        // "Festhypothek 10 Jahre   Konto 504.118.6" is no account.
        const bool isFirst =
            beginsWith(page, at, Concept::debt) && !beginsWith(page, at, Concept::account);
        if (namesLoan(page, at) || (isFirst && !hasFirmAmount(page.rows[at]))) {
            return true;
        }
        if (hasFirmAmount(page.rows[at])) {
            return false;
        }
    }
    return false;
}

std::vector<std::size_t> blockStarts(const PageRows& page,
                                     const std::vector<AccountNumber>& ibans) {
    std::vector<std::size_t> named = startsByName(page, ibans);
    std::vector<std::size_t> repeated = repeatedBlocks(page);
    if (auto numbered = numberedBlocks(page); numbered.size() > repeated.size()) {
        repeated = std::move(numbered);
    }
    return repeated.size() > std::max(named.size(), ibans.size()) ? repeated : named;
}

std::size_t endOfLastBlock(const PageRows& page, const std::vector<std::size_t>& starts,
                           bool goesOn) {
    static const Labels all{"aller Konten", "alle Konten", "tous les comptes", "tutti i conti"};
    const bool isOfShares = !starts.empty() && namesShares(page.rows[starts.back()]);
    const auto isTotal = [&](const Row& row) {
        if (!hasFirmAmount(row)) {
            return false;
        }
        // "Valore nominale totale" is no total of all shares.
        const auto total = findLabel(row, wordsFor(Concept::total), page.isRecognised);
        return (total && (total->first == 0 || !isOfShares)) || isAnyIn(row.folded, all);
    };
    const auto findTotal = [&](std::size_t from, std::size_t end) {
        while (from < end && !isTotal(page.rows[from])) {
            ++from;
        }
        return from;
    };
    const std::size_t end = page.rows.size();
    const bool isPlain = starts.size() > 1 && findTotal(starts[0], starts[1]) == starts[1];
    if (goesOn && starts.size() <= 1) {
        std::size_t amount = starts.empty() ? 0 : starts[0];
        while (amount < end && !hasFirmAmount(page.rows[amount])) {
            ++amount;
        }
        return amount < end && !isTotal(page.rows[amount]) ? findTotal(amount, end) : end;
    }
    return isPlain ? findTotal(starts.back() + 1, end) : end;
}

Figures figuresOfLoan(const RowRange& range, bool isTold) {
    Figures figures = figuresByLabel(range);
    isTold |= at(figures, Figure::debtInterest).has_value();
    if (isTold && !at(figures, Figure::debt) && !at(figures, Figure::balance)) {
        at(figures, Figure::debt) = amountOfLastDay(range);
    }
    return figures;
}

Figures figuresOfAccount(const RowRange& range) {
    Figures figures = figuresByLabel(range);
    if (!at(figures, Figure::debt) && !at(figures, Figure::balance)) {
        at(figures, Figure::balance) = amountOfLastDay(range);
    }
    return figures;
}

} // namespace fiscarel
