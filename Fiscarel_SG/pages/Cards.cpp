#include "Fiscarel_SG/pages/Cards.h"

#include "Fiscarel_SG/look/Theme.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

namespace fiscarel::pages {

QLabel* makeLabel(const QString& text, const char* role, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    label->setWordWrap(true);
    look::setRole(label, role);
    return label;
}

QFrame* makeLine(QWidget* parent) {
    auto* const line = new QFrame(parent);
    look::setRole(line, "line");
    return line;
}

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
    QLabel* const label = makeLabel(text, role, column.parentWidget());
    column.addWidget(label);
    return *label;
}

void addLine(QVBoxLayout& column) { column.addWidget(makeLine(column.parentWidget())); }

} // namespace fiscarel::pages
