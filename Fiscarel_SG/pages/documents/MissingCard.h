#pragma once

#include <QWidget>

class QVBoxLayout;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

/// Which documents there were in the year before and are not there yet; hidden when none.
class MissingCard final : public QWidget {
    Q_OBJECT

  public:
    MissingCard(AppStore& store, QWidget* parent);

    void refresh();

  private:
    AppStore& store_;
    QVBoxLayout* column_;
    QWidget* rows_ = nullptr;
};

} // namespace fiscarel::pages
