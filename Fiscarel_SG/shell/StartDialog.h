#pragma once

#include <QDialog>

class QLabel;
class QRadioButton;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::shell {

/// The first start: the region, and whether to begin anew, with last year's file, or with the demo
/// household.
class StartDialog final : public QDialog {
    Q_OBJECT

  public:
    StartDialog(AppStore& store, QWidget* parent);

  Q_SIGNALS:
    /// The user wants to look around in the demo household of the region chosen.
    void demoWanted(bool liechtenstein);
    /// The user begins with an empty return; the region is chosen.
    void begun();

  private:
    void begin();
    void beginWithFile();

    AppStore& store_;
    QRadioButton* liechtenstein_;
    QLabel* problem_;
};

/// Offers the newest backup that reads, after the data could not be loaded.
void offerRecovery(AppStore& store, QWidget* parent);

} // namespace fiscarel::shell
