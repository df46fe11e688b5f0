#include "Fiscarel_SG/cloud/CommonStates.h"

#include "Fiscarel_SG/cloud/Sealing.h"
#include "TaxCore/base/JsonReader.h"
#include "TaxCore/base/JsonWriter.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

TAXCORE_RECORD(CommonStates::Kept, slot, id, sha256);

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
        if (!text || sha256(*text) != one.sha256) {
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

void CommonStates::remember(const SharedStatePointer& shared,
                            std::function<void(FileResult<void>)> done) {
    if (std::ranges::find(loaded_.kept, shared->id, &Kept::id) != loaded_.kept.end()) {
        done({});
        return;
    }
    const auto stays = std::ranges::find(loaded_.kept, confirmed_, &Kept::id);
    const int slot = stays != loaded_.kept.end() && stays->slot == 0 ? 1 : 0;
    struct Outcome {
        FileResult<void> written;
        std::string sha256;
    };
    writer_.post<Outcome>(
        [folder = folder_, shared, slot] {
            const std::string text = SharedState::encode(shared->lineage, shared->state);
            return Outcome{folder.writeState(slot, text), sha256(text)};
        },
        life_.guard([this, shared, slot, done = std::move(done)](const Outcome& outcome) mutable {
            for (std::size_t i = loaded_.kept.size(); i-- > 0;) {
                if (loaded_.kept[i].slot == slot || loaded_.kept[i].id != confirmed_) {
                    loaded_.kept.erase(loaded_.kept.begin() + static_cast<std::ptrdiff_t>(i));
                    loaded_.states.erase(loaded_.states.begin() + static_cast<std::ptrdiff_t>(i));
                }
            }
            if (!outcome.written) {
                done(outcome.written);
                return;
            }
            loaded_.kept.push_back({slot, shared->id, outcome.sha256});
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
