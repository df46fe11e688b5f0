#include "Fiscarel_SG/documents/kinds/HeldPieces.h"

#include "Fiscarel_SG/documents/kinds/Securities.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/Isin.h"
#include "TaxCore/base/MoneyFormat.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string_view>

namespace fiscarel {

namespace {

constexpr std::size_t mostNumbers = 40; ///< of a block, more are a list

/// How many: "1’200", "12.345".
std::string shownPieces(const Decimal& quantity) {
    return quantity.roundPlain(0) == quantity ? taxcore::MoneyFormat::chf(quantity, 0, false)
                                              : taxcore::MoneyFormat::number(quantity);
}

/// How many pieces a word with three or four decimals tells; absent for other words.
std::optional<Decimal> piecesOf(std::string_view word) {
    const std::size_t mark = word.find_first_of(".,");
    constexpr std::size_t mostWhole = 6;
    if (mark == word.npos || mark == 0 || mark > mostWhole || !hasOnlyDigits(word.substr(0, mark))
        || !hasOnlyDigits(word.substr(mark + 1))) {
        return std::nullopt;
    }
    const std::size_t decimals = word.size() - mark - 1;
    if (decimals != 3 && decimals != 4) {
        return std::nullopt;
    }
    const auto pieces = Decimal::parse(std::string(word.substr(0, mark)) + '.'
                                       + std::string(word.substr(mark + 1)));
    return pieces ? std::optional(*pieces) : std::nullopt;
}

/// The amounts of a row beside the unit of pieces.
std::vector<FoundAmount> besideUnits(const PageRows& page, std::size_t at) {
    std::vector<FoundAmount> numbers;
    const Row& row = page.rows[at];
    for (const RowAmount& amount : row.amounts) {
        const std::size_t next = amount.last + 1;
        if (amount.amount.value.isInteger() && amount.amount.value > 1 && !amount.amount.hasDecimals
            && next < row.words.size() && isAnyIn(row.words[next].folded, pieceWords())) {
            numbers.push_back(
                {.page = &page, .row = at, .amount = amount, .label = row.words[next].text});
            numbers.back().amount.amount.hasMark = true; // its unit speaks for it
        }
    }
    return numbers;
}

/// What may tell how many pieces are held: an amount beside its unit, or a word with their
/// decimals.
std::vector<FoundAmount> numbersIn(const RowRange& range) {
    std::vector<FoundAmount> numbers;
    for (std::size_t at = range.first; at < range.end; ++at) {
        std::ranges::move(besideUnits(*range.page, at), std::back_inserter(numbers));
        std::ranges::move(fractionsIn(*range.page, at), std::back_inserter(numbers));
    }
    return numbers;
}

std::vector<FoundAmount> amountsIn(const RowRange& range) {
    std::vector<FoundAmount> amounts;
    for (std::size_t at = range.first; at < range.end; ++at) {
        const Row& row = range.page->rows[at];
        for (const RowAmount& amount : row.amounts) {
            if (amount.amount.isFirm() && amount.amount.value > 0) {
                const std::size_t last = amount.first == 0 ? 0 : amount.first - 1;
                amounts.push_back({.page = range.page,
                                   .row = at,
                                   .amount = amount,
                                   .label = textBetween(row, 0, last)});
            }
        }
    }
    return amounts;
}

/// Whether a row says that its amount is what something is worth.
bool tellsValue(const FoundAmount& found) {
    static const Labels values{"*steuerwert*",   "Wert*",   "Kurswert*", "Gegenwert*",
                               "Vermögenswert*", "valeur*", "valore*",   "value",
                               "Saldo",          "Bestand"};
    return isAnyIn(found.rowOf().folded, values);
}

} // namespace

const Labels& pieceWords() {
    static const Labels words{
        "Stk*",         "Stück*",      "Aktie*",       "*aktien",
        "Anteil*",      "*anteile",    "*anteilen",    "Titel",
        "actions",      "parts",       "titres",       "pièces",
        "pces",         "pce",         "unités",       "azioni",
        "quote",        "titoli",      "pezzi",        "pz",
        "unità",        "shares",      "units",        "pcs",
        "Obligationen", "Namenaktie*", "Namenanteil*", "Partizipationsschein*"};
    return words;
}

std::vector<FoundAmount> fractionsIn(const PageRows& page, std::size_t at) {
    const Row& row = page.rows[at];
    std::vector<FoundAmount> numbers;
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        const auto pieces = piecesOf(row.words[i].text);
        if (!pieces) {
            continue;
        }
        RowAmount amount{.first = i,
                         .last = i,
                         .place = row.words[i].place,
                         .printed = row.words[i].printed,
                         .certainty = row.words[i].certainty};
        amount.amount.value = *pieces;
        amount.amount.hasDecimals = true;
        numbers.push_back({.page = &page,
                           .row = at,
                           .amount = amount,
                           .label = textBetween(row, 0, i == 0 ? 0 : i - 1)});
    }
    return numbers;
}

std::optional<ProposalCheck> piecesCheck(const Decimal& quantity, const Decimal& price,
                                         const Decimal& value) {
    const Decimal product = quantity * price;
    for (const Decimal& computed : {product, product / 100}) {
        if (!computed.isZero() && (computed - value).abs() <= Decimal(5) / 100) {
            return ProposalCheck{shownPieces(quantity) + " × " + shown(price)
                                     + (computed == product ? " = " : " % = ") + shown(value)
                                     + ", der Steuerwert",
                                 true};
        }
    }
    return std::nullopt;
}

std::optional<HeldPieces> heldPieces(const RowRange& range) {
    const auto numbers = numbersIn(range);
    const auto amounts = amountsIn(range);
    if (numbers.size() > mostNumbers || amounts.size() > mostNumbers) {
        return std::nullopt;
    }
    for (const FoundAmount& number : numbers) {
        for (const FoundAmount& value : amounts) {
            const auto price = std::ranges::find_if(amounts, [&](const FoundAmount& one) {
                return one.value() != value.value()
                       && (one.row != value.row || one.row == number.row)
                       && number.value() * one.value() > 1
                       && (number.value() * one.value() - value.value()).abs() <= Decimal(5) / 100;
            });
            if (tellsValue(value) && price != amounts.end()) {
                return HeldPieces{number, value,
                                  *piecesCheck(number.value(), price->value(), value.value())};
            }
        }
    }
    return std::nullopt;
}

std::optional<FoundAmount> toldPieces(const PageRows& page, std::size_t at) {
    static const Labels nominals{"nominal*", "Nennwert", "nom"};
    static const Labels ones{"je", "pro", "par", "per", "à"};
    if (at >= page.rows.size()) {
        return std::nullopt;
    }
    auto numbers = besideUnits(page, at);
    const Row& row = page.rows[at];
    const auto label = findLabel(row, nominals, page.isRecognised);
    for (std::size_t i = 0; label && numbers.empty() && i < row.amounts.size(); ++i) {
        const RowAmount& amount = row.amounts[i];
        const auto isBetween = [&](std::size_t first, std::size_t end) {
            return std::all_of(row.words.begin() + static_cast<std::ptrdiff_t>(first),
                               row.words.begin() + static_cast<std::ptrdiff_t>(end),
                               [](const RowWord& word) {
                                   return isFrancs(word.text) || isForeignCurrency(word.text);
                               });
        };
        const bool isBehind =
            amount.first > label->last && isBetween(label->last + 1, amount.first);
        const bool isBefore =
            amount.last < label->first && isBetween(amount.last + 1, label->first);
        const std::size_t next = std::max(amount.last, label->last) + 1;
        const bool isOfOne = next < row.words.size() && isAnyIn(row.words[next].folded, ones);
        if ((isBehind || isBefore) && !isOfOne && amount.amount.value >= 100
            && amount.amount.value.isInteger()) {
            numbers.push_back({.page = &page,
                               .row = at,
                               .amount = amount,
                               .label = textBetween(row, label->first, label->last)});
        }
    }
    return numbers.empty() ? std::nullopt : std::optional(std::move(numbers.front()));
}

std::string securityNumberIn(const RowRange& range) {
    constexpr std::size_t fewest = 5;
    constexpr std::size_t most = 9; // digits of a Swiss security number
    for (std::size_t at = range.first; at < range.end; ++at) {
        const Row& row = range.page->rows[at];
        for (const RowWord& word : row.words) {
            std::string bare;
            std::ranges::copy_if(word.text, std::back_inserter(bare), [](char c) {
                return std::isalnum(static_cast<unsigned char>(c)) != 0;
            });
            if (isIsin(bare)) {
                return bare;
            }
        }
        const auto label = findLabel(row, securityNumberWords(), range.page->isRecognised);
        std::string digits;
        for (std::size_t i = label ? label->last + 1 : row.words.size(); i < row.words.size();
             ++i) {
            const std::string& text = row.words[i].text;
            if (countDigits(text) == 0 || digits.size() + countDigits(text) > most) {
                break;
            }
            std::ranges::copy_if(text, std::back_inserter(digits), isDigit);
        }
        if (digits.size() >= fewest) {
            return digits;
        }
    }
    return {};
}

} // namespace fiscarel
