#pragma once

#include "tests/documents/corpus/kit/Truth.h"
#include "tests/documents/corpus/measure/Answer.h"

#include <QMap>
#include <QStringList>
#include <array>

namespace corpus {

/// How well documents were read; sums over documents with `+=`.
struct Score {
    int files = 0;
    int pages = 0;
    int unanswered = 0; ///< no answer, or not in time
    int wanted = 0;     ///< amounts of the truth
    int right = 0;
    std::array<int, 3> wrong{};   ///< another value than the truth's, by `Trust`
    std::array<int, 3> phantom{}; ///< for a field or record that the truth lacks, by `Trust`
    int textsWanted = 0;          ///< texts and dates
    int textsRight = 0;
    int kindRight = 0;    ///< the proposed kind, else the literal one
    int literalRight = 0; ///< the literal kind alone
    double seconds = 0;
    QMap<QString, std::pair<int, int>> byWitness; ///< right and not right amounts
    QStringList misses;                           ///< one line each

    Score& operator+=(const Score& other);
};

/// Compares an answer (absent: none came) with the truth.
Score scored(const Truth& truth, const std::optional<Answer>& answer);

} // namespace corpus
