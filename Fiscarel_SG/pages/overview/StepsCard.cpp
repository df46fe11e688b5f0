#include "Fiscarel_SG/pages/overview/StepsCard.h"

#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/NoticeDoor.h"
#include "Fiscarel_SG/pages/NoticeSign.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using taxcore::Notice;

namespace {

constexpr std::size_t mostShown = 3;
constexpr int textInset = 1; ///< as far in as the text of a link

QLabel* labelIn(QWidget* parent, const QString& text, const char* role) {
    auto* const label = new QLabel(text, parent);
    label->setWordWrap(true);
    label->setContentsMargins(textInset, 0, 0, 0);
    look::setRole(label, role);
    return label;
}

} // namespace

StepsCard::StepsCard(QWidget* parent)
    : CardFrame(u"Nächste Schritte"_s, {}, parent), all_(addLink({}, u"stepsAll"_s)) {
    connect(all_, &QPushButton::clicked, this, [this] { Q_EMIT pageWanted(u"review"_s); });
}

void StepsCard::refresh(const std::vector<Notice>& notices) {
    std::vector<Notice> open;
    std::size_t infos = 0;
    for (const Notice& notice : notices) {
        if (notice.level != Notice::Level::info) {
            open.push_back(notice);
        } else {
            ++infos;
        }
    }
    const bool onlyInfos = open.empty() && infos > 0;
    all_->setVisible(open.size() > mostShown || onlyInfos);
    all_->setText(!onlyInfos   ? u"Alle %1 offenen Hinweise"_s.arg(open.size())
                  : infos == 1 ? u"1 Hinweis zum Lesen"_s
                               : u"%1 Hinweise zum Lesen"_s.arg(infos));
    open.resize(std::min(open.size(), mostShown));
    if (content_ != nullptr && open == shown_) {
        return;
    }
    shown_ = std::move(open);
    if (content_ != nullptr) {
        content_->hide();
        content_->deleteLater();
    }
    content_ = new QWidget(this);
    auto* const inside = new QVBoxLayout(content_);
    inside->setContentsMargins(inset - textInset, 0, inset, 0);
    inside->setSpacing(4);
    column().insertWidget(1, content_);
    if (shown_.empty()) {
        inside->addWidget(labelIn(content_,
                                  u"Es fehlt nichts mehr. Unter «Übertragen» steht, was wohin "
                                  "gehört."_s,
                                  "faint"));
        auto* const go = new QPushButton(u"Zum Übertragen"_s, content_);
        go->setObjectName(u"stepsTransfer"_s);
        look::setRole(go, "link");
        inside->addWidget(go, 0, Qt::AlignLeft);
        connect(go, &QPushButton::clicked, this, [this] { Q_EMIT pageWanted(u"transfer"_s); });
    }
    for (const Notice& notice : shown_) {
        add(notice);
    }
}

void StepsCard::add(const Notice& notice) {
    auto& inside = dynamic_cast<QVBoxLayout&>(*content_->layout());
    if (inside.count() > 0) {
        auto* const line = new QFrame(content_);
        look::setRole(line, "line");
        auto* const across = new QHBoxLayout;
        across->setContentsMargins(textInset, 4, 0, 4);
        across->addWidget(line);
        inside.addLayout(across);
    }
    auto* const head = new QHBoxLayout;
    const NoticeSign sign = NoticeSign::of(notice.level);
    auto* const level = new QLabel(sign.text, content_);
    look::setRole(level, sign.role);
    head->addWidget(labelIn(content_, labelText(notice.title), "figure"), 1);
    head->addWidget(level);
    inside.addLayout(head);
    inside.addWidget(labelIn(content_, labelText(notice.message), "faint"));
    if (NoticeDoor* const go = NoticeDoor::of(notice, u"step"_s, content_)) {
        inside.addWidget(go, 0, Qt::AlignLeft);
        connect(go, &NoticeDoor::fieldWanted, this, &StepsCard::fieldWanted);
        connect(go, &NoticeDoor::pageWanted, this, &StepsCard::pageWanted);
    }
}

} // namespace fiscarel::pages
