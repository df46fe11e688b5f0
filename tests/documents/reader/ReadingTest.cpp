// What is read from documents of every format, straight and askew.

#include "Fiscarel_SG/DocumentScanner.h"
#include "tests/documents/reader/Drawing.h"
#include "tests/documents/reader/Files.h"

#include <gtest/gtest.h>
#include <zint.h>

#include <QElapsedTimer>

namespace fiscarel {
namespace {

using namespace Qt::StringLiterals;

const QStringList billLines{u"Gemeinschaftspraxis am Rhein"_s,
                            u"Rechnung für das Jahr 2025"_s,
                            u"Behandlung vom Februar\t1'250.40"_s,
                            u"Behandlung vom Oktober\t730.00"_s,
                            u"Der Betrag ist innert dreissig Tagen zahlbar."_s,
                            u"Freundliche Grüsse aus Sevelen und Buchs"_s,
                            u"Beilage: Kopie für die Krankenversicherung"_s,
                            u"Rechnungsbetrag\t1'980.40"_s};

/// Words that a reader must have found, most of them.
void expectBill(const ScanResult& result, const char* what) {
    EXPECT_EQ(result.problem, std::nullopt) << what << ": " << *result.problem;
    EXPECT_EQ(result.kind, StoredDocument::Kind::arztrechnung) << what << "\n" << result.text;
    EXPECT_NE(result.text.find("Gemeinschaftspraxis"), std::string::npos) << what << "\n"
                                                                          << result.text;
    ASSERT_EQ(result.fields.size(), 1U) << what << "\n" << result.text;
    EXPECT_EQ(result.fields[0].value, Decimal::parse("1980.40").value()) << what;
}

TEST(Reading, aBillInEveryFormat) {
    const QImage page = drawing::page(billLines);
    const TestFolder folder;
    const struct {
        const char* name;
        std::string bytes;
        int pages = 1;
    } rows[]{
        {"text.pdf", drawing::textPdf({billLines})},
        {"scan.pdf", drawing::imagePdf({page})},
        {"bill.png", drawing::png(page)},
        {"bill.jpg", drawing::jpeg(page, 80)},
        {"bill.tif", drawing::tiff({page, drawing::page({u"Blatt zwei von zwei"_s})}), 2},
        {"bill.webp", drawing::webp(page)},
        {"bill.heic", drawing::heic(page)},
        {"misnamed.pdf", drawing::png(page)},
    };
    for (const auto& [name, bytes, pages] : rows) {
        if (bytes.empty()) {
            std::cout << name << ": no encoder here\n";
            continue;
        }
        const ScanResult result = DocumentScanner::scan(folder.write(name, bytes));
        expectBill(result, name);
        EXPECT_EQ(result.pageCount, pages) << name;
        EXPECT_EQ(result.text.find("Blatt zwei") != std::string::npos, pages == 2) << name;
    }
}

TEST(Reading, aBillThatLiesAskew) {
    const QImage page = drawing::page(billLines);
    const TestFolder folder;
    const struct {
        const char* name;
        std::string bytes;
    } rows[]{
        {"quarter.png", drawing::png(drawing::turned(page, 90))},
        {"half.png", drawing::png(drawing::turned(page, 180))},
        {"threeQuarters.pdf", drawing::imagePdf({drawing::turned(page, 270)})},
        {"skew.jpg", drawing::jpeg(drawing::turned(page, 2), 60)},
        {"skewLeft.jpg", drawing::jpeg(drawing::turned(page, -3), 60)},
        {"photo.jpg", drawing::jpeg(drawing::photographed(page), 75)},
        {"camera.jpg",
         drawing::withOrientation(
             drawing::jpeg(drawing::turned(drawing::photographed(page), 270), 75), 6)},
        {"shadow.jpg", drawing::jpeg(drawing::shaded(drawing::photographed(page)), 75)},
        {"photo.pdf", drawing::imagePdf({drawing::photographed(page)})},
    };
    for (const auto& [name, bytes] : rows) {
        expectBill(DocumentScanner::scan(folder.write(name, bytes)), name);
    }
}

} // namespace
} // namespace fiscarel
