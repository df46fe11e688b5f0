#include "tests/documents/corpus/kit/Files.h"

#include "tests/documents/corpus/kit/Symbols.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

namespace corpus {
namespace {

constexpr double millimetresPerInch = 25.4;

void little(QByteArray& bytes, quint32 value, int count) {
    for (int i = 0; i < count; ++i) {
        bytes.append(static_cast<char>((value >> static_cast<unsigned>(8 * i)) & 0xffU));
    }
}

void tag(QByteArray& bytes, quint32 id, quint32 type, quint32 value) {
    little(bytes, id, 2);
    little(bytes, type, 2);
    little(bytes, 1, 4);
    little(bytes, value, 4);
}

QByteArray greyBytes(const QImage& image) {
    const QImage grey = image.convertToFormat(QImage::Format_Grayscale8);
    QByteArray bytes;
    for (int y = 0; y < grey.height(); ++y) {
        bytes.append(reinterpret_cast<const char*>(grey.constScanLine(y)), grey.width());
    }
    return bytes;
}

/// Collects the objects of a PDF and their offsets.
class PdfObjects {
  public:
    void add(const QByteArray& body) {
        offsets_.push_back(data_.size());
        data_ += QByteArray::number(static_cast<int>(offsets_.size())) + " 0 obj\n" + body
                 + "\nendobj\n";
    }
    QByteArray closed() {
        const qsizetype start = data_.size();
        const QByteArray count = QByteArray::number(static_cast<int>(offsets_.size()) + 1);
        data_ += "xref\n0 " + count + "\n0000000000 65535 f \n";
        for (const qsizetype offset : offsets_) {
            data_ += QByteArray::number(offset).rightJustified(10, '0') + " 00000 n \n";
        }
        return data_ + "trailer\n<< /Size " + count + " /Root 1 0 R >>\nstartxref\n"
               + QByteArray::number(start) + "\n%%EOF\n";
    }

  private:
    QByteArray data_ = "%PDF-1.4\n";
    std::vector<qsizetype> offsets_;
};

QByteArray stream(const QByteArray& dictionary, const QByteArray& content) {
    return "<< " + dictionary + " /Length " + QByteArray::number(content.size()) + " >>\nstream\n"
           + content + "\nendstream";
}

} // namespace

void writeTextPdf(const Paper& paper, const QString& path) {
    constexpr int resolution = 1200;
    QPdfWriter writer(path);
    writer.setResolution(resolution);
    writer.setTitle("Dokument");
    const auto layout = [&](int page) {
        const bool wide = paper.pageSize(page).width() > 250;
        return QPageLayout(QPageSize(QPageSize::A4),
                           wide ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
    };
    writer.setPageLayout(layout(0));
    QPainter painter(&writer);
    for (int page = 0; page < paper.pageCount(); ++page) {
        if (page > 0) {
            writer.setPageLayout(layout(page));
            writer.newPage();
        }
        paper.draw(page, painter, resolution / millimetresPerInch);
    }
}

QImage picture(const Paper& paper, int page, double dpi) {
    const double scale = dpi / millimetresPerInch;
    QImage image((paper.pageSize(page) * scale).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    paper.draw(page, painter, scale);
    return image;
}

QByteArray jpeg(const QImage& image, int quality) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPEG", quality);
    return bytes;
}

QByteArray picturePdf(const std::vector<QImage>& pages, double dpi, int quality) {
    PdfObjects objects;
    objects.add("<< /Type /Catalog /Pages 2 0 R >>");
    QByteArray kids;
    for (size_t i = 0; i < pages.size(); ++i) {
        kids += QByteArray::number(static_cast<int>(3 + 3 * i)) + " 0 R ";
    }
    objects.add("<< /Type /Pages /Kids [" + kids + "] /Count "
                + QByteArray::number(static_cast<int>(pages.size())) + " >>");
    for (size_t i = 0; i < pages.size(); ++i) {
        const QImage& image = pages[i];
        const int first = static_cast<int>(3 + 3 * i);
        const QByteArray width = QByteArray::number(image.width() * 72 / dpi, 'f', 2);
        const QByteArray height = QByteArray::number(image.height() * 72 / dpi, 'f', 2);
        objects.add("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + width + " " + height
                    + "] /Contents " + QByteArray::number(first + 1)
                    + " 0 R /Resources << /XObject << /I " + QByteArray::number(first + 2)
                    + " 0 R >> >> >>");
        objects.add(stream("", "q " + width + " 0 0 " + height + " 0 0 cm /I Do Q"));
        objects.add(stream("/Type /XObject /Subtype /Image /Width "
                               + QByteArray::number(image.width()) + " /Height "
                               + QByteArray::number(image.height()) + " /ColorSpace "
                               + (image.isGrayscale() ? "/DeviceGray" : "/DeviceRGB")
                               + " /BitsPerComponent 8 /Filter /DCTDecode",
                           jpeg(image, quality)));
    }
    return objects.closed();
}

QByteArray tiff(const std::vector<QImage>& pages, double dpi) {
    constexpr quint32 shortType = 3;
    constexpr quint32 longType = 4;
    constexpr quint32 rationalType = 5;
    QByteArray file("II*\0", 4);
    qsizetype link = file.size(); // where the offset of the next directory belongs
    little(file, 0, 4);
    for (const QImage& page : pages) {
        const QByteArray strip = deflated(greyBytes(page));
        const auto stripAt = static_cast<quint32>(file.size());
        file += strip;
        const auto dpiAt = static_cast<quint32>(file.size());
        little(file, static_cast<quint32>(dpi), 4);
        little(file, 1, 4);
        file.append(file.size() % 2, '\0');
        QByteArray offset;
        little(offset, static_cast<quint32>(file.size()), 4);
        file.replace(link, 4, offset);
        little(file, 12, 2);
        tag(file, 256, longType, static_cast<quint32>(page.width()));
        tag(file, 257, longType, static_cast<quint32>(page.height()));
        tag(file, 258, shortType, 8);
        tag(file, 259, shortType, 8); // deflate
        tag(file, 262, shortType, 1); // black is zero
        tag(file, 273, longType, stripAt);
        tag(file, 277, shortType, 1);
        tag(file, 278, longType, static_cast<quint32>(page.height()));
        tag(file, 279, longType, static_cast<quint32>(strip.size()));
        tag(file, 282, rationalType, dpiAt);
        tag(file, 283, rationalType, dpiAt);
        tag(file, 296, shortType, 2); // inches
        link = file.size();
        little(file, 0, 4);
    }
    return file;
}

QByteArray withOrientation(const QByteArray& jpegData, int orientation) {
    QByteArray exif("Exif\0\0II*\0", 10);
    little(exif, 8, 4);
    little(exif, 1, 2);
    tag(exif, 0x0112, 3, static_cast<quint32>(orientation));
    little(exif, 0, 4);
    QByteArray segment("\xff\xe1", 2);
    const auto length = static_cast<quint32>(exif.size() + 2);
    segment.append(static_cast<char>(length >> 8U));
    segment.append(static_cast<char>(length & 0xffU));
    return jpegData.left(2) + segment + exif + jpegData.mid(2);
}

} // namespace corpus
