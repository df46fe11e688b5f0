#include "Fiscarel_SG/shell/TaxBar.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/shell/Theme.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Rounding.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace fiscarel::shell {

using namespace Qt::Literals::StringLiterals;
using taxcore::Decimal;
using taxcore::MoneyFormat;

namespace {

constexpr std::size_t rowCount = 8;

QString money(const Decimal& amount) { return qs(MoneyFormat::chf(amount, 2, false)); }
QString whole(const Decimal& amount) { return qs(MoneyFormat::chf(amount, 0, false)); }

/// A line of the bar: what it says and the figure whose reason it leads to.
struct Entry {
    QString name;
    QString amount;
    std::string code;
};

std::vector<Entry> entriesOf(const taxcore::TaxBill& bill, bool liechtenstein) {
    std::vector<Entry> entries;
    if (liechtenstein) {
        entries = {{u"Landessteuer"_s, money(bill.cantonTotal()), "cantonTotal"},
                   {u"Gemeindesteuer"_s, money(bill.municipalityTotal()), "municipalityTotal"},
                   {u"Steuerbarer Erwerb"_s, whole(bill.taxableIncomeCanton), "650"},
                   {u"Reinvermögen"_s, whole(bill.taxableWealth), "880"}};
        return entries;
    }
    entries = {{u"Kanton"_s, money(bill.cantonTotal()), "cantonTotal"},
               {u"Gemeinde"_s, money(bill.municipalityTotal()), "municipalityTotal"}};
    if (bill.churchRate > 0) {
        entries.push_back({u"Kirche"_s, money(bill.churchTotal()), "churchTotal"});
    }
    entries.push_back({u"Bund"_s, money(bill.federal), "federal"});
    entries.push_back(
        {u"Steuerbares Einkommen"_s, whole(bill.taxableIncomeCanton), "steuerbaresEinkommen"});
    entries.push_back({u"– beim Bund"_s, whole(bill.taxableIncomeFederal), "steuerbaresEinkommen"});
    entries.push_back(
        {u"Steuerbares Vermögen"_s, whole(bill.taxableWealth), "steuerbaresVermoegen"});
    return entries;
}

} // namespace

TaxBar::TaxBar(AppStore& store, QWidget* parent)
    : QWidget(parent), store_(store), total_(new QLabel(this)), totalName_(new QLabel(this)),
      change_(new QLabel(this)), marginal_(new QLabel(this)), column_(new QVBoxLayout(this)) {
    setObjectName(u"taxBar"_s);
    setAttribute(Qt::WA_StyledBackground);
    setRole(this, "taxbar");
    setFixedWidth(270);
    column_->setContentsMargins(20, 24, 20, 20);
    column_->setSpacing(4);
    setRole(totalName_, "faint");
    setRole(total_, "total");
    total_->setObjectName(u"total"_s);
    total_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    change_->setWordWrap(true);
    marginal_->setWordWrap(true);
    setRole(marginal_, "small");
    column_->addWidget(totalName_);
    column_->addWidget(total_);
    column_->addWidget(change_);
    column_->addSpacing(10);
    for (std::size_t i = 0; i < rowCount; ++i) {
        addRow({});
    }
    column_->addSpacing(10);
    column_->addWidget(marginal_);
    column_->addStretch(1);
    refresh();
}

void TaxBar::addRow(const QString& name) {
    auto* const line = new QWidget(this);
    auto* const layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    auto* const door = new QPushButton(name, line);
    setRole(door, "door");
    door->setToolTip(u"Woher kommt dieser Betrag?"_s);
    auto* const amount = new QLabel(line);
    setRole(amount, "figure");
    amount->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout->addWidget(door, 1);
    layout->addWidget(amount);
    column_->addWidget(line);
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
    row.name->parentWidget()->setVisible(!name.isEmpty());
}

std::optional<Decimal> TaxBar::total() const {
    const auto* result = store_.result();
    return result != nullptr ? std::optional(taxcore::Advisor::totalTax(*result)) : std::nullopt;
}

void TaxBar::beginPage() {
    atPageStart_ = total();
    refresh();
}

void TaxBar::refresh() {
    const auto* result = store_.result();
    totalName_->setText(u"Steuern %1"_s.arg(store_.year()));
    const auto sum = total();
    total_->setText(sum ? qs(MoneyFormat::chf(*sum, 2, true)) : u"–"_s);
    std::vector<Entry> entries;
    if (result != nullptr) {
        entries = entriesOf(result->bill,
                            store_.current().taxRegion() == taxcore::TaxRegion::liechtenstein);
        const Decimal capital = *sum - result->bill.total();
        if (capital > 0) {
            const auto income = std::ranges::find_if(entries, [](const Entry& entry) {
                return entry.code == "steuerbaresEinkommen" || entry.code == "650";
            });
            entries.insert(income, {u"Kapitalleistungen"_s, money(capital), "kapitalleistungen"});
        }
    }
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const bool used = i < entries.size();
        setRow(i, used ? entries[i].name : QString(), used ? entries[i].amount : QString(),
               used ? entries[i].code : std::string());
    }
    const Decimal change = sum && atPageStart_ ? *sum - *atPageStart_ : Decimal(0);
    change_->setText(
        change == 0 ? QString()
                    : u"%1%2 seit Öffnen dieser Seite"_s.arg(
                        change > 0 ? u"+"_s : QString(), qs(MoneyFormat::chf(change, 0, false))));
    setRole(change_, change > 0 ? "warning" : "good");
    const Decimal of100 = (store_.marginalRate() * 100).roundPlain(0);
    marginal_->setText(
        result == nullptr || of100 <= 0
            ? QString()
            : u"Von 100 Franken mehr Einkommen gehen %1 an die Steuer."_s.arg(whole(of100)));
}

} // namespace fiscarel::shell
