#include "Fiscarel_SG/pages/overview/FigureStrip.h"

#include "Fiscarel_SG/look/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace fiscarel::pages {

FigureStrip::FigureStrip(int count, QWidget* parent) : QWidget(parent) {
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins(0, 4, 0, 4);
    line->setSpacing(24);
    for (int i = 0; i < count; ++i) {
        auto* const block = new QVBoxLayout;
        block->setSpacing(0);
        Block made{new QLabel(this), new QLabel(this)};
        look::setRole(made.name, "small");
        made.figure->setTextInteractionFlags(Qt::TextSelectableByMouse);
        block->addWidget(made.name);
        block->addWidget(made.figure);
        line->addLayout(block, 1);
        blocks_.push_back(made);
    }
}

void FigureStrip::set(std::size_t index, const QString& name, const QString& figure,
                      const char* role) {
    const Block& block = blocks_.at(index);
    block.name->setText(name);
    block.figure->setText(figure);
    block.figure->setAccessibleName(name + u' ' + figure);
    look::setRole(block.figure, role);
}

} // namespace fiscarel::pages
