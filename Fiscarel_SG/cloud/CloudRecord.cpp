#include "Fiscarel_SG/cloud/CloudRecord.h"

#include "TaxCore/base/JsonReader.h"
#include "TaxCore/base/JsonWriter.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

namespace fiscarel {

using namespace Qt::Literals::StringLiterals;

const ReceiptEntry* ReceiptMap::of(const Uuid& document) const {
    const auto found = std::ranges::find(receipts, document, &ReceiptEntry::document);
    return found == receipts.end() ? nullptr : &*found;
}

std::string encodeReceipts(const ReceiptMap& map) {
    QJsonObject json;
    for (const ReceiptEntry& entry : map.receipts) {
        json.insert(QString::fromStdString(entry.document.toString()),
                    QJsonObject{{u"receipt"_s, QString::fromStdString(entry.receipt)},
                                {u"size"_s, entry.size},
                                {u"sha256"_s, QString::fromStdString(entry.sha256)}});
    }
    return QJsonDocument(json).toJson(QJsonDocument::Compact).toStdString();
}

std::optional<ReceiptMap> decodeReceipts(std::string_view json) {
    const QJsonDocument read =
        QJsonDocument::fromJson(QByteArray(json.data(), static_cast<qsizetype>(json.size())));
    if (!read.isObject()) {
        return std::nullopt;
    }
    ReceiptMap map;
    const QJsonObject entries = read.object();
    for (auto item = entries.begin(); item != entries.end(); ++item) {
        const auto document = Uuid::parse(item.key().toStdString());
        const QJsonObject entry = item.value().toObject();
        const QJsonValue receipt = entry[u"receipt"_s];
        const QJsonValue size = entry[u"size"_s];
        const QJsonValue hash = entry[u"sha256"_s];
        if (!document || !receipt.isString() || !size.isDouble() || !hash.isString()) {
            return std::nullopt;
        }
        map.receipts.push_back({*document, receipt.toString().toStdString(), size.toInt(),
                                hash.toString().toStdString()});
    }
    return map;
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

FileResult<void> CloudFolder::keepFile(const std::filesystem::path& file,
                                       const Uuid& document) const {
    removeKeptFile(document);
    const std::filesystem::path kept = keptFile(document);
    return files_.makeFolder(kept.parent_path()).and_then([&] {
        return files_.copy(file, kept, mostKeptBytes);
    });
}

FileResult<void> CloudFolder::bringBackFile(const Uuid& document,
                                            const std::filesystem::path& file) const {
    return files_.copy(keptFile(document), file, mostKeptBytes);
}

void CloudFolder::removeKeptFile(const Uuid& document) const {
    (void)files_.remove(keptFile(document)); // one that is gone is no matter
}

} // namespace fiscarel
