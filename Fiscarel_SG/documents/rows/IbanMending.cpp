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

} // namespace

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
        const double top = row.top;
        const double bottom = row.bottom;
        row = rowOfWords(std::move(row.words), true);
        row.top = top;
        row.bottom = bottom;
    }
}

} // namespace fiscarel
