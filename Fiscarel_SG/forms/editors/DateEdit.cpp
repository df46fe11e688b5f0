#include "Fiscarel_SG/forms/editors/DateEdit.h"

#include "Fiscarel_SG/forms/InputText.h"

#include <QCalendarWidget>
#include <QFrame>
#include <QPainter>
#include <QScreen>
#include <QTextCharFormat>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace fiscarel::forms {

namespace {

/// Gives a button of the calendar a plain arrow in the colour of the bar it stands on.
void setArrow(const QCalendarWidget& calendar, const QString& button, Qt::ArrowType direction) {
    auto* const found = calendar.findChild<QToolButton*>(button);
    if (found == nullptr) {
        return;
    }
    constexpr int size = 16;
    const qreal ratio = calendar.devicePixelRatioF();
    QPixmap arrow(QSize(size, size) * ratio);
    arrow.setDevicePixelRatio(ratio);
    arrow.fill(Qt::transparent);
    QPainter painter(&arrow);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(calendar.palette().color(QPalette::HighlightedText), 1.8, Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    const double tip = direction == Qt::LeftArrow ? -2.5 : 2.5;
    painter.drawPolyline(
        QPolygonF({QPointF(8 - tip, 3.5), QPointF(8 + tip, 8), QPointF(8 - tip, 12.5)}));
    painter.end();
    found->setIcon(arrow);
}

/// A calendar that closes when a day is chosen.
class CalendarPopup final : public QFrame {
  public:
    CalendarPopup(const QDate& day, QWidget* parent, std::function<void(QDate)> chosen)
        : QFrame(parent, Qt::Popup), chosen_(std::move(chosen)) {
        setAttribute(Qt::WA_DeleteOnClose);
        setFrameShape(QFrame::StyledPanel);
        auto* const calendar = new QCalendarWidget(this);
        calendar->setLocale(QLocale(QLocale::German, QLocale::Switzerland));
        calendar->setFirstDayOfWeek(Qt::Monday);
        calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
        calendar->setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
        calendar->setDateRange(QDate(1900, 1, 1), QDate(2100, 12, 31));
        // Weekends are days like others here.
        calendar->setWeekdayTextFormat(Qt::Saturday, QTextCharFormat());
        calendar->setWeekdayTextFormat(Qt::Sunday, QTextCharFormat());
        calendar->setDateEditEnabled(false); // a day is typed in the field
        calendar->setSelectedDate(day);
        calendar->setAccessibleName(QStringLiteral("Kalender"));
        setArrow(*calendar, QStringLiteral("qt_calendar_prevmonth"), Qt::LeftArrow);
        setArrow(*calendar, QStringLiteral("qt_calendar_nextmonth"), Qt::RightArrow);
        auto* const layout = new QVBoxLayout(this);
        layout->setContentsMargins(4, 4, 4, 4);
        layout->addWidget(calendar);
        setFocusProxy(calendar);
        calendar->setFocus();
        const auto choose = [this](const QDate& date) {
            if (auto tell = std::exchange(chosen_, nullptr)) { // a double click comes twice
                close();
                tell(date);
            }
        };
        connect(calendar, &QCalendarWidget::clicked, this, choose);
        connect(calendar, &QCalendarWidget::activated, this, choose);
    }

    void openBelow(const QWidget& widget) {
        adjustSize();
        const QRect room = widget.screen()->availableGeometry();
        QPoint corner = widget.mapToGlobal(QPoint(0, widget.height() + 2));
        if (corner.y() + height() > room.bottom()) {
            corner.setY(widget.mapToGlobal(QPoint(0, -height() - 2)).y());
        }
        corner.setX(std::max(room.left(), std::min(corner.x(), room.right() - width())));
        move(corner);
        show();
    }

  private:
    std::function<void(QDate)> chosen_;
};

} // namespace

DateEdit::DateEdit(BoundField field, int referenceYear, QWidget* parent)
    : LineEditor(std::move(field), 24, parent),
      referenceYear_(referenceYear > 0 ? referenceYear : QDate::currentDate().year()) {
    line()->setSelectsAll(true);
    auto* const button =
        new InputButton(InputButton::Sign::calendar, QStringLiteral("Kalender öffnen"), line());
    line()->setButton(button);
    line()->listRequested = [this] { return openCalendar(); };
    connect(button, &QToolButton::clicked, this, [this] { openCalendar(); });
}

LineEditor::Reading DateEdit::read(const QString& text) const {
    return parseDate(utf8(text), referenceYear_).map([](Date date) { return Value(date); });
}

QString DateEdit::shown(const Value& value) const {
    const auto* const date = std::get_if<Date>(&value);
    return date != nullptr ? qs(formatDate(*date)) : QString();
}

/// A year of two digits may be the beginning of one of four: "1.3.19".
bool DateEdit::isLive(const QString& text) const {
    const bool isRun =
        std::all_of(text.begin(), text.end(), [](QChar letter) { return letter.isDigit(); });
    const QString end = text.right(4);
    return isRun ? text.size() == 8
                 : end.size() == 4 && std::all_of(end.begin(), end.end(), [](QChar letter) {
                       return letter.isDigit();
                   });
}

bool DateEdit::openCalendar() {
    if (calendar_ != nullptr && calendar_->isVisible()) {
        return true;
    }
    line()->setFocus();
    settle();
    const Value entered = value();
    const auto* const date = std::get_if<Date>(&entered);
    const QDate day = date != nullptr && *date != Date()
                          ? QDate(date->year(), date->month(), date->day())
                          : QDate(referenceYear_, 1, 1);
    auto* const popup = new CalendarPopup(day, this, [this](QDate chosen) {
        if (const auto picked = Date::of(chosen.year(), chosen.month(), chosen.day())) {
            choose(*picked);
        }
    });
    calendar_ = popup;
    // Some window systems give a popup the keyboard for itself.
    connect(popup, &QObject::destroyed, line(), [this] {
        if (calendar_ == nullptr) {
            line()->activateWindow();
            line()->setFocus(Qt::PopupFocusReason);
        }
    });
    popup->openBelow(*line());
    return true;
}

} // namespace fiscarel::forms
