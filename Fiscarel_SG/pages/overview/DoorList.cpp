#include "Fiscarel_SG/pages/overview/DoorList.h"

#include "Fiscarel_SG/pages/overview/DoorRow.h"

#include <QVBoxLayout>

namespace fiscarel::pages {

namespace {

void fill(DoorRow& row, const RowContent& content) {
    row.setObjectName(content.name);
    row.setTitle(content.title);
    row.setDetail(content.detail);
    row.setFigures(content.figures);
    if (!content.figures.isEmpty()) {
        row.setFigureRole(static_cast<std::size_t>(content.figures.size()) - 1, content.figureRole);
    }
    row.setDoor(content.isDoor);
    row.setAction(content.action);
    if (content.marker.isValid()) {
        row.setMarker(content.marker, content.sign);
    }
}

} // namespace

DoorList::DoorList(std::vector<int> columns, QWidget* parent)
    : QWidget(parent), columns_(std::move(columns)), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(0);
}

void DoorList::setHeader(const QString& title, const QStringList& figures) {
    if (header_ == nullptr) {
        header_ = new DoorRow(columns_, this);
        header_->setDoor(false);
        header_->setTitleRole("small");
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            header_->setFigureRole(i, "small");
        }
        column_->insertWidget(0, header_);
    }
    header_->setTitle(title);
    header_->setFigures(figures);
}

void DoorList::setRows(std::vector<RowContent> rows) {
    while (rows_.size() > rows.size()) {
        rows_.back()->hide();
        rows_.back()->deleteLater();
        rows_.pop_back();
    }
    shown_.resize(rows_.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i == rows_.size()) {
            auto* const row = new DoorRow(columns_, this);
            connect(row, &QPushButton::clicked, this,
                    [this, i] { Q_EMIT chosen(static_cast<int>(i)); });
            column_->addWidget(row);
            rows_.push_back(row);
            fill(*row, rows[i]);
        } else if (!(rows[i] == shown_[i])) {
            fill(*rows_[i], rows[i]);
        }
    }
    shown_ = std::move(rows);
    setVisible(!shown_.empty());
}

} // namespace fiscarel::pages
