// How long a report takes, from the case to the bytes of its PDF, for the largest case file and for
// a household with sixty securities and very long names. Runs without a screen.

#include "Fiscarel_SG/paper/ReportPdf.h"
#include "tests/report/ReportCases.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <algorithm>

namespace {

using namespace fiscarel;
using testing::ReportCase;

/// The case file that fills the most pages.
const ReportCase& largestCaseFile() {
    static const ReportCase largest = [] {
        std::vector<ReportCase> cases = testing::reportCases();
        std::erase_if(cases, [](const ReportCase& one) {
            return one.name == "overfull" || one.name == "documented";
        });
        return *std::ranges::max_element(cases, {}, [](const ReportCase& one) {
            return computedReport(one).document.pages.size();
        });
    }();
    return largest;
}

void measure(benchmark::State& state, const ReportCase& one) {
    std::size_t pages = 0;
    std::size_t bytes = 0;
    for ([[maybe_unused]] const auto run : state) {
        const auto report = computedReport(one);
        pages = report.document.pages.size();
        bytes = paper::reportPdf(report.document).value().size();
    }
    state.counters["pages"] = static_cast<double>(pages);
    state.counters["bytes"] = static_cast<double>(bytes);
    state.SetLabel(one.name);
}

void largestReport(benchmark::State& state) { measure(state, largestCaseFile()); }
BENCHMARK(largestReport)->Unit(benchmark::kMillisecond);

void overfullReport(benchmark::State& state) { measure(state, testing::overfullCase()); }
BENCHMARK(overfullReport)->Unit(benchmark::kMillisecond);

/// What the page of the window waits for.
void pagesOnly(benchmark::State& state) {
    for ([[maybe_unused]] const auto run : state) {
        benchmark::DoNotOptimize(computedReport(largestCaseFile()).document.pages.size());
    }
}
BENCHMARK(pagesOnly)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
