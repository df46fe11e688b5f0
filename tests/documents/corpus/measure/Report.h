#pragma once

#include "tests/documents/corpus/measure/Score.h"

namespace corpus {

/// A measured document.
struct Measured {
    QString file;
    Truth truth;
    Score score;
};

/// The table per kind, layout, language and look, the totals beside their aims.
QString report(const std::vector<Measured>& documents);
/// Every miss on a line of its own, after its file.
QString failures(const std::vector<Measured>& documents);

} // namespace corpus
