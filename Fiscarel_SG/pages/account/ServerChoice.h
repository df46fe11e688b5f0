#pragma once

#include <QWidget>

class QPushButton;

namespace fiscarel {
class CloudService;
}

namespace fiscarel::pages {

class AskedField;

/// The address of the user's own server, behind a link until it is wanted.
class ServerChoice final : public QWidget {
    Q_OBJECT

  public:
    /// `service` must outlive it.
    ServerChoice(CloudService& service, QWidget* parent);

    /// The status changed.
    void follow();

  private:
    void take();

    CloudService& service_;
    QPushButton* open_;
    QWidget* part_; ///< what the link opens
    AskedField* field_;
};

} // namespace fiscarel::pages
