#pragma once

#include <QImage>
#include <filesystem>
#include <functional>

namespace fiscarel::pages {

/// Pages of documents as pictures, made off the main thread. Main thread only.
class PageImages {
  public:
    PageImages() = default;
    PageImages(const PageImages&) = delete;
    PageImages& operator=(const PageImages&) = delete;
    PageImages(PageImages&&) = delete;
    PageImages& operator=(PageImages&&) = delete;
    virtual ~PageImages() = default;

    /// Calls `done` on the main thread with a page, from 1, as a picture `width` pixels wide (1 to
    /// 8000); at once when it is at hand. A null picture when the page cannot be shown. Never
    /// called again once the pictures are gone; but who asks may be gone by then, and has to see to
    /// that, as with a `QPointer`.
    virtual void request(const std::filesystem::path& file, int page, int width,
                         std::function<void(QImage)> done) = 0;
};

} // namespace fiscarel::pages
