#include "Fiscarel_SG/documents/kinds/AccountEntries.h"
#include "Fiscarel_SG/documents/kinds/AccountTable.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"
#include "Fiscarel_SG/documents/kinds/SecurityTable.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "TaxCore/base/Iban.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace fiscarel {

namespace {

/// Whether words may be an account number, of this country or Liechtenstein also a misread one;
/// "al 31 dicembre 2024" is as long as one.
bool mayBeIban(const std::string& joined) {
    if (!taxcore::looksLikeIban(joined)) {
        return false;
    }
    const auto fault = taxcore::ibanFault(joined);
    const bool isOwn = joined.starts_with("CH") || joined.starts_with("LI");
    return !fault || (isOwn && fault == taxcore::IbanFault::checkDigits);
}

/// The first sound account number of a row.
std::optional<AccountNumber> ibanIn(const Row& row, std::size_t at) {
    for (std::size_t first = 0; first < row.words.size(); ++first) {
        std::string joined;
        for (std::size_t last = first; last < std::min(first + 8, row.words.size()); ++last) {
            joined += row.words[last].text;
            while (!joined.empty() && (joined.back() == ',' || joined.back() == ')')) {
                joined.pop_back();
            }
            if (joined.size() > 34) {
                break;
            }
            if (mayBeIban(joined)) {
                return AccountNumber{taxcore::compactIban(joined), at, first, last};
            }
        }
    }
    return std::nullopt;
}

/// The line at the foot that names the bank's own account beside its telephone number.
bool isContactLine(const PageRows& page, const Row& row) {
    static const Labels contacts{"MWST*", "UID", "Tel", "Telefon", "TVA", "IVA", "BIC"};
    return page.number != 0 && row.middle() > page.height * 0.93 && isAnyIn(row.folded, contacts);
}

/// A word for another currency than francs.
bool isForeignCurrency(std::string_view word) {
    static const std::set<std::string_view> codes{
        "EUR", "USD", "GBP", "JPY", "CAD", "AUD", "NZD", "SEK", "NOK", "DKK", "PLN", "CZK",
        "HUF", "CNY", "HKD", "SGD", "ZAR", "TRY", "THB", "€",   "$",   "£",   "US$", "Euro"};
    while (!word.empty()
           && std::string_view("()[],:").find(word.front()) != std::string_view::npos) {
        word.remove_prefix(1);
    }
    while (!word.empty()
           && std::string_view("()[],:").find(word.back()) != std::string_view::npos) {
        word.remove_suffix(1);
    }
    return codes.contains(word);
}

/// Whether the word before an amount names a foreign currency, or the one behind it where none
/// does before.
bool isForeign(const Row& row, const RowAmount& amount) {
    if (amount.first > 0) {
        const std::string& before = row.words[amount.first - 1].text;
        if (isFrancs(before) || isForeignCurrency(before)) {
            return isForeignCurrency(before);
        }
    }
    return amount.last + 1 < row.words.size() && isForeignCurrency(row.words[amount.last + 1].text);
}

/// A page without the amounts in foreign currencies, which no tax return states.
PageRows withoutForeign(PageRows page) {
    for (Row& row : page.rows) {
        std::erase_if(row.amounts, [&](const RowAmount& amount) { return isForeign(row, amount); });
    }
    return page;
}

class AccountMapper {
  public:
    AccountMapper(const KindContext& context, ProposalDraft& draft)
        : context_(context), draft_(draft) {}

    void propose() {
        for (const PageRows& page : context_.document.pages) {
            if (!proposeSecurities(context_, page, draft_)) {
                readPage(keep(withoutForeign(page)));
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
            std::vector<PageRows> parts;
            for (const LabelPlace& cell : accountCells(page, at)) {
                parts.push_back(columnOf(page, at, cell));
            }
            std::erase_if(parts, [](const PageRows& part) { return part.rows.size() < 2; });
            if (parts.size() < 2) {
                continue;
            }
            for (PageRows& part : parts) {
                const PageRows& own = keep(std::move(part));
                const RowRange range{&own, 0, own.rows.size()};
                addEntry({.figures = figuresByLabel(range), .range = range});
            }
            return true;
        }
        return false;
    }

    /// The cells of a row that name accounts or loans, where no amounts stand beside them.
    static std::vector<LabelPlace> accountCells(const PageRows& page, std::size_t at) {
        const Row& row = page.rows[at];
        std::vector<LabelPlace> cells;
        const bool hasAmounts = std::ranges::any_of(
            row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
        for (const LabelPlace& cell : hasAmounts ? std::vector<LabelPlace>() : cellsOf(row)) {
            Row own;
            own.words = wordsOf(row, cell);
            if (namesAny(own, {Concept::account, Concept::debt}, page.isRecognised)) {
                cells.push_back(cell);
            }
        }
        return cells;
    }

    /// The rows below a heading, with the amounts of its column only.
    static PageRows columnOf(const PageRows& page, std::size_t at, const LabelPlace& heading) {
        constexpr std::size_t most = 40; // rows
        PageRows part = withoutRows(page);
        for (std::size_t below = at + 1; below < std::min(page.rows.size(), at + most); ++below) {
            Row row = page.rows[below];
            std::erase_if(row.amounts, [&](const RowAmount& amount) {
                return amount.place.left >= heading.right || amount.place.right <= heading.left;
            });
            if (row.amounts.size() == 1 && row.amounts[0].first > 0) {
                part.rows.push_back(std::move(row));
            }
        }
        return part;
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

    /// Rows that begin with the name of an account or loan and its number, as its block does.
    static std::vector<std::size_t> namedBlocks(const PageRows& page) {
        std::vector<std::size_t> starts;
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            const Row& row = page.rows[at];
            const auto name = [&](Concept meant) {
                const auto place = findLabel(row, wordsFor(meant), page.isRecognised);
                return place && place->first <= 1;
            };
            const bool hasNumber = std::ranges::any_of(row.words, [](const RowWord& word) {
                return std::ranges::count_if(word.text, [](char c) { return c >= '0' && c <= '9'; })
                       >= 4;
            });
            const auto cells = cellsOf(row);
            const bool hasAmount = std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
                const bool isApart = cells.size() > 1 && amount.first >= cells.back().first;
                return amount.amount.hasDecimals || amount.amount.hasCurrency
                       || (amount.amount.hasMark && isApart);
            });
            if (hasNumber && !hasAmount && row.words.size() <= 12 && !isContactLine(page, row)
                && (name(Concept::account) || name(Concept::debt))) {
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
            return !starts.empty() && at > starts.front() && namesLoan(page, at)
                   && std::ranges::find(ibans, at, &AccountNumber::row) == ibans.end();
        });
        std::ranges::sort(starts);
        return starts;
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
        const Labels& totals = wordsFor(Concept::total);
        Figures sums; // of the rows so far, the amounts alone
        for (std::size_t at = heading.row() + 1; at < end; ++at) {
            const Row& row = page.rows[at];
            const Figures figures = figuresByColumn(page, at, heading);
            const bool hasAny =
                std::ranges::any_of(figures, [](const auto& figure) { return figure.has_value(); });
            if (!hasAny) {
                continue;
            }
            if (isSumOf(figures, sums) || isAnyIn(row.folded, totals)) {
                break;
            }
            const AccountNumber* own = ibanOf(ibans, at, heading.row());
            const auto firm = std::ranges::find_if(
                row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
            if (own == nullptr && (firm == row.amounts.end() || firm->first == 0)) {
                continue;
            }
            addTo(sums, figures);
            addEntry({.figures = figures,
                      .number = own == nullptr ? std::string() : own->text,
                      .creditor = creditorOf(page, at, heading),
                      .range = {&page, at, at + 1},
                      .isLoan = own == nullptr && (heading.isOfLoans || namesLoan(page, at))});
        }
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

    /// The account number in a row of a table, or beside it: below when the first one below the
    /// heading stands under a row with amounts, else above.
    static const AccountNumber* ibanOf(const std::vector<AccountNumber>& ibans, std::size_t at,
                                       std::size_t heading) {
        const auto first = std::ranges::find_if(
            ibans, [&](const AccountNumber& iban) { return iban.row > heading; });
        const bool isBelow = first != ibans.end() && first->row > heading + 1;
        for (const std::size_t row : {at, isBelow ? at + 1 : at - 1}) {
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

} // namespace fiscarel
