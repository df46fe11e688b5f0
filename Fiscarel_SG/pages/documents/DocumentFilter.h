#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/documents/DocumentModel.h"
#endif

#include <QSortFilterProxyModel>
#include <optional>
#include <string>
#include <vector>

namespace fiscarel::pages {

/// The documents the user looks for, sorted by a column.
class DocumentFilter final : public QSortFilterProxyModel {
    Q_OBJECT

  public:
    /// How a document stands, as one looks for it.
    enum class Group { all, open, applied, unreadable };

    explicit DocumentFilter(DocumentModel& model, QObject* parent);

    DocumentModel& model() const noexcept { return model_; }
    /// What is typed to search; empty: everything.
    void setWords(const QString& text);
    /// Absent: all kinds.
    void setKind(std::optional<StoredDocument::Kind> kind);
    void setGroup(Group group);
    bool hidesSome() const { return rowCount() < model_.rowCount(); }
    /// The row of the model behind a line of this; null for a line there is not.
    const DocumentModel::Row* rowAt(int line) const;

  protected:
    bool filterAcceptsRow(int line, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

  private:
    DocumentModel& model_;
    std::vector<std::string> words_;
    std::optional<StoredDocument::Kind> kind_;
    Group group_ = Group::all;
};

} // namespace fiscarel::pages
