#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"
#include "TaxCore/base/Iban.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

using Record = ProposedRecord::Kind;

/// What an account or a loan may state.
enum class Figure { balance, interest, withholding, netInterest, debt, debtInterest };
constexpr std::size_t figureCount = 6;

const Wanted& wantedOf(Figure figure) {
    static const std::array<Wanted, figureCount> rows{
        Wanted{{"Saldo per 31.12.*",
                "Saldo am 31.12.*",
                "Schlusssaldo",
                "Kontostand per*",
                "Kontostand am*",
                "Kontostand",
                "Endsaldo",
                "Guthaben per*",
                "Saldo per*",
                "Saldo am*",
                "Kapital per*",
                "Kontosaldo",
                "Solde au*",
                "Solde final",
                "Solde de clôture",
                "Avoir au*",
                "Saldo al*",
                "Saldo finale",
                "Saldo di chiusura",
                "Avere al*",
                "Steuerwert*",
                "Saldo",
                "Guthaben",
                "Solde",
                "Avoir",
                "Kapital",
                "Valeur fiscale",
                "Valore fiscale"},
               {"Anfangssaldo", "Eröffnungssaldo", "Saldovortrag", "01.01*", "1. Januar",
                "Durchschnitt*", "Solde initial", "Solde d'ouverture", "Saldo iniziale",
                "Saldo di apertura", "Vortrag", "Vorjahr", "1er janvier", "Hypothek*", "Darlehen",
                "Schuld*", "Zins*"}},
        Wanted{{"Bruttozins*",
                "Zins brutto",
                "Habenzins*",
                "Zinsertrag brutto",
                "Bruttoertrag",
                "Zinsertrag*",
                "Intérêt brut*",
                "Intérêts bruts",
                "Intérêts créanciers",
                "Interessi lordi",
                "Interesse lordo",
                "Interessi creditori",
                "Zinsgutschrift",
                "Ertrag",
                "Erträge",
                "Rendement*",
                "Ricavi",
                "Reddito",
                "Zinsen",
                "Zins",
                "Intérêts",
                "Interessi"},
               {"netto", "Nettozins*", "nets", "netti", "Schuldzins*", "Sollzins*",
                "Hypothekarzins*", "Zinssatz", "débiteurs", "passivi", "Verrechnungssteuer",
                "Zinsabschluss"}},
        Wanted{{"Verrechnungssteuer*", "Verr.-Steuer", "Verrechnungsst*", "VST", "Impôt anticipé*",
                "Imposta preventiva*"},
               {"Anspruch", "netto"}},
        Wanted{{"Nettozins*", "Zins netto", "Intérêt net", "Intérêts nets", "Interessi netti",
                "Interesse netto"},
               {}},
        Wanted{{"Restschuld*",   "Hypothekarschuld*",
                "Schuld per*",   "Schuldsaldo*",
                "Hypothek per*", "Darlehensschuld",
                "Darlehen per*", "Kapitalschuld",
                "Schuldbetrag",  "Hypothek*",
                "Festhypothek",  "Darlehen*",
                "Schuld",        "Dette*",
                "Prêt*",         "Hypothèque*",
                "Dette au*",     "Debito*",
                "Ipoteca*",      "Mutuo*"},
               {"Schuldzins*", "Hypothekarzins*", "Zins*", "Intérêt*", "Interess*", "Zinssatz",
                "Amortisation"}},
        Wanted{{"Bezahlte Schuldzinsen", "Bezahlte Hypothekarzinsen", "Schuldzins*",
                "Hypothekarzins*", "Sollzins*", "Zinsaufwand", "Zinsbelastung*", "Bezahlte Zinsen",
                "Darlehenszins*", "Kreditzins*", "Intérêts débiteurs", "Intérêts hypothécaires",
                "Intérêts payés", "Intérêts passifs", "Interessi passivi", "Interessi debitori",
                "Interessi ipotecari", "Interessi pagati"},
               {"Zinssatz"}},
    };
    return rows[static_cast<std::size_t>(figure)];
}

struct Iban {
    std::string text; ///< compact
    std::size_t row = 0;
    std::size_t last = 0; ///< index of its last word in the row
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
                return Iban{taxcore::compactIban(joined), at, last};
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

/// Columns of a table headed by words: where each figure's amounts stand.
struct Heading {
    std::size_t row = 0;
    std::array<std::optional<LabelPlace>, figureCount> columns;

    std::size_t count() const {
        return static_cast<std::size_t>(
            std::ranges::count_if(columns, [](const auto& column) { return column.has_value(); }));
    }
};

/// Whether the gap behind a word is wider than a blank.
bool isColumnGap(const Row& row, std::size_t word) {
    const RowWord& before = row.words[word];
    const double letter =
        before.place.width() / static_cast<double>(std::max<std::size_t>(before.text.size(), 1));
    return row.words[word + 1].place.left - before.place.right > 1.5 * letter;
}

Heading headingIn(const PageRows& page, std::size_t at) {
    Heading heading{.row = at};
    const Row& row = page.rows[at];
    if (std::ranges::any_of(row.amounts, [](const RowAmount& amount) {
            return amount.amount.hasDecimals || amount.amount.hasMark;
        })) {
        return heading;
    }
    for (std::size_t i = 0; i < figureCount; ++i) {
        // The words that bar a row bar only their own column here, so they are not looked at.
        const auto place =
            findLabel(row, wantedOf(static_cast<Figure>(i)).labels, page.isRecognised);
        // A heading's words stand apart, those of a title do not.
        const bool isApart = place && (place->first == 0 || isColumnGap(row, place->first - 1));
        const bool isTaken =
            place && std::ranges::any_of(heading.columns, [&](const auto& other) {
                return other && other->first <= place->last && place->first <= other->last;
            });
        if (isApart && !isTaken) {
            heading.columns[i] = place;
        }
    }
    return heading;
}

/// How far an amount is from the column of a label: 0 where they overlap.
double columnDistance(const RowAmount& amount, const LabelPlace& label) {
    const double byRight = std::abs(amount.place.right - label.right);
    const bool overlaps = amount.place.right > label.left && amount.place.left < label.right;
    return overlaps ? std::min(byRight, 1.0) : byRight;
}

using Figures = std::array<std::optional<FoundAmount>, figureCount>;

/// The amounts of a row by the columns of the heading.
Figures figuresByColumn(const PageRows& page, std::size_t at, const Heading& heading) {
    Figures figures;
    std::array<double, figureCount> distances{};
    distances.fill(page.width / 10);
    for (const RowAmount& amount : page.rows[at].amounts) {
        std::size_t nearest = figureCount;
        double least = page.width / 10;
        for (std::size_t i = 0; i < figureCount; ++i) {
            if (heading.columns[i] && columnDistance(amount, *heading.columns[i]) < least) {
                least = columnDistance(amount, *heading.columns[i]);
                nearest = i;
            }
        }
        if (nearest < figureCount && amount.amount.isFirm() && least < distances[nearest]) {
            const LabelPlace& label = *heading.columns[nearest];
            figures[nearest] =
                FoundAmount{.page = &page,
                            .row = at,
                            .amount = amount,
                            .label = textBetween(page.rows[heading.row], label.first, label.last)};
            distances[nearest] = least;
        }
    }
    return figures;
}

/// Interest by what it is, which is surer than its label in recognised text: an amount above one of
/// 35 per cent of it, with what remains below.
void findInterestByTax(const RowRange& range, Figures& figures) {
    std::vector<FoundAmount> lasts;
    for (std::size_t at = range.first; at < range.end; ++at) {
        const Row& row = range.page->rows[at];
        if (!row.amounts.empty() && row.amounts.back().amount.isFirm()) {
            lasts.push_back({.page = range.page,
                             .row = at,
                             .amount = row.amounts.back(),
                             .label = "Zins",
                             .isAlone = false});
        }
    }
    for (std::size_t i = 0; i + 2 < lasts.size(); ++i) {
        const Decimal gross = lasts[i].value();
        const Decimal tax = lasts[i + 1].value();
        if (gross >= 1 && ((gross * 35 / 100) - tax).abs() <= Decimal(5) / 100
            && gross - tax == lasts[i + 2].value()) {
            const auto put = [&](Figure figure, const FoundAmount& amount) {
                auto& known = figures[static_cast<std::size_t>(figure)];
                if (!known || (range.page->isRecognised && known->value() != amount.value())) {
                    known = amount;
                }
            };
            put(Figure::interest, lasts[i]);
            put(Figure::withholding, lasts[i + 1]);
            put(Figure::netInterest, lasts[i + 2]);
            return;
        }
    }
}

Figures figuresByLabel(const RowRange& range) {
    Figures figures;
    for (std::size_t i = 0; i < figureCount; ++i) {
        figures[i] = findFirst({range}, wantedOf(static_cast<Figure>(i)));
    }
    findInterestByTax(range, figures);
    return figures;
}

/// Opening + movements = closing: a balance that the statement's own sums lead to.
std::optional<ProposalCheck> movementCheck(const RowRange& range, const FoundAmount& closing) {
    static const Wanted opening{{"Anfangssaldo", "Eröffnungssaldo", "Saldovortrag",
                                 "Saldo per 01.01.*", "Saldo am 01.01*", "Solde initial",
                                 "Solde d'ouverture", "Saldo iniziale", "Saldo di apertura"},
                                {}};
    static const Wanted credits{
        {"Total Gutschriften", "Gutschriften", "Eingänge", "Crédits", "Accrediti"}, {}};
    static const Wanted debits{
        {"Total Belastungen", "Belastungen", "Ausgänge", "Débits", "Addebiti"}, {}};
    const auto first = findFirst({range}, opening);
    const auto in = findFirst({range}, credits);
    const auto out = findFirst({range}, debits);
    if (!first || !in || !out) {
        return std::nullopt;
    }
    const Decimal computed = first->value() + in->value().abs() - out->value().abs();
    const bool holds = computed == closing.value();
    return ProposalCheck{"Anfangssaldo + Gutschriften − Belastungen = " + shown(computed)
                             + (holds ? "" : ", als Schlusssaldo steht " + shown(closing.value())),
                         holds};
}

/// Withholding tax is 35 per cent of the gross interest (VStG Art. 13), and the rest is paid out.
std::vector<ProposalCheck> interestChecks(const Figures& figures) {
    std::vector<ProposalCheck> checks;
    const auto& gross = figures[static_cast<std::size_t>(Figure::interest)];
    const auto& tax = figures[static_cast<std::size_t>(Figure::withholding)];
    const auto& net = figures[static_cast<std::size_t>(Figure::netInterest)];
    if (gross && tax && !tax->value().isZero()) {
        const Decimal computed = (gross->value() * 35 / 100).roundPlain(2);
        const bool holds = (computed - tax->value().abs()).abs() <= Decimal(5) / 100;
        checks.push_back(
            {"35 % von " + shown(gross->value()) + " = " + shown(computed)
                 + (holds ? "" : ", als Verrechnungssteuer steht " + shown(tax->value().abs())),
             holds});
    }
    if (gross && net) {
        const Decimal computed = gross->value() - (tax ? tax->value().abs() : Decimal());
        const bool holds = computed == net->value();
        checks.push_back({"Brutto − Verrechnungssteuer = " + shown(computed)
                              + (holds ? "" : ", netto steht aber " + shown(net->value())),
                          holds});
    }
    return checks;
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
        std::optional<Heading> heading;
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            if (const Heading found = headingIn(page, at); found.count() >= 2 && page.number != 0) {
                heading = found;
            }
            if (auto iban = ibanIn(page.rows[at], at);
                iban && !isContactLine(page, page.rows[at])) {
                ibans.push_back(std::move(*iban));
            }
        }
        if (heading) {
            proposeTable(page, *heading, ibans);
            return;
        }
        for (std::size_t i = 0; i < std::max<std::size_t>(ibans.size(), 1); ++i) {
            // What stands above the first account number belongs to it as well.
            const std::size_t first = i == 0 ? 0 : ibans[i].row;
            const std::size_t end = i + 1 < ibans.size() ? ibans[i + 1].row : page.rows.size();
            const RowRange range{&page, first, end};
            proposeEntry(figuresByLabel(range), ibans.empty() ? nullptr : &ibans[i], range);
        }
    }

    /// Each row of a table with an amount and either an account number or words; totals are none.
    void proposeTable(const PageRows& page, const Heading& heading,
                      const std::vector<Iban>& ibans) {
        static const Labels totals{"Total*", "Summe", "Somme", "Somma", "Totale"};
        for (std::size_t at = heading.row + 1; at < page.rows.size(); ++at) {
            const Row& row = page.rows[at];
            Figures figures = figuresByColumn(page, at, heading);
            const bool hasAny =
                std::ranges::any_of(figures, [](const auto& figure) { return figure.has_value(); });
            if (hasAny && isAnyIn(row.folded, totals)) {
                break;
            }
            if (!hasAny) {
                continue;
            }
            const Iban* own = ibanOf(ibans, at, heading.row);
            if (own == nullptr
                && (row.words.empty() || row.amounts.empty() || row.amounts.front().first == 0)) {
                continue;
            }
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

    void proposeEntry(const Figures& figures, const Iban* iban, const RowRange& range) {
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
