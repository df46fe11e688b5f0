#include "cli/Batch.h"

#include "TaxCore/base/JsonWriter.h"
#include "TaxCore/base/Text.h"
#include "cli/Input.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <new>
#include <thread>
#include <vector>

namespace fiscarel::cli {

namespace {

using namespace taxcore;

/// In bytes, without the line feed; longer than any household's case.
constexpr std::size_t longestLine = std::size_t{16} << 20U;

/// Some whole lines of the input; of a line that is too long at least so much that it shows.
struct Block {
    std::size_t number = 0;    ///< position in the input, from 0
    std::size_t firstLine = 0; ///< from 1
    std::string text;          ///< lines, each ended by a line feed
};

/// Hands out the input block by block; safe to call from several threads.
class BlockReader {
  public:
    explicit BlockReader(std::FILE* in) : in_(in) {}

    bool next(Block& block) {
        const std::lock_guard guard(lock_);
        if (ended_) {
            return false;
        }
        block.number = blocks_++;
        block.firstLine = line_;
        block.text.assign(carry_); // copied, so that the block keeps its memory
        carry_.clear();
        fill(block.text);
        line_ += static_cast<std::size_t>(std::ranges::count(block.text, '\n'));
        return !block.text.empty();
    }

    bool failed() const { return std::ferror(in_) != 0; }

  private:
    static constexpr std::size_t blockSize = std::size_t{1} << 18U;

    void fill(std::string& text) {
        std::size_t lineEnd = std::string::npos;
        do {
            const std::size_t before = text.size();
            text.resize(before + blockSize);
            const std::size_t count = std::fread(text.data() + before, 1, blockSize, in_);
            text.resize(before + count);
            if (count < blockSize) {
                ended_ = true;
                if (!text.empty() && text.back() != '\n') {
                    text += '\n';
                }
                return;
            }
            lineEnd = text.rfind('\n');
            if (lineEnd == std::string::npos && text.size() > longestLine) {
                dropRestOfLine();
                text += '\n';
                return;
            }
        } while (lineEnd == std::string::npos);
        carry_.assign(text, lineEnd + 1);
        text.resize(lineEnd + 1);
    }

    void dropRestOfLine() {
        int c = 0;
        while ((c = std::fgetc(in_)) != EOF && c != '\n') {
        }
        ended_ = c == EOF;
    }

    std::mutex lock_;
    std::FILE* in_;
    std::string carry_; ///< the beginning of a line whose end comes with the next block
    std::size_t blocks_ = 0;
    std::size_t line_ = 1;
    bool ended_ = false;
};

/// Writes results in the order of their blocks; a thread that is early waits for its turn, which
/// also bounds what is in memory to one block per thread. Once a block is lost no later one is
/// written, so nobody waits for a turn that cannot come.
class BlockWriter {
  public:
    explicit BlockWriter(std::FILE* out) : out_(out) {}

    void write(std::size_t number, const std::string& text) {
        std::unique_lock guard(lock_);
        turn_.wait(guard, [&] { return next_ == number || failed_; });
        if (!failed_) {
            failed_ = std::fwrite(text.data(), 1, text.size(), out_) != text.size();
            ++next_;
        }
        turn_.notify_all();
    }

    /// Gives up: every thread that waits or comes later goes away empty-handed.
    void abandon() {
        const std::lock_guard guard(lock_);
        failed_ = true;
        turn_.notify_all();
    }

    bool failed() const {
        const std::lock_guard guard(lock_);
        return failed_;
    }

  private:
    mutable std::mutex lock_;
    std::condition_variable turn_;
    std::FILE* out_;
    std::size_t next_ = 0;
    bool failed_ = false;
};

std::string errorLine(std::size_t line, const std::string& error) {
    std::string text = "{\"line\": " + std::to_string(line) + ", \"error\": ";
    JsonWriter(text, JsonStyle::compact).write(error);
    return text + "}\n";
}

/// The answer to one line, however long it is and whatever computing it throws.
std::string safeAnswer(const LineAnswer& answer, std::size_t number, std::string_view line) {
    if (line.size() > longestLine) {
        return errorLine(number,
                         "Die Zeile ist länger als " + std::to_string(longestLine >> 20U) + " MB.");
    }
    const std::string incomputable = "Der Fall lässt sich nicht berechnen: ";
    try {
        return answer(number, line);
    } catch (const std::bad_alloc&) {
        return errorLine(number, incomputable + "Der Arbeitsspeicher reicht nicht.");
    } catch (const std::exception& error) {
        return errorLine(number, incomputable + error.what() + ".");
    }
}

void answerBlocks(BlockReader& reader, BlockWriter& writer, const LineAnswer& answer) {
    Block block;
    std::string results;
    while (!writer.failed() && reader.next(block)) {
        results.clear();
        std::string_view rest = block.text;
        for (std::size_t number = block.firstLine; !rest.empty(); ++number) {
            const std::size_t end = rest.find('\n');
            results += safeAnswer(answer, number, rest.substr(0, end));
            rest.remove_prefix(end + 1);
        }
        writer.write(block.number, results);
    }
}

/// The life of a thread. A block it took from the reader and could not finish is lost.
void work(BlockReader& reader, BlockWriter& writer, const LineAnswer& answer) noexcept {
    try {
        answerBlocks(reader, writer, answer);
    } catch (...) {
        writer.abandon();
    }
}

} // namespace

std::string caseAnswer(std::size_t number, std::string_view line) {
    if (isBlank(line)) {
        return errorLine(number, "Die Zeile ist leer.");
    }
    const auto taxCase = fromJson<TaxCase>(line);
    if (!taxCase) {
        return errorLine(number, taxCase.error().messageWithoutLine());
    }
    const auto calculator = calculatorFor(*taxCase);
    if (!calculator) {
        return errorLine(number, calculator.error());
    }
    return toJson(calculator->calculate(*taxCase), JsonStyle::compact) + "\n";
}

bool computeBatch(std::FILE* in, std::FILE* out, unsigned threads, const LineAnswer& answer) {
    BlockReader reader(in);
    BlockWriter writer(out);
    {
        std::vector<std::jthread> helpers; // joined at the end of the scope
        try {
            for (unsigned i = 1; i < threads; ++i) {
                helpers.emplace_back([&] { work(reader, writer, answer); });
            }
        } catch (const std::exception&) {
            // The system gives no more threads: those there are do the work.
        }
        work(reader, writer, answer);
    }
    return std::fflush(out) == 0 && !writer.failed() && !reader.failed();
}

} // namespace fiscarel::cli
