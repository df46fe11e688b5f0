#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

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

  private:
    std::string folded_;
    std::string compact_;
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

/// The first place of a label from a word on. In recognised text about one letter in eight may be
/// wrong and words may be run together or torn apart.
std::optional<LabelPlace> findLabel(const Row& row, const Label& label, bool isRecognised,
                                    std::size_t from = 0);
/// The first of several labels that is found, in the order of the list.
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
