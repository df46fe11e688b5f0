#include "TaxCore/rulebook/RuleBook.h"
#include "cli/Commands.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <iostream>
#include <memory>

namespace {

using namespace fiscarel::cli;

constexpr int usageError = 2;

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
    app.set_help_flag("-h,--help", "Diese Hilfe");
}

/// What went wrong with a call, as one German sentence.
std::string usageSentence(const CLI::ParseError& error) {
    const std::string details = error.what();
    if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
        return "Im Aufruf fehlt etwas: " + details;
    }
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
        return "Der Aufruf enthält Unbekanntes: " + details;
    }
    if (dynamic_cast<const CLI::ValidationError*>(&error) != nullptr) {
        return "Ein Wert im Aufruf ist nicht erlaubt: " + details;
    }
    return "Der Aufruf ist nicht verständlich: " + details;
}

void addRegion(CLI::App& command, std::string& region) {
    command.add_option("--region", region, "Steuerregion: sg oder li")
        ->check(CLI::IsMember({"sg", "li"}))
        ->capture_default_str();
}

void addFile(CLI::App& command, std::string& file) {
    command.add_option("DATEI", file, "Datei mit den Angaben; - liest die Standardeingabe");
}

} // namespace

int main(int argc, char** argv) {
    constexpr int demoYear = taxcore::RuleBook::supportedYears.front();
    CLI::App app("Steuererklärung auf der Kommandozeile", "fiscarel-cli");
    speakGerman(app);
    app.require_subcommand(1);
    std::function<int()> action;

    NewOptions fresh{.year = demoYear};
    CLI::App* newCommand = app.add_subcommand("neu", "Gibt einen neuen Fall als JSON aus");
    newCommand->add_option("--jahr", fresh.year, "Steuerjahr")->required();
    addRegion(*newCommand, fresh.region);
    newCommand->callback([&] { action = [&] { return newCase(fresh); }; });

    ComputeOptions computing;
    CLI::App* computeCommand =
        app.add_subcommand("rechne", "Berechnet Steuererklärung und Steuerrechnung eines Falls");
    addFile(*computeCommand, computing.file);
    computeCommand->add_option("--jahr", computing.year, "Steuerjahr aus einer Datendatei");
    computeCommand->add_flag("--json", computing.json, "Ausgabe als JSON");
    computeCommand->add_option("--warum", computing.why, "Herleitung einer Zeile, z.B. saeule3a1");
    computeCommand->callback([&] { action = [&] { return compute(computing); }; });

    BatchOptions batching;
    CLI::App* batchCommand =
        app.add_subcommand("stapel", "Berechnet einen Fall pro Zeile auf allen Kernen");
    addFile(*batchCommand, batching.file);
    batchCommand->add_option("--kerne", batching.threads, "Anzahl Kerne (0: alle)")
        ->check(CLI::Range(0, 256));
    batchCommand->callback([&] { action = [&] { return batch(batching); }; });

    DemoOptions showing{.year = demoYear};
    CLI::App* demoCommand = app.add_subcommand("demo", "Gibt den Demohaushalt als JSON aus");
    demoCommand->add_option("--jahr", showing.year, "Steuerjahr")->capture_default_str();
    addRegion(*demoCommand, showing.region);
    demoCommand->callback([&] { action = [&] { return demo(showing); }; });

    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        std::cout << app.help();
        return 0;
    } catch (const CLI::ParseError& error) {
        std::cerr << usageSentence(error) << "\nHilfe: fiscarel-cli --help\n";
        return usageError;
    }
    return action();
}
