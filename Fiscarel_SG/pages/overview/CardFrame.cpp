#include "Fiscarel_SG/pages/overview/CardFrame.h"

#include "Fiscarel_SG/shell/Theme.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

CardFrame::CardFrame(const QString& title, const QString& help, QWidget* parent)
    : QFrame(parent), column_(new QVBoxLayout(this)), title_(new QLabel(title, this)) {
    shell::setRole(this, "card");
    column_->setContentsMargins(20, 16, 20, 16);
    column_->setSpacing(6);
    shell::setRole(title_, "heading");
    column_->addWidget(title_);
    if (!help.isEmpty()) {
        addText(help, "faint");
    }
}

void CardFrame::setTitle(const QString& title) { title_->setText(title); }

QLabel* CardFrame::addText(const QString& text, const char* role) {
    auto* const label = new QLabel(text, this);
    label->setWordWrap(true);
    shell::setRole(label, role);
    column_->addWidget(label);
    return label;
}

QPushButton* CardFrame::addLink(const QString& text, const QString& name) {
    auto* const link = new QPushButton(text, this);
    link->setObjectName(name);
    shell::setRole(link, "link");
    column_->addWidget(link, 0, Qt::AlignLeft);
    return link;
}

void CardFrame::addLine() {
    auto* const line = new QFrame(this);
    shell::setRole(line, "line");
    column_->addWidget(line);
}

} // namespace fiscarel::pages
