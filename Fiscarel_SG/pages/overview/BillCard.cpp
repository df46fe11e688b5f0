#include "Fiscarel_SG/pages/overview/BillCard.h"

#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/overview/DoorList.h"
#include "Fiscarel_SG/pages/overview/MoneyText.h"
#include "Fiscarel_SG/pages/overview/RingChart.h"
#include "TaxCore/review/Advisor.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

namespace {

constexpr int amountWidth = 104;
constexpr int percentWidth = 58;

} // namespace

BillCard::BillCard(QWidget* parent)
    : CardFrame({}, {}, parent), total_(new QLabel(this)), ring_(new RingChart(this)),
      shares_(new DoorList({amountWidth, percentWidth}, this)),
      bases_(new DoorList({amountWidth}, this)) {
    look::setRole(total_, "total");
    total_->setObjectName(u"billTotal"_s);
    total_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    addInset(total_);
    share_ = addText({}, "faint");
    auto* const line = new QHBoxLayout;
    line->setSpacing(20);
    line->setContentsMargins(8, 0, 0, 0);
    line->addWidget(ring_, 0, Qt::AlignTop);
    auto* const right = new QVBoxLayout;
    right->setSpacing(0);
    right->addStretch(1);
    right->addWidget(shares_);
    right->addStretch(1);
    line->addLayout(right, 1);
    column().addLayout(line);
    addLine();
    column().addWidget(bases_);
    connect(shares_, &DoorList::chosen, this, [this](int index) { open(shareCodes_, index); });
    connect(bases_, &DoorList::chosen, this, [this](int index) { open(baseCodes_, index); });
}

void BillCard::open(const std::vector<std::string>& codes, int index) {
    Q_EMIT reasonWanted(qs(codes.at(static_cast<std::size_t>(index))));
}

void BillCard::refresh(const TaxResult& result, TaxRegion region) {
    const Decimal total = Advisor::totalTax(result);
    setTitle(u"Steuern %1"_s.arg(result.year));
    total_->setText(qs(MoneyFormat::chf(total, 2, true)));
    total_->setAccessibleName(u"Steuern %1: %2"_s.arg(result.year).arg(total_->text()));
    const Decimal& income = result.bill.taxableIncomeCanton;
    const Decimal share =
        income > 0 ? (result.bill.total() * 100 / income).roundPlain(1) : Decimal(0);
    const QString base =
        region == TaxRegion::liechtenstein ? u"steuerbaren Erwerbs"_s : u"steuerbaren Einkommens"_s;
    share_->setText((result.capitalPaymentTax ? u"Ohne Kapitalleistungen sind das %1% des %2."_s
                                              : u"Das sind %1% des %2."_s)
                        .arg(qs(MoneyFormat::number(share)), base));
    share_->setVisible(share > 0);
    showShares(result, region);
    showBases(result, region);
}

void BillCard::showShares(const TaxResult& result, TaxRegion region) {
    const std::vector<BillShare> shares = billShares(result, region);
    ring_->setShares(shares);
    std::vector<RowContent> rows;
    shareCodes_.clear();
    for (const BillShare& share : shares) {
        const int index = static_cast<int>(rows.size());
        rows.push_back({.name = u"bill:"_s + qs(share.code),
                        .title = qs(share.name),
                        .figures = {rappen(share.amount),
                                    qs(MoneyFormat::chf(share.percent, 1, false)) + u'%'},
                        .figureRole = "faint",
                        .action = u"Herkunft zeigen"_s,
                        .marker = look::Theme::current().chart(index),
                        .sign = QString::number(index + 1)});
        shareCodes_.push_back(share.code);
    }
    shares_->setRows(std::move(rows));
}

void BillCard::showBases(const TaxResult& result, TaxRegion region) {
    struct Base {
        QString name;
        const Decimal& amount;
        const char* code;
    };
    const TaxBill& bill = result.bill;
    const std::vector<Base> bases =
        region == TaxRegion::liechtenstein
            ? std::vector<Base>{{u"Steuerbarer Erwerb"_s, bill.taxableIncomeCanton, "650"},
                                {u"Reinvermögen"_s, bill.taxableWealth, "880"}}
            : std::vector<Base>{
                {u"Steuerbares Einkommen Kanton"_s, bill.taxableIncomeCanton,
                 "steuerbaresEinkommen"},
                {u"Steuerbares Einkommen Bund"_s, bill.taxableIncomeFederal,
                 "steuerbaresEinkommen"},
                {u"Steuerbares Vermögen"_s, bill.taxableWealth, "steuerbaresVermoegen"}};
    std::vector<RowContent> rows;
    baseCodes_.clear();
    for (const Base& base : bases) {
        rows.push_back({.name = u"base:%1:%2"_s.arg(QLatin1String(base.code)).arg(rows.size()),
                        .title = base.name,
                        .figures = {francs(base.amount)},
                        .action = u"Herkunft zeigen"_s});
        baseCodes_.emplace_back(base.code);
    }
    bases_->setRows(std::move(rows));
}

} // namespace fiscarel::pages
