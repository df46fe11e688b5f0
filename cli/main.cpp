#include "TaxCore/rulebook/RuleBook.h"
#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/Output.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace fiscarel::cli;

/// The labels of the help in German.
void speakGerman(CLI::App& app) {
    const auto formatter = std::make_shared<CLI::Formatter>();
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

/// What is missing in a call. The library misses the command first, even when there is a word that
/// is none.
std::string missing(const CLI::App& app, const std::string& details) {
    const std::string name = details.substr(0, details.find(" is required"));
    if (name != "A subcommand") {
        return "Im Aufruf fehlt die Angabe " + name + ".";
    }
    const std::vector<std::string> unknown = app.remaining();
    if (unknown.empty()) {
        return "Im Aufruf fehlt der Befehl; «fiscarel-cli --help» zeigt alle.";
    }
    return unknown.front().starts_with('-')
               ? "Der Aufruf enthält Unbekanntes: " + unknown.front() + "."
               : "Den Befehl «" + unknown.front() + "» gibt es nicht.";
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
        return "Im Aufruf ist der Wert von " + name + " nicht erlaubt.";
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

void addRegion(CLI::App& command, taxcore::TaxRegion& region) {
    command
        .add_option_function<std::string>(
            "--region",
            [&region](const std::string& raw) {
                region = taxcore::enumFromRaw<taxcore::TaxRegion>(raw).value_or(region);
            },
            "Steuerregion: sg oder li")
        ->check(CLI::IsMember({"sg", "li"}))
        ->capture_default_str();
}

void addFile(CLI::App& command, std::string& file) {
    command.add_option("DATEI", file, "Datei mit den Angaben; - liest die Standardeingabe");
}

int run(int argc, char** argv) {
    constexpr int demoYear = taxcore::RuleBook::supportedYears.front();
    CLI::App app("Steuererklärung auf der Kommandozeile", "fiscarel-cli");
    speakGerman(app);
    app.require_subcommand(1);
    std::function<int()> action;

    NewOptions fresh{.year = demoYear};
    CLI::App* newCommand = addCommand(app, "neu", "Gibt einen neuen Fall als JSON aus");
    newCommand->add_option("--jahr", fresh.year, "Steuerjahr")->required();
    addRegion(*newCommand, fresh.region);
    newCommand->callback([&] {
        action = [&] { return ofSupportedYear(fresh.year, [&] { return newCase(fresh); }); };
    });

    ComputeOptions computing;
    CLI::App* computeCommand =
        addCommand(app, "rechne", "Berechnet Steuererklärung und Steuerrechnung eines Falls");
    addFile(*computeCommand, computing.file);
    computeCommand->add_option("--jahr", computing.year, "Steuerjahr aus einer Datendatei");
    computeCommand->add_flag("--json", computing.json, "Ausgabe als JSON");
    computeCommand->add_option("--warum", computing.why, "Herleitung einer Zeile, z.B. saeule3a1");
    computeCommand->callback([&] { action = [&] { return compute(computing); }; });

    BatchOptions batching;
    CLI::App* batchCommand =
        addCommand(app, "stapel", "Berechnet einen Fall pro Zeile auf allen Kernen");
    addFile(*batchCommand, batching.file);
    batchCommand->add_option("--kerne", batching.threads, "Anzahl Kerne (0: alle)")
        ->check(CLI::Range(0, 256).description(""))
        ->type_name("ZAHL");
    batchCommand->callback([&] { action = [&] { return batch(batching); }; });

    DemoOptions showing{.year = demoYear};
    CLI::App* demoCommand = addCommand(app, "demo", "Gibt den Demohaushalt als JSON aus");
    demoCommand->add_option("--jahr", showing.year, "Steuerjahr")->capture_default_str();
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
