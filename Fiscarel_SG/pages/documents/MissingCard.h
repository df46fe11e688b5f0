#pragma once

#include <QWidget>

class QVBoxLayout;

namespace fiscarel {
class AppStore;
class DocumentReadings;
} // namespace fiscarel

namespace fiscarel::pages {

/// Which documents there were in the year before and are not there yet; hidden when none.
class MissingCard final : public QWidget {
    Q_OBJECT

  public:
    /// Both must outlive it.
    MissingCard(AppStore& store, const DocumentReadings& readings, QWidget* parent);

    void refresh();

  private:
    AppStore& store_;
    const DocumentReadings& readings_;
    QVBoxLayout* column_;
    QWidget* rows_ = nullptr;
};

} // namespace fiscarel::pages
