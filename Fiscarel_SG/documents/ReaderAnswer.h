#pragma once

#include "Fiscarel_SG/documents/ReaderProcess.h"

#include <optional>
#include <string>
#include <string_view>

namespace fiscarel {

/// Takes the output of the reading process piece by piece: lines "progress DONE TOTAL", then one
/// line with kind and length, then so many bytes. It believes nothing of it.
class ReaderOutput {
  public:
    explicit ReaderOutput(PagesRead progress) : progress_(std::move(progress)) {}

    /// False when the output breaks the form or is too long; the rest is not worth reading.
    bool take(std::string_view piece);

    /// Whether exactly one whole answer has come.
    bool isWhole() const { return !kind_.empty() && bytes_.size() == size_; }

    /// The answer, or the sentence the process gives in place of one. Only when it is whole.
    tl::expected<ReaderAnswer, std::string> answer() &&;

  private:
    bool takeLine(std::string_view line);

    PagesRead progress_;
    std::string line_;
    std::string kind_; ///< empty until the head of the answer is there
    std::size_t size_ = 0;
    std::string bytes_;
};

} // namespace fiscarel
