#include "cli/Input.h"

#include "Fiscarel_SG/store/FileSystem.h"
#include "TaxCore/base/Text.h"
#include "cli/Output.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace fiscarel::cli {

namespace {

using namespace taxcore;

tl::unexpected<Fault> unreadable(const std::string& file, int error) {
    const std::string what = file == "-" ? "Die Standardeingabe" : "Die Datei «" + file + "»";
    return tl::unexpected(what + " lässt sich nicht lesen: " + FileError{error, file}.reason());
}

/// Whether a record lacks `key`, which is the first it needs.
bool lacks(const JsonError& error, std::string_view key) {
    return error.kind == JsonError::Kind::missingKey && error.path == key;
}

// What the other kind of file has as its first key tells which of the two a text is.

bool isStateFile(const std::string& text) {
    const auto state = decodeState(text);
    return state || !lacks(state.error().json, "cases");
}

bool isSingleCase(const std::string& text) {
    const auto taxCase = fromJson<TaxCase>(text);
    return taxCase || !lacks(taxCase.error(), "year");
}

/// A case and what else the household keeps.
struct CasesOfYears {
    TaxCase taxCase;
    PersistedState rest;
};

tl::expected<CasesOfYears, Fault> readSingleCase(const std::string& text) {
    auto taxCase = fromJson<TaxCase>(text);
    if (taxCase) {
        return CasesOfYears{std::move(*taxCase), {}};
    }
    if (lacks(taxCase.error(), "year") && isStateFile(text)) {
        return tl::unexpected(
            Fault("Die Datei enthält mehrere Steuerjahre: bitte mit --jahr eines wählen."));
    }
    return tl::unexpected(taxCase.error().message);
}

tl::expected<CasesOfYears, Fault> readCaseOfYear(const std::string& text, int year) {
    auto state = decodeState(text);
    if (!state) {
        return tl::unexpected(lacks(state.error().json, "cases") && isSingleCase(text)
                                  ? "Die Datei enthält einen einzelnen Fall: bitte ohne --jahr "
                                    "aufrufen."
                                  : state.error().message);
    }
    const auto found = state->cases.find(year);
    if (found == state->cases.end()) {
        return tl::unexpected("Die Datei enthält keine Angaben für das Steuerjahr "
                              + std::to_string(year) + ".");
    }
    if (found->second.year != year) {
        return tl::unexpected("Unter dem Steuerjahr " + std::to_string(year)
                              + " steht in der Datei ein Fall des Steuerjahrs "
                              + std::to_string(found->second.year) + ".");
    }
    TaxCase taxCase = std::move(found->second);
    state->cases.erase(found);
    return CasesOfYears{std::move(taxCase), std::move(*state)};
}

tl::expected<CasesOfYears, Fault> readCases(const std::string& text, std::optional<int> year) {
    if (isBlank(text)) {
        return tl::unexpected(Fault("Die Eingabe ist leer."));
    }
    return year ? readCaseOfYear(text, *year) : readSingleCase(text);
}

} // namespace

void CloseInput::operator()(std::FILE* stream) const noexcept {
    if (stream != stdin) {
        std::fclose(stream);
    }
}

tl::expected<InputStream, Fault> openInput(const std::string& file) {
    InputStream stream(file == "-" ? stdin : std::fopen(file.c_str(), "rbe"));
    struct stat status = {};
    // Folders open, but do not read; a closed standard input looks open until it is asked.
    if (!stream || fstat(fileno(stream.get()), &status) != 0) {
        return unreadable(file, errno);
    }
    if (S_ISDIR(status.st_mode)) {
        return unreadable(file, EISDIR);
    }
    if (file == "-" && isatty(fileno(stream.get())) != 0) {
        tell("Die Angaben werden von der Standardeingabe gelesen; Ende mit Strg+D.");
    }
    return stream;
}

tl::expected<std::string, Fault> readText(const std::string& file) {
    const auto stream = openInput(file);
    if (!stream) {
        return tl::unexpected(stream.error());
    }
    std::FILE* const in = stream->get();
    std::string text;
    std::array<char, std::size_t{1} << 16U> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), in)) {
        text.append(buffer.data(), count);
        if (text.size() > maxJsonSize) {
            return tl::unexpected("Die Eingabe ist grösser als "
                                  + std::to_string(maxJsonSize >> 20U) + " MB.");
        }
    }
    if (std::ferror(in) != 0) {
        return unreadable(file, errno);
    }
    return text;
}

tl::expected<CaseCalculator, Fault> calculatorFor(const TaxCase& taxCase) {
    return CaseCalculator::forCase(taxCase).map_error([&](const RuleLoadError& e) {
        const bool noSuchYear =
            e.kind == RuleLoadError::Kind::missing && !isSupportedYear(taxCase.year);
        return noSuchYear ? "Die Angabe «year» nennt das Steuerjahr " + std::to_string(taxCase.year)
                                + "; unterstützt werden " + supportedYears() + "."
                          : e.description();
    });
}

tl::expected<ReadCase, Fault> readForComputing(const std::string& file, std::optional<int> year) {
    const auto about = [&](const Fault& fault) {
        return tl::unexpected(file == "-" ? fault : file + ": " + fault);
    };
    const auto text = readText(file);
    if (!text) {
        return tl::unexpected(text.error());
    }
    auto cases = readCases(*text, year);
    if (!cases) {
        return about(cases.error());
    }
    auto calculator = calculatorFor(cases->taxCase);
    if (!calculator) {
        return about(calculator.error());
    }
    return ReadCase{std::move(cases->taxCase), std::move(cases->rest), std::move(*calculator)};
}

bool isSupportedYear(int year) {
    return std::ranges::find(RuleBook::supportedYears, year) != RuleBook::supportedYears.end();
}

std::string supportedYears() {
    constexpr std::size_t count = RuleBook::supportedYears.size();
    std::string years;
    for (std::size_t i = 0; i < count; ++i) {
        years += (i == 0           ? ""
                  : i + 1 == count ? " und "
                                   : ", ")
                 + std::to_string(RuleBook::supportedYears[i]);
    }
    return years;
}

} // namespace fiscarel::cli
