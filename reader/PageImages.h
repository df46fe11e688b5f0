#pragma once

#include "reader/Document.h"

#include <memory>
#include <optional>
#include <string_view>

namespace fiscarel::reader {

/// The images within the pages of a PDF. Whatever is odd about one is as if it were not there.
class PageImages {
  public:
    explicit PageImages(std::string_view pdf);
    PageImages(const PageImages&) = delete;
    PageImages& operator=(const PageImages&) = delete;
    ~PageImages();

    /// Whether images cover nearly all of the page.
    bool fillsPage(int page, const PageSize& size) const;

    /// The one image that is the page, at its own resolution when that serves better than drawing
    /// the page: nothing is drawn over it, and it is neither turned nor cut.
    std::optional<Picture> pagePicture(int page, const PageSize& size) const;

  private:
    struct Pages;
    std::unique_ptr<Pages> pages_;
};

} // namespace fiscarel::reader
