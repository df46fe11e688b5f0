#include "Fiscarel_SG/documents/kinds/AccountList.h"

#include "Fiscarel_SG/documents/kinds/AccountBlocks.h"
#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/BankShares.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace fiscarel {

namespace {

std::optional<FoundAmount>& at(Figures& figures, Figure figure) {
    return figures[static_cast<std::size_t>(figure)];
}
const std::optional<FoundAmount>& at(const Figures& figures, Figure figure) {
    return figures[static_cast<std::size_t>(figure)];
}

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

bool namesDepot(const Row& row) {
    static const Labels depots{"*depot", "Depot*",  "Wertschriften*",
                               "dépôt",  "titres",  "dossier titres",
                               "titoli", "custody", "deposito titoli"};
    return isAnyIn(row.folded, depots);
}

/// Whether words stand beside the amounts of a row, before or behind them.
bool hasName(const Row& row) {
    const auto firm = std::ranges::find_if(
        row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
    if (firm == row.amounts.end()) {
        return false;
    }
    return firm->first > 0 || std::ranges::any_of(cellsOf(row), [&](const LabelPlace& cell) {
               return roleOf(row, cell) == Role::text && lettersIn(row, cell) >= 3;
           });
}

/// Whether the amounts of a row are marked as owed: "136'000.00 S", "D" in a column of its own.
bool isMarkedOwed(const Row& row) {
    static constexpr std::array<std::string_view, 12> marks{
        "S", "Soll", "SOLL", "D", "Débit", "DÉBIT", "Dare", "DARE", "DR", "débit", "dare", "soll"};
    return std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
        return amount.amount.isFirm() && amount.last + 1 < row.words.size()
               && std::ranges::find(marks, row.words[amount.last + 1].text) != marks.end();
    });
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

/// Whether a row only carries over what a page before or the rows above come to.
bool isCarried(const Row& row) {
    static const Labels carried{"Übertrag*", "Uebertrag*", "*vortrag", "report",  "reports",
                                "reporté*",  "reporter",   "riporto",  "riporti", "riportare",
                                "riportat*", "carried",    "forward"};
    const auto place = findLabel(row, carried, false);
    return place && place->first <= 1;
}

/// Whether a row begins with a time of the year: a day, "01.01. - 30.06.2024", "2. Quartal",
/// "1er semestre".
bool beginsWithTime(const Row& row) {
    static const Labels periods{"Quartal*", "Semester",  "Halbjahr*", "Trimester",
                                "semestre", "trimestre", "quarter"};
    const auto& words = row.words;
    if (words.empty()) {
        return false;
    }
    if (parseDay(words[0].text)
        || (words.size() > 2 && parseDay(words[0].text, words[1].text, words[2].text))) {
        return true;
    }
    const auto period = findLabel(row, periods, false);
    constexpr std::size_t dayAndMonth = 6; // letters of "01.07."
    const std::string& first = words[0].text;
    const bool isDayOfMonth = first.size() >= dayAndMonth
                              && isDayOfYear(first.substr(0, dayAndMonth))
                              && first.find_first_of("0123456789", dayAndMonth) != dayAndMonth;
    const bool isPart = (period && period->first <= 1) || monthOf(words[0].folded) != 0;
    return isDayOfMonth || (isPart && hasFirmAmount(row));
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

/// The account number of a row of a table. Where the first one below the heading stands in a row
/// with amounts, each row has its own or none; else it stands below when there is a row with
/// amounts above the first, or above.
const AccountNumber* ibanOf(const PageRows& page, const std::vector<AccountNumber>& ibans,
                            std::size_t at, std::size_t heading) {
    const auto first =
        std::ranges::find_if(ibans, [&](const AccountNumber& iban) { return iban.row > heading; });
    if (first == ibans.end()) {
        return nullptr;
    }
    const bool isOwn = hasFirmAmount(page.rows[first->row]);
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
        if (isCarried(row)) {
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
            || (own == nullptr && addTaxLine(at, figures)) || addSecondLine(at, figures)) {
            return;
        }
        addTo(section_, figures);
        addTo(all_, figures);
        const bool isNamed = (own == nullptr || tellsByNames()) && namesLoan(page_, at);
        const bool isLoan =
            isNamed || (own == nullptr && heading_.isOfLoans) || isBelowZero(row, figures);
        add({.figures = figures,
             .number = own == nullptr ? std::string() : own->text,
             .creditor = creditorOf(page_, at, heading_),
             .range = {&page_, at, at + 1},
             .isLoan = isLoan || isSectionOwed_,
             .isDepot = own == nullptr && (namesDepot(row) || mentionsShares(row)),
             .quantity = own == nullptr ? sharesIn(page_, at) : std::nullopt});
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
        return isOver_ && !(isNamed && (isBelow || hasNumber(row)));
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

    /// A line that only states the tax, in the column of the interest it was taken from above.
    bool addTaxLine(std::size_t row, const Figures& figures) {
        const auto& stated = at(figures, Figure::interest);
        const bool isTax = stated && onlyOne(figures)
                           && namesAny(page_.rows[row], {Concept::withholding}, page_.isRecognised);
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

bool namesLoan(const PageRows& page, std::size_t at) {
    return namesAny(page.rows[at], {Concept::debt}, page.isRecognised)
           && !namesAny(page.rows[at], {Concept::account}, page.isRecognised);
}

namespace {

/// "2025", also with a mark behind.
bool isYear(std::string_view text) {
    while (!text.empty() && std::string_view(".,:;)").find(text.back()) != std::string_view::npos) {
        text.remove_suffix(1);
    }
    const auto number = parseAmount(text);
    return text.size() == 4 && number && number->isYearLike();
}

} // namespace

bool hasNumber(const Row& row) {
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        const std::string& text = row.words[i].text;
        const bool isAmount = std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
            return amount.amount.isFirm() && amount.first <= i && i <= amount.last;
        });
        if (!isAmount && !isYear(text) && !parseDay(text)
            && std::ranges::count_if(text, [](char c) { return c >= '0' && c <= '9'; }) >= 4) {
            return true;
        }
    }
    return false;
}

std::vector<AccountEntry> entriesOfTable(const PageRows& page, const AccountHeading& heading,
                                         std::size_t end, const std::vector<AccountNumber>& ibans) {
    return ListReader(page, heading, ibans).read(end);
}

} // namespace fiscarel
