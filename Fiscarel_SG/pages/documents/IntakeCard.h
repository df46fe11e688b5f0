#pragma once

#include <QWidget>
#include <filesystem>
#include <vector>

class QFrame;
class QLabel;
class QMimeData;
class QProgressBar;
class QPushButton;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

class DocumentDesk;

/// Where documents come in: a place to drop files and folders on, buttons to pick them, what comes
/// of it, and the question about those that are there already.
class IntakeCard final : public QWidget {
    Q_OBJECT

  public:
    IntakeCard(AppStore& store, DocumentDesk& desk, QWidget* parent);

    /// Whether something that is dragged can be dropped, and what is in it.
    static bool hasFiles(const QMimeData& data);
    static std::vector<std::filesystem::path> filesOf(const QMimeData& data);
    /// Shows that something can be dropped now.
    void setInvites(bool invites);

  private:
    void addZone();
    void pickFiles();
    void pickFolder();
    void refresh();
    QString twinsText() const;

    AppStore& store_;
    DocumentDesk& desk_;
    QFrame* zone_;
    QLabel* invitation_;
    QLabel* busy_;
    QProgressBar* bar_;
    QFrame* messageLine_;
    QLabel* message_;
    QFrame* twins_;
    QLabel* twinsText_;
};

} // namespace fiscarel::pages
