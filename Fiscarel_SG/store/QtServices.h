#pragma once

#include "Fiscarel_SG/store/Settings.h"
#include "Fiscarel_SG/store/Timer.h"

#include <QSettings>

namespace fiscarel {

/// Timers of the event loop.
class QtTimers final : public Timers {
  public:
    std::unique_ptr<Timer> make(std::function<void()> call) override;
};

/// The user's settings file, named after the product.
class QtSettings final : public Settings {
  public:
    QtSettings();

    std::optional<std::string> text(std::string_view key) const override;
    void setText(std::string_view key, std::string_view value) override;

  private:
    QSettings settings_;
};

} // namespace fiscarel
