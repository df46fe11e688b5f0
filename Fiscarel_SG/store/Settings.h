#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fiscarel {

/// Small settings of the user by key; main thread only.
class Settings {
  public:
    Settings() = default;
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;
    virtual ~Settings() = default;

    /// Absent when it was never set.
    virtual std::optional<std::string> text(std::string_view key) const = 0;
    virtual void setText(std::string_view key, std::string_view value) = 0;

    /// Absent also when what is set is no whole number.
    std::optional<int> number(std::string_view key) const;
    void setNumber(std::string_view key, int value);
};

} // namespace fiscarel
