#pragma once

#include "Fiscarel_SG/cloud/CloudContext.h"
#include "Fiscarel_SG/cloud/SharedState.h"

#include <QByteArray>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace fiscarel {

/// Brings the files of documents up and down, one at a time, and in time takes away those of
/// documents that are gone. Works on the documents that the cloud's state has: a file never goes up
/// before its document, nor away while any state needs it. What was done is known after a restart.
class DocumentExchange {
  public:
    using Done = std::function<void(tl::expected<void, CloudTrouble>)>;

    /// Largest file the server takes, bytes as sealed.
    static constexpr std::uint64_t mostBytes = std::uint64_t{25} << 20U;
    /// The context must outlive it. Between two files it ends early when it is to give way, as to
    /// entries that wait to be sent.
    DocumentExchange(CloudContext& context, std::function<bool()> givesWay)
        : context_(context), givesWay_(std::move(givesWay)) {}

    /// `common` is the state in the cloud. One at a time.
    void run(const SharedStatePointer& common, Done done);
    /// Ends a run in its midst, without calling `done`; nothing is known any more.
    void abandon();

  private:
    struct Sealed {
        Uuid document;
        QByteArray bytes;
        ReceiptEntry entry; ///< without the receipt
        std::optional<FileError> error;
    };

    void finish(tl::expected<void, CloudTrouble> outcome);
    void list();
    void readMap();
    void mapRead(tl::expected<ReceiptMap, std::string> map);
    void plan();
    void planOne(const StoredDocument& document);
    void leaveOut(const StoredDocument& document, std::string reason);
    const ReceiptEntry* stored(const Uuid& document) const;
    bool isWanted(const Uuid& document) const;
    void tellProgress();
    void next();

    void send(const StoredDocument& document);
    void upload(const Sealed& sealed);
    void uploaded(const Sealed& sealed, const CloudAPI::Receipt& receipt);
    void notUploaded(const Uuid& document, const CloudAPI::Failure& failure);

    bool isKept(const Uuid& document) const;
    void bringBack(const StoredDocument& document);
    void fetch(const StoredDocument& document);
    void place(const StoredDocument& document, const ReceiptEntry& entry, const QByteArray& sealed);

    void saveMap();
    void tidyUp();
    bool tidyUpKept();
    void removeNext();
    void removed(const std::string& receipt);

    CloudContext& context_;
    const std::function<bool()> givesWay_;
    Done done_;
    SharedStatePointer common_;
    std::set<std::string> onServer_;
    ReceiptMap map_;
    std::int64_t mapVersion_ = 0;
    bool mapChanged_ = false;
    int attempts_ = 0;
    std::deque<StoredDocument> toSend_;
    std::deque<StoredDocument> toFetch_;
    std::deque<StoredDocument> toBringBack_; ///< from what is kept here
    std::deque<std::string> toRemove_;       ///< receipts
    bool isTidiedUp_ = false;
    bool hasMadeRoom_ = false;            ///< where there was none
    bool hasMoved_ = false;               ///< a file, in this run
    bool isInterrupted_ = false;          ///< this run ends early
    std::optional<CloudTrouble> full_;    ///< the server has no more room
    std::optional<Sealed> sealed_;        ///< whose answer is missing: sent again as it was
    std::map<Uuid, std::string> refused_; ///< documents that do not go up, with the reason
    std::set<std::string> unreadable_;    ///< receipts that do not open
    Lifeline life_;                       ///< of the run
};

} // namespace fiscarel
