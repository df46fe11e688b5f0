#pragma once

#include "reader/Picture.h"

#include <vector>

namespace fiscarel::reader {

/// Leaves the words of a text layer that can be seen on the page as it is drawn: white,
/// transparent, covered, clipped and minute ones are not, nor does anybody know which of two
/// amounts is seen that stand over each other. Text under the picture of a scan can be seen. The
/// picture must not be null.
void eraseUnseen(const Picture& picture, std::vector<PageWord>& words);

} // namespace fiscarel::reader
