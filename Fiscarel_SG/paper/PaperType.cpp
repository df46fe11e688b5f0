#include "Fiscarel_SG/paper/PaperType.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QTextLayout>
#include <array>
#include <map>

namespace fiscarel::paper {

using namespace Qt::Literals::StringLiterals;

namespace {

struct Cut {
    double size;    ///< points
    double leading; ///< points
    QFont::Weight weight;
    QRgb ink;
};

constexpr QRgb black = 0x1B2421;
constexpr QRgb grey = 0x56625D;
constexpr QRgb green = 0x14655A;

Cut cutOf(Type type) {
    switch (type) {
    case Type::body:
        return {8.8, 12.2, QFont::Normal, black};
    case Type::note:
        return {7.2, 9.6, QFont::Normal, grey};
    case Type::head:
        return {7.2, 9.6, QFont::Medium, grey};
    case Type::strong:
        return {8.8, 12.2, QFont::Bold, black};
    case Type::group:
        return {8.8, 12.2, QFont::Medium, black};
    case Type::detail:
        return {8, 11, QFont::Normal, black};
    case Type::detailNote:
        return {6.8, 9, QFont::Normal, grey};
    case Type::title:
        return {21, 26, QFont::Bold, black};
    case Type::section:
        return {12, 16, QFont::Medium, black};
    case Type::part:
        return {9.6, 13, QFont::Medium, black};
    case Type::kicker:
        return {9.6, 13, QFont::Medium, green};
    case Type::display:
        return {34, 40, QFont::Bold, black};
    case Type::lead:
        return {14, 19, QFont::Normal, black};
    case Type::largeFigure:
        return {27, 33, QFont::Medium, green};
    case Type::figure:
        return {11.5, 15, QFont::Medium, black};
    case Type::figureLabel:
        return {7.6, 11, QFont::Normal, grey};
    case Type::running:
        return {7.2, 9.6, QFont::Normal, grey};
    case Type::code:
        return {21, 32, QFont::Normal, black};
    }
    return {};
}

/// The family that the packages of the program bring; all its digits are as wide as each other.
/// Without it the next best.
QString family() {
    for (const auto& wanted : {u"Roboto"_s, u"DejaVu Sans"_s}) {
        if (QFontDatabase::hasFamily(wanted)) {
            return wanted;
        }
    }
    return QFont().defaultFamily();
}

QFont makeFont(Type type) {
    static const QString chosen = family();
    const Cut cut = cutOf(type);
    QFont font(chosen);
    if (type == Type::code) {
        font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    }
    font.setPixelSize(qRound(cut.size * finePerPoint));
    font.setWeight(cut.weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::PreferOutline);
    return font;
}

struct Face {
    QFont font;
    QFontMetricsF metrics;

    explicit Face(Type type) : font(makeFont(type)), metrics(font) {}
};

const Face& faceOf(Type type) {
    thread_local std::map<Type, Face> faces;
    return faces.try_emplace(type, type).first->second;
}

QStringList wrappedParagraph(Type type, const QString& text, double width) {
    if (widthOf(type, text) <= width) {
        return {text};
    }
    QTextLayout layout(text, faceOf(type).font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width * finePerPoint);
        lines << text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

} // namespace

double leading(Type type) { return cutOf(type).leading; }

QFont fontOf(Type type) { return faceOf(type).font; }

QColor inkOf(Type type) { return QColor::fromRgb(cutOf(type).ink); }

double baseline(Type type) {
    const QFontMetricsF& metrics = faceOf(type).metrics;
    const double height = metrics.ascent() + metrics.descent();
    return (leading(type) * finePerPoint - height) / 2 / finePerPoint
           + metrics.ascent() / finePerPoint;
}

double widthOf(Type type, const QString& text) {
    return text.isEmpty() ? 0 : faceOf(type).metrics.horizontalAdvance(text) / finePerPoint;
}

QStringList wrapped(Type type, const QString& text, double width) {
    QStringList lines;
    if (text.isEmpty()) {
        return lines;
    }
    for (const QString& paragraph : text.split(u'\n')) {
        lines << wrappedParagraph(type, paragraph, width);
    }
    return lines;
}

QString paperText(std::string_view utf8) {
    QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    for (QChar& c : text) {
        const QChar::Category category = c.category();
        if (c != u'\n' && c != u'\u00AD'
            && (category == QChar::Other_Control || category == QChar::Other_Format
                || category == QChar::Separator_Line || category == QChar::Separator_Paragraph)) {
            c = u' ';
        }
    }
    return text.trimmed();
}

} // namespace fiscarel::paper
