// Batches whose parts fail: nothing may wait for ever, no answer may be lost or out of order.

#include "cli/Batch.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

namespace fiscarel::cli {
namespace {

constexpr std::size_t lineCount = 20'000;

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// Many numbered lines, long enough together for a dozen blocks.
File numberedLines() {
    File in(std::tmpfile());
    const std::string filling(150, '.');
    for (std::size_t i = 1; i <= lineCount; ++i) {
        std::fprintf(in.get(), "%zu%s\n", i, filling.c_str());
    }
    std::rewind(in.get());
    return in;
}

std::string contentOf(std::FILE* file) {
    std::string text(static_cast<std::size_t>(std::ftell(file)), '\0');
    std::rewind(file);
    text.resize(std::fread(text.data(), 1, text.size(), file));
    return text;
}

std::string plainAnswer(std::size_t number, std::string_view line) {
    const std::string answer = std::to_string(number);
    EXPECT_TRUE(line.starts_with(answer + ".")) << answer;
    return answer + "\n";
}

TEST(Batch, answersALineWhoseComputingThrows) {
    const File in = numberedLines();
    const File out(std::tmpfile());
    const auto answer = [](std::size_t number, std::string_view line) {
        if (number == 7) {
            throw std::bad_alloc();
        }
        if (number == lineCount) {
            throw std::runtime_error("«gestört»");
        }
        return plainAnswer(number, line);
    };
    EXPECT_TRUE(computeBatch(in.get(), out.get(), 4, answer));
    const auto error = [](std::size_t line, const std::string& why) {
        return "{\"line\": " + std::to_string(line)
               + ", \"error\": \"Der Fall lässt sich nicht berechnen: " + why + ".\"}\n";
    };
    std::string expected;
    for (std::size_t i = 1; i <= lineCount; ++i) {
        expected += i == 7           ? error(i, "Der Arbeitsspeicher reicht nicht")
                    : i == lineCount ? error(i, "«gestört»")
                                     : std::to_string(i) + "\n";
    }
    EXPECT_EQ(contentOf(out.get()), expected);
}

TEST(Batch, tellsLinesThatAreTooLong) {
    constexpr std::size_t most = std::size_t{16} << 20U;
    constexpr std::size_t block = std::size_t{1} << 18U;
    const std::string fault = "\"error\": \"Die Zeile ist länger als 16 MB.\"}\n";
    const File in(std::tmpfile());
    const File out(std::tmpfile());
    std::string expected;
    std::size_t number = 0;
    for (const std::size_t size : {std::size_t{3}, most, most + 1, most + block, 2 * most, most}) {
        const std::string line(size, '.');
        std::fprintf(in.get(), "%s\n", line.c_str());
        ++number;
        expected += size > most ? "{\"line\": " + std::to_string(number) + ", " + fault
                                : std::to_string(size) + "\n";
    }
    std::rewind(in.get());
    const auto answer = [](std::size_t, std::string_view line) {
        return std::to_string(line.size()) + "\n";
    };
    EXPECT_TRUE(computeBatch(in.get(), out.get(), 2, answer));
    EXPECT_EQ(contentOf(out.get()), expected);
}

TEST(Batch, endsWhenABlockIsLost) {
    std::string all;
    for (std::size_t i = 1; i <= lineCount; ++i) {
        all += std::to_string(i) + "\n";
    }
    for (const std::size_t lost : {std::size_t{1}, lineCount / 2, lineCount}) {
        for (const unsigned threads : {1U, 2U, 8U}) {
            const File in = numberedLines();
            const File out(std::tmpfile());
            const auto answer = [&](std::size_t number, std::string_view line) {
                if (number == lost) {
                    throw 0; // no std::exception: not the failure of one case
                }
                return plainAnswer(number, line);
            };
            EXPECT_FALSE(computeBatch(in.get(), out.get(), threads, answer));
            const std::string written = contentOf(out.get());
            EXPECT_TRUE(all.starts_with(written)) << lost << " on " << threads;
            EXPECT_LT(written.size(), all.size()) << lost << " on " << threads;
        }
    }
}

TEST(Batch, endsWhenTheOutputIsBroken) {
    for (const unsigned threads : {1U, 4U}) {
        const File in = numberedLines();
        const File out(std::fopen("/dev/full", "we"));
        ASSERT_NE(out, nullptr);
        EXPECT_FALSE(computeBatch(in.get(), out.get(), threads, plainAnswer));
    }
}

} // namespace
} // namespace fiscarel::cli
