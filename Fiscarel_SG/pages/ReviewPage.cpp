#include "Fiscarel_SG/pages/ReviewPage.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/pages/NoticeSign.h"
#include "Fiscarel_SG/shell/Theme.h"
#include "TaxCore/base/MoneyFormat.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

namespace {

QFrame* cardIn(QVBoxLayout& column, QWidget* parent) {
    auto* const card = new QFrame(parent);
    shell::setRole(card, "card");
    auto* const inside = new QVBoxLayout(card);
    inside->setContentsMargins(20, 16, 20, 16);
    inside->setSpacing(8);
    column.addWidget(card);
    return card;
}

QLabel* labelIn(QVBoxLayout& column, const QString& text, const char* role, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    label->setWordWrap(true);
    shell::setRole(label, role);
    column.addWidget(label);
    return label;
}

} // namespace

ReviewPage::ReviewPage(AppStore& store, QWidget* parent)
    : PageWidget(parent), store_(store),
      frame_(new shell::PageFrame(
          u"Prüfung"_s, u"Was noch fehlt, was auffällt und womit sich Steuern sparen lassen."_s,
          this)) {
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(frame_);
    refreshResult();
}

void ReviewPage::refreshResult() {
    const Review& review = store_.review();
    if (content_ != nullptr && review.notices == shownNotices_ && review.tips == shownTips_) {
        return;
    }
    shownNotices_ = review.notices;
    shownTips_ = review.tips;
    if (content_ != nullptr) {
        content_->hide();
        content_->deleteLater();
    }
    content_ = new QWidget(frame_);
    auto* const column = new QVBoxLayout(content_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(14);
    frame_->column().addWidget(content_);

    std::vector<Notice> open;
    std::vector<Notice> infos;
    for (const Notice& notice : review.notices) {
        (notice.level == Notice::Level::info ? infos : open).push_back(notice);
    }
    if (open.empty()) {
        QFrame* const card = cardIn(*column, content_);
        labelIn(dynamic_cast<QVBoxLayout&>(*card->layout()),
                store_.result() != nullptr
                    ? u"Alles erledigt – es ist nichts mehr offen."_s
                    : u"Ohne Regeln für dieses Jahr gibt es keine Prüfung."_s,
                "heading", card);
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
    QFrame* const limits = cardIn(*column, content_);
    auto& inside = dynamic_cast<QVBoxLayout&>(*limits->layout());
    labelIn(inside, u"Was das Programm nicht berechnet"_s, "heading", limits);
    for (const std::string& sentence : review.notComputed) {
        labelIn(inside, qs(sentence), "faint", limits);
    }
    column->addStretch(1);
}

void ReviewPage::addCard(const QString& title, const QString& help,
                         const std::vector<Notice>& notices) {
    auto& column = dynamic_cast<QVBoxLayout&>(*content_->layout());
    QFrame* const card = cardIn(column, content_);
    auto& inside = dynamic_cast<QVBoxLayout&>(*card->layout());
    labelIn(inside, title, "heading", card);
    if (!help.isEmpty()) {
        labelIn(inside, help, "faint", card);
    }
    for (const Notice& notice : notices) {
        addNotice(notice, inside, card);
    }
}

void ReviewPage::addNotice(const Notice& notice, QVBoxLayout& column, QWidget* parent) {
    auto* const line = new QFrame(parent);
    shell::setRole(line, "line");
    column.addWidget(line);
    auto* const head = new QHBoxLayout;
    const NoticeSign sign = NoticeSign::of(notice.level);
    auto* const title = new QLabel(qs(notice.title), parent);
    shell::setRole(title, "figure");
    title->setWordWrap(true);
    auto* const level = new QLabel(sign.text, parent);
    shell::setRole(level, sign.role);
    head->addWidget(title, 1);
    if (notice.saving) {
        auto* const saving =
            new QLabel((notice.missed.value_or(false) ? u"hätte %1 gespart"_s : u"spart %1"_s)
                           .arg(qs(MoneyFormat::chf(*notice.saving, 0, true))),
                       parent);
        shell::setRole(saving, "figure");
        head->addWidget(saving);
    } else {
        head->addWidget(level);
    }
    column.addLayout(head);
    labelIn(column, qs(notice.message), "faint", parent);
    if (notice.path || notice.area) {
        auto* const go = new QPushButton(notice.path ? u"Zum Feld"_s : u"Zur Seite"_s, parent);
        go->setObjectName(u"go:"_s + qs(notice.id));
        go->setAccessibleName(u"%1: %2"_s.arg(go->text(), qs(notice.title)));
        shell::setRole(go, "link");
        column.addWidget(go, 0, Qt::AlignLeft);
        connect(go, &QPushButton::clicked, this, [this, path = notice.path, area = notice.area] {
            if (path) {
                Q_EMIT fieldWanted(qs(*path));
            } else {
                Q_EMIT pageWanted(qs(*area));
            }
        });
    }
}

} // namespace fiscarel::pages
