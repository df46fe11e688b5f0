#pragma once

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::testing {

/// A folder of its own that goes with the test.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        // In memory where there is such a folder: syncing takes no time there.
        const bool inMemory = std::getenv("TMPDIR") == nullptr && access("/dev/shm", W_OK) == 0;
        const std::filesystem::path above =
            inMemory ? std::filesystem::path("/dev/shm") : std::filesystem::temp_directory_path();
        std::string name = (above / "fiscarel-test-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        path_ = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const noexcept { return path_; }
    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }
    /// The same for a folder within, which is made.
    std::filesystem::path folder(std::string_view name) const {
        std::filesystem::create_directories(path_ / name);
        return path_ / name;
    }

  private:
    std::filesystem::path path_;
};

/// Writes a file, and makes the folders above it.
inline void writeFile(const std::filesystem::path& file, std::string_view bytes) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
}

/// The content of a file; empty where there is none or it does not read.
inline std::string readFile(const std::filesystem::path& file) {
    std::error_code failed;
    const auto size = std::filesystem::file_size(file, failed);
    std::string bytes(failed ? 0 : static_cast<std::size_t>(size), '\0');
    std::ifstream in(file, std::ios::binary);
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return in ? bytes : std::string();
}

/// Names within a folder, hidden ones too, ascending; none when it does not read.
inline std::vector<std::string> namesIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
        names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

} // namespace fiscarel::testing
