#include "Fiscarel_SG/pages/account/QuestionCard.h"

#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/account/CloudText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

QuestionCard::QuestionCard(CloudService& service, QWidget* parent)
    : QFrame(parent), service_(service), keep_(new QPushButton(this)),
      take_(new QPushButton(this)) {
    look::setRole(this, "asking");
    setObjectName(u"cloudQuestion"_s);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(20, 16, 20, 16);
    column->setSpacing(8);
    title_ = &addLabel(*column, {}, "heading");
    text_ = &addLabel(*column, {}, "");
    outcome_ = &addLabel(*column, {}, "faint");
    text_->setObjectName(u"cloudQuestionText"_s);
    auto* const line = new QHBoxLayout;
    line->setSpacing(16);
    keep_->setObjectName(u"cloudKeepAll"_s);
    look::setRole(keep_, "primary");
    take_->setObjectName(u"cloudTakeLoss"_s);
    look::setRole(take_, "danger");
    line->addWidget(keep_);
    line->addWidget(take_);
    line->addStretch(1);
    column->addSpacing(4);
    column->addLayout(line);
    connect(keep_, &QPushButton::clicked, this, [this] { service_.answerQuestion(false); });
    connect(take_, &QPushButton::clicked, this, [this] { service_.answerQuestion(true); });
    follow();
}

void QuestionCard::follow() {
    const auto& question = service_.status().question;
    setVisible(question.has_value());
    if (!question) {
        return;
    }
    const QString loss = lossText(question->loss);
    if (question->isIncoming) {
        title_->setText(u"In der Cloud fehlt vieles, was hier liegt"_s);
        text_->setText(
            u"Dort fehlen: %1. Hat jemand das auf einem anderen Computer gelöscht?"_s.arg(loss));
        outcome_->setText(u"Bis Sie antworten, wird nichts abgeglichen, und auf diesem Computer "
                          "bleibt alles, wie es ist."_s);
        keep_->setText(u"Alles behalten und wieder hochladen"_s);
        take_->setText(u"Auch hier löschen"_s);
    } else {
        title_->setText(u"Hier fehlt vieles, was in der Cloud liegt"_s);
        text_->setText(u"Hier fehlen: %1. Haben Sie das auf diesem Computer gelöscht?"_s.arg(loss));
        outcome_->setText(u"Bis Sie antworten, wird nichts abgeglichen, und in der Cloud bleibt "
                          "alles, wie es ist."_s);
        keep_->setText(u"Alles behalten und von dort zurückholen"_s);
        take_->setText(u"Auch in der Cloud löschen"_s);
    }
}

} // namespace fiscarel::pages
