#include "tests/support/RuleChecker.h"
#include "tests/support/RuleCopy.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace taxcore {
namespace {

using testing::checkRuleFiles;
using testing::Complaints;
using testing::RuleCopy;

std::string lines(const Complaints& complaints) {
    std::string text;
    for (const std::string& complaint : complaints) {
        text += complaint + "\n";
    }
    return text;
}

TEST(RuleFiles, areInOrder) { EXPECT_EQ(lines(checkRuleFiles(FISCAREL_RULES_DIR)), ""); }

/// One fault put into a copy of the files, and what has to be said about it.
struct Fault {
    const char* file;
    const char* find;
    const char* put;
    const char* complaint;
};

constexpr const char* params = "sg-params-2025.json";
constexpr const char* federal = "dbst-2026.json";
constexpr const char* tariff = "sg-tarif-2025.json";
constexpr const char* municipalities = "sg-steuerfuesse-2026.json";
constexpr const char* liechtenstein = "li-2026.json";

const std::vector<Fault> faults{
    // Keys and years
    {params, R"("sozialabzugProKind")", R"("sozialabzugProKid")",
     "vermoegen.sozialabzugProKid: unknown key"},
    {params, R"("sozialabzugProKind")", R"("sozialabzugProKid")",
     "vermoegen.sozialabzugProKind: missing key"},
    {params, R"("diaetPauschale")", R"("bonus": 1, "diaetPauschale")", "bonus: unknown key"},
    {params, R"("veloMax": 700)", R"("veloMax": 700, "veloMax": 800)",
     "berufskosten.veloMax: stands twice"},
    {params, R"("veloMax": 700)", R"("veloMax": "700")", "«berufskosten.veloMax» muss eine Zahl"},
    {params, R"("saeule3a": {)", R"("saeule3a": 7258, "frueher": {)", "saeule3a: not an object"},
    {federal, R"("proHundert": 0.77)", R"("proHundert": 0.77, "bis": 1)",
     "tarif.alleinstehend[0].bis: unknown key"},
    {federal, R"("kapitalleistungAnteil")", R"("vermoegen": {}, "kapitalleistungAnteil")",
     "vermoegen: unknown key"},
    {federal, R"("year": 2026)", R"("year": 2025)", "year: not the year of the file name"},
    {municipalities, R"("evang": 28)", R"("evang": 28, "chrkath": 24)",
     "municipalities[0].parishes[0].chrkath: unknown key"},
    {municipalities, R"("year": 2026)", R"("year": 2026, "vorlaeufig": "ja")",
     "vorlaeufig: neither true nor false"},
    // Citations
    {params, R"("sources": [)", R"("sources": [" ",)", "sources: empty citation"},
    {federal, R"("sources": [)", R"("sources": [], "frueher": [)", "sources: no citation"},
    {tariff, R"("source": ")", R"("source": "", "frueher": ")", "source: empty citation"},
    // Single values and pairs of them
    {params, R"("nebenerwerbSatz": 0.2)", R"("nebenerwerbSatz": 20)",
     "berufskosten.nebenerwerbSatz: 20 is out of range"},
    {params, R"("diaetPauschale": 2500)", R"("diaetPauschale": -2500)",
     "diaetPauschale: -2500 is out of range"},
    {params, R"("arbeitstageMax": 220)", R"("arbeitstageMax": 22)",
     "berufskosten.arbeitstageMax: 22 is out of range"},
    {params, R"("nebenerwerbMin": 800)", R"("nebenerwerbMin": 8000)",
     "berufskosten.nebenerwerbMin: more than nebenerwerbMax allows"},
    {params, R"("wochenaufenthaltZimmerMinProMonat": 500)",
     R"("wochenaufenthaltZimmerMinProMonat": 5000)",
     "berufskosten.wochenaufenthaltZimmerMinProMonat: more than"},
    {federal, R"("min": 8600)", R"("min": 86000)", "zweiverdiener.min: more than max allows"},
    {federal, R"("art": "satz")", R"("art": "betrag")", "zweiverdiener: amount and rate"},
    {params, R"("verpflegungVerbilligtMax": 1600)", R"("verpflegungVerbilligtMax": 16000)",
     "berufskosten.verpflegungVerbilligtMax: more than verpflegungMax allows"},
    {params, R"("schichtMax": 3200)", R"("schichtMax": 32000)",
     "berufskosten.schichtMax: more than schichtProTag allows"},
    {params, R"("gemeinsam": 6800)", R"("gemeinsam": 680)", "versicherungen: less for a couple"},
    {params, R"("parteispendenGemeinsam": 21100)", R"("parteispendenGemeinsam": 2110)",
     "parteispendenGemeinsam: less for a couple"},
    {params, R"("satzGemeinsam": 0.02)", R"("satzGemeinsam": 0.2)",
     "kapitalleistung.satzGemeinsam: more than for one"},
    {params, R"("mitPensionskasse": 7258)", R"("mitPensionskasse": 7056)",
     "saeule3a: not as in the federal file"},
    {params, R"("einfacheSteuerPromille": 1.7)", R"("einfacheSteuerPromille": 1.6)",
     "vermoegen.einfacheSteuerPromille: not that of the municipalities' file"},
    // The federal tariff
    {federal, R"("ab": 58000)", R"("ab": 38000)", "tarif.alleinstehend[3].ab: does not rise"},
    {federal, R"("ab": 58000)", R"("ab": 58050)", "tarif.alleinstehend[3].ab: not full 100"},
    {federal, R"("steuer": 612)", R"("steuer": 212)",
     "tarif.alleinstehend[3].steuer: does not rise"},
    {federal, R"("steuer": 612)", R"("steuer": 612.05)",
     "tarif.alleinstehend[3].steuer: does not continue"},
    {federal, R"("steuer": 1152.5)", R"("steuer": 1152.45)",
     "tarif.alleinstehend[4].steuer: does not continue"},
    {federal, R"("proHundert": 2.97)", R"("proHundert": 2.57)",
     "tarif.alleinstehend[3].proHundert: does not rise"},
    {federal, R"("steuer": 0, "proHundert": 1 })", R"("steuer": 25, "proHundert": 1 })",
     "tarif.verheiratet[0]: starts with a tax"},
    {federal, R"("verheiratetFlatAb": 941400)", R"("verheiratetFlatAb": 941300)",
     "tarif.verheiratetFlatAb: the flat rate does not join"},
    {federal, R"("flatSatz": 0.115)", R"("flatSatz": 0.116)",
     "tarif.alleinstehendFlatAb: the flat rate does not join"},
    {federal, R"("verheiratet": [)", R"("verheiratet": [], "frueher": [)",
     "tarif.verheiratet: no brackets"},
    // The cantonal tariff
    {tariff, "\"joint\": [\n    0,", "\"joint\": [\n    5,", "joint[0]: more than for one"},
    {tariff, " 1002, 1008,", " 1008, 1002,", "single[182]: less than the row before"},
    {tariff, " 1002,", " 1003,", "single[182]: the tariff is not progressive"},
    {tariff, "0, 4, 8, 12, 16,", "0, 4, 8, 16,", "single: 2526 rows instead of 2527"},
    {tariff, "16.07,", "16.70,", "joint[121]: not at the rate of half the income"},
    {tariff, R"("step": 100)", R"("step": 0)", "step: not positive"},
    {tariff, R"("singleFlatFrom": 264200)", R"("singleFlatFrom": 264150)",
     "singleFlatFrom: between two rows"},
    {tariff, R"("singleFlatFrom": 264200)", R"("singleFlatFrom": 264100)",
     "jointFlatFrom: not twice that for one"},
    {tariff, R"("to": 528400)", R"("to": 529000)", "to: not where the rows end"},
    {tariff, R"("flatRateAbove": 0.085)", R"("flatRateAbove": 0.0849)",
     "jointFlatFrom: the flat rate does not join"},
    {tariff, R"("flatRateAbove": 0.085)", R"("flatRateAbove": 0.0851)",
     "singleFlatFrom: the flat rate does not join"},
    // Municipalities
    {municipalities, R"("municipalities": [)",
     R"("municipalities": [{"name": "Aach", "steuerfuss": 100, "parishes": []},)",
     "municipalities: 76 of them"},
    {municipalities, R"("municipalities": [)",
     R"("municipalities": [{"name": "Aach", "steuerfuss": 100, "parishes": []},)",
     "Aach: no parish"},
    {municipalities, R"("name": "Andwil")", R"("name": "Amden")",
     "municipalities: two of one name"},
    {municipalities, R"("name": "Andwil")", R"("name": "Zandwil")", "municipalities: not sorted"},
    {municipalities, R"("name": "Andwil")", R"("name": "Andwyl")",
     "municipalities: not those of other years"},
    {municipalities, R"("name": "Sevelen")", R"("name": "Sevelin")", "municipalities: no Sevelen"},
    {municipalities, R"("name": "Andwil")", R"("name": "Andwil ")",
     "municipalities: blank in a name"},
    {municipalities, R"("name": "St.Gallen Tablat")", R"("name": "St.Gallen Centrum")",
     "St.Gallen: parish «St.Gallen Centrum»"},
    {municipalities, R"("grundsteuerPromille": 0.8)", R"("grundsteuerPromille": 8)",
     "municipalities[0].grundsteuerPromille: 8 is out of range"},
    {municipalities, R"("grundsteuerPromille": 0.8)", R"("grundsteuerPromille": 0.08)",
     "Altstätten: property tax below"},
    {municipalities, R"("steuerfuss": 107)", R"("steuerfuss": 1.07)",
     "municipalities[0].steuerfuss: 1.07 is out of range"},
    {municipalities, R"("kath": 19)", R"("kath": 190)",
     "municipalities[0].parishes[0].kath: 190 is out of range"},
    // Liechtenstein
    {liechtenstein, R"("jahr": 2026)", R"("jahr": 2025)", "jahr: not the year of the file name"},
    {liechtenstein, R"("jahr": 2026,)", R"("jahr": 2026)", "the file: missing or not JSON"},
    {liechtenstein, R"("kinderabzug")", R"("kinderabzuege")", "kinderabzuege: unknown key"},
    {liechtenstein, R"("kinderabzug")", R"("kinderabzuege")", "kinderabzug: missing key"},
    {liechtenstein, R"("vorlaeufig": true)", R"("vorlaeufig": "ja")", "«vorlaeufig»"},
    {liechtenstein, R"("zuschlag": 150)", R"("zuschlag": 150, "bfs": 7001)",
     "gemeinden[0].bfs: unknown key"},
    {liechtenstein, R"("satz": 0.01)", R"("satz": 0.01, "von": 15855)",
     "tarif.alleinstehend[1].von: unknown key"},
    {liechtenstein, R"("quelle": ")", R"("quelle": " ", "frueher": ")", "quelle: empty citation"},
    {liechtenstein, R"("zuschlag": 150)", R"("zuschlag": 1500)",
     "gemeinden[0].zuschlag: 1500 is out of range"},
    {liechtenstein, R"("zuschlag": 150)", R"("zuschlag": -150)",
     "gemeinden[0].zuschlag: -150 is out of range"},
    {liechtenstein, R"("sollertragProzent": 4)", R"("sollertragProzent": 400)",
     "sollertragProzent: 400 is out of range"},
    {liechtenstein, R"("kinderabzug": 12700)", R"("kinderabzug": 0)",
     "kinderabzug: 0 is out of range"},
    {liechtenstein, R"("privatKindBis16": 700)", R"("privatKindBis16": -700)",
     "privatKindBis16: -700 is out of range"},
    {liechtenstein, R"("fahrRappenBis10000": 50)", R"("fahrRappenBis10000": 0.5)",
     "fahrRappenBis10000: 0.5 is out of range"},
    {liechtenstein, R"("fahrMaxTage": 220)", R"("fahrMaxTage": 22)",
     "fahrMaxTage: 22 is out of range"},
    {liechtenstein, R"("verpflegungMax": 1100)", R"("verpflegungMax": 11000)",
     "verpflegungMax: more than verpflegungProTag allows"},
    {liechtenstein, R"("satz": 0.03)", R"("satz": 3)",
     "tarif.alleinstehend[2].satz: 3 is out of range"},
    {liechtenstein, R"("satz": 0.03)", R"("satz": 0.01)",
     "tarif.alleinstehend[2].satz: does not rise"},
    {liechtenstein, R"("bis": 31710)", R"("bis": 23783)",
     "tarif.alleinerziehend[1].bis: does not rise"},
    {liechtenstein, R"({"bis": 147980, )", "{", "tarif.verheiratet[3].bis: missing"},
    {liechtenstein, R"({"satz": 0.08, "abzug": 6448})",
     R"({"bis": 900000, "satz": 0.08, "abzug": 6448})",
     "tarif.alleinstehend: the last step is not open"},
    {liechtenstein, R"("verheiratet": [)", R"("verheiratet": [], "frueher": [)",
     "tarif.verheiratet: the last step is not open"},
    {liechtenstein, R"("abzug": 581)", R"("abzug": 583)",
     "tarif.alleinstehend[2].abzug: does not continue"},
    {liechtenstein, R"("abzug": 5602)", R"("abzug": 5600)",
     "tarif.verheiratet[5].abzug: does not continue"},
    {liechtenstein, R"("gemeinden": [)", R"("gemeinden": [{"name": "Au", "zuschlag": 150},)",
     "gemeinden: 12 of them"},
    {liechtenstein, R"({"name": "Planken", "zuschlag": 150},)", "", "gemeinden: 10 of them"},
    {liechtenstein, R"("name": "Planken")", R"("name": "Vaduz")", "gemeinden: two of one name"},
    {liechtenstein, R"("name": "Planken")", R"("name": "Planken ")", "gemeinden: blank in a name"},
    {liechtenstein, R"("Steg",)", R"("Malbun",)", "fahrkostenOrte: two of one name"},
    {liechtenstein, R"("Steg",)", R"("",)", "fahrkostenOrte: blank in a name"},
    {liechtenstein, R"("Steg",)", R"("Steg", "Silum",)", "fahrkostenMatrix: 16 rows instead of 17"},
    {liechtenstein, "[0, 750, 1880,", "[0, 750,", "fahrkostenMatrix[0]: 15 fares instead of 16"},
    {liechtenstein, "[0, 750, 1880,", "[0, -750, 1880,",
     "fahrkostenMatrix[0][1]: -750 is out of range"},
    {liechtenstein, "[750, 0, 1200,", "[750, 10, 1200,",
     "fahrkostenMatrix[1][1]: a fare without a way"},
};

bool complainsOf(const Complaints& complaints, const std::string& start) {
    return std::ranges::any_of(complaints,
                               [&](const std::string& c) { return c.starts_with(start); });
}

TEST(RuleFiles, haveNoFaultThatTheCheckOverlooks) {
    for (const Fault& fault : faults) {
        const RuleCopy copy;
        ASSERT_NO_THROW(copy.replace(fault.file, fault.find, fault.put));
        const Complaints complaints = checkRuleFiles(copy.folder());
        const bool found = std::ranges::any_of(complaints, [&](const std::string& complaint) {
            return complaint.starts_with(std::string(fault.file) + ": ")
                   && complaint.find(fault.complaint) != std::string::npos;
        });
        EXPECT_TRUE(found) << fault.file << " with " << fault.put << ", not «" << fault.complaint
                           << "» but:\n"
                           << lines(complaints);
    }
}

TEST(RuleFiles, areThoseOfTheSupportedYearsAndNoOthers) {
    const RuleCopy copy;
    copy.write("README.md", "Units and sources");
    copy.replace(municipalities, R"("year": 2026)", R"("year": 2026, "vorlaeufig": true)");
    EXPECT_EQ(lines(checkRuleFiles(copy.folder())), "") << "these may be there";

    copy.write("sg-params-2024.json", copy.text(params));
    copy.write("sg-params-2026 (1).json", "{}");
    copy.remove("dbst-2025.json");
    copy.remove("li-2025.json");
    const Complaints complaints = checkRuleFiles(copy.folder());
    for (const char* start :
         {"sg-params-2024.json: the file: of no supported year",
          "sg-params-2026 (1).json: the file: of no supported year",
          "dbst-2025.json: the file: missing", "li-2025.json: the file: missing"}) {
        EXPECT_TRUE(complainsOf(complaints, start)) << start << ", but:\n" << lines(complaints);
    }
}

} // namespace
} // namespace taxcore
