#include "Fiscarel_SG/documents/kinds/AccountBlocks.h"
#include "Fiscarel_SG/documents/kinds/AccountColumns.h"
#include "Fiscarel_SG/documents/kinds/AccountEntries.h"
#include "Fiscarel_SG/documents/kinds/AccountList.h"
#include "Fiscarel_SG/documents/kinds/AccountPages.h"
#include "Fiscarel_SG/documents/kinds/AccountRows.h"
#include "Fiscarel_SG/documents/kinds/AccountTable.h"
#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/AssetCosts.h"
#include "Fiscarel_SG/documents/kinds/BankShares.h"
#include "Fiscarel_SG/documents/kinds/HeldPieces.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"
#include "Fiscarel_SG/documents/kinds/SecurityTable.h"
#include "Fiscarel_SG/documents/kinds/StatementSpan.h"
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
        : context_(context), draft_(draft), span_(spanOfStatement(context.document)) {}

    void propose() {
        if (span_ == StatementSpan::part) {
            return;
        }
        for (const PageRows& page : context_.document.pages) {
            auto rest = proposeSecurities(context_, page, draft_);
            if (rest) {
                readRest(keep(withoutOthers(std::move(*rest), context_.facts.year)));
            } else {
                readPage(keep(withoutOthers(page, context_.facts.year)));
            }
        }
        giveNumber();
        const bool isDropped = span_ == StatementSpan::lastPart && dropInterest();
        const std::size_t first = draft_.result().records.size();
        proposeEntries(context_, entries_, draft_);
        for (std::size_t i = first; isDropped && i < draft_.result().records.size(); ++i) {
            draft_.record(static_cast<int>(i)).advice =
                "Der Auszug gilt nicht für das ganze Jahr. Die Zinsen des Jahres stehen auf dem "
                "Zinsausweis oder Jahresabschluss der Bank.";
        }
        proposeAssetCosts(context_, draft_);
    }

  private:
    /// The interest of a part of the year is not the year's; false where none was told.
    bool dropInterest() {
        using enum Figure;
        bool isDropped = false;
        for (AccountEntry& entry : entries_) {
            for (const Figure figure : {interest, withholding, netInterest, debtInterest,
                                        taxedInterest, untaxedInterest}) {
                auto& told = entry.figures[static_cast<std::size_t>(figure)];
                isDropped |= told.has_value();
                told.reset();
            }
        }
        return isDropped;
    }

    /// Gives the only account the only number of the document, which stands on another page.
    void giveNumber() {
        std::set<std::string> numbers;
        for (const PageRows& page : context_.document.pages) {
            for (const AccountNumber& iban : ibansOf(page)) {
                numbers.insert(iban.text);
            }
        }
        const bool isOne = entries_.size() == 1 && entries_[0].number.empty() && !entries_[0].isLoan
                           && !entries_[0].isDepot;
        if (isOne && numbers.size() == 1) {
            entries_[0].number = *numbers.begin();
        }
    }

    void readPage(const PageRows& page) {
        const std::vector<AccountNumber> ibans = ibansOf(page);
        auto listed = entriesOfTables(page, ibans);
        const bool isTable = !listed.empty();
        std::ranges::move(listed, std::back_inserter(entries_));
        if (!isTable && !readNamedRows(page, ibans) && !readColumns(page)) {
            readBlocks(page, ibans);
        }
    }

    /// What stands beside a table of securities: the tables of accounts and loans with their
    /// numbers. Rows without one may be sums of what is listed elsewhere.
    void readRest(const PageRows& page) {
        auto listed = entriesOfTables(page, ibansOf(page));
        std::ranges::copy_if(listed, std::back_inserter(entries_), [](const AccountEntry& entry) {
            return !entry.isDepot
                   && (!entry.number.empty()
                       || hasNumber(entry.range.page->rows[entry.range.first]));
        });
    }

    /// The accounts and loans of all tables of a page.
    std::vector<AccountEntry> entriesOfTables(const PageRows& page,
                                              const std::vector<AccountNumber>& ibans) const {
        std::vector<AccountHeading> headings;
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            const bool isNew = headings.empty() || headings.back().row() < at;
            const AccountHeading found = accountHeadingIn(page, at, context_.facts.year);
            const bool isOfCourse =
                found.count() == 1 && ibans.empty() && headings.empty() && headsCourse(page, found)
                && !entriesOfTable(page, found, page.rows.size(), ibans).empty();
            if (isNew && (found.count() >= 2 || isOfCourse) && page.number != 0) {
                headings.push_back(found);
            }
        }
        std::vector<AccountEntry> entries;
        for (std::size_t i = 0; i < headings.size(); ++i) {
            const std::size_t end =
                i + 1 < headings.size() ? headings[i + 1].row() : page.rows.size();
            std::ranges::move(entriesOfTable(page, headings[i], end, ibans),
                              std::back_inserter(entries));
        }
        return entries;
    }

    /// Accounts beside each other, each with its figures in its column: each as a page of its own.
    bool readColumns(const PageRows& page) {
        AccountColumns columns = accountColumns(page);
        for (PageRows& part : columns.parts) {
            const PageRows& own = keep(withoutOthers(std::move(part), context_.facts.year));
            const auto ibans = ibansOf(own);
            const RowRange range{&own, 0, own.rows.size()};
            addEntry({.figures = figuresByLabel(range),
                      .number = ibans.empty() ? std::string() : ibans.front().text,
                      .range = range,
                      .isLoan = columns.areLoans || (!own.rows.empty() && namesLoan(own, 0))});
        }
        if (!columns.parts.empty() && columns.end < page.rows.size()) {
            PageRows rest = page;
            rest.rows.erase(rest.rows.begin(),
                            rest.rows.begin() + static_cast<std::ptrdiff_t>(columns.end));
            const PageRows& own = keep(std::move(rest));
            readBlocks(own, ibansOf(own));
        }
        return !columns.parts.empty();
    }

    static std::vector<AccountNumber> ibansOf(const PageRows& page) {
        std::vector<AccountNumber> ibans;
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            if (auto iban = ibanIn(page.rows[at], at);
                iban && !isContactLine(page, page.rows[at])) {
                ibans.push_back(std::move(*iban));
            }
        }
        return ibans;
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

    /// Accounts one below the other, each from its number to the next one's.
    void readBlocks(const PageRows& page, const std::vector<AccountNumber>& ibans) {
        const auto starts = blockStarts(page, ibans);
        for (std::size_t i = 0; i < std::max<std::size_t>(starts.size(), 1); ++i) {
            // What stands above the first account number belongs to it as well.
            const std::size_t first = i == 0 ? 0 : starts[i];
            const std::size_t end = i + 1 < starts.size()
                                        ? starts[i + 1]
                                        : endOfLastBlock(page, starts, !entries_.empty());
            const auto own = std::ranges::find_if(ibans, [&](const AccountNumber& iban) {
                return iban.row >= first && iban.row < end;
            });
            RowRange range{&page, first, end};
            const auto loan = own == ibans.end() ? std::nullopt : loanBehind(range);
            range.end = loan ? loan->first : end;
            const bool isLoan = i < starts.size() && starts.size() > 1 && own == ibans.end()
                                && isTitledAsLoan(page, starts[i]);
            const bool isOfShares = i < starts.size() && namesShares(page.rows[starts[i]]);
            AccountEntry entry{.figures = isOfShares ? figuresOfShares(range)
                                          : isLoan || own == ibans.end()
                                              ? figuresOfLoan(range, isLoan)
                                              : figuresOfAccount(range),
                               .number = own == ibans.end() ? std::string() : own->text,
                               .range = range,
                               .isLoan = isLoan,
                               .isDepot = isOfShares,
                               .quantity = isOfShares ? sharesIn(range) : std::nullopt};
            entry.isLoan |= tellsOfLoan(entry);
            if ((starts.size() <= 1 && tellsOfBoth(entry)) || tellsOfCard(entry)) {
                addEntry(withoutAccount(entry));
                entry.figures = withoutLoan(entry.figures);
            }
            addEntry(std::move(entry));
            if (loan) {
                addEntry({.figures = figuresOfLoan(*loan), .range = *loan, .isLoan = true});
            }
        }
    }

    /// The rows of an account's block that go on about a loan, "votre prêt s'élevait à", from the
    /// one that names it; absent where its balance or the loan's amount does not stand apart.
    static std::optional<RowRange> loanBehind(const RowRange& range) {
        const auto figure = [](const RowRange& rows, Figure wanted) {
            return figuresByLabel(rows)[static_cast<std::size_t>(wanted)];
        };
        const auto owed = figure(range, Figure::debt);
        if (!owed || owed->value().isZero()) {
            return std::nullopt;
        }
        for (std::size_t at = range.first + 1; at <= owed->row; ++at) {
            if (!namesLoan(*range.page, at)) {
                continue;
            }
            const RowRange account{range.page, range.first, at};
            const RowRange loan{range.page, at, range.end};
            const auto own = figure(loan, Figure::debt);
            const bool isAlone = own && own->rowOf().amounts.size() == 1; // not of two years
            const bool areApart =
                isAlone && figure(account, Figure::balance) && !figure(account, Figure::debt);
            return areApart ? std::optional(loan) : std::nullopt;
        }
        return std::nullopt;
    }

    /// Whether a page states what is left and the interest paid on it, and names a loan and no
    /// account: "Steuerausweis Hypothek", "Kapital am 31. Dezember". Where the interest may be
    /// anybody's, the page says besides that it is owed.
    static bool tellsOfLoan(const AccountEntry& entry) {
        using enum Figure;
        const auto of = [&](Figure figure) {
            return entry.figures[static_cast<std::size_t>(figure)].has_value();
        };
        const auto& earned = entry.figures[static_cast<std::size_t>(interest)];
        const auto& owed = entry.figures[static_cast<std::size_t>(debtInterest)];
        static const Labels owing{"Schuld*",  "Schuldner*", "Darlehensnehmer*", "schuldest",
                                  "schulden", "dette*",     "débiteur*",        "debitore*"};
        const bool isPlain = !owed && earned && !of(withholding); // interest, told no further
        if (!of(balance) || of(debt) || !entry.number.empty()
            || (owed ? earned && earned->row != owed->row : !isPlain)) {
            return false;
        }
        const PageRows& page = *entry.range.page;
        bool isNamed = false;
        bool isOwed = !isPlain;
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            isNamed |= namesLoan(page, at);
            isOwed |= isAnyIn(page.rows[at].folded, owing);
            if (namesAny(page.rows[at], {Concept::account}, page.isRecognised)) {
                return false;
            }
        }
        return isNamed && isOwed;
    }

    /// Whether a page tells of an account and a loan, each with its own interest, or of the account
    /// first and of the loan's amount alone.
    static bool tellsOfBoth(const AccountEntry& entry) {
        using enum Figure;
        const auto of = [&](Figure figure) -> const std::optional<FoundAmount>& {
            return entry.figures[static_cast<std::size_t>(figure)];
        };
        if (!of(balance) || !of(interest) || !of(debt)
            || of(balance)->value() == of(debt)->value()) {
            return false;
        }
        return of(debtInterest) ? of(interest)->value() != of(debtInterest)->value()
                                : !entry.number.empty() && of(balance)->row < of(debt)->row
                                      && of(interest)->row < of(debt)->row;
    }

    /// Whether the block of an account with a number goes on about a credit card, and what is owed
    /// on it.
    static bool tellsOfCard(const AccountEntry& entry) {
        const auto& left = entry.figures[static_cast<std::size_t>(Figure::balance)];
        const auto& owed = entry.figures[static_cast<std::size_t>(Figure::debt)];
        const auto rows = entry.range.page->rows.begin();
        const std::size_t title = entry.range.first - std::min<std::size_t>(entry.range.first, 1);
        return !entry.number.empty() && left && owed && left->value() != owed->value()
               && std::any_of(rows + static_cast<std::ptrdiff_t>(title),
                              rows + static_cast<std::ptrdiff_t>(entry.range.end), namesCard);
    }

    /// The loan of a page that tells of an account first: interest told behind it is its own.
    static AccountEntry withoutAccount(AccountEntry entry) {
        using enum Figure;
        const auto earned = entry.figures[static_cast<std::size_t>(interest)];
        const auto& owed = entry.figures[static_cast<std::size_t>(debt)];
        auto& charged = entry.figures[static_cast<std::size_t>(debtInterest)];
        if (!charged && owed && earned && earned->row <= owed->row) {
            const RowRange behind{entry.range.page, owed->row, entry.range.end};
            charged = findFirst({behind}, wantedOf(interest));
            if (charged && charged->rowOf().amounts.size() > 1) {
                charged->amount = *lastOrNewest(*charged->page, charged->row);
            }
            if (charged && charged->value() == earned->value()) {
                charged.reset();
            }
        }
        for (const Figure figure : {balance, interest, withholding, netInterest}) {
            entry.figures[static_cast<std::size_t>(figure)].reset();
        }
        entry.number.clear();
        entry.isLoan = true;
        return entry;
    }

    static Figures withoutLoan(Figures figures) {
        figures[static_cast<std::size_t>(Figure::debt)].reset();
        figures[static_cast<std::size_t>(Figure::debtInterest)].reset();
        return figures;
    }

    /// Whether the head of an entry, its first two rows, names a pillar 3a, which is no wealth
    /// (BVG Art. 82 and 84).
    static bool isTied(const AccountEntry& entry) {
        const RowRange& range = entry.range;
        for (std::size_t at = range.first; at < std::min(range.first + 2, range.end); ++at) {
            const Row& row = range.page->rows[at];
            if (!hasFirmAmount(row)
                && namesAny(row, {Concept::pillar3a}, range.page->isRecognised)) {
                return true;
            }
        }
        return false;
    }

    /// What is told by number, price and value are shares or units, not an account.
    static void takePieces(AccountEntry& entry) {
        const bool isOpen = entry.number.empty() && !entry.isLoan && !entry.quantity;
        auto pieces = isOpen ? heldPieces(entry.range) : std::nullopt;
        if (!pieces) {
            return;
        }
        entry.isDepot = true;
        entry.figures[static_cast<std::size_t>(Figure::balance)] = std::move(pieces->value);
        entry.quantity = std::move(pieces->quantity);
        entry.pieces = std::move(pieces->check);
        entry.security = securityNumberIn(entry.range);
    }

    /// Whether what looks like a balance is what keeping the securities above it cost, or the tax.
    static bool isNoBalance(const AccountEntry& entry) {
        const auto& balance = entry.figures[static_cast<std::size_t>(Figure::balance)];
        return entry.number.empty() && balance && statesNoBalance(*balance->page, balance->row);
    }

    void addEntry(AccountEntry entry) {
        if (isTied(entry) || isNoBalance(entry)) {
            return;
        }
        takePieces(entry);
        settle(entry);
        entries_.push_back(std::move(entry));
    }

    const PageRows& keep(PageRows page) {
        pages_.push_back(std::move(page));
        return pages_.back();
    }

    const KindContext& context_;
    ProposalDraft& draft_;
    const StatementSpan span_;
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
            // The number stands beside the amounts or below them.
            for (std::size_t row = at == 0 ? 0 : at - 1; row <= at; ++row) {
                if (row > heading.row()
                    && fiscarel::at(figuresByColumn(page, row, heading), Figure::balance)) {
                    return true;
                }
            }
        }
        return false;
    });
}

} // namespace fiscarel
