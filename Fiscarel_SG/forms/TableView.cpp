#include "Fiscarel_SG/forms/TableView.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/InputText.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "TaxCore/base/MoneyFormat.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;
using taxcore::MoneyFormat;

namespace {

constexpr int mostPastedRows = 2'000;
constexpr int visibleRows = 8;

bool isNumber(Editor editor) {
    return editor == Editor::amount || editor == Editor::decimal || editor == Editor::integer;
}

/// A width that shows what usually stands in a column; longer texts tell themselves in their tool
/// tips, and the user may widen it.
int widthOf(const BoundField& field, const QFontMetrics& metrics) {
    constexpr int padding = 22;
    constexpr int arrow = 26;
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
        content = field.options.empty() ? 0 : width(qs(field.options.front().label)) + arrow;
        content = std::min(content, mostOfChoice);
        break;
    default:
        content = width(u"Kantonalbank Werdenberg"_s);
    }
    return std::max(content, width(qs(field.label))) + padding;
}

/// A value as a cell shows it.
QString cellText(const BoundField& field, const Value& value) {
    struct Text {
        const BoundField& field;
        QString operator()(std::monostate) const { return {}; }
        QString operator()(bool yes) const { return yes ? u"ja"_s : QString(); }
        QString operator()(int number) const { return QString::number(number); }
        QString operator()(const Decimal& number) const {
            if (number == 0) {
                return {};
            }
            return field.editor == Editor::amount
                       ? qs(MoneyFormat::chf(number, number.isInteger() ? 0 : 2, false))
                       : qs(MoneyFormat::number(number));
        }
        QString operator()(const std::string& text) const {
            const auto option = std::ranges::find(field.options, text, &Option::raw);
            return qs(option != field.options.end() ? option->label : text);
        }
        QString operator()(const Date& date) const { return qs(formatDate(date)); }
    };
    return std::visit(Text{field}, value);
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
            box->addItem(qs(entry.label));
        }
        box->view()->setMinimumWidth(box->view()->sizeHintForColumn(0) + listMargin);
        // What is chosen counts at once, not only when the cell is left.
        connect(box, &QComboBox::activated, box,
                [self = const_cast<CellDelegate*>(this), box] { Q_EMIT self->commitData(box); });
        return box;
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        if (auto* const box = qobject_cast<QComboBox*>(editor)) {
            box->setCurrentIndex(box->findText(index.data(Qt::EditRole).toString()));
        } else {
            QStyledItemDelegate::setEditorData(editor, index);
        }
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override {
        const auto* const box = qobject_cast<QComboBox*>(editor);
        if (box != nullptr && box->currentIndex() < 0) {
            return; // nothing chosen, as in the empty row
        }
        if (box != nullptr) {
            model->setData(index, box->currentText(), Qt::EditRole);
        } else {
            QStyledItemDelegate::setModelData(editor, model, index);
        }
    }

  private:
    static constexpr int listMargin = 28;

    const RecordModel& model_;
};

} // namespace

RecordModel::RecordModel(const ListCard& card, AppStore& store, QObject* parent)
    : QAbstractTableModel(parent), card_(card), store_(store), columns_(card.fields(0)),
      shownRecords_(records()) {}

std::size_t RecordModel::records() const { return card_.size(store_.current()); }

int RecordModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shownRecords_) + 1;
}

int RecordModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RecordModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    const BoundField& field = column(index.column());
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(isNumber(field.editor) ? Qt::AlignRight | Qt::AlignVCenter
                                                          : Qt::AlignLeft | Qt::AlignVCenter);
    }
    if (row >= shownRecords_) {
        return emptyRow(index, role);
    }
    const Value value =
        card_.fields(row)[static_cast<std::size_t>(index.column())].get(store_.current());
    if (field.editor == Editor::check) {
        if (role == Qt::CheckStateRole) {
            return value == Value(true) ? Qt::Checked : Qt::Unchecked;
        }
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return cellText(field, value);
    case Qt::ToolTipRole: // it may have been too long for the column
        return QStringList{cellText(field, value), qs(field.help)}.join(u"\n\n"_s).trimmed();
    default:
        return {};
    }
}

/// What the row behind the records shows: where to begin.
QVariant RecordModel::emptyRow(const QModelIndex& index, int role) const {
    const BoundField& field = column(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == 0 ? QVariant(u"Hier eintragen …"_s) : QVariant();
    case Qt::ForegroundRole:
        return look::Theme::current().faint;
    case Qt::CheckStateRole:
        return field.editor == Editor::check ? QVariant(Qt::Unchecked) : QVariant();
    case Qt::ToolTipRole:
        return qs(field.help);
    default:
        return {};
    }
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::ToolTipRole && orientation == Qt::Horizontal) {
        return qs(column(section).help);
    }
    if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal) {
        return data(index(0, section), role); // a heading stands where its figures do
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    if (orientation == Qt::Horizontal) {
        return qs(column(section).label);
    }
    return section < static_cast<int>(shownRecords_) ? QString::number(section + 1) : u"+"_s;
}

Qt::ItemFlags RecordModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return column(index.column()).editor == Editor::check ? plain | Qt::ItemIsUserCheckable
                                                          : plain | Qt::ItemIsEditable;
}

std::optional<Value> RecordModel::read(const BoundField& field, const QString& text) {
    const std::string typed = utf8(text.trimmed());
    const auto kept = [&](const auto& parsed) -> std::optional<Value> {
        if (parsed) {
            return Value(*parsed);
        }
        problem_ = qs(field.label) + u": "_s + qs(parsed.error());
        return std::nullopt;
    };
    if (typed.empty() && field.editor != Editor::choice) {
        const bool isText = !isNumber(field.editor) && field.editor != Editor::date;
        return isText && !field.isOptional ? Value(std::string()) : Value();
    }
    switch (field.editor) {
    case Editor::amount:
        return kept(parseAmount(typed));
    case Editor::decimal:
        return kept(parseNumber(typed));
    case Editor::integer:
        return kept(parseInteger(typed));
    case Editor::date:
        return kept(parseDate(typed, store_.year()));
    case Editor::check:
        return Value(QStringList{u"ja"_s, u"x"_s, u"1"_s, u"wahr"_s, u"true"_s}.contains(
            text.trimmed().toLower()));
    case Editor::choice:
        for (const Option& option : field.options) {
            if (qs(option.label).compare(text.trimmed(), Qt::CaseInsensitive) == 0
                || option.raw == typed) {
                return Value(option.raw);
            }
        }
        problem_ = u"%1: «%2» steht nicht zur Auswahl."_s.arg(qs(field.label), text);
        return std::nullopt;
    default:
        return Value(typed);
    }
}

void RecordModel::writeCell(TaxCase& taxCase, std::size_t row, int column,
                            const Value& value) const {
    while (card_.size(taxCase) <= row) {
        card_.add(taxCase);
    }
    card_.fields(row)[static_cast<std::size_t>(column)].set(taxCase, value);
}

bool RecordModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const BoundField& field = column(index.column());
    problem_.clear();
    std::optional<Value> cell;
    if (role == Qt::CheckStateRole) {
        cell = Value(value.toInt() == Qt::Checked);
    } else if (value.toString() == data(index, Qt::EditRole).toString()) {
        return true; // left as it was; an empty last row stays no record
    } else {
        cell = read(field, value.toString());
    }
    if (cell) {
        store_.edit(field.label, [&](TaxCase& taxCase) {
            writeCell(taxCase, static_cast<std::size_t>(index.row()), index.column(), *cell);
        });
    }
    return cell.has_value();
}

int RecordModel::paste(const QModelIndex& from, const QString& text) {
    int refused = 0;
    problem_.clear();
    QString clean = text;
    clean.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    QStringList lines = clean.split(u'\n');
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty()) {
        lines.removeLast();
    }
    const qsizetype count = std::min<qsizetype>(lines.size(), mostPastedRows);
    TaxCase changed = store_.current();
    for (qsizetype line = 0; line < count; ++line) {
        const QStringList cells = lines[line].split(u'\t');
        for (qsizetype cell = 0; cell < cells.size(); ++cell) {
            const int at = from.column() + static_cast<int>(cell);
            if (at >= columnCount()) {
                break;
            }
            if (const auto value = read(column(at), cells[cell])) {
                writeCell(changed, static_cast<std::size_t>(from.row() + line), at, *value);
            } else {
                ++refused;
            }
        }
    }
    store_.setCurrent(std::move(changed), card_.title + " einfügen");
    return refused;
}

/// Rows come and go at the end, so that who is typing keeps the cell; the empty row stays last.
void RecordModel::reload() {
    const std::size_t now = records();
    if (now > shownRecords_) {
        beginInsertRows({}, static_cast<int>(shownRecords_) + 1, static_cast<int>(now));
        shownRecords_ = now;
        endInsertRows();
    } else if (now < shownRecords_) {
        beginRemoveRows({}, static_cast<int>(now) + 1, static_cast<int>(shownRecords_));
        shownRecords_ = now;
        endRemoveRows();
    }
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
}

TableView::TableView(ListCard card, AppStore& store, const EditorContext&, QWidget* parent)
    : CardView(card.title, card.help, card.figures, card.shown, store, parent),
      card_(std::move(card)), model_(new RecordModel(card_, store, this)),
      table_(new QTableView(this)), total_(new QLabel(this)), problem_(new QLabel(this)) {
    setObjectName(u"list:"_s + qs(card_.path));
    table_->setObjectName(u"table:"_s + qs(card_.path));
    table_->setAccessibleName(qs(card_.title));
    table_->setModel(model_);
    auto* const delegate = new CellDelegate(*model_, table_);
    table_->setItemDelegate(delegate);
    connect(delegate, &QAbstractItemDelegate::closeEditor, this,
            [this] { problem_->setText(model_->problem()); });
    table_->setAlternatingRowColors(true);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::AllEditTriggers);
    table_->setTabKeyNavigation(true);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->verticalHeader()->setDefaultSectionSize(30);
    table_->installEventFilter(this);
    table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    content().addWidget(table_);
    look::setRole(problem_, "error");
    look::setRole(total_, "figure");
    problem_->setWordWrap(true);
    problem_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(table_->verticalHeader(), &QHeaderView::sectionClicked, this, [this](int row) {
        if (row == model_->rowCount() - 1) { // the plus
            beginRecord();
        }
    });

    auto* const foot = new QHBoxLayout;
    foot->setSpacing(18);
    const auto addTool = [&](const QString& text, const char* name, auto act) {
        auto* const button = new QPushButton(text, this);
        button->setObjectName(u"%1:%2"_s.arg(QLatin1StringView(name), qs(card_.path)));
        look::setRole(button, "link");
        connect(button, &QPushButton::clicked, this, act);
        foot->addWidget(button);
    };
    addTool(u"Duplizieren"_s, "duplicate", [this] { duplicateSelected(); });
    addTool(u"Nach oben"_s, "up", [this] { moveSelected(-1); });
    addTool(u"Nach unten"_s, "down", [this] { moveSelected(1); });
    addTool(u"Zeile entfernen"_s, "remove", [this] { removeSelected(); });
    foot->addWidget(problem_, 1); // beside the tools, so that nothing moves
    content().addLayout(foot);
    total_->setWordWrap(true);
    total_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    content().addWidget(total_);
    for (int i = 0; i < model_->columnCount(); ++i) {
        table_->setColumnWidth(i, widthOf(model_->column(i), table_->fontMetrics()));
    }
    showRows();
}

void TableView::showRows() {
    const int rows = std::min(model_->rowCount(), visibleRows);
    table_->setFixedHeight(table_->horizontalHeader()->sizeHint().height()
                           + rows * table_->verticalHeader()->defaultSectionSize() + 20);
    total_->setText(card_.total ? qs(card_.total(store().current())) : QString());
    total_->setVisible(!total_->text().isEmpty() && model_->rowCount() > 1);
}

/// Puts the keyboard into the empty row; with the first entry there a record begins.
void TableView::beginRecord() {
    const QModelIndex first = model_->index(model_->rowCount() - 1, 0);
    table_->scrollTo(first);
    table_->setCurrentIndex(first);
    table_->setFocus(Qt::OtherFocusReason);
    table_->edit(first);
}

void TableView::refresh() {
    CardView::refresh();
    const QModelIndex at = table_->currentIndex();
    model_->reload();
    problem_->setText(model_->problem());
    showRows();
    if (at.isValid() && !table_->currentIndex().isValid()) {
        table_->setCurrentIndex(
            model_->index(std::min(at.row(), model_->rowCount() - 1), at.column()));
    }
}

bool TableView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_ && event->type() == QEvent::KeyPress) {
        const auto* const key = dynamic_cast<QKeyEvent*>(event);
        if (key != nullptr && key->matches(QKeySequence::Paste)) {
            const QModelIndex at = table_->currentIndex().isValid()
                                       ? table_->currentIndex()
                                       : model_->index(model_->rowCount() - 1, 0);
            const int refused = model_->paste(at, QApplication::clipboard()->text());
            problem_->setText(refused == 0 ? QString()
                                           : u"%1 Felder waren nicht lesbar. %2"_s.arg(refused).arg(
                                               model_->problem()));
            return true;
        }
        if (key != nullptr && key->matches(QKeySequence::Copy)) {
            QApplication::clipboard()->setText(table_->currentIndex().data().toString());
            return true;
        }
        if (key != nullptr && key->key() == Qt::Key_Delete && table_->currentIndex().isValid()) {
            model_->setData(table_->currentIndex(), QString(), Qt::EditRole);
            return true;
        }
    }
    return CardView::eventFilter(watched, event);
}

/// The record of the current row; -1 when there is none.
int TableView::currentRecord() const {
    const int row = table_->currentIndex().row();
    return row < model_->rowCount() - 1 ? row : -1;
}

void TableView::removeSelected() {
    if (const int row = currentRecord(); row >= 0) {
        store().edit(card_.itemName + " entfernen", [&](TaxCase& taxCase) {
            card_.remove(taxCase, static_cast<std::size_t>(row));
        });
    }
}

void TableView::duplicateSelected() {
    if (const int row = currentRecord(); row >= 0) {
        store().edit(card_.itemName + " duplizieren", [&](TaxCase& taxCase) {
            card_.duplicate(taxCase, static_cast<std::size_t>(row));
        });
    }
}

void TableView::moveSelected(int by) {
    const int row = currentRecord();
    const int to = row + by;
    if (row >= 0 && to >= 0 && to < model_->rowCount() - 1) {
        store().edit(card_.itemName + " verschieben", [&](TaxCase& taxCase) {
            card_.move(taxCase, static_cast<std::size_t>(row), static_cast<std::size_t>(to));
        });
        table_->setCurrentIndex(model_->index(to, table_->currentIndex().column()));
    }
}

bool TableView::reveal(const std::string& path) {
    if (!path.starts_with(card_.path)) {
        return false;
    }
    for (std::size_t row = 0; row < card_.size(store().current()); ++row) {
        const auto fields = card_.fields(row);
        for (std::size_t column = 0; column < fields.size(); ++column) {
            const bool isItem = fields[column].path.starts_with(path + ".");
            if (fields[column].path == path || isItem) {
                table_->setCurrentIndex(
                    model_->index(static_cast<int>(row), static_cast<int>(column)));
                table_->setFocus(Qt::OtherFocusReason);
                return true;
            }
        }
    }
    table_->setFocus(Qt::OtherFocusReason);
    return true;
}

} // namespace fiscarel::forms
