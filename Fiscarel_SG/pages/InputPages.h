#pragma once

#include "Fiscarel_SG/forms/Page.h"

#include <vector>

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

/// What the pages of the selected year are made for.
forms::PageContext pageContext(AppStore& store);

// The input pages as data, made for a year and region; their texts take figures from the rules,
// which must outlive the pages.

forms::Page familyPage(const forms::PageContext& context);
forms::Page incomePage(const forms::PageContext& context);
forms::Page workPage(const forms::PageContext& context);
forms::Page pensionPage(const forms::PageContext& context);
forms::Page otherPage(const forms::PageContext& context);
forms::Page wealthPage(const forms::PageContext& context);

/// All of them in the order of the sidebar.
std::vector<forms::Page> inputPages(const forms::PageContext& context);

} // namespace fiscarel::pages
