#include "TaxCore/rulebook/RuleBook.h"
#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/Output.h"
#include "cli/TextTable.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace {

using namespace fiscarel::cli;

/// Sets the columns of the help by what is seen of a text, not by its bytes.
class HelpFormatter : public CLI::Formatter {
  public:
    std::string make_option(const CLI::Option* option, bool isPositional) const override {
        const std::string name =
            "  " + make_option_name(option, isPositional) + make_option_opts(option);
        return padRight(name, get_column_width() - 1) + " " + make_option_desc(option) + "\n";
    }
};

/// The labels of the help in German.
void speakGerman(CLI::App& app) {
    const auto formatter = std::make_shared<HelpFormatter>();
    formatter->column_width(34);
    for (const auto& [english, german] : {std::pair{"Usage", "Aufruf"},
                                          {"OPTIONS", "OPTIONEN"},
                                          {"SUBCOMMAND", "BEFEHL"},
                                          {"SUBCOMMANDS", "BEFEHLE"},
                                          {"Positionals", "Angaben"},
                                          {"REQUIRED", "(nötig)"},
                                          {"TEXT", "TEXT"},
                                          {"INT", "ZAHL"},
                                          {"UINT", "ZAHL"}}) {
        formatter->label(english, german);
    }
    app.formatter(formatter);
    app.option_defaults()->group("Optionen");
    app.set_help_flag("-h,--help", "Diese Hilfe")->group("Optionen");
}

/// Where help for a call is found: with its command, if it names one.
std::string helpHint(const CLI::App& app) {
    const auto commands = app.get_subcommands();
    const std::string command = commands.empty() ? "" : " " + commands.front()->get_name();
    return "«fiscarel-cli" + command + " --help» zeigt ";
}

/// What is missing in a call. The library misses the command first, even when there is a word that
/// is none.
std::string missing(const CLI::App& app, const std::string& details) {
    const std::string name = details.substr(0, details.find(" is required"));
    if (name != "A subcommand") {
        return "Im Aufruf fehlt die Angabe " + name + "; " + helpHint(app) + "die Angaben.";
    }
    const std::vector<std::string> unknown = app.remaining();
    if (unknown.empty()) {
        return "Im Aufruf fehlt der Befehl; " + helpHint(app) + "alle.";
    }
    return unknown.front().starts_with('-')
               ? "Der Aufruf enthält Unbekanntes: " + unknown.front() + "."
               : "Den Befehl «" + unknown.front() + "» gibt es nicht; " + helpHint(app) + "alle.";
}

/// What went wrong with a call, as one German sentence. The library speaks English; only the words
/// of the call that it quotes are kept.
std::string usageSentence(const CLI::App& app, const CLI::ParseError& error) {
    const std::string details = error.what();
    const std::string name = details.substr(0, details.find(':'));
    const auto behind = [&](std::string_view mark) {
        const std::size_t at = details.find(mark);
        return at == std::string::npos ? details : details.substr(at + mark.size());
    };
    if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
        return missing(app, details);
    }
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
        return "Der Aufruf enthält Unbekanntes: " + behind(": ") + ".";
    }
    if (dynamic_cast<const CLI::ValidationError*>(&error) != nullptr) {
        return "Im Aufruf ist der Wert von " + name + " nicht erlaubt; " + behind(": ") + ".";
    }
    if (dynamic_cast<const CLI::ConversionError*>(&error) != nullptr) {
        return "Im Aufruf ist ein Wert keine brauchbare Zahl: " + behind(": ") + ".";
    }
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
        return details.find("At Most") == std::string::npos
                   ? "Im Aufruf fehlt ein Wert zu " + name + "."
                   : "Im Aufruf steht " + name + " mehr als einmal.";
    }
    return "Der Aufruf ist nicht verständlich: " + details + ".";
}

/// Runs what makes a new case, for years that have rules.
int ofSupportedYear(int year, const std::function<int()>& command) {
    return isSupportedYear(year)
               ? command()
               : fail("Das Steuerjahr " + std::to_string(year)
                          + " wird nicht unterstützt (möglich sind " + supportedYears() + ").",
                      exitCode::usage);
}

CLI::App* addCommand(CLI::App& app, const char* name, const char* description) {
    CLI::App* command = app.add_subcommand(name, description)->group("Befehle");
    command->get_help_ptr()->group("Optionen");
    return command;
}

/// A number in decimal digits alone; the library would take one with a 0 in front as octal.
std::optional<int> numberIn(std::string_view text) {
    int number = 0;
    const char* const last = text.data() + text.size();
    const auto [end, status] = std::from_chars(text.data(), last, number);
    const bool good = status == std::errc{} && end == last && !text.starts_with('-');
    return good ? std::optional(number) : std::nullopt;
}

CLI::Option* addNumber(CLI::App& command, const char* name, const char* description,
                       const std::function<void(int)>& use) {
    return command
        .add_option(name, CLI::callback_t([use](const CLI::results_t& values) {
                        const auto number = numberIn(values.front());
                        if (number) {
                            use(*number);
                        }
                        return number.has_value();
                    }),
                    description)
        ->type_name("ZAHL");
}

/// Refuses values for which `isGood` does not hold, with the end of a sentence.
CLI::Validator allowed(bool (*isGood)(const std::string&), const char* sentence) {
    return {[=](const std::string& value) { return isGood(value) ? "" : sentence; }, ""};
}

void addRegion(CLI::App& command, taxcore::TaxRegion& region) {
    command
        .add_option_function<std::string>(
            "--region",
            [&region](const std::string& raw) {
                region = taxcore::enumFromRaw<taxcore::TaxRegion>(raw).value_or(region);
            },
            "Steuerregion: sg oder li")
        ->check(allowed(
            [](const std::string& raw) {
                return taxcore::enumFromRaw<taxcore::TaxRegion>(raw).has_value();
            },
            "möglich sind sg und li"))
        ->default_str(std::string(taxcore::rawValue(region)));
}

void addFile(CLI::App& command, std::string& file) {
    command.add_option("DATEI", file, "Datei mit den Angaben; - liest die Standardeingabe")
        ->type_name("");
}

/// The command `pruefe`; `checking` and `action` outlive the parsing.
void addCheckCommand(CLI::App& app, CheckOptions& checking, std::function<int()>& action) {
    CLI::App* checkCommand = addCommand(app, "pruefe", "Prüft einen Fall und nennt Spartipps");
    addFile(*checkCommand, checking.file);
    addNumber(*checkCommand, "--jahr", "Steuerjahr aus einer Datendatei",
              [&checking](int year) { checking.year = year; });
    checkCommand->add_flag("--json", checking.json, "Ausgabe als JSON");
    checkCommand->add_flag("--kurve", checking.curve, "Dazu die Steuer über dem Einkommen");
    checkCommand
        ->add_option_function<std::string>(
            "--einkauf",
            [&](const std::string& text) {
                checking.buyIn = taxcore::Decimal::parse(text).value();
            },
            "Dazu der beste Plan für einen Einkauf dieser Summe in die Pensionskasse")
        ->check(allowed(
            [](const std::string& text) {
                const auto sum = taxcore::Decimal::parse(text);
                return sum && *sum >= 0;
            },
            "möglich ist ein Betrag wie 60000"))
        ->type_name("BETRAG");
    addNumber(*checkCommand, "--person", "Wessen Pensionskasse (1 oder 2)",
              [&checking](int person) { checking.person = person; })
        ->check(allowed([](const std::string& text) { return text == "1" || text == "2"; },
                        "möglich ist 1 oder 2"));
    checkCommand->callback(
        [&action, &checking] { action = [&checking] { return check(checking); }; });
}

/// The command `liste`; `listing` and `action` outlive the parsing.
void addListCommand(CLI::App& app, ListOptions& listing, std::function<int()>& action) {
    CLI::App* listCommand =
        addCommand(app, "liste", "Gibt die Übertragungsliste aus, Feld für Feld der Formulare");
    addFile(*listCommand, listing.file);
    addNumber(*listCommand, "--jahr", "Steuerjahr aus einer Datendatei",
              [&listing](int year) { listing.year = year; });
    listCommand->add_flag("--csv", listing.csv, "Ausgabe als Tabelle (CSV mit Strichpunkten)");
    listCommand->callback([&action, &listing] { action = [&listing] { return list(listing); }; });
}

/// The command `bericht`; `reporting` and `action` outlive the parsing.
void addReportCommand(CLI::App& app, ReportOptions& reporting, std::function<int()>& action) {
    CLI::App* reportCommand =
        addCommand(app, "bericht", "Schreibt den Bericht eines Falls als PDF");
    addFile(*reportCommand, reporting.file);
    addNumber(*reportCommand, "--jahr", "Steuerjahr aus einer Datendatei",
              [&reporting](int year) { reporting.year = year; });
    reportCommand->add_option("-o", reporting.out, "PDF-Datei, die geschrieben wird")
        ->type_name("PDF")
        ->required();
    reportCommand->callback(
        [&action, &reporting] { action = [&reporting] { return report(reporting); }; });
}

/// The command `lies`; `reading` and `action` outlive the parsing.
void addReadCommand(CLI::App& app, ReadOptions& reading, std::function<int()>& action) {
    CLI::App* readCommand =
        addCommand(app, "lies", "Liest Belege (PDF oder Bild): Art, Beträge, Strichcodes und Text");
    readCommand->add_option("DATEI", reading.files, "Ein Beleg oder mehrere")
        ->type_name("")
        ->required();
    readCommand->add_flag("--json", reading.json,
                          "Ausgabe als JSON; bei mehreren Belegen eine Zeile für jeden");
    readCommand->footer("Beispiele:\n"
                        "  fiscarel-cli lies lohnausweis.pdf\n"
                        "  fiscarel-cli lies --json belege/*.pdf > gelesen.jsonl\n\n"
                        "Rückgabewert: 0, wenn alle Belege gelesen sind; 1, wenn sich einer nicht "
                        "lesen liess;\n2, wenn der Aufruf nicht verständlich ist.");
    readCommand->callback(
        [&action, &reading] { action = [&reading] { return readDocuments(reading); }; });
}

int run(int argc, char** argv) {
    constexpr int demoYear = taxcore::RuleBook::supportedYears.front();
    CLI::App app("Steuererklärung auf der Kommandozeile", "fiscarel-cli");
    speakGerman(app);
    app.require_subcommand(1);
    std::function<int()> action;

    NewOptions fresh{.year = demoYear};
    CLI::App* newCommand = addCommand(app, "neu", "Gibt einen neuen Fall als JSON aus");
    addNumber(*newCommand, "--jahr", "Steuerjahr", [&](int year) {
        fresh.year = year;
    })->required();
    addRegion(*newCommand, fresh.region);
    newCommand->callback([&] {
        action = [&] { return ofSupportedYear(fresh.year, [&] { return newCase(fresh); }); };
    });

    ComputeOptions computing;
    CLI::App* computeCommand =
        addCommand(app, "rechne", "Berechnet Steuererklärung und Steuerrechnung eines Falls");
    addFile(*computeCommand, computing.file);
    addNumber(*computeCommand, "--jahr", "Steuerjahr aus einer Datendatei",
              [&](int year) { computing.year = year; });
    computeCommand->add_flag("--json", computing.json, "Ausgabe als JSON");
    computeCommand->add_option("--warum", computing.why,
                               "Herleitung einer Zeile, z.B. saeule3a1 oder 16.1");
    computeCommand->callback([&] { action = [&] { return compute(computing); }; });

    CheckOptions checking;
    addCheckCommand(app, checking, action);

    ListOptions listing;
    addListCommand(app, listing, action);

    ReportOptions reporting;
    addReportCommand(app, reporting, action);

    ReadOptions reading;
    addReadCommand(app, reading, action);

    BatchOptions batching;
    CLI::App* batchCommand =
        addCommand(app, "stapel", "Berechnet einen Fall pro Zeile auf allen Kernen");
    addFile(*batchCommand, batching.file);
    addNumber(*batchCommand, "--kerne", "Anzahl Kerne (0: alle)",
              [&](int threads) { batching.threads = static_cast<unsigned>(threads); })
        ->check(allowed(
            [](const std::string& text) {
                constexpr int most = 256;
                return numberIn(text).value_or(most + 1) <= most;
            },
            "möglich ist 0 bis 256"));
    batchCommand->callback([&] { action = [&] { return batch(batching); }; });

    DemoOptions showing{.year = demoYear};
    CLI::App* demoCommand = addCommand(app, "demo", "Gibt den Demohaushalt als JSON aus");
    addNumber(*demoCommand, "--jahr", "Steuerjahr", [&](int year) {
        showing.year = year;
    })->default_str(std::to_string(showing.year));
    addRegion(*demoCommand, showing.region);
    demoCommand->callback([&] {
        action = [&] { return ofSupportedYear(showing.year, [&] { return demo(showing); }); };
    });

    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return print(app.help());
    } catch (const CLI::ParseError& error) {
        return fail(usageSentence(app, error), exitCode::usage);
    }
    return action();
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        return fail("Das Programm ist gescheitert: " + std::string(error.what()) + ".");
    }
}
