#include "Fiscarel_SG/documents/kinds/AccountList.h"

#include "Fiscarel_SG/documents/kinds/AccountBlocks.h"
#include "Fiscarel_SG/documents/kinds/AccountRows.h"
#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/BankShares.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace fiscarel {

namespace {

bool hasAny(const Figures& figures) {
    return std::ranges::any_of(figures, [](const auto& figure) { return figure.has_value(); });
}

/// What is left below the heading of a list of creditors in a row.
std::string creditorOf(const PageRows& page, std::size_t at, const AccountHeading& heading) {
    static const Labels creditors{"Gläubiger*", "Kreditgeber*", "Darlehensgeber*",
                                  "créancier*", "prêteur*",     "creditore",
                                  "creditori",  "mutuante",     "Geldgeber*"};
    for (const TableColumn& column : heading.table.columns) {
        if (!isAnyIn(column.cell.folded, creditors)) {
            continue;
        }
        const Row& row = page.rows[at];
        const auto cells = cellsOf(row);
        const auto cell = std::ranges::find_if(cells, [&](const LabelPlace& one) {
            return one.left < column.place.right && column.place.left < one.right;
        });
        return cell == cells.end() ? std::string() : textBetween(row, cell->first, cell->last);
    }
    return {};
}

Figures negated(Figures figures) {
    for (auto& figure : figures) {
        if (figure) {
            figure->amount.amount.value = -figure->value().abs();
        }
    }
    return figures;
}

void addTo(Figures& sums, const Figures& figures) {
    for (std::size_t i = 0; i < figureCount; ++i) {
        if (sums[i] && figures[i]) {
            sums[i]->amount.amount.value = sums[i]->value() + figures[i]->value();
        } else if (figures[i]) {
            sums[i] = figures[i];
        }
    }
}

/// Whether what is left or owed, and the interest if both state it, are the sums.
bool isSumOf(const Figures& figures, const Figures& sums) {
    using enum Figure;
    const auto differs = [&](Figure figure) {
        const auto& own = at(figures, figure);
        const auto& sum = at(sums, figure);
        return own && sum && own->value() != sum->value();
    };
    const auto isSum = [&](Figure figure) {
        const auto& own = at(figures, figure);
        return own && !own->value().isZero() && !differs(figure) && at(sums, figure);
    };
    return (isSum(balance) || isSum(debt)) && !differs(interest) && !differs(debtInterest);
}

/// Whether what is left of an account is below zero in a column that no words tell.
bool isBelowZero(const Row& row, const Figures& figures) {
    return !at(figures, Figure::balance) && !at(figures, Figure::debt)
           && std::ranges::any_of(row.amounts, [](const RowAmount& amount) {
                  return amount.amount.isFirm() && amount.amount.value.isNegative();
              });
}

/// Whether one of the rows above a table names a loan.
bool namesLoanAbove(const PageRows& page, std::size_t at) {
    const std::size_t from = at > 3 ? at - 3 : 0;
    for (std::size_t i = from; i < at; ++i) {
        if (namesLoan(page, i)) {
            return true;
        }
    }
    return false;
}

/// Whether the only amount of a row is the tax that its words tell.
bool isTaxLine(const PageRows& page, const Row& row) {
    const auto firm = std::ranges::count_if(
        row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
    return firm == 1 && namesAny(row, {Concept::withholding}, page.isRecognised);
}

/// The account number of a row of a table. Where the first one below the heading stands in a row
/// with amounts, each row has its own or none; else it stands below when there is a row with
/// amounts above the first, or above.
const AccountNumber* ibanOf(const PageRows& page, const std::vector<AccountNumber>& ibans,
                            std::size_t at, std::size_t heading) {
    const auto above = std::ranges::find(ibans, heading - 1, &AccountNumber::row);
    if (heading > 0 && above != ibans.end() && at == heading + 1
        && std::ranges::find(ibans, at, &AccountNumber::row) == ibans.end()
        && !hasFirmAmount(page.rows[heading - 1])) {
        return &*above; // the heading is that of one account, named over it
    }
    const auto first =
        std::ranges::find_if(ibans, [&](const AccountNumber& iban) { return iban.row > heading; });
    if (first == ibans.end()) {
        return nullptr;
    }
    const bool isOwn =
        hasFirmAmount(page.rows[first->row]) && !isTaxLine(page, page.rows[first->row]);
    const bool isBelow = first->row > heading + 1;
    const std::size_t beside = isOwn ? at : isBelow ? at + 1 : at - 1;
    for (const std::size_t row : {at, beside}) {
        const auto found = std::ranges::find(ibans, row, &AccountNumber::row);
        if (found != ibans.end()) {
            return &*found;
        }
    }
    return nullptr;
}

/// Reads a table from its heading down.
class ListReader {
  public:
    ListReader(const PageRows& page, const AccountHeading& heading,
               const std::vector<AccountNumber>& ibans)
        : page_(page), heading_(heading), ibans_(ibans) {}

    std::vector<AccountEntry> read(std::size_t end) && {
        end_ = end;
        if (readCourse(end)) {
            return std::move(entries_);
        }
        for (std::size_t at = heading_.row() + 1; at < end; ++at) {
            // What is told below the table may end where a column does. Recognised rows of a tight
            // table look like sentences.
            const Row& row = page_.rows[at];
            if (isProse(row, page_.isRecognised) && !(page_.isRecognised && hasNumber(row))) {
                continue;
            }
            const Figures figures = figuresByColumn(page_, at, heading_);
            if (hasAny(figures)) {
                const bool isOwed = isMarkedOwed(page_.rows[at]);
                readRow(at, isOwed ? negated(figures) : figures);
            } else if (const auto isOwed = sectionIn(page_.rows[at])) {
                beginSection(*isOwed);
            } else if (isTitleOfPillar(page_.rows[at])) {
                isTied_ = true;
            }
        }
        return std::move(entries_);
    }

  private:
    void readRow(std::size_t at, const Figures& figures) {
        const Row& row = page_.rows[at];
        if (isCarried(row) || isNetOfAll(row)) {
            return;
        }
        if (isSumOf(figures, section_) || isSumOf(figures, all_)
            || isAnyIn(row.folded, wordsFor(Concept::total))) {
            section_ = {};
            isOver_ = true;
            isSectionOwed_ = false;
            return;
        }
        const AccountNumber* own = ibanOf(page_, ibans_, at, heading_.row());
        if ((own == nullptr && (isBehindTotal(at) || !hasName(row))) || isTied_
            || namesAny(row, {Concept::pillar3a}, page_.isRecognised)
            || ((own == nullptr || goesOn(*own, at)) && addTaxLine(at, figures))
            || (own == nullptr && addOwnLine(at, figures)) || addSecondLine(at, figures)) {
            return;
        }
        const bool isOfBalance = fiscarel::at(figures, Figure::balance).has_value();
        if (own == nullptr && isOfBalance && statesNoBalance(page_, at)) {
            return;
        }
        isOver_ = isOver_ && !beginsLoans(at);
        addTo(section_, figures);
        addTo(all_, figures);
        const bool isNamed = (own == nullptr || tellsByNames()) && namesLoan(page_, at);
        const bool isLoan =
            isNamed || (own == nullptr && heading_.isOfLoans) || isBelowZero(row, figures);
        const std::size_t named = own == nullptr ? nameOfShares(at) : at;
        add({.figures = figures,
             .number = own == nullptr ? std::string() : own->text,
             .creditor = creditorOf(page_, at, heading_),
             .range = {&page_, named, at + 1},
             .isLoan = isLoan || isSectionOwed_,
             .isDepot = own == nullptr && (namesDepot(row) || mentionsShares(page_.rows[named])),
             .quantity = own == nullptr ? sharesIn(page_, named) : std::nullopt});
    }

    /// The row above that names the bank's shares or notes of a row without words; else the row.
    std::size_t nameOfShares(std::size_t at) const {
        constexpr std::size_t fewest = 3; // letters of a name
        const Row& row = page_.rows[at];
        const bool isBare = std::ranges::all_of(
            cellsOf(row), [&](const LabelPlace& cell) { return lettersIn(row, cell) < fewest; });
        return at > 0 && isBare && mentionsShares(page_.rows[at - 1]) ? at - 1 : at;
    }

    /// Whether only the rows' names tell what is owed: no column, no sign, and no section does.
    bool tellsByNames() {
        if (!tellsByNames_) {
            bool isTold = heading_.states(Figure::debt) || heading_.isOfLoans;
            for (std::size_t row = heading_.row() + 1; row < end_ && !isTold; ++row) {
                const auto& balance = at(figuresByColumn(page_, row, heading_), Figure::balance);
                isTold = (balance && (balance->value() < 0 || isMarkedOwed(page_.rows[row])))
                         || (!balance && sectionIn(page_.rows[row]).has_value());
            }
            tellsByNames_ = !isTold;
        }
        return *tellsByNames_;
    }

    /// Whether a row below a total is no further loan or account: these have a name and a number.
    bool isBehindTotal(std::size_t at) const {
        const Row& row = page_.rows[at];
        const bool isBelow = at + 1 < page_.rows.size() && !hasFirmAmount(page_.rows[at + 1])
                             && hasNumber(page_.rows[at + 1]);
        const bool isNamed =
            namesDepot(row) || namesAny(row, {Concept::debt, Concept::account}, page_.isRecognised);
        return isOver_ && !(isNamed && (isBelow || hasNumber(row))) && !beginsLoans(at);
    }

    /// Whether a row is the first loan, below the total of what is kept: its name tells, and its
    /// amounts are marked as owed.
    bool beginsLoans(std::size_t row) const {
        const Figures figures = figuresByColumn(page_, row, heading_);
        const auto& left = at(figures, Figure::balance);
        const bool isOwed = left && (left->value() < 0 || isMarkedOwed(page_.rows[row]));
        return isOwed && namesLoan(page_, row)
               && !namesAny(page_.rows[row], {Concept::total}, page_.isRecognised)
               && std::ranges::none_of(section_, [](const auto& one) { return one.has_value(); });
    }

    /// Whether a row is the title of a part of the table, and whether of what is owed.
    std::optional<bool> sectionIn(const Row& row) const {
        static const Labels owed{
            "Verpflichtung*", "Verbindlichkeit*", "Passiven",    "Passiva",     "*schulden",
            "*hypotheken",    "*kredite",         "Darlehen",    "Ausleihung*", "Finanzierung*",
            "engagement*",    "passif",           "passifs",     "dettes",      "prêts",
            "hypothèques",    "crédits",          "emprunts",    "passivo",     "passivi",
            "impegni",        "debiti",           "prestiti",    "ipoteche",    "mutui",
            "crediti",        "finanziamenti",    "financements"};
        static const Labels kept{"Aktiven",  "Aktiva",   "*guthaben", "Vermögen*",     "*konten",
                                 "Einlagen", "Depots",   "Anlagen",   "Wertschriften", "avoirs",
                                 "actif",    "actifs",   "comptes",   "titres",        "dépôts",
                                 "fortune",  "averi",    "attivo",    "attivi",        "conti",
                                 "titoli",   "depositi", "relazioni"};
        if (row.words.size() > 4 || hasNumber(row) || cellsOf(row).size() > 2) {
            return std::nullopt;
        }
        const bool isKept = isAnyIn(row.folded, kept); // of both the names of the rows tell
        return isKept                      ? std::optional(false)
               : isAnyIn(row.folded, owed) ? std::optional(true)
                                           : std::nullopt;
    }

    /// "Säule 3a (steuerfrei)", over its accounts, which are no wealth (BVG Art. 82 and 84).
    bool isTitleOfPillar(const Row& row) const {
        return row.words.size() <= 10 && !hasNumber(row) && cellsOf(row).size() == 1
               && !row.words.back().text.ends_with('.')
               && namesAny(row, {Concept::pillar3a}, page_.isRecognised);
    }

    void beginSection(bool isOwed) {
        section_ = {};
        isTied_ = false;
        isOver_ = false;
        isSectionOwed_ = isOwed;
    }

    /// Whether a row with a number is but a further line of the entry it is the number of.
    bool goesOn(const AccountNumber& own, std::size_t at) const {
        return !entries_.empty() && entries_.back().number == own.text
               && entries_.back().range.first + 1 == at;
    }

    /// A line that only states the tax, in the column of the interest it was taken from above.
    bool addTaxLine(std::size_t row, const Figures& figures) {
        const auto& stated = at(figures, Figure::interest);
        const bool isTax = stated && onlyOne(figures) && isTaxLine(page_, page_.rows[row]);
        if (!isTax || entries_.empty()) {
            return isTax;
        }
        auto& tax = at(entries_.back().figures, Figure::withholding);
        tax = tax ? tax : stated;
        if (tax) {
            tax->amount.amount.value = tax->value().abs();
        }
        return true;
    }

    /// A line below an account or loan that says which of its figures stands in the column of what
    /// is left: "interessi debitori addebitati nel 2023   8'051.00".
    bool addOwnLine(std::size_t row, const Figures& figures) {
        constexpr std::size_t farthest = 3; // rows below the account's
        constexpr std::size_t first = 1;    // word of the label, behind "davon" at most
        const auto& stated =
            at(figures, Figure::balance) ? at(figures, Figure::balance) : at(figures, Figure::debt);
        const Row& own = page_.rows[row];
        const auto begins = [&](Concept meant) {
            const auto place = findLabel(own, wordsFor(meant), page_.isRecognised);
            return place && place->first <= first;
        };
        const bool isTax = begins(Concept::withholding);
        if (!stated || !onlyOne(figures) || entries_.empty() || hasNumber(own)
            || row - entries_.back().range.first > farthest
            || (!isTax && !begins(Concept::interest) && !begins(Concept::debtInterest))
            || namesAny(own, {Concept::account, Concept::balance}, page_.isRecognised)) {
            return false;
        }
        Figures& known = entries_.back().figures;
        const bool isOwed = at(known, Figure::debt).has_value();
        auto& line = at(known, isTax    ? Figure::withholding
                               : isOwed ? Figure::debtInterest
                                        : Figure::interest);
        if (!line) {
            line = stated;
            line->amount.amount.value = line->value().abs();
            line->label = textBetween(own, 0, line->amount.first - 1);
        }
        return true;
    }

    static bool onlyOne(const Figures& figures) {
        return std::ranges::count_if(figures, [](const auto& figure) { return figure.has_value(); })
               == 1;
    }

    /// A line that only states income, below that of the account it belongs to: what tax was not
    /// withheld from stands there.
    bool addSecondLine(std::size_t row, const Figures& figures) {
        using enum Figure;
        const auto& income = at(figures, interest);
        if (!income || !onlyOne(figures) || row == 0 || entries_.empty()
            || entries_.back().range.first + 1 != row) {
            return false;
        }
        AccountEntry& entry = entries_.back();
        auto& first = at(entry.figures, interest);
        if (!at(entry.figures, balance) || (first && !at(entry.figures, withholding))) {
            return false;
        }
        if (first) {
            at(entry.figures, taxedInterest) = first;
            first.reset();
        }
        at(entry.figures, untaxedInterest) = income;
        return true;
    }

    /// A table whose rows are the days or parts of a year is the course of one loan or account: it
    /// stands in the row that the interest adds up to. False for other tables.
    bool readCourse(std::size_t end) {
        std::size_t times = 0;
        Decimal paid;
        Figures last; // of the row above, where it has a time
        if (readOnlyPeriod(end)) {
            return true;
        }
        for (std::size_t row = heading_.row() + 1; row < end; ++row) {
            const Figures figures = figuresByColumn(page_, row, heading_);
            const auto& interest = at(figures, Figure::interest)
                                       ? at(figures, Figure::interest)
                                       : at(figures, Figure::debtInterest);
            if (beginsWithTime(page_.rows[row])) {
                ++times;
                last = figures;
                paid = paid + (interest ? interest->value() : Decimal());
            } else if (times >= 2 && interest && interest->value() == paid) {
                addCourse(row, end, figures, last);
                return true;
            } else if (hasAny(figures)) {
                last = {};
            }
        }
        return times >= 2;
    }

    /// A course of a single period: the table has one row, which begins with its days and names
    /// nothing.
    bool readOnlyPeriod(std::size_t end) {
        std::optional<std::size_t> only;
        for (std::size_t row = heading_.row() + 1; row < end; ++row) {
            const Figures figures = figuresByColumn(page_, row, heading_);
            const bool isPeriod =
                at(figures, Figure::interest) || at(figures, Figure::debtInterest);
            if (!isPeriod) {
                continue;
            }
            const bool isNamed =
                !beginsWithTime(page_.rows[row])
                || std::ranges::any_of(cellsOf(page_.rows[row]), [&](const LabelPlace& cell) {
                       return lettersIn(page_.rows[row], cell) >= 4;
                   });
            if (isNamed || only) {
                if (!only || !isAnyIn(page_.rows[row].folded, wordsFor(Concept::total))) {
                    return false;
                }
                break;
            }
            only = row;
        }
        if (!only || !namesLoanAbove(page_, heading_.row())) {
            return false;
        }
        addCourse(*only, end, figuresByColumn(page_, *only, heading_), {});
        return true;
    }

    /// A course whose year stands in a row: what is left at its end may stand beside the table, in
    /// a row of its own, or is the last running balance.
    void addCourse(std::size_t row, std::size_t end, Figures figures, const Figures& last) {
        static const Labels running{"Saldo*", "solde*", "Kontostand", "Rest*"};
        const bool isLoan = heading_.isOfLoans || namesLoanAbove(page_, heading_.row());
        const Figure figure = isLoan ? Figure::debt : Figure::balance;
        auto& known = at(figures, figure);
        const bool isStated = at(figures, Figure::balance) || at(figures, Figure::debt);
        for (const RowRange& beside :
             {RowRange{&page_, row + 1, end}, RowRange{&page_, 0, heading_.row()}}) {
            if (!isStated && !known) {
                known = at(isLoan ? figuresOfLoan(beside) : figuresByLabel(beside), figure);
            }
        }
        for (const Figure left : {Figure::balance, Figure::debt}) {
            const auto& balance = at(last, left);
            if (!isStated && !known && balance && isAnyIn(foldWords(balance->label), running)) {
                at(figures, left) = balance;
            }
        }
        add({.figures = figures, .range = {&page_, row, row + 1}, .isLoan = isLoan});
    }

    void add(AccountEntry entry) {
        settle(entry);
        entries_.push_back(std::move(entry));
    }

    const PageRows& page_;
    const AccountHeading& heading_;
    const std::vector<AccountNumber>& ibans_;
    std::vector<AccountEntry> entries_;
    Figures section_; ///< sums of the rows since the last total, the amounts alone
    Figures all_;     ///< those of all rows so far
    std::size_t end_ = 0;
    std::optional<bool> tellsByNames_; ///< absent until it is asked for
    bool isOver_ = false;
    bool isSectionOwed_ = false;
    bool isTied_ = false; ///< a section of pillar 3a
};

} // namespace

bool headsCourse(const PageRows& page, const AccountHeading& heading) {
    constexpr std::size_t farthest = 3; // rows, a first one may state what was before
    std::size_t times = 0;
    const std::size_t end = std::min(page.rows.size(), heading.row() + 1 + farthest);
    for (std::size_t row = heading.row() + 1; row < end; ++row) {
        const bool isTime = beginsWithTime(page.rows[row]);
        times += isTime && hasAny(figuresByColumn(page, row, heading)) ? 1U : 0U;
    }
    return times >= 2;
}

std::vector<AccountEntry> entriesOfTable(const PageRows& page, const AccountHeading& heading,
                                         std::size_t end, const std::vector<AccountNumber>& ibans) {
    return ListReader(page, heading, ibans).read(end);
}

} // namespace fiscarel
