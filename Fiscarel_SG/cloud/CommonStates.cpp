#include "Fiscarel_SG/cloud/CommonStates.h"

#include "Fiscarel_SG/cloud/Sealing.h"
#include "TaxCore/base/JsonReader.h"
#include "TaxCore/base/JsonWriter.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

TAXCORE_RECORD(CommonStates::Kept, slot, id, sha256, version);

namespace {

/// What the keyring holds of the common states.
struct KeptStates {
    std::vector<CommonStates::Kept> states;
};
TAXCORE_RECORD(KeptStates, states);

} // namespace

CommonStates::Loaded CommonStates::load(const CloudFolder& folder,
                                        const std::optional<std::string>& lastState) {
    Loaded loaded;
    const auto kept = taxcore::fromJson<KeptStates>(lastState.value_or("{}"));
    if (!kept) {
        return loaded;
    }
    for (const Kept& one : kept->states) {
        const auto text = folder.readState(one.slot);
        const bool isNumber =
            !one.version.empty() && one.version.size() < 18
            && std::ranges::all_of(one.version, [](char c) { return c >= '0' && c <= '9'; });
        if (!text || !isNumber || sha256(*text) != one.sha256) {
            continue;
        }
        if (auto shared = SharedState::decode(*text, one.id)) {
            loaded.kept.push_back(one);
            loaded.states.push_back(std::make_shared<const SharedState>(std::move(*shared)));
        }
    }
    return loaded;
}

void CommonStates::adopt(Loaded loaded) {
    loaded_ = std::move(loaded);
    confirmed_ = loaded_.kept.empty() ? "" : loaded_.kept.front().id;
}

void CommonStates::drop(std::size_t index) {
    loaded_.kept.erase(loaded_.kept.begin() + static_cast<std::ptrdiff_t>(index));
    loaded_.states.erase(loaded_.states.begin() + static_cast<std::ptrdiff_t>(index));
}

void CommonStates::confirm(const std::string& id, std::int64_t version) {
    confirmed_ = id;
    for (std::size_t i = loaded_.kept.size(); i-- > 0;) {
        const Kept& one = loaded_.kept[i];
        if (one.id != confirmed_ && std::stoll(one.version) <= version) {
            drop(i);
        }
    }
}

/// Where the next one is written; the oldest of those that nobody has seen gives way.
int CommonStates::freeSlot() {
    for (int slot = 0; slot < CloudFolder::stateFiles; ++slot) {
        if (std::ranges::find(loaded_.kept, slot, &Kept::slot) == loaded_.kept.end()) {
            return slot;
        }
    }
    const std::size_t oldest = loaded_.kept.front().id == confirmed_ ? 1 : 0;
    const int slot = loaded_.kept[oldest].slot;
    drop(oldest);
    return slot;
}

void CommonStates::remember(const SharedStatePointer& shared, std::int64_t version,
                            std::function<void(FileResult<void>)> done) {
    if (std::ranges::find(loaded_.kept, shared->id, &Kept::id) != loaded_.kept.end()) {
        done({});
        return;
    }
    struct Outcome {
        FileResult<void> written;
        std::string sha256;
    };
    const int slot = freeSlot();
    writer_.post<Outcome>(
        [folder = folder_, shared, slot] {
            const std::string text = SharedState::encode(shared->lineage, shared->state);
            return Outcome{folder.writeState(slot, text), sha256(text)};
        },
        life_.guard(
            [this, shared, slot, version, done = std::move(done)](const Outcome& outcome) mutable {
                if (!outcome.written) {
                    done(outcome.written);
                    return;
                }
                loaded_.kept.push_back({slot, shared->id, outcome.sha256, std::to_string(version)});
                loaded_.states.push_back(shared);
                keepInKeyring([done = std::move(done)] { done({}); });
            }));
}

void CommonStates::forget() {
    loaded_ = {};
    confirmed_.clear();
    keepInKeyring([] {});
}

void CommonStates::keepInKeyring(std::function<void()> done) {
    memory_.keepLastState(taxcore::toJson(KeptStates{loaded_.kept}, taxcore::JsonStyle::compact),
                          life_.guard(std::move(done)));
}

} // namespace fiscarel
