#include "Fiscarel_SG/documents/kinds/PremiumWords.h"

#include "Fiscarel_SG/documents/text/Digits.h"

namespace fiscarel {

using enum Concept;

const Wanted& grossPremiums() {
    static const Wanted wanted{
        {"Total Prämien brutto", "Bruttoprämie*", "Prämien brutto", "Total Prämien",
         "Total der Prämien", "Prämien total", "Total primes", "Total des primes", "Totale premi",
         "Totale dei premi", "Bezahlte Prämien", "Primes payées", "Premi pagati", "Prämientotal",
         "Jahresprämie total", "Jahresprämie", "Prime annuelle", "Premio annuo"},
        {"netto", "nettes", "netti", "nach", "Verbilligung*", "net", "zu Ihren Lasten",
         "monatlich*", "Monatsprämie*"},
        true,
        {{premium, total, gross},
         {premium, gross},
         {premium, total},
         {premium, paid},
         {premium, invoice},
         {premium, yearly}},
        {net, reduction, costSharing, other, benefit, refunded, basicInsurance, extraInsurance}};
    return wanted;
}
const Wanted& plainTotals() {
    static const Wanted wanted{{"Total", "Totale", "Gesamttotal", "Total général", "Summe"},
                               {"netto", "nettes", "netti", "nach", "net", "*rechnungen",
                                "Rechnungen", "factures", "fatture"},
                               false,
                               {{total, amount}, {total}},
                               {net, reduction, costSharing, other, benefit, refunded}};
    return wanted;
}
const Wanted& netPremiums() {
    static const Wanted wanted{{"Total Prämien netto", "Nettoprämie*", "Prämien netto",
                                "Prämien nach Verbilligung", "Netto zu Ihren Lasten", "Total netto",
                                "Primes nettes", "Total net", "Premi netti", "Totale netto",
                                "Netto"},
                               {},
                               true,
                               {{premium, net}},
                               {other}};
    return wanted;
}
const Wanted& reductions() {
    static const Wanted wanted{
        {"Prämienverbilligung*", "Individuelle Prämienverbilligung", "IPV", "Réduction de prime*",
         "Réduction des primes", "Riduzione dei premi", "Riduzione individuale*",
         "Réduction individuelle*", "Riduzione del premio", "Subside*", "Verbilligung*"},
        {"nach", "après", "dopo", "netto", "net", "netti", "nette", "nettes", "vor", "avant",
         "prima della", "prima delle", "prima di", "before", "ohne", "sans", "senza"},
        true,
        {{reduction, total}, {reduction, premium}, {reduction}},
        {other, costSharing, benefit}};
    return wanted;
}
const std::vector<Wanted>& singlePremiums() {
    static const std::vector<Concept> notMeant{net,     reduction, costSharing, other,
                                               benefit, total,     refunded};
    static const Labels without{
        "Selbstbehalt",   "quote-part",       "nach Verbilligung*", "nach Prämienverbilligung*",
        "nach IPV",       "nach Abzug",       "nach Abzügen",       "après réduction*",
        "après subside*", "après déduction*", "dopo riduzion*",     "dopo la riduzione",
        "dopo sussidi*",  "dopo deduzion*"};
    static const std::vector<Wanted> rows{
        {{}, without, false, {{basicInsurance}}, notMeant},
        {{}, without, false, {{extraInsurance}}, notMeant},
        {{},
         without,
         false,
         {{premium}},
         {net, reduction, costSharing, other, benefit, total, refunded, accident, basicInsurance,
          extraInsurance}},
    };
    return rows;
}
namespace {

const Labels& franchises() {
    static const Labels words{"Franchise", "franchigia"};
    return words;
}

} // namespace

bool tellsShare(const FoundAmount& premium) {
    const Row& row = premium.rowOf();
    const auto place = findLabel(row, franchises(), premium.page->isRecognised);
    if (!place || premium.isBelow) {
        return place.has_value();
    }
    std::size_t next = place->last + 1;
    while (next < row.words.size() && isFrancs(row.words[next].text)) {
        ++next;
    }
    if (next >= row.words.size() || next == premium.amount.first
        || !hasDigit(row.words[next].text)) {
        return true;
    }
    const auto height = parseAmount(row.words[next].text); // used up, where it is the amount
    return height && height->value == premium.value();
}

bool isNoPremium(const Row& row, bool isRecognised) {
    static const std::vector<Concept> others{net,     reduction, costSharing, other,   benefit,
                                             total,   refunded,  accident,    invoice, medical,
                                             balance, interest,  paid};
    return namesAny(row, others, isRecognised)
           || findLabel(row, singlePremiums().front().without, isRecognised)
           || findLabel(row, franchises(), isRecognised);
}

const Wanted& costSharings() {
    static const Wanted wanted{
        {"Total Kostenbeteiligung*", "Nicht erstattete Kosten", "Nicht vergütete Kosten",
         "Frais non remboursés", "Costi non rimborsati", "Spese non rimborsate",
         "Total Kosten zu Ihren Lasten", "Ihre Kostenbeteiligung", "Kostenbeteiligung*",
         "zu Ihren Lasten", "Selbst bezahlt*", "Eigenanteil", "Participation aux coûts",
         "Participation aux frais", "à votre charge", "Partecipazione ai costi", "a suo carico"},
        {"Prämie*", "Primes", "Premi", "Netto*"},
        true,
        {{costSharing, total}, {costSharing}},
        {premium, other}};
    return wanted;
}

} // namespace fiscarel
