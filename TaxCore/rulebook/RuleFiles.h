#pragma once

#include <tl/expected.hpp>

#include <filesystem>
#include <string>
#include <string_view>

namespace taxcore {

/// Why the rules of a year could not be loaded.
struct RuleLoadError {
    enum class Kind {
        missing,    ///< no such file
        unreadable, ///< the file is there but cannot be read
        invalid,    ///< its content does not fit
    };

    Kind kind = Kind::missing;
    std::string fileName; ///< with ".json"
    std::string detail;   ///< for `unreadable` and `invalid`: the reason, a German sentence

    /// The German text for the user; for a missing file "Regeldatei fehlt: " and its name.
    std::string description() const;
};

/// The folder that holds the rule files.
class RuleFiles {
  public:
    explicit RuleFiles(std::filesystem::path directory) : directory_(std::move(directory)) {}

    /// The files that ship with the program: "TaxCore_TaxCore.bundle/rules" beside the executable,
    /// else in "../share/fiscarel-sg" seen from it. When neither exists the installation is broken
    /// and the process stops with "unable to find bundle named TaxCore_TaxCore".
    static const RuleFiles& bundle();

    /// The text of the file `baseName` + ".json".
    tl::expected<std::string, RuleLoadError> read(const std::string& baseName) const;

  private:
    std::filesystem::path directory_;
};

} // namespace taxcore
