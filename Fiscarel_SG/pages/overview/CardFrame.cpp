#include "Fiscarel_SG/pages/overview/CardFrame.h"

#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

namespace {

constexpr int linkInset = 7; ///< the same for the text of a link

} // namespace

CardFrame::CardFrame(const QString& title, const QString& help, QWidget* parent)
    : QFrame(parent), column_(new QVBoxLayout(this)), title_(makeLabel(title, "heading", this)) {
    look::setRole(this, "card");
    column_->setContentsMargins(12, 16, 12, 16);
    column_->setSpacing(6);
    addInset(title_);
    if (!help.isEmpty()) {
        addText(help, "faint");
    }
}

void CardFrame::setTitle(const QString& title) { title_->setText(title); }

QLabel* CardFrame::addText(const QString& text, const char* role) {
    QLabel* const label = makeLabel(text, role, this);
    addInset(label);
    return label;
}

QPushButton* CardFrame::addLink(const QString& text, const QString& name) {
    auto* const link = new QPushButton(text, this);
    link->setObjectName(name);
    look::setRole(link, "link");
    auto* const line = new QHBoxLayout;
    line->setContentsMargins(linkInset, 0, linkInset, 0);
    line->addWidget(link, 0, Qt::AlignLeft);
    column_->addLayout(line);
    return link;
}

void CardFrame::addLine() { addInset(makeLine(this)); }

void CardFrame::addInset(QWidget* widget, Qt::Alignment alignment) {
    auto* const line = new QHBoxLayout;
    line->setContentsMargins(inset, 0, inset, 0);
    line->addWidget(widget, 0, alignment);
    column_->addLayout(line);
}

} // namespace fiscarel::pages
