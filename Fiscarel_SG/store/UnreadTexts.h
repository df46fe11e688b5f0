#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/TaxResult.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace fiscarel {

/// What stands in a field and cannot be read, so that the case keeps its former value.
struct UnreadText {
    std::string text;        ///< as it was typed
    taxcore::Notice problem; ///< German; its id and path are set where it is asked for

    bool operator==(const UnreadText&) const = default;
};

/// The texts of a session that cannot be read, by year and field. One in an item of a list belongs
/// to the item: it follows it to another place, is gone with it and is back when it is.
class UnreadTexts {
  public:
    using Cases = std::map<int, taxcore::TaxCase>;
    /// A year and the path of a field.
    using Place = std::pair<int, std::string>;

    /// Keeps what stands in a field of a case; absent: it can be read. Whether that is new.
    bool set(const taxcore::TaxCase& taxCase, const std::string& path,
             std::optional<UnreadText> text);
    /// Null when what stands in the field can be read.
    const std::string* at(const taxcore::TaxCase& taxCase, const std::string& path) const;
    /// Tells which fields of a case there are to go to: texts in others wait unsaid. Whether that
    /// changed something.
    bool show(const taxcore::TaxCase& taxCase,
              const std::function<bool(const std::string& path)>& isThere);
    /// Drops those of a year.
    void forget(int year);

    /// What is to be said of a case, each with the path of its field.
    std::vector<taxcore::Notice> notices(const taxcore::TaxCase& taxCase) const;
    /// Where there are some to go to, by year.
    std::vector<Place> places(const Cases& cases) const;

  private:
    struct Kept {
        UnreadText text;
        bool isThere = true;
    };

    std::map<Place, Kept> texts_; ///< items of lists by their identity
};

} // namespace fiscarel
