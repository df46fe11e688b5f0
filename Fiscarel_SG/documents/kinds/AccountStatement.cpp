#include "Fiscarel_SG/documents/kinds/AccountFigures.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "TaxCore/base/Iban.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

using Record = ProposedRecord::Kind;

struct Iban {
    std::string text; ///< compact
    std::size_t row = 0;
    std::size_t first = 0; ///< index of its first word in the row
    std::size_t last = 0;
};

/// The first sound account number of a row.
std::optional<Iban> ibanIn(const Row& row, std::size_t at) {
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
            if (taxcore::looksLikeIban(joined)
                && taxcore::ibanFault(joined) != taxcore::IbanFault::length
                && taxcore::ibanFault(joined) != taxcore::IbanFault::form) {
                return Iban{taxcore::compactIban(joined), at, first, last};
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

class AccountMapper {
  public:
    AccountMapper(const KindContext& context, ProposalDraft& draft)
        : context_(context), draft_(draft) {}

    void propose() {
        for (const PageRows& page : context_.document.pages) {
            proposePage(page);
        }
    }

  private:
    void proposePage(const PageRows& page) {
        std::vector<Iban> ibans;
        std::vector<AccountHeading> headings;
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            const bool isNew = headings.empty() || headings.back().row < at;
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
                i + 1 < headings.size() ? headings[i + 1].row : page.rows.size();
            proposeTable(page, headings[i], end, ibans);
        }
        if (headings.empty() && !proposeNamedRows(page, ibans) && !proposeColumns(page)) {
            proposeBlocks(page, ibans);
        }
    }

    /// Accounts beside each other, each with its figures in its column: each as a page of its own.
    bool proposeColumns(const PageRows& page) {
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            std::vector<PageRows> parts;
            for (const LabelPlace& cell : accountCells(page, at)) {
                parts.push_back(columnOf(page, at, cell));
            }
            std::erase_if(parts, [](const PageRows& part) { return part.rows.size() < 2; });
            if (parts.size() < 2) {
                continue;
            }
            for (const PageRows& part : parts) {
                const RowRange range{&part, 0, part.rows.size()};
                proposeEntry(figuresByLabel(range), nullptr, range);
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

    static PageRows withoutRows(const PageRows& page) {
        return {.number = page.number,
                .width = page.width,
                .height = page.height,
                .isRecognised = page.isRecognised,
                .slope = page.slope};
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
    static std::string nameBefore(const PageRows& page, const Iban& iban) {
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
    bool proposeNamedRows(const PageRows& page, const std::vector<Iban>& ibans) {
        std::vector<PageRows> parts;
        for (const Iban& iban : ibans) {
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
            const RowRange range{&parts[i], 0, parts[i].rows.size()};
            proposeEntry(figuresByLabel(range), &ibans[i], range);
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

    /// Accounts one below the other, each from its number to the next one's.
    void proposeBlocks(const PageRows& page, const std::vector<Iban>& ibans) {
        std::vector<std::size_t> starts;
        for (const Iban& iban : ibans) {
            starts.push_back(iban.row);
        }
        if (const auto named = namedBlocks(page); ibans.size() < 2 && named.size() >= 2) {
            starts = named;
        }
        for (std::size_t i = 0; i < std::max<std::size_t>(starts.size(), 1); ++i) {
            // What stands above the first account number belongs to it as well.
            const std::size_t first = i == 0 ? 0 : starts[i];
            const std::size_t end = i + 1 < starts.size() ? starts[i + 1] : page.rows.size();
            const auto own = std::ranges::find_if(
                ibans, [&](const Iban& iban) { return iban.row >= first && iban.row < end; });
            const RowRange range{&page, first, end};
            proposeEntry(figuresByLabel(range), own == ibans.end() ? nullptr : &*own, range);
        }
    }

    /// A loan among the accounts of a table: what it owes stands in their columns.
    static void asDebt(const Row& row, bool isRecognised, Figures& figures) {
        const auto at = [&](Figure figure) -> std::optional<FoundAmount>& {
            return figures[static_cast<std::size_t>(figure)];
        };
        const bool isNegative = at(Figure::balance) && at(Figure::balance)->value() < 0;
        if (at(Figure::debt) || at(Figure::debtInterest)
            || (!isNegative && !findLabel(row, wordsFor(Concept::debt), isRecognised))) {
            return;
        }
        at(Figure::debt) = std::exchange(at(Figure::balance), std::nullopt);
        at(Figure::debtInterest) = std::exchange(at(Figure::interest), std::nullopt);
    }

    /// Each row of a table with an amount and either an account number or words; totals are none.
    void proposeTable(const PageRows& page, const AccountHeading& heading, std::size_t end,
                      const std::vector<Iban>& ibans) {
        const Labels& totals = wordsFor(Concept::total);
        Decimal sum;
        for (std::size_t at = heading.row + 1; at < end; ++at) {
            const Row& row = page.rows[at];
            Figures figures = figuresByColumn(page, at, heading);
            const bool hasAny =
                std::ranges::any_of(figures, [](const auto& figure) { return figure.has_value(); });
            const auto& balance = figures[static_cast<std::size_t>(Figure::balance)];
            const bool isSum = balance && !sum.isZero() && balance->value() == sum;
            if (hasAny && (isSum || isAnyIn(row.folded, totals))) {
                break;
            }
            if (!hasAny) {
                continue;
            }
            const Iban* own = ibanOf(ibans, at, heading.row);
            const auto firm = std::ranges::find_if(
                row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
            if (own == nullptr && (firm == row.amounts.end() || firm->first == 0)) {
                continue;
            }
            sum = sum + (balance ? balance->value() : Decimal());
            asDebt(row, page.isRecognised, figures);
            proposeEntry(figures, own, {&page, at, at + 1});
        }
    }

    /// The account number in a row of a table, or beside it: below when the first one below the
    /// heading stands under a row with amounts, else above.
    static const Iban* ibanOf(const std::vector<Iban>& ibans, std::size_t at, std::size_t heading) {
        const auto first =
            std::ranges::find_if(ibans, [&](const Iban& iban) { return iban.row > heading; });
        const bool isBelow = first != ibans.end() && first->row > heading + 1;
        for (const std::size_t row : {at, isBelow ? at + 1 : at - 1}) {
            const auto found = std::ranges::find(ibans, row, &Iban::row);
            if (found != ibans.end()) {
                return &*found;
            }
        }
        return nullptr;
    }

    /// Interest beside a debt is the debt's, unless tax was withheld from it.
    static void giveInterestToDebt(Figures& figures) {
        const auto at = [&](Figure figure) -> std::optional<FoundAmount>& {
            return figures[static_cast<std::size_t>(figure)];
        };
        if (at(Figure::debt) && !at(Figure::debtInterest) && !at(Figure::balance)
            && !at(Figure::withholding)) {
            at(Figure::debtInterest) = std::exchange(at(Figure::interest), std::nullopt);
        }
    }

    void proposeEntry(Figures figures, const Iban* iban, const RowRange& range) {
        giveInterestToDebt(figures);
        const auto at = [&](Figure figure) -> const std::optional<FoundAmount>& {
            return figures[static_cast<std::size_t>(figure)];
        };
        if (at(Figure::debt) || at(Figure::debtInterest)) {
            proposeDebt(figures, range);
            if (!at(Figure::interest) || at(Figure::debtInterest)) {
                return;
            }
        }
        const auto& balance = at(Figure::balance);
        const auto& interest = at(Figure::interest);
        if (!balance && !interest) {
            return;
        }
        const std::string number = iban == nullptr ? std::string() : iban->text;
        const int record = draft_.addRecord(
            recordWith(context_.facts, Record::security,
                       number.empty() ? "Konto " + context_.facts.issuer.text : "Konto " + number,
                       range.page->number));
        proposeNames(record, number, range);
        const auto checks = interestChecks(figures);
        if (balance) {
            std::vector<ProposalCheck> ownChecks;
            if (const auto check = movementCheck(range, *balance)) {
                ownChecks.push_back(*check);
            }
            draft_.add(record, "taxValue", balance->value(),
                       evidenceOf(*balance, wantedOf(Figure::balance), context_.isKindClear,
                                  std::move(ownChecks)));
        }
        if (interest && !interest->value().isZero()) {
            const auto& tax = at(Figure::withholding);
            // Interest up to 200 francs a year is free of it. VStG Art. 5 Abs. 1 Bst. c
            const bool isTaxed =
                tax ? !tax->value().isZero() : interest->value() > 200 && !number.starts_with("LI");
            draft_.add(
                record, isTaxed ? "incomeWithWithholding" : "incomeWithoutWithholding",
                interest->value().abs(),
                evidenceOf(*interest, wantedOf(Figure::interest), context_.isKindClear, checks));
        }
    }

    void proposeNames(int record, const std::string& number, const RowRange& range) {
        const Evidence words{.witness = range.page->number == 0 ? Witness::text : Witness::position,
                             .confidence = Confidence::medium,
                             .reason = "Steht beim Konto.",
                             .page = range.page->number};
        draft_.add(record, "kind", std::string("konto"), words);
        Evidence checked = words;
        if (!number.empty()) {
            const bool isSound = !taxcore::ibanFault(number);
            checked.checks.push_back({isSound ? "Die Prüfziffer der IBAN stimmt"
                                              : "Die Prüfziffer der IBAN stimmt nicht",
                                      isSound});
            checked.confidence = isSound ? Confidence::high : Confidence::low;
        }
        draft_.add(record, "ibanOrValor", number, checked);
        Evidence issuer = words;
        issuer.reason = "Steht oben auf dem Dokument.";
        issuer.page = context_.facts.issuer.page;
        issuer.box = context_.facts.issuer.box;
        draft_.add(record, "institution", context_.facts.issuer.text, issuer);
        proposeDescription(record, range, words);
    }

    /// "Sparkonto", "Privatkonto Plus": the word that names the account.
    void proposeDescription(int record, const RowRange& range, const Evidence& words) {
        static const Labels names{
            "Sparkonto*",         "Privatkonto*",       "Jugendsparkonto",     "Mietkautionskonto",
            "Mietzinskonto",      "Lohnkonto",          "Anlagesparkonto",     "Kontokorrent",
            "Depositenkonto",     "Aktionärssparkonto", "Mitgliedersparkonto", "Compte privé",
            "Compte d'épargne",   "Compte épargne",     "Conto privato",       "Conto risparmio",
            "Conto di risparmio", "Zahlungskonto",      "Geschenksparkonto"};
        const std::size_t from = range.first > 0 ? range.first - 1 : 0;
        for (std::size_t at = from; at < range.end; ++at) {
            const Row& row = range.page->rows[at];
            if (const auto place = findLabel(row, names, range.page->isRecognised)) {
                draft_.add(record, "description", textBetween(row, place->first, place->last),
                           words);
                return;
            }
        }
    }

    void proposeDebt(const Figures& figures, const RowRange& range) {
        const int record = draft_.addRecord(recordWith(context_.facts, Record::debt,
                                                       "Schuld " + context_.facts.issuer.text,
                                                       range.page->number));
        draft_.add(record, "creditor", context_.facts.issuer.text,
                   {.witness = Witness::position,
                    .confidence = Confidence::medium,
                    .reason = "Steht oben auf dem Dokument.",
                    .page = context_.facts.issuer.page,
                    .box = context_.facts.issuer.box});
        for (const Figure figure : {Figure::debt, Figure::debtInterest}) {
            const auto& found = figures[static_cast<std::size_t>(figure)];
            if (found && !found->value().isZero()) {
                draft_.add(record, figure == Figure::debt ? "amount" : "interest",
                           found->value().abs(),
                           evidenceOf(*found, wantedOf(figure), context_.isKindClear));
            }
        }
    }

    const KindContext& context_;
    ProposalDraft& draft_;
};

} // namespace

void proposeAccounts(const KindContext& context, ProposalDraft& draft) {
    AccountMapper(context, draft).propose();
}

} // namespace fiscarel
