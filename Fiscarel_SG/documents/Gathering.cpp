#include "Fiscarel_SG/documents/Gathering.h"

#include "Fiscarel_SG/documents/ContentHash.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <map>
#include <string>
#include <utility>

namespace fiscarel {

namespace {

namespace fs = std::filesystem;

constexpr int deepest = 10;
constexpr std::size_t mostSeen = 50'000; ///< entries of folders looked at

std::string endingOf(const fs::path& file) {
    std::string ending = file.extension().string();
    std::ranges::transform(ending, ending.begin(), [](unsigned char c) {
        return static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    });
    return ending.empty() ? ending : ending.substr(1);
}

/// Papers that come by mail at times have no ending.
bool beginsLikePdf(const fs::path& file) {
    std::array<char, 5> begin{};
    std::ifstream(file, std::ios::binary).read(begin.data(), begin.size());
    return std::string_view(begin.data(), begin.size()) == "%PDF-";
}

bool isReadable(const fs::path& file) {
    const auto& endings = documentEndings();
    return std::ranges::find(endings, endingOf(file)) != endings.end();
}

bool isHidden(const fs::path& path) { return path.filename().string().starts_with('.'); }

/// Walks through folders, by name.
class Walk {
  public:
    Walk(Gathered& gathered, const std::stop_token& stop) : gathered_(gathered), stop_(stop) {}

    void folder(const fs::path& folder, int depth = 0) {
        std::error_code error;
        std::vector<fs::directory_entry> entries;
        for (fs::directory_iterator at(folder, error);
             !error && at != fs::directory_iterator() && goesOn(); at.increment(error)) {
            ++seen_;
            entries.push_back(*at);
        }
        std::ranges::sort(entries, {}, [](const fs::directory_entry& entry) -> const fs::path& {
            return entry.path();
        });
        for (const fs::directory_entry& entry : entries) {
            if (isHidden(entry.path()) || entry.is_symlink(error) || !goesOn()) {
                continue;
            }
            if (entry.is_directory(error)) {
                if (depth < deepest) {
                    this->folder(entry.path(), depth + 1);
                }
            } else if (entry.is_regular_file(error) && isReadable(entry.path())) {
                file(entry.path());
            }
        }
    }
    void file(const fs::path& file) {
        if (gathered_.files.size() < mostGathered) {
            gathered_.files.push_back(file);
        } else {
            gathered_.isCut = true;
        }
    }

  private:
    bool goesOn() {
        gathered_.isCut = gathered_.isCut || seen_ >= mostSeen;
        return !gathered_.isCut && !stop_.stop_requested();
    }

    Gathered& gathered_;
    const std::stop_token& stop_;
    std::size_t seen_ = 0;
};

} // namespace

const std::vector<std::string>& documentEndings() {
    static const std::vector<std::string> endings{"pdf",  "png",  "jpg",  "jpeg", "tif",
                                                  "tiff", "webp", "heic", "heif"};
    return endings;
}

Gathered gatherDocuments(const std::vector<fs::path>& picked, const std::stop_token& stop) {
    Gathered gathered;
    Walk walk(gathered, stop);
    for (const fs::path& path : picked) {
        std::error_code error;
        if (fs::is_directory(path, error)) {
            const std::size_t before = gathered.files.size();
            walk.folder(path);
            if (gathered.files.size() == before && !gathered.isCut) {
                gathered.empty.push_back(path);
            }
        } else if (isReadable(path) || beginsLikePdf(path)) {
            walk.file(path);
        } else {
            gathered.unreadable.push_back(path);
        }
    }
    return gathered;
}

std::vector<Twin> takeTwins(std::vector<fs::path>& files, const std::vector<KnownFile>& known,
                            const std::stop_token& stop) {
    struct Candidate {
        fs::path file;
        std::optional<taxcore::Uuid> id;
        std::optional<std::string> hash;
        bool isHashed = false;
    };
    const auto hashOf = [&](Candidate& candidate) -> const std::optional<std::string>& {
        if (!std::exchange(candidate.isHashed, true)) {
            candidate.hash = contentHash(candidate.file, stop);
        }
        return candidate.hash;
    };
    // Only what has the same size can be the same: most files need not be read.
    std::map<std::uintmax_t, std::vector<Candidate>> bySize;
    std::error_code error;
    for (const KnownFile& document : known) {
        if (const auto size = fs::file_size(document.file, error); !error) {
            bySize[size].push_back({.file = document.file, .id = document.id});
        }
    }
    std::vector<Twin> twins;
    std::erase_if(files, [&](const fs::path& file) {
        const auto size = fs::file_size(file, error);
        if (error || stop.stop_requested()) {
            return false;
        }
        std::vector<Candidate>& others = bySize[size];
        Candidate own{.file = file};
        for (Candidate& other : others) {
            if (hashOf(own) && hashOf(own) == hashOf(other)) {
                twins.push_back({file, other.id, other.file});
                return true;
            }
        }
        others.push_back(std::move(own));
        return false;
    });
    return twins;
}

} // namespace fiscarel
