// Feeds arbitrary bytes to what reads payloads of barcodes. The first byte chooses: unpackers, the
// QR-bill, the header of certificates, XML for every mapper (as if it had been unpacked already),
// or the whole way of a symbol. Whatever comes out must fit together.

#include "Fiscarel_SG/documents/SecondReader.h"
#include "Fiscarel_SG/documents/payload/JoinedPayload.h"
#include "Fiscarel_SG/documents/payload/Mappers.h"
#include "Fiscarel_SG/documents/payload/PayloadXml.h"
#include "Fiscarel_SG/documents/payload/QrBill.h"
#include "tests/fuzz/Require.h"

#include <zlib.h>

#include <array>
#include <cstdint>
#include <string>

using namespace fiscarel;
using fiscarel::testing::require;

namespace {

void check(const ScanResult& result) {
    for (const Proposal& proposal : result.proposals) {
        const auto index = static_cast<std::size_t>(proposal.recordIndex);
        require(index < result.records.size(), "a proposal names one of the records");
        require(!proposal.field.empty() && !proposal.value.empty(), "a proposal has a value");
        require(proposal.reason.ends_with('.'), "a proposal gives its reason in a sentence");
    }
}

DocumentReading withSymbol(PageSymbol symbol) {
    PageReading page{.number = 1, .width = 595, .height = 842};
    page.symbols.push_back(std::move(symbol));
    return {.pages = {std::move(page)}, .pageCount = 1};
}

void unpack(const std::string& bytes) {
    for (const auto& whole : {unpackZlib(bytes), unpackFirstZipEntry(bytes)}) {
        require(!whole || whole->size() <= mostPayloadBytes, "nothing unpacks beyond its bounds");
    }
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

void readCertificate(const std::string& bytes) {
    ScanResult result;
    ProposalDraft draft(result);
    const auto reading = withSymbol({.symbology = PageSymbol::Symbology::pdf417, .bytes = bytes});
    for (const JoinedPayload& payload : certificatePayloads(reading)) {
        (void)proposeCertificate(payload, {}, draft);
    }
    check(result);
}

void mapXml(const std::string& bytes) {
    const auto xml = PayloadXml::parse(bytes);
    if (!xml) {
        return;
    }
    const JoinedPayload payload{.bytes = bytes, .isComplete = true, .pages = {1}};
    for (const int standard : {248, 275}) {
        ScanResult result;
        ProposalDraft draft(result);
        (void)proposeInstitutionCertificate(xml->root(), standard, payload, draft);
        check(result);
    }
    ScanResult result;
    ProposalDraft draft(result);
    (void)proposeTaxStatement(xml->root(), payload, DocumentRows{}, draft);
    check(result);
}

void wholeWay(const std::string& bytes) {
    using enum PageSymbol::Symbology;
    constexpr std::array symbologies{pdf417, qr, code128};
    const std::size_t chosen = bytes.empty() ? 0 : static_cast<unsigned char>(bytes[0]) % 3;
    ScanResult result;
    propose(withSymbol({.symbology = symbologies.at(chosen), .bytes = bytes}), result);
    check(result);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string bytes(data + 1, data + size);
    switch (data[0] % 8) {
    case 0:
        unpack(bytes);
        break;
    case 1:
    case 2:
        (void)parseQrBill(bytes);
        break;
    case 3:
        readCertificate(bytes);
        break;
    case 4:
        readCertificate(certificate(bytes));
        break;
    case 5:
    case 6:
        mapXml(bytes);
        break;
    default:
        wholeWay(bytes);
        break;
    }
    return 0;
}
