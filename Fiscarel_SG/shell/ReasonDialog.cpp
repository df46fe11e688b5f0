#include "Fiscarel_SG/shell/ReasonDialog.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/look/ElidingButton.h"
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
    close_->setText(u"Schliessen"_s);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(20, 18, 20, 16);
    outer->addWidget(title_);
    outer->addWidget(scroll_, 1);
    outer->addWidget(buttons);
}

bool ReasonDialog::explain(const std::string& code) {
    const CaseCalculator* const calculator = store_.calculator();
    const auto derivation =
        calculator != nullptr ? calculator->explain(store_.current(), code) : std::nullopt;
    if (!derivation) {
        return false;
    }
    title_->setText(qs(derivation->label));
    auto* const content = new QWidget(scroll_);
    auto* const grid = new QGridLayout(content);
    grid->setContentsMargins(0, 4, 12, 4);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(0, kindWidth);
    const int digits = digitsOf(*derivation);
    const bool twoSides = derivation->canton && derivation->federal;
    std::vector<QWidget*> doors{scroll_};
    int row = 0;
    if (twoSides) {
        grid->addWidget(amountLabel(u"Kanton"_s, false, content), row, 2);
        grid->addWidget(amountLabel(u"Bund"_s, false, content), row, 3);
        ++row;
    }
    const auto addAmounts = [&](const std::optional<Decimal>& canton,
                                const std::optional<Decimal>& federal, Unit unit, bool strong) {
        const auto& first = derivation->canton || !derivation->federal ? canton : federal;
        grid->addWidget(amountLabel(shown(first, unit, digits), strong, content), row, 2);
        if (twoSides) {
            grid->addWidget(amountLabel(shown(federal, unit, digits), strong, content), row, 3);
        }
    };
    for (const DerivationStep& step : derivation->steps) {
        grid->addWidget(label(qs(taxcore::label(step.kind)), "small", content), row, 0,
                        Qt::AlignTop);
        const bool leadsOn = step.path || (step.code && *step.code != code);
        if (leadsOn) {
            auto* const door = new look::ElidingButton(content, qs(step.text));
            look::setRole(door, "textlink"); // as high as the texts beside it
            grid->addWidget(door, row, 1, Qt::AlignTop);
            doors.push_back(door);
            if (step.path) {
                connect(door, &QPushButton::clicked, this, [this, path = qs(*step.path)] {
                    accept();
                    Q_EMIT fieldWanted(path);
                });
            } else {
                connect(
                    door, &QPushButton::clicked, this, [this, next = *step.code] { explain(next); },
                    Qt::QueuedConnection);
            }
        } else {
            grid->addWidget(label(qs(step.text), "", content), row, 1, Qt::AlignTop);
        }
        addAmounts(step.canton, step.federal, step.unit.value_or(Unit::francs), false);
        ++row;
        if (const QString law = lawOf(step); !law.isEmpty()) {
            grid->addWidget(label(law, "small", content), row, 1);
            ++row;
        }
    }
    auto* const line = new QFrame(content);
    look::setRole(line, "line");
    grid->addWidget(line, row++, 0, 1, twoSides ? 4 : 3);
    grid->addWidget(label(qs(derivation->label), "figure", content), row, 0, 1, 2);
    addAmounts(derivation->canton, derivation->federal, derivation->unit, true);
    grid->setRowStretch(row + 1, 1);
    scroll_->setWidget(content);
    if (!isVisible()) { // as high as what it says; while it is open it stays as it is
        resize(usualWidth, std::clamp(content->sizeHint().height() + aroundContent, 260, 620));
    }
    doors.push_back(close_); // made before them, but it stands below
    for (std::size_t i = 1; i < doors.size(); ++i) {
        setTabOrder(doors[i - 1], doors[i]);
    }
    return true;
}

} // namespace fiscarel::shell
