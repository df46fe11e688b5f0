#include "Fiscarel_SG/cloud/CloudContext.h"

#include <utility>

namespace fiscarel {

CloudTrouble CloudTrouble::of(const CloudAPI::Failure& failure) {
    if (failure.code == "red") {
        return {Kind::offline, {}};
    }
    if (failure.isSessionOver()) {
        return {Kind::sessionOver, failure.errorDescription()};
    }
    if (failure.status == 429 || failure.code == "zu_viele_versuche") {
        return {Kind::busy, {}};
    }
    // A server in trouble, or somebody else's answer in its place, as in networks that ask for a
    // sign-in of their own.
    const bool mayPass = failure.status >= 500 || failure.status < 400;
    return {mayPass && failure.code != "sin_espacio" ? Kind::offline : Kind::stopped,
            failure.errorDescription()};
}

void CloudContext::keepRecord(std::function<void(FileResult<void>)> done) {
    writer.post<FileResult<void>>(
        [folder = folder, record = record] { return folder.write(record); },
        life.guard([done = std::move(done)](FileResult<void> outcome) {
            if (done) {
                done(std::move(outcome));
            }
        }));
}

void CloudContext::forgetAccount() {
    record = CloudRecord{.kept = std::move(record.kept), .conflicts = std::move(record.conflicts)};
    common->forget();
    dataKey.reset();
    memory.keepDataKey(nullptr);
    status.devices.clear();
    status.deletionPlanned.reset();
    status.bytesUsed = 0;
    status.bytesAllowed = 0;
}

void CloudContext::keepFileOf(const StoredDocument& document) {
    const auto file = store.fileOf(document);
    if (!file || record.email.empty()) { // never signed in: nobody else has the document
        return;
    }
    std::erase_if(record.kept, [&](const auto& kept) { return kept.document == document.id; });
    record.kept.push_back({document.id, clock.now()});
    writer.post([to = folder, from = *file, id = document.id] { (void)to.keepFile(from, id); },
                [] {});
    keepRecord();
}

} // namespace fiscarel
