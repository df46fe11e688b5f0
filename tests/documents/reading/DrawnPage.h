#pragma once

#include "Fiscarel_SG/documents/SecondReader.h"

#include <map>
#include <string>
#include <vector>

namespace fiscarel {

/// A page of words for the tests, set in columns: each line is a row, its parts stand at the
/// columns they name.
class DrawnPage {
  public:
    /// A word of `size` points is half as wide as high per letter.
    explicit DrawnPage(double size = 10) : size_(size) {
        page_.number = 1;
        page_.width = 595;
        page_.height = 842;
    }

    /// Words from the left edge `x` on, one blank between them.
    DrawnPage& text(double x, double y, const std::string& words);
    /// Words that end at `x`, as amounts do.
    DrawnPage& right(double x, double y, const std::string& words);
    /// A label at 60 and its amount ending at 540, with the next row below.
    DrawnPage& line(const std::string& label, const std::string& amount = "");
    DrawnPage& symbol(PageSymbol symbol);
    /// Turns everything by an angle, as a crooked scan; words become recognised ones.
    DrawnPage& scanned(double degrees);
    DrawnPage& number(int number);

    const PageReading& page() const { return page_; }
    DocumentReading document() const { return {.pages = {page_}, .pageCount = 1}; }
    ScanResult proposed() const;

  private:
    double size_;
    double next_ = 60;
    PageReading page_;
};

/// A label and its amount.
struct Line {
    const char* label;
    const char* amount = "";
};

/// What is proposed from a page of such lines, one below the other.
ScanResult proposedFrom(const std::vector<Line>& lines);

/// Words that begin at `x`, or end there.
struct Put {
    double x = 0;
    double y = 0;
    const char* words = "";
    bool isRight = false;
};
constexpr bool right = true;

/// What is proposed from a page of such words.
ScanResult proposedFrom(const std::vector<Put>& puts);

/// "grossSalary=68000 high" for each proposal of a record, in its order, but of the fields named.
std::vector<std::string> valuesOf(const ScanResult& result, std::size_t record = 0,
                                  const std::vector<std::string>& without = {});
/// The same of all records, one after the other.
std::vector<std::string> allValuesOf(const ScanResult& result,
                                     const std::vector<std::string>& without = {});
/// The four amounts that a wage begins with, without the periods and companies that follow.
std::vector<std::string> wageOf(const ScanResult& result);
/// The value of a field of a record; empty when nothing is proposed.
std::string valueOf(const ScanResult& result, const std::string& field, std::size_t record = 0);
const Proposal* proposalOf(const ScanResult& result, const std::string& field,
                           std::size_t record = 0);

} // namespace fiscarel
