#include "Fiscarel_SG/pages/Cards.h"

#include "Fiscarel_SG/look/Theme.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

namespace fiscarel::pages {

QVBoxLayout& addCard(QVBoxLayout& column, const QString& title, const QString& help) {
    auto* const card = new QFrame(column.parentWidget());
    look::setRole(card, "card");
    auto* const inside = new QVBoxLayout(card);
    inside->setContentsMargins(20, 16, 20, 16);
    inside->setSpacing(8);
    column.addWidget(card);
    if (!title.isEmpty()) {
        addLabel(*inside, title, "heading");
    }
    if (!help.isEmpty()) {
        addLabel(*inside, help, "faint");
    }
    return *inside;
}

QLabel& addLabel(QVBoxLayout& column, const QString& text, const char* role) {
    auto* const label = new QLabel(text, column.parentWidget());
    label->setWordWrap(true);
    look::setRole(label, role);
    column.addWidget(label);
    return *label;
}

void addLine(QVBoxLayout& column) {
    auto* const line = new QFrame(column.parentWidget());
    look::setRole(line, "line");
    column.addWidget(line);
}

} // namespace fiscarel::pages
