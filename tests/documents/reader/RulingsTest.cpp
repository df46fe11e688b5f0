// What is wiped off a page before it is recognised, and what stays.

#include "reader/Rulings.h"

#include "tests/documents/reader/Drawing.h"

#include <gtest/gtest.h>
#include <leptonica/allheaders.h>

#include <QPainter>

namespace fiscarel::reader {
namespace {

using namespace Qt::StringLiterals;

Picture pictureOf(const QImage& image) {
    const QImage grey = image.convertToFormat(QImage::Format_Grayscale8);
    Picture picture{.grey = PixPtr(pixCreate(grey.width(), grey.height(), 8)), .dpi = drawing::dpi};
    for (int y = 0; y < grey.height(); ++y) {
        for (int x = 0; x < grey.width(); ++x) {
            pixSetPixel(picture.grey.get(), x, y, grey.constScanLine(y)[x]);
        }
    }
    return picture;
}

/// How many pixels of a part of a picture are darker than the paper.
int inkIn(const Picture& picture, QRect part) {
    constexpr l_uint32 paper = 215;
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            l_uint32 value = 0;
            pixGetPixel(picture.grey.get(), x, y, &value);
            count += value < paper ? 1 : 0;
        }
    }
    return count;
}

TEST(Rulings, linesGoWhateverTheirShadeAndWritingStays) {
    QImage page = drawing::page(
        {u"SPARKONTO – Zins EEE\t12'345.60"_s, u"______ Überschrift ======\t98.75"_s});
    page = page.convertToFormat(QImage::Format_RGB32);
    const QRect writing(0, 0, page.width(), page.height() / 2);
    const int written = inkIn(pictureOf(page), writing);
    const QRect table(100, page.height() * 2 / 3, 2000, 600);
    {
        QPainter painter(&page);
        int y = table.top() + 40;
        for (const int shade : {0, 120, 190}) {
            for (const int breadth : {1, 3}) {
                for (const double slant : {0.0, 0.005}) {
                    painter.setPen(QPen(QColor(shade, shade, shade), breadth));
                    painter.drawLine(QPointF(150, y), QPointF(1900, y + slant * 1750));
                    y += 40;
                }
            }
        }
        painter.setPen(QPen(Qt::black, 2));
        painter.drawLine(170, table.top() + 20, 170, table.bottom() - 20);
    }
    Picture picture = pictureOf(page);
    ASSERT_GT(inkIn(picture, table), 20'000);
    wipeRulings(picture);
    EXPECT_LT(inkIn(picture, table), 200);
    EXPECT_EQ(inkIn(picture, writing), written);
}

TEST(Rulings, bandsBarsAndNothingStayAsTheyAre) {
    QImage page = drawing::page({}).convertToFormat(QImage::Format_RGB32);
    QPainter painter(&page);
    painter.fillRect(200, 400, 1800, 60, QColor(205, 205, 205)); // the head of a table
    for (int i = 0; i < 40; ++i) {
        painter.fillRect(200 + 10 * i, 900, 1 + i % 4, 90, Qt::black); // a barcode
    }
    painter.end();
    Picture picture = pictureOf(page);
    const QRect whole = page.rect();
    const int before = inkIn(picture, whole);
    wipeRulings(picture);
    EXPECT_EQ(inkIn(picture, whole), before);
    Picture none;
    wipeRulings(none);
    EXPECT_FALSE(none);
}

} // namespace
} // namespace fiscarel::reader
