// Feeds arbitrary bytes to everything that reads payloads of barcodes: joined, unpacked and mapped
// as they come, and once more packed properly, so that the mappers see broken XML and not only the
// unpacking. Whatever comes out must fit together.

#include "Fiscarel_SG/documents/SecondReader.h"
#include "Fiscarel_SG/documents/payload/PayloadXml.h"
#include "Fiscarel_SG/documents/payload/QrBill.h"

#include <zlib.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace fiscarel;

void require(bool holds, const char* claim) {
    if (!holds) {
        std::fprintf(stderr, "violated: %s\n", claim);
        std::abort();
    }
}

std::string packed(std::string text) {
    uLongf size = compressBound(static_cast<uLong>(text.size()));
    std::string out(size, '\0');
    compress2(reinterpret_cast<Bytef*>(out.data()), &size,
              reinterpret_cast<const Bytef*>(text.data()), static_cast<uLong>(text.size()), 1);
    out.resize(size);
    return out;
}

/// A ZIP file with one stored entry, behind a certificate's header.
std::string certificate(const std::string& text) {
    const auto little = [](std::size_t value, int bytes) {
        std::string out;
        for (int i = 0; i < bytes; ++i) {
            out += static_cast<char>(value >> (8 * i) & 0xFFU);
        }
        return out;
    };
    const auto sum =
        crc32(0, reinterpret_cast<const Bytef*>(text.data()), static_cast<uInt>(text.size()));
    const std::string zip = "PK\x03\x04" + little(20, 2) + little(0, 4) + little(0, 4)
                            + little(sum, 4) + little(text.size(), 4) + little(text.size(), 4)
                            + little(0, 4) + text;
    const std::size_t size = std::min<std::size_t>(zip.size() + 14, 0xFFFF);
    return std::string("abcd\0\0", 6) + static_cast<char>(size >> 8U) + static_cast<char>(size)
           + std::string("\0\0\0\1\0\1", 6) + zip;
}

void check(const DocumentReading& reading) {
    ScanResult result;
    propose(reading, result);
    for (const Proposal& proposal : result.proposals) {
        const auto index = static_cast<std::size_t>(proposal.recordIndex);
        require(index < result.records.size(), "a proposal names one of the records");
        require(!proposal.field.empty() && !proposal.value.empty(), "a proposal has a value");
        require(proposal.reason.ends_with('.'), "a proposal gives its reason in a sentence");
    }
    for (const ProposedRecord& record : result.records) {
        for (const int other : record.alternativeTo) {
            require(static_cast<std::size_t>(other) < result.records.size(),
                    "a total stands for records of the document");
        }
    }
}

void checkSymbol(PageSymbol symbol) {
    PageReading page{.number = 1, .width = 595, .height = 842};
    page.symbols.push_back(std::move(symbol));
    check({.pages = {page}, .pageCount = 1});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    using enum PageSymbol::Symbology;
    checkSymbol({.symbology = pdf417, .bytes = bytes});
    checkSymbol({.symbology = pdf417, .bytes = packed(bytes)});
    checkSymbol({.symbology = pdf417, .bytes = certificate(bytes)});
    checkSymbol({.symbology = pdf417, .bytes = bytes, .part = PageSymbol::Part{.message = "m"}});
    checkSymbol({.symbology = qr, .bytes = bytes});
    checkSymbol({.symbology = code128, .bytes = bytes});
    if (const auto whole = unpackZlib(bytes)) {
        require(whole->size() <= mostPayloadBytes, "nothing unpacks beyond its bounds");
    }
    (void)unpackFirstZipEntry(bytes);
    return 0;
}
