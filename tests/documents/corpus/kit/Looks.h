#pragma once

#include "tests/documents/corpus/kit/Random.h"

#include <QImage>

namespace corpus {

/// A page as a flatbed or feeder scanner gives it: at most 2° askew, grey paper, noise.
QImage scanned(const QImage& page, Random& random, bool colour);
/// A sheet on a table, as a telephone of 12 megapixels sees it.
QImage photographed(const QImage& page, Random& random);

} // namespace corpus
