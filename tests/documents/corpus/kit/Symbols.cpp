#include "tests/documents/corpus/kit/Symbols.h"

#include <zint.h>
#include <zip.h>
#include <zlib.h>

#include <QFile>
#include <QTemporaryDir>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace corpus {
namespace {

using Zint = std::unique_ptr<zint_symbol, decltype(&ZBarcode_Delete)>;

Symbol encoded(zint_symbol* symbol, const QByteArray& data) {
    symbol->scale = 0.5F; // one unit of the vectors is then one module
    symbol->show_hrt = 0;
    const QByteArray copy = data;
    const int failed = ZBarcode_Encode_and_Buffer_Vector(
        symbol, reinterpret_cast<const unsigned char*>(copy.constData()),
        static_cast<int>(copy.size()), 0);
    if (failed >= ZINT_ERROR || symbol->vector == nullptr) {
        throw std::runtime_error(symbol->errtxt);
    }
    Symbol result;
    result.width = static_cast<double>(symbol->vector->width);
    result.height = static_cast<double>(symbol->vector->height);
    for (const auto* bar = symbol->vector->rectangles; bar != nullptr; bar = bar->next) {
        result.dark.emplace_back(static_cast<double>(bar->x), static_cast<double>(bar->y),
                                 static_cast<double>(bar->width), static_cast<double>(bar->height));
    }
    return result;
}

Zint symbolOf(int symbology, int mode) {
    Zint symbol(ZBarcode_Create(), &ZBarcode_Delete);
    symbol->symbology = symbology;
    symbol->input_mode = mode;
    return symbol;
}

void append(QByteArray& bytes, quint32 value, int count) {
    for (int shift = 8 * (count - 1); shift >= 0; shift -= 8) {
        bytes.append(static_cast<char>((value >> static_cast<unsigned>(shift)) & 0xffU));
    }
}

} // namespace

void Symbol::put(Paper& paper, double x, double y, double module) const {
    for (const QRectF& bar : dark) {
        paper.fill(x + bar.x() * module, y + bar.y() * module, bar.width() * module,
                   bar.height() * module);
    }
}

void Symbol::putTurned(Paper& paper, double x, double y, double module) const {
    for (const QRectF& bar : dark) {
        paper.fill(x + bar.y() * module, y + (width - bar.right()) * module, bar.height() * module,
                   bar.width() * module);
    }
}

Symbol pdf417(const QByteArray& data, int columns, int index, int count, const QString& sequence) {
    const Zint symbol = symbolOf(BARCODE_PDF417, DATA_MODE);
    symbol->option_1 = 4;
    symbol->option_2 = columns;
    if (count > 1) {
        symbol->structapp.index = index;
        symbol->structapp.count = count;
        const QByteArray id = sequence.toLatin1().left(31);
        std::memcpy(symbol->structapp.id, id.constData(), static_cast<size_t>(id.size()));
    }
    return encoded(symbol.get(), data);
}

Symbol code128(const QString& text) {
    const Zint symbol = symbolOf(BARCODE_CODE128, UNICODE_MODE);
    symbol->height = 24;
    return encoded(symbol.get(), text.toUtf8());
}

Symbol qrCode(const QString& text) {
    const Zint symbol = symbolOf(BARCODE_QRCODE, UNICODE_MODE);
    symbol->option_1 = 2;
    symbol->eci = 26;
    return encoded(symbol.get(), text.toUtf8());
}

QByteArray zipped(const QByteArray& content, const char* entry) {
    const QTemporaryDir folder;
    const QByteArray path = QFile::encodeName(folder.filePath("payload.zip"));
    int error = 0;
    zip_t* archive = zip_open(path.constData(), ZIP_CREATE, &error);
    zip_source_t* source = zip_source_buffer(archive, content.constData(),
                                             static_cast<zip_uint64_t>(content.size()), 0);
    const zip_int64_t index = zip_file_add(archive, entry, source, ZIP_FL_ENC_UTF_8);
    zip_file_set_mtime(archive, static_cast<zip_uint64_t>(index), 1577872800, 0);
    zip_close(archive);
    QFile file(QFile::decodeName(path));
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("no payload");
    }
    return file.readAll();
}

std::vector<QByteArray> salaryParts(const QByteArray& zip, quint32 documentId, int parts) {
    std::vector<QByteArray> all;
    const qsizetype size = (zip.size() + parts - 1) / parts;
    for (int part = 1; part <= parts; ++part) {
        const QByteArray data = zip.mid((part - 1) * size, size);
        QByteArray symbol;
        append(symbol, documentId, 4);
        append(symbol, 0x7a00, 2);
        append(symbol, static_cast<quint32>(data.size() + 14), 2);
        append(symbol, static_cast<quint32>(part), 1);
        append(symbol, 3, 1);
        append(symbol, static_cast<quint32>(part), 2);
        append(symbol, static_cast<quint32>(parts), 2);
        all.push_back(symbol + data);
    }
    return all;
}

QByteArray deflated(const QByteArray& content) {
    uLongf size = compressBound(static_cast<uLong>(content.size()));
    QByteArray result(static_cast<qsizetype>(size), '\0');
    compress2(reinterpret_cast<Bytef*>(result.data()), &size,
              reinterpret_cast<const Bytef*>(content.constData()),
              static_cast<uLong>(content.size()), 9);
    result.truncate(static_cast<qsizetype>(size));
    return result;
}

} // namespace corpus
