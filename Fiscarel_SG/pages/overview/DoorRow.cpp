#include "Fiscarel_SG/pages/overview/DoorRow.h"

#include "Fiscarel_SG/look/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int markerSize = 12;

QLabel* labelIn(QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

} // namespace

DoorRow::DoorRow(const std::vector<int>& columns, QWidget* parent)
    : QPushButton(parent), line_(new QHBoxLayout(this)), title_(labelIn(this)),
      detail_(labelIn(this)) {
    look::setRole(this, "row");
    line_->setContentsMargins(8, 5, 8, 5);
    line_->setSpacing(12);
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(0);
    title_->setWordWrap(true);
    detail_->setWordWrap(true);
    look::setRole(detail_, "small");
    detail_->hide();
    texts->addWidget(title_);
    texts->addWidget(detail_);
    line_->addLayout(texts, 1);
    for (const int width : columns) {
        auto* const figure = labelIn(this);
        figure->setMinimumWidth(width);
        figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        line_->addWidget(figure);
        figures_.push_back(figure);
    }
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void DoorRow::setMarker(const QColor& color, const QString& sign) {
    if (marker_ == nullptr) {
        marker_ = labelIn(this);
        marker_->setFixedSize(markerSize, markerSize);
        sign_ = labelIn(this);
        sign_->setMinimumWidth(markerSize);
        look::setRole(sign_, "faint");
        line_->insertWidget(0, marker_);
        line_->insertWidget(1, sign_);
    }
    const QString sheet = u"background: %1; border-radius: 3px;"_s.arg(color.name());
    if (marker_->styleSheet() != sheet) {
        marker_->setStyleSheet(sheet);
    }
    sign_->setText(sign);
}

void DoorRow::setTitle(const QString& title) {
    title_->setText(title);
    nameIt();
}

void DoorRow::setDetail(const QString& detail) {
    detail_->setText(detail);
    detail_->setVisible(!detail.isEmpty());
    nameIt();
}

void DoorRow::setFigures(const QStringList& figures) {
    for (std::size_t i = 0; i < figures_.size(); ++i) {
        figures_[i]->setText(figures.value(static_cast<qsizetype>(i)));
    }
    nameIt();
}

void DoorRow::setFigureRole(std::size_t column, const char* role) {
    look::setRole(figures_.at(column), role);
}

void DoorRow::setTitleRole(const char* role) { look::setRole(title_, role); }

void DoorRow::setDoor(bool isDoor) {
    setFocusPolicy(isDoor ? Qt::StrongFocus : Qt::NoFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents, !isDoor);
}

void DoorRow::setAction(const QString& action) {
    action_ = action;
    nameIt();
}

void DoorRow::nameIt() {
    QStringList parts{title_->text(), detail_->text()};
    for (const QLabel* figure : figures_) {
        parts << figure->text();
    }
    parts << action_;
    parts.removeAll(QString());
    setAccessibleName(parts.join(u", "_s));
}

QSize DoorRow::sizeHint() const { return layout()->totalSizeHint(); }

QSize DoorRow::minimumSizeHint() const { return layout()->totalMinimumSize(); }

} // namespace fiscarel::pages
