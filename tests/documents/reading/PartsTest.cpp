#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

/// Words that begin at `x`, or end there.
struct Put {
    double x = 0;
    double y = 0;
    const char* words = "";
    bool isRight = false;
};

/// A paper on several, with what it tells of each: whom or which, and the amounts.
struct Paper {
    const char* name;
    std::vector<Put> puts;
    std::vector<std::vector<std::string>> wanted; ///< by record: "field=value"
};

constexpr bool right = true;

ScanResult proposedFor(const Paper& paper) {
    DrawnPage page;
    for (const Put& put : paper.puts) {
        put.isRight ? page.right(put.x, put.y, put.words) : page.text(put.x, put.y, put.words);
    }
    return page.proposed();
}

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
            && proposal.field != "childcareProvider") {
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
    };
}

TEST(Parts, eachChildAndParcelHasItsOwnAmounts) {
    for (const Paper& paper : papers()) {
        const ScanResult result = proposedFor(paper);
        std::vector<std::vector<std::string>> told;
        for (std::size_t i = 0; i < result.records.size(); ++i) {
            told.push_back(tellings(result, i));
        }
        EXPECT_EQ(told, paper.wanted) << paper.name;
    }
}

TEST(Parts, aTotalWithMealsIsNotSure) {
    const ScanResult result = proposedFor({"",
                                           {{60, 60, "Kita Muster"},
                                            {60, 90, "Betreuungskosten 2024"},
                                            {60, 150, "Betreuung"},
                                            {500, 150, "4’000.00", right},
                                            {60, 165, "Mittagessen"},
                                            {500, 165, "500.00", right},
                                            {60, 180, "Total Betreuungskosten"},
                                            {500, 180, "4’500.00", right}},
                                           {}});
    const Proposal* const costs = proposalOf(result, "childcareCosts");
    ASSERT_NE(costs, nullptr);
    EXPECT_EQ(costs->confidence, Proposal::Confidence::low);
}

} // namespace
} // namespace fiscarel
