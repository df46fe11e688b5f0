#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/look/PageFrame.h"
#include "Fiscarel_SG/look/PageWidget.h"
#include "TaxCore/base/Uuid.h"
#endif

#include <filesystem>
#include <optional>
#include <vector>

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

class EnclosuresCard;

/// The documents of the year: dropped or picked, opened, removed, and handed in with the return.
class DocumentsPage final : public look::PageWidget {
    Q_OBJECT

  public:
    DocumentsPage(AppStore& store, QWidget* parent);

    void refresh() override;
    void refreshResult() override {}

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void pick();
    void openSelected();
    void removeSelected();
    void editItem(QTreeWidgetItem* item, int column);
    /// Null while no document is selected.
    const taxcore::Uuid* selected() const;
    /// Absent without a selected document, and when its file is not there.
    std::optional<std::filesystem::path> selectedFile() const;

    AppStore& store_;
    look::PageFrame* frame_;
    QTreeWidget* list_;
    QWidget* tools_;
    QLabel* empty_ = nullptr;
    EnclosuresCard* enclosures_ = nullptr;
    std::vector<taxcore::Uuid> ids_;
};

} // namespace fiscarel::pages
