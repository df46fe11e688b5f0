#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/documents/ScanResult.h"
#include "TaxCore/base/Uuid.h"
#endif

#include <QDialog>
#include <QString>
#include <memory>
#include <optional>
#include <vector>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

class PageImages;
class PagePreview;
class ProposalByHand;
class ProposalDesk;
class ProposalHead;
class RecordPanel;

/// Where a household checks what was read from a document and takes it over: its pages on the left,
/// on the right each value with its field, its target and what it replaces. Nothing changes before
/// «Übernehmen», which is one step that can be undone, or «Nur ablegen», which keeps name and kind
/// alone. The store, which must have the document, and the pictures must outlive it.
class DocumentSheet final : public QDialog {
    Q_OBJECT

  public:
    DocumentSheet(AppStore& store, const Uuid& document, ScanResult scan, PageImages& images,
                  QWidget* parent);
    ~DocumentSheet() override;
    DocumentSheet(const DocumentSheet&) = delete;
    DocumentSheet& operator=(const DocumentSheet&) = delete;
    DocumentSheet(DocumentSheet&&) = delete;
    DocumentSheet& operator=(DocumentSheet&&) = delete;

    /// Brings a place of the document into sight; `page` from 1, without a box its beginning.
    void showPlace(int page, const std::optional<PageBox>& box);

    /// Closes; asks first when something was edited.
    void reject() override;

  Q_SIGNALS:
    /// Values were taken over; the sheet has closed.
    void applied(const QString& title);
    /// Only the name, the kind or the year of the document were kept; the sheet has closed.
    void filed(const QString& title);
    /// Somebody else has removed the document; the sheet has closed.
    void gone();
    /// The document was removed; the sheet has closed.
    void removed(const QString& title);
    /// The user wants to see the field at a path, or a page; the sheet has closed.
    void fieldWanted(const QString& path);
    void pageWanted(const QString& id);

  protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void showPages();
    void markValues();
    QWidget* makeDecisions();
    QHBoxLayout* makeFoot();
    void addShortcuts();
    /// Makes the panels, some at a time where there are many.
    void addPanels();
    void addPanel(int record);
    void refresh();
    void showEffect();
    void showBlocked();
    void focusValue(int proposal);
    void focusFirst();
    void apply();
    void file();
    void removeDocument();
    bool isUnreadable() const;
    bool isEmptyFile() const;
    void keepNameAndKind();
    void moveToYear(int year);
    bool isEdited() const;

    AppStore& store_;
    const ScanResult scan_;
    const std::unique_ptr<ProposalDesk> desk_;
    PagePreview* preview_;
    ProposalHead* head_ = nullptr;
    ProposalByHand* byHand_ = nullptr;
    QScrollArea* scroll_ = nullptr;
    QVBoxLayout* column_ = nullptr; ///< of the panels
    std::vector<RecordPanel*> panels_;
    QLabel* effect_;
    QLabel* blocked_;
    QPushButton* apply_ = nullptr;
    bool marksTotal_ = false; ///< the marks are those of the total
    bool isDecided_ = false;  ///< the user decided something
    bool isPlaced_ = false;   ///< somebody else said which place is to be seen
};

} // namespace fiscarel::pages
