// The caller's side: a reading process that breaks, lies or hangs, and one that is stopped.

#include "Fiscarel_SG/DocumentScanner.h"
#include "Fiscarel_SG/documents/ReaderAnswer.h"
#include "tests/documents/reader/Drawing.h"
#include "tests/documents/reader/Files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace fiscarel {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A script in place of the reading process.
std::filesystem::path script(const TestFolder& folder, const std::string& body) {
    const auto path = folder.write("reader.sh", "#!/bin/sh\n" + body + "\n");
    chmod(path.c_str(), 0700);
    return path;
}

TEST(ReaderProcess, nothingOfWhatTheProcessDoesHarmsTheCaller) {
    const struct {
        const char* name;
        const char* body;
        const char* sentence; ///< empty: an answer
    } rows[]{
        {"an answer", "printf 'progress 1 2\\nresult 2\\n{}'", ""},
        {"an answer before a crash", "printf 'result 2\\n{}'; kill -SEGV $$", ""},
        {"a sentence", "printf 'problem 4\\nAch.'", "Ach."},
        {"a crash", "kill -SEGV $$", "gescheitert"},
        {"killed in the middle", "printf 'progress 1 9\\nresult 100\\n{'; kill -KILL $$",
         "gescheitert"},
        {"silence", "exit 0", "gescheitert"},
        {"too much", "printf 'result 2\\n{}and more'", "gescheitert"},
        {"an endless answer", "echo result 9999999999; cat /dev/zero", "gescheitert"},
        {"an endless line", "cat /dev/zero", "gescheitert"},
        {"an endless report", "while true; do echo progress 1 2; done", "Zeit nicht lesen"},
        {"nonsense", "echo progress -1 many; sleep 60", "gescheitert"},
        {"a hang", "exec sleep 60", "Zeit nicht lesen"},
        {"a hang after the answer", "printf 'result 2\\n{}'; exec sleep 60", "Zeit nicht lesen"},
        {"a closed output", "exec >&-; sleep 60", "gescheitert"},
    };
    const TestFolder folder;
    const auto document = folder.write("document.pdf", "%PDF-1.4");
    for (const auto& [name, body, sentence] : rows) {
        const auto start = std::chrono::steady_clock::now();
        const auto answer = askReader({.program = script(folder, body),
                                       .document = document,
                                       .arguments = {"scan"},
                                       .timeLimit = 1500ms,
                                       .progress = {},
                                       .stop = {}});
        EXPECT_LT(std::chrono::steady_clock::now() - start, 10s) << name;
        EXPECT_EQ(answer.has_value(), *sentence == '\0') << name;
        if (answer) {
            EXPECT_EQ(answer->bytes, "{}") << name;
        } else {
            EXPECT_NE(answer.error().find(sentence), std::string::npos)
                << name << ": " << answer.error();
        }
    }
    const auto missing = askReader({.program = folder.path() / "none",
                                    .document = document,
                                    .arguments = {},
                                    .progress = {},
                                    .stop = {}});
    ASSERT_FALSE(missing.has_value());
    EXPECT_NE(missing.error().find("fiscarel-reader"), std::string::npos);
}

TEST(ReaderProcess, inheritsTheDocumentAndNothingElse) {
    const TestFolder folder;
    const auto document = folder.write("document.pdf", "what it holds");
    const int secret = open("/etc/passwd", O_RDONLY); // without close-on-exec
    const auto answer =
        askReader({.program = script(folder, "out=$(cat; ls /proc/$$/fd | tr '\\n' ' '); "
                                             "printf 'result %d\\n%s' ${#out} \"$out\""),
                   .document = document,
                   .arguments = {},
                   .progress = {},
                   .stop = {}});
    close(secret);
    ASSERT_TRUE(answer.has_value()) << answer.error();
    // The shell holds its script open as well, under a high number.
    EXPECT_TRUE(answer->bytes.starts_with("what it holds0 1 ")) << answer->bytes;
    EXPECT_EQ(answer->bytes.find(' ' + std::to_string(secret) + ' '), std::string::npos)
        << answer->bytes;
}

TEST(ReaderProcess, stopsAtOnceWhenAsked) {
    const TestFolder folder;
    std::vector<QImage> pages(4, drawing::page({u"Viele Seiten"_s, u"die niemand lesen will"_s}));
    const auto document = folder.write("long.pdf", drawing::imagePdf(pages));
    std::stop_source source;
    std::jthread stopper([&](const std::stop_token&) {
        std::this_thread::sleep_for(300ms);
        source.request_stop();
    });
    const auto start = std::chrono::steady_clock::now();
    const ScanResult result = DocumentScanner::scan(document, {.stop = source.get_token()});
    EXPECT_LT(std::chrono::steady_clock::now() - start, 3s);
    EXPECT_EQ(result.problem, "Das Lesen wurde abgebrochen.");
    EXPECT_EQ(DocumentScanner::scan(document, {.stop = source.get_token()}).problem,
              "Das Lesen wurde abgebrochen.");
}

TEST(ReaderProcess, tellsHowFarItIs) {
    const TestFolder folder;
    const auto document = folder.write(
        "three.pdf", drawing::textPdf({{u"Seite eins"_s}, {u"Seite zwei"_s}, {u"Seite drei"_s}}));
    std::vector<int> done;
    const ScanResult result = DocumentScanner::scan(document, {.progress = [&](int now, int total) {
                                                        EXPECT_EQ(total, 3);
                                                        done.push_back(now);
                                                    }});
    EXPECT_EQ(result.problem, std::nullopt);
    EXPECT_TRUE(std::ranges::is_sorted(done));
    ASSERT_FALSE(done.empty());
    EXPECT_EQ(done.front(), 0);
}

TEST(ReaderOutput, takesOutputInPiecesOfAnySize) {
    const std::string whole = "progress 0 3\nprogress 3 3\nresult 11\n{\"text\": 1}";
    for (std::size_t size = 1; size <= whole.size(); ++size) {
        int reports = 0;
        ReaderOutput output([&](int, int) { ++reports; });
        for (std::size_t at = 0; at < whole.size(); at += size) {
            EXPECT_FALSE(output.isWhole());
            ASSERT_TRUE(output.take(std::string_view(whole).substr(at, size)));
        }
        ASSERT_TRUE(output.isWhole());
        EXPECT_EQ(reports, 2);
        EXPECT_EQ(std::move(output).answer()->bytes, "{\"text\": 1}");
    }
}

TEST(Rendering, showsThePageUpright) {
    QImage sheet = drawing::page({u"Die Seite steht aufrecht im Bild"_s,
                                  u"Und darunter noch einige Wörter mehr"_s,
                                  u"Damit klar ist, wo oben und wo unten ist"_s});
    sheet.setPixelColor(0, 0, Qt::white);
    const TestFolder folder;
    const auto upright =
        DocumentScanner::render(folder.write("a.png", drawing::png(sheet)), 1, 400);
    const auto turned = DocumentScanner::render(
        folder.write("b.png", drawing::png(drawing::turned(sheet, 90))), 1, 400);
    ASSERT_TRUE(upright.has_value()) << upright.error();
    ASSERT_TRUE(turned.has_value()) << turned.error();
    const QImage first = QImage::fromData(QByteArray::fromStdString(*upright));
    const QImage second = QImage::fromData(QByteArray::fromStdString(*turned));
    EXPECT_EQ(first.width(), 400);
    ASSERT_EQ(second.size(), first.size());
    const auto darkness = [](const QImage& image, int top, int bottom) {
        long long sum = 0;
        for (int y = top; y < bottom; ++y) {
            for (int x = 0; x < image.width(); ++x) {
                sum += 255 - qGray(image.pixel(x, y));
            }
        }
        return sum;
    };
    const int third = first.height() / 3;
    EXPECT_GT(darkness(second, 0, third), 5 * darkness(second, third, first.height()));
    EXPECT_NEAR(static_cast<double>(darkness(second, 0, third)),
                static_cast<double>(darkness(first, 0, third)),
                0.2 * static_cast<double>(darkness(first, 0, third)));
    const auto beyond =
        DocumentScanner::render(folder.write("c.pdf", drawing::textPdf({{u"Eins"_s}})), 2, 400);
    EXPECT_EQ(beyond.error(), "Diese Seite lässt sich nicht darstellen.");
}

} // namespace
} // namespace fiscarel
