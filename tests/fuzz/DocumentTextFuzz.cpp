// Feeds arbitrary text to the whole reading of documents: as words of a page at places that the
// bytes decide, and as plain text. Whatever comes out must fit together.

#include "Fiscarel_SG/documents/SecondReader.h"
#include "tests/fuzz/Require.h"

#include <algorithm>
#include <cstdint>
#include <string>

using namespace fiscarel;
using fiscarel::testing::require;

namespace {

/// Every word with three bytes before it that say where it stands.
PageReading pageOf(std::string_view text, bool isRecognised) {
    PageReading page{.number = 1, .width = 595, .height = 842, .isRecognised = isRecognised};
    while (text.size() > 3) {
        const double x = static_cast<unsigned char>(text[0]) * 2.3;
        const double y = static_cast<unsigned char>(text[1]) * 3.2;
        const double height = static_cast<unsigned char>(text[2]) % 24;
        text.remove_prefix(3);
        const std::size_t end = std::min(text.find_first_of(" \n"), text.size());
        const double width = static_cast<double>(end) * height / 2;
        page.words.push_back({std::string(text.substr(0, end)), {x, y, x + width, y + height}});
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return page;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    ScanResult result;
    propose({.text = text, .pageCount = 1}, result);
    for (const bool isRecognised : {false, true}) {
        propose({.pages = {pageOf(text, isRecognised)}, .pageCount = 1}, result);
        for (const Proposal& proposal : result.proposals) {
            require(static_cast<std::size_t>(proposal.recordIndex) < result.records.size(),
                    "a proposal names one of the records");
            require(proposal.witness != Proposal::Witness::payload, "there is no payload");
        }
    }
    return 0;
}
