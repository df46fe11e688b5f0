// How fast ten years of data with two thousand documents are read, saved and merged. Compare ratios
// within one run: reading against the JSON library's own pass over the same bytes, saving against
// writing and syncing the same bytes, merging against reading what is merged.

#include "Fiscarel_SG/Persistence.h"
#include "Fiscarel_SG/cloud/StateMerge.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "bench/TenYears.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <malloc.h>
#include <simdjson.h>
#include <unistd.h>

#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;
using namespace fiscarel;
using bench::tenYears;

/// A folder below the working directory: temporary folders are often no real disk.
const fs::path& folder() {
    static const fs::path made = [] {
        fs::path path = fs::current_path() / "state-bench.tmp";
        fs::create_directories(path);
        return path;
    }();
    return made;
}

const std::string& encoded() {
    static const std::string text = encodeState(tenYears());
    return text;
}

double megabytes(std::size_t bytes) { return static_cast<double>(bytes) / 1e6; }

/// What the JSON library needs to walk every value of the text.
void loadingLibraryAlone(benchmark::State& state) {
    const simdjson::padded_string padded(encoded());
    simdjson::ondemand::parser parser;
    struct Walk {
        static std::size_t all(simdjson::ondemand::value value) {
            std::size_t bytes = 0;
            switch (value.type()) {
            case simdjson::ondemand::json_type::object:
                for (auto field : value.get_object()) {
                    bytes += field.unescaped_key().value().size() + all(field.value());
                }
                return bytes;
            case simdjson::ondemand::json_type::array:
                for (auto item : value.get_array()) {
                    bytes += all(item.value());
                }
                return bytes;
            case simdjson::ondemand::json_type::string:
                return value.get_string().value().size();
            default:
                return value.raw_json_token().size();
            }
        }
    };
    for (auto _ : state) {
        auto document = parser.iterate(padded);
        benchmark::DoNotOptimize(Walk::all(document.get_value()));
    }
    state.counters["MB"] = megabytes(encoded().size());
}
BENCHMARK(loadingLibraryAlone)->Unit(benchmark::kMillisecond);

void loadingDecode(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(decodeState(encoded()));
    }
}
BENCHMARK(loadingDecode)->Unit(benchmark::kMillisecond);

/// From the disk's cache to the state.
void loadingFile(benchmark::State& state) {
    PosixFiles files;
    const SystemClock clock;
    Persistence persistence(files, clock, folder());
    (void)persistence.save(encoded());
    malloc_trim(0);
    const std::size_t before = mallinfo2().uordblks;
    for (auto _ : state) {
        const LoadedState loaded = persistence.load();
        benchmark::DoNotOptimize(&loaded);
        state.counters["MBheld"] = megabytes(mallinfo2().uordblks - before);
    }
}
BENCHMARK(loadingFile)->Unit(benchmark::kMillisecond);

void savingEncode(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(encodeState(tenYears()));
    }
}
BENCHMARK(savingEncode)->Unit(benchmark::kMillisecond);

/// To a new file, as a file that is to appear whole must be.
void savingBytesAlone(benchmark::State& state) {
    const fs::path file = folder() / "bytes";
    for (auto _ : state) {
        ::unlink(file.c_str());
        const int out = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
        if (::write(out, encoded().data(), encoded().size()) < 0 || ::fsync(out) != 0) {
            state.SkipWithError("the disk does not take it");
        }
        ::close(out);
    }
}
BENCHMARK(savingBytesAlone)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Until the user is told that all is saved: encoding, writing, syncing.
void savingStateFile(benchmark::State& state) {
    PosixFiles files;
    for (auto _ : state) {
        (void)files.write(folder() / "daten.json", encodeState(tenYears()));
    }
}
BENCHMARK(savingStateFile)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The same with the daily backup, which is written behind it.
void savingWithBackup(benchmark::State& state) {
    PosixFiles files;
    const SystemClock clock;
    Persistence persistence(files, clock, folder());
    for (auto _ : state) {
        const std::string text = encodeState(tenYears());
        (void)persistence.save(text);
        persistence.backupIfNeeded(text);
    }
}
BENCHMARK(savingWithBackup)->Unit(benchmark::kMillisecond)->UseRealTime();

/// `step` documents apart something changed, and in every year.
PersistedState edited(std::size_t first, std::size_t step) {
    PersistedState state = tenYears();
    for (auto& [year, taxCase] : state.cases) {
        taxCase.debts.emplace_back().creditor = "Bank";
        taxCase.cash = static_cast<int>(first);
    }
    for (std::size_t i = first; i < state.documents.size(); i += step) {
        state.documents[i].note = "nachgefragt";
    }
    state.documents.erase(state.documents.begin() + static_cast<std::ptrdiff_t>(100 * first));
    return state;
}

void mergingStates(benchmark::State& state) {
    const PersistedState ours = edited(1, 7);
    const PersistedState theirs = edited(2, 5);
    for (auto _ : state) {
        const MergedState merged = mergeStates(&tenYears(), ours, theirs);
        benchmark::DoNotOptimize(&merged);
        state.counters["conflicts"] = static_cast<double>(merged.conflicts.size());
    }
}
BENCHMARK(mergingStates)->Unit(benchmark::kMillisecond);

void mergingLoss(benchmark::State& state) {
    const PersistedState after = edited(1, 7);
    for (auto _ : state) {
        benchmark::DoNotOptimize(lossBetween(tenYears(), after));
    }
}
BENCHMARK(mergingLoss)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    std::error_code ignored;
    fs::remove_all(folder(), ignored);
    return 0;
}
