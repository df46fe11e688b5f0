#pragma once

#include "reader/PageReader.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace fiscarel::reader {

/// Which page is read next. The last page comes first, since the data of a tax statement stands
/// there; when it holds part of a message, its neighbours follow. Once a statement that is the
/// whole document has all of its data, no further page is searched for barcodes.
class WorkList {
  public:
    explicit WorkList(std::vector<PageTask> tasks = {});

    /// The next page, none when all are taken.
    std::optional<PageTask> next();
    /// Takes note of what a page holds.
    void add(const PageFound& found);

  private:
    struct Message {
        std::set<int> parts;
        std::optional<int> count;

        bool isComplete() const { return count && static_cast<int>(parts.size()) >= *count; }
    };

    std::map<int, PageTask> open_; ///< by page
    int lastPage_ = 0;
    bool isFirst_ = true;
    bool isStatement_ = false; ///< the last page's own barcode says that it is page n of n
    bool hasEverything_ = false;
    std::map<std::string, Message> messages_;
};

} // namespace fiscarel::reader
