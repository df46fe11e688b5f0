#include "Fiscarel_SG/pages/overview/CurveCard.h"

#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/overview/ChartParts.h"
#include "Fiscarel_SG/pages/overview/CurveChart.h"
#include "Fiscarel_SG/pages/overview/DoorList.h"
#include "Fiscarel_SG/pages/overview/MoneyText.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

namespace {

constexpr int pointCount = 200;
constexpr int leastEnd = 150'000; ///< of the axis of the income, francs
constexpr int stepWidth = 100;

/// Twice the household's income in full tens of thousands, so that there is as much above as below.
Decimal endFor(const Decimal& income) {
    return std::max(Decimal(leastEnd), -((-income * 2).roundDown(-4)));
}

/// The marginal rate at an income, as the curve has it.
Decimal marginalAt(const IncomeCurve& curve, const Decimal& income) {
    const auto at = std::ranges::lower_bound(curve.points, income, {}, &CurvePoint::income);
    return at != curve.points.end() ? at->marginal : Decimal(0);
}

QString percent(const Decimal& fraction) {
    return qs(MoneyFormat::chf(fraction * 100, 1, false)) + u'%';
}

} // namespace

CurveCard::CurveCard(QWidget* parent)
    : CardFrame(u"Steuer und Einkommen"_s,
                u"Wie die Steuer mit dem steuerbaren Einkommen wächst, alles andere gleich. Der "
                "volle Punkt sind Sie heute, der leere mit den Werten von «Was wäre, wenn …»."_s,
                parent),
      tax_(addChart(u"Steuer in Franken"_s, {})),
      marginal_(addChart(u"Von 100 Franken mehr Einkommen gehen so viele an die Steuer"_s,
                         u" von 100"_s)),
      next_(addText({}, "faint")), more_(addLink({}, u"curveSteps"_s)),
      steps_(new DoorList({stepWidth}, this)) {
    column().addWidget(steps_);
    steps_->hide();
    steps_->setHeader(u"Was ab dort gilt"_s, {u"Einkommen"_s});
    more_->setText(u"Alle Tarifstufen zeigen"_s);
    more_->setCheckable(true);
    connect(more_, &QPushButton::toggled, this, [this](bool shown) {
        steps_->setVisible(shown);
        more_->setText(shown ? u"Tarifstufen verbergen"_s : u"Alle Tarifstufen zeigen"_s);
    });
}

CurveChart* CurveCard::addChart(const QString& name, const QString& unit) {
    addText(name, "small");
    auto* const made = new CurveChart(unit, this);
    made->setAccessibleName(u"Kurve: "_s + name);
    addInset(made);
    return made;
}

void CurveCard::refresh(const CaseCalculator& calculator, const TaxCase& taxCase,
                        const TaxResult& result, const MarginalRate& marginal) {
    const Decimal& income = result.bill.taxableIncomeCanton;
    IncomeCurve curve =
        Advisor::incomeCurve(calculator, taxCase, result, endFor(income), pointCount);
    if (!(curve == curve_)) {
        curve_ = std::move(curve);
        QList<QPointF> taxes;
        QList<QPointF> rates;
        for (const CurvePoint& point : curve_.points) {
            const double at = toDouble(point.income);
            taxes.append({at, toDouble(point.tax)});
            rates.append({at, toDouble(point.marginal * 100)});
        }
        std::vector<CurveStep> steps;
        for (const TariffStep& step : curve_.steps) {
            steps.push_back({toDouble(step.income), qs(step.text)});
        }
        tax_->setCurve(taxes, steps);
        marginal_->setCurve(rates, std::move(steps));
        showSteps(income);
    }
    tax_->setHere({toDouble(income), toDouble(result.bill.total())});
    marginal_->setHere({toDouble(income), toDouble(marginal.total * 100)});
    describe(result, marginal.total);
}

void CurveCard::setImagined(const std::optional<TaxResult>& imagined) {
    if (!imagined) {
        tax_->setThere(std::nullopt);
        marginal_->setThere(std::nullopt);
        return;
    }
    const Decimal& income = imagined->bill.taxableIncomeCanton;
    const double at = toDouble(income);
    tax_->setThere(QPointF(at, toDouble(imagined->bill.total())));
    marginal_->setThere(QPointF(at, toDouble(marginalAt(curve_, income) * 100)));
}

void CurveCard::showSteps(const Decimal& income) {
    std::vector<RowContent> rows;
    for (const TariffStep& step : curve_.steps) {
        rows.push_back(
            {.title = labelText(step.text), .figures = {francs(step.income)}, .isDoor = false});
    }
    const auto above = std::ranges::find_if(
        curve_.steps, [&](const TariffStep& step) { return step.income > income; });
    next_->setText(above == curve_.steps.end()
                       ? u"Über Ihrem Einkommen gibt es in diesem Bereich keine Stufe mehr."_s
                       : u"Die nächste Stufe des Tarifs beginnt bei %1 – %2."_s.arg(
                           francs(above->income), labelText(above->text)));
    more_->setVisible(!rows.empty());
    steps_->setRows(std::move(rows));
    steps_->setVisible(more_->isChecked());
}

void CurveCard::describe(const TaxResult& result, const Decimal& marginal) {
    const QString income = francs(result.bill.taxableIncomeCanton);
    tax_->setAccessibleDescription(u"Bei einem steuerbaren Einkommen von %1 Franken beträgt die "
                                   "Steuer %2 Franken."_s.arg(income, rappen(result.bill.total())));
    marginal_->setAccessibleDescription(
        u"Bei einem steuerbaren Einkommen von %1 Franken beträgt der Grenzsteuersatz %2."_s.arg(
            income, percent(marginal)));
}

} // namespace fiscarel::pages
