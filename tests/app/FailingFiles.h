#pragma once

#include "Fiscarel_SG/store/PosixFiles.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

namespace fiscarel::testing {

/// The files of this machine, until an operation is to fail.
class FailingFiles final : public FileSystem {
  public:
    /// Opening, reading, writing, finishing and placing are counted; the one of this number fails.
    int failsAt = std::numeric_limits<int>::max();
    int code = 0; ///< errno of that failure
    int operations = 0;
    std::optional<std::uint64_t> free; ///< instead of the true free space
    std::function<void()> beforeRead;

    FileResult<std::string> read(const std::filesystem::path& file, std::uint64_t most) override {
        return files_.read(file, most);
    }
    FileResult<void> write(const std::filesystem::path& file, std::string_view bytes) override {
        return files_.write(file, bytes);
    }
    FileResult<void> copy(const std::filesystem::path& from, const std::filesystem::path& to,
                          std::uint64_t most) override {
        return files_.copy(from, to, most);
    }
    FileResult<std::unique_ptr<FileReader>> open(const std::filesystem::path& file) override {
        return step(file)
            .and_then([&] { return files_.open(file); })
            .map([&](std::unique_ptr<FileReader> reader) {
                return std::unique_ptr<FileReader>(
                    std::make_unique<Reader>(*this, file, std::move(reader)));
            });
    }
    FileResult<std::unique_ptr<FileDraft>> draft(const std::filesystem::path& file) override {
        return step(file)
            .and_then([&] { return files_.draft(file); })
            .map([&](std::unique_ptr<FileDraft> draft) {
                return std::unique_ptr<FileDraft>(
                    std::make_unique<Draft>(*this, file, std::move(draft)));
            });
    }
    FileResult<std::uint64_t> freeSpace(const std::filesystem::path& folder) override {
        return free ? FileResult<std::uint64_t>(*free) : files_.freeSpace(folder);
    }
    FileResult<void> link(const std::filesystem::path& file,
                          const std::filesystem::path& second) override {
        return files_.link(file, second);
    }
    FileResult<void> remove(const std::filesystem::path& file) override {
        return files_.remove(file);
    }
    FileResult<FileEntry> stat(const std::filesystem::path& file) override {
        return files_.stat(file);
    }
    FileResult<std::vector<FileEntry>> list(const std::filesystem::path& folder) override {
        return files_.list(folder);
    }
    FileResult<void> makeFolder(const std::filesystem::path& folder) override {
        return files_.makeFolder(folder);
    }
    void removeLeftovers(const std::filesystem::path& folder) override {
        files_.removeLeftovers(folder);
    }

  private:
    class Reader final : public FileReader {
      public:
        Reader(FailingFiles& owner, std::filesystem::path file, std::unique_ptr<FileReader> reader)
            : owner_(owner), file_(std::move(file)), reader_(std::move(reader)) {}

        std::uint64_t size() const override { return reader_->size(); }
        FileResult<std::size_t> read(std::uint64_t offset, std::span<char> into) override {
            if (owner_.beforeRead) {
                owner_.beforeRead();
            }
            return owner_.step(file_).and_then([&] { return reader_->read(offset, into); });
        }

      private:
        FailingFiles& owner_;
        std::filesystem::path file_;
        std::unique_ptr<FileReader> reader_;
    };

    class Draft final : public FileDraft {
      public:
        Draft(FailingFiles& owner, std::filesystem::path file, std::unique_ptr<FileDraft> draft)
            : owner_(owner), file_(std::move(file)), draft_(std::move(draft)) {}

        FileResult<void> write(std::uint64_t offset, std::string_view bytes) override {
            return owner_.step(file_).and_then([&] { return draft_->write(offset, bytes); });
        }
        FileResult<void> finish() override {
            return owner_.step(file_).and_then([&] { return draft_->finish(); });
        }
        FileResult<void> place(IfTaken ifTaken) override {
            return owner_.step(file_).and_then([&] { return draft_->place(ifTaken); });
        }

      private:
        FailingFiles& owner_;
        std::filesystem::path file_;
        std::unique_ptr<FileDraft> draft_;
    };

    FileResult<void> step(const std::filesystem::path& file) {
        if (operations++ == failsAt) {
            return tl::unexpected(FileError{code, file});
        }
        return {};
    }

    PosixFiles files_;
};

} // namespace fiscarel::testing
