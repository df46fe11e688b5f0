#include "Fiscarel_SG/pages/documents/DocumentTable.h"

#include "Fiscarel_SG/pages/documents/DocumentDelegate.h"
#include "Fiscarel_SG/pages/documents/DocumentModel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int mostLines = 8; ///< then it scrolls
constexpr int leastLines = 2;

} // namespace

DocumentTable::DocumentTable(QWidget* parent) : QTableView(parent) {
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(DocumentDelegate::rowHeight);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSortIndicatorClearable(true);
    connect(this, &QAbstractItemView::doubleClicked, this, &DocumentTable::openWanted);
}

void DocumentTable::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    connect(model, &QAbstractItemModel::modelReset, this, &DocumentTable::fitHeight);
    connect(model, &QAbstractItemModel::rowsInserted, this, &DocumentTable::fitHeight);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &DocumentTable::fitHeight);
    fitHeight();
}

void DocumentTable::fitHeight() {
    const int lines = std::clamp(model()->rowCount(), leastLines, mostLines);
    setFixedHeight(lines * DocumentDelegate::rowHeight + horizontalHeader()->sizeHint().height()
                   + 2 * frameWidth());
}

void DocumentTable::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == 0;
    if (isPlain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        && currentIndex().isValid()) {
        Q_EMIT openWanted(currentIndex());
    } else if (isPlain && event->key() == Qt::Key_Delete) {
        Q_EMIT removeWanted();
    } else if (isPlain && event->key() == Qt::Key_F2) {
        Q_EMIT renameWanted();
    } else {
        QTableView::keyPressEvent(event);
    }
}

/// The title takes what the others leave; in a narrow window these are narrower too.
void DocumentTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    const int width = viewport()->width();
    const auto least = [&](const QString& text) { return fontMetrics().horizontalAdvance(text); };
    const int amountWidth = least(u"1’000’000.00"_s) + 8;
    const int stateWidth = least(u"Seite 10 von 20"_s) + 34;
    const int kindWidth = std::min(width / 6, least(u"Zins-/Saldobestätigung"_s) + 14);
    const int issuerWidth = width / 7;
    setColumnWidth(DocumentModel::issuer, issuerWidth);
    setColumnWidth(DocumentModel::kind, kindWidth);
    setColumnWidth(DocumentModel::amount, amountWidth);
    setColumnWidth(DocumentModel::state, stateWidth);
    setColumnWidth(DocumentModel::title,
                   width - issuerWidth - kindWidth - amountWidth - stateWidth);
}

void DocumentTable::selectionChanged(const QItemSelection& now, const QItemSelection& before) {
    QTableView::selectionChanged(now, before);
    Q_EMIT selected();
}

} // namespace fiscarel::pages
