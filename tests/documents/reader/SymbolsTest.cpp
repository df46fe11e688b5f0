// Barcodes of pages: their bytes, their parts, where they stand.

#include "Fiscarel_SG/DocumentScanner.h"
#include "reader/Scan.h"
#include "reader/WorkList.h"
#include "tests/documents/reader/Drawing.h"
#include "tests/documents/reader/Files.h"

#include <gtest/gtest.h>
#include <zint.h>

#include <algorithm>
#include <chrono>
#include <map>

namespace fiscarel::reader {
namespace {

using namespace Qt::StringLiterals;
using Symbology = PageSymbol::Symbology;

/// The bytes must stay until the process ends.
DocumentReading readingOf(const std::string& file) {
    static std::vector<std::unique_ptr<std::string>> kept;
    kept.push_back(std::make_unique<std::string>(file));
    return scanDocument(*kept.back(),
                        {.deadline = std::chrono::steady_clock::now() + std::chrono::seconds(100),
                         .threads = 2,
                         .progress = {}})
        .reading;
}

/// Every byte, in an order that packs badly.
std::string allBytes() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) {
        bytes += static_cast<char>(i * 37 % 256);
    }
    return bytes;
}

const QStringList statement{u"Steuerauszug 2025"_s, u"Bank im Rheintal, Buchs"_s,
                            u"Steuerwert per 31. Dezember\t12'345.60"_s,
                            u"Bruttoertrag des Jahres\t98.75"_s,
                            u"Alle Beträge verstehen sich in Schweizer Franken."_s};

TEST(Symbols, bytesArriveAsTheyAre) {
    const struct {
        int zint;
        Symbology symbology;
        std::string bytes;
    } rows[]{
        {BARCODE_PDF417, Symbology::pdf417, allBytes()},
        {BARCODE_QRCODE, Symbology::qr, "SPC\r\n0200\r\n1\r\nCH4431999123000889012\r\nS\r\nPraxis"},
        {BARCODE_QRCODE, Symbology::qr, std::string("\x80\xFF\0\x01", 4) + "Z\xC3\xBCrich"},
        {BARCODE_DATAMATRIX, Symbology::dataMatrix, "Rechnung 4711"},
        {BARCODE_CODE128, Symbology::code128, "1962212345001001"},
    };
    for (const auto& row : rows) {
        const QImage code = drawing::symbol(row.zint, row.bytes);
        const DocumentReading reading = readingOf(drawing::textPdf({statement}, {code}));
        ASSERT_EQ(reading.pages.size(), 1U);
        const auto& symbols = reading.pages[0].symbols;
        ASSERT_EQ(symbols.size(), 1U) << row.bytes;
        EXPECT_EQ(symbols[0].symbology, row.symbology);
        EXPECT_EQ(symbols[0].bytes, row.bytes);
        EXPECT_EQ(symbols[0].part.has_value(), false);
        // Drawn 20 mm from the left and 120 mm from the top.
        constexpr double millimetre = 72 / 25.4;
        EXPECT_NEAR(symbols[0].place.left, 20 * millimetre, 8 * millimetre) << row.bytes;
        EXPECT_NEAR(symbols[0].place.top, 120 * millimetre, 8 * millimetre) << row.bytes;
    }
}

TEST(Symbols, partsOfAMessageTellTheirPlaceInIt) {
    std::vector<QImage> pages;
    for (int i = 0; i < 3; ++i) {
        pages.push_back(drawing::page(statement));
        drawing::put(pages.back(),
                     drawing::symbol(BARCODE_PDF417, "Teil " + std::to_string(i) + allBytes(),
                                     drawing::Part{i, 3, "123456"}),
                     20, 120);
        drawing::put(pages.back(),
                     drawing::symbol(BARCODE_QRCODE, "Stück " + std::to_string(i),
                                     drawing::Part{i, 3, "77"}),
                     120, 200);
    }
    const DocumentReading reading = readingOf(drawing::imagePdf(pages));
    ASSERT_EQ(reading.pages.size(), 3U);
    for (const PageReading& page : reading.pages) {
        std::map<Symbology, PageSymbol> symbols;
        for (const PageSymbol& symbol : page.symbols) {
            symbols[symbol.symbology] = symbol;
        }
        ASSERT_EQ(symbols.size(), 2U) << page.number;
        for (const auto& [symbology, symbol] : symbols) {
            ASSERT_TRUE(symbol.part.has_value());
            EXPECT_EQ(symbol.part->index, page.number - 1);
            EXPECT_EQ(symbol.part->count, 3);
        }
        EXPECT_EQ(symbols[Symbology::pdf417].bytes,
                  "Teil " + std::to_string(page.number - 1) + allBytes());
    }
}

TEST(Symbols, surviveABadScanAndAPhoto) {
    QImage page = drawing::page(statement);
    drawing::put(page, drawing::symbol(BARCODE_PDF417, allBytes()), 20, 120);
    const struct {
        const char* name;
        std::string file;
    } rows[]{
        {"straight", drawing::jpeg(page, 60)},
        {"skew", drawing::jpeg(drawing::turned(page, 2), 60)},
        {"skew in a PDF", drawing::imagePdf({drawing::turned(page, -2)})},
        {"on its side", drawing::jpeg(drawing::turned(page, 90), 60)},
        {"photo", drawing::jpeg(drawing::photographed(page), 75)},
        {"photo in a PDF", drawing::imagePdf({drawing::photographed(page)})},
    };
    for (const auto& [name, file] : rows) {
        const DocumentReading reading = readingOf(file);
        ASSERT_EQ(reading.pages.size(), 1U) << name;
        ASSERT_EQ(reading.pages[0].symbols.size(), 1U) << name;
        const PageSymbol& symbol = reading.pages[0].symbols[0];
        EXPECT_EQ(symbol.bytes, allBytes()) << name;
        // On the upright page it stands where it was drawn, whatever became of the sheet.
        EXPECT_NEAR(symbol.place.left, 20 * 72 / 25.4, 25) << name;
        EXPECT_NEAR(symbol.place.top, 120 * 72 / 25.4, 25) << name;
        const auto amount = std::ranges::find(reading.pages[0].words, "12'345.60", &PageWord::text);
        if (amount != reading.pages[0].words.end()) {
            EXPECT_NEAR(amount->place.left, 155 * 72 / 25.4, 25) << name;
        }
    }
}

/// For the plain rules: six pages, three symbologies, forty characters.
TEST(Symbols, thePlainRulesKnowSomeOfThem) {
    const std::string longText = "Grüezi " + std::string(60, 'x');
    std::vector<QStringList> texts(8, statement);
    std::vector<QImage> codes(8);
    codes[0] = drawing::symbol(BARCODE_CODE128, "1962212345001001");
    codes[1] = drawing::symbol(BARCODE_QRCODE, longText);
    codes[5] = drawing::symbol(BARCODE_DATAMATRIX, "sechs");
    codes[6] = drawing::symbol(BARCODE_QRCODE, "sieben");
    const TestFolder folder;
    const ScanResult result =
        DocumentScanner::scan(folder.write("eight.pdf", drawing::textPdf(texts, codes)));
    EXPECT_EQ(result.problem, std::nullopt);
    EXPECT_EQ(result.barcodes,
              (std::vector<std::string>{"QR:Grüezi " + std::string(33, 'x'), "DataMatrix:sechs"}));
    EXPECT_EQ(result.pageCount, 8);
}

PageFound pageWith(int number, std::vector<PageSymbol> symbols) {
    PageFound found;
    found.reading.number = number;
    found.reading.symbols = std::move(symbols);
    return found;
}

PageSymbol part(int index, int count) {
    return {.symbology = Symbology::pdf417,
            .bytes = "x",
            .part = PageSymbol::Part{.index = index, .count = count, .message = "7"}};
}

PageSymbol statementPage(const char* digits) {
    return {.symbology = Symbology::code128, .bytes = digits};
}

TEST(WorkList, beginsAtTheEndAndStopsWhenAStatementIsComplete) {
    const auto tasks = [] {
        std::vector<PageTask> list;
        for (int page = 1; page <= 5; ++page) {
            list.push_back({.page = page});
        }
        return list;
    };
    WorkList whole(tasks());
    EXPECT_EQ(whole.next()->page, 5);
    whole.add(pageWith(5, {part(1, 2), statementPage("1962212345005001")}));
    EXPECT_EQ(whole.next()->page, 4) << "the rest of the message stands before";
    whole.add(pageWith(4, {part(0, 2)}));
    for (int page = 1; page <= 3; ++page) {
        const auto task = whole.next();
        EXPECT_EQ(task->page, page);
        EXPECT_FALSE(task->wantsSymbols) << "all data are there";
    }
    EXPECT_EQ(whole.next(), std::nullopt);

    // A statement that ends within the file may be followed, or preceded, by another.
    WorkList several(tasks());
    several.next();
    several.add(pageWith(5, {part(0, 1), statementPage("1962212345002001")}));
    EXPECT_TRUE(several.next()->wantsSymbols);
}

} // namespace
} // namespace fiscarel::reader
