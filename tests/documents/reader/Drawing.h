#pragma once

#include <QImage>
#include <QString>
#include <QStringList>
#include <optional>
#include <string>
#include <vector>

namespace drawing {

inline constexpr int dpi = 300;

/// A sheet of A4 at 300 dpi with these lines, the first at the top; a tab begins the column of
/// amounts.
QImage page(const QStringList& lines);

/// The part of a message that a symbol holds.
struct Part {
    int index = 0; ///< from 0
    int count = 1;
    std::string id; ///< as the symbology wants it: digits for PDF417
};

/// A barcode in pixels; `symbology` as zint counts them.
QImage symbol(int symbology, const std::string& bytes, const std::optional<Part>& part = {});

/// Puts a picture on a page, its corner so many millimetres from the upper left.
void put(QImage& page, const QImage& picture, int x, int y);

/// Turned clockwise, on a sheet of the same kind; quarter turns keep all pixels.
QImage turned(const QImage& page, double degrees);

/// As a camera sees a sheet on a table, from the side and in uneven light.
QImage photographed(const QImage& page);

/// What lies right of a slanting line in deep shadow: half of the sheet is darker than the table.
QImage shaded(QImage photo);

/// The content of image files.
std::string png(const QImage& image);
std::string jpeg(const QImage& image, int quality);
std::string webp(const QImage& image);
std::string tiff(const std::vector<QImage>& pages);
/// Empty where no encoder is installed.
std::string heic(const QImage& image);
/// A JPEG whose Exif data tells how the camera was held, 1 to 8.
std::string withOrientation(const std::string& jpegFile, int orientation);

/// A PDF whose pages have a text layer, these lines each.
std::string textPdf(const std::vector<QStringList>& pages);
/// The same with a picture on each page at 20, 120 mm.
std::string textPdf(const std::vector<QStringList>& pages, const std::vector<QImage>& pictures);
/// A PDF of scans.
std::string imagePdf(const std::vector<QImage>& pages);

} // namespace drawing
