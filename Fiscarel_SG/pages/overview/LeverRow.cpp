#include "Fiscarel_SG/pages/overview/LeverRow.h"

#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/overview/FrancsBox.h"
#include "Fiscarel_SG/pages/overview/MoneyText.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int nameWidth = 212;
constexpr int boxWidth = 92;
constexpr int pageSteps = 10;

int whole(const Decimal& francs) {
    return static_cast<int>(francs.roundPlain(0).toInteger().value_or(0));
}

} // namespace

LeverRow::LeverRow(QWidget* parent)
    : QWidget(parent), name_(new QLabel(this)), now_(new QLabel(this)),
      slider_(new QSlider(Qt::Horizontal, this)), box_(new FrancsBox(this)),
      take_(new QPushButton(u"Wert übernehmen"_s, this)) {
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins(0, 3, 0, 3);
    line->setSpacing(12);
    auto* const names = new QVBoxLayout;
    names->setSpacing(0);
    name_->setWordWrap(true);
    name_->setFixedWidth(nameWidth);
    look::setRole(now_, "small");
    names->addWidget(name_);
    names->addWidget(now_);
    line->addLayout(names);
    slider_->setFocusPolicy(Qt::StrongFocus);
    slider_->setPageStep(pageSteps);
    slider_->setMinimumHeight(24);
    slider_->installEventFilter(this);
    line->addWidget(slider_, 1);
    box_->setFixedWidth(boxWidth);
    line->addWidget(box_);
    look::setRole(take_, "link");
    QSizePolicy keepsPlace = take_->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    take_->setSizePolicy(keepsPlace);
    line->addWidget(take_);
    connect(slider_, &QSlider::valueChanged, this,
            [this](int position) { Q_EMIT moved(whole(lever_.at(position))); });
    connect(box_, &QSpinBox::valueChanged, this, [this](int value) { Q_EMIT moved(value); });
    connect(take_, &QPushButton::clicked, this, [this] { Q_EMIT taken(); });
}

void LeverRow::show(const Lever& lever, const Decimal& value) {
    const QSignalBlocker quietSlider(slider_);
    const QSignalBlocker quietBox(box_);
    if (lever.id != lever_.id || lever.label != lever_.label || lever.help != lever_.help) {
        nameAfter(lever);
    }
    lever_ = lever;
    now_->setText(u"heute "_s + francs(lever.now));
    slider_->setRange(0, lever.lastPosition());
    slider_->setValue(lever.positionOf(value));
    box_->setRange(whole(lever.least), whole(lever.most));
    box_->setSingleStep(lever.step);
    if (box_->value() != whole(value)) {
        box_->setValue(whole(value));
    }
    if (value == lever.now && take_->hasFocus()) {
        slider_->setFocus();
    }
    take_->setVisible(value != lever.now);
}

void LeverRow::nameAfter(const Lever& lever) {
    const QString label = qs(lever.label);
    const QString help = labelText(lever.help);
    setObjectName(u"lever:"_s + qs(lever.id));
    name_->setText(label);
    for (QWidget* widget : {static_cast<QWidget*>(name_), static_cast<QWidget*>(slider_),
                            static_cast<QWidget*>(box_)}) {
        widget->setToolTip(help);
        widget->setAccessibleDescription(help);
    }
    slider_->setAccessibleName(label);
    slider_->setObjectName(u"slider:"_s + qs(lever.id));
    box_->setAccessibleName(label + u", Betrag"_s);
    box_->setObjectName(u"box:"_s + qs(lever.id));
    take_->setAccessibleName(u"%1: Wert übernehmen"_s.arg(label));
    take_->setObjectName(u"take:"_s + qs(lever.id));
}

/// The wheel is for the page; it moves a slider only while that has the keyboard.
bool LeverRow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel && !slider_->hasFocus()) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace fiscarel::pages
