#pragma once

#include "Fiscarel_SG/DocumentIntake.h"
#include "Fiscarel_SG/DocumentReadings.h"
#include "Fiscarel_SG/documents/ScanCache.h"
#include "Fiscarel_SG/pages/documents/PageImages.h"

#include <filesystem>
#include <memory>

namespace fiscarel {
class FileSystem;
}

namespace fiscarel::pages {

/// What works with documents beside the store, as long as the program runs.
class DocumentDesk {
  public:
    /// How documents are read and drawn.
    struct Means {
        DocumentReadings::Scan scan;
        std::unique_ptr<PageImages> images;
    };

    /// With the reading process.
    static Means usual();

    /// `store` and `files` must outlive it. What was read is kept in `cacheFolder`.
    DocumentDesk(AppStore& store, FileSystem& files, std::filesystem::path cacheFolder,
                 Means means = usual());

    DocumentReadings& readings() noexcept { return readings_; }
    DocumentIntake& intake() noexcept { return intake_; }
    PageImages& images() noexcept { return *images_; }

  private:
    ScanCache cache_;
    DocumentReadings readings_;
    DocumentIntake intake_;
    std::unique_ptr<PageImages> images_;
};

} // namespace fiscarel::pages
