#include "Fiscarel_SG/shell/ReasonDialog.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/ElidingButton.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "TaxCore/base/MoneyFormat.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

namespace fiscarel::shell {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

namespace {

constexpr int usualWidth = 760;
constexpr int aroundContent = 150; ///< title, button and margins
constexpr int kindWidth = 92;      ///< of "Zwischenergebnis", so that the texts begin at one place

/// `digits`: after the point of francs, the same for all of a derivation.
QString shown(const std::optional<Decimal>& value, Unit unit, int digits) {
    if (!value) {
        return {};
    }
    switch (unit) {
    case Unit::francs:
        return qs(MoneyFormat::chf(*value, digits, false));
    case Unit::share:
        return qs(MoneyFormat::number(*value * 100)) + u"%"_s;
    case Unit::percent:
        return qs(MoneyFormat::number(*value)) + u"%"_s;
    case Unit::perMille:
        return qs(MoneyFormat::number(*value)) + u"‰"_s;
    case Unit::number:
        break;
    }
    return qs(MoneyFormat::number(*value));
}

int digitsOf(const Derivation& derivation) {
    const auto isBroken = [](const std::optional<Decimal>& value) {
        return value && !value->isInteger();
    };
    const bool broken = std::ranges::any_of(derivation.steps, [&](const DerivationStep& step) {
        return step.unit.value_or(Unit::francs) == Unit::francs
               && (isBroken(step.canton) || isBroken(step.federal));
    });
    return broken || isBroken(derivation.canton) || isBroken(derivation.federal) ? 2 : 0;
}

/// The legal basis in words of its sides; the same for both stands once.
QString lawOf(const DerivationStep& step) {
    const QString canton = qs(step.lawCanton.value_or(""));
    const QString federal = qs(step.lawFederal.value_or(""));
    if (canton.isEmpty() || federal.isEmpty() || canton == federal) {
        return canton.isEmpty() ? federal : canton;
    }
    return canton + u" · "_s + federal;
}

QLabel* label(const QString& text, const char* role, QWidget* parent) {
    auto* const made = new QLabel(text, parent);
    made->setWordWrap(true);
    made->setTextInteractionFlags(Qt::TextSelectableByMouse);
    if (*role != '\0') {
        look::setRole(made, role);
    }
    return made;
}

QLabel* amountLabel(const QString& text, bool strong, QWidget* parent) {
    auto* const made = label(text, strong ? "figure" : "", parent);
    made->setWordWrap(false);
    made->setAlignment(Qt::AlignRight | Qt::AlignTop);
    return made;
}

/// The steps of a derivation as rows: kind, text, and an amount for each authority.
class Steps final : public QWidget {
  public:
    explicit Steps(const Derivation& derivation)
        : derivation_(derivation), grid_(new QGridLayout(this)), digits_(digitsOf(derivation)),
          hasTwoSides_(derivation.sides() == Derivation::Sides::parted) {
        grid_->setContentsMargins(0, 4, 12, 4);
        grid_->setHorizontalSpacing(16);
        grid_->setVerticalSpacing(6);
        grid_->setColumnStretch(1, 1);
        grid_->setColumnMinimumWidth(0, kindWidth);
        if (hasTwoSides_) {
            grid_->addWidget(amountLabel(u"Kanton"_s, false, this), row_, 2);
            grid_->addWidget(amountLabel(u"Bund"_s, false, this), row_, 3);
            ++row_;
        }
    }

    /// Adds a step; the button of one that leads on, else null.
    QPushButton* add(const DerivationStep& step, bool leadsOn) {
        grid_->addWidget(label(qs(taxcore::label(step.kind)), "small", this), row_, 0,
                         Qt::AlignTop);
        look::ElidingButton* door = nullptr;
        if (leadsOn) {
            door = new look::ElidingButton(this, labelText(step.text));
            look::setRole(door, "textlink"); // as high as the texts beside it
            grid_->addWidget(door, row_, 1, Qt::AlignTop);
        } else {
            grid_->addWidget(label(labelText(step.text), "", this), row_, 1, Qt::AlignTop);
        }
        addAmounts(step.canton, step.federal, step.unit.value_or(Unit::francs), false);
        ++row_;
        if (const QString law = lawOf(step); !law.isEmpty()) {
            grid_->addWidget(label(law, "small", this), row_, 1);
            ++row_;
        }
        return door;
    }
    void addResult() {
        auto* const line = new QFrame(this);
        look::setRole(line, "line");
        grid_->addWidget(line, row_++, 0, 1, hasTwoSides_ ? 4 : 3);
        grid_->addWidget(label(labelText(derivation_.label), "figure", this), row_, 0, 1, 2);
        addAmounts(derivation_.canton, derivation_.federal, derivation_.unit, true);
        grid_->setRowStretch(row_ + 1, 1);
    }

  private:
    void addAmounts(const std::optional<Decimal>& canton, const std::optional<Decimal>& federal,
                    Unit unit, bool strong) {
        const auto& first = derivation_.sides() == Derivation::Sides::federal ? federal : canton;
        grid_->addWidget(amountLabel(shown(first, unit, digits_), strong, this), row_, 2);
        if (hasTwoSides_) {
            grid_->addWidget(amountLabel(shown(federal, unit, digits_), strong, this), row_, 3);
        }
    }

    const Derivation derivation_;
    QGridLayout* grid_;
    const int digits_;
    const bool hasTwoSides_;
    int row_ = 0;
};

} // namespace

ReasonDialog::ReasonDialog(AppStore& store, QWidget* parent)
    : QDialog(parent), store_(store), title_(new QLabel(this)), scroll_(new QScrollArea(this)) {
    setObjectName(u"reason"_s);
    setWindowTitle(u"Woher kommt dieser Betrag?"_s);
    look::setRole(title_, "heading");
    title_->setWordWrap(true);
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setAccessibleName(u"Herleitung"_s);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    close_ = buttons->button(QDialogButtonBox::Close);
    back_ = buttons->addButton(u"Zurück"_s, QDialogButtonBox::ActionRole);
    back_->setObjectName(u"reasonBack"_s);
    connect(back_, &QPushButton::clicked, this, &ReasonDialog::goBack);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(20, 18, 20, 16);
    outer->addWidget(title_);
    outer->addWidget(scroll_, 1);
    outer->addWidget(buttons);
}

bool ReasonDialog::explain(const std::string& code) {
    if (!fill(code)) {
        return false;
    }
    way_ = {code};
    back_->hide();
    return true;
}

void ReasonDialog::goOn(const std::string& code) {
    if (fill(code)) {
        way_.push_back(code);
        back_->show();
    }
}

void ReasonDialog::goBack() {
    if (way_.size() > 1) {
        way_.pop_back();
        fill(way_.back());
        back_->setVisible(way_.size() > 1);
    }
}

bool ReasonDialog::fill(const std::string& code) {
    const CaseCalculator* const calculator = store_.calculator();
    const auto derivation =
        calculator != nullptr ? calculator->explain(store_.current(), code) : std::nullopt;
    if (!derivation) {
        return false;
    }
    title_->setText(labelText(derivation->label));
    auto* const steps = new Steps(*derivation);
    std::vector<QWidget*> doors{scroll_};
    for (const DerivationStep& step : derivation->steps) {
        const bool leadsOn = step.path || (step.code && *step.code != code);
        if (QPushButton* const door = steps->add(step, leadsOn)) {
            connectDoor(*door, step);
            doors.push_back(door);
        }
    }
    steps->addResult();
    scroll_->setWidget(steps);
    if (!isVisible()) { // as high as what it says; while it is open it stays as it is
        resize(usualWidth, std::clamp(steps->sizeHint().height() + aroundContent, 260, 720));
    }
    doors.push_back(back_); // made before them, but they stand below
    doors.push_back(close_);
    for (std::size_t i = 1; i < doors.size(); ++i) {
        setTabOrder(doors[i - 1], doors[i]);
    }
    return true;
}

void ReasonDialog::connectDoor(QPushButton& door, const DerivationStep& step) {
    if (step.path) {
        connect(&door, &QPushButton::clicked, this, [this, path = qs(*step.path)] {
            accept();
            Q_EMIT fieldWanted(path);
        });
    } else {
        connect(
            &door, &QPushButton::clicked, this, [this, next = *step.code] { goOn(next); },
            Qt::QueuedConnection); // the button goes with the steps it stands among
    }
}

} // namespace fiscarel::shell
