#include "Fiscarel_SG/documents/rows/IbanMending.h"

#include "Fiscarel_SG/documents/text/FoldedText.h"
#include "TaxCore/base/Iban.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace fiscarel {

namespace {

constexpr std::size_t length = 21;

/// What a country may be taken for.
constexpr std::array<std::pair<std::string_view, std::string_view>, 8> countries{{{"CH", "CH"},
                                                                                  {"LI", "LI"},
                                                                                  {"L1", "LI"},
                                                                                  {"Ll", "LI"},
                                                                                  {"L|", "LI"},
                                                                                  {"GH", "CH"},
                                                                                  {"OH", "CH"},
                                                                                  {"C4", "CH"}}};

char digitMeant(char c) {
    constexpr std::string_view taken = "OoQDIl|SBZ";
    constexpr std::string_view meant = "0000111582";
    const std::size_t at = taken.find(c);
    return at == std::string_view::npos ? c : meant[at];
}

/// The number that begins with the word `first`, as taken; its words are up to `end`.
std::string joinedFrom(const Row& row, std::size_t first, std::size_t& end) {
    std::string joined;
    for (end = first; end < row.words.size() && joined.size() < length; ++end) {
        joined += row.words[end].text;
    }
    return joined;
}

/// The number meant, when the check digits prove it; empty otherwise.
std::string proven(const std::string& taken) {
    for (const auto& [seen, meant] : countries) {
        if (taken.size() != length || !std::string_view(taken).starts_with(seen)) {
            continue;
        }
        std::string number(meant);
        for (const char c : taken.substr(2)) {
            number += digitMeant(c);
        }
        return taxcore::ibanFault(number) ? std::string() : number;
    }
    return {};
}

/// Puts a row together anew, where it stands.
void rebuild(Row& row, bool isRecognised) {
    const double top = row.top;
    const double bottom = row.bottom;
    row = rowOfWords(std::move(row.words), isRecognised);
    row.top = top;
    row.bottom = bottom;
}

/// How many of its first words a row has of a number that another one ends with a part of; 0 when
/// it has none.
std::size_t wordsGoingOn(const Row& row, const Row& next) {
    std::string head;
    for (std::size_t at = row.words.size(); at-- > 0 && head.size() < length;) {
        const std::string& word = row.words[at].text;
        head.insert(0, word.starts_with('(') ? word.substr(1) : word);
        if (!head.starts_with("CH") && !head.starts_with("LI")) {
            continue;
        }
        std::string taken = head;
        for (std::size_t end = 0; end < next.words.size() && taken.size() < length; ++end) {
            taken += next.words[end].text;
            while (taken.size() > length
                   && std::string_view(",.;)").find(taken.back()) != std::string_view::npos) {
                taken.pop_back();
            }
            if (taken.size() == length && !taxcore::ibanFault(taken)) {
                return end + 1;
            }
        }
        return 0;
    }
    return 0;
}

} // namespace

void joinIbans(PageRows& page) {
    for (std::size_t at = 0; at + 1 < page.rows.size(); ++at) {
        Row& row = page.rows[at];
        Row& next = page.rows[at + 1];
        const std::size_t count = wordsGoingOn(row, next);
        if (count == 0) {
            continue;
        }
        for (std::size_t i = 0; i < count; ++i) {
            RowWord word = next.words[i];
            const double margin = row.words.back().place.right; // which full lines keep
            word.place = {margin, row.top, margin, row.bottom};
            row.words.push_back(std::move(word));
        }
        next.words.erase(next.words.begin(),
                         next.words.begin() + static_cast<std::ptrdiff_t>(count));
        rebuild(row, page.isRecognised);
        if (next.words.empty()) {
            page.rows.erase(page.rows.begin() + static_cast<std::ptrdiff_t>(at) + 1);
        } else {
            rebuild(next, page.isRecognised);
        }
    }
}

void mendIbans(Row& row) {
    bool isMended = false;
    for (std::size_t first = 0; first < row.words.size(); ++first) {
        std::size_t end = first;
        const std::string taken = joinedFrom(row, first, end);
        if (taken.size() != length || !taxcore::ibanFault(taken)) {
            continue;
        }
        const std::string number = proven(taken);
        std::size_t from = 0;
        for (std::size_t at = first; !number.empty() && at < end; ++at) {
            RowWord& word = row.words[at];
            word.text = number.substr(from, word.text.size());
            word.folded = foldWords(word.text);
            from += word.text.size();
            isMended = true;
        }
    }
    if (isMended) {
        rebuild(row, true);
    }
}

} // namespace fiscarel
