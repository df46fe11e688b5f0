#pragma once

#include "Fiscarel_SG/store/PersistedState.h"
#include "TaxCore/demo/DemoData.h"
#include "TaxCore/regions/CaseCalculator.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace taxcore {

namespace fs = std::filesystem;

struct Outcome {
    int exitCode = -1;
    std::string out;
    std::string err;
};

/// The real program in a folder of its own: arguments and standard input in, output, messages and
/// exit code out.
class CommandLine : public ::testing::Test {
  protected:
    CommandLine() {
        std::string name = (fs::temp_directory_path() / "fiscarel-cli-XXXXXX").string();
        folder_ = mkdtemp(name.data());
    }
    ~CommandLine() override { fs::remove_all(folder_); }

    fs::path write(const std::string& name, const std::string& text) const {
        std::ofstream(folder_ / name, std::ios::binary) << text;
        return folder_ / name;
    }

    /// Redirections among the arguments replace those to the files. `before` is for the shell.
    Outcome run(const std::string& arguments, const std::string& input = {},
                const std::string& before = {}) const {
        write("in", input);
        const auto quoted = [&](const char* name) {
            return "'" + (folder_ / name).string() + "' ";
        };
        const std::string command = before + " <" + quoted("in") + ">" + quoted("out") + "2>"
                                    + quoted("err") + "'" + FISCAREL_CLI + "' " + arguments;
        Outcome outcome;
        const int status = std::system(command.c_str());
        outcome.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        outcome.out = read("out");
        outcome.err = read("err");
        return outcome;
    }

    std::string read(const std::string& name) const {
        std::ifstream in(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    fs::path folder_;
};

inline std::string resultOf(const TaxCase& taxCase, JsonStyle style) {
    return toJson(CaseCalculator::forCase(taxCase)->calculate(taxCase), style);
}

/// The text of a state file with these years, `"2025": {…}`, and documents.
inline std::string stateOf(const std::string& cases, const std::string& documents = "") {
    return "{\"version\": 1, \"documents\": [" + documents
           + "], \"transferChecked\": {}, \"cases\": {" + cases + "}}";
}

inline std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

} // namespace taxcore
