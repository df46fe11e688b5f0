#include "Fiscarel_SG/cloud/CommonStates.h"

#include "Fiscarel_SG/cloud/Sealing.h"
#include "TaxCore/base/JsonReader.h"
#include "TaxCore/base/JsonWriter.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

TAXCORE_RECORD(CommonStates::Kept, slot, id, sha256, version, ifState);

namespace {

/// What the keyring holds of the common states.
struct KeptStates {
    std::vector<CommonStates::Kept> states;
};
TAXCORE_RECORD(KeptStates, states);

} // namespace

CommonStates::Loaded CommonStates::load(const CloudFolder& folder,
                                        const std::optional<std::string>& lastState,
                                        const std::string& stateHash) {
    Loaded loaded;
    const auto kept = taxcore::fromJson<KeptStates>(lastState.value_or("{}"));
    if (!kept) {
        return loaded;
    }
    for (Kept one : kept->states) {
        if (const auto condition = std::exchange(one.ifState, std::nullopt)) {
            loaded.isDecided = true;
            if (*condition != stateHash) {
                continue;
            }
        }
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
    if (loaded_.isDecided) {
        keepInKeyring([] {}); // before our state changes again
    }
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
        if (std::ranges::find(loaded_.kept, slot, &Kept::slot) == loaded_.kept.end()
            && !(expected_ && expected_->slot == slot)) {
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
    const auto add = [this, shared, done](Kept kept) {
        loaded_.kept.push_back(std::move(kept));
        loaded_.states.push_back(shared);
        keepInKeyring([done] { done({}); });
    };
    if (expected_ && expected_->id == shared->id) {
        Kept kept = *std::exchange(expected_, std::nullopt);
        kept.ifState.reset();
        add(std::move(kept));
        return;
    }
    const int slot = freeSlot();
    write(shared, slot,
          [id = shared->id, slot, version, add, done](const FileResult<void>& written,
                                                      std::string hash) mutable {
              written ? add({slot, id, std::move(hash), std::to_string(version)}) : done(written);
          });
}

void CommonStates::expect(const SharedStatePointer& shared, std::int64_t version,
                          const PersistedState& ours, std::function<void(FileResult<void>)> done) {
    expected_.reset();
    if (std::ranges::find(loaded_.kept, shared->id, &Kept::id) != loaded_.kept.end()) {
        done({});
        return;
    }
    const int slot = freeSlot();
    write(shared, slot,
          [this, id = shared->id, slot, version, ifState = sha256(encodeState(ours)),
           done = std::move(done)](const FileResult<void>& written, std::string hash) {
              if (!written) {
                  done(written);
                  return;
              }
              expected_ = Kept{slot, id, std::move(hash), std::to_string(version), ifState};
              keepInKeyring([done] { done({}); });
          });
}

void CommonStates::write(const SharedStatePointer& shared, int slot,
                         std::function<void(FileResult<void>, std::string)> done) {
    struct Outcome {
        FileResult<void> written;
        std::string sha256;
    };
    writer_.post<Outcome>(
        [folder = folder_, shared, slot] {
            const std::string text = SharedState::encode(shared->lineage, shared->state);
            return Outcome{folder.writeState(slot, text), sha256(text)};
        },
        life_.guard([done = std::move(done)](const Outcome& outcome) {
            done(outcome.written, outcome.sha256);
        }));
}

void CommonStates::forget() {
    loaded_ = {};
    expected_.reset();
    confirmed_.clear();
    keepInKeyring([] {});
}

void CommonStates::keepInKeyring(std::function<void()> done) {
    KeptStates kept{loaded_.kept};
    if (expected_) {
        kept.states.push_back(*expected_);
    }
    memory_.keepLastState(taxcore::toJson(kept, taxcore::JsonStyle::compact),
                          life_.guard(std::move(done)));
}

} // namespace fiscarel
