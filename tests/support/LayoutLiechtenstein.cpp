#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/rulebook/LIRules.h"
#include "tests/support/RegionLayout.h"

#include <algorithm>

namespace taxcore::testing {

namespace {

constexpr const char* fareTable =
    "Fahrkosten Inland berechnet; bitte mit der amtlichen Tabelle vergleichen";
constexpr const char* notionalYield =
    "Das Vermögen wird nicht separat besteuert: 4 % davon zählen als Erwerb (Ziffer 14.6).";

std::string money(const Decimal& amount) { return MoneyFormat::chf(amount, 0, true); }

std::string keyOf(const TaxLine& line, const TaxCase& /*taxCase*/) { return line.code; }

/// The label with names, number of children and wealth filled in.
std::string labelOf(const LayoutRow& row, const TaxCase& taxCase, const TaxResult& result) {
    const auto children = std::ranges::count_if(taxCase.children, [&](const Child& child) {
        return child.education != ChildEducation::keine
               && (!child.birthDate || child.birthDate->year() <= taxCase.year);
    });
    std::string label = replaced(row.cells.text("label"), "{name1}", "Anna Muster");
    label = replaced(label, "{name2}", "Beat");
    label = replaced(label, "{children}", std::to_string(children));
    return replaced(label, "{netWealth}", money(result.value("880")));
}

/// Whether somebody with a salary goes from one place of the table of fares to another.
bool usesFareTable(const TaxCase& taxCase) {
    const auto places = LIRules::load(taxCase.year).value()->fahrkostenOrte;
    const auto isListed = [&](const std::string& place) {
        return std::ranges::find(places, place) != places.end();
    };
    const auto uses = [&](const PersonIncome& income, const LICommute& way) {
        return std::ranges::any_of(income.salaries,
                                   [](const auto& salary) { return salary.grossSalary > 0; })
               && way.mode == LICommute::Mode::inland && isListed(way.from) && isListed(way.to);
    };
    return uses(taxCase.income1, taxCase.liExtras().commute1)
           || (taxCase.isJoint() && uses(taxCase.income2, taxCase.liExtras().commute2));
}

/// What the insurance line says of its parts; the pension fund is what the others leave.
std::string insuranceNote(const TaxCase& taxCase, const TaxResult& result) {
    Decimal social;
    for (const SalaryCertificate& salary : taxCase.income1.salaries) {
        social += salary.socialContributions;
    }
    for (const SalaryCertificate& salary : taxCase.income2.salaries) {
        social += taxCase.isJoint() ? salary.socialContributions : Decimal(0);
    }
    const InsuranceBreakdown& insured = *result.insurance.canton;
    const Decimal premiums = std::min(insured.paid, insured.maximum);
    return "AHV/IV/FAK/ALV/NBU " + money(social) + " · Pensionskasse "
           + money(result.value("590") - social - premiums) + " · private Versicherungen "
           + money(premiums);
}

std::string noteOf(const LayoutRow& row, const TaxCase& taxCase, const TaxResult& result) {
    const std::string& code = row.cells.text("code");
    if (code == "580" && usesFareTable(taxCase)) {
        return fareTable;
    }
    if (code == "590") {
        return insuranceNote(taxCase, result);
    }
    return code == "885" ? notionalYield : none;
}

std::string shownNote(const TaxLine& line) { return line.note.value_or(none); }

/// Couples on whom the calculation remarks something, each by what it is remarked on.
std::map<std::string, TaxCase> remarkable() {
    std::map<std::string, TaxCase> couples;
    const auto couple = [&](const std::string& name) -> TaxCase& {
        TaxCase& taxCase = couples[name];
        taxCase.year = 2025;
        taxCase.region = TaxRegion::liechtenstein;
        taxCase.municipality = "Ruggell";
        taxCase.income1.salaries.emplace_back().grossSalary = 80'000;
        taxCase.income2.salaries.emplace_back().grossSalary = 80'000;
        return taxCase;
    };
    couple("nowhere").municipality = "";
    couple("pension fund").income1.salaries[0].pensionContributions = 28'800.05_dec;
    couple("provisional").year = 2026;
    return couples;
}

} // namespace

RegionLayout layoutOfLiechtenstein() {
    return {.region = TaxRegion::liechtenstein,
            .sections = {"Vermögen per 1. Januar", "Erwerb im In- und Ausland",
                         "Abzüge und steuerfreie Beträge", "Steuerberechnung"},
            .notes = {fareTable, notionalYield},
            .keyOf = keyOf,
            .labelOf = labelOf,
            .noteOf = noteOf,
            .shownNote = shownNote,
            .remarkable = remarkable};
}

} // namespace taxcore::testing
