#include "Fiscarel_SG/look/Theme.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QVariant>
#include <QWidget>
#include <array>

namespace fiscarel::look {

using namespace Qt::Literals::StringLiterals;

namespace {

Theme& inUse() {
    static Theme theme = Theme::light();
    return theme;
}

QPalette paletteOf(const Theme& theme) {
    QPalette palette;
    palette.setColor(QPalette::Window, theme.window);
    palette.setColor(QPalette::WindowText, theme.text);
    palette.setColor(QPalette::Base, theme.card);
    palette.setColor(QPalette::AlternateBase, theme.window);
    palette.setColor(QPalette::Text, theme.text);
    palette.setColor(QPalette::Button, theme.card);
    palette.setColor(QPalette::ButtonText, theme.text);
    palette.setColor(QPalette::Highlight, theme.accent);
    palette.setColor(QPalette::HighlightedText, theme.onAccent);
    palette.setColor(QPalette::Link, theme.accent);
    palette.setColor(QPalette::LinkVisited, theme.accent);
    palette.setColor(QPalette::PlaceholderText, theme.faint);
    palette.setColor(QPalette::ToolTipBase, theme.card);
    palette.setColor(QPalette::ToolTipText, theme.text);
    palette.setColor(QPalette::Mid, theme.border);
    palette.setColor(QPalette::Disabled, QPalette::Text, theme.faint);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, theme.faint);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, theme.faint);
    return palette;
}

/// The style sheet, with the names of colours in braces.
QString sheet() {
    QFile file(u":/style.qss"_s);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString sheetOf(const Theme& theme) {
    struct Name {
        QString name;
        QColor color;
    };
    const std::array names{
        Name{u"{window}"_s, theme.window},     Name{u"{sidebar}"_s, theme.sidebar},
        Name{u"{card}"_s, theme.card},         Name{u"{border}"_s, theme.border},
        Name{u"{strong}"_s, theme.strong},     Name{u"{text}"_s, theme.text},
        Name{u"{faint}"_s, theme.faint},       Name{u"{accent}"_s, theme.accent},
        Name{u"{onAccent}"_s, theme.onAccent}, Name{u"{soft}"_s, theme.soft},
        Name{u"{error}"_s, theme.error},       Name{u"{warning}"_s, theme.warning},
        Name{u"{good}"_s, theme.good},
    };
    QString text = sheet();
    text.replace(u"{marks}"_s, theme.isDark ? u"dark"_s : u"light"_s);
    for (const Name& name : names) {
        text.replace(name.name, name.color.name());
    }
    return text;
}

} // namespace

Theme Theme::light() {
    return {.window = QColor(0xF5F6F5),
            .sidebar = QColor(0xECEFED),
            .card = QColor(0xFFFFFF),
            .border = QColor(0xDADFDC),
            .strong = QColor(0x8A9690),
            .text = QColor(0x1B2421),
            .faint = QColor(0x56625D),
            .accent = QColor(0x14655A),
            .onAccent = QColor(0xFFFFFF),
            .soft = QColor(0xDCEBE7),
            .error = QColor(0xB3261E),
            .warning = QColor(0x8A5300),
            .good = QColor(0x1E6B35)};
}

Theme Theme::dark() {
    return {.window = QColor(0x161A19),
            .sidebar = QColor(0x1B201F),
            .card = QColor(0x212726),
            .border = QColor(0x343C3A),
            .strong = QColor(0x74807B),
            .text = QColor(0xE8ECEA),
            .faint = QColor(0xA9B4AF),
            .accent = QColor(0x6CCDB8),
            .onAccent = QColor(0x0E1A17),
            .soft = QColor(0x24403A),
            .error = QColor(0xFF9A90),
            .warning = QColor(0xF0B45B),
            .good = QColor(0x86D69A),
            .isDark = true};
}

const Theme& Theme::current() { return inUse(); }

QColor Theme::chart(int index) const {
    static constexpr std::array<QRgb, 5> onLight{0x14655A, 0xC77A1F, 0x4A6FA5, 0x8C5383, 0x7A8A3A};
    static constexpr std::array<QRgb, 5> onDark{0x6CCDB8, 0xF0B45B, 0x8FB4E8, 0xD39BC8, 0xC3D373};
    const auto& colors = isDark ? onDark : onLight;
    return {colors[static_cast<std::size_t>(index) % colors.size()]};
}

void Theme::apply(QApplication& application, Appearance appearance) {
    static const QPalette systemPalette = QApplication::palette();
    const bool systemIsDark = systemPalette.color(QPalette::Window).lightness() < 128;
    const bool wantsDark =
        appearance == Appearance::dark || (appearance == Appearance::system && systemIsDark);
    inUse() = wantsDark ? dark() : light();
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QFont font = QApplication::font();
    if (QFontDatabase::hasFamily(u"Inter"_s)) {
        font.setFamily(u"Inter"_s);
    }
    font.setPointSizeF(10.5);
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0)
    font.setFeature(QFont::Tag("tnum"), 1); // digits equally wide: figures stand in columns
#endif
    QApplication::setFont(font);
    QApplication::setPalette(paletteOf(inUse()));
    application.setStyleSheet(sheetOf(inUse()));
}

void setRole(QWidget* widget, const char* role) {
    if (widget->property("role").toString() == QLatin1StringView(role)) {
        return;
    }
    widget->setProperty("role", QString::fromLatin1(role));
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

} // namespace fiscarel::look
