#pragma once

// The pages of pensions, further deductions and wealth on a household, for their tests.

#include "Fiscarel_SG/pages/InputPages.h"
#include "TaxCore/regions/CaseCalculator.h"
#include "tests/support/InputPaths.h"

#include <algorithm>
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

inline PageContext contextOf(TaxRegion region, int year = 2025) {
    PageContext context{.year = year, .region = region};
    if (region == liechtenstein) {
        context.liechtenstein = LIRules::load(year).value().get();
    } else {
        context.stGallen = RuleBook::load(year, "SG").value().get();
    }
    return context;
}

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
    bool isShown(std::string_view path) const {
        const auto found = field(path);
        return found && found->shown(taxCase);
    }
    const forms::ListCard& list(std::string_view path) const {
        for (const Page& page : pages) {
            for (const forms::Section& section : page.sections) {
                for (const forms::Card& card : section.cards) {
                    const auto* list = std::get_if<forms::ListCard>(&card);
                    if (list != nullptr && list->path == path) {
                        return *list;
                    }
                }
            }
        }
        throw std::out_of_range(std::string(path));
    }
    /// All figures as "label: text (note)", of the cards that are shown.
    std::vector<std::string> figures() const {
        const auto calculator = CaseCalculator::forCase(taxCase).value();
        const TaxResult result = calculator.calculate(taxCase);
        std::vector<std::string> texts;
        for (const Page& page : pages) {
            for (const forms::Section& section : page.sections) {
                for (const forms::Card& card : section.cards) {
                    std::visit(
                        [&](const auto& shown) {
                            const bool there = (!section.shown || section.shown(taxCase))
                                               && (!shown.shown || shown.shown(taxCase));
                            if (!there || !shown.figures) {
                                return;
                            }
                            for (const forms::Figure& figure : shown.figures(taxCase, result)) {
                                texts.push_back(
                                    figure.label + ": " + figure.text
                                    + (figure.note.empty() ? "" : " (" + figure.note + ")"));
                            }
                        },
                        card);
                }
            }
        }
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
