#include "Fiscarel_SG/store/ArchiveParts.h"
#include "Fiscarel_SG/store/DocumentFiles.h"
#include "Fiscarel_SG/store/Zip.h"
#include "TaxCore/base/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <set>
#include <utility>

namespace fiscarel {

using namespace archive;

namespace {

namespace fs = std::filesystem;

/// Whether a file's kind is packed by itself, so that packing it again only takes time.
ZipWriter::Packing packingOf(const std::string& fileName) {
    static constexpr std::array packed{".pdf", ".jpg",  ".jpeg", ".png",  ".heic", ".heif",
                                       ".gif", ".webp", ".zip",  ".docx", ".xlsx"};
    const std::string ending = taxcore::lowerAscii(fs::path(fileName).extension().string());
    return std::ranges::find(packed, ending) != packed.end() ? ZipWriter::Packing::stored
                                                             : ZipWriter::Packing::deflated;
}

/// The documents that can go into an archive.
struct Collected {
    std::vector<ArchiveDocument> documents;
    std::uint64_t bytes = 0;
    std::size_t missing = 0;
};

ArchiveResult<Collected> collect(FileSystem& files, const std::vector<ArchiveDocument>& documents) {
    Collected collected;
    std::set<std::string_view> seen;
    for (const ArchiveDocument& document : documents) {
        if (!isPlainFileName(document.fileName)) {
            ++collected.missing;
            continue;
        }
        if (!seen.insert(document.fileName).second) {
            continue;
        }
        const auto open = files.open(document.file);
        if (!open) {
            if (!open.error().isMissing()) {
                return fault(open.error());
            }
            ++collected.missing;
            continue;
        }
        if ((*open)->size() > maxDocumentSize) {
            return fault(FileError{EFBIG, document.file});
        }
        collected.bytes += (*open)->size();
        collected.documents.push_back(document);
    }
    if (auto problem = tooMuch(collected.documents.size(), collected.bytes)) {
        return fault(std::move(*problem));
    }
    return collected;
}

/// What went wrong with writing, other than with a file.
ArchiveFault writingFault(const ZipFault& problem) {
    if (problem.kind == ZipFault::Kind::stopped) {
        return stopped().value();
    }
    return {.message = problem.file ? problem.file->description()
                                    : "Das Archiv liess sich nicht zusammenstellen."};
}

ZipResult<void> fill(ZipWriter& zip, std::string_view encoded, const Collected& collected) {
    auto added = zip.add(std::string(stateEntry), encoded, ZipWriter::Packing::deflated);
    for (const ArchiveDocument& document : collected.documents) {
        if (!added) {
            break;
        }
        added = zip.add(std::string(documentsPrefix) + document.fileName, document.file,
                        packingOf(document.fileName));
    }
    return added;
}

} // namespace

ArchiveResult<ArchiveReport> writeArchive(FileSystem& files, const fs::path& target,
                                          std::string_view encoded,
                                          const std::vector<ArchiveDocument>& documents,
                                          const ArchiveProgress& progress) {
    if (encoded.size() > taxcore::maxJsonSize) {
        return fault("Die Daten sind grösser als " + megabytes(taxcore::maxJsonSize) + ".");
    }
    const auto collected = collect(files, documents);
    if (!collected) {
        return tl::unexpected(collected.error());
    }
    const auto draft = files.draft(target);
    if (!draft) {
        return fault(draft.error());
    }
    ZipWriter zip(files, **draft);
    const std::uint64_t total = collected->bytes + encoded.size();
    const auto written = fill(zip, encoded, *collected).and_then([&] {
        return zip.write([&](std::uint64_t done) {
            return !progress || progress(std::min(encoded.size() + done, total), total);
        });
    });
    if (!written) {
        return tl::unexpected(writingFault(written.error()));
    }
    if (auto placed = (*draft)->place(IfTaken::replace); !placed) {
        return fault(placed.error());
    }
    return ArchiveReport{.documents = collected->documents.size(), .missing = collected->missing};
}

} // namespace fiscarel
