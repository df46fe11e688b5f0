#include "Fiscarel_SG/documents/kinds/Securities.h"

#include "Fiscarel_SG/documents/kinds/HeldPieces.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"
#include "Fiscarel_SG/documents/kinds/WithholdingTax.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/Isin.h"

#include <algorithm>
#include <cctype>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

/// A word without the brackets and marks around it.
std::string bareWord(const std::string& text) {
    std::string bare;
    std::ranges::copy_if(text, std::back_inserter(bare),
                         [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; });
    return bare;
}

/// A Swiss security number has five to nine digits without marks between.
bool isValor(const std::string& word) {
    return word.size() >= 5 && word.size() <= 9 && hasOnlyDigits(word);
}

/// Number times price, for bonds in per cent.
std::optional<ProposalCheck> productCheck(const Security& security) {
    const auto& quantity = at(security.amounts, Stated::quantity);
    const auto& price = at(security.amounts, Stated::price);
    const auto& value = at(security.amounts, Stated::value);
    if (!quantity || !price || !value) {
        return std::nullopt;
    }
    return piecesCheck(quantity->value(), price->value(), value->value());
}

/// That the tax told beside an income is what is withheld from it.
std::optional<ProposalCheck> ownTaxCheck(const Security& security) {
    const auto& income = at(security.amounts, Stated::income);
    const auto& tax = at(security.amounts, Stated::tax);
    if (!income || !tax || tax->value().isZero()
        || !isWithholdingOf(tax->value(), income->value())) {
        return std::nullopt;
    }
    return ProposalCheck{withheldText(income->value(), tax->value().abs()), true};
}

} // namespace

std::optional<Stated> incomeBy(const Row& words, bool areNamed) {
    const auto taxed = taxednessOf(words, areNamed);
    return taxed ? std::optional(*taxed ? Stated::withTax : Stated::withoutTax) : std::nullopt;
}

const Labels& securityNumberWords() {
    static const Labels words{"Valor",         "Valor-Nr*",        "Valoren*",     "Valornummer*",
                              "N° de valeur",  "No de valeur",     "No valeur",    "N° valeur",
                              "numero valore", "numero di valore", "n. di valore", "n. valore",
                              "Valore n",      "Valore no",        "Valore numero"};
    return words;
}

std::optional<Stated> statedBy(const Row& cell, bool isRecognised, std::size_t most) {
    static const Labels quantities{
        "Anzahl",          "Stück*",        "Stk",           "Nominal*",         "Bestand",
        "Menge",           "Nombre",        "Quantité",      "Quantità",         "Nennwert",
        "Quantity",        "Anteile",       "unités",        "numero di titoli", "numero di azioni",
        "numero di quote", "numero titoli", "numero azioni", "numero quote",     "numero di pezzi",
        "pezzi",           "pièces",        "Aktienzahl",    "titres détenus",   "parts détenues"};
    static const Labels prices{"Kurs",   "Kurs*", "Steuerkurs*", "Cours", "Corso",
                               "Prezzo", "Preis", "Prix",        "Price"};
    static const Labels values{
        "*steuerwert*",   "Kurswert*",       "Wert*",          "Verkehrswert*",   "Marktwert*",
        "Vermögenswert*", "Gegenwert*",      "valeur*",        "valore*",         "val. fiscale",
        "val. imposable", "val. imponibile", "val. boursière", "val. di mercato", "controvalore*",
        "contre-valeur*", "market value"};
    static const Labels incomes{
        "Ertrag*",  "Erträge",    "Bruttoertr*", "Dividende*", "Ausschüttung*", "Zins*",
        "brutto*",  "rendement*", "produit*",    "revenu*",    "reddit*",       "dividend*",
        "provent*", "ricav*",     "Rev",         "Redd",       "Rend",          "Div"};
    static const Labels notValues{"Anfang*",  "Einstand*",    "Kaufwert*",   "Vorjahr*",
                                  "Beginn",   "Wertschrift*", "Wertpapier*", "Wertrecht*",
                                  "Wertung*", "Währung"};
    const auto says = [&](const Labels& labels) {
        return findLabel(cell, labels, isRecognised).has_value();
    };
    if (says(securityNumberWords()) || findLabel(cell, Label("ISIN"), isRecognised)
        || cell.words.size() > most) {
        return std::nullopt;
    }
    const auto taxed = incomeBy(cell);
    if (says(incomes) || (taxed && cell.words.size() <= 2)) {
        return taxed ? taxed : Stated::income;
    }
    static const Labels afterTax{"*netto*", "net", "nett*"};
    if (namesAny(cell, {Concept::withholding}, isRecognised) && (taxed || !says(afterTax))) {
        return taxed ? taxed : Stated::tax;
    }
    return says(quantities)                   ? std::optional(Stated::quantity)
           : says(values) && !says(notValues) ? std::optional(Stated::value)
           : says(prices)                     ? std::optional(Stated::price)
                                              : std::nullopt;
}

bool hasIsin(const Row& row) {
    return std::ranges::any_of(row.words,
                               [](const RowWord& word) { return isIsin(bareWord(word.text)); });
}

void readNames(const Row& row, std::size_t end, Security& security, std::size_t first) {
    for (std::size_t i = first; i < std::min(end, row.words.size()); ++i) {
        const std::string word = bareWord(row.words[i].text);
        // "2021–2030" are years.
        const std::string& text = row.words[i].text;
        const bool isSpan =
            text.find("–") != std::string::npos || text.find('-', 1) != std::string::npos;
        if (isIsin(word) || (isValor(word) && !isSpan && security.number.empty())) {
            security.number = word;
        } else if (!row.words[i].folded.empty()) {
            security.name += (security.name.empty() ? "" : " ") + row.words[i].text;
        }
    }
    while (!security.name.empty() && (security.name.back() == ',' || security.name.back() == ' ')) {
        security.name.pop_back();
    }
}

void Security::put(Stated stated, const std::optional<FoundAmount>& amount) {
    auto& known = amounts[static_cast<std::size_t>(stated)];
    known = known ? known : amount;
}

Decimal SecurityList::sumOf(Stated stated) const {
    Decimal sum;
    for (const Security& one : all) {
        sum = sum + (at(one.amounts, stated) ? at(one.amounts, stated)->value() : Decimal());
    }
    return sum;
}

std::size_t SecurityList::countProven() const {
    return static_cast<std::size_t>(std::ranges::count_if(
        all, [](const Security& one) { return productCheck(one).has_value(); }));
}

bool SecurityList::isProven() const { return countProven() >= 2; }

bool SecurityList::isPrinted(const Decimal& sum) const { return findSum(page_, sum) != nullptr; }

void SecurityList::settleByTax() {
    const auto isOpen = [](const Security& one) {
        return at(one.amounts, Stated::income) && !at(one.amounts, Stated::withTax)
               && !at(one.amounts, Stated::withoutTax);
    };
    const bool isStated = std::ranges::any_of(
        all, [&](const Security& one) { return isOpen(one) && ownTaxCheck(one); });
    for (Security& one : all) {
        const auto& tax = at(one.amounts, Stated::tax);
        const bool isSwiss = !one.isAccount && one.number.starts_with("CH");
        if (!isStated || !isOpen(one)) {
            continue;
        }
        if (ownTaxCheck(one)) {
            one.put(Stated::withTax, at(one.amounts, Stated::income));
        } else if (tax ? tax->value().isZero() : !isSwiss) {
            one.put(Stated::withoutTax, at(one.amounts, Stated::income));
        }
    }
}

void SecurityList::settleIncome() {
    settleByTax();
    const auto isTold = [](const Security& one) {
        return at(one.amounts, Stated::withTax) || at(one.amounts, Stated::withoutTax);
    };
    if (std::ranges::any_of(all, isTold)) {
        return;
    }
    SecurityList settled = *this;
    for (Security& one : settled.all) {
        const auto& income = at(one.amounts, Stated::income);
        const bool isSwiss = one.isAccount
                                 ? income && income->value() > 200 && !one.number.starts_with("LI")
                                 : one.number.starts_with("CH");
        one.put(isSwiss ? Stated::withTax : Stated::withoutTax, income);
    }
    const auto incomesOf = [&](Stated stated) {
        return std::ranges::count_if(settled.all, [&](const Security& one) {
            const auto& income = at(one.amounts, stated);
            return income && !income->value().isZero();
        });
    };
    const auto holds = [&](Stated stated) {
        return incomesOf(stated) == 0 || isPrinted(settled.sumOf(stated));
    };
    // Where no debtor is Swiss, nothing can have been withheld.
    const bool isNoneSwiss = std::ranges::none_of(all, [](const Security& one) {
        return one.isAccount || one.number.starts_with("CH") || !isIsin(one.number);
    });
    if (isNoneSwiss) {
        all = std::move(settled.all);
        return;
    }
    // One income alone is printed anyway, and proves nothing.
    const bool isSummed = incomesOf(Stated::withTax) >= 2 || incomesOf(Stated::withoutTax) >= 2;
    const bool isProven = isSummed && holds(Stated::withTax) && holds(Stated::withoutTax);
    // The one total of a column says nothing of tax: a Swiss debtor's repaid capital is free of it.
    isTaxAssumed_ =
        incomesOf(Stated::withTax) > 0 && (!isProven || incomesOf(Stated::withoutTax) == 0);
    if (isProven || isTaxAssumed_) {
        all = std::move(settled.all);
    }
}

void SecurityList::propose(ProposalDraft& draft) const {
    for (const Security& security : all) {
        proposeOne(security, draft);
    }
}

std::optional<ProposalCheck> SecurityList::sumCheck(Stated stated) const {
    const auto& total = at(totals, stated);
    const Decimal sum = sumOf(stated);
    const auto count = std::ranges::count_if(
        all, [&](const Security& one) { return at(one.amounts, stated).has_value(); });
    const bool isTotal = total ? total->value() == sum : count >= 2 && isPrinted(sum);
    if (sum.isZero() || !isTotal) {
        return std::nullopt;
    }
    std::vector<Decimal> values;
    for (const Security& one : all) {
        if (const auto& amount = at(one.amounts, stated)) {
            values.push_back(amount->value());
        }
    }
    return ProposalCheck{partsText("einzelnen Beträge", values, sum), true};
}

/// That the tax claimed back is what is withheld from all incomes.
std::optional<ProposalCheck> SecurityList::taxCheck() const {
    const Decimal taxed = sumOf(Stated::withTax);
    const Decimal tax = withholdingOn(taxed);
    for (const Row& row : page_.rows) {
        for (const RowAmount& amount : row.amounts) {
            if (taxed > 0 && amount.amount.isFirm()
                && (amount.amount.value - tax).abs() <= Decimal(1) / 100
                && namesAny(row, {Concept::withholding}, page_.isRecognised)) {
                return ProposalCheck{withheldText(taxed, amount.amount.value), true};
            }
        }
    }
    return std::nullopt;
}

void SecurityList::proposeOne(const Security& security, ProposalDraft& draft) const {
    const auto& facts = context_.facts;
    const int record = draft.addRecord(
        recordWith(facts, ProposedRecord::Kind::security,
                   security.name.empty() ? security.number : security.name, page_.number));
    Evidence words{.witness = Witness::position,
                   .confidence = Confidence::medium,
                   .reason = "Steht in der Zeile der Wertschrift.",
                   .page = page_.number};
    draft.add(record, "kind", std::string(security.isAccount ? "konto" : "wertschrift"), words);
    draft.add(record, "description", security.name, words);
    draft.add(record, "ibanOrValor", security.number, words);
    draft.add(record, "institution", facts.issuer.text, issuerEvidence(facts));
    const auto product = productCheck(security);
    addAmount(record, "quantity", security, Stated::quantity, {product}, draft);
    addAmount(record, "taxValue", security, Stated::value, {product, sumCheck(Stated::value)},
              draft);
    addAmount(record, "incomeWithWithholding", security, Stated::withTax,
              {sumCheck(Stated::withTax), taxCheck(), ownTaxCheck(security)}, draft);
    addAmount(record, "incomeWithoutWithholding", security, Stated::withoutTax,
              {sumCheck(Stated::withoutTax)}, draft);
}

void SecurityList::addAmount(int record, const char* field, const Security& security, Stated stated,
                             const std::vector<std::optional<ProposalCheck>>& checks,
                             ProposalDraft& draft) const {
    const auto& found = at(security.amounts, stated);
    if (!found || found->value().isZero()) {
        return;
    }
    std::vector<ProposalCheck> held;
    for (const auto& check : checks) {
        if (check) {
            held.push_back(*check);
        }
    }
    const bool isDoubtful =
        isTaxAssumed_ && !taxCheck() && (stated == Stated::withTax || stated == Stated::withoutTax);
    if (isDoubtful) {
        held.clear();
    }
    const bool isProven = !held.empty();
    static const Wanted specific{{}, {}, true};
    Evidence evidence = evidenceOf(*found, specific, context_.isKindClear, std::move(held));
    if (!isProven && context_.kind == StoredDocument::Kind::steuerauszug) {
        evidence.confidence = Confidence::low;
    } else if (isProven && stated == Stated::quantity && context_.isKindClear
               && !page_.isRecognised) {
        evidence.confidence = Confidence::high; // pieces are whole numbers
    }
    if (isDoubtful) {
        evidence.confidence = Confidence::low;
        evidence.reason += " Ob Verrechnungssteuer abgezogen wurde, steht nicht da: bitte prüfen.";
    }
    draft.add(record, field, found->value(), std::move(evidence));
}

} // namespace fiscarel
