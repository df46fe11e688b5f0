#include "Fiscarel_SG/documents/kinds/BillWords.h"

namespace fiscarel {

using Kind = StoredDocument::Kind;
using enum Concept;

const Wanted& billTotals() {
    static const Wanted wanted{
        {"Rechnungsbetrag",
         "Rechnungstotal",
         "Gesamtbetrag",
         "Total Rechnung",
         "Zu bezahlen",
         "Zahlbetrag",
         "Total inkl*",
         "Gesamttotal",
         "Total zu bezahlen",
         "Total Spenden",
         "Total der Spenden",
         "Total der Zuwendungen",
         "Total Zuwendungen",
         "Spendentotal",
         "Spendenbetrag",
         "Von den Eltern bezahlt*",
         "Elternbeitrag bezahlt",
         "Bezahlter Elternbeitrag",
         "Total Elternbeitrag",
         "Nettokosten*",
         "Kosten der Weiterbildung",
         "Weiterbildungskosten",
         "Lehrgangskosten",
         "Lehrgangsgebühr*",
         "Studiengebühr*",
         "Semestergebühr*",
         "Teilnahmegebühr",
         "Bezahlter Betrag",
         "Rechnungssumme",
         "Offener Betrag",
         "Zahlungsbetrag",
         "Spendensumme",
         "Gespendeter Betrag",
         "Elternanteil",
         "Netto zu Lasten der Eltern",
         "Bezahlte Kurskosten",
         "Total Betreuungskosten",
         "Total der Betreuungskosten",
         "Total Elternbeiträge",
         "Total Betreuung",
         "Bezahlte Betreuungskosten",
         "Betreuungskosten total",
         "Jahrestotal",
         "Kursgeld total",
         "Total Kursgeld",
         "Total Kurskosten",
         "Montant de la facture",
         "Montant à payer",
         "Total à payer",
         "Total TTC",
         "Total facture",
         "Montant total",
         "Total des dons",
         "Total général",
         "Total des frais de garde",
         "Importo della fattura",
         "Importo fattura",
         "Totale da pagare",
         "Importo totale",
         "Totale donazioni",
         "Totale delle donazioni",
         "Totale fattura",
         "Totale generale",
         "Totale spese di custodia",
         "Totalbetrag",
         "Endbetrag"},
        {"exkl*", "ohne MWST", "HT", "IVA esclusa", "Zwischentotal", "Vorjahr", "Mahngebühr"},
        true,
        {{payable, total}, {amount, payable}, {invoice, total}, {invoice, amount}},
        {other, refunded, publicShare}};
    return wanted;
}
const Wanted& deductibleParts() {
    static const Wanted wanted{
        {"Selbst getragene*",
         "Selbst bezahlte*",
         "Selbst finanziert*",
         "Eigenanteil",
         "Eigenleistung",
         "von Ihnen getragen*",
         "von Ihnen bezahlte Kosten",
         "Restkosten",
         "frais à votre charge",
         "part à votre charge",
         "costi a suo carico",
         "quota a suo carico",
         "rimasto a suo carico",
         "rimasta a suo carico",
         "rimasti a suo carico",
         "rimaste a suo carico",
         "resté à votre charge",
         "restée à votre charge",
         "restés à votre charge",
         "restées à votre charge",
         "restant à votre charge",
         "Kosten zu Ihren Lasten"},
        {"nicht", "non", "pro Tag", "Vorjahr*", "begrenzt", "limité*", "limitat*"},
        true,
        {{deductible, childcare}, {deductible, amount}, {deductible, total}, {deductible}},
        {limit}};
    return wanted;
}
const Wanted& ownShares() {
    static const Wanted wanted{{"Zu Lasten Patient*",
                                "Anteil Patient*",
                                "Patientenanteil",
                                "Ihr Anteil",
                                "Eigenanteil",
                                "Ihr Kostenanteil",
                                "Von Ihnen zu bezahlen",
                                "Selbst bezahlt*",
                                "Selbst zu bezahlen",
                                "bar bezahlt*",
                                "selber bezahlt*",
                                "Selbst getragen*",
                                "à charge du patient",
                                "à la charge du patient",
                                "à charge de la patiente",
                                "Part du patient",
                                "À votre charge",
                                "Votre part",
                                "payé comptant",
                                "payé par le client",
                                "A carico del paziente",
                                "A carico della paziente",
                                "Pflegebeteiligung*",
                                "Patientenbeteiligung*",
                                "Beteiligung Patient*",
                                "Pflegekosten zu Ihren Lasten",
                                "Pflegekosten zu Lasten*",
                                "Selbstbehalt Pflege",
                                "Selbstbehalt Bewohner*",
                                "Anteil Bewohner*",
                                "participation du résident",
                                "participation aux soins",
                                "partecipazione alle cure",
                                "A suo carico",
                                "Quota del paziente",
                                "Sua quota",
                                "pagato in contanti"},
                               {"exkl*", "HT"},
                               true,
                               {},
                               {Concept::other}};
    return wanted;
}
const Wanted& paidShares() {
    static const Wanted wanted{{"Von Ihnen bezahlt*", "Durch Sie bezahlt*", "Ihre Zahlung",
                                "Payé par vous", "Payé par le patient", "Pagato da lei",
                                "Pagato dal paziente", "Pagato dal cliente", "Non rimborsato",
                                "Non remboursé", "Nicht vergütet", "Paid by you", "Your share"},
                               {"exkl*", "HT"},
                               true,
                               {},
                               {Concept::other}};
    return wanted;
}
const Wanted& ownBillTotals(Kind kind, bool areFeesGiven) {
    static const Wanted medicalTotals{
        {},
        {"exkl*", "HT"},
        true,
        {{medical, total}, {payable}, {amount, total}, {total}, {invoice}},
        {other, refunded}};
    static const Wanted donations{{},
                                  {"exkl*", "HT", "au moins", "almeno", "mindestens"},
                                  true,
                                  {{deductible, donation},
                                   {deductible, contribution},
                                   {deductible, amount},
                                   {deductible, total},
                                   {donation, total},
                                   {donation, amount},
                                   {donation, paid},
                                   {donation, yearly},
                                   {contribution, paid},
                                   {amount, paid},
                                   {total, paid},
                                   {donation},
                                   {amount, total}},
                                  {other, possible, tax, membership, limit, notDeductible},
                                  {tax, membership, notDeductible}};
    static const Wanted givenToParties{
        {}, donations.without, true, donations.meanings, {other, limit, tax}, {tax}};
    static const Wanted daycare{{},
                                {"exkl*", "HT", "Depot", "Kaution", "caution", "cauzione",
                                 "offen per*", "offen am*", "ausstehend per*", "ouvert au",
                                 "impayé*", "scoperto al"},
                                true,
                                {{parents, net},
                                 {parents, paid},
                                 {parents, total},
                                 {childcare, net},
                                 {amount, net},
                                 {fee, net},
                                 {childcare, paid},
                                 {amount, paid},
                                 {fee, paid},
                                 {contribution, paid},
                                 {parents, contribution},
                                 {parents, payable},
                                 {total, paid},
                                 {paid, yearly},
                                 {payable},
                                 {childcare, total},
                                 {amount, childcare},
                                 {childcare, yearly},
                                 {childcare, fee},
                                 {paid},
                                 {total},
                                 {fee, total},
                                 {amount, total},
                                 {childcare},
                                 {fee}},
                                {other, refunded, publicShare, limit}};
    static const Wanted courses{{},
                                {"exkl*", "HT", "offen per*", "offen am*", "ausstehend per*",
                                 "ouvert au", "impayé*", "scoperto al"},
                                true,
                                {{fee, net},
                                 {amount, net},
                                 {course, paid},
                                 {fee, paid},
                                 {amount, paid},
                                 {total, paid},
                                 {paid, yearly},
                                 {paid},
                                 {payable},
                                 {course, fee, total},
                                 {course, total},
                                 {fee, total},
                                 {amount, total},
                                 {total},
                                 {course, fee},
                                 {fee}},
                                {other, refunded, publicShare, limit}};
    static const Wanted repairs{
        {}, {"exkl*", "HT"}, true, {{payable}, {amount, total}}, {other, refunded}};
    switch (kind) {
    case Kind::arztrechnung:
        return medicalTotals;
    case Kind::spende:
        return areFeesGiven ? givenToParties : donations;
    case Kind::kinderbetreuung:
        return daycare;
    case Kind::weiterbildung:
        return courses;
    default:
        return repairs;
    }
}
const Wanted& plainBillTotals() {
    static const Wanted wanted{{"la somme de",
                                "la somma di",
                                "die Summe von",
                                "den Betrag von",
                                "Total*",
                                "Totale",
                                "Gesamt",
                                "Summe",
                                "Betrag",
                                "Montant",
                                "Importo",
                                "Spende",
                                "Spende von",
                                "Zuwendung",
                                "Don de",
                                "Don",
                                "Donazione",
                                "Kursgeld",
                                "Kurskosten",
                                "Kursgebühr",
                                "Frais de cours",
                                "Tassa del corso",
                                "Betreuungskosten",
                                "Frais de garde",
                                "Spese di custodia",
                                "CHF",
                                "Fr."},
                               {"exkl*", "HT", "IVA esclusa", "Zwischentotal", "Sous-total",
                                "Subtotale", "Vorjahr", "Taxpunkte", "Stunden", "Tage"},
                               false,
                               {},
                               {other}};
    return wanted;
}
const Wanted& billTaxes() {
    static const Wanted wanted{{"MWST*", "Mehrwertsteuer", "TVA", "IVA"},
                               {"inkl*", "exkl*", "Nr", "CHE*", "ohne", "incl*", "Total", "Totale",
                                "befreit", "esclusa", "inclusa"}};
    return wanted;
}
const Wanted& billNets() {
    static const Wanted wanted{{"Nettobetrag", "Total exkl. MWST", "Total ohne MWST", "Netto",
                                "Zwischentotal", "Total HT", "Montant net", "Sous-total",
                                "Totale IVA esclusa", "Importo netto", "Subtotale"},
                               {}};
    return wanted;
}

} // namespace fiscarel
