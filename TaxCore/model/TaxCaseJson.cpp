#include "TaxCore/base/JsonReader.h"
#include "TaxCore/base/JsonWriter.h"
#include "TaxCore/base/RecordMerge.h"
#include "TaxCore/base/RecordPath.h"
#include "TaxCore/model/TaxCase.h"

namespace taxcore {

template tl::expected<TaxCase, JsonError> fromJson<TaxCase>(std::string_view, JsonGaps);
template tl::expected<void, JsonError> patchFromJson<TaxCase>(TaxCase&, std::string_view);
template std::string toJson<TaxCase>(const TaxCase&, JsonStyle);

std::vector<FieldChange> diff(const TaxCase& before, const TaxCase& after) {
    std::vector<FieldChange> changes;
    detail::diffValue(
        {}, before, after,
        [&](std::string path, std::optional<std::string> from, std::optional<std::string> to) {
            changes.push_back({std::move(path), std::move(from), std::move(to)});
        });
    return changes;
}

bool rebase(const TaxCase& from, const TaxCase& to, TaxCase& target) {
    TaxCase changed = target;
    const bool applies = detail::rebaseValue(from, to, changed);
    if (applies) {
        target = std::move(changed);
    }
    return applies;
}

std::optional<std::string> valueAt(const TaxCase& taxCase, std::string_view path) {
    return detail::valueAtPath(taxCase, path);
}

bool setValueAt(TaxCase& taxCase, std::string_view path, std::string_view text) {
    bool written = false;
    detail::walkPath(taxCase, path, detail::passItem,
                     [&](auto& value) { written = detail::assignText(value, text); });
    return written;
}

std::optional<std::string> lastingPath(const TaxCase& taxCase, std::string_view path) {
    return detail::renamedPath(
        taxCase, path, [](std::string_view token, std::size_t, const auto& record) {
            if constexpr (Identified<std::remove_cvref_t<decltype(record)>>) {
                return record.id.toString();
            } else {
                return std::string(token);
            }
        });
}

std::optional<std::string> countedPath(const TaxCase& taxCase, std::string_view path) {
    return detail::renamedPath(taxCase, path, [](std::string_view, std::size_t index, const auto&) {
        return std::to_string(index);
    });
}

} // namespace taxcore
