#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/documents/DocumentModel.h"
#endif

#include <QWidget>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace fiscarel::pages {

class DocumentDesk;

/// What can be done with the documents selected in the list: for one, its title, kind and note, and
/// the way to its values; for several, removing them.
class DocumentDetails final : public QWidget {
    Q_OBJECT

  public:
    /// All must outlive it.
    DocumentDetails(AppStore& store, DocumentDesk& desk, const DocumentModel& model,
                    QWidget* parent);

    /// Shows these, or nothing. What is being typed into a field stays.
    void show(const std::vector<taxcore::Uuid>& selected);
    /// Gives the title to the keyboard.
    void rename();

  Q_SIGNALS:
    void openWanted(const taxcore::Uuid& id);
    void moveWanted(const taxcore::Uuid& id);
    void removeWanted();
    /// Another file is to take the place of this one.
    void replaceWanted(const taxcore::Uuid& id);

  private:
    QPushButton* addButton(const QString& text, const QString& name,
                           const std::function<void(const Uuid&)>& act);
    void addFields();
    void addButtons();
    void showOne(const DocumentModel::Row& row);
    void change(const std::function<void(StoredDocument&)>& change);
    const StoredDocument* document() const;
    void openFile();

    AppStore& store_;
    DocumentDesk& desk_;
    const DocumentModel& model_;
    std::vector<Uuid> shown_;
    QLabel* several_;
    QLabel* problem_;
    QWidget* fields_;
    QLineEdit* title_;
    QComboBox* kind_;
    QLineEdit* note_;
    QPushButton* apply_ = nullptr;
    QPushButton* replace_ = nullptr;
    QPushButton* file_ = nullptr;
    QPushButton* move_ = nullptr;
    QPushButton* again_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QPushButton* remove_ = nullptr;
};

} // namespace fiscarel::pages
