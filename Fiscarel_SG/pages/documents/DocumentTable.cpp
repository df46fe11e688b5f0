#include "Fiscarel_SG/pages/documents/DocumentTable.h"

#include "Fiscarel_SG/pages/documents/DocumentDelegate.h"
#include "Fiscarel_SG/pages/documents/DocumentFilter.h"
#include "Fiscarel_SG/pages/documents/DocumentModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

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
    setMouseTracking(true);
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
    connect(model, &QAbstractItemModel::dataChanged, this, &DocumentTable::fitColumns);
    fitHeight();
}

void DocumentTable::fitHeight() {
    const int lines = std::clamp(model()->rowCount(), leastLines, mostLines_);
    setFixedHeight(lines * DocumentDelegate::rowHeight + horizontalHeader()->sizeHint().height()
                   + 2 * frameWidth());
    fitColumns();
}

void DocumentTable::setMostLines(int lines) {
    if (lines != mostLines_) {
        mostLines_ = lines;
        fitHeight();
    }
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

/// Whether a click is still the double click on a link that was followed: the line may be gone and
/// the same link of another document under the mouse.
bool DocumentTable::isEcho(const QMouseEvent& event) const {
    return followed_.isValid() && followed_.elapsed() < QApplication::doubleClickInterval()
           && (event.position().toPoint() - followedAt_).manhattanLength()
                  < QApplication::startDragDistance();
}

void DocumentTable::mousePressEvent(QMouseEvent* event) {
    isIgnored_ = isEcho(*event);
    if (!isIgnored_) {
        QTableView::mousePressEvent(event);
    }
}

void DocumentTable::mouseDoubleClickEvent(QMouseEvent* event) {
    isIgnored_ = isEcho(*event);
    if (!isIgnored_) {
        QTableView::mouseDoubleClickEvent(event);
    }
}

void DocumentTable::mouseReleaseEvent(QMouseEvent* event) {
    if (std::exchange(isIgnored_, false)) {
        return;
    }
    const QPoint at = event->position().toPoint();
    const bool follows = isLinkAt(at);
    QTableView::mouseReleaseEvent(event);
    if (follows) { // from now on, however long that took
        followed_.start();
        followedAt_ = at;
    }
}

bool DocumentTable::isLinkAt(const QPoint& at) const {
    const QModelIndex index = indexAt(at);
    const auto* const delegate = qobject_cast<const DocumentDelegate*>(itemDelegate());
    if (delegate == nullptr || !index.isValid()) {
        return false;
    }
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    return delegate->actionPlace(option, index).contains(at)
           || delegate->cancelPlace(option, index).contains(at);
}

void DocumentTable::mouseMoveEvent(QMouseEvent* event) {
    QTableView::mouseMoveEvent(event);
    viewport()->setCursor(isLinkAt(event->position().toPoint()) ? Qt::PointingHandCursor
                                                                : Qt::ArrowCursor);
}

void DocumentTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fitColumns();
}

/// State, kind and amount are as wide as what stands in them; issuer and title, which may be of any
/// length, share what is left.
void DocumentTable::fitColumns() {
    const auto* const rows = qobject_cast<const DocumentFilter*>(model());
    if (rows == nullptr) {
        return;
    }
    const int state = DocumentDelegate::stateWidth(fontMetrics());
    const int kind = DocumentDelegate::kindWidth(fontMetrics());
    const int amount = DocumentDelegate::amountWidth(fontMetrics(), *rows);
    const int left = viewport()->width() - state - kind - amount;
    const int issuer = left * 9 / 25;
    setColumnWidth(DocumentModel::state, state);
    setColumnWidth(DocumentModel::kind, kind);
    setColumnWidth(DocumentModel::amount, amount);
    setColumnWidth(DocumentModel::issuer, issuer);
    setColumnWidth(DocumentModel::title, left - issuer);
}

void DocumentTable::selectionChanged(const QItemSelection& now, const QItemSelection& before) {
    QTableView::selectionChanged(now, before);
    Q_EMIT selected();
}

} // namespace fiscarel::pages
