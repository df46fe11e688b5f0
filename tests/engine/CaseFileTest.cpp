#include "tests/support/CaseFile.h"

#include "TaxCore/regions/CaseCalculator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace taxcore {
namespace {

using testing::CaseFile;
using testing::Texts;

TaxResult computed(const CaseFile& file) {
    return CaseCalculator::forCase(file.household).value().calculate(file.household);
}

/// The fields of a record as exact texts.
template <class T>
Texts textsOf(const T& record) {
    Texts texts;
    forEachField(record, [&](std::string_view name, const auto& field) {
        if constexpr (TabledEnum<std::remove_cvref_t<decltype(field)>>) {
            texts.emplace(name, rawValue(field));
        } else {
            texts.emplace(name, field.toString());
        }
    });
    return texts;
}

/// One line per line, so that a failure shows where two returns part.
std::string row(const std::string& code, const std::string& canton,
                const std::optional<std::string>& federal) {
    return code + " " + canton + (federal ? " / " + *federal : "") + "\n";
}

class Household : public ::testing::TestWithParam<CaseFile> {};

TEST_P(Household, hasTheExpectedReturn) {
    const CaseFile& file = GetParam();
    const TaxResult result = computed(file);
    SCOPED_TRACE(file.path.filename());

    std::string expectedLines;
    for (const auto& line : file.lines) {
        expectedLines += row(line.code, line.canton, line.federal);
    }
    std::string lines;
    for (const TaxLine& line : result.fields()) {
        lines += row(line.code, line.canton.toString(),
                     line.federal ? std::optional(line.federal->toString()) : std::nullopt);
    }
    EXPECT_EQ(lines, expectedLines);
    EXPECT_EQ(textsOf(result.bill), file.bill);
    EXPECT_EQ(result.withholdingTaxRefund.toString(), file.withholdingTaxRefund);
    EXPECT_EQ(result.withholdingIncomeA.toString(), file.withholdingIncomeA);

    EXPECT_EQ(result.capitalPaymentTax.has_value(), file.capitalPaymentTax.has_value());
    if (result.capitalPaymentTax && file.capitalPaymentTax) {
        EXPECT_EQ(textsOf(*result.capitalPaymentTax), *file.capitalPaymentTax);
    }
    for (const Jurisdiction which : allValues<Jurisdiction>()) {
        const std::string key(rawValue(which));
        ASSERT_EQ(result.work[which].has_value(), file.work.contains(key)) << key;
        ASSERT_EQ(result.insurance[which].has_value(), file.insurance.contains(key)) << key;
        if (!result.work[which]) {
            continue;
        }
        std::vector<Texts> work;
        std::ranges::transform(*result.work[which], std::back_inserter(work),
                               textsOf<WorkExpenseBreakdown>);
        EXPECT_EQ(work, file.work.at(key)) << key;
        EXPECT_EQ(textsOf(*result.insurance[which]), file.insurance.at(key)) << key;
    }
    std::vector<std::string> notices;
    std::ranges::transform(result.notices, std::back_inserter(notices), &Notice::id);
    std::ranges::sort(notices);
    EXPECT_EQ(notices, file.notices);
}

std::string nameOf(const ::testing::TestParamInfo<CaseFile>& household) {
    std::string name =
        household.param.path.stem().string() + "_" + std::to_string(household.param.household.year);
    std::ranges::replace(name, '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(StGallen, Household, ::testing::ValuesIn(testing::readCaseFiles("sg")),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Liechtenstein, Household,
                         ::testing::ValuesIn(testing::readCaseFiles("li")), nameOf);

} // namespace
} // namespace taxcore
