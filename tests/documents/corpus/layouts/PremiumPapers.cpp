#include "tests/documents/corpus/layouts/Layout.h"

// Yearly overviews of health insurers: premiums, reduction, sharing of costs.

namespace corpus {
namespace {

struct Premiums {
    Cents basic = 0;    ///< compulsory insurance, a month
    Cents extra = 0;    ///< supplementary insurance, a month
    Cents accident = 0; ///< a year
    Cents reduction = 0;
    Cents franchise = 0;
    Cents retention = 0;

    Cents total() const { return 12 * (basic + extra); }
};

Premiums premiums(Draft& draft, bool reduced) {
    draft.truth.kind = "krankenkasse";
    draft.from({draft.t("Sitterkasse Gesundheit", "Assurance Vigneronne", "Cassa malati Brenno"),
                draft.t("Ostschweizer Krankenversicherung AG", "Mutuelle du Jura SA",
                        "Mutua Verzasca SA")},
               {draft.t("Vivalinth Versicherungen", "Santé Gruyère SA", "Salute Riviera SA"),
                draft.t("Krankenverein Buchserberg", "Caisse Lavaux-Santé", "Cassa Leventina")});
    Premiums made;
    made.basic = draft.odd(210, 490);
    made.extra = draft.odd(12, 120);
    made.reduction = reduced ? draft.odd(300, 2400) : 0;
    made.franchise = 30000;
    made.retention = draft.odd(10, 690);
    return made;
}

TruthRecord& note(Draft& draft, const Premiums& made) {
    return draft.record("householdDeductions", draft.family.one)
        .amount("healthInsurancePremiums", made.total())
        .amount("premiumReduction", made.reduction);
}

/// What the insured bore themselves may be offered as costs of illness.
void acceptCosts(Draft& draft, const std::vector<Cents>& costs) {
    for (const Cents cost : costs) {
        TruthRecord record;
        record.kind = "medicalCost";
        record.year = draft.year;
        draft.truth.accepted.push_back(record.amount("gross", cost));
    }
}

/// The family, a person a line; totals at the foot.
void heldPersons(Draft& draft) {
    Premiums made = premiums(draft, draft.random.chance(60));
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(1, draft.family.one.name());
    p.lineOf(draft.t("Zusammenstellung ", "Relevé ", "Distinta ") + QString::number(draft.year)
                 + draft.t(" Ihrer Beiträge und Kosten", " de vos primes et frais",
                           " dei suoi premi e costi"),
             {12, true});
    p.space(4);
    const std::vector<Column> columns{
        {22}, {92, Align::right}, {122, Align::right}, {156, Align::right}, {190, Align::right}};
    p.row({draft.t("Person", "Personne", "Persona"), "KVG/LAMal", "VVG/LCA",
           draft.t("Verbilligung", "Subside", "Sussidio"),
           draft.t("Eigene Kosten", "Frais propres", "Costi propri")},
          columns, {8.5, true});
    p.rule();
    Cents basic = 0;
    Cents extra = 0;
    Cents reduction = 0;
    Cents costs = 0;
    int place = 0;
    for (const Someone& who : {draft.family.one, draft.family.two, draft.family.child}) {
        const Cents itsBasic = 12 * (place < 2 ? made.basic - place * 1500 : 9500);
        const Cents itsExtra = place < 2 ? 12 * made.extra : 0;
        const Cents itsReduction = made.reduction != 0 && place == 2 ? made.reduction : 0;
        const Cents itsCosts = draft.odd(0, 900);
        acceptCosts(draft, {itsCosts});
        p.row({who.name(), draft.m(itsBasic), itsExtra == 0 ? "" : draft.m(itsExtra),
               itsReduction == 0 ? "" : draft.m(itsReduction), draft.m(itsCosts)},
              columns, {9});
        basic += itsBasic;
        extra += itsExtra;
        reduction += itsReduction;
        costs += itsCosts;
        ++place;
    }
    p.rule();
    p.row({draft.t("Summe", "Somme", "Somma"), draft.m(basic), draft.m(extra),
           reduction == 0 ? "" : draft.m(reduction), draft.m(costs)},
          columns, {9, true});
    acceptCosts(draft, {costs});
    p.space(6);
    p.entry(draft.t("Total KVG und VVG, abzugsfähig", "Total LAMal et LCA, déductible",
                    "Totale LAMal e LCA, deducibile"),
            draft.s(basic + extra), {10, true});
    draft.record("householdDeductions", draft.family.one)
        .amount("healthInsurancePremiums", basic + extra)
        .amount("premiumReduction", reduction);
}

/// No total: the reader has to add; accident insurance on a line of its own.
void heldParts(Draft& draft) {
    Premiums made = premiums(draft, draft.random.chance(50));
    made.accident = draft.odd(60, 240);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(2, draft.family.two.name());
    p.lineOf(draft.t("Bezahlte Versicherungsprämien im Jahr ", "Primes d'assurance payées en ",
                     "Premi assicurativi pagati nel ")
                 + QString::number(draft.year),
             {12, true});
    p.space(5);
    p.entry(draft.t("Krankenpflege-Grundversicherung", "Soins, assurance de base",
                    "Cure, assicurazione di base"),
            draft.f(12 * made.basic), {10}, true);
    p.entry(draft.t("Ergänzende Versicherungen (VVG)", "Assurances complémentaires (LCA)",
                    "Assicurazioni integrative (LCA)"),
            draft.f(12 * made.extra), {10}, true);
    p.entry(draft.t("Private Unfallversicherung", "Assurance-accidents privée",
                    "Assicurazione infortuni privata"),
            draft.f(made.accident), {10}, true);
    if (made.reduction != 0) {
        p.entry(draft.t("abzüglich kantonale Prämienverbilligung",
                        "moins réduction cantonale des primes",
                        "meno riduzione cantonale dei premi"),
                "-" + draft.f(made.reduction), {10}, true);
    }
    p.space(6);
    p.paragraph(draft.t("Rechnungen bezahlen Sie bequem mit LSV. Hotline 0848 100 200.",
                        "Hotline 0848 100 200.", "Numero verde 0848 100 200."),
                {8});
    TruthRecord& record = note(draft, made).amount("accidentInsurancePremiums", made.accident);
    record.personName = draft.family.two.name();
    record.derived = QStringList{"healthInsurancePremiums"};
}

} // namespace

std::vector<Layout> premiumPapers() {
    return {{"premiums", "persons", true, "de,fr,it", false, heldPersons},
            {"premiums", "parts", true, "de,fr,it", false, heldParts}};
}

} // namespace corpus
