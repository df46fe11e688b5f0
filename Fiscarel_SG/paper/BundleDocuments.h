#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace fiscarel::paper {

/// A document to attach.
struct BundleItem {
    std::filesystem::path file; ///< PDF or image
    std::string title;          ///< as the table of contents names it
};

/// Why a document is not in the bundle.
struct BundleFault {
    std::size_t item = 0; ///< its place in the list
    std::string message;  ///< one German sentence
};

struct Bundle {
    std::string pdf; ///< empty when not a single document could be taken
    std::size_t pages = 0;
    std::vector<BundleFault> faults;
};

/// Larger images are made smaller: this many points to the inch of an A4 page.
inline constexpr int imageResolution = 200;

/// One PDF of all documents in the order given: first a table of contents with the page of each and
/// what is missing, then the documents, each with an entry in the outline. PDF files are taken page
/// by page as they are, the fields of forms as what they show; each image becomes a page, files of
/// several images one page each. A document that does not read, is protected by a password or is
/// larger than `maxDocumentSize` is left out with its message. Needs a QGuiApplication; any thread
/// may call.
Bundle bundleDocuments(const std::string& title, const std::vector<BundleItem>& items);

} // namespace fiscarel::paper
