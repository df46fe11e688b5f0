#include "Fiscarel_SG/pages/documents/DocumentFilter.h"

#include "Fiscarel_SG/look/QtText.h"

namespace fiscarel::pages {

namespace {

using namespace Qt::Literals::StringLiterals;

bool isIn(DocumentState state, DocumentFilter::Group group) {
    switch (group) {
    case DocumentFilter::Group::all:
        return true;
    case DocumentFilter::Group::open:
        return state == DocumentState::open || state == DocumentState::unread
               || state == DocumentState::reading;
    case DocumentFilter::Group::applied:
        return state == DocumentState::applied;
    case DocumentFilter::Group::unreadable:
        return state == DocumentState::unreadable || state == DocumentState::missing;
    }
    return true;
}

} // namespace

DocumentFilter::DocumentFilter(DocumentModel& model, QObject* parent)
    : QSortFilterProxyModel(parent), model_(model) {
    setSourceModel(&model);
    setDynamicSortFilter(true);
    setSortCaseSensitivity(Qt::CaseInsensitive);
    setSortLocaleAware(true);
}

void DocumentFilter::setWords(const QString& text) {
    words_ = wordsToSearch(utf8(text));
    invalidateRowsFilter();
}

void DocumentFilter::setKind(std::optional<StoredDocument::Kind> kind) {
    kind_ = kind;
    invalidateRowsFilter();
}

void DocumentFilter::setGroup(Group group) {
    group_ = group;
    invalidateRowsFilter();
}

const DocumentModel::Row* DocumentFilter::rowAt(int line) const {
    return model_.rowAt(mapToSource(index(line, 0)).row());
}

bool DocumentFilter::filterAcceptsRow(int line, const QModelIndex& /*parent*/) const {
    const DocumentModel::Row& row = *model_.rowAt(line);
    return (!kind_ || row.kind == *kind_) && isIn(row.state, group_)
           && model_.hasWords(line, words_);
}

bool DocumentFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    const DocumentModel::Row& a = *model_.rowAt(left.row());
    const DocumentModel::Row& b = *model_.rowAt(right.row());
    if (left.column() == DocumentModel::amount) {
        return a.amount && b.amount ? *a.amount < *b.amount : !a.amount && b.amount;
    }
    if (left.column() == DocumentModel::state) {
        return a.state < b.state;
    }
    return QSortFilterProxyModel::lessThan(left, right);
}

} // namespace fiscarel::pages
