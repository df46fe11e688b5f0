#include "Fiscarel_SG/store/UnreadTexts.h"

namespace fiscarel {

using namespace taxcore;

namespace {

/// A path in three: the list, what stands between the brackets, the rest. Lists do not lie within
/// lists. Absent when there are no brackets.
struct ItemPath {
    std::string list;
    std::string item;
    std::string rest;

    static std::optional<ItemPath> of(const std::string& path) {
        const std::size_t open = path.find('[');
        const std::size_t close = path.find(']', open);
        if (open == std::string::npos || close == std::string::npos) {
            return std::nullopt;
        }
        return ItemPath{path.substr(0, open), path.substr(open + 1, close - open - 1),
                        path.substr(close + 1)};
    }
    std::string with(const std::string& other) const { return list + "[" + other + "]" + rest; }
};

std::optional<std::string> identityOf(const TaxCase& taxCase, const std::string& list,
                                      const std::string& index) {
    return valueAt(taxCase, list + "[" + index + "].id");
}

/// "debts[0].interest" with the identity of the debt in place of its index.
std::string byIdentity(const TaxCase& taxCase, const std::string& path) {
    const auto parts = ItemPath::of(path);
    const auto identity = parts ? identityOf(taxCase, parts->list, parts->item) : std::nullopt;
    return identity ? parts->with(*identity) : path;
}

/// And back; absent when the item is no longer there.
std::optional<std::string> byIndex(const TaxCase& taxCase, const std::string& path) {
    const auto parts = ItemPath::of(path);
    if (!parts) {
        return path;
    }
    for (std::size_t i = 0;; ++i) {
        const std::string index = std::to_string(i);
        const auto identity = identityOf(taxCase, parts->list, index);
        if (!identity) {
            return std::nullopt;
        }
        if (*identity == parts->item) {
            return parts->with(index);
        }
    }
}

} // namespace

bool UnreadTexts::set(const TaxCase& taxCase, const std::string& path,
                      std::optional<UnreadText> text) {
    const Place place(taxCase.year, byIdentity(taxCase, path));
    const auto found = texts_.find(place);
    if (!text) {
        return texts_.erase(place) > 0;
    }
    if (found != texts_.end() && found->second.text == *text) {
        return false;
    }
    texts_[place].text = std::move(*text);
    return true;
}

const std::string* UnreadTexts::at(const TaxCase& taxCase, const std::string& path) const {
    const auto found = texts_.find({taxCase.year, byIdentity(taxCase, path)});
    return found != texts_.end() ? &found->second.text.text : nullptr;
}

bool UnreadTexts::show(const TaxCase& taxCase,
                       const std::function<bool(const std::string& path)>& isThere) {
    bool changed = false;
    for (auto& [place, kept] : texts_) {
        if (place.first == taxCase.year) {
            const auto path = byIndex(taxCase, place.second);
            const bool now = path && isThere(*path);
            changed = changed || now != kept.isThere;
            kept.isThere = now;
        }
    }
    return changed;
}

void UnreadTexts::forget(int year) {
    std::erase_if(texts_, [&](const auto& text) { return text.first.first == year; });
}

std::vector<Notice> UnreadTexts::notices(const TaxCase& taxCase) const {
    std::vector<Notice> notices;
    for (const auto& [place, kept] : texts_) {
        if (place.first != taxCase.year || !kept.isThere) {
            continue;
        }
        if (const auto path = byIndex(taxCase, place.second)) {
            Notice notice = kept.text.problem;
            notice.id = "unlesbar-" + *path;
            notice.path = *path;
            notices.push_back(std::move(notice));
        }
    }
    return notices;
}

std::vector<UnreadTexts::Place> UnreadTexts::places(const Cases& cases) const {
    std::vector<Place> places;
    for (const auto& [year, taxCase] : cases) {
        for (const Notice& notice : notices(taxCase)) {
            places.emplace_back(year, notice.path.value_or(""));
        }
    }
    return places;
}

} // namespace fiscarel
