#include "Fiscarel_SG/documents/kinds/AccountEntries.h"
#include "Fiscarel_SG/documents/kinds/AccountPages.h"
#include "Fiscarel_SG/documents/kinds/AccountTable.h"
#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"
#include "Fiscarel_SG/documents/kinds/SecurityTable.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <set>
#include <utility>
#include <vector>

namespace fiscarel {

namespace {

class AccountMapper {
  public:
    AccountMapper(const KindContext& context, ProposalDraft& draft)
        : context_(context), draft_(draft) {}

    void propose() {
        for (const PageRows& page : context_.document.pages) {
            if (!proposeSecurities(context_, page, draft_)) {
                readPage(keep(withoutOthers(page, context_.facts.year)));
            }
        }
        proposeEntries(context_, entries_, draft_);
    }

  private:
    void readPage(const PageRows& page) {
        std::vector<AccountNumber> ibans;
        std::vector<AccountHeading> headings;
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            const bool isNew = headings.empty() || headings.back().row() < at;
            const AccountHeading found = accountHeadingIn(page, at);
            if (isNew && found.count() >= 2 && page.number != 0) {
                headings.push_back(found);
            }
            if (auto iban = ibanIn(page.rows[at], at);
                iban && !isContactLine(page, page.rows[at])) {
                ibans.push_back(std::move(*iban));
            }
        }
        for (std::size_t i = 0; i < headings.size(); ++i) {
            const std::size_t end =
                i + 1 < headings.size() ? headings[i + 1].row() : page.rows.size();
            readTable(page, headings[i], end, ibans);
        }
        if (headings.empty() && !readNamedRows(page, ibans) && !readColumns(page)) {
            readBlocks(page, ibans);
        }
    }

    /// Accounts beside each other, each with its figures in its column: each as a page of its own.
    bool readColumns(const PageRows& page) {
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            const auto cells = accountCells(page, at);
            if (cells.size() < 2 || !statesFigures(page, at, cells.front().left)) {
                continue;
            }
            for (PageRows& part : columnsAsPages(page, at, cells)) {
                const PageRows& own = keep(withoutOthers(std::move(part), context_.facts.year));
                const RowRange range{&own, 0, own.rows.size()};
                addEntry({.figures = figuresByLabel(range), .range = range});
            }
            return true;
        }
        return false;
    }

    /// The headings of a row that name no figures, without that of the total.
    static std::vector<LabelPlace> accountCells(const PageRows& page, std::size_t at) {
        const Row& row = page.rows[at];
        std::vector<LabelPlace> cells;
        if (hasFirmAmount(row)) {
            return cells;
        }
        for (const LabelPlace& cell : cellsOf(row)) {
            Row own;
            own.words = wordsOf(row, cell);
            const bool isOther =
                namesAny(own,
                         {Concept::interest, Concept::balance, Concept::withholding, Concept::rate,
                          Concept::paid, Concept::opening},
                         page.isRecognised);
            if (isOther || lettersIn(row, cell) < 3) {
                return {};
            }
            if (!namesAny(own, {Concept::total}, page.isRecognised)) {
                cells.push_back(cell);
            }
        }
        return cells;
    }

    /// Whether rows below say left of a column what their amounts are: at least two figures.
    static bool statesFigures(const PageRows& page, std::size_t at, double left) {
        constexpr std::size_t farthest = 3; // rows from the headings to the first figure
        std::set<Figure> stated;
        for (std::size_t below = at + 1; below < page.rows.size(); ++below) {
            const Row& row = page.rows[below];
            const auto cells = cellsOf(row);
            if (row.amounts.size() < 2 || cells.front().left >= left - alignment(page)) {
                if (stated.empty() && below > at + farthest) {
                    return false; // that row stood far above, in the letter's head
                }
                continue;
            }
            Row label;
            label.words = wordsOf(row, cells.front());
            for (const RowWord& word : label.words) {
                label.folded += word.folded + ' ';
            }
            if (const auto figure = figureOf(label, page.isRecognised)) {
                stated.insert(*figure);
            }
        }
        return stated.size() >= 2;
    }

    /// The words before an account number, which name the account; empty when there are none.
    static std::string nameBefore(const PageRows& page, const AccountNumber& iban) {
        const Row& row = page.rows[iban.row];
        std::string name;
        for (std::size_t i = 0; i < iban.first; ++i) {
            if (!row.words[i].folded.empty() && row.words[i].folded != "iban") {
                name += (name.empty() ? "" : " ") + row.words[i].folded;
            }
        }
        return name;
    }

    /// Accounts that are named with their numbers first, and by name in each row of an amount:
    /// "Sparkonto – Zins   12.50". False when the page is not set so.
    bool readNamedRows(const PageRows& page, const std::vector<AccountNumber>& ibans) {
        std::vector<PageRows> parts;
        for (const AccountNumber& iban : ibans) {
            PageRows part = withoutRows(page);
            const std::string name = nameBefore(page, iban);
            std::ranges::copy_if(page.rows, std::back_inserter(part.rows), [&](const Row& row) {
                return !name.empty() && !row.amounts.empty() && row.folded.starts_with(name)
                       && row.folded != page.rows[iban.row].folded;
            });
            parts.push_back(std::move(part));
        }
        if (std::ranges::count_if(parts, [](const PageRows& part) { return !part.rows.empty(); })
            < 2) {
            return false;
        }
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const PageRows& own = keep(std::move(parts[i]));
            const RowRange range{&own, 0, own.rows.size()};
            addEntry({.figures = figuresByLabel(range), .number = ibans[i].text, .range = range});
        }
        return true;
    }

    /// Whether a word of a row may be the number of an account.
    static bool hasNumber(const Row& row) {
        return std::ranges::any_of(row.words, [](const RowWord& word) {
            return std::ranges::count_if(word.text, [](char c) { return c >= '0' && c <= '9'; })
                       >= 4
                   && !parseDay(word.text);
        });
    }

    /// Rows that begin with the name of an account or loan and its number, as its block does; the
    /// number may stand below.
    static std::vector<std::size_t> namedBlocks(const PageRows& page) {
        std::vector<std::size_t> starts;
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            const Row& row = page.rows[at];
            const auto name = [&](Concept meant) {
                const auto place = findLabel(row, wordsFor(meant), page.isRecognised);
                return place && place->first <= 1;
            };
            const bool isNumberBelow = cellsOf(row).size() == 1 && at + 1 < page.rows.size()
                                       && page.rows[at + 1].words.size() == 1
                                       && hasNumber(page.rows[at + 1])
                                       && !hasFirmAmount(page.rows[at + 1]) && !namesLastDay(row);
            const auto cells = cellsOf(row);
            const bool hasAmount = std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
                const bool isApart = cells.size() > 1 && amount.first >= cells.back().first;
                return amount.amount.hasDecimals || amount.amount.hasCurrency
                       || (amount.amount.hasMark && isApart);
            });
            if ((hasNumber(row) || isNumberBelow) && !hasAmount && row.words.size() <= 12
                && !isContactLine(page, row) && (name(Concept::account) || name(Concept::debt))) {
                starts.push_back(at);
            }
        }
        return starts;
    }

    /// Where accounts and loans begin that stand one below the other.
    static std::vector<std::size_t> startsOf(const PageRows& page,
                                             const std::vector<AccountNumber>& ibans) {
        std::vector<std::size_t> starts;
        for (const AccountNumber& iban : ibans) {
            starts.push_back(iban.row);
        }
        const auto named = namedBlocks(page);
        if (ibans.size() < 2 && named.size() >= 2) {
            return named;
        }
        std::ranges::copy_if(named, std::back_inserter(starts), [&](std::size_t at) {
            return !starts.empty() && namesLoan(page, at)
                   && (at > starts.front() || hasAmounts(page, at, starts.front()))
                   && std::ranges::find(ibans, at, &AccountNumber::row) == ibans.end();
        });
        std::ranges::sort(starts);
        return starts;
    }

    static bool hasAmounts(const PageRows& page, std::size_t from, std::size_t end) {
        return std::any_of(page.rows.begin() + static_cast<std::ptrdiff_t>(from),
                           page.rows.begin() + static_cast<std::ptrdiff_t>(end),
                           [](const Row& row) { return hasFirmAmount(row); });
    }

    static bool namesLoan(const PageRows& page, std::size_t at) {
        return namesAny(page.rows[at], {Concept::debt}, page.isRecognised)
               && !namesAny(page.rows[at], {Concept::account}, page.isRecognised);
    }

    /// What a loan's block tells, the debt at last by the day it stands at: "Importo dovuto al 31
    /// dicembre 2024".
    static Figures figuresOfLoan(const RowRange& range) {
        Figures figures = figuresByLabel(range);
        auto& debt = figures[static_cast<std::size_t>(Figure::debt)];
        const bool isKnown = debt || figures[static_cast<std::size_t>(Figure::balance)];
        for (std::size_t at = range.first; at < range.end && !isKnown && !debt; ++at) {
            const Row& row = range.page->rows[at];
            const bool isOther = namesAny(row,
                                          {Concept::interest, Concept::debtInterest, Concept::other,
                                           Concept::repayment, Concept::total, Concept::rate},
                                          range.page->isRecognised);
            if (!isOther && row.amounts.size() == 1 && hasFirmAmount(row) && namesLastDay(row)
                && row.amounts[0].first > 0) {
                debt = FoundAmount{.page = range.page,
                                   .row = at,
                                   .amount = row.amounts[0],
                                   .label = textBetween(row, 0, row.amounts[0].first - 1),
                                   .isAlone = false};
            }
        }
        return figures;
    }

    /// Where the last of several accounts ends: at the totals of all, which the first has none of.
    static std::size_t endOfLast(const PageRows& page, const std::vector<std::size_t>& starts) {
        static const Labels all{"aller Konten", "alle Konten", "tous les comptes", "tutti i conti"};
        const auto findTotal = [&](std::size_t from, std::size_t end) {
            while (from < end
                   && !(hasFirmAmount(page.rows[from])
                        && (namesAny(page.rows[from], {Concept::total}, page.isRecognised)
                            || isAnyIn(page.rows[from].folded, all)))) {
                ++from;
            }
            return from;
        };
        const std::size_t end = page.rows.size();
        const bool isPlain = starts.size() > 1 && findTotal(starts[0], starts[1]) == starts[1];
        return isPlain ? findTotal(starts.back() + 1, end) : end;
    }

    /// Accounts one below the other, each from its number to the next one's.
    void readBlocks(const PageRows& page, const std::vector<AccountNumber>& ibans) {
        const auto starts = startsOf(page, ibans);
        for (std::size_t i = 0; i < std::max<std::size_t>(starts.size(), 1); ++i) {
            // What stands above the first account number belongs to it as well.
            const std::size_t first = i == 0 ? 0 : starts[i];
            const std::size_t end = i + 1 < starts.size() ? starts[i + 1] : endOfLast(page, starts);
            const auto own = std::ranges::find_if(ibans, [&](const AccountNumber& iban) {
                return iban.row >= first && iban.row < end;
            });
            const RowRange range{&page, first, end};
            const bool isLoan = i < starts.size() && starts.size() > 1 && own == ibans.end()
                                && namesLoan(page, starts[i]);
            addEntry({.figures = isLoan ? figuresOfLoan(range) : figuresByLabel(range),
                      .number = own == ibans.end() ? std::string() : own->text,
                      .range = range,
                      .isLoan = isLoan});
        }
    }

    /// What is left below the heading of a list of creditors in a row.
    static std::string creditorOf(const PageRows& page, std::size_t at,
                                  const AccountHeading& heading) {
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

    /// Each row of a table with an amount and either an account number or words; totals are none.
    void readTable(const PageRows& page, const AccountHeading& heading, std::size_t end,
                   const std::vector<AccountNumber>& ibans) {
        if (readCourse(page, heading, end)) {
            return;
        }
        const Labels& totals = wordsFor(Concept::total);
        Figures sums; // of the rows so far, the amounts alone
        bool isOver = false;
        for (std::size_t at = heading.row() + 1; at < end; ++at) {
            const Row& row = page.rows[at];
            const Figures figures = figuresByColumn(page, at, heading);
            const bool hasAny =
                std::ranges::any_of(figures, [](const auto& figure) { return figure.has_value(); });
            if (!hasAny) {
                continue;
            }
            const AccountNumber* own = ibanOf(page, ibans, at, heading.row());
            if (isSumOf(figures, sums) || isAnyIn(row.folded, totals)) {
                isOver = true;
                continue;
            }
            const auto firm = std::ranges::find_if(
                row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
            if ((own == nullptr && (isOver || firm == row.amounts.end() || firm->first == 0))
                || addSecondLine(page, at, figures)) {
                continue;
            }
            addTo(sums, figures);
            addEntry({.figures = figures,
                      .number = own == nullptr ? std::string() : own->text,
                      .creditor = creditorOf(page, at, heading),
                      .range = {&page, at, at + 1},
                      .isLoan = own == nullptr && (heading.isOfLoans || namesLoan(page, at)),
                      .isDepot = own == nullptr && namesDepot(row)});
        }
    }

    static bool namesDepot(const Row& row) {
        static const Labels depots{"*depot",          "Depot*", "Wertschriften*",
                                   "dépôt",           "titres", "dossier titres",
                                   "deposito titoli", "titoli", "custody"};
        return isAnyIn(row.folded, depots);
    }

    /// A line that only states income, below that of the account it belongs to: what tax was not
    /// withheld from stands there.
    bool addSecondLine(const PageRows& page, std::size_t at, const Figures& figures) {
        const auto& income = figures[static_cast<std::size_t>(Figure::interest)];
        const bool isOnly =
            std::ranges::count_if(figures, [](const auto& figure) { return figure.has_value(); })
            == 1;
        if (!income || !isOnly || at == 0 || entries_.empty() || entries_.back().range.page != &page
            || entries_.back().range.first + 1 != at) {
            return false;
        }
        AccountEntry& entry = entries_.back();
        auto& first = entry.figures[static_cast<std::size_t>(Figure::interest)];
        const auto& tax = entry.figures[static_cast<std::size_t>(Figure::withholding)];
        if (!entry.figures[static_cast<std::size_t>(Figure::balance)] || (first && !tax)) {
            return false;
        }
        if (first) {
            entry.figures[static_cast<std::size_t>(Figure::taxedInterest)] = first;
            first.reset();
        }
        entry.figures[static_cast<std::size_t>(Figure::untaxedInterest)] = income;
        return true;
    }

    /// A table whose rows are the days of a year is the course of one loan or account: it stands in
    /// the row that the interest adds up to. False for other tables.
    bool readCourse(const PageRows& page, const AccountHeading& heading, std::size_t end) {
        std::size_t days = 0;
        Decimal paid;
        for (std::size_t at = heading.row() + 1; at < end; ++at) {
            const Row& row = page.rows[at];
            const Figures figures = figuresByColumn(page, at, heading);
            const auto interestOf = [&](Figure figure) {
                return figures[static_cast<std::size_t>(figure)];
            };
            const auto interest = interestOf(Figure::interest) ? interestOf(Figure::interest)
                                                               : interestOf(Figure::debtInterest);
            if (beginsWithDay(row)) {
                ++days;
                paid = paid + (interest ? interest->value() : Decimal());
            } else if (days >= 2 && interest && interest->value() == paid) {
                addEntry({.figures = figures,
                          .range = {&page, at, at + 1},
                          .isLoan = heading.isOfLoans || namesLoanAbove(page, heading.row())});
                return true;
            }
        }
        return days >= 2;
    }

    static bool beginsWithDay(const Row& row) {
        const auto& words = row.words;
        return !words.empty()
               && (parseDay(words[0].text)
                   || (words.size() > 2 && parseDay(words[0].text, words[1].text, words[2].text)));
    }

    /// Whether one of the rows above a table names a loan.
    static bool namesLoanAbove(const PageRows& page, std::size_t at) {
        const std::size_t from = at > 3 ? at - 3 : 0;
        for (std::size_t i = from; i < at; ++i) {
            if (namesLoan(page, i)) {
                return true;
            }
        }
        return false;
    }

    static void addTo(Figures& sums, const Figures& figures) {
        for (std::size_t i = 0; i < figureCount; ++i) {
            if (sums[i] && figures[i]) {
                sums[i]->amount.amount.value = sums[i]->value() + figures[i]->value();
            } else if (figures[i]) {
                sums[i] = figures[i];
            }
        }
    }

    /// Whether what is left or owed, and the interest if both state it, are the sums.
    static bool isSumOf(const Figures& figures, const Figures& sums) {
        using enum Figure;
        const auto differs = [&](Figure figure) {
            const auto& own = figures[static_cast<std::size_t>(figure)];
            const auto& sum = sums[static_cast<std::size_t>(figure)];
            return own && sum && own->value() != sum->value();
        };
        const auto isSum = [&](Figure figure) {
            const auto& own = figures[static_cast<std::size_t>(figure)];
            return own && !own->value().isZero() && !differs(figure)
                   && sums[static_cast<std::size_t>(figure)];
        };
        return (isSum(balance) || isSum(debt)) && !differs(interest) && !differs(debtInterest);
    }

    /// The account number of a row of a table. Where the first one below the heading stands in a
    /// row with amounts, each row has its own or none; else it stands below when there is a row
    /// with amounts above the first, or above.
    static const AccountNumber* ibanOf(const PageRows& page,
                                       const std::vector<AccountNumber>& ibans, std::size_t at,
                                       std::size_t heading) {
        const auto first = std::ranges::find_if(
            ibans, [&](const AccountNumber& iban) { return iban.row > heading; });
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

    void addEntry(AccountEntry entry) {
        settle(entry);
        entries_.push_back(std::move(entry));
    }

    const PageRows& keep(PageRows page) {
        pages_.push_back(std::move(page));
        return pages_.back();
    }

    const KindContext& context_;
    ProposalDraft& draft_;
    std::vector<AccountEntry> entries_;
    std::deque<PageRows> pages_; ///< those the entries point into
};

} // namespace

void proposeAccounts(const KindContext& context, ProposalDraft& draft) {
    AccountMapper(context, draft).propose();
}

bool listsAccounts(const DocumentRows& document) {
    return std::ranges::any_of(document.pages, [](const PageRows& page) {
        AccountHeading heading;
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            if (auto found = accountHeadingIn(page, at); found.count() >= 3) {
                heading = std::move(found);
            }
            if (heading.count() == 0 || !ibanIn(page.rows[at], at)) {
                continue;
            }
            const Figures figures = figuresByColumn(page, at, heading);
            if (figures[static_cast<std::size_t>(Figure::balance)]) {
                return true;
            }
        }
        return false;
    });
}

} // namespace fiscarel
