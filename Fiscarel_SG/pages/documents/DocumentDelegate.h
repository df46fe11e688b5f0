#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/documents/DocumentModel.h"
#endif

#include <QStyledItemDelegate>

namespace fiscarel::pages {

class DocumentFilter;

/// Draws the lines of the list: a picture of the first page with title and detail, how far reading
/// is with a way to end it, and the way to another year.
class DocumentDelegate final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    static constexpr int rowHeight = 62;

    DocumentDelegate(DocumentFilter& filter, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    /// Where a click ends the reading of a document, within its state; where it moves one to its
    /// year, within its title. Empty where there is no such thing.
    QRect cancelPlace(const QStyleOptionViewItem& option, const QModelIndex& index) const;
    QRect movePlace(const QStyleOptionViewItem& option, const QModelIndex& index) const;

  Q_SIGNALS:
    void cancelWanted(const taxcore::Uuid& id);
    void moveWanted(const taxcore::Uuid& id);

  private:
    const DocumentModel::Row& rowOf(const QModelIndex& index) const;
    void paintTitle(QPainter& painter, const QStyleOptionViewItem& option,
                    const QModelIndex& index) const;
    void paintPicture(QPainter& painter, const QRect& place, const QStyleOptionViewItem& option,
                      const QModelIndex& index) const;
    void paintState(QPainter& painter, const QStyleOptionViewItem& option,
                    const QModelIndex& index) const;

    DocumentFilter& filter_;
};

/// "Nach 2024 verschieben"
QString moveText(int year);

} // namespace fiscarel::pages
