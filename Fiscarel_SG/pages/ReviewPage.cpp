#include "Fiscarel_SG/pages/ReviewPage.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/NoticeDoor.h"
#include "Fiscarel_SG/pages/NoticeSign.h"
#include "TaxCore/base/MoneyFormat.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

ReviewPage::ReviewPage(AppStore& store, QWidget* parent)
    : PageWidget(parent), store_(store),
      frame_(new look::PageFrame(
          u"Prüfung"_s, u"Was noch fehlt, was auffällt und womit sich Steuern sparen lassen."_s,
          this)) {
    refreshResult();
}

void ReviewPage::refreshResult() {
    const Review& review = store_.review();
    std::vector<Notice> notices = store_.notices();
    if (content_ != nullptr && notices == shownNotices_ && review.tips == shownTips_) {
        return;
    }
    shownNotices_ = std::move(notices);
    shownTips_ = review.tips;
    QVBoxLayout* const column = &frame_->renew(content_);

    std::vector<Notice> open;
    std::vector<Notice> infos;
    for (const Notice& notice : shownNotices_) {
        (notice.level == Notice::Level::info ? infos : open).push_back(notice);
    }
    if (open.empty()) {
        addLabel(pages::addCard(*column, {}),
                 store_.result() == nullptr
                     ? u"Ohne Regeln für dieses Jahr gibt es keine Prüfung."_s
                 : infos.empty() ? u"Alles erledigt – es ist nichts mehr offen."_s
                                 : u"Es fehlt nichts mehr. Unter «Gut zu wissen» steht, was einen "
                                   "Blick wert ist."_s,
                 "heading");
    } else {
        addCard(u"Offen (%1)"_s.arg(open.size()), {}, open);
    }
    std::vector<Notice> missed;
    std::vector<Notice> tips;
    for (const Notice& tip : review.tips) {
        (tip.missed.value_or(false) ? missed : tips).push_back(tip);
    }
    if (!tips.empty()) {
        addCard(
            u"Spartipps"_s,
            tips.size() > 1
                ? u"Jede Ersparnis ist für sich gerechnet; sie lassen sich nicht zusammenzählen."_s
                : QString(),
            tips);
    }
    if (!missed.empty()) {
        addCard(u"Zu spät für %1 – ab %2 beachten"_s.arg(store_.year()).arg(store_.year() + 1), {},
                missed);
    }
    if (!infos.empty()) {
        addCard(u"Gut zu wissen"_s, {}, infos);
    }
    QVBoxLayout& limits = pages::addCard(*column, u"Was das Programm nicht berechnet"_s);
    for (const std::string& sentence : review.notComputed) {
        addLabel(limits, qs(sentence), "faint");
    }
    column->addStretch(1);
}

void ReviewPage::addCard(const QString& title, const QString& help,
                         const std::vector<Notice>& notices) {
    QVBoxLayout& inside =
        pages::addCard(dynamic_cast<QVBoxLayout&>(*content_->layout()), title, help);
    for (const Notice& notice : notices) {
        addNotice(notice, inside);
    }
}

void ReviewPage::addNotice(const Notice& notice, QVBoxLayout& column) {
    QWidget* const parent = column.parentWidget();
    addLine(column);
    auto* const head = new QHBoxLayout;
    const NoticeSign sign = NoticeSign::of(notice.level);
    auto* const title = new QLabel(labelText(notice.title), parent);
    look::setRole(title, "figure");
    title->setWordWrap(true);
    head->addWidget(title, 1);
    if (notice.saving) {
        auto* const saving =
            new QLabel((notice.missed.value_or(false) ? u"hätte %1 gespart"_s : u"spart %1"_s)
                           .arg(qs(MoneyFormat::chf(*notice.saving, 0, true))),
                       parent);
        look::setRole(saving, "figure");
        head->addWidget(saving);
    } else {
        auto* const level = new QLabel(sign.text, parent);
        look::setRole(level, sign.role);
        head->addWidget(level);
    }
    column.addLayout(head);
    addLabel(column, labelText(notice.message), "faint");
    if (NoticeDoor* const go = NoticeDoor::of(notice, u"go"_s, parent)) {
        column.addWidget(go, 0, Qt::AlignLeft);
        connect(go, &NoticeDoor::fieldWanted, this, &PageWidget::fieldWanted);
        connect(go, &NoticeDoor::pageWanted, this, &PageWidget::pageWanted);
    }
}

} // namespace fiscarel::pages
