#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/store/StoredDocument.h"
#endif

#include <QTimer>
#include <QWidget>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

class DocumentDesk;
class DocumentDetails;
class DocumentFilter;
class DocumentModel;
class DocumentTable;

/// The card with the documents of the selected year: search and filters, the list, and what can be
/// done with what is selected.
class DocumentList final : public QWidget {
    Q_OBJECT

  public:
    /// Both must outlive it.
    DocumentList(AppStore& store, DocumentDesk& desk, QWidget* parent);

    void refresh();
    /// The height of the page, so that list and details fit on it together.
    void setRoom(int height);

  Q_SIGNALS:
    /// The user wants to see a document and take over its values.
    void documentWanted(const taxcore::Uuid& id);
    /// Another file is to take the place of a document.
    void replaceWanted(const taxcore::Uuid& id);
    /// What was selected has its details here, which should be seen.
    void detailsShown(QWidget* details);
    /// Something was done that is told in passing.
    void told(const QString& text);
    /// The same, of a step that can be undone at once.
    void undoOffered(const QString& sentence);

  private:
    void addFilters(QVBoxLayout& card);
    void addReadingLine(QVBoxLayout& card);
    void addWaitingLine(QVBoxLayout& card);
    void addTable(QVBoxLayout& card);
    void filterKinds();
    void refreshReading();
    void refreshWaiting();
    void checkFirst();
    void refreshEmpty();
    void showSelected();
    std::vector<Uuid> selected() const;
    void select(const std::vector<Uuid>& ids);
    void removeSelected();
    void move(const Uuid& id);
    void showMenu(const QPoint& at);

    AppStore& store_;
    DocumentDesk& desk_;
    DocumentModel* model_;
    DocumentFilter* filter_;
    QWidget* filters_;
    QLineEdit* search_;
    QComboBox* kind_;
    QComboBox* group_;
    QWidget* readingLine_;
    QLabel* reading_;
    QWidget* waitingLine_;
    QLabel* waiting_;
    QPushButton* first_;
    QLabel* empty_;
    DocumentTable* table_;
    DocumentDetails* details_;
    QTimer settled_;         ///< until a selection is no double click any more
    std::vector<Uuid> seen_; ///< whose details were brought in sight
};

} // namespace fiscarel::pages
