#include "cli/Input.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace fiscarel::cli {

namespace {

using namespace taxcore;

struct CloseFile {
    void operator()(std::FILE* file) const noexcept {
        if (file != stdin) {
            std::fclose(file);
        }
    }
};

/// The reasons a user meets; anything else is told by its number.
std::string reason(int error) {
    switch (error) {
    case ENOENT:
        return "Sie ist nicht vorhanden.";
    case EACCES:
        return "Der Zugriff ist nicht erlaubt.";
    case EISDIR:
        return "Es ist ein Ordner.";
    default:
        return "Fehler " + std::to_string(error) + " beim Lesen.";
    }
}

} // namespace

tl::expected<std::string, Fault> readText(const std::string& file) {
    const bool standardInput = file == "-";
    const std::unique_ptr<std::FILE, CloseFile> stream(
        standardInput ? stdin : std::fopen(file.c_str(), "rbe"));
    const auto unreadable = [&](int error) {
        return tl::unexpected("Die Datei «" + file + "» lässt sich nicht lesen: " + reason(error));
    };
    if (!stream) {
        return unreadable(errno);
    }
    std::string text;
    std::array<char, std::size_t{1} << 16U> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), stream.get())) {
        text.append(buffer.data(), count);
        if (text.size() > maxJsonSize) {
            return tl::unexpected("Die Eingabe ist grösser als "
                                  + std::to_string(maxJsonSize >> 20U) + " MB.");
        }
    }
    if (std::ferror(stream.get()) != 0) {
        return unreadable(errno);
    }
    return text;
}

tl::expected<TaxCase, Fault> readCase(const std::string& text, std::optional<int> year) {
    if (!year) {
        return fromJson<TaxCase>(text).map_error([](const JsonError& e) { return e.message; });
    }
    auto state = fromJson<CasesByYear>(text);
    if (!state) {
        return tl::unexpected(state.error().message);
    }
    if (state->version > 1) {
        return tl::unexpected("Die Datei hat die Version " + std::to_string(state->version)
                              + "; dieses Programm liest Version 1.");
    }
    const auto found = state->cases.find(*year);
    if (found == state->cases.end()) {
        return tl::unexpected("Die Datei enthält keine Angaben für das Steuerjahr "
                              + std::to_string(*year) + ".");
    }
    return std::move(found->second);
}

tl::expected<TaxCalculator, Fault> calculatorFor(const TaxCase& taxCase) {
    if (taxCase.taxRegion() != TaxRegion::stGallen) {
        return tl::unexpected("Die Angabe «region» verlangt "
                              + std::string(label(taxCase.taxRegion()))
                              + "; berechnet wird hier erst der Kanton St.Gallen.");
    }
    return TaxCalculator::forYear(taxCase.year).map_error([&](const RuleBook::LoadError& e) {
        const bool noSuchYear = e.kind == RuleBook::LoadError::Kind::missing;
        return noSuchYear ? "Die Angabe «year» verlangt das Steuerjahr "
                                + std::to_string(taxCase.year) + " – " + e.description()
                          : e.description();
    });
}

} // namespace fiscarel::cli
