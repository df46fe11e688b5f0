#include "Fiscarel_SG/forms/editors/DateEdit.h"

#include "Fiscarel_SG/forms/InputText.h"
#include "Fiscarel_SG/look/Theme.h"

#include <QCalendarWidget>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QTextCharFormat>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace fiscarel::forms {

namespace {

constexpr int cellWidth = 44;
constexpr int cellHeight = 26;
constexpr int weeksAndNames = 7;

/// A calendar that closes when a day is chosen.
class CalendarPopup final : public QFrame {
  public:
    CalendarPopup(const QDate& day, QWidget* parent, std::function<void(QDate)> chosen)
        : QFrame(parent, Qt::Popup), chosen_(std::move(chosen)) {
        setAttribute(Qt::WA_DeleteOnClose);
        look::setRole(this, "calendar");
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
        calendar->setNavigationBarVisible(false); // its own one follows the theme
        calendar->setFixedSize(7 * cellWidth, weeksAndNames * cellHeight);
        auto* const layout = new QVBoxLayout(this);
        layout->setContentsMargins(6, 6, 6, 6);
        layout->setSpacing(4);
        auto* const bar = new QHBoxLayout;
        bar->setSpacing(0);
        month_ = addStepper(*bar, QStringLiteral("Monat"), [this](int by) { turn(by); });
        bar->addStretch(1);
        year_ = addStepper(*bar, QStringLiteral("Jahr"), [this](int by) { turn(12 * by); });
        layout->addLayout(bar);
        layout->addWidget(calendar);
        calendar_ = calendar;
        connect(calendar, &QCalendarWidget::currentPageChanged, this, &CalendarPopup::showPage);
        showPage();
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
    /// Two arrows with a name between them, which is returned.
    QLabel* addStepper(QHBoxLayout& bar, const QString& what,
                       const std::function<void(int)>& step) {
        const auto addArrow = [&](const QString& sign, const QString& name, int by) {
            auto* const arrow = new QToolButton(this);
            arrow->setText(sign);
            arrow->setToolTip(name);
            arrow->setAccessibleName(name);
            arrow->setFocusPolicy(Qt::NoFocus); // the page keys do the same
            bar.addWidget(arrow);
            connect(arrow, &QToolButton::clicked, this, [step, by] { step(by); });
        };
        auto* const name = new QLabel(this);
        name->setAlignment(Qt::AlignCenter);
        look::setRole(name, "figure");
        addArrow(QStringLiteral("‹"), what + QStringLiteral(" zurück"), -1);
        bar.addWidget(name);
        addArrow(QStringLiteral("›"), what + QStringLiteral(" vor"), 1);
        return name;
    }

    void turn(int months) {
        const QDate shown(calendar_->yearShown(), calendar_->monthShown(), 1);
        const QDate wanted = shown.addMonths(months);
        if (wanted >= calendar_->minimumDate() && wanted <= calendar_->maximumDate()) {
            calendar_->setCurrentPage(wanted.year(), wanted.month());
        }
    }

    void showPage() {
        // As wide as the longest month, so that the arrows stay where they are.
        month_->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("September")) + 12);
        month_->setText(calendar_->locale().standaloneMonthName(calendar_->monthShown()));
        year_->setText(QString::number(calendar_->yearShown()));
    }

    std::function<void(QDate)> chosen_;
    QCalendarWidget* calendar_ = nullptr;
    QLabel* month_ = nullptr;
    QLabel* year_ = nullptr;
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
    DateEdit::setHint({});
}

void DateEdit::setHint(const Value& lastYear) {
    LineEditor::setHint(lastYear);
    if (line()->placeholderText().isEmpty()) {
        line()->setPlaceholderText(QStringLiteral("TT.MM.JJJJ"));
        line()->slantHint();
    }
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
