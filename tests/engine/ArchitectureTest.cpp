#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path sources = FISCAREL_SOURCE_DIR;

/// The folders of the engine, each with those it may include besides itself.
const std::map<std::string, std::set<std::string>>& layers() {
    static const std::map<std::string, std::set<std::string>> allowed{
        {"base", {}},
        {"model", {"base"}},
        {"rulebook", {"base", "model"}},
        {"result", {"base", "model", "rulebook"}},
        {"stgallen", {"base", "model", "rulebook", "result"}},
        {"liechtenstein", {"base", "model", "rulebook", "result"}},
        {"regions", {"base", "model", "rulebook", "result", "stgallen", "liechtenstein"}},
        {"review", {"base", "model", "rulebook", "result", "stgallen", "liechtenstein", "regions"}},
        {"demo", {"base", "model"}},
    };
    return allowed;
}

std::vector<fs::path> codeBelow(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp") {
            files.push_back(entry.path());
        }
    }
    return files;
}

std::vector<std::string> includesOf(const fs::path& file) {
    static const std::regex include(R"(^\s*#\s*include\s*[<"]([^>"]+)[>"])");
    std::vector<std::string> names;
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        if (std::smatch match; std::regex_search(line, match, include)) {
            names.push_back(match[1]);
        }
    }
    return names;
}

TEST(Architecture, theEngineIncludesOnlyDownwardsAndNoWindowLibrary) {
    const auto files = codeBelow(sources / "TaxCore");
    ASSERT_GT(files.size(), 30U);
    for (const fs::path& file : files) {
        const std::string layer = fs::relative(file, sources / "TaxCore").begin()->string();
        ASSERT_TRUE(layers().contains(layer)) << file << ": which layer is this?";
        for (const std::string& name : includesOf(file)) {
            EXPECT_FALSE(std::regex_match(name, std::regex("Q[A-Z].*|Qt.*")))
                << file << " " << name;
            EXPECT_FALSE(name.starts_with("cli/")) << file << " " << name;
            if (name.starts_with("TaxCore/")) {
                const std::string other = name.substr(8, name.find('/', 8) - 8);
                EXPECT_TRUE(other == layer || layers().at(layer).contains(other))
                    << file << " includes upwards: " << name;
            }
        }
    }
}

TEST(Architecture, theEngineKnowsNoBinaryFloatingPoint) {
    const std::regex floating(R"(\b(double|float)\b)");
    for (const fs::path& file : codeBelow(sources / "TaxCore")) {
        std::ifstream in(file);
        for (std::string line; std::getline(in, line);) {
            const std::string code = line.substr(0, line.find("//"));
            EXPECT_FALSE(std::regex_search(code, floating)) << file << ": " << line;
        }
    }
}

/// What may include what above the engine; "top" are the areas that stand in the folder itself. The
/// command line uses `store` and `outputs` without Qt, and below the window there are no widgets.
const std::map<std::string, std::set<std::string>>& applicationLayers() {
    static const std::map<std::string, std::set<std::string>> allowed{
        {"store", {}},
        {"documents", {"store"}},
        {"top", {"store", "documents"}},
        {"outputs", {"store"}},
        {"paper", {"store", "outputs"}},
        {"cloud", {"top", "store"}},
        {"look", {}},
        {"forms", {"top", "store", "look"}},
        {"pages", {"top", "store", "documents", "cloud", "look", "forms", "outputs", "paper"}},
        {"shell", {"top", "store", "cloud", "look", "forms", "pages"}},
    };
    return allowed;
}

TEST(Architecture, theApplicationIncludesOnlyDownwards) {
    const auto place = [](const std::string& name) {
        const std::size_t begin = name.find('/') + 1;
        const std::size_t end = name.find('/', begin);
        return end == std::string::npos ? std::string("top") : name.substr(begin, end - begin);
    };
    const std::regex widget("QWidget|QDialog|(?!QTextLayout)Q[A-Z][A-Za-z]*(Edit|Box|Button|Label|"
                            "View|Layout|Window)|QApplication");
    std::size_t seen = 0;
    for (const fs::path& file : codeBelow(sources / "Fiscarel_SG")) {
        const std::string own = place(fs::relative(file, sources).string());
        const std::string name = file.filename().string();
        if (name == "main.cpp") {
            continue;
        }
        ++seen;
        ASSERT_TRUE(applicationLayers().contains(own)) << file << ": which layer is this?";
        const bool isPlainCloud = own == "cloud"
                                  && (name.starts_with("State") || name == "ConflictChoice.cpp"
                                      || name == "CloudStatus.h");
        const bool withoutQt =
            own == "outputs" || (own == "store" && !name.starts_with("Qt")) || isPlainCloud;
        for (const std::string& include : includesOf(file)) {
            if (const std::string other = place(include); include.starts_with("Fiscarel_SG/")) {
                EXPECT_TRUE(other == own || applicationLayers().at(own).contains(other))
                    << file << " includes upwards: " << include;
            }
            EXPECT_FALSE((own == "store" || own == "top" || own == "paper")
                         && std::regex_match(include, widget))
                << file << " " << include;
            EXPECT_FALSE(withoutQt && std::regex_match(include, std::regex("Q[A-Z].*")))
                << file << " " << include;
        }
    }
    EXPECT_GT(seen, 150U);
}

/// The server knows files and locks of the application, and nothing of what is in a household.
TEST(Architecture, theServerKnowsNoHouseholdAndNoWindowLibrary) {
    const std::set<std::string> files{"Fiscarel_SG/store/Clock.h", "Fiscarel_SG/store/FileSystem.h",
                                      "Fiscarel_SG/store/FolderLock.h",
                                      "Fiscarel_SG/store/PosixFiles.h"};
    for (const fs::path& file : codeBelow(sources / "server")) {
        for (const std::string& name : includesOf(file)) {
            EXPECT_FALSE(std::regex_match(name, std::regex("Q[A-Z].*|Qt.*")))
                << file << " " << name;
            EXPECT_TRUE(!name.starts_with("Fiscarel_SG/") || files.contains(name))
                << file << " " << name;
            EXPECT_TRUE(!name.starts_with("TaxCore/") || name.starts_with("TaxCore/base/"))
                << file << " " << name;
        }
    }
}

TEST(Architecture, everyHeaderIsIncludedOnce) {
    for (const char* folder : {"TaxCore", "Fiscarel_SG", "cli", "server"}) {
        for (const fs::path& file : codeBelow(sources / folder)) {
            if (file.extension() == ".h") {
                std::ifstream in(file);
                std::string first;
                std::getline(in, first);
                EXPECT_EQ(first, "#pragma once") << file;
            }
        }
    }
}

} // namespace
