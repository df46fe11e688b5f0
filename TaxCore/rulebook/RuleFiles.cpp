#include "TaxCore/rulebook/RuleFiles.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>

namespace taxcore {

namespace {

namespace fs = std::filesystem;

std::optional<fs::path> locateBundle() {
    constexpr std::string_view name = "TaxCore_TaxCore.bundle";
    std::error_code ignored;
    const fs::path program = fs::read_symlink("/proc/self/exe", ignored).parent_path();
    for (const fs::path& place : {program, program / "../share/fiscarel-sg"}) {
        fs::path rules = place / name / "rules";
        if (fs::is_directory(rules, ignored)) {
            return rules;
        }
    }
    return std::nullopt;
}

} // namespace

std::string RuleLoadError::description() const {
    switch (kind) {
    case Kind::missing:
        return "Regeldatei fehlt: " + fileName;
    case Kind::unreadable:
        return "Regeldatei " + fileName + " kann nicht gelesen werden: " + detail;
    case Kind::invalid:
        break;
    }
    return "Regeldatei " + fileName + ": " + detail;
}

const RuleFiles& RuleFiles::bundle() {
    static const RuleFiles files = [] {
        auto rules = locateBundle();
        if (!rules) {
            std::fputs("unable to find bundle named TaxCore_TaxCore\n", stderr);
            std::abort();
        }
        return RuleFiles(std::move(*rules));
    }();
    return files;
}

tl::expected<std::string, RuleLoadError> RuleFiles::read(const std::string& baseName) const {
    const std::string fileName = baseName + ".json";
    const fs::path path = directory_ / fileName;
    std::error_code error;
    if (!fs::exists(path, error)) {
        return tl::unexpected(RuleLoadError{RuleLoadError::Kind::missing, fileName, {}});
    }
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file || fs::is_directory(path, error)) {
        return tl::unexpected(RuleLoadError{RuleLoadError::Kind::unreadable, fileName,
                                            "Die Datei lässt sich nicht öffnen."});
    }
    return text;
}

} // namespace taxcore
