#include "Fiscarel_SG/store/QtServices.h"

#include <QString>
#include <QTimer>
#include <utility>

namespace fiscarel {

namespace {

class QtTimer final : public Timer {
  public:
    explicit QtTimer(std::function<void()> call) : call_(std::move(call)) {
        timer_.setSingleShot(true);
        timer_.callOnTimeout([this] { call_(); });
    }

    void start(std::chrono::milliseconds after) override { timer_.start(after); }
    void stop() override { timer_.stop(); }
    bool isRunning() const override { return timer_.isActive(); }

  private:
    std::function<void()> call_;
    QTimer timer_;
};

QString qString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

std::unique_ptr<Timer> QtTimers::make(std::function<void()> call) {
    return std::make_unique<QtTimer>(std::move(call));
}

QtSettings::QtSettings()
    : settings_(QStringLiteral("Fiscarel SG"), QStringLiteral("Fiscarel SG")) {}

std::optional<std::string> QtSettings::text(std::string_view key) const {
    const QVariant value = settings_.value(qString(key));
    return value.isValid() ? std::optional(value.toString().toStdString()) : std::nullopt;
}

void QtSettings::setText(std::string_view key, std::string_view value) {
    settings_.setValue(qString(key), qString(value));
}

} // namespace fiscarel
