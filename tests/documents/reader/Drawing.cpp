#include "tests/documents/reader/Drawing.h"

#include <leptonica/allheaders.h>
#include <libheif/heif.h>
#include <zint.h>

#include <QBuffer>
#include <QFont>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPolygonF>
#include <QRandomGenerator>
#include <QTransform>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace drawing {

namespace {

constexpr int pageWidth = 2480;
constexpr int pageHeight = 3508;

int pixels(int millimetres) { return millimetres * dpi * 10 / 254; }

void drawLines(QPainter& painter, const QStringList& lines) {
    QFont font(QStringLiteral("Roboto"));
    font.setPixelSize(46);
    painter.setFont(font);
    painter.setPen(Qt::black);
    int y = pixels(20);
    for (const QString& line : lines) {
        const QStringList columns = line.split(u'\t');
        painter.drawText(pixels(20), y, columns[0]);
        for (qsizetype i = 1; i < columns.size(); ++i) {
            painter.drawText(pixels(120) + pixels(35) * static_cast<int>(i), y, columns[i]);
        }
        y += 80;
    }
}

std::string encoded(const QImage& image, const char* format, int quality) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, quality);
    return bytes.toStdString();
}

} // namespace

QImage page(const QStringList& lines) {
    QImage image(pageWidth, pageHeight, QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDotsPerMeterX(11811);
    image.setDotsPerMeterY(11811);
    QPainter painter(&image);
    drawLines(painter, lines);
    return image;
}

QImage symbol(int symbology, const std::string& bytes, const std::optional<Part>& part) {
    zint_symbol* const code = ZBarcode_Create();
    code->symbology = symbology;
    code->input_mode = DATA_MODE;
    code->scale = 2.0F;
    code->border_width = 4;
    code->output_options |= BARCODE_QUIET_ZONES;
    if (symbology == BARCODE_PDF417) {
        code->option_2 = 10;
    } else if (symbology == BARCODE_DATAMATRIX) {
        code->option_3 = DM_SQUARE;
    }
    if (part) {
        code->structapp.index = part->index + 1;
        code->structapp.count = part->count;
        part->id.copy(code->structapp.id, sizeof code->structapp.id);
    }
    const int failed =
        ZBarcode_Encode_and_Buffer(code, reinterpret_cast<const unsigned char*>(bytes.data()),
                                   static_cast<int>(bytes.size()), 0);
    if (failed >= ZINT_ERROR) {
        throw std::runtime_error(code->errtxt);
    }
    QImage image(code->bitmap_width, code->bitmap_height, QImage::Format_RGB32);
    const unsigned char* from = code->bitmap;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x, from += 3) {
            image.setPixel(x, y, qRgb(from[0], from[1], from[2]));
        }
    }
    ZBarcode_Delete(code);
    return image;
}

void put(QImage& page, const QImage& picture, int x, int y) {
    QPainter painter(&page);
    painter.drawImage(pixels(x), pixels(y), picture);
}

QImage turned(const QImage& page, double degrees) {
    QTransform turn;
    turn.rotate(degrees);
    if (static_cast<int>(degrees) % 90 == 0) {
        return page.transformed(turn);
    }
    QImage result(page.size(), page.format());
    result.fill(Qt::white);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(page.width() / 2.0, page.height() / 2.0);
    painter.rotate(degrees);
    painter.drawImage(QPointF(-page.width() / 2.0, -page.height() / 2.0), page);
    return result;
}

QImage photographed(const QImage& page) {
    QImage photo(3000, 4000, QImage::Format_RGB32);
    QRandomGenerator random(7);
    for (int y = 0; y < photo.height(); ++y) {
        for (int x = 0; x < photo.width(); ++x) {
            const int grain = static_cast<int>(random.bounded(24)) + (y / 40 % 2) * 8;
            photo.setPixel(x, y, qRgb(70 + grain, 50 + grain, 35 + grain));
        }
    }
    const QPolygonF sheet({{0, 0},
                           {1.0 * page.width(), 0},
                           {1.0 * page.width(), 1.0 * page.height()},
                           {0, 1.0 * page.height()}});
    const QPolygonF seen({{420, 330}, {2640, 280}, {2800, 3700}, {210, 3640}});
    QTransform view;
    QTransform::quadToQuad(sheet, seen, view);
    QPainter painter(&photo);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setTransform(view);
    painter.drawImage(0, 0, page);
    painter.end();
    // The light falls from the upper left.
    for (int y = 0; y < photo.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(photo.scanLine(y));
        for (int x = 0; x < photo.width(); ++x) {
            const int light = 256 - 90 * (x + y) / (photo.width() + photo.height());
            line[x] = qRgb(qRed(line[x]) * light / 256, qGreen(line[x]) * light / 256,
                           qBlue(line[x]) * light / 256);
        }
    }
    photo.setDotsPerMeterX(2835);
    photo.setDotsPerMeterY(2835);
    return photo;
}

QImage shaded(QImage photo) {
    constexpr int soft = 200;  // pixels over which it grows
    constexpr int depth = 176; // of 256
    for (int y = 0; y < photo.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(photo.scanLine(y));
        for (int x = 0; x < photo.width(); ++x) {
            const int within = std::clamp(x + y / 3 - photo.width() * 2 / 3, 0, soft);
            const int light = 256 - depth * within / soft;
            line[x] = qRgb(qRed(line[x]) * light / 256, qGreen(line[x]) * light / 256,
                           qBlue(line[x]) * light / 256);
        }
    }
    return photo;
}

std::string png(const QImage& image) { return encoded(image, "PNG", -1); }
std::string jpeg(const QImage& image, int quality) { return encoded(image, "JPEG", quality); }

namespace {

Pix* pixOf(const QImage& image) {
    Pix* const pix = pixCreate(image.width(), image.height(), 8);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            pixSetPixel(pix, x, y, static_cast<l_uint32>(qGray(image.pixel(x, y))));
        }
    }
    pixSetResolution(pix, dpi, dpi);
    return pix;
}

std::string taken(l_uint8* data, std::size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    lept_free(data);
    return bytes;
}

} // namespace

std::string webp(const QImage& image) {
    Pix* grey = pixOf(image);
    Pix* colour = pixConvertTo32(grey);
    l_uint8* data = nullptr;
    std::size_t size = 0;
    pixWriteMemWebP(&data, &size, colour, 80, 0);
    pixDestroy(&grey);
    pixDestroy(&colour);
    return taken(data, size);
}

std::string tiff(const std::vector<QImage>& pages) {
    Pixa* pixa = pixaCreate(static_cast<int>(pages.size()));
    for (const QImage& image : pages) {
        Pix* grey = pixOf(image);
        pixaAddPix(pixa, pixThresholdToBinary(grey, 128), L_INSERT);
        pixDestroy(&grey);
    }
    l_uint8* data = nullptr;
    std::size_t size = 0;
    pixaWriteMemMultipageTiff(&data, &size, pixa);
    pixaDestroy(&pixa);
    return taken(data, size);
}

std::string heic(const QImage& image) {
    heif_context* const context = heif_context_alloc();
    heif_encoder* encoder = nullptr;
    std::string bytes;
    if (heif_context_get_encoder_for_format(context, heif_compression_HEVC, &encoder).code
        == heif_error_Ok) {
        heif_encoder_set_lossy_quality(encoder, 70);
        heif_image* picture = nullptr;
        heif_image_create(image.width(), image.height(), heif_colorspace_RGB,
                          heif_chroma_interleaved_RGB, &picture);
        heif_image_add_plane(picture, heif_channel_interleaved, image.width(), image.height(), 8);
        int stride = 0;
        std::uint8_t* const plane =
            heif_image_get_plane(picture, heif_channel_interleaved, &stride);
        const QImage rgb = image.convertToFormat(QImage::Format_RGB888);
        for (int y = 0; y < rgb.height(); ++y) {
            std::memcpy(plane + std::ptrdiff_t{stride} * y, rgb.constScanLine(y),
                        static_cast<std::size_t>(rgb.width()) * 3);
        }
        heif_context_encode_image(context, picture, encoder, nullptr, nullptr);
        heif_writer writer{1, [](heif_context*, const void* data, std::size_t size, void* to) {
                               static_cast<std::string*>(to)->assign(static_cast<const char*>(data),
                                                                     size);
                               return heif_error{heif_error_Ok, heif_suberror_Unspecified, ""};
                           }};
        heif_context_write(context, &writer, &bytes);
        heif_image_release(picture);
        heif_encoder_release(encoder);
    }
    heif_context_free(context);
    return bytes;
}

std::string withOrientation(const std::string& jpegFile, int orientation) {
    std::string tiffData("MM\0\x2A\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0", 19);
    tiffData += static_cast<char>(orientation);
    tiffData += std::string(6, '\0');
    const std::string data = std::string("Exif\0\0", 6) + tiffData;
    const std::size_t size = data.size() + 2;
    std::string segment("\xFF\xE1");
    segment += static_cast<char>(size >> 8U);
    segment += static_cast<char>(size & 0xFFU);
    return jpegFile.substr(0, 2) + segment + data + jpegFile.substr(2);
}

namespace {

template <class Draw>
std::string pdf(std::size_t pages, const Draw& draw) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(dpi);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF());
    QPainter painter(&writer);
    for (std::size_t i = 0; i < pages; ++i) {
        if (i > 0) {
            writer.newPage();
        }
        draw(painter, i);
    }
    painter.end();
    return bytes.toStdString();
}

} // namespace

std::string textPdf(const std::vector<QStringList>& pages) { return textPdf(pages, {}); }

std::string textPdf(const std::vector<QStringList>& pages, const std::vector<QImage>& pictures) {
    return pdf(pages.size(), [&](QPainter& painter, std::size_t i) {
        drawLines(painter, pages[i]);
        if (i < pictures.size() && !pictures[i].isNull()) {
            painter.drawImage(pixels(20), pixels(120), pictures[i]);
        }
    });
}

std::string imagePdf(const std::vector<QImage>& pages) {
    return pdf(pages.size(), [&](QPainter& painter, std::size_t i) {
        painter.drawImage(QRect(0, 0, pageWidth, pageHeight), pages[i]);
    });
}

} // namespace drawing
