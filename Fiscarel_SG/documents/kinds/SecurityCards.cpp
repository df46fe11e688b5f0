#include "Fiscarel_SG/documents/kinds/SecurityCards.h"

#include "Fiscarel_SG/documents/kinds/AccountPages.h"
#include "Fiscarel_SG/documents/kinds/HeldPieces.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace fiscarel {

namespace {

/// Whether a cell says by a word or a dash that there is no amount.
bool saysNoAmount(const Row& row, const LabelPlace& cell) {
    return saysNone(row, cell) || (cell.first == cell.last && row.words[cell.first].folded.empty());
}

/// How many pieces a cell begins with: "18 Stk.", "25 azioni"; null for other cells.
const RowAmount* piecesIn(const Row& row, const LabelPlace& cell) {
    const auto amount = std::ranges::find_if(row.amounts, [&](const RowAmount& one) {
        return one.first == cell.first && one.last < cell.last && one.amount.value > 0;
    });
    return amount != row.amounts.end() && isAnyIn(row.words[amount->last + 1].folded, pieceWords())
               ? &*amount
               : nullptr;
}

/// What the cells of a row state, each with its words and the amount behind them: "18 Stk.",
/// "Steuerwert CHF 2'648.70".
void readCells(const PageRows& page, std::size_t at, Security& security) {
    const Row& row = page.rows[at];
    for (const LabelPlace& cell : cellsOf(row)) {
        if (const RowAmount* pieces = piecesIn(row, cell)) {
            security.put(Stated::quantity,
                         FoundAmount{.page = &page,
                                     .row = at,
                                     .amount = *pieces,
                                     .label = textBetween(row, cell.first, cell.last)});
            continue;
        }
        const auto amount = std::ranges::find_if(row.amounts, [&](const RowAmount& one) {
            return one.first > cell.first && one.last == cell.last && one.amount.isFirm();
        });
        if (amount == row.amounts.end()) {
            continue;
        }
        Row words;
        for (std::size_t i = cell.first; i < amount->first; ++i) {
            if (!isFrancs(row.words[i].text)) {
                words.words.push_back(row.words[i]);
                words.folded += row.words[i].folded + ' ';
            }
        }
        if (const auto stated = statedBy(words, page.isRecognised)) {
            security.put(*stated,
                         FoundAmount{.page = &page,
                                     .row = at,
                                     .amount = *amount,
                                     .label = textBetween(row, cell.first, amount->first - 1)});
        }
    }
}

/// Whether words say of what is stated that it is of one piece: "Dividende brut par action".
bool isOfOnePiece(const Row& words) {
    static const Labels ones{
        "par action", "par titre", "par part",         "par unité",   "par pièce",   "per azione",
        "per titolo", "per quota", "per unità",        "unitair*",    "unitari*",    "à l'unité",
        "pro Stück",  "pro Aktie", "pro Titel",        "pro Anteil*", "je Stück",    "je Aktie",
        "je Anteil*", "je Titel",  "pro Fondsanteil*", "per share",   "Stückpreis*", "Stückkurs*"};
    return isAnyIn(words.folded, ones);
}

/// The words of a row from one on that say what its amount at `end` is: those of the amount's own
/// cell, or of the last one before it that has any.
Row labelBefore(const Row& row, std::size_t from, std::size_t end) {
    constexpr std::size_t fewest = 3; // letters
    Row label;
    for (const LabelPlace& cell : cellsOf(row)) {
        LabelPlace own = cell;
        own.first = std::max(cell.first, from);
        if (own.first >= end || own.last < from) {
            continue;
        }
        own.last = std::min(own.last, end - 1);
        std::vector<RowWord> words = wordsOf(row, own);
        std::erase_if(words, [](const RowWord& word) { return isFrancs(word.text); });
        Row said;
        said.words = std::move(words);
        const bool isSaid =
            !said.words.empty() && lettersIn(said, {0, said.words.size() - 1}) >= fewest;
        if (isSaid || label.words.empty()) { // else a currency
            label = std::move(said);
        }
    }
    for (const RowWord& word : label.words) {
        label.folded += word.folded + ' ';
    }
    return label;
}

/// The words of the cell over an amount in the row above, which has no amount there.
Row labelAbove(const Row& above, const RowAmount& amount) {
    for (const LabelPlace& cell : cellsOf(above)) {
        if (cell.left < amount.place.right && amount.place.left < cell.right
            && !hasFirmAmount(above, cell)) {
            return labelBefore(above, cell.first, cell.last + 1);
        }
    }
    return {};
}

/// What is stated of a security, or of an account among securities, in the rows of its card.
class CardReader {
  public:
    CardReader(const PageRows& page, Security& security) : page_(page), security_(security) {}

    void read(std::size_t at) {
        const Row& row = page_.rows[at];
        std::size_t from = 0;
        bool arePiecesBefore = false;
        for (const RowAmount& amount : row.amounts) {
            const std::size_t behind = security_.isAccount ? 0 : piecesBehind(row, amount);
            if (behind > 0) {
                put(Stated::quantity, at, amount, textBetween(row, amount.first, behind));
                from = behind + 1;
                arePiecesBefore = true;
                continue;
            }
            Row label = labelBefore(row, from, amount.first);
            Row above = at > 0 ? labelAbove(page_.rows[at - 1], amount) : Row();
            const auto headed = statedIn(above, false);
            // Under a heading an amount is what that says, not what a value left of it is counted
            // in: "20'000 EUR nominali   18'517.60".
            const bool isBare = headed && (label.words.empty() || isBehindValue(row, amount));
            auto stated = isBare ? headed : statedIn(label, arePiecesBefore);
            if (isBare || !stated) {
                stated = headed;
                label = headed ? std::move(above) : std::move(label);
            }
            const bool isCount = stated == Stated::quantity && !amount.amount.isYearLike();
            if (!amount.amount.isFirm() && !isCount) {
                continue; // part of the label: "Dividende 2024"
            }
            if (stated && !isForeign(row, amount)) {
                put(*stated, at, amount,
                    label.words.empty() ? std::string()
                                        : textBetween(label, 0, label.words.size() - 1));
            }
            from = amount.last + 1;
            arePiecesBefore = false;
        }
        putNoTax(at);
    }

  private:
    /// Whether an amount begins its cell and the cell before it begins with another one.
    static bool isBehindValue(const Row& row, const RowAmount& amount) {
        const auto cells = cellsOf(row);
        const auto own = std::ranges::find(cells, amount.first, &LabelPlace::first);
        return own != cells.begin() && own != cells.end()
               && std::ranges::any_of(row.amounts, [&](const RowAmount& one) {
                      return one.first == std::prev(own)->first;
                  });
    }

    /// The word behind an amount that says it is a number of pieces: "18 Stk."; 0 for others.
    static std::size_t piecesBehind(const Row& row, const RowAmount& amount) {
        const std::size_t next = amount.last + 1;
        const bool isCount =
            amount.amount.value > 0 && !amount.amount.hasCurrency && !amount.amount.isYearLike();
        return isCount && next < row.words.size() && isAnyIn(row.words[next].folded, pieceWords())
                   ? next
                   : 0;
    }

    std::optional<Stated> statedIn(const Row& label, bool arePiecesBefore) const {
        constexpr std::size_t longest = 10; // words of a label
        constexpr std::size_t nearest = 5;  // words between pieces and their price
        auto stated = statedBy(label, page_.isRecognised, longest);
        if (!stated && security_.isAccount) {
            stated = statedOfAccount(label);
        }
        if (arePiecesBefore && label.words.size() <= nearest
            && (!stated || stated == Stated::quantity)) {
            return Stated::price; // "70 Stk. × 153.51", "11 Stück zu nominal 200.00"
        }
        const bool isIncome =
            stated == Stated::income || stated == Stated::withTax || stated == Stated::withoutTax;
        if (isIncome && namesAny(label, {Concept::net, Concept::rate}, page_.isRecognised)
            && !namesAny(label, {Concept::gross}, page_.isRecognised)) {
            return std::nullopt; // what was left of it
        }
        if (stated && stated != Stated::quantity && isOfOnePiece(label)) {
            const bool isPrice = stated == Stated::value || stated == Stated::price;
            return isPrice ? std::optional(Stated::price) : std::nullopt;
        }
        return stated;
    }

    std::optional<Stated> statedOfAccount(const Row& label) const {
        if (namesAny(label, {Concept::balance}, page_.isRecognised)
            && !namesAny(label, {Concept::opening, Concept::interest}, page_.isRecognised)) {
            return Stated::value;
        }
        const bool isInterest =
            namesAny(label, {Concept::interest}, page_.isRecognised)
            && !namesAny(label, {Concept::net, Concept::rate, Concept::debtInterest},
                         page_.isRecognised);
        return isInterest ? std::optional(incomeBy(label, true).value_or(Stated::income))
                          : std::nullopt;
    }

    static bool isForeign(const Row& row, const RowAmount& amount) {
        return (amount.first > 0 && isForeignCurrency(row.words[amount.first - 1].text))
               || (amount.last + 1 < row.words.size()
                   && isForeignCurrency(row.words[amount.last + 1].text));
    }

    /// A tax that words or a dash say there was none of.
    void putNoTax(std::size_t at) {
        const Row& row = page_.rows[at];
        const auto cells = cellsOf(row);
        for (std::size_t i = 1; i < cells.size(); ++i) {
            const Row label = labelBefore(row, cells[i - 1].first, cells[i - 1].last + 1);
            if (saysNoAmount(row, cells[i]) && statedBy(label, page_.isRecognised) == Stated::tax) {
                security_.put(Stated::tax, FoundAmount{.page = &page_,
                                                       .row = at,
                                                       .label = textBetween(row, cells[i - 1].first,
                                                                            cells[i - 1].last)});
            }
        }
    }

    void put(Stated stated, std::size_t at, const RowAmount& amount, std::string label) {
        security_.put(
            stated,
            FoundAmount{.page = &page_, .row = at, .amount = amount, .label = std::move(label)});
    }

    const PageRows& page_;
    Security& security_;
};

/// The number of a security in a row: its ISIN, or what stands behind "Valor"; empty for other
/// rows.
std::string numberIn(const Row& row) {
    if (hasIsin(row)) {
        Security security;
        readNames(row, row.words.size(), security);
        return security.number;
    }
    constexpr std::size_t fewest = 5; // digits
    constexpr std::size_t most = 9;
    const auto name = findLabel(row, securityNumberWords(), false);
    std::string number;
    bool isWhole = false; // in one word
    for (std::size_t i = name ? name->last + 1 : row.words.size(); i < row.words.size(); ++i) {
        const std::string& text = row.words[i].text;
        const bool isOfDigits =
            std::ranges::all_of(text, [](char c) { return isDigit(c) || c == '.' || c == '\''; });
        const bool isOver = isWhole || (!number.empty() && text.size() != 3);
        if (!number.empty() && (!isOfDigits || isOver)) {
            break; // groups of three belong together, and nothing behind a whole number
        }
        std::ranges::copy_if(isOfDigits ? text : std::string(), std::back_inserter(number),
                             isDigit);
        isWhole |= number.size() >= fewest && number.size() == countDigits(text);
    }
    return number.size() >= fewest && number.size() <= most ? number : std::string();
}

/// A card of a page: the rows that tell of one security or account.
struct Card {
    std::size_t number = 0; ///< row
    std::size_t first = 0;
    std::size_t end = 0;
};

/// Whether a row is the total of all: "Steuerwert total" in a card is only that of its security.
bool isTotal(const PageRows& page, std::size_t row, const Security& security) {
    const Row& words = page.rows[row];
    const auto total = hasFirmAmount(words)
                           ? findLabel(words, wordsFor(Concept::total), page.isRecognised)
                           : std::nullopt;
    if (!total || !at(security.amounts, Stated::value)) {
        return total && total->first == 0;
    }
    const auto stated =
        statedBy(labelBefore(words, 0, words.amounts.back().first), page.isRecognised);
    return total->first == 0 || words.amounts.size() > 1 || !stated || stated == Stated::value;
}

/// Whether a value is stated in rows, before a total of all.
bool statesValue(const PageRows& page, std::size_t first, std::size_t end) {
    Security any;
    CardReader reader(page, any);
    for (std::size_t row = first; row < end && !isTotal(page, row, any); ++row) {
        reader.read(row);
    }
    return at(any.amounts, Stated::value).has_value();
}

/// The cards by the rows of their numbers, which begin them; or end them, where a value is stated
/// above the first and none below the last.
std::vector<Card> cardsBy(const PageRows& page, const std::vector<std::size_t>& numbers) {
    constexpr std::size_t tallest = 8; // rows of a card above its number
    std::vector<Card> cards;
    if (numbers.empty()) {
        return cards;
    }
    const std::size_t top = numbers[0] > tallest ? numbers[0] - tallest : 0;
    const bool areBelow =
        statesValue(page, top, numbers[0]) && !statesValue(page, numbers.back(), page.rows.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::size_t next = i + 1 < numbers.size() ? numbers[i + 1] : page.rows.size();
        cards.push_back(areBelow
                            ? Card{numbers[i], i == 0 ? top : numbers[i - 1] + 1, numbers[i] + 1}
                            : Card{numbers[i], numbers[i], next});
    }
    return cards;
}

/// The first words of a row that may be a security's name; empty when there are none.
std::string nameIn(const Row& row) {
    static const Labels others{"ISIN", "IBAN"};
    constexpr std::size_t fewest = 4; // letters
    for (const LabelPlace& cell : cellsOf(row)) {
        Row own;
        own.words = wordsOf(row, cell);
        own.folded = textBetween(row, cell.first, cell.last);
        if (lettersIn(row, cell) >= fewest && !hasIsin(own) && !findLabel(own, others, false)
            && !findLabel(own, securityNumberWords(), false) && !hasFirmAmount(row, cell)) {
            return textBetween(row, cell.first, cell.last);
        }
    }
    return {};
}

Security securityOf(const PageRows& page, const Card& card) {
    const Row& row = page.rows[card.number];
    const auto iban = ibanIn(row, card.number);
    Security security;
    security.isAccount = iban.has_value();
    security.number = iban ? iban->text : numberIn(row);
    security.name = nameIn(row);
    const std::size_t above = card.number - (card.number > 0 ? 1 : 0);
    const std::size_t named = card.first < card.number ? card.first : above;
    if (security.name.empty() && !hasFirmAmount(page.rows[named])) {
        security.name = nameIn(page.rows[named]);
    }
    CardReader reader(page, security);
    for (std::size_t at = card.first; at < card.end; ++at) {
        if (!isTotal(page, at, security)) {
            reader.read(at);
        } else if (fiscarel::at(security.amounts, Stated::value)) {
            break; // of all
        }
    }
    return security;
}

} // namespace

std::optional<SecurityList> securityPairs(const KindContext& context, const PageRows& page) {
    SecurityList list(context, page);
    for (std::size_t i = 0; i < page.rows.size() && page.number != 0; ++i) {
        const Row& row = page.rows[i];
        if (!hasIsin(row)) {
            continue;
        }
        const bool isBelow = i > 0 && !hasIsin(page.rows[i - 1]) && hasFirmAmount(page.rows[i - 1])
                             && row.top - page.rows[i - 1].bottom < row.height()
                             && !namesAny(page.rows[i - 1], {Concept::total}, page.isRecognised);
        Security security;
        if (isBelow) {
            readCells(page, i - 1, security);
            const bool isNamed = at(security.amounts, Stated::quantity).has_value()
                                 || at(security.amounts, Stated::value).has_value();
            if (!isNamed) {
                return std::nullopt;
            }
            readCells(page, i, security);
        }
        if (!isBelow || !at(security.amounts, Stated::value)) {
            return std::nullopt;
        }
        readNames(row, row.words.size(), security);
        security.name.clear();
        for (const LabelPlace& cell : cellsOf(page.rows[i - 1])) {
            if (!hasFirmAmount(page.rows[i - 1], cell)
                && piecesIn(page.rows[i - 1], cell) == nullptr
                && lettersIn(page.rows[i - 1], cell) >= 3) {
                security.name = textBetween(page.rows[i - 1], cell.first, cell.last);
                break;
            }
        }
        list.all.push_back(std::move(security));
    }
    if (list.all.size() < 2) {
        return std::nullopt;
    }
    list.settleIncome();
    return list;
}

std::optional<SecurityList> securityColumns(const KindContext& context, const PageRows& page) {
    SecurityList list(context, page);
    for (std::size_t row = 0; row < page.rows.size() && page.number != 0; ++row) {
        std::vector<LabelPlace> numbers;
        for (const LabelPlace& cell : cellsOf(page.rows[row])) {
            if (hasIsin(rowOfWords(wordsOf(page.rows[row], cell), page.isRecognised))) {
                numbers.push_back(cell);
            }
        }
        if (numbers.size() < 2 || hasFirmAmount(page.rows[row])) {
            continue;
        }
        for (PageRows& own : columnsAsPages(page, row - (row > 0 ? 1 : 0), numbers)) {
            list.parts.push_back(std::make_shared<const PageRows>(std::move(own)));
            const PageRows& part = *list.parts.back();
            const auto number = std::ranges::find_if(part.rows, hasIsin);
            const auto at = static_cast<std::size_t>(number - part.rows.begin());
            if (at < part.rows.size()) {
                list.all.push_back(securityOf(part, {at, at, part.rows.size()}));
            }
        }
        break;
    }
    std::erase_if(list.all, [](const Security& one) { return !at(one.amounts, Stated::value); });
    if (list.all.size() < 2) {
        return std::nullopt;
    }
    list.settleIncome();
    return list;
}

std::optional<SecurityList> securityCards(const KindContext& context, const PageRows& page) {
    std::vector<std::size_t> numbers;
    for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
        const Row& row = page.rows[at];
        if ((ibanIn(row, at) || !numberIn(row).empty()) && !isContactLine(page, row)) {
            numbers.push_back(at);
        }
    }
    SecurityList list(context, page);
    for (const Card& card : cardsBy(page, numbers)) {
        if (Security one = securityOf(page, card); at(one.amounts, Stated::value)) {
            list.all.push_back(std::move(one));
        }
    }
    const auto securities =
        std::ranges::count_if(list.all, [](const Security& one) { return !one.isAccount; });
    const bool isOneAlone = securities == 1 && numbers.size() == 1 && list.countProven() == 1
                            && std::ranges::none_of(page.rows, [&](const Row& row) {
                                   return namesAny(row, {Concept::debt}, page.isRecognised);
                               });
    if (securities < 2 && !isOneAlone) {
        return std::nullopt;
    }
    list.settleIncome();
    return list;
}

} // namespace fiscarel
