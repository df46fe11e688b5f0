#include "Fiscarel_SG/cloud/CloudRecord.h"

#include "TaxCore/base/JsonReader.h"
#include "TaxCore/base/JsonWriter.h"

#include <algorithm>

namespace fiscarel {

const ReceiptEntry* ReceiptMap::of(const Uuid& document) const {
    const auto found = std::ranges::find(receipts, document, &ReceiptEntry::document);
    return found == receipts.end() ? nullptr : &*found;
}

std::string encodeReceipts(const ReceiptMap& map) {
    return taxcore::toJson(map, taxcore::JsonStyle::compact);
}

std::optional<ReceiptMap> decodeReceipts(std::string_view json) {
    auto map = taxcore::fromJson<ReceiptMap>(json);
    return map && map->version == ReceiptMap{}.version ? std::optional(std::move(*map))
                                                       : std::nullopt;
}

std::filesystem::path CloudFolder::stateFile(int slot) const {
    return folder_
           / (slot == 0 ? std::string("basis.json")
                        : "basis-" + std::to_string(slot + 1) + ".json");
}

CloudRecord CloudFolder::readRecord() const {
    const auto bytes = files_.read(recordFile(), taxcore::maxJsonSize);
    if (!bytes) {
        return {};
    }
    return taxcore::fromJson<CloudRecord>(*bytes, taxcore::JsonGaps::filled)
        .value_or(CloudRecord{});
}

FileResult<void> CloudFolder::write(const CloudRecord& record) const {
    return files_.makeFolder(folder_).and_then(
        [&] { return files_.write(recordFile(), taxcore::toJson(record)); });
}

std::optional<std::string> CloudFolder::readState(int slot) const {
    auto text = files_.read(stateFile(slot), taxcore::maxJsonSize);
    return text ? std::optional(std::move(*text)) : std::nullopt;
}

FileResult<void> CloudFolder::writeState(int slot, std::string_view text) const {
    return files_.makeFolder(folder_).and_then([&] { return files_.write(stateFile(slot), text); });
}

} // namespace fiscarel
