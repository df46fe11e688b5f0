#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// Words by which something is found in a row, as they are printed: "Bruttolohn total". With "*" at
/// the end the last word may go on ("Prämie*"); with one before a single word that word may be the
/// end of a longer one ("*prämie": "Jahresprämie").
class Label {
  public:
    Label(const char* words); // NOLINT(google-explicit-constructor): tables are lists of words

    const std::string& folded() const { return folded_; }
    const std::string& compact() const { return compact_; } ///< without blanks
    bool isOpen() const { return isOpen_; }
    bool isOpenBefore() const { return isOpenBefore_; }
    bool isNumber() const { return isNumber_; }        ///< nothing but digits
    std::uint64_t letters() const { return letters_; } ///< that it has, as by `lettersOf`

  private:
    std::string folded_;
    std::string compact_;
    std::uint64_t letters_ = 0;
    bool isNumber_ = false;
    bool isOpen_ = false;
    bool isOpenBefore_ = false;
};
using Labels = std::vector<Label>;

/// Where a label stands in a row.
struct LabelPlace {
    std::size_t first = 0; ///< index of its first word
    std::size_t last = 0;
    double left = 0;
    double right = 0;
};

/// The letters and digits of folded words as a set, a bit for each.
std::uint64_t lettersOf(std::string_view folded);

/// Looks for labels in one row. Made once where many are looked for; the row must outlive it.
class LabelFinder {
  public:
    LabelFinder(const Row& row, bool isRecognised);

    /// The first place of a label from a word on. In recognised text about one letter in eight may
    /// be wrong and words may be run together or torn apart.
    std::optional<LabelPlace> find(const Label& label, std::size_t from = 0) const;
    /// The first of several labels that is found, in the order of the list.
    std::optional<LabelPlace> find(const Labels& labels, std::size_t from = 0) const;

  private:
    /// A folded word of the row; "AHV/IV" is one word and two tokens.
    struct Token {
        std::size_t word = 0;
        std::size_t begin = 0; ///< in `joined_`
        std::size_t end = 0;
        std::uint64_t letters = 0;
    };

    std::optional<std::size_t> matchAt(std::size_t at, const Label& label, std::size_t most) const;
    std::string_view text(std::size_t first, std::size_t last) const;

    const Row& row_;
    bool isRecognised_;
    std::string joined_; ///< all tokens without blanks
    std::uint64_t letters_ = 0;
    std::vector<Token> tokens_;
};

/// A label's place by a `LabelFinder` of its own.
std::optional<LabelPlace> findLabel(const Row& row, const Label& label, bool isRecognised,
                                    std::size_t from = 0);
std::optional<LabelPlace> findLabel(const Row& row, const Labels& labels, bool isRecognised,
                                    std::size_t from = 0);

/// The cells of a row: words that stand together, apart from the next by more than a blank.
std::vector<LabelPlace> cellsOf(const Row& row);

/// Whether a label stands anywhere in folded words, letter by letter.
bool isIn(std::string_view folded, const Label& label);
bool isAnyIn(std::string_view folded, const Labels& labels);

/// The words of a row between two of its words (both included) as printed, single blanks between.
std::string textBetween(const Row& row, std::size_t first, std::size_t last);

} // namespace fiscarel
