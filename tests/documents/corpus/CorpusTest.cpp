#include "tests/documents/corpus/Corpus.h"

#include "Fiscarel_SG/documents/Proposal.h"
#include "TaxCore/model/Assets.h"
#include "TaxCore/model/Deductions.h"
#include "TaxCore/model/Income.h"
#include "TaxCore/model/Person.h"
#include "tests/documents/corpus/kit/Files.h"

#include <ZXing/ReadBarcode.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QDir>
#include <QImageReader>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace corpus {
namespace {

std::string nameOf(const Order& order) { return order.name().toStdString(); }

/// One clean document per layout and language of both sets.
std::vector<Order> oneOfEach() {
    std::vector<Order> orders = ordersOf({false, 1, {}, {"clean"}});
    const std::vector<Order> held = ordersOf({true, 1, {}, {"clean"}});
    orders.insert(orders.end(), held.begin(), held.end());
    return orders;
}

QString textOf(const QString& pdf) {
    QProcess process;
    process.start("pdftotext", {"-layout", pdf, "-"});
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// "68000.00" with whatever an issuer sets between and behind.
QRegularExpression printedForm(const QString& amount) {
    QString whole = amount.section('.', 0, 0);
    for (qsizetype at = whole.size() - 3; at > 0; at -= 3) {
        whole.insert(at, "[’'`´\\s\\x{a0}\\x{2009}\\x{202f}]?");
    }
    const QString cents = amount.section('.', 1);
    // Some fonts join the dashes of "200.--" to a sign that is no text.
    const QString tail = cents == "00" ? QString("(\\.00|\\.?(?!\\d))") : "\\." + cents;
    return QRegularExpression("(?<!\\d)" + whole + tail + "(?!\\d)");
}

template <class T>
QStringList fieldsOf() {
    QStringList names;
    for (const std::string_view name : taxcore::fieldNames<T>) {
        names += QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
    }
    return names;
}

QMap<QString, QStringList> fieldsByRecord() {
    return {{"salaryCertificate", fieldsOf<taxcore::SalaryCertificate>()},
            {"pension", fieldsOf<taxcore::PensionIncome>()},
            {"personIncome", fieldsOf<taxcore::PersonIncome>()},
            {"personDeductions", fieldsOf<taxcore::PersonDeductions>()},
            {"householdDeductions", fieldsOf<taxcore::HouseholdDeductions>()},
            {"child", fieldsOf<taxcore::Child>()},
            {"medicalCost", fieldsOf<taxcore::MedicalCost>()},
            {"donation", fieldsOf<taxcore::Donation>()},
            {"security", fieldsOf<taxcore::SecurityEntry>()},
            {"debt", fieldsOf<taxcore::Debt>()},
            {"insurancePolicy", fieldsOf<taxcore::InsurancePolicy>()},
            {"realEstate", fieldsOf<taxcore::RealEstate>()}};
}

template <class E>
QStringList rawValues() {
    QStringList raws;
    for (const auto& row : taxcore::EnumTable<E>::rows) {
        raws += QString::fromUtf8(row.raw.data(), static_cast<qsizetype>(row.raw.size()));
    }
    return raws;
}

TEST(DocumentCorpus, seedDecidesEverything) {
    for (const Order& order : oneOfEach()) {
        const Draft one = drawn(order, 7);
        const Draft again = drawn(order, 7);
        const Draft other = drawn(order, 8);
        EXPECT_EQ(one.truth.json(), again.truth.json()) << nameOf(order);
        EXPECT_EQ(one.paper.texts(0), again.paper.texts(0)) << nameOf(order);
        EXPECT_NE(one.paper.texts(0), other.paper.texts(0)) << nameOf(order);
    }
}

TEST(DocumentCorpus, noDocumentOverwritesAnother) {
    for (const bool held : {false, true}) {
        QSet<QString> names;
        for (const Order& order : ordersOf({held, 2, {}, {}})) {
            EXPECT_FALSE(names.contains(order.name())) << nameOf(order);
            names.insert(order.name());
        }
    }
}

TEST(DocumentCorpus, truthNamesKindsAndFieldsOfTheProgram) {
    const QStringList kinds = rawValues<fiscarel::StoredDocument::Kind>();
    const QStringList records = rawValues<fiscarel::ProposedRecord::Kind>();
    const QMap<QString, QStringList> fields = fieldsByRecord();
    for (const Order& order : oneOfEach()) {
        const Truth truth = drawn(order, 3).truth;
        EXPECT_TRUE(kinds.contains(truth.kind)) << nameOf(order);
        EXPECT_EQ(truth.records.empty(), truth.kind == "anderes") << nameOf(order);
        for (const TruthRecord& record : truth.records) {
            EXPECT_TRUE(records.contains(record.kind)) << nameOf(order);
            for (const QString& field : record.values.keys()) {
                EXPECT_TRUE(fields[record.kind].contains(field))
                    << nameOf(order) << " " << field.toStdString();
            }
        }
    }
}

/// A date in one of the forms in which the issuers write it, over a line's end too.
bool hasDate(const Draft& draft, const QString& text, QDate day) {
    const QString letters = QString(text).remove(QRegularExpression("\\s"));
    for (const QString& form : {draft.date(day), draft.longDate(day), day.toString("d.M.yyyy"),
                                day.toString("dd.MM.yy"), day.toString(Qt::ISODate)}) {
        if (letters.contains(QString(form).remove(' '))) {
            return true;
        }
    }
    return false;
}

void expectPrinted(const Draft& draft, const QString& text, const std::string& name) {
    for (const TruthRecord& record : draft.truth.records) {
        for (auto it = record.values.begin(); it != record.values.end(); ++it) {
            const QDate day = QDate::fromString(it.value(), Qt::ISODate);
            EXPECT_TRUE(!day.isValid() || hasDate(draft, text, day))
                << name << " " << it.key().toStdString() << " " << it.value().toStdString();
            if (isAmountField(it.key()) && !record.derived.contains(it.key())) {
                EXPECT_TRUE(text.contains(printedForm(it.value())))
                    << name << " " << it.key().toStdString() << " " << it.value().toStdString();
            }
        }
    }
}

TEST(DocumentCorpus, truthStandsOnThePage) {
    const QTemporaryDir folder;
    for (const Order& order : oneOfEach()) {
        for (const quint64 seed : {2U, 7U, 1001U}) {
            const Draft draft = drawn(order, seed);
            const QString file = writeLook(draft, order, seed, folder.path());
            expectPrinted(draft, textOf(folder.filePath(file)), nameOf(order));
        }
    }
}

TEST(DocumentCorpus, clashesAreSeen) {
    struct Case {
        const char* what;
        bool seen;
        std::function<void(Paper&)> draw;
    };
    const Type figure{9.5, false, Align::right};
    const double label = 22 + Paper().width("Kontostand");
    const double amount = Paper().width("1234.50");
    for (const Case& one : std::vector<Case>{
             {"a column away", false,
              [&](Paper& p) { p.put(label + amount + 3, 50, "1234.50", figure); }},
             {"no gap worth a blank", true,
              [&](Paper& p) { p.put(label + amount + 0.6, 50, "1234.50", figure); }},
             {"into the label", true,
              [&](Paper& p) { p.put(label + amount - 2, 50, "1234.50", figure); }},
             {"the next line", false, [](Paper& p) { p.put(22, 54, "Zins"); }},
             {"half a line below", true, [](Paper& p) { p.put(22, 51.5, "Zins"); }},
             {"underlined", false, [](Paper& p) { p.line(22, 51.5, 90, 51.5); }},
             {"struck out", true, [](Paper& p) { p.line(22, 49, 90, 49); }},
             {"over a border", true, [](Paper& p) { p.line(30, 40, 30, 60); }},
             {"beyond the edge", true, [](Paper& p) { p.put(205, 60, "Kontostand"); }},
             {"on a light band", false,
              [](Paper& p) {
                  p.fill(22, 60, 90, 9, QColor(222, 228, 236));
                  p.put(24, 66, "Zins");
              }},
             {"on a dark band", true,
              [](Paper& p) {
                  p.fill(22, 60, 90, 9, QColor(40, 40, 90));
                  p.put(24, 66, "Zins");
              }},
             {"below a band", true, [](Paper& p) { p.fill(22, 45, 9, 9, Qt::white); }}}) {
        Paper paper;
        paper.newPage();
        paper.put(22, 50, "Kontostand");
        one.draw(paper);
        EXPECT_EQ(!paper.clashes(0).isEmpty(), one.seen) << one.what;
    }
}

TEST(DocumentCorpus, textsKeepApart) {
    for (const bool held : {false, true}) {
        const std::vector<quint64> seeds =
            held ? std::vector<quint64>{7, 1001, 4242} : std::vector<quint64>{7};
        for (const Order& order : ordersOf({held, 4, {}, {"clean"}})) {
            for (const quint64 seed : seeds) {
                const Draft draft = drawn(order, seed);
                for (int page = 0; page < draft.paper.pageCount(); ++page) {
                    EXPECT_EQ(draft.paper.clashes(page).join(", ").toStdString(), "")
                        << nameOf(order);
                }
            }
        }
    }
}

/// The data of the PDF417 symbols of a document by their place in the sequence.
std::map<int, QByteArray> symbolsOf(const Draft& draft) {
    std::map<int, QByteArray> parts;
    ZXing::DecodeHints hints;
    hints.setFormats(ZXing::BarcodeFormat::PDF417);
    for (int page = 0; page < draft.paper.pageCount(); ++page) {
        const QImage image =
            picture(draft.paper, page, 300).convertToFormat(QImage::Format_Grayscale8);
        const ZXing::ImageView view(image.constBits(), image.width(), image.height(),
                                    ZXing::ImageFormat::Lum,
                                    static_cast<int>(image.bytesPerLine()));
        for (const auto& code : ZXing::ReadBarcodes(view, hints)) {
            const auto& bytes = code.bytes();
            const int place = code.sequenceIndex() < 0 ? page : code.sequenceIndex();
            parts[place] = QByteArray(reinterpret_cast<const char*>(bytes.data()),
                                      static_cast<qsizetype>(bytes.size()));
        }
    }
    return parts;
}

TEST(DocumentCorpus, barcodesHoldTheTruth) {
    for (const Order& order : oneOfEach()) {
        if (order.layout.group != QString("statement") || !order.layout.payload
            || order.language != "de") {
            continue;
        }
        const Draft draft = drawn(order, 4);
        QByteArray data("\0\1\0\0", 4); // the length of what follows, for the unpacking below
        for (const auto& [place, part] : symbolsOf(draft)) {
            data += part;
        }
        const QString xml = QString::fromUtf8(qUncompress(data));
        for (const QString& value : draft.truth.accepted.front().values) {
            EXPECT_TRUE(xml.contains("\"" + value + "\"")) << nameOf(order);
        }
        EXPECT_TRUE(xml.endsWith("</taxStatement>")) << nameOf(order);
    }
    for (const Order& order : ordersOf({false, 1, {"salary"}, {"clean"}})) {
        if (!order.layout.payload || order.language != "de") {
            continue;
        }
        const auto parts = symbolsOf(drawn(order, 4));
        ASSERT_FALSE(parts.empty()) << nameOf(order);
        EXPECT_EQ(parts.begin()->second.mid(14, 4), QByteArray("PK\3\4", 4)) << nameOf(order);
        for (const auto& [place, part] : parts) {
            const auto byteAt = [&bytes = part](qsizetype at) {
                return static_cast<int>(static_cast<unsigned char>(bytes[at]));
            };
            EXPECT_EQ(byteAt(6) * 256 + byteAt(7), part.size()) << nameOf(order);
        }
    }
}

TEST(DocumentCorpus, looksAreWhatTheyPromise) {
    const QTemporaryDir folder;
    const Order order = ordersOf({false, 1, {"course"}, {"photo"}}).front();
    QSet<int> orientations;
    for (const quint64 seed : {1U, 2U, 3U, 4U}) {
        const QString file =
            folder.filePath(writeLook(drawn(order, seed), order, seed, folder.path()));
        QImageReader reader(file);
        orientations.insert(static_cast<int>(reader.transformation()));
        reader.setAutoTransform(true);
        EXPECT_EQ(reader.read().size(), QSize(3024, 4032)) << file.toStdString();
    }
    EXPECT_EQ(orientations.size(), 2) << "upright and turned by its EXIF block";

    const Order scan = ordersOf({false, 1, {"buyin"}, {"scan"}}).front();
    const auto bytes = [&](const char* name) {
        QDir(folder.path()).mkpath(name);
        QFile file(folder.filePath(name) + "/"
                   + writeLook(drawn(scan, 5), scan, 5, folder.filePath(name)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    EXPECT_EQ(bytes("one"), bytes("two"));
}

TEST(DocumentCorpus, severalPagesGoIntoOneTiff) {
    QImage page(40, 30, QImage::Format_Grayscale8);
    page.fill(200);
    QImage second = page;
    second.fill(90);
    QByteArray bytes = tiff({page, second}, 300);
    // Two directories, each with the width of its page.
    const QByteArray width("\x00\x01\x04\x00\x01\x00\x00\x00\x28\x00\x00\x00", 12);
    EXPECT_EQ(bytes.count(width), 2);
}

} // namespace
} // namespace corpus
