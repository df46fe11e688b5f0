#include "Fiscarel_SG/pages/InputPages.h"

namespace fiscarel::pages {

std::vector<forms::Page> inputPages(const forms::PageContext& context) {
    std::vector<forms::Page> pages{familyPage(context),  incomePage(context), workPage(context),
                                   pensionPage(context), otherPage(context),  wealthPage(context)};
    for (std::size_t i = 0; i + 1 < pages.size(); ++i) {
        pages[i].nextId = pages[i + 1].id;
        pages[i].nextTitle = pages[i + 1].title;
    }
    pages.back().nextId = "review";
    pages.back().nextTitle = "Prüfung";
    return pages;
}

} // namespace fiscarel::pages
