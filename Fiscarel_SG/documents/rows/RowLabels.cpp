#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <iterator>

namespace fiscarel {

namespace {

struct Token {
    std::string_view text;
    std::size_t word = 0;
};

/// The folded words of a row with the word each comes from: "AHV/IV" is one word and two tokens.
std::vector<Token> tokensOf(const Row& row, std::size_t from) {
    std::vector<Token> tokens;
    for (std::size_t i = from; i < row.words.size(); ++i) {
        std::string_view rest = row.words[i].folded;
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find(' '), rest.size());
            tokens.push_back({rest.substr(0, end), i});
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    return tokens;
}

/// Whether two words are the same but for a few letters; digits are never wrong by a few.
bool isAlike(std::string_view text, std::string_view wanted, std::size_t most) {
    const auto digits = [](std::string_view word) {
        std::string found;
        std::ranges::copy_if(word, std::back_inserter(found),
                             [](char c) { return c >= '0' && c <= '9'; });
        return found;
    };
    return isWithinEdits(text, wanted, most) && digits(text) == digits(wanted);
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

/// The index of the last token when the label begins with a token.
std::optional<std::size_t> matchAt(const std::vector<Token>& tokens, std::size_t at,
                                   const Label& label, bool isRecognised) {
    const std::string& wanted = label.compact();
    const std::size_t most = isRecognised ? wanted.size() / (label.isOpen() ? 10 : 8) : 0;
    if (label.isOpenBefore()) {
        return holds(tokens[at].text, label, most) ? std::optional(at) : std::nullopt;
    }
    // A number such as 13.1.2 is one word; digits of neighbours do not make it.
    const bool isNumber = wanted.find_first_not_of("0123456789") == std::string::npos;
    std::string joined;
    for (std::size_t i = at; i < tokens.size() && joined.size() <= wanted.size() + most; ++i) {
        if (isNumber && tokens[i].word != tokens[at].word) {
            break;
        }
        joined += tokens[i].text;
        if (joined.size() + most < wanted.size()) {
            continue;
        }
        std::string_view compared = joined;
        if (label.isOpen() && compared.size() > wanted.size()) {
            compared = compared.substr(0, wanted.size());
        }
        if (most == 0 ? compared == wanted : isAlike(compared, wanted, most)) {
            return i;
        }
    }
    return std::nullopt;
}

std::optional<LabelPlace> findIn(const Row& row, const std::vector<Token>& tokens,
                                 const Label& label, bool isRecognised) {
    // Letter by letter first: a stray mark before the word is within the tolerance as well.
    for (const bool isTolerant : {false, true}) {
        for (std::size_t at = 0; at < tokens.size() && (isRecognised || !isTolerant); ++at) {
            if (const auto last = matchAt(tokens, at, label, isTolerant)) {
                const std::size_t firstWord = tokens[at].word;
                const std::size_t lastWord = tokens[*last].word;
                return LabelPlace{firstWord, lastWord, row.words[firstWord].place.left,
                                  row.words[lastWord].place.right};
            }
        }
    }
    return std::nullopt;
}

} // namespace

Label::Label(const char* words) {
    std::string_view text = words;
    isOpen_ = text.ends_with('*');
    isOpenBefore_ = text.starts_with('*');
    folded_ = foldWords(text);
    compact_ = folded_;
    std::erase(compact_, ' ');
}

std::optional<LabelPlace> findLabel(const Row& row, const Label& label, bool isRecognised,
                                    std::size_t from) {
    return findIn(row, tokensOf(row, from), label, isRecognised);
}

std::optional<LabelPlace> findLabel(const Row& row, const Labels& labels, bool isRecognised,
                                    std::size_t from) {
    const auto tokens = tokensOf(row, from);
    for (const Label& label : labels) {
        if (const auto place = findIn(row, tokens, label, isRecognised)) {
            return place;
        }
    }
    return std::nullopt;
}

std::vector<LabelPlace> cellsOf(const Row& row) {
    std::vector<LabelPlace> cells;
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        const RowWord& word = row.words[i];
        const double letter =
            word.place.width() / static_cast<double>(std::max<std::size_t>(word.text.size(), 1));
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
        return hasPhrase(folded, label.isOpen() ? label.folded() + '*' : label.folded());
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
