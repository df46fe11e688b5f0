#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/cloud/CloudService.h"
#endif

#include <QWidget>
#include <optional>

class QVBoxLayout;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

class CloudPanel;
class ConflictsCard;
class QuestionCard;

/// The encrypted backup on the page of the account: what waits for the user, and a card for the
/// phase it is in.
class CloudCard final : public QWidget {
    Q_OBJECT

  public:
    /// Both must outlive it. Without a service the card says so.
    CloudCard(AppStore& store, CloudService* service, QWidget* parent);

    /// The entries changed.
    void refresh();

  Q_SIGNALS:
    void fieldWanted(const QString& path);
    void documentWanted(const QString& id, const QString& path);
    void undoOffered(const QString& sentence);

  private:
    void follow();
    CloudPanel* makePanel(CloudStatus::Phase phase);
    /// Of the phases in which there is nothing to do.
    static QString noteOf(CloudStatus::Phase phase);

    CloudService* service_;
    QuestionCard* question_ = nullptr;
    ConflictsCard* conflicts_ = nullptr;
    QVBoxLayout* card_ = nullptr;
    CloudPanel* panel_ = nullptr; ///< of the phase; null where there is only a note
    QWidget* shown_ = nullptr;    ///< the panel or the note
    std::optional<CloudStatus::Phase> phase_;
};

} // namespace fiscarel::pages
