#pragma once

// The pages of pensions, further deductions and wealth on a household, for their tests.

#include "Fiscarel_SG/pages/InputPages.h"
#include "TaxCore/regions/CaseCalculator.h"
#include "tests/support/InputPages.h"
#include "tests/support/InputPaths.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace fiscarel::testing {

using namespace taxcore;
using forms::BoundField;
using forms::Page;
using forms::PageContext;

inline constexpr auto stGallen = TaxRegion::stGallen;
inline constexpr auto liechtenstein = TaxRegion::liechtenstein;

using pages::testing::contextOf;

inline std::vector<Page> pagesOf(const PageContext& context) {
    return {pages::pensionPage(context), pages::otherPage(context), pages::wealthPage(context)};
}

/// The pages of a region and year with a household they are used on.
struct Desk {
    explicit Desk(TaxCase household)
        : taxCase(std::move(household)), context(contextOf(taxCase.taxRegion(), taxCase.year)),
          pages(pagesOf(context)) {}

    /// Absent when there is no such field.
    std::optional<BoundField> field(std::string_view path) const {
        for (const Page& page : pages) {
            for (BoundField& found : fieldsOf(page, taxCase)) {
                if (found.path == path) {
                    return found;
                }
            }
        }
        return std::nullopt;
    }
    /// Whether the field is shown, to be edited.
    bool isShown(std::string_view path) const {
        const auto found = field(path);
        return found && found->shown(taxCase) && found->usable(taxCase);
    }
    const forms::ListCard& list(std::string_view path) const {
        const forms::ListCard* found = nullptr;
        forEachCard(pages, [&](const forms::Section&, const forms::Card& card) {
            const auto* list = std::get_if<forms::ListCard>(&card);
            found = list != nullptr && list->path == path ? list : found;
        });
        return found != nullptr ? *found : throw std::out_of_range(std::string(path));
    }
    /// All figures as "label: text (note)", of the cards that are shown.
    std::vector<std::string> figures() const {
        const auto calculator = CaseCalculator::forCase(taxCase).value();
        const TaxResult result = calculator.calculate(taxCase);
        std::vector<std::string> texts;
        forEachCard(pages, [&](const forms::Section& section, const forms::Card& card) {
            if (holds(section.shown, taxCase) && holds(shownOf(card), taxCase)) {
                std::ranges::move(figuresOf(card, taxCase, result), std::back_inserter(texts));
            }
        });
        return texts;
    }
    bool hasFigure(const std::string& text) const {
        const auto all = figures();
        return std::ranges::find(all, text) != all.end();
    }

    TaxCase taxCase;
    PageContext context;
    std::vector<Page> pages;
};

inline TaxCase couple(TaxRegion region = stGallen) {
    TaxCase taxCase{.year = 2025, .civilStatus = CivilStatus::verheiratet};
    taxCase.region = region;
    if (region == liechtenstein) {
        taxCase.municipality = "Vaduz";
    }
    taxCase.income1.salaries.emplace_back().grossSalary = 90'000;
    return taxCase;
}

} // namespace fiscarel::testing
