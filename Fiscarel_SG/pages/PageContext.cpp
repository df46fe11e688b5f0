#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/pages/InputPages.h"

namespace fiscarel::pages {

forms::PageContext pageContext(AppStore& store) {
    forms::PageContext context{.year = store.year(), .region = store.current().taxRegion()};
    if (const auto* calculator = store.calculator()) {
        context.calculator = calculator;
        context.stGallen = calculator->stGallen();
        context.liechtenstein = calculator->liechtenstein();
    }
    return context;
}

} // namespace fiscarel::pages
