// Files that mean harm, or that nobody could read: each ends soon, with a sentence, and the program
// that asked lives on.

#include "Fiscarel_SG/DocumentScanner.h"
#include "tests/documents/reader/Drawing.h"
#include "tests/documents/reader/Files.h"

#include <gtest/gtest.h>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>
#include <sys/stat.h>
#include <zlib.h>

#include <chrono>
#include <functional>
#include <random>

namespace fiscarel {
namespace {

using namespace Qt::StringLiterals;
using std::chrono::seconds;

std::string bigEndian(std::uint32_t value) {
    return {static_cast<char>(value >> 24U), static_cast<char>(value >> 16U & 0xFFU),
            static_cast<char>(value >> 8U & 0xFFU), static_cast<char>(value & 0xFFU)};
}

/// A PNG whose header promises a picture that nobody could hold.
std::string hugePng(std::uint32_t side) {
    const std::string header =
        "IHDR" + bigEndian(side) + bigEndian(side) + std::string("\x08\x02\0\0\0", 5);
    const auto sum =
        crc32(0, reinterpret_cast<const Bytef*>(header.data()), static_cast<uInt>(header.size()));
    return "\x89PNG\r\n\x1A\n" + bigEndian(13) + header + bigEndian(static_cast<std::uint32_t>(sum))
           + bigEndian(0) + "IDAT" + bigEndian(0x35AF061E);
}

std::string deflated(const std::string& piece, int times) {
    z_stream stream{};
    deflateInit(&stream, 9);
    std::string packed;
    std::string out(1 << 20, '\0');
    for (int i = 0; i < times; ++i) {
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(piece.data()));
        stream.avail_in = static_cast<uInt>(piece.size());
        do {
            stream.next_out = reinterpret_cast<Bytef*>(out.data());
            stream.avail_out = static_cast<uInt>(out.size());
            deflate(&stream, i + 1 == times ? Z_FINISH : Z_NO_FLUSH);
            packed.append(out, 0, out.size() - stream.avail_out);
        } while (stream.avail_out == 0);
    }
    deflateEnd(&stream);
    return packed;
}

/// A PDF file of these objects, the first the catalog.
std::string pdfOf(const std::vector<std::string>& objects) {
    std::string pdf = "%PDF-1.5\n";
    std::string table = "xref\n0 " + std::to_string(objects.size() + 1) + "\n0000000000 65535 f \n";
    for (std::size_t i = 0; i < objects.size(); ++i) {
        std::string offset = std::to_string(pdf.size());
        table += std::string(10 - offset.size(), '0') + offset + " 00000 n \n";
        pdf += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const std::size_t start = pdf.size();
    return pdf + table + "trailer << /Size " + std::to_string(objects.size() + 1)
           + " /Root 1 0 R >>\nstartxref\n" + std::to_string(start) + "\n%%EOF\n";
}

std::string stream(const std::string& dictionary, const std::string& data) {
    return "<< " + dictionary + " /Length " + std::to_string(data.size()) + " >>\nstream\n" + data
           + "\nendstream";
}

const std::string catalog = "<< /Type /Catalog /Pages 2 0 R >>";
const std::string onePage = "<< /Type /Pages /Kids [3 0 R] /Count 1 >>";

/// A page that draws what `content` says, unpacked without end.
std::string bomb(const std::string& content, int times) {
    return pdfOf({catalog, onePage,
                  "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Contents 4 0 R >>",
                  stream("/Filter /FlateDecode", deflated(content, times))});
}

/// A page filled with one image of these sides, packed to nearly nothing.
std::string imageBomb(int side, int times) {
    const std::string sides = std::to_string(side);
    return pdfOf({catalog, onePage,
                  "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Contents 4 0 R "
                  "/Resources << /XObject << /I 5 0 R >> >> >>",
                  stream("", "595 0 0 842 0 0 cm /I Do"),
                  stream("/Type /XObject /Subtype /Image /Width " + sides + " /Height " + sides
                             + " /BitsPerComponent 8 /ColorSpace /DeviceGray /Filter /FlateDecode",
                         deflated(std::string(1 << 20, '\0'), times))});
}

std::string manyPages(int count) {
    std::string kids;
    std::vector<std::string> objects{catalog, {}};
    for (int i = 0; i < count; ++i) {
        kids += std::to_string(i + 3) + " 0 R ";
        objects.emplace_back("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 200 200] >>");
    }
    objects[1] = "<< /Type /Pages /Kids [" + kids + "] /Count " + std::to_string(count) + " >>";
    return pdfOf(objects);
}

std::string recursiveTree() {
    return pdfOf({catalog, "<< /Type /Pages /Kids [2 0 R 3 0 R] /Count 2000000000 >>",
                  "<< /Type /Pages /Parent 2 0 R /Kids [2 0 R] /Count 2000000000 >>"});
}

/// A form that draws itself.
std::string recursiveForm() {
    return pdfOf({catalog, onePage,
                  "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Contents 4 0 R "
                  "/Resources << /XObject << /F 5 0 R >> >> >>",
                  stream("", "/F Do"),
                  stream("/Type /XObject /Subtype /Form /BBox [0 0 595 842] "
                         "/Resources << /XObject << /F 5 0 R >> >>",
                         "/F Do /F Do /F Do")});
}

std::string encrypted() {
    const std::string plain = drawing::textPdf({{u"Geheim"_s}});
    QPDF pdf;
    pdf.processMemoryFile("plain", plain.data(), plain.size());
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.setR6EncryptionParameters("Schlüssel", "Schloss", true, true, true, true, true, true,
                                     qpdf_r3p_full, true);
    writer.write();
    const auto buffer = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()};
}

std::string littleEndian(std::uint32_t value) {
    const std::string big = bigEndian(value);
    return {big.rbegin(), big.rend()};
}

/// A TIFF file of white pages, whose last one leads to the page told.
std::string manyTiffPages(std::uint32_t count, std::uint32_t last) {
    constexpr std::uint32_t side = 400;
    constexpr std::uint32_t bytes = side / 8 * side;
    constexpr std::uint32_t picture = 8;
    constexpr std::uint32_t first = picture + bytes;
    constexpr std::uint32_t pageSize = 2 + 9 * 12 + 4;
    constexpr std::uint32_t isShort = 3;
    constexpr std::uint32_t isLong = 4;
    const auto entry = [](std::uint32_t tag, std::uint32_t type, std::uint32_t value) {
        return littleEndian(type << 16U | tag) + littleEndian(1) + littleEndian(value);
    };
    const std::string page = std::string("\x09\0", 2) + entry(256, isShort, side)
                             + entry(257, isShort, side) + entry(258, isShort, 1)
                             + entry(259, isShort, 1) + entry(262, isShort, 1)
                             + entry(273, isLong, picture) + entry(277, isShort, 1)
                             + entry(278, isLong, side) + entry(279, isLong, bytes);
    std::string file = std::string("II*\0", 4) + littleEndian(first) + std::string(bytes, '\xFF');
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t next = i + 1 < count ? i + 1 : last;
        file += page + littleEndian(next < count ? first + next * pageSize : 0);
    }
    return file;
}

std::string noise(std::size_t size, const std::string& begin) {
    std::mt19937 random(11);
    std::string bytes = begin;
    while (bytes.size() < size) {
        bytes += static_cast<char>(random() & 0xFFU);
    }
    return bytes;
}

/// Reads within a short time, whatever it is.
ScanResult readSoon(const std::filesystem::path& path, const char* name) {
    const auto start = std::chrono::steady_clock::now();
    ScanResult result = DocumentScanner::scan(path, {.timeLimit = seconds(6)});
    EXPECT_LT(std::chrono::steady_clock::now() - start, seconds(25)) << name;
    return result;
}

TEST(Hostile, filesEndSoonAndWithASentence) {
    const std::string page = drawing::png(drawing::page({u"Ein ganzes Blatt"_s}));
    const std::string text = drawing::textPdf({{u"Ein ganzes Blatt"_s}});
    const struct {
        const char* name;
        std::string bytes;
        const char* sentence; ///< part of it; empty: it may also be readable
    } rows[]{
        {"encrypted.pdf", encrypted(), "mit einem Passwort geschützt"},
        {"empty.pdf", "", "leer"},
        {"truncated.pdf", text.substr(0, text.size() / 3), "beschädigt"},
        {"truncated.png", page.substr(0, 30), "beschädigt"},
        {"cut.png", page.substr(0, page.size() / 2), ""},
        {"random.bin", noise(200'000, ""), "Dateiformat ist unbekannt"},
        {"random.pdf", noise(200'000, "%PDF-1.4\n"), "beschädigt"},
        {"random.jpg", noise(200'000, "\xFF\xD8\xFF\xE0"), "beschädigt"},
        {"random.heic", noise(200'000, std::string("\0\0\0\x18", 4) + "ftypheic"), "beschädigt"},
        {"random.tif", noise(200'000, std::string("II*\0\x08\0\0\0", 8)), "beschädigt"},
        {"huge.png", hugePng(60'000), "zu gross"},
        {"pages.pdf", manyPages(100'000), "100000 Seiten"},
        {"pages.tif", manyTiffPages(100'000, 100'000), "100000 Seiten"},
        {"ring of pages.tif", manyTiffPages(2, 0), ""},
        {"tree.pdf", recursiveTree(), ""},
        {"form.pdf", recursiveForm(), ""},
        {"text bomb.pdf",
         bomb("BT /F 1 Tf 0 0 Td (x) Tj ET 0 0 m 500 800 l 90 30 l h f ", 200'000'000 / 52),
         "zu lange"},
        {"nested bomb.pdf", bomb(std::string(1 << 20, 'q'), 200), ""},
        {"image bomb.pdf", imageBomb(60'000, 3'600), ""},
        {"lying image.pdf", imageBomb(1'000, 1'000), ""},
    };
    const TestFolder folder;
    for (const auto& [name, bytes, sentence] : rows) {
        const ScanResult result = readSoon(folder.write(name, bytes), name);
        std::cout << name << ": " << result.problem.value_or("gelesen") << '\n';
        if (*sentence != '\0') {
            ASSERT_TRUE(result.problem.has_value()) << name;
            EXPECT_NE(result.problem->find(sentence), std::string::npos)
                << name << ": " << *result.problem;
        }
        if (result.problem) {
            EXPECT_TRUE(result.problem->ends_with(".")) << name << ": " << *result.problem;
        }
    }
}

TEST(Hostile, whatIsNoFile) {
    const TestFolder folder;
    const auto fifo = folder.path() / "fifo.pdf";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    const auto hole = folder.write("large.pdf", "%PDF-1.4");
    std::filesystem::resize_file(hole, (std::uintmax_t{100} << 20U) + 1);
    const auto gone = folder.write("gone.pdf", "%PDF-1.4");
    std::filesystem::remove(gone);
    const struct {
        std::filesystem::path path;
        const char* sentence;
    } rows[]{
        {fifo, "keine gewöhnliche Datei"},
        {folder.path(), "ein Ordner"},
        {hole, "100 MB"},
        {gone, "nicht vorhanden"},
        {"/dev/zero", "keine gewöhnliche Datei"},
    };
    for (const auto& [path, sentence] : rows) {
        const ScanResult result = readSoon(path, path.c_str());
        ASSERT_TRUE(result.problem.has_value()) << path;
        EXPECT_NE(result.problem->find(sentence), std::string::npos) << *result.problem;
        EXPECT_EQ(result.kind, StoredDocument::Kind::anderes);
        EXPECT_EQ(result.text, "");
        const auto page = DocumentScanner::render(path, 1, 100);
        ASSERT_FALSE(page.has_value());
        EXPECT_NE(page.error().find(sentence), std::string::npos) << page.error();
    }
}

} // namespace
} // namespace fiscarel
