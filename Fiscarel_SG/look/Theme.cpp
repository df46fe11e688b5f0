#include "Fiscarel_SG/look/Theme.h"

#include <QApplication>
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
    return QStringLiteral(R"(
QToolTip { background: {card}; color: {text}; border: 1px solid {border}; padding: 6px; }
QScrollArea, QScrollArea > QWidget > QWidget { background: transparent; border: none; }
QWidget[role="sidebar"] { background: {sidebar}; border-right: 1px solid {border}; }
QWidget[role="taxbar"] { background: {sidebar}; border-left: 1px solid {border}; }
QFrame[role="card"] { background: {card}; border: 1px solid {border}; border-radius: 8px; }
QFrame[role="line"] { background: {border}; border: none; max-height: 1px; min-height: 1px; }
QLabel[role="title"] { font-size: 20pt; font-weight: 600; }
QLabel[role="heading"] { font-size: 12pt; font-weight: 600; }
QLabel[role="section"] { font-size: 13pt; font-weight: 600; color: {accent}; }
QLabel[role="product"] { font-size: 13pt; font-weight: 700; }
QLabel[role="faint"] { color: {faint}; }
QLabel[role="small"] { color: {faint}; font-size: 9pt; }
QLabel[role="figure"] { font-weight: 600; }
QLabel[role="total"] { font-size: 19pt; font-weight: 600; }
QLabel[role="error"] { color: {error}; font-size: 9pt; }
QLabel[role="warning"] { color: {warning}; }
QLabel[role="link"] { color: {accent}; }
QLabel[role="help"] { color: {faint}; font-size: 9.5pt; }
QLabel[role="good"] { color: {good}; }
QLabel[role="banner"] { background: {soft}; border: 1px solid {accent}; border-radius: 6px; padding: 10px; }
QLabel[role="badge"] { background: {accent}; color: {onAccent}; border-radius: 8px; padding: 1px 6px; font-size: 8.5pt; font-weight: 600; }
QLineEdit, QPlainTextEdit, QComboBox, QSpinBox {
    background: {card}; color: {text}; border: 1px solid {strong}; border-radius: 5px;
    padding: 4px 8px; min-height: 20px; selection-background-color: {accent}; selection-color: {onAccent}; }
QLineEdit:hover, QPlainTextEdit:hover, QComboBox:hover, QSpinBox:hover { border-color: {accent}; }
QLineEdit:focus, QPlainTextEdit:focus, QComboBox:focus, QSpinBox:focus { border: 2px solid {accent}; padding: 3px 7px; }
QLineEdit[problem="true"], QPlainTextEdit[problem="true"], QComboBox[problem="true"] { border: 2px solid {error}; padding: 3px 7px; }
QLineEdit:disabled, QComboBox:disabled { color: {faint}; border-color: {border}; }
QComboBox { padding-left: 12px; }
QComboBox:focus { padding-left: 11px; }
QTableView QLineEdit, QTableView QComboBox { border-radius: 0; padding: 0 2px; min-height: 0; }
QComboBox::drop-down { border: none; width: 24px; }
QComboBox::down-arrow { image: url(:/icons/down-{marks}.svg); width: 12px; height: 12px; }
QComboBox QAbstractItemView { background: {card}; color: {text}; border: 1px solid {strong}; selection-background-color: {accent}; selection-color: {onAccent}; }
QPushButton { background: {card}; color: {text}; border: 1px solid {strong}; border-radius: 5px; padding: 5px 14px; min-height: 20px; }
QPushButton:hover { background: {soft}; }
QPushButton:focus { border: 2px solid {accent}; padding: 4px 13px; }
QPushButton:disabled { color: {faint}; border-color: {border}; }
QPushButton[role="primary"] { background: {accent}; color: {onAccent}; border-color: {accent}; font-weight: 600; }
QPushButton[role="primary"]:focus { border: 2px solid {text}; }
QPushButton[role="link"] { background: transparent; border: 1px solid transparent; color: {accent}; padding: 2px 0px; text-align: left; }
QPushButton[role="textlink"] { background: transparent; border: 1px solid transparent; color: {accent}; padding: 0; margin: -1px; min-height: 0; text-align: left; }
QPushButton[role="textlink"]:hover { text-decoration: underline; }
QPushButton[role="textlink"]:focus { border: 1px solid {accent}; }
QPushButton[role="link"]:hover { text-decoration: underline; }
QPushButton[role="link"]:focus { border: 1px solid {accent}; }
QPushButton[role="door"] { background: transparent; border: 1px solid transparent; text-align: left; padding: 3px 4px; }
QPushButton[role="door"]:hover { background: {soft}; }
QPushButton[role="door"]:focus { border: 1px solid {accent}; }
QPushButton[role="nav"] { background: transparent; border: 1px solid transparent; border-radius: 6px; text-align: left; padding: 5px 10px; }
QPushButton[role="nav"]:hover { background: {soft}; }
QPushButton[role="nav"]:checked { background: {soft}; color: {accent}; font-weight: 600; }
QPushButton[role="nav"]:focus { border: 1px solid {accent}; }
QPushButton[role="door"][strong="true"] { font-weight: 600; }
QPushButton[role="strip"] { background: {sidebar}; border: none; border-top: 1px solid {border}; border-radius: 0; }
QPushButton[role="strip"]:hover, QPushButton[role="strip"]:checked { background: {soft}; }
QPushButton[role="strip"]:focus { border: 2px solid {accent}; }
QPushButton[role="row"] { background: transparent; border: 1px solid transparent; text-align: left; padding: 6px 8px; }
QPushButton[role="row"]:hover { background: {soft}; }
QPushButton[role="row"]:focus { border: 1px solid {accent}; }
QToolButton { background: transparent; border: 1px solid transparent; border-radius: 4px; padding: 3px; color: {faint}; }
QToolButton:hover { background: {soft}; }
QToolButton:focus { border: 1px solid {accent}; }
QToolButton[role="help"] { border: 1px solid {border}; border-radius: 10px; padding: 0; min-width: 18px; max-width: 18px; min-height: 18px; max-height: 18px; font-size: 9pt; }
QToolButton[role="help"]:hover, QToolButton[role="help"]:checked { border-color: {accent}; color: {accent}; background: {soft}; }
QCheckBox { spacing: 8px; border: 1px solid transparent; border-radius: 4px; padding: 2px; }
QCheckBox::indicator, QTableView::indicator { width: 16px; height: 16px; border: 1px solid {strong}; border-radius: 4px; background: {card}; }
QCheckBox::indicator:hover, QRadioButton::indicator:hover { border-color: {accent}; }
QCheckBox::indicator:checked, QTableView::indicator:checked { background: {accent}; border-color: {accent}; image: url(:/icons/check-{marks}.svg); }
QRadioButton { spacing: 8px; border: 1px solid transparent; border-radius: 4px; padding: 3px; }
QRadioButton::indicator { width: 14px; height: 14px; border: 1px solid {strong}; border-radius: 8px; background: {card}; }
QRadioButton::indicator:checked { border: 5px solid {accent}; width: 6px; height: 6px; }
QRadioButton:focus { border: 1px solid {accent}; }
QCheckBox:focus { border: 1px solid {accent}; }
QTableView, QTreeView, QListView { background: {card}; color: {text}; border: 1px solid {border}; border-radius: 6px; gridline-color: {border}; alternate-background-color: {window}; selection-background-color: {soft}; selection-color: {text}; }
QTableView:focus, QTreeView:focus, QListView:focus { border: 1px solid {accent}; }
QHeaderView::section { background: {window}; color: {faint}; border: none; border-bottom: 1px solid {border}; padding: 5px 4px; }
QTableCornerButton::section { background: {window}; border: none; border-bottom: 1px solid {border}; }
QMenu { background: {card}; color: {text}; border: 1px solid {strong}; }
QMenu::item:selected { background: {soft}; }
QProgressBar { background: {window}; border: 1px solid {border}; border-radius: 4px; max-height: 8px; text-align: center; }
QProgressBar::chunk { background: {accent}; border-radius: 3px; }
QSlider::groove:horizontal { background: {border}; height: 4px; border-radius: 2px; }
QSlider::sub-page:horizontal { background: {accent}; border-radius: 2px; }
QSlider::handle:horizontal { background: {accent}; border: 2px solid {card}; width: 16px; height: 16px; margin: -8px 0; border-radius: 10px; }
QSlider::handle:horizontal:focus { border: 2px solid {text}; }
QScrollBar:vertical { background: transparent; width: 12px; margin: 2px; }
QScrollBar::handle:hover { background: {faint}; }
QScrollBar::handle:vertical { background: {strong}; border-radius: 4px; min-height: 32px; }
QScrollBar:horizontal { background: transparent; height: 12px; margin: 2px; }
QScrollBar::handle:horizontal { background: {strong}; border-radius: 4px; min-width: 32px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
)");
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
    return QColor(colors[static_cast<std::size_t>(index) % colors.size()]);
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
    QApplication::setFont(font);
    QApplication::setPalette(paletteOf(inUse()));
    application.setStyleSheet(sheetOf(inUse()));
}

void setRole(QWidget* widget, const char* role) {
    widget->setProperty("role", QString::fromLatin1(role));
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

} // namespace fiscarel::look
