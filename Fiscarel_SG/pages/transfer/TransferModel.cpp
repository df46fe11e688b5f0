#include "Fiscarel_SG/pages/transfer/TransferModel.h"

#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"

#include <QFont>
#include <QStringList>
#include <algorithm>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using outputs::Tick;
using outputs::TransferRow;

namespace {

/// Rows of the return alternate between the persons: each names its own.
QString partTitle(const TransferRow& row) {
    const bool isLine = row.key == row.code;
    return row.name.empty() || isLine ? qs(row.part) : u"%1 · %2"_s.arg(qs(row.part), qs(row.name));
}

QString labelOf(const TransferRow& row) {
    QString label = qs(row.label);
    if (row.key == row.code && !row.name.empty() && row.label.find(row.name) == std::string::npos) {
        const QString number = u" Person %1"_s.arg(row.person);
        label.chop(label.endsWith(number) ? number.size() : 0);
        // The first name tells the two apart and leaves room for the line.
        label += u" · "_s
                 + (qs(row.name).startsWith(u"Person "_s) ? qs(row.name)
                                                          : qs(row.name).section(u' ', 0, 0));
    }
    if (row.tick == Tick::changed) {
        label += u" – geändert, bisher "_s + qs(row.oldValue);
    } else if (row.isComputed) {
        label += u" (zum Vergleichen)"_s;
    }
    return label;
}

QString toolTipOf(const TransferRow& row) {
    QStringList texts{labelOf(row)};
    if (!row.note.empty()) {
        texts << qs(row.note);
    }
    if (!row.documents.empty()) {
        texts << (row.documents.size() == 1 ? u"1 Beleg"_s
                                            : u"%1 Belege"_s.arg(row.documents.size()));
    }
    texts << (row.code.empty() ? u"Klicken zeigt die Angabe."_s
                               : u"Klicken zeigt, woher der Wert kommt."_s);
    return texts.join(u'\n');
}

bool isNumber(const TransferRow& row) {
    return row.kind == outputs::ValueKind::francs || row.kind == outputs::ValueKind::rappen
           || row.kind == outputs::ValueKind::number;
}

} // namespace

void TransferModel::addRows(std::vector<Line>& lines, const Filter& filter) const {
    const TransferRow* before = nullptr;
    for (std::size_t i = 0; i < list_.rows.size(); ++i) {
        const TransferRow& row = list_.rows[i];
        if ((!filter.form.empty() && row.form != filter.form)
            || (filter.openOnly && row.tick == Tick::done)) {
            continue;
        }
        const bool isNew =
            before == nullptr || before->form != row.form || before->page != row.page;
        if (isNew) {
            lines.push_back(
                {Line::Kind::form, u"%1, Seite %2"_s.arg(qs(row.form)).arg(row.page), 0});
        }
        const QString title = partTitle(row);
        if (!title.isEmpty()
            && (isNew || before->item != row.item || partTitle(*before) != title)) {
            lines.push_back({Line::Kind::part, title, 0});
        }
        lines.push_back({Line::Kind::row, {}, i});
        before = &row;
    }
}

std::vector<TransferModel::Line> TransferModel::linesOf(const Filter& filter) const {
    std::vector<Line> lines;
    if (!list_.gone.empty()) {
        lines.push_back({Line::Kind::form, u"Im Programm der Behörde zu leeren"_s, 0});
        for (std::size_t i = 0; i < list_.gone.size(); ++i) {
            lines.push_back({Line::Kind::gone, {}, i});
        }
    }
    addRows(lines, filter);
    if (filter.openOnly || !filter.form.empty()) {
        return lines;
    }
    bool begun = false;
    for (std::size_t i = 0; i < list_.notTransferred.size(); ++i) {
        if (!list_.notTransferred[i].isInitial) {
            if (!std::exchange(begun, true)) {
                lines.push_back(
                    {Line::Kind::form, u"Eingaben, die auf keinem Formular stehen"_s, 0});
            }
            lines.push_back({Line::Kind::none, {}, i});
        }
    }
    return lines;
}

void TransferModel::show(outputs::TransferList list, std::vector<QString> notTransferred,
                         const Filter& filter) {
    const std::vector<TransferRow> before = std::exchange(list_, std::move(list)).rows;
    notTransferred_ = std::move(notTransferred);
    std::vector<Line> lines = linesOf(filter);
    const bool same =
        lines == lines_
        && std::ranges::equal(before, list_.rows, {}, &TransferRow::key, &TransferRow::key);
    if (same) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columns - 1));
        return;
    }
    beginResetModel();
    lines_ = std::move(lines);
    endResetModel();
}

const TransferRow* TransferModel::rowAt(int line) const {
    const auto at = static_cast<std::size_t>(line);
    return at < lines_.size() && lines_[at].kind == Line::Kind::row ? &list_.rows[lines_[at].at]
                                                                    : nullptr;
}

const outputs::GoneRow* TransferModel::goneAt(int line) const {
    const auto at = static_cast<std::size_t>(line);
    return at < lines_.size() && lines_[at].kind == Line::Kind::gone ? &list_.gone[lines_[at].at]
                                                                     : nullptr;
}

const outputs::NotTransferred* TransferModel::notTransferredAt(int line) const {
    const auto at = static_cast<std::size_t>(line);
    return at < lines_.size() && lines_[at].kind == Line::Kind::none
               ? &list_.notTransferred[lines_[at].at]
               : nullptr;
}

bool TransferModel::isHeading(int line) const {
    const auto at = static_cast<std::size_t>(line);
    return at < lines_.size()
           && (lines_[at].kind == Line::Kind::form || lines_[at].kind == Line::Kind::part);
}

bool TransferModel::isWide(int line) const {
    const TransferRow* const row = rowAt(line);
    return row != nullptr && row->federal.empty() && !isNumber(*row);
}

int TransferModel::lineOf(const std::string& key) const {
    for (int line = 0; line < rowCount(); ++line) {
        if (const TransferRow* const row = rowAt(line); row != nullptr && row->key == key) {
            return line;
        }
    }
    return -1;
}

QString TransferModel::copiedAt(const QModelIndex& index) const {
    const TransferRow* const row = rowAt(index.row());
    if (row == nullptr) {
        return {};
    }
    const bool isFederal = index.column() == federal || index.column() == copyFederal;
    const std::string& value = isFederal && !isWide(index.row()) ? row->federal : row->value;
    return qs(outputs::pasted(row->kind, value));
}

void TransferModel::setCopied(const QModelIndex& index) {
    const QModelIndex before = std::exchange(copied_, QPersistentModelIndex(index));
    for (const QModelIndex& changed : {before, index}) {
        if (changed.isValid()) {
            Q_EMIT dataChanged(changed, changed);
        }
    }
}

int TransferModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int TransferModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

QString TransferModel::textOf(const TransferRow& row, const QModelIndex& index) const {
    switch (index.column()) {
    case ziffer: {
        const bool hasCode = row.key == row.code && !row.code.empty() && row.code.front() >= '0'
                             && row.code.front() <= '9'; // the codes that Liechtenstein prints
        return hasCode ? u"%1  %2"_s.arg(qs(row.ziffer), qs(row.code)).trimmed() : qs(row.ziffer);
    }
    case label:
        return labelOf(row);
    case canton:
        return qs(row.value);
    case federal:
        return qs(row.federal);
    case copyCanton:
        return copied_ == index ? u"kopiert"_s : u"Kopieren"_s;
    case copyFederal:
        return row.federal.empty() && !isWide(index.row())
                   ? QString()
                   : (copied_ == index ? u"kopiert"_s : u"Kopieren"_s);
    default:
        return {};
    }
}

QVariant TransferModel::rowData(const TransferRow& row, const QModelIndex& index, int role) const {
    const look::Theme& theme = look::Theme::current();
    const int column = index.column();
    const bool isCopy = column == copyCanton || column == copyFederal;
    switch (role) {
    case Qt::DisplayRole:
        return textOf(row, index);
    case Qt::CheckStateRole:
        return column == tick ? QVariant(row.tick == Tick::done ? Qt::Checked : Qt::Unchecked)
                              : QVariant();
    case Qt::ToolTipRole:
        return column == label ? toolTipOf(row) : textOf(row, index);
    case Qt::TextAlignmentRole:
        return QVariant((column == canton && isNumber(row)) || column == federal
                            ? Qt::AlignRight | Qt::AlignVCenter
                            : Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        if (isCopy) {
            return copied_ == index ? theme.good : theme.accent;
        }
        if (column == label && row.tick == Tick::changed) {
            return theme.warning;
        }
        return row.tick == Tick::done || column == ziffer ? theme.faint : theme.text;
    case Qt::AccessibleTextRole:
        if (column == tick) {
            return u"%1 übertragen"_s.arg(labelOf(row));
        }
        return isCopy ? u"%1 kopieren, %2"_s.arg(labelOf(row), copiedAt(index))
                      : textOf(row, index);
    default:
        return {};
    }
}

QVariant TransferModel::headingData(const Line& line, int column, int role) const {
    const bool isForm = line.kind == Line::Kind::form;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return column == 0 ? line.text : QString();
    case Qt::FontRole: {
        QFont font;
        font.setBold(isForm);
        font.setItalic(!isForm);
        return font;
    }
    case Qt::ForegroundRole:
        return isForm ? look::Theme::current().text : look::Theme::current().faint;
    case Qt::BackgroundRole:
        return isForm ? QVariant(look::Theme::current().window) : QVariant();
    default:
        return {};
    }
}

QVariant TransferModel::otherData(const Line& line, int column, int role) const {
    const bool isGone = line.kind == Line::Kind::gone;
    if (role == Qt::CheckStateRole) {
        return isGone && column == tick ? QVariant(Qt::Unchecked) : QVariant();
    }
    if (role == Qt::ForegroundRole) {
        return isGone ? look::Theme::current().warning : look::Theme::current().faint;
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::AccessibleTextRole) {
        return {};
    }
    if (isGone) {
        const outputs::GoneRow& gone = list_.gone[line.at];
        QStringList values;
        for (const std::string& value : gone.oldValues) {
            values << qs(value);
        }
        if (column == tick && role == Qt::AccessibleTextRole) {
            return u"%1 geleert"_s.arg(qs(gone.label));
        }
        return column == label ? u"%1 – nicht mehr in der Steuererklärung, bisher %2"_s.arg(
                   qs(gone.label), values.join(u", "_s))
                               : QString();
    }
    const outputs::NotTransferred& entry = list_.notTransferred[line.at];
    if (column != label) {
        return {};
    }
    const QString name =
        line.at < notTransferred_.size() ? notTransferred_[line.at] : qs(entry.path);
    return u"%1 (%2): %3"_s.arg(name, qs(entry.value), qs(entry.reason));
}

QVariant TransferModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    if (const TransferRow* const row = rowAt(index.row())) {
        return rowData(*row, index, role);
    }
    const Line& line = lines_[static_cast<std::size_t>(index.row())];
    return isHeading(index.row()) ? headingData(line, index.column(), role)
                                  : otherData(line, index.column(), role);
}

bool TransferModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || index.column() != tick) {
        return false;
    }
    Q_EMIT ticked(index.row(), value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags TransferModel::flags(const QModelIndex& index) const {
    if (isHeading(index.row())) {
        return Qt::ItemIsEnabled;
    }
    const bool isTick = index.column() == tick && notTransferredAt(index.row()) == nullptr;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable
           | (isTick ? Qt::ItemIsUserCheckable : Qt::NoItemFlags);
}

QVariant TransferModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole) {
        return QVariant(section == canton || section == federal ? Qt::AlignRight | Qt::AlignVCenter
                                                                : Qt::AlignLeft | Qt::AlignVCenter);
    }
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    const bool hasFederal = std::ranges::any_of(
        list_.rows, [](const TransferRow& row) { return !row.federal.empty(); });
    switch (section) {
    case ziffer:
        return u"Ziffer"_s;
    case label:
        return u"Feld"_s;
    case canton:
        return hasFederal ? u"Kanton"_s : u"Wert"_s;
    case federal:
        return u"Bund"_s;
    default:
        return QString();
    }
}

} // namespace fiscarel::pages
