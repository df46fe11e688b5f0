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

std::optional<LabelPlace> findMeaning(const Row& row, const Meaning& meaning, bool isRecognised) {
    std::optional<LabelPlace> whole;
    for (const Concept meant : meaning) {
        const auto place = findLabel(row, wordsFor(meant), isRecognised);
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
