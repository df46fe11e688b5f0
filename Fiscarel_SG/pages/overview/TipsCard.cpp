#include "Fiscarel_SG/pages/overview/TipsCard.h"

#include "Fiscarel_SG/pages/overview/DoorList.h"
#include "Fiscarel_SG/pages/overview/MoneyText.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using taxcore::Notice;

namespace {

constexpr std::size_t mostShown = 3;
constexpr int savingWidth = 120;

} // namespace

TipsCard::TipsCard(QWidget* parent)
    : CardFrame(u"Spartipps"_s, {}, parent), nothing_(addText({}, "faint")),
      list_(new DoorList({savingWidth}, this)) {
    column().addWidget(list_);
    all_ = addLink({}, u"tipsAll"_s);
    connect(list_, &DoorList::chosen, this, [this](int index) {
        const Notice& tip = shown_.at(static_cast<std::size_t>(index));
        if (tip.path) {
            Q_EMIT fieldWanted(qs(*tip.path));
        } else {
            Q_EMIT pageWanted(u"review"_s);
        }
    });
    connect(all_, &QPushButton::clicked, this, [this] { Q_EMIT pageWanted(u"review"_s); });
}

void TipsCard::refresh(const std::vector<Notice>& tips, int year) {
    std::vector<Notice> open;
    for (const Notice& tip : tips) {
        if (!tip.missed.value_or(false) && open.size() < mostShown) {
            open.push_back(tip);
        }
    }
    nothing_->setText(tips.empty()
                          ? u"Zu Ihren Angaben gibt es keinen Spartipp."_s
                          : u"Für %1 ist nichts mehr zu holen; was ab dem nächsten Jahr hilft, "
                            "steht in der Prüfung."_s.arg(year));
    nothing_->setVisible(open.empty());
    all_->setText(tips.size() == 1
                      ? u"Den Spartipp in der Prüfung ansehen"_s
                      : u"Alle %1 Spartipps in der Prüfung ansehen"_s.arg(tips.size()));
    all_->setVisible(!tips.empty());
    std::vector<RowContent> rows;
    rows.reserve(open.size());
    for (const Notice& tip : open) {
        rows.push_back({.name = u"tip:"_s + qs(tip.id),
                        .title = qs(tip.title),
                        .figures = {u"spart "_s + francs(tip.saving.value_or(0))},
                        .figureRole = "good",
                        .action = u"Zum Feld"_s});
    }
    shown_ = std::move(open);
    list_->setRows(std::move(rows));
}

} // namespace fiscarel::pages
