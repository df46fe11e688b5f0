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

/// Products with months, a total, the reduction below.
void trainTable(Draft& draft) {
    const Premiums made = premiums(draft, draft.random.chance(50));
    note(draft, made);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(0, draft.family.one.name());
    p.lineOf(draft.t("Prämienübersicht für die Steuererklärung ",
                     "Récapitulatif des primes pour la déclaration d'impôt ",
                     "Riepilogo dei premi per la dichiarazione d'imposta ")
                 + QString::number(draft.year),
             {13, true});
    p.lineOf(draft.t("Versicherten-Nr. ", "No d'assuré ", "N. assicurato ") + "80756"
                 + draft.random.digits(15),
             {8.5});
    p.space(4);
    const std::vector<Column> columns{
        {22}, {120, Align::right}, {150, Align::right}, {190, Align::right}};
    p.row({draft.t("Versicherung", "Assurance", "Assicurazione"),
           draft.t("Monatlich", "Par mois", "Al mese"), draft.t("Monate", "Mois", "Mesi"),
           draft.t("Prämien CHF", "Primes CHF", "Premi CHF")},
          columns, {9, true});
    p.rule();
    p.row(
        {draft.t("Grundversicherung KVG|Obligatorische Krankenversicherung (OKP)|Krankenpflege KVG",
                 "Assurance de base LAMal", "Assicurazione di base LAMal"),
         draft.m(made.basic), "12", draft.m(12 * made.basic)},
        columns);
    p.row({draft.t("Zusatzversicherungen VVG|Spitalzusatz VVG|Zusatz ambulant VVG",
                   "Assurances complémentaires LCA", "Assicurazioni complementari LCA"),
           draft.m(made.extra), "12", draft.m(12 * made.extra)},
          columns);
    p.rule();
    p.row({draft.t("Prämien Total|Total Prämien|Prämien KVG und VVG total|Summe Prämien",
                   "Total des primes", "Totale premi"),
           "", "", draft.m(made.total())},
          columns, {9.5, true});
    if (made.reduction != 0) {
        p.row({draft.t("Individuelle Prämienverbilligung (IPV)|Prämienverbilligung|Kantonaler "
                       "Beitrag IPV",
                       "Réduction individuelle des primes", "Riduzione individuale dei premi"),
               "", "", draft.m(made.reduction)},
              columns);
    }
    p.space(8);
    p.lineOf(draft.t("Kostenbeteiligung", "Participation aux coûts", "Partecipazione ai costi"),
             {9.5, true});
    p.row({draft.t("Franchise", "Franchise", "Franchigia"), "", "", draft.m(made.franchise)},
          columns);
    p.row({draft.t("Selbstbehalt 10%", "Quote-part 10%", "Aliquota 10%"), "", "",
           draft.m(made.retention)},
          columns);
    acceptCosts(draft, {made.franchise, made.retention, made.franchise + made.retention});
}

/// Boxes with a label above and the value below.
void trainBoxes(Draft& draft) {
    const Premiums made = premiums(draft, false);
    note(draft, made);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(3, draft.family.one.name());
    p.lineOf(draft.t("Steuerausweis ", "Attestation fiscale ", "Attestato fiscale ")
                 + QString::number(draft.year),
             {15, true});
    p.space(5);
    const auto line = [&](const QString& label, const QString& value, bool strong) {
        p.fill(p.left, p.y, 168, 8.5, strong ? QColor(224, 232, 240) : QColor(246, 246, 246));
        p.put(p.left + 3, p.y + 5.8, label, {9.5, strong});
        p.put(p.right - 3, p.y + 5.8, value, {9.5, strong, Align::right});
        p.y += 9.2;
    };
    line(draft.t("Obligatorische Krankenpflegeversicherung (KVG)",
                 "Assurance obligatoire des soins (LAMal)", "Assicurazione obbligatoria (LAMal)"),
         draft.f(12 * made.basic), false);
    line(draft.t("Zusatzversicherung nach VVG", "Assurance complémentaire LCA",
                 "Assicurazione complementare LCA"),
         draft.f(12 * made.extra), false);
    line(draft.t("Total bezahlte Prämien|Jahresprämie total|Prämientotal", "Total primes payées",
                 "Totale premi pagati"),
         draft.f(made.total()), true);
    line(draft.t("Nicht erstattete Kosten (Franchise, Selbstbehalt)", "Frais non remboursés",
                 "Costi non rimborsati"),
         draft.f(made.franchise + made.retention), false);
    acceptCosts(draft, {made.franchise + made.retention});
    p.space(4);
    p.paragraph(draft.t("Ihre Daten: AHV-Nr. ", "Vos données: no AVS ", "I suoi dati: n. AVS ")
                    + draft.family.one.number
                    + draft.t(", Franchise 2500, Modell Hausarzt.",
                              ", franchise 2500, modèle médecin de famille.",
                              ", franchigia 2500, modello medico di famiglia."),
                {8.5});
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
    return {{"premiums", "table", false, "de,fr,it", false, trainTable},
            {"premiums", "bands", false, "de,fr,it", false, trainBoxes},
            {"premiums", "persons", true, "de,fr,it", false, heldPersons},
            {"premiums", "parts", true, "de,fr,it", false, heldParts}};
}

} // namespace corpus
