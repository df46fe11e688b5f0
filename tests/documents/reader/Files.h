#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

/// A folder of a test's own, gone with it.
class TestFolder {
  public:
    TestFolder() {
        std::string name =
            (std::filesystem::temp_directory_path() / "fiscarel-reader-XXXXXX").string();
        path_ = mkdtemp(name.data());
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }

    std::filesystem::path write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
        return path_ / name;
    }

  private:
    std::filesystem::path path_;
};
