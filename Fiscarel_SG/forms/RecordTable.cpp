#include "Fiscarel_SG/forms/RecordTable.h"

#include "Fiscarel_SG/forms/CellText.h"
#include "Fiscarel_SG/forms/RecordModel.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <functional>

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int visibleRows = 8;

/// A width that shows what usually stands in a column; longer texts tell themselves in their tool
/// tips, and the user may widen it.
int widthOf(const BoundField& field, bool isFirst, const QFontMetrics& metrics) {
    constexpr int padding = 2 * RecordTable::cellMargin + 8; // and the mark of an editor
    constexpr int mostOfChoice = 190;
    const auto width = [&](const QString& text) { return metrics.horizontalAdvance(text); };
    int content = 0;
    switch (field.editor) {
    case Editor::amount:
        content = width(u"1’000’000.00"_s);
        break;
    case Editor::decimal:
    case Editor::integer:
        content = width(u"10’000"_s);
        break;
    case Editor::date:
        content = width(u"31.12.2025"_s);
        break;
    case Editor::check:
        break;
    case Editor::choice: // the first is the usual one
        content = field.options.empty() ? 0 : width(qs(field.options.front().label));
        content = std::min(content, mostOfChoice);
        break;
    default:
        content = width(u"Kantonalbank Sargans"_s);
    }
    const int invitation = isFirst ? width(RecordModel::invitation()) : 0;
    return std::max({content, width(qs(field.label)), invitation}) + padding;
}

/// Edits choices by a list; everything else as text, which the model reads.
class CellDelegate final : public QStyledItemDelegate {
  public:
    CellDelegate(const RecordModel& model, QObject* parent)
        : QStyledItemDelegate(parent), model_(model) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        const BoundField& field = model_.column(index.column());
        if (field.editor != Editor::choice) {
            return QStyledItemDelegate::createEditor(parent, option, index);
        }
        auto* const box = new QComboBox(parent);
        for (const Option& entry : field.options) {
            box->addItem(qs(entry.label), qs(entry.raw));
        }
        box->view()->setMinimumWidth(box->view()->sizeHintForColumn(0) + listMargin);
        box->setMinimumWidth(std::max(option.rect.width(), box->sizeHint().width()));
        // What is chosen counts at once, not only when the cell is left.
        connect(box, &QComboBox::activated, box, [self = const_cast<CellDelegate*>(this), box] {
            box->setProperty(chosen, true);
            Q_EMIT self->commitData(box);
        });
        return box;
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        if (auto* const box = qobject_cast<QComboBox*>(editor)) {
            const bool isUnread = index.data(RecordModel::problemRole).isValid();
            box->setPlaceholderText(isUnread ? index.data().toString() : QString());
            box->setCurrentIndex(
                isUnread ? -1 : box->findData(index.data(RecordModel::rawRole).toString()));
        } else {
            QStyledItemDelegate::setEditorData(editor, index);
        }
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override {
        const auto* const box = qobject_cast<QComboBox*>(editor);
        if (box != nullptr && (box->currentIndex() < 0 || !box->property(chosen).toBool())) {
            return; // only passed through
        }
        if (box != nullptr) {
            model->setData(index, box->currentData(), Qt::EditRole); // two may be called the same
        } else {
            QStyledItemDelegate::setModelData(editor, model, index);
        }
    }

    /// Cells pasted into the text of one cell are meant for the grid.
    std::function<void(QWidget*)> gridPasted;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && holdsGrid()
            && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste)) {
            gridPasted(qobject_cast<QWidget*>(watched));
            return true;
        }
        return QStyledItemDelegate::eventFilter(watched, event);
    }

  private:
    static constexpr int listMargin = 28;
    static constexpr const char* chosen = "chosen"; ///< the user did, and did not just pass

    static bool holdsGrid() {
        const QString copied = QApplication::clipboard()->text().trimmed();
        return copied.contains(u'\t') || copied.contains(u'\n');
    }

    const RecordModel& model_;
};

} // namespace

/// Shows the first column over the others while those are scrolled sideways, so that one sees whose
/// figures one writes. A click there goes to the cell below it.
class RecordTable::FirstColumn final : public QTableView {
  public:
    explicit FirstColumn(RecordTable& table) : QTableView(&table), table_(table) {
        setModel(table.model());
        setSelectionModel(table.selectionModel());
        setFocusPolicy(Qt::NoFocus);
        setEditTriggers(QAbstractItemView::NoEditTriggers);
        setAlternatingRowColors(true);
        setFrameShape(QFrame::NoFrame);
        look::setRole(this, "firstColumn");
        setWordWrap(false);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollMode(table.verticalScrollMode());
        setAccessibleName(QStringLiteral("Erste Spalte"));
        verticalHeader()->hide();
        verticalHeader()->setDefaultSectionSize(RecordTable::rowHeight);
        for (int i = 1; i < table.model()->columnCount(); ++i) {
            setColumnHidden(i, true);
        }
        connect(table.verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(),
                &QScrollBar::setValue);
        connect(table.horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { place(); });
        connect(table.horizontalHeader(), &QHeaderView::sectionResized, this, [this] { place(); });
        connect(this, &QTableView::clicked, &table, [&table](const QModelIndex& at) {
            table.setFocus(Qt::MouseFocusReason);
            table.setCurrentIndex(at);
            table.edit(at);
        });
        hide();
    }

    void place() {
        const QRect cells = table_.viewport()->geometry();
        const int head = table_.horizontalHeader()->height();
        const int width = table_.columnWidth(0);
        setColumnWidth(0, width);
        horizontalHeader()->setFixedHeight(head);
        setGeometry(cells.left(), cells.top() - head, width, cells.height() + head);
        // Not over the half of the room, where the others would have none.
        const bool isNeeded =
            table_.horizontalScrollBar()->value() > 0 && 2 * width < cells.width();
        setVisible(isNeeded);
        if (isNeeded) {
            verticalScrollBar()->setValue(table_.verticalScrollBar()->value());
            raise();
        }
    }

  private:
    RecordTable& table_;
};

RecordTable::RecordTable(RecordModel& model, QWidget* parent)
    : QTableView(parent), model_(model), columnBar_(new QScrollBar(Qt::Horizontal, parent)) {
    setModel(&model);
    auto* const delegate = new CellDelegate(model, this);
    delegate->gridPasted = [this](QWidget* editor) {
        closeEditor(editor, QAbstractItemDelegate::NoHint); // what was typed there gives way
        paste();
    };
    setItemDelegate(delegate);
    setAlternatingRowColors(true);
    setWordWrap(false); // what is too long ends in an ellipsis, not after its first word
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::AllEditTriggers);
    setTabKeyNavigation(true);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    horizontalHeader()->setStretchLastSection(true);
    verticalHeader()->setDefaultSectionSize(RecordTable::rowHeight);
    for (int i = 0; i < model.columnCount(); ++i) {
        const int width = widthOf(model.column(i), i == 0, fontMetrics());
        setColumnWidth(i, width);
        wishedColumns_ += width;
    }
    connect(verticalHeader(), &QHeaderView::sectionClicked, this, [this](int row) {
        if (row == model_.rowCount() - 1) { // the plus
            beginRecord();
        }
    });
    firstColumn_ = new FirstColumn(*this);
    followColumnBar();
    fitHeight();
}

/// A bar outside, so that it stands below what follows the rows, and takes none of their height.
void RecordTable::followColumnBar() {
    QScrollBar* const own = horizontalScrollBar();
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const auto show = [this, own] {
        columnBar_->setRange(own->minimum(), own->maximum());
        columnBar_->setPageStep(own->pageStep());
        columnBar_->setSingleStep(own->singleStep());
        columnBar_->setValue(own->value());
        columnBar_->setVisible(own->maximum() > own->minimum());
    };
    connect(own, &QScrollBar::rangeChanged, this, show);
    connect(own, &QScrollBar::valueChanged, columnBar_, &QScrollBar::setValue);
    connect(columnBar_, &QScrollBar::valueChanged, own, &QScrollBar::setValue);
    show();
}

int RecordTable::frozenWidth() const {
    return firstColumn_ != nullptr && !firstColumn_->isHidden() ? columnWidth(0) : 0;
}

int RecordTable::wishedWidth() const {
    const int numbers = verticalHeader()->sizeHint().width();
    return numbers + wishedColumns_ + 2 * frameWidth() + 1;
}

void RecordTable::fitHeight() {
    const int rows = std::min(model_.rowCount(), visibleRows);
    setFixedHeight(horizontalHeader()->sizeHint().height() + rows * rowHeight + 2 * frameWidth());
}

void RecordTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fitHeight();
    if (firstColumn_ != nullptr) {
        firstColumn_->place();
    }
}

/// A cell below the first column that stays is not in sight.
void RecordTable::scrollTo(const QModelIndex& index, ScrollHint hint) {
    QTableView::scrollTo(index, hint);
    if (index.column() == 0) {
        return;
    }
    QScrollBar& bar = *horizontalScrollBar();
    const int hidden = columnWidth(0) - visualRect(index).left();
    if (firstColumn_ != nullptr && bar.value() > 0 && hidden > 0) {
        bar.setValue(bar.value() - hidden);
    }
}

void RecordTable::beginRecord() { editAt(model_.index(model_.rowCount() - 1, 0)); }

void RecordTable::editAt(const QModelIndex& cell) {
    scrollTo(cell);
    setCurrentIndex(cell);
    setFocus(Qt::OtherFocusReason);
    if (state() != EditingState) { // it already is where the cell became the current one
        edit(cell);
    }
}

std::optional<std::size_t> RecordTable::currentRecord() const {
    const QModelIndex at = currentIndex();
    return at.isValid() && at.row() < model_.rowCount() - 1
               ? std::optional(static_cast<std::size_t>(at.row()))
               : std::nullopt;
}

bool RecordTable::isAtEdge(bool next) const {
    const QModelIndex at = currentIndex();
    return next ? at.row() == model_.rowCount() - 1 && at.column() == model_.columnCount() - 1
                : at.row() == 0 && at.column() == 0;
}

bool RecordTable::focusNextPrevChild(bool next) {
    return isAtEdge(next) ? QAbstractScrollArea::focusNextPrevChild(next)
                          : QTableView::focusNextPrevChild(next);
}

void RecordTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    if (hint == QAbstractItemDelegate::RevertModelCache) { // the escape key
        model_.dropText(currentIndex());
    }
    const bool next = hint == QAbstractItemDelegate::EditNextItem;
    const bool leaves = (next || hint == QAbstractItemDelegate::EditPreviousItem) && isAtEdge(next);
    QTableView::closeEditor(editor, leaves ? QAbstractItemDelegate::NoHint : hint);
    if (leaves) {
        focusNextPrevChild(next);
    }
}

void RecordTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    Q_EMIT moved();
}

void RecordTable::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste)) {
        paste();
    } else if (event->matches(QKeySequence::Copy)) {
        QApplication::clipboard()->setText(currentIndex().data().toString());
    } else if (event->key() == Qt::Key_Delete && currentIndex().isValid()) {
        model_.setData(currentIndex(), QString(), Qt::EditRole);
    } else if (event->key() == Qt::Key_Escape && model_.dropText(currentIndex())) {
        event->accept();
    } else {
        QTableView::keyPressEvent(event);
    }
}

/// Who closes the window from a cell is asked about what stands there, as about all else.
bool RecordTable::eventFilter(QObject* watched, QEvent* event) {
    QWidget* const editor = QApplication::focusWidget();
    if (event->type() == QEvent::Close && watched == window() && state() == EditingState
        && editor != nullptr && viewport()->isAncestorOf(editor)) {
        commitData(editor);
    }
    return QTableView::eventFilter(watched, event);
}

void RecordTable::showEvent(QShowEvent* event) {
    window()->installEventFilter(this); // once, however often
    QTableView::showEvent(event);
}

void RecordTable::paste() {
    const QModelIndex at =
        currentIndex().isValid() ? currentIndex() : model_.index(model_.rowCount() - 1, 0);
    model_.paste(at, QApplication::clipboard()->text());
}

} // namespace fiscarel::forms
