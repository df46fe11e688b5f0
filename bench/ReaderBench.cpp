// How long reading documents takes, process included. The counter "ratio" of the scans compares
// with the recogniser alone on the same picture in the same run; for two pages it is their rate in
// pages of one.

#include "Fiscarel_SG/DocumentScanner.h"
#include "Fiscarel_SG/documents/SecondReader.h"
#include "tests/documents/reader/Drawing.h"
#include "tests/documents/reader/Files.h"

#include <benchmark/benchmark.h>
#include <leptonica/allheaders.h>
#include <tesseract/baseapi.h>
#include <unistd.h>
#include <zint.h>

#include <QGuiApplication>
#include <QRegularExpression>
#include <chrono>
#include <cstdlib>

namespace {

using namespace fiscarel;
using namespace Qt::StringLiterals;

const TestFolder& folder() {
    static const TestFolder own;
    return own;
}

/// A page full of text, as letters of insurers are.
QStringList denseLines() {
    QStringList lines{u"Jahresübersicht der Krankenversicherung"_s};
    for (int i = 1; i < 38; ++i) {
        lines << u"Behandlung Nummer %1 in der Praxis am Rhein, Kostenbeteiligung\t%2.45"_s.arg(i)
                     .arg(i * 37);
    }
    return lines;
}

const QImage& densePage() {
    static const QImage page = drawing::page(denseLines());
    return page;
}

double secondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void read(const std::filesystem::path& file, int pages) {
    const ScanResult result = DocumentScanner::scan(file);
    if (result.problem || result.pageCount != pages) {
        std::fprintf(stderr, "not read: %s\n", result.problem.value_or("?").c_str());
        std::abort();
    }
}

/// The recogniser alone: its languages, the picture from its file, the text.
void recognise(const std::filesystem::path& file) {
    tesseract::TessBaseAPI api;
    if (api.Init(nullptr, "deu+fra+ita+eng", tesseract::OEM_LSTM_ONLY) != 0) {
        std::abort();
    }
    api.SetPageSegMode(tesseract::PSM_AUTO);
    Pix* picture = pixRead(file.c_str());
    api.SetImage(picture);
    const std::unique_ptr<char[]> text(api.GetUTF8Text());
    benchmark::DoNotOptimize(text.get());
    pixDestroy(&picture);
}

void textPage(benchmark::State& state) {
    const auto file = folder().write("text.pdf", drawing::textPdf({denseLines()}));
    for ([[maybe_unused]] const auto run : state) {
        read(file, 1);
    }
}
BENCHMARK(textPage)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

/// What is done with a page's words alone, as a text layer or the recogniser gives them.
void proposals(benchmark::State& state) {
    DocumentReading reading;
    PageReading& page = reading.pages.emplace_back(
        PageReading{.number = 1, .width = 595, .height = 842, .isRecognised = state.range(0) == 1});
    double baseline = 60;
    for (const QString& line : denseLines()) {
        double left = 50;
        for (const QString& word : line.split(QRegularExpression(u"[ \\t]"_s))) {
            const double width = 5.0 * static_cast<double>(word.size());
            page.words.push_back(
                {word.toStdString(), {left, baseline - 9, left + width, baseline}});
            left += width + 4;
        }
        baseline += 20;
    }
    for ([[maybe_unused]] const auto run : state) {
        ScanResult result;
        propose(reading, result);
        benchmark::DoNotOptimize(result.proposals.size());
    }
}
BENCHMARK(proposals)->ArgName("recognised")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// The same of a page with nothing but rows of labels and amounts, as many as are asked for: twice
/// as many may take little more than twice as long.
void proposalsOfRows(benchmark::State& state) {
    const int rows = static_cast<int>(state.range(0));
    DocumentReading reading;
    PageReading& page = reading.pages.emplace_back(
        PageReading{.number = 1, .width = 595, .height = 6.0 * (10 + rows)});
    const auto put = [&](double left, double row, const std::string& word) {
        const double width = 1.5 * static_cast<double>(word.size());
        page.words.push_back({word, {left, 6 * row, left + width, 6 * row + 3}});
    };
    put(40, 1, "Vorsorgebescheinigung");
    put(80, 1, "2024");
    for (int row = 0; row < rows; ++row) {
        put(40, row + 3, "Beiträge");
        for (int column = 0; column < 5; ++column) {
            put(100 + 60 * column, row + 3, std::to_string(100 + (7 * row + column) % 890) + ".50");
        }
    }
    for ([[maybe_unused]] const auto run : state) {
        ScanResult result;
        propose(reading, result);
        benchmark::DoNotOptimize(result.proposals.size());
    }
}
BENCHMARK(proposalsOfRows)->ArgName("rows")->Arg(200)->Arg(400)->Unit(benchmark::kMillisecond);

void scannedPage(benchmark::State& state) {
    const auto file = folder().write("scan.png", drawing::png(densePage()));
    double alone = 0;
    double whole = 0;
    for ([[maybe_unused]] const auto run : state) {
        state.PauseTiming();
        alone += secondsOf([&] { recognise(file); });
        state.ResumeTiming();
        whole += secondsOf([&] { read(file, 1); });
    }
    state.counters["ratio"] = whole / alone;
}
BENCHMARK(scannedPage)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

void twoScannedPages(benchmark::State& state) {
    const auto one = folder().write("one.pdf", drawing::imagePdf({densePage()}));
    const auto two = folder().write("two.pdf", drawing::imagePdf({densePage(), densePage()}));
    double ofOne = 0;
    double ofTwo = 0;
    for ([[maybe_unused]] const auto run : state) {
        state.PauseTiming();
        ofOne += secondsOf([&] { read(one, 1); });
        state.ResumeTiming();
        ofTwo += secondsOf([&] { read(two, 2); });
    }
    state.counters["ratio"] = 2 * ofOne / ofTwo;
}
BENCHMARK(twoScannedPages)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

/// Eight pages, each with its page's barcode, the data in three symbols on the last.
void taxStatement(benchmark::State& state) {
    constexpr int pages = 8;
    std::vector<QStringList> texts(pages, denseLines());
    std::vector<QImage> codes;
    for (int page = 1; page <= pages; ++page) {
        QImage strip(1600, 1100, QImage::Format_RGB32);
        strip.fill(Qt::white);
        drawing::put(
            strip, drawing::symbol(BARCODE_CODE128, "196221234500" + std::to_string(page) + "001"),
            5, 5);
        for (int part = 0; page == pages && part < 3; ++part) {
            drawing::put(strip,
                         drawing::symbol(BARCODE_PDF417,
                                         std::string(300, static_cast<char>(part + 128)),
                                         drawing::Part{part, 3, "4711"}),
                         5, 25 + part * 25);
        }
        codes.push_back(strip);
    }
    const auto file = folder().write("statement.pdf", drawing::textPdf(texts, codes));
    for ([[maybe_unused]] const auto run : state) {
        read(file, pages);
    }
}
BENCHMARK(taxStatement)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

} // namespace

int main(int argc, char** argv) {
    // As in the reading process; the library looks at it when it is loaded.
    if (std::getenv("OMP_THREAD_LIMIT") == nullptr) {
        setenv("OMP_THREAD_LIMIT", "1", 1);
        execv("/proc/self/exe", argv);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
