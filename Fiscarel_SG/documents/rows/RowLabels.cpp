#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"
#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include <algorithm>
#include <bit>
#include <cassert>

namespace fiscarel {

namespace {

/// Whether the digits of two words are the same, in their order.
bool haveSameDigits(std::string_view text, std::string_view wanted) {
    auto at = wanted.begin();
    for (const char c : text) {
        if (isDigit(c)) {
            at = std::find_if(at, wanted.end(), isDigit);
            if (at == wanted.end() || *at++ != c) {
                return false;
            }
        }
    }
    return std::none_of(at, wanted.end(), isDigit);
}

/// Whether two words are the same but for a few letters; digits are never wrong by a few.
bool isAlike(std::string_view text, std::string_view wanted, std::size_t most) {
    return haveSameDigits(text, wanted) && isWithinEdits(text, wanted, most);
}

/// Letters that are missing altogether take at least as many edits.
bool lacks(std::uint64_t letters, std::uint64_t wanted, std::size_t most) {
    return static_cast<std::size_t>(std::popcount(wanted & ~letters)) > most;
}

/// How many letters of a label may be wrong in recognised text: none where one letter makes the
/// opposite of it, as of "notre" and "votre".
std::size_t toleranceOf(const Label& label) {
    const std::string& folded = label.folded();
    const bool tellsWhose =
        hasPhrase(folded, "notre", false) || hasPhrase(folded, "votre", false)
        || hasPhrase(folded, "nostro", false) || hasPhrase(folded, "vostro", false)
        || hasPhrase(folded, "nostra", false) || hasPhrase(folded, "vostra", false);
    return tellsWhose ? 0 : label.compact().size() / (label.isOpen() ? 10 : 8);
}

/// Whether a word ends with, or for an open label holds, a label's word.
bool holds(std::string_view word, const Label& label, std::size_t most) {
    const std::string& wanted = label.compact();
    if (word.size() < wanted.size()) {
        return false;
    }
    const std::size_t ending = word.size() - wanted.size();
    for (std::size_t from = label.isOpen() ? 0 : ending; from <= ending; ++from) {
        const std::string_view part = word.substr(from, wanted.size());
        if (most == 0 ? part == wanted : isAlike(part, wanted, most)) {
            return true;
        }
    }
    return false;
}

} // namespace

Label::Label(const char* words) {
    const std::string_view text = words;
    assert(text.size() < 2 || text.substr(1, text.size() - 2).find('*') == text.npos);
    isOpen_ = text.ends_with('*');
    isOpenBefore_ = text.starts_with('*');
    folded_ = foldWords(text);
    compact_ = folded_;
    std::erase(compact_, ' ');
    letters_ = lettersOf(compact_);
    isNumber_ = std::ranges::all_of(compact_, isDigit);
}

std::uint64_t lettersOf(std::string_view folded) {
    constexpr int letters = 26;
    std::uint64_t found = 0;
    for (const char c : folded) {
        if (c >= 'a' && c <= 'z') {
            found |= std::uint64_t{1} << (c - 'a');
        } else if (isDigit(c)) {
            found |= std::uint64_t{1} << (letters + c - '0');
        }
    }
    return found;
}

LabelFinder::LabelFinder(const Row& row, bool isRecognised)
    : row_(row), isRecognised_(isRecognised) {
    tokens_.reserve(row.words.size() + row.words.size() / 2);
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        std::string_view rest = row.words[i].folded;
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find(' '), rest.size());
            const std::string_view token = rest.substr(0, end);
            tokens_.push_back({i, joined_.size(), joined_.size() + token.size(), lettersOf(token)});
            joined_ += token;
            letters_ |= tokens_.back().letters;
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
}

std::string_view LabelFinder::text(std::size_t first, std::size_t last) const {
    const std::size_t begin = tokens_[first].begin;
    return std::string_view(joined_).substr(begin, tokens_[last].end - begin);
}

/// The index of the last token when the label begins with a token, with so many letters wrong.
std::optional<std::size_t> LabelFinder::matchAt(std::size_t at, const Label& label,
                                                std::size_t most) const {
    if (label.isOpenBefore()) {
        return holds(text(at, at), label, most) ? std::optional(at) : std::nullopt;
    }
    const std::string& wanted = label.compact();
    if (most == 0 && !wanted.empty() && joined_[tokens_[at].begin] != wanted.front()) {
        return std::nullopt;
    }
    std::uint64_t letters = 0;
    for (std::size_t i = at; i < tokens_.size(); ++i) {
        // A number such as 13.1.2 is one word; digits of neighbours do not make it.
        if (label.isNumber() && tokens_[i].word != tokens_[at].word) {
            break;
        }
        const std::size_t before = i == at ? 0 : tokens_[i - 1].end - tokens_[at].begin;
        if (before > wanted.size() + most) {
            break;
        }
        letters |= tokens_[i].letters;
        std::string_view compared = text(at, i);
        if (compared.size() + most < wanted.size() || lacks(letters, label.letters(), most)
            || (!label.isOpen() && lacks(label.letters(), letters, most))) {
            continue;
        }
        if (label.isOpen()) {
            compared = compared.substr(0, wanted.size());
        }
        if (most == 0 ? compared == wanted : isAlike(compared, wanted, most)) {
            return i;
        }
    }
    return std::nullopt;
}

std::optional<LabelPlace> LabelFinder::find(const Label& label, std::size_t from) const {
    const auto first = static_cast<std::size_t>(
        std::ranges::lower_bound(tokens_, from, {}, &Token::word) - tokens_.begin());
    const auto search = [&](std::size_t most) -> std::optional<LabelPlace> {
        if (lacks(letters_, label.letters(), most)) {
            return std::nullopt;
        }
        for (std::size_t at = first; at < tokens_.size(); ++at) {
            if (const auto last = matchAt(at, label, most)) {
                const std::size_t firstWord = tokens_[at].word;
                const std::size_t lastWord = tokens_[*last].word;
                return LabelPlace{firstWord, lastWord, row_.words[firstWord].place.left,
                                  row_.words[lastWord].place.right};
            }
        }
        return std::nullopt;
    };
    // Letter by letter first: a stray mark before the word is within the tolerance as well.
    if (auto place = search(0)) {
        return place;
    }
    const std::size_t most = isRecognised_ ? toleranceOf(label) : 0;
    return most > 0 ? search(most) : std::nullopt;
}

std::optional<LabelPlace> LabelFinder::find(const Labels& labels, std::size_t from) const {
    for (const Label& label : labels) {
        if (auto place = find(label, from)) {
            return place;
        }
    }
    return std::nullopt;
}

std::optional<LabelPlace> findLabel(const Row& row, const Label& label, bool isRecognised,
                                    std::size_t from) {
    return LabelFinder(row, isRecognised).find(label, from);
}

std::optional<LabelPlace> findLabel(const Row& row, const Labels& labels, bool isRecognised,
                                    std::size_t from) {
    return LabelFinder(row, isRecognised).find(labels, from);
}

std::vector<LabelPlace> cellsOf(const Row& row) {
    std::vector<LabelPlace> cells;
    double before = 0;
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        const RowWord& word = row.words[i];
        const std::size_t characters = std::max<std::size_t>(charactersIn(word.text), 1);
        const double own = word.place.width() / static_cast<double>(characters);
        // A colon or an "l" alone is narrower than letters are.
        const double letter = characters == 1 ? std::max(own, before) : own;
        before = own;
        if (cells.empty() || word.place.left - cells.back().right > 1.5 * letter) {
            cells.push_back({i, i, word.place.left, word.place.right});
        }
        cells.back().last = i;
        cells.back().right = word.place.right;
    }
    return cells;
}

bool isIn(std::string_view folded, const Label& label) {
    if (!label.isOpenBefore()) {
        return hasPhrase(folded, label.folded(), label.isOpen());
    }
    const std::string& wanted = label.folded();
    for (std::size_t at = folded.find(wanted); at != std::string_view::npos;
         at = folded.find(wanted, at + 1)) {
        const std::size_t end = at + wanted.size();
        if (label.isOpen() || end == folded.size() || folded[end] == ' ') {
            return true;
        }
    }
    return false;
}

bool isAnyIn(std::string_view folded, const Labels& labels) {
    return std::ranges::any_of(labels, [&](const Label& label) { return isIn(folded, label); });
}

std::string textBetween(const Row& row, std::size_t first, std::size_t last) {
    std::string text;
    for (std::size_t i = first; i <= last && i < row.words.size(); ++i) {
        text += text.empty() ? row.words[i].text : ' ' + row.words[i].text;
    }
    return text;
}

} // namespace fiscarel
