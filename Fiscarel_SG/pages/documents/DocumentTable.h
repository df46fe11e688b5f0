#pragma once

#include <QElapsedTimer>
#include <QTableView>

namespace fiscarel::pages {

/// The list of documents as a table: as high as its lines, up to some; Enter opens, Delete removes,
/// F2 renames; the tabulator leaves it.
class DocumentTable final : public QTableView {
    Q_OBJECT

  public:
    explicit DocumentTable(QWidget* parent);

    void setModel(QAbstractItemModel* model) override;
    /// More lines than these scroll.
    void setMostLines(int lines);

  Q_SIGNALS:
    void openWanted(const QModelIndex& index);
    void removeWanted();
    void renameWanted();
    void selected();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

  private:
    void fitHeight();
    void fitColumns();

    bool isLinkAt(const QPoint& at) const;
    bool isEcho(const QMouseEvent& event) const;

    int mostLines_ = 8;
    QElapsedTimer followed_; ///< since a link was followed by a click
    QPoint followedAt_;
    bool isIgnored_ = false; ///< until the button is let go
};

} // namespace fiscarel::pages
