#include "Fiscarel_SG/cloud/DocumentExchange.h"

#include "Fiscarel_SG/cloud/ReceiptTidying.h"
#include "Fiscarel_SG/cloud/Sealing.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

namespace {

constexpr std::string_view receiptsBlock = "recibos";
constexpr int mostAttempts = 8; ///< of one run, while others write the map
constexpr std::size_t sealedExtra = CloudCrypto::nonceSize + CloudCrypto::tagSize;

std::string nameOf(const Uuid& document) { return "recibo:" + document.toString(); }

std::string_view view(const QByteArray& bytes) {
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

std::span<const std::uint8_t> octets(std::string_view bytes) {
    return {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
}

const std::string& tooLarge() {
    static const std::string sentence =
        CloudAPI::Failure{.code = "demasiado_grande"}.errorDescription();
    return sentence;
}

} // namespace

void DocumentExchange::run(const SharedStatePointer& common, Done done) {
    done_ = std::move(done);
    common_ = common;
    attempts_ = 0;
    full_.reset();
    hasMadeRoom_ = false;
    hasMoved_ = false;
    isInterrupted_ = false;
    list();
}

void DocumentExchange::abandon() {
    life_ = Lifeline();
    done_ = nullptr;
    refused_.clear();
    unreadable_.clear();
    sealed_.reset();
}

void DocumentExchange::finish(tl::expected<void, CloudTrouble> outcome) {
    toSend_.clear();
    toFetch_.clear();
    toBringBack_.clear();
    toRemove_.clear();
    const Done done = std::exchange(done_, nullptr);
    done(std::move(outcome));
}

// What there is.

void DocumentExchange::list() {
    if (common_ == nullptr) { // the cloud has no state yet, and so no documents
        finish({});
        return;
    }
    context_.api.receipts(
        context_.token,
        life_.guard(
            [this](const tl::expected<std::vector<CloudAPI::Receipt>, CloudAPI::Failure>& listed) {
                if (!listed) {
                    finish(tl::unexpected(CloudTrouble::of(listed.error())));
                    return;
                }
                onServer_.clear();
                for (const CloudAPI::Receipt& receipt : *listed) {
                    onServer_.insert(receipt.id);
                }
                readMap();
            }));
}

void DocumentExchange::readMap() {
    using Answer = tl::expected<std::optional<CloudAPI::Block>, CloudAPI::Failure>;
    using Opened = tl::expected<ReceiptMap, std::string>;
    context_.api.block(
        std::string(receiptsBlock), context_.token, life_.guard([this](const Answer& block) {
            if (!block) {
                finish(tl::unexpected(CloudTrouble::of(block.error())));
                return;
            }
            mapVersion_ = *block ? (*block)->version : 0;
            if (!*block) {
                mapRead(ReceiptMap{});
                return;
            }
            context_.worker.post<Opened>(
                [content = (*block)->content, key = context_.dataKey]() -> Opened {
                    const auto plain = openBlock(content, *key, receiptsBlock);
                    auto map = plain ? decodeReceipts(*plain) : std::nullopt;
                    if (!map) {
                        return tl::unexpected(
                            std::string(CloudCrypto::message(CloudCrypto::Failure::damaged)));
                    }
                    return std::move(*map);
                },
                life_.guard([this](Opened map) { mapRead(std::move(map)); }));
        }));
}

void DocumentExchange::mapRead(tl::expected<ReceiptMap, std::string> map) {
    mapChanged_ = false;
    if (map) {
        map_ = std::move(*map);
    } else if (context_.record.startsAnew) {
        map_ = {};
        mapChanged_ = true;
    } else {
        finish(tl::unexpected(CloudTrouble::stopped(std::move(map).error())));
        return;
    }
    for (const ReceiptEntry& entry : context_.record.uploaded) {
        if (onServer_.contains(entry.receipt) && stored(entry.document) == nullptr) {
            std::erase_if(map_.receipts,
                          [&](const ReceiptEntry& old) { return old.document == entry.document; });
            map_.receipts.push_back(entry);
            mapChanged_ = true;
        }
    }
    plan();
    next();
}

/// The entry of a document whose file lies on the server; null: there is none.
const ReceiptEntry* DocumentExchange::stored(const Uuid& document) const {
    const ReceiptEntry* const entry = map_.of(document);
    return entry != nullptr && onServer_.contains(entry->receipt) ? entry : nullptr;
}

/// Whether a document is there, here and in the cloud.
bool DocumentExchange::isWanted(const Uuid& document) const {
    return isIn(context_.store.documents(), document) && isIn(common_->state.documents, document);
}

void DocumentExchange::leaveOut(const StoredDocument& document, std::string reason) {
    context_.status.leftOut.push_back({document.title, std::move(reason)});
}

void DocumentExchange::plan() {
    toSend_.clear();
    toFetch_.clear();
    toBringBack_.clear();
    toRemove_.clear();
    isTidiedUp_ = false;
    context_.status.leftOut.clear();
    for (const StoredDocument& document : context_.store.documents()) {
        if (isIn(common_->state.documents, document.id)) {
            planOne(document);
        }
    }
}

void DocumentExchange::planOne(const StoredDocument& document) {
    const auto file = context_.store.fileOf(document);
    const ReceiptEntry* const entry = stored(document.id);
    if (entry == nullptr && file) {
        std::error_code ignored;
        const auto size = std::filesystem::file_size(*file, ignored);
        if (const auto refused = refused_.find(document.id); refused != refused_.end()) {
            leaveOut(document, refused->second);
        } else if (!ignored && size + sealedExtra > mostBytes) {
            leaveOut(document, tooLarge());
        } else {
            toSend_.push_back(document);
        }
    } else if (entry != nullptr && !file && context_.persistence->fileOf(document)) {
        if (unreadable_.contains(entry->receipt)) {
            leaveOut(document, std::string(CloudCrypto::message(CloudCrypto::Failure::damaged)));
        } else {
            toFetch_.push_back(document);
        }
    } else if (entry == nullptr && !file && isKept(document.id)
               && context_.persistence->fileOf(document)) {
        toBringBack_.push_back(document);
    }
}

bool DocumentExchange::isKept(const Uuid& document) const {
    const auto& kept = context_.record.kept;
    return std::ranges::find(kept, document, &CloudRecord::KeptFile::document) != kept.end();
}

void DocumentExchange::tellProgress() {
    CloudStatus& status = context_.status;
    status.documentsToSend = toSend_.size();
    status.documentsToFetch = toFetch_.size();
    status.activity = !toSend_.empty()    ? CloudStatus::Activity::sending
                      : !toFetch_.empty() ? CloudStatus::Activity::fetching
                                          : CloudStatus::Activity::comparing;
    context_.tell();
}

/// One thing after the other: files up, the map that names them, files down, files away.
void DocumentExchange::next() {
    constexpr std::size_t mostUnnamed = 10;
    if (hasMoved_ && givesWay_()) {
        isInterrupted_ = true;
    }
    if (isInterrupted_) {
        toSend_.clear();
        toFetch_.clear();
        toBringBack_.clear();
        isTidiedUp_ = true;
    } else {
        tellProgress();
    }
    if (!toBringBack_.empty()) {
        const StoredDocument document = std::move(toBringBack_.front());
        toBringBack_.pop_front();
        isWanted(document.id) ? bringBack(document) : next();
    } else if (mapChanged_ && (toSend_.empty() || context_.record.uploaded.size() >= mostUnnamed)) {
        saveMap();
    } else if (!toSend_.empty()) {
        const StoredDocument document = std::move(toSend_.front());
        toSend_.pop_front();
        isWanted(document.id) ? send(document) : next();
    } else if (!toFetch_.empty()) {
        const StoredDocument document = std::move(toFetch_.front());
        toFetch_.pop_front();
        isWanted(document.id) && stored(document.id) != nullptr ? fetch(document) : next();
    } else if (!std::exchange(isTidiedUp_, true)) {
        tidyUp();
        next();
    } else if (!toRemove_.empty()) {
        removeNext();
    } else if (std::exchange(hasMadeRoom_, false) && !isInterrupted_) {
        full_.reset();
        list();
    } else {
        if (!isInterrupted_ && std::exchange(context_.record.startsAnew, false)) {
            context_.keepRecord();
        }
        finish(full_ ? tl::expected<void, CloudTrouble>(tl::unexpected(*full_))
                     : tl::expected<void, CloudTrouble>());
    }
}

// Up.

void DocumentExchange::send(const StoredDocument& document) {
    if (sealed_ && sealed_->document == document.id) {
        upload(*sealed_);
        return;
    }
    const auto file = context_.store.fileOf(document);
    if (!file) {
        next();
        return;
    }
    context_.worker.post<Sealed>(
        [&files = context_.files, file = *file, id = document.id, key = context_.dataKey] {
            Sealed sealed{.document = id};
            const auto plain = files.read(file, mostBytes);
            if (!plain) {
                sealed.error = plain.error();
                return sealed;
            }
            const auto bytes = CloudCrypto::seal(octets(*plain), *key, nameOf(id));
            sealed.bytes = QByteArray(reinterpret_cast<const char*>(bytes.data()),
                                      static_cast<qsizetype>(bytes.size()));
            sealed.entry = {id, {}, static_cast<int>(plain->size()), sha256(*plain)};
            return sealed;
        },
        life_.guard([this, document](Sealed sealed) {
            if (sealed.error) {
                leaveOut(document, sealed.error->description());
                next();
                return;
            }
            sealed_ = std::move(sealed);
            upload(*sealed_);
        }));
}

void DocumentExchange::upload(const Sealed& sealed) {
    context_.api.uploadReceipt(
        sealed.bytes, context_.token,
        life_.guard([this,
                     sealed](const tl::expected<CloudAPI::Receipt, CloudAPI::Failure>& receipt) {
            receipt ? uploaded(sealed, *receipt) : notUploaded(sealed.document, receipt.error());
        }));
}

void DocumentExchange::uploaded(const Sealed& sealed, const CloudAPI::Receipt& receipt) {
    hasMoved_ = true;
    sealed_.reset();
    ReceiptEntry entry = sealed.entry;
    entry.receipt = receipt.id;
    onServer_.insert(receipt.id);
    const auto isOf = [&](const ReceiptEntry& old) { return old.document == entry.document; };
    std::erase_if(map_.receipts, isOf);
    std::erase_if(context_.record.uploaded, isOf);
    map_.receipts.push_back(entry);
    mapChanged_ = true;
    context_.record.uploaded.push_back(std::move(entry));
    context_.keepRecord();
    next();
}

void DocumentExchange::notUploaded(const Uuid& document, const CloudAPI::Failure& failure) {
    const bool isTooLarge = failure.code == "demasiado_grande" || failure.status == 413;
    if (!isTooLarge && failure.code != "sin_espacio") {
        finish(tl::unexpected(CloudTrouble::of(failure)));
        return;
    }
    sealed_.reset();
    const auto leave = [&](const Uuid& id, const std::string& reason) {
        const auto& all = context_.store.documents();
        const auto found = std::ranges::find(all, id, &StoredDocument::id);
        if (found != all.end()) {
            leaveOut(*found, reason);
        }
    };
    if (isTooLarge) {
        refused_[document] = tooLarge();
        leave(document, tooLarge());
    } else {
        full_ = CloudTrouble::of(failure);
        leave(document, failure.errorDescription());
        for (const StoredDocument& waiting : toSend_) {
            leaveOut(waiting, failure.errorDescription());
        }
        toSend_.clear();
    }
    next();
}

// Down.

/// A file that neither lies on the server nor in its place, but among those of deleted documents.
void DocumentExchange::bringBack(const StoredDocument& document) {
    context_.writer.post<FileResult<void>>(
        [folder = context_.folder, id = document.id,
         file = *context_.persistence->fileOf(document)] { return folder.bringBackFile(id, file); },
        life_.guard([this, document](const FileResult<void>& placed) {
            if (placed) {
                context_.store.documentFilesArrived();
                toSend_.push_back(document);
            } else {
                leaveOut(document, placed.error().description());
            }
            next();
        }));
}

void DocumentExchange::fetch(const StoredDocument& document) {
    const ReceiptEntry entry = *stored(document.id);
    context_.api.downloadReceipt(
        entry.receipt, context_.token,
        life_.guard(
            [this, document, entry](const tl::expected<QByteArray, CloudAPI::Failure>& sealed) {
                if (sealed) {
                    place(document, entry, *sealed);
                } else if (sealed.error().status == 404) {
                    next(); // gone meanwhile; who has the file sends it anew
                } else {
                    finish(tl::unexpected(CloudTrouble::of(sealed.error())));
                }
            }));
}

void DocumentExchange::place(const StoredDocument& document, const ReceiptEntry& entry,
                             const QByteArray& sealed) {
    using Placed = tl::expected<void, std::optional<FileError>>;
    context_.worker.post<Placed>(
        [&files = context_.files, sealed, entry, key = context_.dataKey,
         file = context_.persistence->fileOf(document)]() -> Placed {
            const auto plain =
                CloudCrypto::open(octets(view(sealed)), *key, nameOf(entry.document));
            const std::string_view bytes =
                plain
                    ? std::string_view(reinterpret_cast<const char*>(plain->data()), plain->size())
                    : std::string_view();
            if (!plain || sha256(bytes) != entry.sha256) {
                return tl::unexpected(std::optional<FileError>());
            }
            return files.write(*file, bytes).map_error([](const FileError& error) {
                return std::optional(error);
            });
        },
        life_.guard([this, document, entry](const Placed& placed) {
            hasMoved_ = true;
            if (placed) {
                context_.store.documentFilesArrived();
            } else if (placed.error()) {
                finish(tl::unexpected(CloudTrouble::stopped(placed.error()->description())));
                return;
            } else {
                unreadable_.insert(entry.receipt);
                leaveOut(document,
                         std::string(CloudCrypto::message(CloudCrypto::Failure::damaged)));
            }
            next();
        }));
}

// The map.

void DocumentExchange::saveMap() {
    std::ranges::sort(map_.receipts, {},
                      [](const auto& entry) { return entry.document.toString(); });
    context_.worker.post<std::string>(
        [map = map_, key = context_.dataKey] {
            return sealBlock(encodeReceipts(map), *key, receiptsBlock);
        },
        life_.guard([this](const std::string& content) {
            context_.api.saveBlock(
                std::string(receiptsBlock), {.version = mapVersion_, .content = content},
                context_.token,
                life_.guard([this](const tl::expected<std::int64_t, CloudAPI::Failure>& version) {
                    if (version) {
                        mapVersion_ = *version;
                        mapChanged_ = false;
                        if (!context_.record.uploaded.empty()) {
                            context_.record.uploaded.clear();
                            context_.keepRecord();
                        }
                        next();
                    } else if (version.error().code == "version" && ++attempts_ < mostAttempts) {
                        list();
                    } else {
                        finish(tl::unexpected(version.error().code == "version"
                                                  ? CloudTrouble{}
                                                  : CloudTrouble::of(version.error())));
                    }
                }));
        }));
}

// Away.

void DocumentExchange::tidyUp() {
    const ReceiptsToRemove removing =
        removeReceipts({map_, context_.record, onServer_,
                        [this](const Uuid& document) {
                            return isIn(context_.store.documents(), document)
                                   || isIn(common_->state.documents, document);
                        },
                        full_.has_value()},
                       context_.clock.now());
    toRemove_.assign(removing.receipts.begin(), removing.receipts.end());
    mapChanged_ = mapChanged_ || removing.changesMap;
    if (tidyUpKept() || removing.changesRecord) {
        context_.keepRecord();
    }
}

/// Files of deleted documents go as those on the server, or once they lie there for a document that
/// is back.
bool DocumentExchange::tidyUpKept() {
    const std::int64_t now = context_.clock.now().seconds;
    return std::erase_if(
               context_.record.kept,
               [&](const CloudRecord::KeptFile& kept) {
                   const bool isBack = isWanted(kept.document) && stored(kept.document) != nullptr;
                   if (!isBack && now - kept.since.seconds < orphanSeconds) {
                       return false;
                   }
                   context_.writer.post([folder = context_.folder,
                                         id = kept.document] { folder.removeKeptFile(id); },
                                        [] {});
                   return true;
               })
           > 0;
}

void DocumentExchange::removeNext() {
    const std::string receipt = std::move(toRemove_.front());
    toRemove_.pop_front();
    context_.api.deleteReceipt(
        receipt, context_.token,
        life_.guard([this, receipt](const tl::expected<void, CloudAPI::Failure>& gone) {
            if (gone || gone.error().status == 404) {
                removed(receipt);
                next();
            } else {
                finish(tl::unexpected(CloudTrouble::of(gone.error())));
            }
        }));
}

void DocumentExchange::removed(const std::string& receipt) {
    hasMadeRoom_ = full_.has_value();
    onServer_.erase(receipt);
    std::erase_if(context_.record.orphans,
                  [&](const CloudRecord::Orphan& orphan) { return orphan.receipt == receipt; });
    context_.keepRecord();
}

} // namespace fiscarel
