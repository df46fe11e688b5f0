#pragma once

#include "tests/documents/corpus/kit/Paper.h"

#include <QByteArray>
#include <vector>

namespace corpus {

/// Dark modules of a barcode, in module widths.
struct Symbol {
    double width = 0;
    double height = 0;
    std::vector<QRectF> dark;

    /// Draws it with modules of `module` millimetres.
    void put(Paper& paper, double x, double y, double module) const;
    void putTurned(Paper& paper, double x, double y,
                   double module) const; ///< a quarter to the left
};

/// Data in a PDF417 of so many columns; `index` of `count` parts of a sequence when count > 1.
Symbol pdf417(const QByteArray& data, int columns, int index = 1, int count = 1,
              const QString& sequence = {});
Symbol code128(const QString& text);
Symbol qrCode(const QString& text);

/// A ZIP with one entry.
QByteArray zipped(const QByteArray& content, const char* entry);
/// Its parts for symbols of at most `partSize` bytes, with the 14 bytes of header before each.
std::vector<QByteArray> salaryParts(const QByteArray& zip, quint32 documentId, int parts);
/// A zlib stream.
QByteArray deflated(const QByteArray& content);

} // namespace corpus
