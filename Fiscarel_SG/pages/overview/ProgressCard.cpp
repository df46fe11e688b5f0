#include "Fiscarel_SG/pages/overview/ProgressCard.h"

#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/pages/overview/DoorList.h"
#include "Fiscarel_SG/pages/overview/Progress.h"

#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int stateWidth = 130;

QString stateOf(const PageProgress& page) {
    if (page.open > 0) {
        return page.open == 1 ? u"1 Hinweis offen"_s : u"%1 Hinweise offen"_s.arg(page.open);
    }
    return page.hasEntries ? u"Nichts offen"_s : u"–"_s;
}

} // namespace

ProgressCard::ProgressCard(QWidget* parent)
    : CardFrame(u"Stand der Eingaben"_s, {}, parent), pages_(new DoorList({stateWidth}, this)) {
    column().addWidget(pages_);
    connect(pages_, &DoorList::chosen, this,
            [this](int index) { Q_EMIT pageWanted(qs(ids_.at(static_cast<std::size_t>(index)))); });
}

void ProgressCard::refresh(const taxcore::TaxCase& taxCase,
                           const std::vector<taxcore::Notice>& notices) {
    std::vector<RowContent> rows;
    ids_.clear();
    for (const PageProgress& page : progressOf(taxCase, notices)) {
        rows.push_back({.name = u"progress:"_s + qs(page.id),
                        .title = qs(page.title),
                        .detail = qs(page.detail),
                        .figures = {stateOf(page)},
                        .figureRole = page.open > 0     ? "warning"
                                      : page.hasEntries ? "good"
                                                        : "faint",
                        .action = u"Seite öffnen"_s});
        ids_.push_back(page.id);
    }
    pages_->setRows(std::move(rows));
}

} // namespace fiscarel::pages
