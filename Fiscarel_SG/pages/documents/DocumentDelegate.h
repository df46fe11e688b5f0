#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/documents/DocumentModel.h"
#endif

#include <QStyledItemDelegate>

namespace fiscarel::pages {

class DocumentFilter;

/// Draws the lines of the list: a picture of the first page with title and detail, issuer and kind
/// over two lines where they are long, and how a document stands with what can be done about it: to
/// check it, to move it to its year, to end its reading.
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

    /// What a click on the link below a state does.
    enum class Action { none, check, move };
    Action actionOf(const QModelIndex& index) const;
    /// Where a click ends the reading of a document, and where it does what `actionOf` tells; both
    /// within its state. Empty where there is no such thing.
    QRect cancelPlace(const QStyleOptionViewItem& option, const QModelIndex& index) const;
    QRect actionPlace(const QStyleOptionViewItem& option, const QModelIndex& index) const;

    /// The least widths of columns: what stands in them need not be cut.
    static int stateWidth(const QFontMetrics& metrics);
    static int kindWidth(const QFontMetrics& metrics);
    static int amountWidth(const QFontMetrics& metrics, const DocumentFilter& rows);

  Q_SIGNALS:
    void cancelWanted(const taxcore::Uuid& id);
    void checkWanted(const taxcore::Uuid& id);
    void moveWanted(const taxcore::Uuid& id);

  private:
    const DocumentModel::Row& rowOf(const QModelIndex& index) const;
    QString actionText(const QModelIndex& index) const;
    void paintTitle(QPainter& painter, const QStyleOptionViewItem& option,
                    const QModelIndex& index) const;
    void paintPicture(QPainter& painter, const QRect& place, const QStyleOptionViewItem& option,
                      const QModelIndex& index) const;
    void paintText(QPainter& painter, const QStyleOptionViewItem& option,
                   const QModelIndex& index) const;
    void paintState(QPainter& painter, const QStyleOptionViewItem& option,
                    const QModelIndex& index) const;
    void paintProgress(QPainter& painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const;

    DocumentFilter& filter_;
};

/// "Nach 2024 verschieben"
QString moveText(int year);

} // namespace fiscarel::pages
