#include "Fiscarel_SG/pages/account/TextRows.h"

#include "Fiscarel_SG/pages/Cards.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <utility>

namespace fiscarel::pages {

namespace {

/// Lets a very long word go on in the next line, so that it does not push the rest aside.
QString breakable(const QString& text) {
    constexpr int longest = 24;
    constexpr QChar mayBreak(0x200B);
    QString broken;
    int inWord = 0;
    for (const QChar letter : text) {
        inWord = letter.isSpace() ? 0 : inWord + 1;
        broken += letter;
        if (inWord > 0 && inWord % longest == 0) {
            broken += mayBreak;
        }
    }
    return broken;
}

} // namespace

TextRows::TextRows(const QString& title, QWidget* parent) : QWidget(parent) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    addLine(*column);
    addLabel(*column, title, "figure");
    hide();
}

void TextRows::setRows(std::vector<Row> rows) {
    setVisible(!rows.empty());
    if (rows == rows_) {
        return;
    }
    rows_ = std::move(rows);
    delete std::exchange(list_, new QWidget(this));
    auto* const grid = new QGridLayout(list_);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(1, 3);
    for (const Row& row : rows_) {
        const int at = grid->rowCount();
        QLabel* const text = makeLabel(breakable(row.text), "", list_);
        QLabel* const detail = makeLabel(breakable(row.detail), "faint", list_);
        for (QLabel* const label : {text, detail}) {
            label->setTextFormat(Qt::PlainText);
        }
        grid->addWidget(text, at, 0, Qt::AlignTop);
        grid->addWidget(detail, at, 1, Qt::AlignTop);
    }
    layout()->addWidget(list_);
}

} // namespace fiscarel::pages
