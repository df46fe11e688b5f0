#pragma once

#include "tests/documents/corpus/kit/Paper.h"

#include <QImage>
#include <vector>

namespace corpus {

/// A PDF with text layer and vectors.
void writeTextPdf(const Paper& paper, const QString& path);
/// The page as a picture.
QImage picture(const Paper& paper, int page, double dpi);

/// Pages that are nothing but a JPEG each.
QByteArray picturePdf(const std::vector<QImage>& pages, double dpi, int quality);
/// Several grey pages, deflated.
QByteArray tiff(const std::vector<QImage>& pages, double dpi);
QByteArray jpeg(const QImage& image, int quality);
/// Puts an EXIF block with this orientation (1 to 8) into a JPEG.
QByteArray withOrientation(const QByteArray& jpegData, int orientation);

} // namespace corpus
