#include "Fiscarel_SG/pages/InputPages.h"

namespace fiscarel::pages {

std::vector<forms::Page> inputPages(const forms::PageContext& context) {
    return {familyPage(context),  incomePage(context), workPage(context),
            pensionPage(context), otherPage(context),  wealthPage(context)};
}

} // namespace fiscarel::pages
