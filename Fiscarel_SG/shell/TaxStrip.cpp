#include "Fiscarel_SG/shell/TaxStrip.h"

#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/shell/TaxBar.h"

#include <QHBoxLayout>
#include <QLabel>

namespace fiscarel::shell {

using namespace Qt::Literals::StringLiterals;

TaxStrip::TaxStrip(const TaxBar& bar, QWidget* parent)
    : QPushButton(parent), bar_(bar), name_(new QLabel(this)), total_(new QLabel(this)),
      change_(new QLabel(this)), more_(new QLabel(this)) {
    setObjectName(u"taxStrip"_s);
    setCheckable(true);
    look::setRole(this, "strip");
    look::setRole(name_, "faint");
    look::setRole(total_, "figure");
    look::setRole(more_, "link");
    total_->setObjectName(u"stripTotal"_s);
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins(24, 0, 24, 0);
    line->setSpacing(12);
    for (QLabel* const label : {name_, total_, change_, more_}) {
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        if (label == more_) {
            line->addStretch(1);
        }
        line->addWidget(label);
    }
    connect(&bar_, &TaxBar::refreshed, this, &TaxStrip::refresh);
    connect(this, &QPushButton::toggled, this, &TaxStrip::refresh);
    refresh();
}

QSize TaxStrip::sizeHint() const {
    constexpr int height = 38;
    return {layout()->sizeHint().width(), height};
}

void TaxStrip::refresh() {
    const TaxBar::Summary summary = bar_.summary();
    name_->setText(summary.name);
    total_->setText(summary.total);
    change_->setText(summary.change);
    look::setRole(change_, summary.changeRole);
    more_->setText(isChecked() ? u"Schliessen  ▾"_s : u"Einzelheiten  ▴"_s);
    setAccessibleName(
        u"%1 %2 %3, %4"_s
            .arg(summary.name, summary.total, summary.change,
                 isChecked() ? u"Einzelheiten schliessen"_s : u"Einzelheiten zeigen"_s)
            .simplified());
}

} // namespace fiscarel::shell
