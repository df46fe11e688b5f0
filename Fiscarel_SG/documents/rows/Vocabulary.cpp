#include "Fiscarel_SG/documents/rows/Vocabulary.h"

#include "Fiscarel_SG/documents/rows/VocabularyWords.h"

#include <algorithm>
#include <array>

namespace fiscarel {

const Labels& wordsFor(Concept meant) {
    static const auto table = [] {
        std::array<Labels, static_cast<std::size_t>(Concept::last)> words;
        for (auto part : {moneyWords(), bankWords(), provisionWords(), billWords()}) {
            for (ConceptWords& row : part) {
                words[static_cast<std::size_t>(row.meant)] = std::move(row.words);
            }
        }
        return words;
    }();
    return table[static_cast<std::size_t>(meant)];
}

namespace {

/// The first label found outside the amounts: "113'029.20" speaks of no year 20.
std::optional<LabelPlace> findWords(const Row& row, const Labels& labels, bool isRecognised) {
    const auto isInAmount = [&](const LabelPlace& place) {
        return std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
            return amount.amount.hasDecimals && amount.first <= place.first
                   && place.last <= amount.last;
        });
    };
    for (const Label& label : labels) {
        auto place = findLabel(row, label, isRecognised);
        while (place && isInAmount(*place)) {
            place = findLabel(row, label, isRecognised, place->last + 1);
        }
        if (place) {
            return place;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<LabelPlace> findMeaning(const Row& row, const Meaning& meaning, bool isRecognised) {
    std::optional<LabelPlace> whole;
    for (const Concept meant : meaning) {
        const auto place = findWords(row, wordsFor(meant), isRecognised);
        if (!place) {
            return std::nullopt;
        }
        if (!whole) {
            whole = place;
        }
        whole->first = std::min(whole->first, place->first);
        whole->last = std::max(whole->last, place->last);
        whole->left = std::min(whole->left, place->left);
        whole->right = std::max(whole->right, place->right);
    }
    return whole;
}

bool namesAny(const Row& row, const std::vector<Concept>& concepts, bool isRecognised) {
    return std::ranges::any_of(concepts, [&](Concept meant) {
        return findLabel(row, wordsFor(meant), isRecognised).has_value();
    });
}

} // namespace fiscarel
