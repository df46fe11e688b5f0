#pragma once

#ifndef Q_MOC_RUN
#include "TaxCore/base/Uuid.h"
#endif

#include <QWidget>
#include <filesystem>
#include <optional>
#include <vector>

class QBoxLayout;
class QFrame;
class QLabel;
class QMimeData;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

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
    /// Lets the user pick files, with `instead` to take the place of that document.
    void pickFiles(const std::optional<taxcore::Uuid>& instead = std::nullopt);
    /// Takes up little room, as where there are documents already.
    void setSlim(bool slim);

  private:
    void addZone();
    void addMessage(QVBoxLayout& outer);
    void addTwins(QVBoxLayout& outer);
    void pickFolder();
    void refresh();
    QString twinsText() const;

    AppStore& store_;
    DocumentDesk& desk_;
    QFrame* zone_;
    QBoxLayout* inside_ = nullptr; ///< of the zone
    QLabel* invitation_;
    QLabel* help_ = nullptr;
    QLabel* busy_;
    QProgressBar* bar_;
    QFrame* messageLine_;
    QLabel* message_;
    QFrame* twins_;
    QLabel* twinsTitle_;
    QLabel* twinsText_;
};

} // namespace fiscarel::pages
