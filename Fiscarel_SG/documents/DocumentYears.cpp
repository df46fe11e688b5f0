#include "Fiscarel_SG/documents/DocumentYears.h"

#include "Fiscarel_SG/documents/Likeness.h"

#include <algorithm>
#include <map>

namespace fiscarel {

namespace {

using Kind = StoredDocument::Kind;

bool changesIssuer(Kind kind) { return kind == Kind::arztrechnung || kind == Kind::weiterbildung; }

std::string issuerOf(const StoredDocument& document) { return document.issuer.value_or(""); }

/// Takes the first of `there` that fits.
template <class Fits>
bool takeFirst(std::vector<const StoredDocument*>& there, const Fits& fits) {
    const auto found = std::ranges::find_if(there, [&](const auto* one) { return fits(*one); });
    if (found == there.end()) {
        return false;
    }
    there.erase(found);
    return true;
}

} // namespace

std::optional<int> otherYear(const ScanResult& scan, int year) {
    std::map<int, int> counts;
    for (const ProposedRecord& record : scan.records) {
        if (record.year) {
            ++counts[*record.year];
        }
    }
    if (counts.empty() || counts.contains(year)) {
        return std::nullopt;
    }
    return std::ranges::max_element(counts, {}, [](const auto& count) { return count.second; })
        ->first;
}

std::vector<MissingDocument> missingSinceYearBefore(const std::vector<StoredDocument>& documents,
                                                    int year) {
    std::vector<const StoredDocument*> before;
    std::vector<const StoredDocument*> there;
    for (const StoredDocument& document : documents) {
        if (document.year == year) {
            there.push_back(&document);
        } else if (document.year == year - 1 && document.kind != Kind::anderes) {
            before.push_back(&document);
        }
    }
    std::ranges::stable_sort(before, {}, &StoredDocument::kind);
    // Those of the same issuer first, so that none of them is used up by another.
    std::erase_if(before, [&](const StoredDocument* old) {
        return takeFirst(there, [&](const StoredDocument& now) {
            return now.kind == old->kind && alike(issuerOf(now), issuerOf(*old));
        });
    });
    std::vector<MissingDocument> missing;
    for (const StoredDocument* const old : before) {
        const bool isCovered =
            changesIssuer(old->kind)
                ? std::ranges::any_of(documents,
                                      [&](const StoredDocument& now) {
                                          return now.year == year && now.kind == old->kind;
                                      })
                      || std::ranges::find(missing, old->kind, &MissingDocument::kind)
                             != missing.end()
                : takeFirst(there, [&](const StoredDocument& now) {
                      return now.kind == old->kind
                             && (issuerOf(now).empty() || issuerOf(*old).empty());
                  });
        if (!isCovered) {
            missing.push_back({old->kind, issuerOf(*old), old->title});
        }
    }
    return missing;
}

} // namespace fiscarel
