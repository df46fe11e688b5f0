#include "tests/documents/reading/DrawnPage.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <sstream>

namespace fiscarel {

namespace {

/// Letters of a UTF-8 text, not bytes.
double lettersOf(const std::string& text) {
    double count = 0;
    for (const char c : text) {
        count += (static_cast<unsigned char>(c) & 0xC0U) == 0x80U ? 0 : 1;
    }
    return count;
}

} // namespace

DrawnPage& DrawnPage::text(double x, double y, const std::string& words) {
    std::istringstream in(words);
    for (std::string word; in >> word;) {
        const double width = lettersOf(word) * size_ / 2;
        page_.words.push_back({word, {x, y, x + width, y + size_}});
        x += width + size_ / 4;
    }
    return *this;
}

DrawnPage& DrawnPage::right(double x, double y, const std::string& words) {
    std::istringstream in(words);
    double width = -size_ / 4;
    for (std::string word; in >> word;) {
        width += lettersOf(word) * size_ / 2 + size_ / 4;
    }
    return text(x - width, y, words);
}

DrawnPage& DrawnPage::line(const std::string& label, const std::string& amount) {
    text(60, next_, label);
    right(540, next_, amount);
    next_ += 1.6 * size_;
    return *this;
}

DrawnPage& DrawnPage::symbol(PageSymbol symbol) {
    page_.symbols.push_back(std::move(symbol));
    return *this;
}

DrawnPage& DrawnPage::scanned(double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    page_.isRecognised = true;
    for (PageWord& word : page_.words) {
        const double x = (word.place.left + word.place.right) / 2 - page_.width / 2;
        const double y = (word.place.top + word.place.bottom) / 2 - page_.height / 2;
        const double dx = x * std::cos(angle) - y * std::sin(angle) - x;
        const double dy = x * std::sin(angle) + y * std::cos(angle) - y;
        word.place = {word.place.left + dx, word.place.top + dy, word.place.right + dx,
                      word.place.bottom + dy};
        word.certainty = 0.9;
    }
    return *this;
}

DrawnPage& DrawnPage::number(int number) {
    page_.number = number;
    return *this;
}

ScanResult DrawnPage::proposed() const {
    ScanResult result;
    propose(document(), result);
    return result;
}

ScanResult proposedFrom(const std::vector<Line>& lines) {
    DrawnPage page;
    for (const Line& line : lines) {
        page.line(line.label, line.amount);
    }
    return page.proposed();
}

ScanResult proposedFrom(const std::vector<Put>& puts) {
    DrawnPage page;
    for (const Put& put : puts) {
        put.isRight ? page.right(put.x, put.y, put.words) : page.text(put.x, put.y, put.words);
    }
    return page.proposed();
}

std::vector<std::string> valuesOf(const ScanResult& result, std::size_t record,
                                  const std::vector<std::string>& without) {
    std::vector<std::string> values;
    for (const Proposal& proposal : result.proposals) {
        if (proposal.recordIndex == static_cast<int>(record)
            && std::ranges::find(without, proposal.field) == without.end()) {
            values.push_back(proposal.field + '=' + proposal.value + ' '
                             + std::string(taxcore::rawValue(proposal.confidence)));
        }
    }
    return values;
}

std::vector<std::string> allValuesOf(const ScanResult& result,
                                     const std::vector<std::string>& without) {
    std::vector<std::string> all;
    for (std::size_t record = 0; record < result.records.size(); ++record) {
        std::ranges::move(valuesOf(result, record, without), std::back_inserter(all));
    }
    return all;
}

std::vector<std::string> wageOf(const ScanResult& result) {
    constexpr std::size_t most = 4;
    auto values = valuesOf(result);
    values.resize(std::min(values.size(), most));
    return values;
}

const Proposal* proposalOf(const ScanResult& result, const std::string& field, std::size_t record) {
    for (const Proposal& proposal : result.proposals) {
        if (proposal.recordIndex == static_cast<int>(record) && proposal.field == field) {
            return &proposal;
        }
    }
    return nullptr;
}

std::string valueOf(const ScanResult& result, const std::string& field, std::size_t record) {
    const Proposal* const found = proposalOf(result, field, record);
    return found == nullptr ? std::string() : found->value;
}

} // namespace fiscarel
