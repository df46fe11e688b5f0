#include "TaxCore/review/Checks.h"

#include "TaxCore/model/Household.h"
#include "TaxCore/review/CheckContext.h"

#include <algorithm>
#include <array>

namespace taxcore {

namespace review {

std::string Adult::called() const {
    const bool nameless = person.firstName.empty() && person.lastName.empty();
    return nameless ? "Person " + std::to_string(number) : person.displayName();
}

bool Adult::works() const {
    const bool salaried = std::ranges::any_of(
        income.salaries, [](const SalaryCertificate& boxes) { return boxes.netSalary() > 0; });
    return salaried || !income.selfEmployment.isZero() || !income.partnership.isZero()
           || income.boardFees > 0 || income.unemployment > 0 || income.dailyAllowances > 0;
}

std::string Adult::id(std::string_view stem) const {
    return std::string(stem) + "-" + std::to_string(number);
}

std::optional<int> ageOf(const Adult& adult, int year) {
    const auto& birth = adult.person.birthDate;
    return birth ? std::optional(ageAtEndOf(*birth, year)) : std::nullopt;
}

std::vector<Adult> adultsOf(const TaxCase& taxCase) {
    std::vector<Adult> all;
    forEachAdult(taxCase, [&](const AdultEntries& entries) { all.push_back({entries}); });
    return all;
}

const TaxCase* caseOf(const std::vector<const TaxCase*>& cases, int year) noexcept {
    const auto found =
        std::ranges::find(cases, year, [](const TaxCase* taxCase) { return taxCase->year; });
    return found == cases.end() ? nullptr : *found;
}

CheckContext::CheckContext(const ReviewInput& input, std::vector<Notice>& findings)
    : taxCase(input.taxCase), result(input.result), today(input.today), documents(input.documents),
      otherYears(input.otherYears), stGallen(input.calculator.stGallen()),
      liechtenstein(input.calculator.liechtenstein()), adults(adultsOf(input.taxCase)),
      findings_(findings) {}

void CheckContext::add(Notice::Level level, Finding finding) {
    Notice& notice = findings_.emplace_back();
    notice.id = std::move(finding.id);
    notice.level = level;
    notice.title = std::move(finding.title);
    notice.message = std::move(finding.message);
    notice.area = std::string(finding.area);
    if (finding.path) {
        notice.path = finding.path->toString();
    }
}

std::string itemId(std::string_view stem, int index) {
    return std::string(stem) + "-" + std::to_string(index + 1);
}

} // namespace review

namespace {

/// Where the notices of the calculation lead to. Contributions to the pension fund ("li-pk-max")
/// are the sum of several fields and lead to none.
struct NoticePath {
    std::string_view id;
    FieldPath path;
    bool perPerson = false; ///< the id ends in the person's number: "3a-max-1"
};

constexpr std::array noticePaths{
    NoticePath{"3a-einkauf", FieldPath("deductions", "pillar3aBuyIn"), true},
    NoticePath{"3a-max", FieldPath("deductions", "pillar3a"), true},
    NoticePath{"3a-ohne-erwerb", FieldPath("deductions", "pillar3a"), true},
    NoticePath{"eigenmietwert-bund", FieldPath("realEstate")},
    NoticePath{"gemeinde", FieldPath("municipality")},
    NoticePath{"kinderabzug-unterhalt", FieldPath("children")},
    NoticePath{"konfession-gemischt", FieldPath("person1", "confession")},
    NoticePath{"krankheit-selbstbehalt", FieldPath("householdDeductions", "medicalCosts")},
    NoticePath{"li-gemeinde", FieldPath("municipality")},
    NoticePath{"li-vorlaeufig", FieldPath("municipality")},
    NoticePath{"schuldzinsen-limit", FieldPath("debts")},
    NoticePath{"spenden-min", FieldPath("householdDeductions", "donations")},
    NoticePath{"steuerfuss-fehlt", FieldPath("municipality")},
};

std::optional<std::string> pathOf(std::string_view id) {
    for (const NoticePath& row : noticePaths) {
        if (!row.perPerson && id == row.id) {
            return row.path.toString();
        }
        for (const int person : {1, 2}) {
            if (row.perPerson && id == std::string(row.id) + "-" + std::to_string(person)) {
                return row.path.of(person).toString();
            }
        }
    }
    return std::nullopt;
}

/// The notices of the calculation, each with the field to go to.
std::vector<Notice> withPaths(std::vector<Notice> notices) {
    for (Notice& notice : notices) {
        if (!notice.path) {
            notice.path = pathOf(notice.id);
        }
    }
    return notices;
}

/// The order of the pages; a notice without a page comes first.
std::size_t pageOf(const Notice& notice) {
    constexpr std::array<std::string_view, 6> pages{"family",  "income", "work",
                                                    "pension", "other",  "wealth"};
    if (!notice.area) {
        return 0;
    }
    return 1 + static_cast<std::size_t>(std::ranges::find(pages, *notice.area) - pages.begin());
}

} // namespace

std::vector<Notice> Checks::of(const ReviewInput& input) {
    std::vector<Notice> notices = withPaths(input.result.notices);
    review::CheckContext context(input, notices);
    review::checkFamily(context);
    review::checkIncome(context);
    review::checkWork(context);
    review::checkPension(context);
    review::checkOther(context);
    review::checkWealth(context);
    review::checkScope(context);
    review::checkAmounts(context);
    std::ranges::stable_sort(
        notices, {}, [](const Notice& notice) { return std::pair(notice.level, pageOf(notice)); });
    return notices;
}

} // namespace taxcore
