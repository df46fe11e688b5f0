#include "Fiscarel_SG/forms/RecordModel.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/CellText.h"
#include "Fiscarel_SG/forms/QtText.h"
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
        sentences << u"Ein Feld war nicht lesbar."_s << problems.first();
    } else if (!problems.isEmpty()) {
        sentences << u"%1 Felder waren nicht lesbar."_s.arg(problems.size()) << problems.first();
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

} // namespace

RecordModel::RecordModel(const ListCard& card, AppStore& store, QObject* parent)
    : QAbstractTableModel(parent), card_(card), store_(store), columns_(card.fields(0)),
      shownRecords_(records()) {
    learnColumns();
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

void RecordModel::writeCell(TaxCase& taxCase, std::size_t row, int column,
                            const Value& value) const {
    while (card_.size(taxCase) <= row) {
        card_.add(taxCase);
    }
    card_.fields(row)[static_cast<std::size_t>(column)].set(taxCase, value);
}

void RecordModel::tell(const QString& problem) {
    if (problem != problem_) {
        problem_ = problem;
        Q_EMIT problemChanged();
    }
}

bool RecordModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const BoundField& field = column(index.column());
    tl::expected<Value, QString> cell = Value(value.toInt() == Qt::Checked);
    if (role != Qt::CheckStateRole) {
        const bool isRecord = static_cast<std::size_t>(index.row()) < shownRecords_;
        const QString before = isRecord ? data(index, Qt::EditRole).toString() : QString();
        if (value.toString() == before) {
            tell({});
            return true; // left as it was; an empty last row stays no record
        }
        cell = readCell(field, value.toString(), store_.year());
    }
    if (!cell) {
        tell(cell.error());
        return false;
    }
    tell(noteOn(field, *cell));
    store_.edit(field.label, [&](TaxCase& taxCase) {
        writeCell(taxCase, static_cast<std::size_t>(index.row()), index.column(), *cell);
    });
    return true;
}

void RecordModel::paste(const QModelIndex& from, const QString& text) {
    QStringList problems;
    const QStringList lines = linesOf(text);
    const qsizetype count = std::min<qsizetype>(lines.size(), mostPastedRows);
    TaxCase changed = store_.current();
    for (qsizetype line = 0; line < count; ++line) {
        const QStringList cells = lines[line].split(u'\t');
        const auto known = std::min<qsizetype>(cells.size(), columnCount() - from.column());
        for (qsizetype cell = 0; cell < known; ++cell) {
            const int at = from.column() + static_cast<int>(cell);
            if (const auto value = readCell(column(at), cells[cell], store_.year())) {
                writeCell(changed, static_cast<std::size_t>(from.row() + line), at, *value);
            } else {
                problems << value.error();
            }
        }
    }
    store_.setCurrent(std::move(changed), card_.title + " einfügen");
    tell(pasteProblem(problems, lines.size()));
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
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
}

} // namespace fiscarel::forms
