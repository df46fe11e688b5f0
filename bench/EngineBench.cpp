// How fast the engine is. Compare ratios within one run: the machines are noisy.

#include "TaxCore/demo/DemoData.h"
#include "TaxCore/liechtenstein/LiechtensteinCalculator.h"
#include "TaxCore/review/Review.h"
#include "TaxCore/stgallen/TaxCalculator.h"
#include "cli/Batch.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <thread>
#include <vector>

namespace {

// Per thread, so that counting does not make the threads of a batch wait for each other.
thread_local std::size_t allocations = 0;
thread_local std::size_t allocatedBytes = 0;

} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    allocatedBytes += size;
    if (void* memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

using namespace taxcore;

constexpr int year = 2025;
constexpr std::size_t batchSize = 100'000;

const TaxCalculator& calculator() {
    static const TaxCalculator instance = TaxCalculator::forYear(year).value();
    return instance;
}

const LiechtensteinCalculator& liechtenstein() {
    static const LiechtensteinCalculator instance = LiechtensteinCalculator::forYear(year).value();
    return instance;
}

/// A thousand households that differ in income, municipality and family.
const std::vector<TaxCase>& households() {
    static const std::vector<TaxCase> cases = [] {
        const auto& municipalities = calculator().rules().municipalities.municipalities;
        std::vector<TaxCase> made;
        for (int i = 0; i < 1000; ++i) {
            TaxCase household = DemoData::family(year);
            household.income1.salaries[0].grossSalary += i * 173;
            household.municipality =
                municipalities[static_cast<std::size_t>(i) % municipalities.size()].name;
            household.civilStatus = i % 3 == 0 ? CivilStatus::geschieden : CivilStatus::verheiratet;
            made.push_back(std::move(household));
        }
        return made;
    }();
    return cases;
}

/// Heap use of the timed loop, per run, and what it left behind.
class HeapUse {
  public:
    explicit HeapUse(benchmark::State& state) : state_(state) {}
    ~HeapUse() {
        const auto runs = static_cast<double>(state_.iterations());
        state_.counters["allocs"] = static_cast<double>(allocations - allocations_) / runs;
        state_.counters["bytes"] = static_cast<double>(allocatedBytes - bytes_) / runs;
        state_.counters["grown"] =
            static_cast<double>(mallinfo2().uordblks) - static_cast<double>(inUse_);
    }
    HeapUse(const HeapUse&) = delete;
    HeapUse& operator=(const HeapUse&) = delete;

  private:
    benchmark::State& state_;
    std::size_t allocations_ = allocations;
    std::size_t bytes_ = allocatedBytes;
    std::size_t inUse_ = mallinfo2().uordblks;
};

void household(benchmark::State& state) {
    const TaxCase demo = DemoData::family(year);
    const TaxCalculator& calculate = calculator();
    const HeapUse heap(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(calculate.calculate(demo));
    }
}
BENCHMARK(household);

void householdLiechtenstein(benchmark::State& state) {
    const TaxCase demo = DemoData::liechtensteinFamily(year);
    const LiechtensteinCalculator& calculate = liechtenstein();
    const HeapUse heap(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(calculate.calculate(demo));
    }
}
BENCHMARK(householdLiechtenstein);

void smallHousehold(benchmark::State& state) {
    TaxCase single{.year = year};
    single.civilStatus = CivilStatus::ledig;
    single.income1.salaries.emplace_back().grossSalary = 72'000;
    const TaxCalculator& calculate = calculator();
    const HeapUse heap(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(calculate.calculate(single));
    }
}
BENCHMARK(smallHousehold);

void explainedHousehold(benchmark::State& state) {
    const TaxCase demo = DemoData::family(year);
    const TaxCalculator& calculate = calculator();
    const HeapUse heap(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(calculate.explainAll(demo));
    }
}
BENCHMARK(explainedHousehold);

void explainedHouseholdLiechtenstein(benchmark::State& state) {
    const TaxCase demo = DemoData::liechtensteinFamily(year);
    const LiechtensteinCalculator& calculate = liechtenstein();
    const HeapUse heap(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(calculate.explainAll(demo));
    }
}
BENCHMARK(explainedHouseholdLiechtenstein);

void readHousehold(benchmark::State& state) {
    const std::string text = toJson(DemoData::family(year),
                                    state.range(0) == 0 ? JsonStyle::pretty : JsonStyle::compact);
    const HeapUse heap(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(fromJson<TaxCase>(text));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(readHousehold)->ArgName("compact")->Arg(0)->Arg(1);

void writeHousehold(benchmark::State& state) {
    const TaxCase demo = DemoData::family(year);
    for (auto _ : state) {
        benchmark::DoNotOptimize(toJson(demo));
    }
}
BENCHMARK(writeHousehold);

/// 100,000 households from case values on a number of threads.
void batchOfCases(benchmark::State& state) {
    const auto threads = static_cast<std::size_t>(state.range(0));
    const std::vector<TaxCase>& cases = households();
    for (auto _ : state) {
        std::vector<std::thread> workers;
        for (std::size_t t = 0; t < threads; ++t) {
            workers.emplace_back([&, t] {
                for (std::size_t i = t; i < batchSize; i += threads) {
                    benchmark::DoNotOptimize(calculator().calculate(cases[i % cases.size()]));
                }
            });
        }
        for (std::thread& worker : workers) {
            worker.join();
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(batchSize));
}
BENCHMARK(batchOfCases)
    ->ArgName("threads")
    ->Arg(1)
    ->Arg(2)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

/// The command `stapel`: lines of JSON in, lines of JSON out.
void batchOfLines(benchmark::State& state) {
    constexpr std::size_t lines = 20'000;
    std::string text;
    for (std::size_t i = 0; i < lines; ++i) {
        text += toJson(households()[i % households().size()], JsonStyle::compact) + "\n";
    }
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> out(std::fopen("/dev/null", "w"),
                                                              std::fclose);
    for (auto _ : state) {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> in(
            fmemopen(text.data(), text.size(), "r"), std::fclose);
        fiscarel::cli::computeBatch(in.get(), out.get(), static_cast<unsigned>(state.range(0)));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(lines));
}
BENCHMARK(batchOfLines)
    ->ArgName("threads")
    ->Arg(1)
    ->Arg(2)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

/// The tax over 200 incomes with its increase from one to the next.
void marginalCurve(benchmark::State& state) {
    TaxCase demo = DemoData::family(year);
    const Decimal start = demo.income1.salaries[0].grossSalary;
    for (auto _ : state) {
        Decimal last;
        for (int i = 0; i < 200; ++i) {
            demo.income1.salaries[0].grossSalary = start + i * 1000;
            const Decimal total = calculator().calculate(demo).bill.total();
            benchmark::DoNotOptimize((total - last) / 1000);
            last = total;
        }
    }
}
BENCHMARK(marginalCurve)->Unit(benchmark::kMicrosecond);

/// All advice at once: checks, tips, marginal split, a curve of 200 points, a plan of five years.
/// `region`: 0 St.Gallen, 1 Liechtenstein.
void review(benchmark::State& state) {
    const TaxCase demo =
        state.range(0) == 0 ? DemoData::family(year) : DemoData::liechtensteinFamily(year);
    const auto calculator = CaseCalculator::forCase(demo).value();
    const Date today = Date::of(year, 11, 1).value();
    for (auto _ : state) {
        const TaxResult result = calculator.calculate(demo);
        benchmark::DoNotOptimize(Review::of({calculator, demo, result, today}));
        benchmark::DoNotOptimize(Advisor::incomeCurve(calculator, demo, result, 200'000, 200));
        benchmark::DoNotOptimize(Advisor::planBuyIn(calculator, demo, {.sum = 100'000}));
    }
}
BENCHMARK(review)->ArgName("region")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
