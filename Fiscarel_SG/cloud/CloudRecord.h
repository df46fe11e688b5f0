#pragma once

#include "Fiscarel_SG/cloud/StateMerge.h"
#include "Fiscarel_SG/store/FileSystem.h"
#include "TaxCore/base/Moment.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// A document's file on the server.
struct ReceiptEntry {
    Uuid document;
    std::string receipt; ///< its id on the server
    int size = 0;        ///< bytes of the plain file
    std::string sha256;  ///< of the plain file

    bool operator==(const ReceiptEntry&) const = default;
};
TAXCORE_RECORD(ReceiptEntry, document, receipt, size, sha256);

/// The content of the block that tells which file on the server is which document's.
struct ReceiptMap {
    std::vector<ReceiptEntry> receipts;

    const ReceiptEntry* of(const Uuid& document) const;
    bool operator==(const ReceiptMap&) const = default;
};

/// JSON: documents' ids, each with receipt, size and hash.
std::string encodeReceipts(const ReceiptMap& map);
/// Absent for any other text.
std::optional<ReceiptMap> decodeReceipts(std::string_view json);

/// What a machine remembers of the encrypted backup from one run to the next, beside the common
/// state. Holds no secret and no content of the return except the conflicts' values.
struct CloudRecord {
    /// A file on the server that belongs to no document.
    struct Orphan {
        std::string receipt;
        Moment seen; ///< first
        bool operator==(const Orphan&) const = default;
    };

    /// A deleted document whose file is kept here, should the document come back.
    struct KeptFile {
        Uuid document;
        Moment since;
        bool operator==(const KeptFile&) const = default;
    };

    std::string email;
    std::string server;
    std::string wrappedKey;             ///< its SHA-256; empty: not known
    std::vector<ReceiptEntry> uploaded; ///< not in the map yet
    std::vector<Orphan> orphans;
    std::vector<KeptFile> kept;
    std::vector<MergeConflict> conflicts; ///< that the user has not seen to
    bool startsAnew = false;              ///< what does not open in the cloud may be written over

    bool operator==(const CloudRecord&) const = default;
};
TAXCORE_RECORD(CloudRecord::Orphan, receipt, seen);
TAXCORE_RECORD(CloudRecord::KeptFile, document, since);
TAXCORE_RECORD(CloudRecord, email, server, wrappedKey, uploaded, orphans, kept, conflicts,
               startsAnew);

/// The engine's own files in the data folder. Any thread may call, one at a time.
class CloudFolder {
  public:
    /// `files` must outlive it.
    CloudFolder(FileSystem& files, std::filesystem::path folder)
        : files_(files), folder_(std::move(folder)) {}

    /// How many common states there can be.
    static constexpr int stateFiles = 6;
    /// Of a document's file; larger ones never went to the cloud.
    static constexpr std::uint64_t mostKeptBytes = std::uint64_t{25} << 20U;

    std::filesystem::path recordFile() const { return folder_ / "abgleich.json"; }
    /// Where one of the last common states lies; `slot` counts from 0.
    std::filesystem::path stateFile(int slot) const;

    /// An empty record when there is none or it does not read.
    CloudRecord readRecord() const;
    FileResult<void> write(const CloudRecord& record) const;
    std::optional<std::string> readState(int slot) const;
    FileResult<void> writeState(int slot, std::string_view text) const;
    /// Copies a document's file among the kept ones, from there to where it was, and away.
    FileResult<void> keepFile(const std::filesystem::path& file, const Uuid& document) const;
    FileResult<void> bringBackFile(const Uuid& document, const std::filesystem::path& file) const;
    void removeKeptFile(const Uuid& document) const;

  private:
    std::filesystem::path keptFile(const Uuid& document) const {
        return folder_ / "Belege" / document.toString();
    }

    FileSystem& files_;
    const std::filesystem::path folder_;
};

} // namespace fiscarel
