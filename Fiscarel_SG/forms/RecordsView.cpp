#include "Fiscarel_SG/forms/RecordsView.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/look/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

namespace {

/// "Lohnausweis Muster AG"; not longer than a message takes.
QString calledAs(const QString& itemName, const QString& title) {
    constexpr qsizetype longest = 60;
    const QString name = title.startsWith(itemName) ? title : itemName + u' ' + title;
    return name.size() > longest ? name.left(longest - 1).trimmed() + u'…' : name;
}

} // namespace

RecordsView::RecordsView(ListCard card, AppStore& store, QWidget* parent)
    : CardView(card.title, card.help, card.figures, card.shown, store, parent),
      card_(std::move(card)), total_(new QLabel(this)),
      takeOver_(new QPushButton(u"Vom Vorjahr übernehmen"_s, this)) {
    setObjectName(u"list:"_s + qs(card_.path));
    look::setRole(total_, "figure");
    total_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    takeOver_->setObjectName(u"takeover:"_s + qs(card_.path));
    takeOver_->setAccessibleName(qs(card_.title) + u" vom Vorjahr übernehmen"_s);
    connect(takeOver_, &QPushButton::clicked, this, &RecordsView::takeOverLastYear);
}

std::size_t RecordsView::count() const { return card_.size(store().current()); }

QString RecordsView::titleOf(std::size_t index) const {
    const std::string title = card_.summary(store().current(), index).title;
    return title.empty() ? u"%1 %2"_s.arg(qs(card_.itemName)).arg(index + 1) : qs(title);
}

void RecordsView::change(const char* what, const std::function<void(TaxCase&)>& edit) {
    store().endMerging(); // taking two records away in a row is two steps
    store().edit(card_.itemName + " " + what, edit);
}

void RecordsView::add() { change("hinzufügen", card_.add); }

void RecordsView::duplicate(std::size_t index) {
    change("duplizieren", [&](TaxCase& taxCase) { card_.duplicate(taxCase, index); });
}

void RecordsView::remove(std::size_t index) {
    const QString sentence = u"«%1» entfernt"_s.arg(calledAs(qs(card_.itemName), titleOf(index)));
    change("entfernen", [&](TaxCase& taxCase) { card_.remove(taxCase, index); });
    Q_EMIT recordRemoved(sentence);
}

void RecordsView::move(std::size_t from, std::size_t to) {
    change("verschieben", [&](TaxCase& taxCase) { card_.move(taxCase, from, to); });
}

QPushButton* RecordsView::addTool(QHBoxLayout& line, const QString& text, const QString& name,
                                  const std::function<void()>& act) {
    auto* const button = new QPushButton(text, this);
    button->setObjectName(name);
    look::setRole(button, "link");
    connect(button, &QPushButton::clicked, this, act);
    line.addWidget(button);
    return button;
}

void RecordsView::nameTool(QPushButton& button, const QString& of) {
    button.setAccessibleName(u"%1: %2"_s.arg(button.text(), of));
}

const TaxCase* RecordsView::lastYear() const {
    const auto found = store().cases().find(store().year() - 1);
    return found != store().cases().end() ? &found->second : nullptr;
}

void RecordsView::takeOverLastYear() {
    if (const TaxCase* const from = lastYear()) {
        store().edit(card_.title + " vom Vorjahr übernehmen",
                     [&](TaxCase& taxCase) { card_.takeOver(taxCase, *from); });
    }
}

void RecordsView::refreshFoot() {
    const std::size_t records = count();
    total_->setText(card_.total ? labelText(card_.total(store().current())) : QString());
    total_->setVisible(!total_->text().isEmpty() && records > 0);
    const TaxCase* const before = card_.offersLastYear && records == 0 ? lastYear() : nullptr;
    takeOver_->setVisible(before != nullptr && card_.size(*before) > 0);
}

} // namespace fiscarel::forms
