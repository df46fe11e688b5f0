#include "Fiscarel_SG/pages/documents/DocumentDesk.h"

#include "Fiscarel_SG/pages/documents/RenderedPages.h"

#include <utility>

namespace fiscarel::pages {

DocumentDesk::Means DocumentDesk::usual() {
    return {&DocumentScanner::scan, std::make_unique<RenderedPages>()};
}

DocumentDesk::DocumentDesk(AppStore& store, FileSystem& files, std::filesystem::path cacheFolder,
                           Means means)
    : cache_(files, std::move(cacheFolder)), readings_(store, cache_, std::move(means.scan)),
      intake_(store, readings_), images_(std::move(means.images)) {}

} // namespace fiscarel::pages
