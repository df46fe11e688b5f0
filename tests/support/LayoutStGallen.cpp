#include "tests/support/RegionLayout.h"

#include <algorithm>

namespace taxcore::testing {

namespace {

std::string keyOf(const TaxLine& line, const TaxCase& taxCase) {
    if (line.code == "vermoegensabzug") {
        return line.code + (taxCase.isJoint() ? "joint" : "single");
    }
    const bool described = line.code == "uebrigeAbzuege"
                           && !taxCase.householdDeductions.otherDeductionsDescription.empty();
    return line.code + (described ? "described" : "");
}

/// The label with person, description and numbers of children filled in.
std::string labelOf(const LayoutRow& row, const TaxCase& taxCase, const TaxResult& /*result*/) {
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

constexpr const char* cutCommute =
    "Begrenzt auf Fr. 8’000 (Kanton). Für die Bundessteuer gilt max. Fr. 3’300.";
constexpr const char* excess = "Kanton 2%, Bund 5% des Nettoeinkommens";
constexpr const char* depreciation = "Kaufpreis abzüglich 20% pro Jahr seit Erwerb";
constexpr const char* managementCosts = "Pauschale 2‰ des fremdverwalteten Wertschriftenvermögens";
constexpr const char* flatRateMaintenance = "(Pauschale; Bund 10% bei Gebäuden bis zehn Jahre)";

/// The note of a line: a rule that was applied, else the person's name in joint households.
std::string expectedNote(const LayoutRow& row, const TaxCase& taxCase, const TaxResult& result) {
    const std::string& code = row.cells.text("code");
    const auto isCut = [&](Jurisdiction which) {
        const auto& work = result.work[which]->at(static_cast<std::size_t>(row.person - 1));
        return work.commute < work.commuteUncapped;
    };
    if (code == "berufskosten{n}"
        && (isCut(Jurisdiction::canton) || isCut(Jurisdiction::federal))) {
        return cutCommute;
    }
    if (row.person > 0 && taxCase.isJoint()) {
        return row.person == 1 ? "Anna Muster" : "Beat";
    }
    if (code == "krankheitSelbstbehalt") {
        return excess;
    }
    if (code == "fahrzeuge") {
        return depreciation;
    }
    if (code == "verwaltungskosten" && !taxCase.householdDeductions.actualAssetManagementCosts) {
        return managementCosts;
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

} // namespace

RegionLayout layoutOfStGallen() {
    return {.region = TaxRegion::stGallen,
            .sections = {"Einkommensberechnung", "Abzüge", "Abzüge vom Nettoeinkommen",
                         "Sozialabzüge", "Vermögensberechnung", "Kapitalleistungen aus Vorsorge"},
            .notes = {cutCommute, excess, depreciation, managementCosts, flatRateMaintenance,
                      "Anna Muster", "Beat"},
            .keyOf = keyOf,
            .labelOf = labelOf,
            .noteOf = expectedNote,
            .shownNote = shownNote,
            .remarkable = remarkable};
}

} // namespace taxcore::testing
