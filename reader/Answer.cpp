#include "reader/Answer.h"

#include <leptonica/allheaders.h>
#include <unistd.h>

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <cerrno>

namespace fiscarel::reader {

namespace {

using namespace Qt::StringLiterals;

bool writeAll(std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = write(STDOUT_FILENO, text.data(), text.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

QJsonArray jsonOf(const PagePlace& place) {
    return {place.left, place.top, place.right, place.bottom};
}

QString nameOf(PageSymbol::Symbology symbology) {
    switch (symbology) {
    case PageSymbol::Symbology::qr:
        return u"qr"_s;
    case PageSymbol::Symbology::pdf417:
        return u"pdf417"_s;
    case PageSymbol::Symbology::dataMatrix:
        return u"dataMatrix"_s;
    case PageSymbol::Symbology::code128:
        break;
    }
    return u"code128"_s;
}

QJsonObject jsonOf(const PageSymbol& symbol) {
    QJsonObject object{
        {u"symbology"_s, nameOf(symbol.symbology)},
        {u"bytes"_s, QString::fromLatin1(QByteArray::fromStdString(symbol.bytes).toBase64())},
        {u"place"_s, jsonOf(symbol.place)}};
    if (symbol.part) {
        QJsonObject part{{u"index"_s, symbol.part->index},
                         {u"message"_s, QString::fromStdString(symbol.part->message)}};
        if (symbol.part->count) {
            part.insert(u"count"_s, *symbol.part->count);
        }
        object.insert(u"part"_s, part);
    }
    return object;
}

QJsonObject jsonOf(const PageReading& page) {
    QJsonArray words;
    for (const PageWord& word : page.words) {
        words.append(QJsonObject{{u"text"_s, QString::fromStdString(word.text)},
                                 {u"place"_s, jsonOf(word.place)},
                                 {u"certainty"_s, word.certainty}});
    }
    QJsonArray symbols;
    for (const PageSymbol& symbol : page.symbols) {
        symbols.append(jsonOf(symbol));
    }
    return {{u"number"_s, page.number}, {u"width"_s, page.width},
            {u"height"_s, page.height}, {u"isRecognised"_s, page.isRecognised},
            {u"words"_s, words},        {u"symbols"_s, symbols}};
}

} // namespace

void Answer::progress(int done, int total) {
    writeAll("progress " + std::to_string(done) + ' ' + std::to_string(total) + '\n');
}

bool Answer::give(std::string_view kind, std::string_view bytes) {
    return writeAll(std::string(kind) + ' ' + std::to_string(bytes.size()) + '\n')
           && writeAll(bytes);
}

std::string readingJson(const DocumentReading& reading) {
    QJsonArray pages;
    for (const PageReading& page : reading.pages) {
        pages.append(jsonOf(page));
    }
    const QJsonObject object{{u"text"_s, QString::fromStdString(reading.text)},
                             {u"pageCount"_s, reading.pageCount},
                             {u"pages"_s, pages}};
    return QJsonDocument(object).toJson().toStdString();
}

std::string pngOf(const PixPtr& pix) {
    l_uint8* data = nullptr;
    std::size_t size = 0;
    std::string png;
    if (pix && pixWriteMemPng(&data, &size, pix.get(), 0) == 0) {
        png.assign(reinterpret_cast<const char*>(data), size);
    }
    lept_free(data);
    return png;
}

} // namespace fiscarel::reader
