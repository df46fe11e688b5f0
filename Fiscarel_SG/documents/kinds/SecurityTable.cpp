#include "Fiscarel_SG/documents/kinds/SecurityTable.h"

#include "Fiscarel_SG/documents/kinds/AccountPages.h"
#include "Fiscarel_SG/documents/kinds/AccountTable.h"
#include "Fiscarel_SG/documents/kinds/HeldPieces.h"
#include "Fiscarel_SG/documents/kinds/Securities.h"
#include "Fiscarel_SG/documents/kinds/SecurityCards.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"
#include "Fiscarel_SG/documents/kinds/WithholdingTax.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

namespace {

struct SecurityHeading {
    TableHeading table;
    std::vector<std::optional<Stated>> stated; ///< of each column
    bool hasNumbers = false;                   ///< a column of security numbers
    bool areNumbersBelow = false;              ///< in a line of their own below each row

    bool has(Stated one) const { return std::ranges::count(stated, std::optional(one)) == 1; }
    std::size_t count() const { // columns that state anything
        return static_cast<std::size_t>(
            std::ranges::count_if(stated, [](const auto& one) { return one.has_value(); }));
    }
    std::size_t countTaxed() const { // columns of income that tell of the tax
        return static_cast<std::size_t>(std::ranges::count_if(stated, [](const auto& one) {
            return one == Stated::withTax || one == Stated::withoutTax;
        }));
    }
    bool hasIncome() const { return has(Stated::income) || countTaxed() > 0; }
    bool isOne() const {
        return has(Stated::value)
               && (has(Stated::quantity) || (hasNumbers && has(Stated::price))
                   || (areNumbersBelow && hasIncome()));
    }
};

/// Whether two rows with amounts, or more, have a security's number in the line below.
bool haveNumbersBelow(const PageRows& page, std::size_t from) {
    constexpr std::size_t fewest = 2;
    std::size_t count = 0;
    for (std::size_t row = from; row + 1 < page.rows.size() && count < fewest; ++row) {
        count +=
            hasFirmAmount(page.rows[row]) && !hasIsin(page.rows[row]) && hasIsin(page.rows[row + 1])
                ? 1U
                : 0U;
    }
    return count >= fewest;
}

SecurityHeading securityHeading(const PageRows& page, std::size_t row) {
    SecurityHeading best;
    for (const bool withNext : {false, true}) {
        SecurityHeading heading{.table = tableHeadingIn(page, row, withNext)};
        for (const TableColumn& column : heading.table.columns) {
            const auto stated = statedBy(column.cell, page.isRecognised);
            heading.stated.push_back(stated);
            heading.hasNumbers |= !stated
                                  && (isAnyIn(column.cell.folded, securityNumberWords())
                                      || isAnyIn(column.cell.folded, {"ISIN"}));
        }
        heading.areNumbersBelow = heading.has(Stated::value) && heading.hasIncome()
                                  && !heading.has(Stated::quantity) && !heading.hasNumbers
                                  && haveNumbersBelow(page, row + 1);
        // The second line may say whether the tax was kept back.
        if (heading.isOne()
            && std::pair(heading.count(), heading.countTaxed())
                   > std::pair(best.count(), best.countTaxed())) {
            best = std::move(heading);
        }
    }
    return best;
}

/// The pieces of a fund told with three or four decimals, which no amount has, under their heading;
/// only what the price proves, as the point might group thousands.
std::optional<FoundAmount> fractionIn(const PageRows& page, std::size_t row,
                                      const SecurityHeading& heading,
                                      const StatedAmounts& amounts) {
    const auto& price = at(amounts, Stated::price);
    const auto& value = at(amounts, Stated::value);
    const auto column = std::ranges::find(heading.stated, std::optional(Stated::quantity));
    if (!price || !value || column == heading.stated.end()) {
        return std::nullopt;
    }
    const auto words = static_cast<std::size_t>(column - heading.stated.begin());
    for (FoundAmount& number : fractionsIn(page, row)) {
        if (piecesCheck(number.value(), price->value(), value->value())) {
            number.label = heading.table.columns[words].words();
            return std::move(number);
        }
    }
    return std::nullopt;
}

StatedAmounts amountsOf(const PageRows& page, std::size_t row, const SecurityHeading& heading) {
    const auto found =
        heading.table.amountsIn(page, row, [&](const RowAmount& amount, std::size_t column) {
            const auto stated = heading.stated[column];
            return stated && (*stated == Stated::quantity || amount.amount.isFirm());
        });
    StatedAmounts amounts;
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (found[i] != nullptr) {
            amounts[static_cast<std::size_t>(*heading.stated[i])] =
                FoundAmount{.page = &page,
                            .row = row,
                            .amount = *found[i],
                            .label = heading.table.columns[i].words()};
        }
    }
    if (!at(amounts, Stated::quantity)) {
        amounts[static_cast<std::size_t>(Stated::quantity)] =
            fractionIn(page, row, heading, amounts);
    }
    return amounts;
}

/// A table of securities: each in a row, or each with a row for its name above those of what
/// happened in the year.
class SecurityReader {
  public:
    SecurityReader(const KindContext& context, const PageRows& page, SecurityHeading heading)
        : page_(page), heading_(std::move(heading)), list_(context, page) {}

    SecurityList read() && {
        const std::size_t named = namedBefore();
        const bool isNamedAbove = named <= heading_.table.row || namesAbove();
        list_.first = std::min(named, heading_.table.row);
        list_.end = page_.rows.size();
        for (std::size_t row = named; row < list_.end; ++row) {
            const StatedAmounts amounts = amountsOf(page_, row, heading_);
            if (isNumberBelow(row)) {
                continue; // read with the row above
            }
            if (row > heading_.table.row + 1 && headsAccounts(row)) {
                list_.end = row;
            } else if (isTotal(row, amounts)) {
                if (!hasMore(row)) {
                    list_.totals = amounts;
                    list_.end = row + 1;
                }
            } else if (isNamedAbove) {
                addRow(row, amounts);
            } else if (at(amounts, Stated::value)) {
                addSecurity(row, amounts);
            } else if (!list_.all.empty()) {
                addIncome(row, amounts);
            }
        }
        settleByMark();
        list_.settleIncome();
        return std::move(list_);
    }

  private:
    /// Income that a letter behind it marks, where a legend says which: "V = Ertrag mit Abzug der
    /// Verrechnungssteuer".
    void settleByMark() {
        for (const Row& row : page_.rows) {
            const bool isLegend = row.words.size() >= 3 && row.words[0].text.size() <= 2
                                  && (row.words[1].text == "=" || row.words[1].text == ":")
                                  && namesAny(row, {Concept::withholding}, page_.isRecognised);
            if (!isLegend) {
                continue;
            }
            const bool isTaxed = taxednessOf(row, true).value_or(true);
            for (Security& one : list_.all) {
                const auto& income = at(one.amounts, Stated::income);
                if (income && !at(one.amounts, Stated::withTax)
                    && !at(one.amounts, Stated::withoutTax)) {
                    const bool isMarked = hasMark(*income, row.words[0].text);
                    one.put(isMarked == isTaxed ? Stated::withTax : Stated::withoutTax, income);
                }
            }
            return;
        }
    }

    static bool hasMark(const FoundAmount& income, const std::string& mark) {
        const auto& words = income.rowOf().words;
        const std::size_t next = income.amount.last + 1;
        return next < words.size() && words[next].text == mark;
    }

    bool isTotal(std::size_t row, const StatedAmounts& amounts) const {
        static const Labels alls{"Alle Titel", "Alle Positionen", "tous les titres",
                                 "tutti i titoli"};
        const auto& value = at(amounts, Stated::value);
        return value
               && (namesAny(page_.rows[row], {Concept::total}, page_.isRecognised)
                   || isAnyIn(page_.rows[row].folded, alls)
                   || (!list_.all.empty() && !value->value().isZero()
                       && value->value() == list_.sumOf(Stated::value)));
    }

    /// Whether a row heads a table of accounts or loans.
    bool headsAccounts(std::size_t row) const {
        if (hasFirmAmount(page_.rows[row]) || row + 1 >= page_.rows.size()) {
            return false;
        }
        const AccountHeading heading = accountHeadingIn(page_, row);
        const bool isOfLoans = heading.states(Figure::debt) || heading.states(Figure::debtInterest);
        return heading.count() >= 2
               && (isOfLoans || ibanIn(page_.rows[row + 1], row + 1).has_value());
    }

    /// Whether securities are listed below a total, which is that of a part then.
    bool hasMore(std::size_t row) const {
        for (std::size_t below = row + 1; below < page_.rows.size(); ++below) {
            if (hasIsin(page_.rows[below])
                && (at(amountsOf(page_, below, heading_), Stated::value) || namesOnly(below))) {
                return true;
            }
        }
        return false;
    }

    /// The row of the first security's name where that stands above the heading, which each of them
    /// has then; else the row below the heading.
    std::size_t namedBefore() const {
        constexpr std::size_t farthest = 3; // rows
        const std::size_t heading = heading_.table.row;
        for (std::size_t row = heading; row > 0 && heading - row < farthest; --row) {
            const bool isAnyLower = std::ranges::any_of(
                page_.rows.begin() + static_cast<std::ptrdiff_t>(heading) + 1, page_.rows.end(),
                [&](const Row& one) { return hasIsin(one) && !hasFirmAmount(one); });
            if (hasIsin(page_.rows[row - 1]) && !hasFirmAmount(page_.rows[row - 1]) && isAnyLower) {
                return row - 1;
            }
        }
        return heading + 1;
    }

    /// Whether a row is the line with the number of the security above it.
    bool isNumberBelow(std::size_t row) const {
        return heading_.areNumbersBelow && row > 0 && hasIsin(page_.rows[row])
               && !hasIsin(page_.rows[row - 1])
               && at(amountsOf(page_, row - 1, heading_), Stated::value);
    }

    bool namesOnly(std::size_t row) const {
        const StatedAmounts amounts = amountsOf(page_, row, heading_);
        return hasIsin(page_.rows[row])
               && std::ranges::none_of(amounts, [](const auto& one) { return one.has_value(); });
    }

    /// Whether the names stand above what is stated of each.
    bool namesAbove() const {
        for (std::size_t row = heading_.table.row + 1; row < page_.rows.size(); ++row) {
            if (namesOnly(row)) {
                return true;
            }
            if (at(amountsOf(page_, row, heading_), Stated::value)) {
                return false;
            }
        }
        return false;
    }

    /// A row of a table with names above: what is held at the end, or income, of which a year may
    /// bring several.
    void addRow(std::size_t row, const StatedAmounts& amounts) {
        if (namesOnly(row)) {
            Security security;
            readNames(page_.rows[row], page_.rows[row].words.size(), security);
            list_.all.push_back(std::move(security));
            return;
        }
        if (list_.all.empty()) {
            return;
        }
        Security& own = list_.all.back();
        if (at(amounts, Stated::value)) {
            for (const Stated stated :
                 {Stated::value, Stated::quantity, Stated::price, Stated::income, Stated::tax}) {
                own.put(stated, at(amounts, stated));
            }
        }
        for (const Stated stated : {Stated::withTax, Stated::withoutTax}) {
            const auto& more = at(amounts, stated);
            auto& known = own.amounts[static_cast<std::size_t>(stated)];
            if (known && more) {
                known->amount.amount.value = known->value() + more->value();
            }
            known = known ? known : more;
        }
    }

    /// The words before what is stated of a security, or between its quantity, where that begins
    /// the row, and the rest: from the first to behind the last.
    std::pair<std::size_t, std::size_t> namesIn(std::size_t row,
                                                const StatedAmounts& amounts) const {
        std::size_t begin = 0;
        std::size_t end = page_.rows[row].words.size();
        const auto& quantity = at(amounts, Stated::quantity);
        if (quantity && quantity->amount.first == 0) {
            begin = quantity->amount.last + 1;
        }
        for (const auto& amount : amounts) {
            end =
                amount && amount->amount.first >= begin ? std::min(end, amount->amount.first) : end;
        }
        return {begin, end};
    }

    void addSecurity(std::size_t row, const StatedAmounts& amounts) {
        Security security;
        const auto [begin, end] = namesIn(row, amounts);
        const auto own = ibanIn(page_.rows[row], row);
        const bool isPlain = !own && !at(amounts, Stated::quantity) && row + 1 < page_.rows.size()
                             && !hasFirmAmount(page_.rows[row + 1]);
        const auto iban = isPlain ? ibanIn(page_.rows[row + 1], row + 1) : own;
        security.isAccount = iban.has_value();
        readNames(page_.rows[row], own ? std::min(end, own->first) : end, security, begin);
        if (iban) {
            security.number = iban->text;
        } else if (security.number.empty() && row + 1 < page_.rows.size()
                   && (page_.rows[row + 1].amounts.empty() || namesOnly(row + 1)
                       || isNumberBelow(row + 1))) {
            Security below;
            readNames(page_.rows[row + 1], page_.rows[row + 1].words.size(), below);
            security.number = below.number;
        }
        if (security.number.empty() && !at(amounts, Stated::quantity)) {
            return;
        }
        security.amounts = amounts;
        if (heading_.areNumbersBelow && !security.isAccount) {
            security.put(Stated::quantity, toldPieces(page_, row + 1));
        }
        list_.all.push_back(std::move(security));
        addIncome(row, amounts);
        addTaxBelow(row + 1);
    }

    /// What the line with a security's number, below its amounts, tells of the tax.
    void addTaxBelow(std::size_t row) {
        Security& own = list_.all.back();
        const auto& income = at(own.amounts, Stated::income);
        const bool isOpen = income && !own.isAccount && !at(own.amounts, Stated::withTax)
                            && !at(own.amounts, Stated::withoutTax);
        if (!isOpen || row >= page_.rows.size() || !(namesOnly(row) || isNumberBelow(row))
            || !namesAny(page_.rows[row], {Concept::withholding}, page_.isRecognised)) {
            return;
        }
        for (const RowAmount& amount : page_.rows[row].amounts) {
            if (isWithholdingOf(amount.amount.value, income->value())) {
                own.put(Stated::tax, FoundAmount{.page = &page_, .row = row, .amount = amount});
                return; // what is told of the others settles which of them are taxed
            }
        }
        if (const auto taxed = incomeBy(page_.rows[row], true)) {
            own.put(*taxed, income);
        }
    }

    /// Income in a column that does not tell the tax, by the words of its row.
    void addIncome(std::size_t row, const StatedAmounts& amounts) {
        Security& own = list_.all.back();
        const auto taxed = own.isAccount
                               ? std::nullopt
                               : incomeBy(page_.rows[row], at(amounts, Stated::value).has_value());
        const auto income = at(amounts, Stated::income);
        if (income && taxed) {
            own.put(*taxed, income);
        }
        if (!at(amounts, Stated::value)) {
            own.put(Stated::withTax, at(amounts, Stated::withTax));
            own.put(Stated::withoutTax, at(amounts, Stated::withoutTax));
        }
    }

    const PageRows& page_;
    SecurityHeading heading_;
    SecurityList list_;
};

/// The first table of securities of a page; absent when it has none.
std::optional<SecurityList> tableOf(const KindContext& context, const PageRows& page) {
    for (std::size_t row = 0; row < page.rows.size() && page.number != 0; ++row) {
        if (SecurityHeading heading = securityHeading(page, row); heading.isOne()) {
            SecurityList list = SecurityReader(context, page, std::move(heading)).read();
            if (!list.all.empty()) {
                return list;
            }
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<PageRows> proposeSecurities(const KindContext& context, const PageRows& page,
                                          ProposalDraft& draft) {
    const auto table = tableOf(context, page);
    // A heading over each of several securities is no table's.
    const bool isPure = std::ranges::none_of(page.rows, [&](const Row& row) {
        return namesAny(row, {Concept::debt}, page.isRecognised); // is told beside the table
    });
    const auto cards =
        table && table->all.size() == 1 && isPure ? securityCards(context, page) : std::nullopt;
    if (cards && cards->all.size() > 1) {
        cards->propose(draft);
        return withoutRows(page);
    }
    if (table) {
        table->propose(draft);
        PageRows rest = page;
        const auto begin = rest.rows.begin();
        rest.rows.erase(begin + static_cast<std::ptrdiff_t>(table->first),
                        begin + static_cast<std::ptrdiff_t>(table->end));
        return rest;
    }
    for (const auto listOf : {securityColumns, securityPairs, securityCards}) {
        if (const auto list = listOf(context, page)) {
            list->propose(draft);
            return withoutRows(page);
        }
    }
    return std::nullopt;
}

bool listsSecurities(const DocumentRows& document) {
    const DocumentFacts facts;
    const KindContext context{document, facts, StoredDocument::Kind::steuerauszug, true, {}};
    return std::ranges::any_of(document.pages, [&](const PageRows& page) {
        const auto isListed = [&](auto listOf) {
            const auto list = listOf(context, page);
            return list && list->isProven();
        };
        constexpr std::ptrdiff_t fewest = 2; // numbers of a page of cards
        return isListed(tableOf)
               || (std::ranges::count_if(page.rows, hasIsin) >= fewest && isListed(securityCards));
    });
}

} // namespace fiscarel
