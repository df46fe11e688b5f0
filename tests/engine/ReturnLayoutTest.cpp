#include "TaxCore/demo/DemoData.h"
#include "TaxCore/stgallen/TaxCalculator.h"
#include "tests/support/CaseFile.h"
#include "tests/support/Csv.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace taxcore {
namespace {

using testing::CsvRow;

/// Every household of the tests, with names that tell the spouses apart.
std::vector<TaxCase> households() {
    std::vector<TaxCase> cases;
    for (const int year : RuleBook::supportedYears) {
        cases.push_back(DemoData::family(year));
    }
    for (const auto& file : testing::readCaseFiles("sg")) {
        cases.push_back(file.household);
    }
    for (TaxCase& taxCase : cases) {
        taxCase.person1.firstName = "Anna";
        taxCase.person1.lastName = "Muster";
        taxCase.person2.firstName = "Beat";
        taxCase.person2.lastName = "";
    }
    return cases;
}

TaxResult calculate(const TaxCase& taxCase) {
    return TaxCalculator::forYear(taxCase.year)->calculate(taxCase);
}

std::string replaced(std::string text, const std::string& placeholder, const std::string& value) {
    const auto at = text.find(placeholder);
    return at == std::string::npos ? text : text.replace(at, placeholder.size(), value);
}

/// A row of the table for one person (0: the household).
struct LayoutRow {
    CsvRow cells;
    int person = 0;
};

/// The table by code and, where the label has variants, the variant.
std::map<std::string, LayoutRow> layout() {
    std::map<std::string, LayoutRow> rows;
    for (const CsvRow& cells : testing::readCsv("return-layout-sg.csv")) {
        const std::string& code = cells.text("code");
        const bool perPerson = code.ends_with("{n}");
        for (int person = perPerson ? 1 : 0; person <= (perPerson ? 2 : 0); ++person) {
            const std::string key =
                replaced(code, "{n}", std::to_string(person)) + cells.text("when");
            EXPECT_TRUE(rows.insert({key, {cells, person}}).second) << cells.place();
        }
    }
    return rows;
}

std::string keyOf(const TaxLine& line, const TaxCase& taxCase) {
    if (line.code == "vermoegensabzug") {
        return line.code + (taxCase.isJoint() ? "joint" : "single");
    }
    const bool described = line.code == "uebrigeAbzuege"
                           && !taxCase.householdDeductions.otherDeductionsDescription.empty();
    return line.code + (described ? "described" : "");
}

/// The label with person, description and numbers of children filled in.
std::string labelOf(const LayoutRow& row, const TaxCase& taxCase) {
    int preschool = 0;
    int inEducation = 0;
    int minors = 0;
    for (const Child& child : taxCase.children) {
        const bool dependent = child.education != ChildEducation::keine;
        if (child.birthDate && child.birthDate->year() > taxCase.year) {
            continue;
        }
        const bool young = child.education == ChildEducation::vorschule;
        preschool += young ? 1 : 0;
        inEducation += dependent && !young ? 1 : 0;
        minors +=
            (child.birthDate ? taxCase.year - child.birthDate->year() < 18 : dependent) ? 1 : 0;
    }
    std::string label = replaced(row.cells.text("label"), "{n}", std::to_string(row.person));
    label = replaced(label, "{preschool}", std::to_string(preschool));
    label = replaced(label, "{inEducation}", std::to_string(inEducation));
    label = replaced(label, "{minors}", std::to_string(minors));
    return replaced(label, "{description}", taxCase.householdDeductions.otherDeductionsDescription);
}

constexpr const char* flatRateMaintenance = "(Pauschale; Bund 10% bei Gebäuden bis zehn Jahre)";
constexpr const char* none = "–";

/// The note of a line: a rule that was applied, else the person's name in joint households.
std::string expectedNote(const LayoutRow& row, const TaxCase& taxCase, const TaxResult& result) {
    const std::string& code = row.cells.text("code");
    const auto isCut = [&](Jurisdiction which) {
        const auto& work = result.work[which]->at(static_cast<std::size_t>(row.person - 1));
        return work.commute < work.commuteUncapped;
    };
    if (code == "berufskosten{n}"
        && (isCut(Jurisdiction::canton) || isCut(Jurisdiction::federal))) {
        return "Begrenzt auf Fr. 8’000 (Kanton). Für die Bundessteuer gilt max. Fr. 3’300.";
    }
    if (row.person > 0 && taxCase.isJoint()) {
        return row.person == 1 ? "Anna Muster" : "Beat";
    }
    if (code == "krankheitSelbstbehalt") {
        return "Kanton 2%, Bund 5% des Nettoeinkommens";
    }
    if (code == "fahrzeuge") {
        return "Kaufpreis abzüglich 20% pro Jahr seit Erwerb";
    }
    if (code == "verwaltungskosten" && !taxCase.householdDeductions.actualAssetManagementCosts) {
        return "Pauschale 2‰ des fremdverwalteten Wertschriftenvermögens";
    }
    const auto takesFlatRate = [](const RealEstate& home) {
        const bool imputed = home.use != PropertyUse::vermietet && home.imputedRentalValue > 0;
        return home.useFlatRateMaintenance && (imputed || home.rentalIncome > 0);
    };
    if (code == "liegenschaftskosten" && std::ranges::any_of(taxCase.realEstate, takesFlatRate)) {
        return flatRateMaintenance;
    }
    return none;
}

std::string shownNote(const TaxLine& line) {
    const std::string note = line.note.value_or(none);
    // What the note has to say is fixed, its words are not.
    const bool flatRate = line.code == "liegenschaftskosten" && note.starts_with("Pauschale")
                          && note.find("Bund") != std::string::npos
                          && note.find("10%") != std::string::npos
                          && note.find("zehn Jahre") != std::string::npos;
    return flatRate ? flatRateMaintenance : note;
}

/// Everything around a line's amount in one text, so that a failure shows where two lines differ.
std::string joined(std::initializer_list<std::string> parts) {
    std::string text;
    for (const std::string& part : parts) {
        text += (text.empty() ? "" : " | ") + part;
    }
    return text;
}

TEST(ReturnLayout, everyLineStandsAsOnTheForm) {
    const std::map<std::string, LayoutRow> table = layout();
    std::set<std::string> missing;
    for (const auto& [key, row] : table) {
        missing.insert(key);
    }
    std::set<std::string> compared;
    std::set<std::string> notes;
    for (const TaxCase& taxCase : households()) {
        const TaxResult result = calculate(taxCase);
        for (const TaxSection& section : result.sections) {
            for (const TaxLine& line : section.lines) {
                const std::string key = keyOf(line, taxCase);
                ASSERT_TRUE(table.contains(key)) << key << " stands in no table";
                const LayoutRow& row = table.at(key);
                const std::string& form = row.cells.text("form");
                const std::string expected = joined(
                    {key, row.cells.text("ziffer"), labelOf(row, taxCase), row.cells.text("kind"),
                     form.empty() ? none : form, row.cells.text("section"), row.cells.text("page"),
                     expectedNote(row, taxCase, result)});
                const std::string shown =
                    joined({key, line.ziffer, line.label, std::string(rawValue(line.kind)),
                            line.form.value_or(none), section.title, std::to_string(section.page),
                            shownNote(line)});
                missing.erase(key);
                notes.insert(shownNote(line));
                if (compared.insert(expected + shown).second) {
                    EXPECT_EQ(shown, expected) << taxCase.municipality << " " << taxCase.year;
                }
            }
        }
    }
    EXPECT_EQ(missing, std::set<std::string>{});
    EXPECT_EQ(notes.size(), 8U); // five rules, two names, none
}

TEST(ReturnLayout, sectionsStandInTheOrderOfTheForms) {
    const std::vector<std::string> order{
        "Einkommensberechnung",      "Abzüge",
        "Abzüge vom Nettoeinkommen", "Sozialabzüge",
        "Vermögensberechnung",       "Kapitalleistungen aus Vorsorge"};
    bool complete = false;
    for (const TaxCase& taxCase : households()) {
        const TaxResult result = calculate(taxCase);
        std::vector<std::string> titles;
        std::ranges::transform(result.sections, std::back_inserter(titles), &TaxSection::title);
        std::vector<std::string> expected;
        std::ranges::copy_if(order, std::back_inserter(expected), [&](const std::string& title) {
            return std::ranges::find(titles, title) != titles.end();
        });
        EXPECT_EQ(titles, expected);
        complete = complete || titles == order;
    }
    EXPECT_TRUE(complete);
}

/// Couples on whom the calculation remarks something, each by what it is remarked on.
std::map<std::string, TaxCase> remarkable() {
    std::map<std::string, TaxCase> couples;
    const auto couple = [&](const std::string& name) -> TaxCase& {
        TaxCase& taxCase = couples[name];
        taxCase.year = 2025;
        taxCase.income1.salaries.emplace_back().grossSalary = 80'000;
        taxCase.income2.salaries.emplace_back().grossSalary = 80'000;
        return taxCase;
    };
    TaxCase& idle = couple("no earnings");
    idle.income1.salaries.clear();
    idle.income2.salaries.clear();
    idle.deductions1.pillar3a = 1;
    idle.deductions2.pillar3aBuyIn = 1;
    TaxCase& provident = couple("pillar 3a");
    provident.deductions1.pillar3a = 7'258.05_dec;
    provident.person2.hasPensionFund = false;
    provident.deductions2.pillar3a = 20'000;
    TaxCase& late = couple("buy-ins");
    late.deductions1.pillar3aBuyIn = late.deductions2.pillar3aBuyIn = 7'259;
    couple("home").realEstate.emplace_back().imputedRentalValue = 10'000;
    TaxCase& indebted = couple("debts");
    indebted.securities.emplace_back().incomeWithWithholding = 1'234.60_dec;
    indebted.debts.emplace_back().interest = 60'000;
    // The canton's threshold: 2 % of 160'000 less 2 × 2'400 for work and 500 for two earners.
    couple("illness").householdDeductions.medicalCosts.emplace_back().gross = 1'234.50_dec;
    couple("small gifts").householdDeductions.donations.emplace_back().amount = 99;
    TaxCase& parents = couple("maintenance");
    parents.children.emplace_back();
    parents.householdDeductions.alimonyPaidChildren = 1;
    couple("elsewhere").municipality = "Nirgendwo";
    couple("two confessions").person1.confession = Confession::evangelischReformiert;
    return couples;
}

TEST(Notices, everyOneReadsAsSettled) {
    std::map<std::string, std::string> expected;
    std::set<std::string> ids;
    for (const CsvRow& row : testing::readCsv("notices-sg.csv")) {
        expected[row.text("household")] +=
            joined({row.text("id"), row.text("level"), row.text("area"), row.text("title"),
                    row.text("message"), none})
            + "\n";
        ids.insert(row.text("id"));
    }
    std::map<std::string, std::string> shown;
    for (const auto& [name, couple] : remarkable()) {
        for (const Notice& notice : calculate(couple).notices) {
            shown[name] += joined({notice.id, std::string(rawValue(notice.level)),
                                   notice.area.value_or(none), notice.title, notice.message,
                                   notice.saving ? notice.saving->toString() : none})
                           + "\n";
        }
    }
    EXPECT_EQ(shown, expected);

    std::set<std::string> found;
    for (const TaxCase& taxCase : households()) {
        for (const Notice& notice : calculate(taxCase).notices) {
            found.insert(notice.id);
        }
    }
    EXPECT_EQ(found, ids);
}

} // namespace
} // namespace taxcore
