#include "tests/support/ReviewCase.h"

#include "TaxCore/base/RecordPath.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace taxcore::testing {

namespace {

constexpr int reviewedYear = 2025;

Date day(int year, int month, int dayOfMonth) { return Date::of(year, month, dayOfMonth).value(); }

void describe(Person& person, const char* firstName, int birthYear) {
    person.firstName = firstName;
    person.lastName = "Muster";
    person.birthDate = day(birthYear, 5, 20);
    person.profession = "Kaufmann/-frau";
    person.employer = "Muster AG";
}

void employ(PersonIncome& income, const Decimal& gross) {
    SalaryCertificate& certificate = income.salaries.emplace_back();
    certificate.employer = "Muster AG";
    certificate.periodFrom = day(reviewedYear, 1, 1);
    certificate.periodTo = day(reviewedYear, 12, 31);
    certificate.grossSalary = gross;
    certificate.socialContributions = gross * 64 / 1000;
    certificate.pensionContributions = gross * 5 / 100;
}

TaxCase couple() {
    TaxCase taxCase{.year = reviewedYear};
    describe(taxCase.person1, "Anna", 1985);
    describe(taxCase.person2, "Beat", 1983);
    employ(taxCase.income1, 90'000);
    employ(taxCase.income2, 60'000);
    Child& child = taxCase.children.emplace_back();
    child.firstName = "Cla";
    child.lastName = "Muster";
    child.birthDate = day(2015, 3, 1);
    child.education = ChildEducation::schule;
    SecurityEntry& account = taxCase.securities.emplace_back();
    account.institution = "Kantonalbank";
    account.description = "Sparkonto";
    account.taxValue = 20'000;
    account.incomeWithoutWithholding = 120;
    taxCase.householdDeductions.healthInsurancePremiums = 9'000;
    taxCase.iban = "CH9300762011623852957";
    return taxCase;
}

} // namespace

TaxCase spotlessHousehold() {
    TaxCase taxCase = couple();
    taxCase.municipality = "St.Gallen";
    taxCase.deductions1.pillar3a = 7'000;
    return taxCase;
}

TaxCase spotlessLiechtenstein() {
    TaxCase taxCase = couple();
    taxCase.region = TaxRegion::liechtenstein;
    taxCase.municipality = "Vaduz";
    taxCase.setLiExtras({});
    return taxCase;
}

std::vector<Notice> reviewed(const TaxCase& taxCase, std::vector<const TaxCase*> otherYears,
                             std::vector<ReviewedDocument> documents) {
    const auto calculator = CaseCalculator::forCase(taxCase).value();
    const TaxResult result = calculator.calculate(taxCase);
    return Checks::of({calculator, taxCase, result, day(taxCase.year + 1, 3, 1),
                       std::move(documents), std::move(otherYears)});
}

std::set<std::string> reviewedIds(const TaxCase& taxCase) {
    std::set<std::string> ids;
    for (const Notice& notice : reviewed(taxCase)) {
        EXPECT_TRUE(ids.insert(notice.id).second) << notice.id << " stands twice";
    }
    return ids;
}

void expectChecks(const std::vector<CheckRow>& rows) {
    static const std::set<std::string> pages{"family",  "income", "work",
                                             "pension", "other",  "wealth"};
    for (const CheckRow& row : rows) {
        SCOPED_TRACE(row.id);
        TaxCase hit = row.household();
        row.triggers(hit);
        const auto notices = reviewed(hit);
        const auto found = std::ranges::find(notices, row.id, &Notice::id);
        ASSERT_NE(found, notices.end());
        EXPECT_TRUE(found->message.ends_with('.') || found->message.ends_with('?'))
            << found->message;
        EXPECT_FALSE(found->title.empty());
        EXPECT_TRUE(pages.contains(found->area.value_or("")));
        EXPECT_FALSE(found->saving.has_value());
        if (found->path) {
            EXPECT_TRUE(valueAt(hit, *found->path).has_value()) << *found->path;
        }
        TaxCase miss = row.household();
        row.justOutside(miss);
        EXPECT_FALSE(reviewedIds(miss).contains(row.id));
    }
}

} // namespace taxcore::testing
