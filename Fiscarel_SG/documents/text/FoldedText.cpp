#include "Fiscarel_SG/documents/text/FoldedText.h"

#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace fiscarel {

namespace {

struct Folding {
    char32_t from;
    char32_t to;
    std::string_view letters;
};

/// What letters beyond ASCII become; ranges of code points with one base letter.
constexpr std::array foldings{
    Folding{0xC0, 0xC5, "a"},       Folding{0xC6, 0xC6, "a"},      Folding{0xC7, 0xC7, "c"},
    Folding{0xC8, 0xCB, "e"},       Folding{0xCC, 0xCF, "i"},      Folding{0xD1, 0xD1, "n"},
    Folding{0xD2, 0xD6, "o"},       Folding{0xD8, 0xD8, "o"},      Folding{0xD9, 0xDC, "u"},
    Folding{0xDD, 0xDD, "y"},       Folding{0xDF, 0xDF, "ss"},     Folding{0xE0, 0xE5, "a"},
    Folding{0xE6, 0xE6, "a"},       Folding{0xE7, 0xE7, "c"},      Folding{0xE8, 0xEB, "e"},
    Folding{0xEC, 0xEF, "i"},       Folding{0xF1, 0xF1, "n"},      Folding{0xF2, 0xF6, "o"},
    Folding{0xF8, 0xF8, "o"},       Folding{0xF9, 0xFC, "u"},      Folding{0xFD, 0xFD, "y"},
    Folding{0xFF, 0xFF, "y"},       Folding{0x152, 0x153, "o"},    Folding{0xFB00, 0xFB00, "ff"},
    Folding{0xFB01, 0xFB01, "fi"},  Folding{0xFB02, 0xFB02, "fl"}, Folding{0xFB03, 0xFB03, "ffi"},
    Folding{0xFB04, 0xFB04, "ffl"},
};

constexpr char32_t firstLigature = 0xFB00;

bool isCombining(char32_t code) { return (code >= 0x300 && code <= 0x36F) || code == 0xAD; }

void append(std::string& out, char letter) {
    const char before = out.empty() ? ' ' : out.back();
    if (letter == 'e' && (before == 'a' || before == 'o' || before == 'u')) {
        return;
    }
    out += letter;
}

} // namespace

std::string foldWords(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const auto [code, length] = firstLetter(text);
        text.remove_prefix(length);
        if (code < 0x80) {
            const char c = static_cast<char>(code);
            if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
                append(out, c);
            } else if (c >= 'A' && c <= 'Z') {
                append(out, static_cast<char>(c - 'A' + 'a'));
            } else if (!out.empty() && out.back() != ' ') {
                out += ' ';
            }
            continue;
        }
        const auto folding = std::ranges::find_if(
            foldings, [c = code](const Folding& row) { return row.from <= c && c <= row.to; });
        if (folding != foldings.end()) {
            std::ranges::for_each(folding->letters, [&](char c) { append(out, c); });
        } else if (!isCombining(code) && !out.empty() && out.back() != ' ') {
            out += ' ';
        }
    }
    if (!out.empty() && out.back() == ' ') {
        out.pop_back();
    }
    return out;
}

std::string withoutLigatures(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const auto [code, length] = firstLetter(text);
        const auto folding = std::ranges::find(foldings, code, &Folding::from);
        if (code >= firstLigature && folding != foldings.end()) {
            out += folding->letters;
        } else {
            out += text.substr(0, length);
        }
        text.remove_prefix(length);
    }
    return out;
}

std::vector<std::string> foldedTokens(std::string_view text) {
    std::vector<std::string> tokens;
    const std::string folded = foldWords(text);
    for (std::size_t at = 0; at < folded.size();) {
        const std::size_t end = std::min(folded.find(' ', at), folded.size());
        tokens.push_back(folded.substr(at, end - at));
        at = end + 1;
    }
    return tokens;
}

bool hasPhrase(std::string_view folded, std::string_view phrase, bool isOpen) {
    for (std::size_t at = folded.find(phrase); at != std::string_view::npos;
         at = folded.find(phrase, at + 1)) {
        const std::size_t end = at + phrase.size();
        if ((at == 0 || folded[at - 1] == ' ')
            && (isOpen || end == folded.size() || folded[end] == ' ')) {
            return true;
        }
    }
    return false;
}

bool isWithinEdits(std::string_view a, std::string_view b, std::size_t most) {
    if (a.size() > b.size() + most || b.size() > a.size() + most) {
        return false;
    }
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        std::size_t fewest = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
            fewest = std::min(fewest, row[j]);
        }
        if (fewest > most) {
            return false;
        }
    }
    return row.back() <= most;
}

} // namespace fiscarel
