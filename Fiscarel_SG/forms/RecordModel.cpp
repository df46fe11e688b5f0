#include "Fiscarel_SG/forms/RecordModel.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/CellText.h"
#include "Fiscarel_SG/look/Icons.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"

#include <algorithm>

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int mostPastedRows = 2'000;

/// The lines of what was copied, without empty ones at the end.
QStringList linesOf(QString text) {
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    QStringList lines = text.split(u'\n');
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty()) {
        lines.removeLast();
    }
    return lines;
}

/// What of a paste did not come in, with the first reason; empty when all did.
QString pasteProblem(const QStringList& problems, qsizetype lines) {
    QStringList sentences;
    if (problems.size() == 1) {
        sentences << u"Ein Feld ist nicht lesbar."_s << problems.first();
    } else if (!problems.isEmpty()) {
        sentences << u"%L1 Felder sind nicht lesbar."_s.arg(problems.size()) << problems.first();
    }
    if (lines > mostPastedRows) {
        sentences
            << u"Eingefügt sind die ersten %L1 von %L2 Zeilen."_s.arg(mostPastedRows).arg(lines);
    }
    return sentences.join(u' ');
}

QVariant rawText(const Value& value) {
    const auto* const raw = std::get_if<std::string>(&value);
    return raw != nullptr ? QVariant(qs(*raw)) : QVariant();
}

UnreadCells::Cell cellOf(const QModelIndex& index) {
    return {static_cast<std::size_t>(index.row()), index.column()};
}

/// "Betrag: «viel» ist kein Betrag."
QString ofColumn(const BoundField& column, const QString& sentence) {
    return qs(column.label) + u": "_s + sentence;
}

} // namespace

RecordModel::RecordModel(const ListCard& card, AppStore& store, std::string pageId, QObject* parent)
    : QAbstractTableModel(parent), card_(card), store_(store), year_(store.year()),
      columns_(card.fields(0)), shownRecords_(records()),
      unread_(card_, columns_, store, std::move(pageId)) {
    learnColumns();
    unread_.follow();
    connect(&store, &AppStore::unreadChanged, this, &RecordModel::followTexts);
}

void RecordModel::learnColumns() {
    TaxCase blank;
    card_.add(blank);
    const auto fields = card_.fields(card_.size(blank) - 1);
    for (const BoundField& field : fields) {
        usualChoices_.push_back(field.editor == Editor::choice ? field.get(blank) : Value());
    }
    nameOptions();
}

void RecordModel::nameOptions() {
    for (BoundField& field : columns_) {
        if (field.optionsFor) {
            field.options = field.optionsFor(store_.current());
        }
    }
}

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
    if (const auto* const unread = unread_.at(cellOf(index))) {
        return unreadCell(*unread, index, role);
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
    case rawRole:
        return rawText(value);
    case Qt::DisplayRole:
    case Qt::EditRole:
        return cellText(field, value);
    case Qt::ToolTipRole: // it may have been too long for the column
        return QStringList{cellText(field, value), labelText(field.help)}.join(u"\n\n"_s).trimmed();
    default:
        return {};
    }
}

/// Marked by its colour and by a sign.
QVariant RecordModel::unreadCell(const UnreadCells::Unread& unread, const QModelIndex& index,
                                 int role) const {
    const QString problem = ofColumn(column(index.column()), unread.problem);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return unread.text;
    case Qt::ForegroundRole:
        return look::Theme::current().error;
    case Qt::DecorationRole:
        return look::icon(u"unread"_s, look::Theme::current().error);
    case problemRole:
    case Qt::AccessibleDescriptionRole:
        return problem;
    case Qt::ToolTipRole:
        return QStringList{problem, labelText(column(index.column()).help)}
            .join(u"\n\n"_s)
            .trimmed();
    default:
        return {};
    }
}

QString RecordModel::invitation() { return u"Hier eintragen …"_s; }

/// What the row behind the records shows: where to begin.
QVariant RecordModel::emptyRow(const QModelIndex& index, int role) const {
    const BoundField& field = column(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == 0 ? QVariant(invitation()) : QVariant();
    case Qt::EditRole: // what the record will have unless another one is chosen
        return cellText(field, usualChoices_[static_cast<std::size_t>(index.column())]);
    case rawRole:
        return rawText(usualChoices_[static_cast<std::size_t>(index.column())]);
    case Qt::ForegroundRole:
        return look::Theme::current().faint;
    case Qt::CheckStateRole:
        return field.editor == Editor::check ? QVariant(Qt::Unchecked) : QVariant();
    case Qt::ToolTipRole:
        return labelText(field.help);
    default:
        return {};
    }
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical) {
        const bool isRecord = section < static_cast<int>(shownRecords_);
        return role == Qt::DisplayRole ? QVariant(isRecord ? QString::number(section + 1) : u"+"_s)
                                       : QVariant();
    }
    switch (role) {
    case Qt::DisplayRole:
        return qs(column(section).label);
    case Qt::ToolTipRole:
    case Qt::WhatsThisRole:
    case Qt::AccessibleDescriptionRole:
        return labelText(column(section).help);
    case Qt::TextAlignmentRole:
        return data(index(0, section), role); // a heading stands where its figures do
    default:
        return {};
    }
}

Qt::ItemFlags RecordModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return column(index.column()).editor == Editor::check ? plain | Qt::ItemIsUserCheckable
                                                          : plain | Qt::ItemIsEditable;
}

void RecordModel::addRecords(TaxCase& taxCase, std::size_t lastRow) const {
    while (card_.size(taxCase) <= lastRow) {
        card_.add(taxCase);
    }
}

void RecordModel::writeCell(TaxCase& taxCase, std::size_t row, int column,
                            const Value& value) const {
    addRecords(taxCase, row);
    card_.fields(row)[static_cast<std::size_t>(column)].set(taxCase, value);
}

void RecordModel::tell(const QString& sentence) {
    if (sentence != told_) {
        told_ = sentence;
        Q_EMIT problemChanged();
    }
}

QString RecordModel::problem(const QModelIndex& current) const {
    if (!told_.isEmpty()) {
        return told_;
    }
    if (current.isValid() && unread_.at(cellOf(current)) != nullptr) {
        return data(current, problemRole).toString();
    }
    const auto cell = unread_.toTell();
    if (!cell) {
        return {};
    }
    const QString sentence = u"Zeile %1, %2"_s.arg(cell->first + 1)
                                 .arg(ofColumn(column(cell->second), unread_.at(*cell)->problem));
    const std::size_t others = unread_.size() - 1;
    return others == 0   ? sentence
           : others == 1 ? sentence + u" Noch ein Feld ist nicht lesbar."_s
                         : sentence + u" Noch %L1 Felder sind nicht lesbar."_s.arg(others);
}

void RecordModel::reach(const QModelIndex& current) {
    if (current.isValid() && unread_.at(cellOf(current)) != nullptr) {
        tell({}); // its own problem is told now
    }
}

bool RecordModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const BoundField& field = column(index.column());
    const bool isUnread = unread_.at(cellOf(index)) != nullptr;
    tl::expected<Value, QString> cell = Value(value.toInt() == Qt::Checked);
    if (role != Qt::CheckStateRole) {
        const bool isRecord = static_cast<std::size_t>(index.row()) < shownRecords_;
        const QString before = isRecord ? data(index, Qt::EditRole).toString() : QString();
        if (value.toString() == before) {
            tell({});
            return true; // left as it was; an empty last row stays no record
        }
        cell = readCell(field, value.toString(), year_);
    }
    if (!cell) {
        keepText(index, value.toString());
        return true;
    }
    if (store_.year() != year_) {
        return false; // the keyboard leaves it while its page gives way to that of another year
    }
    if (isUnread) {
        unread_.set({{cellOf(index), std::nullopt}});
    }
    tell(noteOn(field, *cell));
    store_.edit(field.label, [&](TaxCase& taxCase) {
        writeCell(taxCase, cellOf(index).first, index.column(), *cell);
    });
    return true;
}

/// In the empty row it makes a record, to which it belongs.
void RecordModel::keepText(const QModelIndex& index, const QString& text) {
    const UnreadCells::Cell cell = cellOf(index);
    if (store_.year() == year_) {
        store_.edit(column(cell.second).label,
                    [&](TaxCase& taxCase) { addRecords(taxCase, cell.first); });
    }
    const auto taxCase = store_.cases().find(year_);
    if (taxCase != store_.cases().end() && card_.size(taxCase->second) > cell.first) {
        tell({});
        unread_.set({{cell, text}});
        Q_EMIT textKept();
    }
}

bool RecordModel::dropText(const QModelIndex& index) {
    const bool isUnread = index.isValid() && unread_.at(cellOf(index)) != nullptr;
    if (isUnread) {
        unread_.set({{cellOf(index), std::nullopt}});
    }
    return isUnread;
}

void RecordModel::paste(const QModelIndex& from, const QString& text) {
    QStringList problems;
    UnreadCells::Texts texts;
    const QStringList lines = linesOf(text);
    const qsizetype count = std::min<qsizetype>(lines.size(), mostPastedRows);
    const TaxCase before = store_.current();
    TaxCase changed = before;
    for (qsizetype line = 0; line < count; ++line) {
        const QStringList cells = lines[line].split(u'\t');
        const auto row = static_cast<std::size_t>(from.row() + line);
        const auto known = std::min<qsizetype>(cells.size(), columnCount() - from.column());
        for (qsizetype cell = 0; cell < known; ++cell) {
            const int at = from.column() + static_cast<int>(cell);
            std::optional<QString>& unread = texts[{row, at}];
            if (const auto value = readCell(column(at), cells[cell], year_)) {
                writeCell(changed, row, at, *value);
            } else {
                addRecords(changed, row);
                unread = cells[cell].trimmed();
                problems << ofColumn(column(at), value.error());
            }
        }
    }
    store_.setCurrent(std::move(changed), card_.title + " einfügen");
    unread_.setPasted(texts, before);
    tell(pasteProblem(problems, lines.size()));
    if (!problems.isEmpty()) {
        Q_EMIT textKept();
    }
}

/// Texts came or went, here or by undoing.
void RecordModel::followTexts() {
    const auto changed = unread_.follow();
    for (const auto& [row, column] : changed) {
        const QModelIndex cell = index(static_cast<int>(row), column);
        if (cell.isValid()) { // the rows may follow later, with their page
            Q_EMIT dataChanged(cell, cell);
        }
    }
    if (!changed.empty()) {
        Q_EMIT problemChanged();
    }
}

/// Rows come and go at the end, so that who is typing keeps the cell; the empty row stays last.
void RecordModel::reload() {
    nameOptions();
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
    const bool wasPasted = unread_.isPasted();
    unread_.follow();
    if (wasPasted && !unread_.isPasted()) {
        tell({}); // undone
    }
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
    Q_EMIT problemChanged();
}

} // namespace fiscarel::forms
