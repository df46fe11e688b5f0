#include "Fiscarel_SG/pages/account/CloudPanel.h"

#include "Fiscarel_SG/look/Theme.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

CloudPanel::CloudPanel(CloudService& service, QWidget* parent)
    : QWidget(parent), service_(service), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(8);
}

QHBoxLayout& CloudPanel::addButtons() {
    auto* const line = new QHBoxLayout;
    line->setSpacing(10);
    line->addStretch(1);
    column_->addLayout(line);
    return *line;
}

QPushButton* CloudPanel::addButton(QHBoxLayout& line, const QString& text, const char* name,
                                   const char* role) {
    auto* const button = new QPushButton(text, this);
    button->setObjectName(QString::fromLatin1(name));
    if (role != nullptr) {
        look::setRole(button, role);
    }
    line.insertWidget(line.count() - 1, button);
    return button;
}

} // namespace fiscarel::pages
