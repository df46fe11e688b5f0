#include "TaxCore/demo/DemoData.h"
#include "tests/engine/CheckTables.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace taxcore {
namespace {

using testing::CheckRow;

// The household in order: Anna born 1985 and Beat born 1983, Cla born on 1 March 2015; the year
// 2025, reviewed on 1 March 2026.

Date day(int year, int month, int dayOfMonth) { return Date::of(year, month, dayOfMonth).value(); }

/// Anna with Cla, without Beat.
TaxCase singleParent() {
    TaxCase taxCase = testing::spotlessHousehold();
    taxCase.civilStatus = CivilStatus::geschieden;
    taxCase.person2 = {};
    taxCase.income2 = {};
    taxCase.deductions2 = {};
    return taxCase;
}

void beBornAndLearn(TaxCase& c, const Date& birth, ChildEducation education) {
    c.children[0].birthDate = birth;
    c.children[0].education = education;
}

void addChild(TaxCase& c, const char* firstName, bool atHome) {
    Child child = c.children[0];
    child.id = Uuid::random();
    child.firstName = firstName;
    child.livesInHousehold = atHome;
    c.children.push_back(child);
}

std::vector<CheckRow> adultRows() {
    return {
        {"name-fehlt-1", [](TaxCase& c) { c.person1.lastName = " "; },
         [](TaxCase& c) { c.person1.lastName = "M"; }},
        {"name-fehlt-2", [](TaxCase& c) { c.person2.firstName = ""; },
         [](TaxCase& c) {
             c.person2.firstName = "";
             c.civilStatus = CivilStatus::geschieden;
         }},
        {"geburtsdatum-fehlt-2", [](TaxCase& c) { c.person2.birthDate.reset(); },
         [](TaxCase& c) {
             c.person2.birthDate.reset();
             c.civilStatus = CivilStatus::ledig;
         }},
        {"geburtsdatum-zukunft-1", [](TaxCase& c) { c.person1.birthDate = day(2026, 3, 2); },
         [](TaxCase& c) { c.person1.birthDate = day(2026, 3, 1); }},
        {"alter-unplausibel-1", [](TaxCase& c) { c.person1.birthDate = day(2010, 1, 1); },
         [](TaxCase& c) { c.person1.birthDate = day(2009, 12, 31); }},
        {"alter-unplausibel-2", [](TaxCase& c) { c.person2.birthDate = day(1909, 12, 31); },
         [](TaxCase& c) { c.person2.birthDate = day(1910, 1, 1); }},
        {"person-2-zaehlt-nicht",
         [](TaxCase& c) {
             c.civilStatus = CivilStatus::getrennt;
             c.income2 = {};
             c.deductions2.pillar3a = 1;
         },
         [](TaxCase& c) {
             c.civilStatus = CivilStatus::getrennt;
             c.income2 = {};
             c.deductions2 = {};
         }},
        {"person-2-zaehlt-nicht", [](TaxCase& c) { c.civilStatus = CivilStatus::verwitwet; },
         [](TaxCase& c) { c.civilStatus = CivilStatus::eingetragenePartnerschaft; }},
    };
}

std::vector<CheckRow> householdRows() {
    const auto joinsChurch = [](TaxCase& c, Confession confession, const char* parish) {
        c.person2.confession = confession;
        c.parish = parish;
    };
    return {
        {"kirchgemeinde-fehlt",
         [](TaxCase& c) { c.person2.confession = Confession::evangelischReformiert; },
         [](TaxCase& c) { c.person2.confession = Confession::christkatholisch; }},
        {"kirchgemeinde-fehlt",
         [=](TaxCase& c) { joinsChurch(c, Confession::roemischKatholisch, " "); },
         [](TaxCase& c) { // an unknown municipality is told by the calculation
             c.person2.confession = Confession::roemischKatholisch;
             c.municipality = "Zürich";
         }},
        {"kirchgemeinde-unbekannt",
         [=](TaxCase& c) { joinsChurch(c, Confession::roemischKatholisch, "Sevelen"); },
         [=](TaxCase& c) {
             joinsChurch(c, Confession::roemischKatholisch, "Sevelen");
             c.municipality = "SEVELEN";
         }},
        {"kirchgemeinde-unbekannt",
         [=](TaxCase& c) { joinsChurch(c, Confession::evangelischReformiert, "Sevelen"); },
         [=](TaxCase& c) { joinsChurch(c, Confession::keine, "Sevelen"); }},
        {"kirchgemeinde-liechtenstein", [](TaxCase& c) { c.parish = "Sevelen"; },
         [](TaxCase& c) { c.person1.confession = Confession::roemischKatholisch; },
         testing::spotlessLiechtenstein},
        {"registernummer-zeichen", [](TaxCase& c) { c.registerNumber = "12.345.67O"; },
         [](TaxCase& c) { c.registerNumber = "12.345 670"; }},
        {"registernummer-zeichen", [](TaxCase& c) { c.registerNumber = " .. "; },
         [](TaxCase& c) { c.registerNumber = " "; }},
        {"iban-ungueltig", [](TaxCase& c) { c.iban = "CH93 0076 2011 6238 5295 8"; },
         [](TaxCase& c) { c.iban = "CH93 0076 2011 6238 5295 7"; }},
        {"iban-ungueltig", [](TaxCase& c) { c.iban = "CH93 0076 2011 6238 5295"; },
         [](TaxCase& c) { c.iban = "DE89370400440532013000"; }},
        {"iban-ungueltig", [](TaxCase& c) { c.iban = "Konto 12"; },
         [](TaxCase& c) { c.iban = ""; }},
        {"iban-fehlt",
         [](TaxCase& c) {
             c.iban = " ";
             c.securities[0].incomeWithWithholding = 10;
         },
         [](TaxCase& c) { c.iban = ""; }},
    };
}

std::vector<CheckRow> childRows() {
    using enum ChildEducation;
    const auto child = [](int year, int month, int dayOfMonth, ChildEducation education) {
        return [=](TaxCase& c) { beBornAndLearn(c, day(year, month, dayOfMonth), education); };
    };
    return {
        {"kind-name-fehlt-1", [](TaxCase& c) { c.children[0].firstName = ""; },
         [](TaxCase& c) { c.children[0].firstName = "C"; }},
        {"kind-geburtsdatum-fehlt-1", [](TaxCase& c) { c.children[0].birthDate.reset(); },
         [](TaxCase&) {}},
        {"kind-geburtsdatum-zukunft-1", child(2026, 3, 2, vorschule), child(2026, 3, 1, vorschule)},
        {"kind-spaeter-geboren-1", child(2026, 1, 1, vorschule), child(2025, 12, 31, vorschule)},
        // Kindergarten in the August after the fourth birthday, give or take a year.
        {"kind-stufe-1", child(2020, 7, 31, vorschule), child(2020, 8, 1, vorschule)},
        {"kind-stufe-1", child(2022, 8, 1, schule), child(2022, 7, 31, schule)},
        {"kind-stufe-1", child(2009, 7, 31, schule), child(2009, 8, 1, schule)},
        {"kind-stufe-1", child(2000, 1, 1, schule), child(2000, 1, 1, ausbildung)},
        {"kind-stufe-1", child(2015, 1, 1, ausbildung), child(2014, 12, 31, ausbildung)},
        {"kind-ohne-ausbildung-1", child(2010, 1, 1, keine), child(2009, 12, 31, keine)},
        {"kind-alter-ausbildung-1",
         [](TaxCase& c) {
             beBornAndLearn(c, day(1994, 12, 31), ausbildung);
             c.person2.birthDate = day(1960, 1, 1);
         },
         [](TaxCase& c) {
             beBornAndLearn(c, day(1995, 1, 1), ausbildung);
             c.person2.birthDate = day(1960, 1, 1);
         }},
        {"kind-alter-eltern-1", child(1995, 5, 19, ausbildung), child(1995, 5, 20, ausbildung)},
        {"kind-alter-eltern-1",
         [](TaxCase& c) { c.person1.birthDate = c.person2.birthDate = day(2004, 1, 1); },
         [](TaxCase& c) { // whose child it is, is not known
             c.person1.birthDate = day(2004, 1, 1);
             c.person2.birthDate.reset();
         }},
        {"kind-doppelt-2", [](TaxCase& c) { addChild(c, "Cla", true); },
         [](TaxCase& c) { addChild(c, "Dora", true); }},
        {"kind-nicht-im-haushalt-1", [](TaxCase& c) { c.children[0].livesInHousehold = false; },
         [](TaxCase& c) { addChild(c, "Dora", false); }, singleParent},
        {"kind-nicht-im-haushalt-1", [](TaxCase& c) { c.children[0].livesInHousehold = false; },
         [](TaxCase& c) {
             c.children[0].livesInHousehold = false;
             c.civilStatus = CivilStatus::verheiratet;
         },
         singleParent},
    };
}

std::vector<CheckRow> allRows() {
    return testing::joined<CheckRow>({adultRows(), householdRows(), childRows()});
}

TEST(FamilyChecks, speakUp) {
    testing::expectAllChecks({"FamilyChecks.cpp", "ChildChecks.cpp"}, allRows(),
                             {"steuerfuss-vorlaeufig"});
}

TEST(FamilyChecks, sayNothingElseOfAChildNotYetBorn) {
    TaxCase taxCase = testing::spotlessHousehold();
    beBornAndLearn(taxCase, day(2026, 2, 1), ChildEducation::schule);
    EXPECT_EQ(testing::reviewedIds(taxCase), std::set<std::string>{"kind-spaeter-geboren-1"});
    beBornAndLearn(taxCase, day(2026, 9, 1), ChildEducation::schule);
    EXPECT_EQ(testing::reviewedIds(taxCase), std::set<std::string>{"kind-geburtsdatum-zukunft-1"});
}

/// The rules of 2025 in the shared cache with provisional multipliers, for as long as it lives.
class ProvisionalYear {
  public:
    ProvisionalYear() : kept_(RuleBook::load(2025, "SG").value()) {
        auto changed = std::make_shared<RuleBook>(*kept_);
        changed->municipalities.vorlaeufig = true;
        RuleBookCache::shared().put(std::move(changed));
    }
    ~ProvisionalYear() { RuleBookCache::shared().put(kept_); }
    ProvisionalYear(const ProvisionalYear&) = delete;
    ProvisionalYear& operator=(const ProvisionalYear&) = delete;

  private:
    std::shared_ptr<const RuleBook> kept_;
};

TEST(FamilyChecks, tellOfProvisionalMultipliers) {
    {
        const ProvisionalYear provisional;
        EXPECT_EQ(testing::reviewedIds(testing::spotlessHousehold()),
                  std::set<std::string>{"steuerfuss-vorlaeufig"});
        EXPECT_EQ(testing::reviewed(testing::spotlessHousehold())[0].level, Notice::Level::info);
    }
    EXPECT_EQ(testing::reviewedIds(testing::spotlessHousehold()), std::set<std::string>{});
}

/// What the pages family, income and work say of a case.
std::set<std::string> firstPages(const TaxCase& taxCase) {
    std::set<std::string> ids;
    for (const Notice& notice : testing::reviewed(taxCase)) {
        if (notice.area == "family" || notice.area == "income" || notice.area == "work") {
            ids.insert(notice.id);
        }
    }
    return ids;
}

TEST(FamilyChecks, findOnlyWhatIsMeantInTheDemoHouseholds) {
    for (const int year : {2025, 2026}) {
        EXPECT_EQ(firstPages(DemoData::family(year)),
                  (std::set<std::string>{"konfession-gemischt", "verpflegung-feld-g-2"}));
        EXPECT_EQ(firstPages(DemoData::liechtensteinFamily(year)),
                  std::set<std::string>{"li-fahrkosten-tabelle"});
    }
}

} // namespace

std::vector<testing::CheckRow> testing::familyRows() { return allRows(); }

} // namespace taxcore
