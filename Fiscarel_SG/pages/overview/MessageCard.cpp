#include "Fiscarel_SG/pages/overview/MessageCard.h"

#include "Fiscarel_SG/look/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

MessageCard::MessageCard(const QString& title, QWidget* parent)
    : CardFrame(title, {}, parent), text_(addText({}, "faint")) {}

void MessageCard::setText(const QString& text) { text_->setText(text); }

QPushButton* MessageCard::addButton(const QString& text, const QString& name) {
    const bool isFirst = buttons_ == nullptr;
    if (isFirst) {
        buttons_ = new QHBoxLayout;
        buttons_->setSpacing(10);
        buttons_->setContentsMargins(inset, 0, inset, 0);
        buttons_->addStretch(1);
        column().addSpacing(6);
        column().addLayout(buttons_);
    }
    auto* const button = new QPushButton(text, this);
    button->setObjectName(name);
    if (isFirst) {
        look::setRole(button, "primary");
    }
    buttons_->insertWidget(buttons_->count() - 1, button);
    return button;
}

} // namespace fiscarel::pages
