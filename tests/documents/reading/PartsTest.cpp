#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace fiscarel {
namespace {

/// A paper on several, with what it tells of each: whom or which, and the amounts.
struct Paper {
    const char* name;
    std::vector<Put> puts;
    std::vector<std::vector<std::string>> wanted; ///< by record: "field=value"
};

/// What a record is about, and its values.
std::vector<std::string> tellings(const ScanResult& result, std::size_t record) {
    std::vector<std::string> told;
    if (const ProposedRecord& one = result.records[record];
        one.kind == ProposedRecord::Kind::child) {
        told.push_back(one.personName);
        told.push_back(one.birthDate ? one.birthDate->toString().substr(0, 10) : "");
    }
    for (const Proposal& proposal : result.proposals) {
        if (proposal.recordIndex == static_cast<int>(record)
            && proposal.field != "childcareProvider" && proposal.field != "company") {
            told.push_back(proposal.field + "=" + proposal.value);
        }
    }
    return told;
}

std::vector<Paper> papers() {
    return {
        {"children as columns, the names below",
         {{60, 60, "Kita Muster"},
          {60, 90, "Bestätigung der Betreuungskosten 2024"},
          {60, 130, "Monat"},
          {250, 130, "Lea"},
          {350, 130, "Noah"},
          {450, 130, "zusammen"},
          {60, 150, "Januar"},
          {290, 150, "400.50", right},
          {390, 150, "300.00", right},
          {500, 150, "700.50", right},
          {60, 165, "Februar"},
          {290, 165, "600.00", right},
          {390, 165, "250.00", right},
          {500, 165, "850.00", right},
          {60, 180, "bezahlt"},
          {290, 180, "1’000.50", right},
          {390, 180, "550.00", right},
          {500, 180, "1’550.50", right},
          {60, 220, "Lea Muster, geboren 3. März 2018; Noah Muster, geboren 4.5.2020."}},
         {{"Lea Muster", "2018-03-03", "childcareCosts=1000.5"},
          {"Noah Muster", "2020-05-04", "childcareCosts=550"}}},
        {"policies as columns, a label over two lines",
         {{60, 60, "Muster Leben AG"},
          {60, 90, "Bescheinigung des Rückkaufswerts am 31.12.2024"},
          {60, 130, "Police Nr."},
          {330, 130, "P 343812", right},
          {460, 130, "P 196313", right},
          {60, 150, "Versicherungssumme"},
          {330, 150, "111 000.00", right},
          {460, 150, "150 000.00", right},
          {60, 168, "Rückkaufswert einschliesslich der"},
          {60, 180, "Überschüsse"},
          {330, 180, "42 615.00", right},
          {460, 180, "14 862.35", right}},
         {{"surrenderValue=42615", "sumInsured=111000"},
          {"surrenderValue=14862.35", "sumInsured=150000"}}},
        {"children in sentences",
         {{60, 60, "Tagesfamilien Muster"},
          {60, 90, "Kosten der Kinderbetreuung 2024"},
          {60, 130, "Lea Muster, geboren 3.3.2018, war an zwei Tagen bei uns. Dafür gingen"},
          {60, 145, "CHF 4’000.00 ein. Für Noah Muster, geboren 4.5.2020, waren es CHF 2’500.00."},
          {60, 160, "Beide Beträge ergeben CHF 6’500.00. Ein Tag kostet neu CHF 110.00."}},
         {{"Lea Muster", "2018-03-03", "childcareCosts=4000"},
          {"Noah Muster", "2020-05-04", "childcareCosts=2500"}}},
        {"children of one family in a table, without their births",
         {{60, 60, "Kita Muster"},
          {60, 90, "Betreuungskosten 2024 Ihrer Kinder"},
          {60, 130, "Lea Muster"},
          {500, 130, "1’000.50", right},
          {60, 145, "Noah Muster"},
          {500, 145, "550.00", right},
          {60, 160, "Total bezahlt"},
          {500, 160, "1’550.50", right}},
         {{"Lea Muster", "", "childcareCosts=1000.5"}, {"Noah Muster", "", "childcareCosts=550"}}},
        {"children in the first column, each with a sum below",
         {{60, 60, "Famiglie diurne Muster"},
          {60, 90, "Distinta delle rette versate 2024"},
          {60, 110, "figlio/a"},
          {200, 110, "servizio"},
          {500, 110, "importo", right},
          {60, 130, "Lea Muster"},
          {200, 130, "doposcuola"},
          {500, 130, "272.00", right},
          {60, 145, "Lea Muster"},
          {200, 145, "colonia estiva"},
          {500, 145, "792.00", right},
          {200, 160, "Totale Lea Muster"},
          {500, 160, "1’064.00", right},
          {60, 180, "Noah Muster"},
          {200, 180, "doposcuola"},
          {500, 180, "1’701.00", right},
          {200, 195, "Totale Noah Muster"},
          {500, 195, "1’701.00", right},
          {60, 220, "Totale famiglia"},
          {500, 220, "2’765.00", right}},
         {{"Lea Muster", "", "childcareCosts=1064"}, {"Noah Muster", "", "childcareCosts=1701"}}},
        {"children in a list with bullets, meals beside",
         {{60, 60, "Tagesfamilien Muster"},
          {60, 90, "Betreuung in der Tagesfamilie 2024"},
          {80, 130, "• Lea Muster: 593 Stunden, Betreuungskosten Fr. 5’277.70"},
          {80, 145, "• Noah Muster: 475 Stunden, Betreuungskosten Fr. 4’227.50"},
          {60, 160, "Zusammen sind das Fr. 9’505.20. Für die Verpflegung haben Sie Fr. 400.00"},
          {60, 175, "(Lea) und Fr. 552.00 (Noah) bezahlt."}},
         {{"Lea Muster", "", "childcareCosts=5277.7"},
          {"Noah Muster", "", "childcareCosts=4227.5"}}},
        {"children told by their first names",
         {{60, 60, "Kita Muster"},
          {60, 90, "Betreuungskosten 2024"},
          {60, 105, "Kinder: Lea und Noah Muster"},
          {60, 130, "Lea"},
          {500, 130, "1’000.50", right},
          {60, 145, "Noah"},
          {500, 145, "550.00", right},
          {60, 160, "Total bezahlt"},
          {500, 160, "1’550.50", right}},
         {{"Lea", "", "childcareCosts=1000.5"}, {"Noah Muster", "", "childcareCosts=550"}}},
        {"one child, and only part of the total is care",
         {{60, 60, "Tagesfamilien Muster"},
          {60, 90, "Jahresrechnung Tagesbetreuung 2024"},
          {60, 120, "Tageskind Lea Muster, geboren 3.3.2018"},
          {60, 150, "Betreuung"},
          {500, 150, "4’000.00", right},
          {60, 165, "Mahlzeiten"},
          {500, 165, "500.00", right},
          {60, 180, "Total"},
          {500, 180, "4’500.00", right},
          {60, 220, "Davon können Sie CHF 4’000.00 in der Steuererklärung geltend machen."}},
         {{"Lea Muster", "2018-03-03", "childcareCosts=4000"}}},
        {"parcels in a table",
         {{60, 60, "Grundbuchamt Muster"},
          {60, 90, "Auszug Schätzungsverzeichnis, Gemeinde Balgach"},
          {60, 130, "Parzelle"},
          {150, 130, "Beschrieb"},
          {320, 130, "Mietwert"},
          {420, 130, "Amtl. Verkehrswert"},
          {60, 150, "1373"},
          {150, 150, "Einfamilienhaus"},
          {360, 150, "30’300.00", right},
          {500, 150, "670’000.00", right},
          {60, 165, "2213"},
          {150, 165, "Wiese"},
          {500, 165, "27’000.00", right},
          {150, 180, "Total"},
          {360, 180, "30’300.00", right},
          {500, 180, "697’000.00", right}},
         {{"taxValue=670000", "imputedRentalValue=30300", "municipality=Balgach",
           "parcelNumber=1373"},
          {"taxValue=27000", "municipality=Balgach", "parcelNumber=2213"}}},
        {"parcels one below the other",
         {{60, 60, "Amt für Schätzungen Muster"},
          {60, 90, "Eröffnung der amtlichen Schätzung"},
          {60, 130, "Grundstück Nr. 437, Gemeinde Waldkirch"},
          {60, 150, "Verkehrswert"},
          {500, 150, "CHF 1’025’000.00", right},
          {60, 165, "Mietwert je Jahr"},
          {500, 165, "CHF 22’560.00", right},
          {60, 200, "Grundstück Nr. S809, Gemeinde Gossau SG"},
          {60, 220, "Verkehrswert"},
          {500, 220, "CHF 37’500.00", right}},
         {{"taxValue=1025000", "imputedRentalValue=22560", "municipality=Waldkirch",
           "parcelNumber=437"},
          {"taxValue=37500", "municipality=Gossau SG", "parcelNumber=S809"}}},
        {"policies in a table",
         {{60, 90, "Steuerwerte Ihrer Lebensversicherungen 2024"},
          {60, 130, "Police"},
          {200, 130, "Vers.-Summe", right},
          {300, 130, "Rückkaufswert", right},
          {400, 130, "Überschuss", right},
          {500, 130, "Steuerwert", right},
          {60, 150, "6.742.474"},
          {200, 150, "96’000.00", right},
          {300, 150, "68’064.15", right},
          {400, 150, "1’429.35", right},
          {500, 150, "69’493.50", right},
          {60, 165, "5.307.591"},
          {200, 165, "74’000.00", right},
          {300, 165, "34’854.15", right},
          {400, 165, "697.10", right},
          {500, 165, "35’551.25", right},
          {60, 180, "Total"},
          {500, 180, "105’044.75", right}},
         {{"surrenderValue=69493.5", "sumInsured=96000"},
          {"surrenderValue=35551.25", "sumInsured=74000"}}},
        {"policies beside each other",
         {{60, 90, "Valori fiscali 2024, assicurazioni sulla vita"},
          {60, 130, "Polizza 980-6985"},
          {315, 130, "Polizza 819-1513"},
          {60, 157, "Tipo"},
          {280, 157, "mista", right},
          {315, 157, "Tipo"},
          {530, 157, "a premio unico", right},
          {60, 174, "Somma assicurata"},
          {280, 174, "CHF 114’000.00", right},
          {315, 174, "Somma assicurata"},
          {530, 174, "CHF 82’000.00", right},
          {60, 191, "Valore di riscatto al 31.12.2024"},
          {315, 191, "Valore di riscatto al 31.12.2024"},
          {280, 203, "CHF 35’226.45", right},
          {530, 203, "CHF 26’486.45", right}},
         {{"surrenderValue=35226.45", "sumInsured=114000"},
          {"surrenderValue=26486.45", "sumInsured=82000"}}},
    };
}

/// A head with the headings of three columns, and the wages below, of which the third adds up the
/// others.
std::vector<Put> wagesInColumns(std::vector<Put> head) {
    const std::vector<Put> wages{{60, 150, "Total brutto"},      {290, 150, "40’000.00", right},
                                 {400, 150, "20’000.00", right}, {520, 150, "60’000.00", right},
                                 {60, 165, "Sozialabzüge"},      {290, 165, "-2’560.00", right},
                                 {400, 165, "-1’280.00", right}, {520, 165, "-3’840.00", right},
                                 {60, 180, "Total netto"},       {290, 180, "37’440.00", right},
                                 {400, 180, "18’720.00", right}, {520, 180, "56’160.00", right}};
    head.insert(head.end(), wages.begin(), wages.end());
    return head;
}

std::vector<Paper> papersOfSeveralSenders() {
    return {
        {"employers as columns beside that of both",
         wagesInColumns({{60, 60, "Muster Gruppe"},
                         {60, 90, "Jahresbestätigung der Bezüge 2024"},
                         {290, 130, "Muster Bau AG", right},
                         {400, 130, "Muster Immobilien AG", right},
                         {520, 130, "Gruppe", right}}),
         {{"grossSalary=40000", "socialContributions=2560", "netSalaryOverride=37440",
           "employer=Muster Bau AG"},
          {"grossSalary=20000", "socialContributions=1280", "netSalaryOverride=18720",
           "employer=Muster Immobilien AG"}}},
        {"halves of a year as columns are one wage",
         wagesInColumns({{60, 60, "Muster Bau AG"},
                         {60, 90, "Lohnbestätigung 2024"},
                         {290, 130, "1. Halbjahr", right},
                         {400, 130, "2. Halbjahr", right},
                         {520, 130, "Total", right}}),
         {{"grossSalary=60000", "socialContributions=3840", "netSalaryOverride=56160"}}},
        {"a letter of a joint collection",
         {{60, 60, "Muster hilft gemeinsam"},
          {60, 90, "Ihre Spenden 2024 – Bestätigung"},
          {60, 130, "Stiftung Muster"},
          {500, 130, "CHF 800.00", right},
          {60, 145, "Verein Alp und Kind"},
          {500, 145, "CHF 700.00", right},
          {60, 160, "Brunnen für alle"},
          {500, 160, "CHF 500.00", right},
          {60, 175, "Spenden zusammen"},
          {500, 175, "CHF 2’000.00", right}},
         {{"amount=800", "recipient=Stiftung Muster"},
          {"amount=700", "recipient=Verein Alp und Kind"},
          {"amount=500", "recipient=Brunnen für alle"}}},
        {"spouses of two names, told by their insurance numbers",
         {{60, 60, "Fondation Muster 3e pilier"},
          {60, 90, "Confirmation des cotisations 2024, pilier 3a"},
          {60, 130, "Laurence Perret"},
          {60, 145, "N° AVS 756.1234.5678.97"},
          {60, 160, "Versements de l'année"},
          {270, 160, "2’656.00", right},
          {60, 175, "Avoir au 31.12.2024"},
          {270, 175, "28’424.75", right},
          {320, 130, "Bastien Favre"},
          {320, 145, "N° AVS 756.2345.6789.04"},
          {320, 160, "Versements de l'année"},
          {540, 160, "6’215.00", right},
          {320, 175, "Avoir au 31.12.2024"},
          {540, 175, "40’898.10", right}},
         {{"pillar3a=2656"}, {"pillar3a=6215"}}},
        {"a bill that was corrected",
         {{60, 60, "Zahnarztpraxis Muster AG"},
          {60, 90, "Ersatzrechnung für die Behandlung von Lea Muster"},
          {60, 130, "Rechnung"},
          {500, 130, "1’049.60", right},
          {60, 145, "Gutschrift Position 4.5400"},
          {500, 145, "29.70-", right},
          {60, 160, "Richtiger Betrag"},
          {500, 160, "1’019.90", right}},
         {{"gross=1019.9", "provider=Zahnarztpraxis Muster AG"}}},
        {"policies as columns",
         {{60, 60, "Muster Vita SA"},
          {60, 90, "Valori fiscali al 31.12.2024: assicurazioni sulla vita 3b"},
          {60, 130, "Polizza"},
          {390, 130, "V-444349", right},
          {500, 130, "V-412526", right},
          {60, 145, "Somma assicurata"},
          {390, 145, "140’000.00", right},
          {500, 145, "118’000.00", right},
          {60, 160, "Valore di riscatto senza eccedenze"},
          {390, 160, "67’200.00", right},
          {500, 160, "40’120.00", right},
          {60, 175, "Valore di riscatto imponibile"},
          {390, 175, "68’611.20", right},
          {500, 175, "42’848.15", right},
          {60, 190, "Premio pagato nel 2024"},
          {390, 190, "3’640.00", right},
          {500, 190, "4’012.00", right},
          {60, 205, "Premi complessivi"},
          {500, 205, "7’652.00", right}},
         {{"lifeInsurancePremiums=7652"},
          {"surrenderValue=68611.2", "sumInsured=140000"},
          {"surrenderValue=42848.15", "sumInsured=118000"}}},
    };
}

TEST(Parts, eachChildParcelAndPolicyHasItsOwnAmounts) {
    std::vector<Paper> all = papers();
    std::ranges::move(papersOfSeveralSenders(), std::back_inserter(all));
    for (const Paper& paper : all) {
        const ScanResult result = proposedFrom(paper.puts);
        std::vector<std::vector<std::string>> told;
        for (std::size_t i = 0; i < result.records.size(); ++i) {
            told.push_back(tellings(result, i));
        }
        EXPECT_EQ(told, paper.wanted) << paper.name;
    }
}

TEST(Parts, aTotalWithMealsIsNotSure) {
    const ScanResult result = proposedFrom({{60, 60, "Kita Muster"},
                                            {60, 90, "Betreuungskosten 2024"},
                                            {60, 150, "Betreuung"},
                                            {500, 150, "4’000.00", right},
                                            {60, 165, "Mittagessen"},
                                            {500, 165, "500.00", right},
                                            {60, 180, "Total Betreuungskosten"},
                                            {500, 180, "4’500.00", right}});
    const Proposal* const costs = proposalOf(result, "childcareCosts");
    ASSERT_NE(costs, nullptr);
    EXPECT_EQ(costs->confidence, Proposal::Confidence::low);
}

} // namespace
} // namespace fiscarel
