#include "Fiscarel_SG/pages/TransferPage.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/PageParts.h"
#include "TaxCore/base/MoneyFormat.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

namespace {

/// Whole francs, as the authority's program takes them.
QString whole(const Decimal& amount) { return qs(MoneyFormat::chf(amount.roundDown(0), 0, false)); }

} // namespace

TransferPage::TransferPage(AppStore& store, QWidget* parent)
    : PageWidget(parent), store_(store),
      frame_(new look::PageFrame(
          u"Übertragen"_s,
          u"Feld für Feld in das Programm der Steuerbehörde: Wert kopieren, dort einsetzen, hier "
          "abhaken."_s,
          this)),
      progressText_(new QLabel(this)), progress_(new QProgressBar(this)),
      openOnly_(new QCheckBox(u"Nur offene zeigen"_s, this)) {
    QVBoxLayout& head = addCard(frame_->column(), {});
    progressText_->setObjectName(u"transferProgress"_s);
    look::setRole(progressText_, "heading");
    progress_->setTextVisible(false);
    openOnly_->setObjectName(u"openOnly"_s);
    head.addWidget(progressText_);
    head.addWidget(progress_);
    head.addWidget(openOnly_);
    connect(openOnly_, &QCheckBox::toggled, this, &TransferPage::refresh);
    refreshResult();
}

std::vector<TransferPage::Row> TransferPage::rowsOfResult() const {
    std::vector<Row> rows;
    const auto* result = store_.result();
    for (const TaxLine& line : result != nullptr ? result->fields() : std::vector<TaxLine>{}) {
        const QString canton = whole(line.canton);
        const bool differs = line.federal && *line.federal != line.canton;
        const QString federal = differs ? whole(*line.federal) : QString();
        const QString value = differs ? u"%1 / Bund %2"_s.arg(canton, federal) : canton;
        const std::string note = line.note.value_or("");
        rows.push_back({.id = line.code + "=" + utf8(value),
                        .ziffer = qs(line.ziffer),
                        .label = qs(line.label),
                        .person = isPersonName(store_.current(), note) ? qs(note) : QString(),
                        .canton = canton,
                        .federal = federal});
    }
    return rows;
}

void TransferPage::refreshResult() {
    std::vector<Row> rows = rowsOfResult();
    if (table_ == nullptr || rows != rows_) {
        rows_ = std::move(rows);
        rebuild();
    }
    refresh();
}

void TransferPage::rebuild() {
    if (table_ != nullptr) {
        table_->hide();
        table_->deleteLater();
    }
    ticks_.clear();
    cells_.clear();
    table_ = new QFrame(frame_);
    look::setRole(table_, "card");
    auto* const grid = new QGridLayout(table_);
    grid->setContentsMargins(20, 16, 20, 16);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(2, 1);
    if (std::ranges::any_of(rows_, [](const Row& row) { return !row.federal.isEmpty(); })) {
        for (const auto& [title, column] : {std::pair{u"Kanton"_s, 3}, std::pair{u"Bund"_s, 5}}) {
            auto* const heading = new QLabel(title, table_);
            look::setRole(heading, "small");
            grid->addWidget(heading, 0, column, Qt::AlignRight);
        }
    }
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        addRow(rows_[i], static_cast<int>(i) + 1);
    }
    frame_->column().addWidget(table_);
}

void TransferPage::addRow(const Row& row, int at) {
    auto& grid = dynamic_cast<QGridLayout&>(*table_->layout());
    auto* const ziffer = new QLabel(row.ziffer, table_);
    look::setRole(ziffer, "faint");
    std::vector<QWidget*> cells{makeTick(row), ziffer, makeLabel(row), makeValue(row.canton),
                                makeCopy(row, row.canton)};
    if (!row.federal.isEmpty()) {
        cells.push_back(makeValue(row.federal));
        cells.push_back(makeCopy(row, row.federal));
    }
    for (int column = 0; column < static_cast<int>(cells.size()); ++column) {
        grid.addWidget(cells[static_cast<std::size_t>(column)], at, column);
    }
    cells_.push_back(std::move(cells));
}

QWidget* TransferPage::makeTick(const Row& row) {
    auto* const tick = new QCheckBox(table_);
    tick->setObjectName(u"tick:"_s + qs(row.id));
    tick->setAccessibleName(u"%1 %2 übertragen"_s.arg(row.label, row.person).simplified());
    ticks_.push_back(tick);
    connect(tick, &QCheckBox::toggled, this, [this, id = row.id](bool checked) {
        store_.setTransferChecked(store_.year(), id, checked);
    });
    return tick;
}

QWidget* TransferPage::makeLabel(const Row& row) {
    auto* const label = new QLabel(row.label, table_);
    label->setWordWrap(true);
    if (!row.person.isEmpty()) {
        label->setTextFormat(Qt::RichText);
        label->setText(u"%1 <span style='font-size:9pt; color:%3'>· %2</span>"_s.arg(
            row.label.toHtmlEscaped(), row.person.toHtmlEscaped(),
            look::Theme::current().faint.name()));
    }
    return label;
}

QWidget* TransferPage::makeValue(const QString& value) {
    auto* const figure = new QLabel(value, table_);
    figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    figure->setTextInteractionFlags(Qt::TextSelectableByMouse);
    look::setRole(figure, "figure");
    return figure;
}

QWidget* TransferPage::makeCopy(const Row& row, const QString& value) {
    auto* const copy = new QPushButton(u"Kopieren"_s, table_);
    copy->setAccessibleName(u"%1 %2 kopieren, %3"_s.arg(row.label, row.person, value).simplified());
    look::setRole(copy, "link");
    connect(copy, &QPushButton::clicked, this, [digits = QString(value).remove(QChar(0x2019))] {
        QApplication::clipboard()->setText(digits);
    });
    return copy;
}

void TransferPage::refresh() {
    const auto found = store_.transferChecked().find(store_.year());
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const bool done =
            found != store_.transferChecked().end() && found->second.contains(rows_[i].id);
        const QSignalBlocker quiet(ticks_[i]);
        ticks_[i]->setChecked(done);
        for (QWidget* cell : cells_[i]) {
            cell->setVisible(!done || !openOnly_->isChecked());
        }
    }
    showProgress();
}

void TransferPage::showProgress() {
    const auto done = std::ranges::count_if(ticks_, &QCheckBox::isChecked);
    progressText_->setText(u"%1 von %2 übertragen"_s.arg(done).arg(ticks_.size()));
    progress_->setRange(0, std::max(1, static_cast<int>(ticks_.size())));
    progress_->setValue(static_cast<int>(done));
}

} // namespace fiscarel::pages
