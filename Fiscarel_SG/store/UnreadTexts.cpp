#include "Fiscarel_SG/store/UnreadTexts.h"

namespace fiscarel {

using namespace taxcore;

namespace {

/// "debts[0].interest" with the identity of the debt in place of its index; of a field that there
/// is not, as it is.
std::string byIdentity(const TaxCase& taxCase, const std::string& path) {
    return lastingPath(taxCase, path).value_or(path);
}

/// And back; absent when the item is no longer there. A record that is made only when somebody
/// fills it in may be absent.
std::optional<std::string> byIndex(const TaxCase& taxCase, const std::string& path) {
    return path.find('[') == std::string::npos ? path : countedPath(taxCase, path);
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
