#include "Fiscarel_SG/shell/TaxBar.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/overview/BillShares.h"
#include "Fiscarel_SG/pages/overview/MoneyText.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Rounding.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace fiscarel::shell {

using namespace Qt::Literals::StringLiterals;
using taxcore::Decimal;
using taxcore::MoneyFormat;

namespace {

constexpr std::size_t taxRows = 5;  ///< who gets what
constexpr std::size_t baseRows = 3; ///< what is taxed

constexpr int margin = 15;
constexpr int textInset = 5; ///< as far as the text of a door from its edge

/// A line of the bar: what it says and the figure whose reason it leads to.
struct Entry {
    QString name;
    QString amount;
    std::string code;
};

std::vector<Entry> taxesOf(const taxcore::TaxResult& result, taxcore::TaxRegion region) {
    std::vector<Entry> entries;
    for (const pages::BillShare& share : pages::billShares(result, region)) {
        entries.push_back({qs(share.name), pages::rappen(share.amount), share.code});
    }
    return entries;
}

std::vector<Entry> basesOf(const taxcore::TaxBill& bill, bool liechtenstein) {
    if (liechtenstein) {
        return {{u"Erwerb"_s, pages::francs(bill.taxableIncomeCanton), "650"},
                {u"Reinvermögen"_s, pages::francs(bill.taxableWealth), "880"}};
    }
    std::vector<Entry> entries;
    if (bill.taxableIncomeCanton == bill.taxableIncomeFederal) {
        entries.push_back(
            {u"Einkommen"_s, pages::francs(bill.taxableIncomeCanton), "steuerbaresEinkommen"});
    } else {
        entries.push_back({u"Einkommen Kanton"_s, pages::francs(bill.taxableIncomeCanton),
                           "steuerbaresEinkommen"});
        entries.push_back({u"Einkommen Bund"_s, pages::francs(bill.taxableIncomeFederal),
                           "steuerbaresEinkommen"});
    }
    entries.push_back({u"Vermögen"_s, pages::francs(bill.taxableWealth), "steuerbaresVermoegen"});
    return entries;
}

} // namespace

TaxBar::TaxBar(AppStore& store, QWidget* parent)
    : QWidget(parent), store_(store), total_(new QLabel(this)), totalName_(new QLabel(this)),
      why_(new QPushButton(u"Warum?"_s, this)), change_(new QLabel(this)),
      marginal_(new QLabel(this)), taxable_(new QLabel(u"Steuerbar"_s, this)),
      column_(new QVBoxLayout(this)) {
    setObjectName(u"taxBar"_s);
    setAttribute(Qt::WA_StyledBackground);
    look::setRole(this, "taxbar");
    setFixedWidth(270);
    column_->setContentsMargins(margin, 24, margin, 20);
    column_->setSpacing(4);
    for (QLabel* const label : {totalName_, total_, change_, marginal_, taxable_}) {
        label->setContentsMargins(textInset, 0, textInset, 0);
    }
    look::setRole(totalName_, "faint");
    look::setRole(total_, "total");
    total_->setObjectName(u"total"_s);
    total_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    change_->setWordWrap(true);
    marginal_->setWordWrap(true);
    look::setRole(marginal_, "small");
    why_->setObjectName(u"whyTotal"_s);
    why_->setAccessibleName(u"Warum dieser Betrag? Herkunft des Totals zeigen"_s);
    look::setRole(why_, "textlink");
    connect(why_, &QPushButton::clicked, this, [this] { Q_EMIT reasonWanted(u"total"_s); });
    auto* const top = new QHBoxLayout;
    top->setContentsMargins(0, 0, textInset, 0);
    top->addWidget(totalName_, 1);
    top->addWidget(why_);
    column_->addLayout(top);
    column_->addWidget(total_);
    column_->addWidget(change_);
    column_->addSpacing(10);
    look::setRole(taxable_, "faint");
    for (std::size_t i = 0; i < taxRows + baseRows; ++i) {
        if (i == taxRows) {
            column_->addSpacing(10);
            column_->addWidget(taxable_);
        }
        addRow();
    }
    column_->addSpacing(10);
    column_->addWidget(marginal_);
    column_->addStretch(1);
    refresh();
}

/// The whole row is the door, so that the figure can be clicked too.
void TaxBar::addRow() {
    auto* const door = new QPushButton(this);
    look::setRole(door, "door");
    door->setToolTip(u"Woher kommt dieser Betrag?"_s);
    auto* const layout = new QHBoxLayout(door);
    layout->setContentsMargins(0, 0, textInset, 0);
    auto* const amount = new QLabel(door);
    look::setRole(amount, "figure");
    amount->setAttribute(Qt::WA_TransparentForMouseEvents);
    layout->addWidget(amount, 1, Qt::AlignRight | Qt::AlignVCenter);
    column_->addWidget(door);
    const std::size_t index = rows_.size();
    rows_.push_back({door, amount, {}});
    connect(door, &QPushButton::clicked, this,
            [this, index] { Q_EMIT reasonWanted(qs(rows_[index].code)); });
}

void TaxBar::setRow(std::size_t index, const QString& name, const QString& amount,
                    std::string code) {
    Row& row = rows_[index];
    row.name->setText(name);
    row.name->setAccessibleName(u"%1 %2, Herkunft zeigen"_s.arg(name, amount));
    row.name->setObjectName(u"taxbar:"_s + qs(code) + (index > 0 ? QString::number(index) : u""_s));
    row.amount->setText(amount);
    row.code = std::move(code);
    row.name->setVisible(!name.isEmpty());
}

std::optional<Decimal> TaxBar::total() const {
    const auto* result = store_.result();
    return result != nullptr ? std::optional(taxcore::Advisor::totalTax(*result)) : std::nullopt;
}

TaxBar::Summary TaxBar::summary() const {
    const auto sum = total();
    Summary summary{.name = u"Steuern %1"_s.arg(store_.year()),
                    .total = sum ? qs(MoneyFormat::chf(*sum, 2, true)) : u"–"_s};
    const Decimal change = sum && atPageStart_ ? *sum - *atPageStart_ : Decimal(0);
    if (change != 0) {
        summary.change = pages::change(change, 0) + u" seit Öffnen dieser Seite"_s;
        summary.changeRole = pages::changeRole(change);
    }
    return summary;
}

void TaxBar::beginPage() {
    atPageStart_ = total();
    refresh();
}

void TaxBar::refresh() {
    const auto* result = store_.result();
    const Summary top = summary();
    totalName_->setText(top.name);
    total_->setText(top.total);
    change_->setText(top.change);
    look::setRole(change_, top.changeRole);
    std::vector<Entry> taxes;
    std::vector<Entry> bases;
    if (result != nullptr) {
        const taxcore::TaxRegion region = store_.current().taxRegion();
        taxes = taxesOf(*result, region);
        bases = basesOf(result->bill, region == taxcore::TaxRegion::liechtenstein);
    }
    taxable_->setVisible(!bases.empty());
    why_->setVisible(result != nullptr);
    taxes.resize(taxRows);
    bases.resize(baseRows);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        Entry& entry = i < taxRows ? taxes[i] : bases[i - taxRows];
        setRow(i, entry.name, entry.amount, std::move(entry.code));
    }
    const Decimal of100 = (store_.marginalRate() * 100).roundPlain(0);
    marginal_->setText(result == nullptr || of100 <= 0
                           ? QString()
                           : u"Von 100 Franken mehr Einkommen gehen %1 an die Steuer."_s.arg(
                               pages::francs(of100)));
    Q_EMIT refreshed();
}

} // namespace fiscarel::shell
