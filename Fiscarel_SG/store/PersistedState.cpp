#include "Fiscarel_SG/store/PersistedState.h"

#include "TaxCore/base/JsonReader.h"
#include "TaxCore/base/JsonWriter.h"

namespace fiscarel {

namespace {

/// The one key that every version of the format has.
struct VersionOnly {
    int version = 1;
};
TAXCORE_RECORD(VersionOnly, version);

StateFault newer(int version) {
    return {.isNewer = true,
            .message =
                "Die Daten haben die Version " + std::to_string(version)
                + " und stammen von einer neueren Ausgabe des Programms; diese Ausgabe liest "
                  "Version "
                + std::to_string(newestStateVersion) + "."};
}

} // namespace

std::string encodeState(const PersistedState& state) {
    // The texts of the documents are most of it; room for them spares copying while it grows.
    std::size_t texts = 0;
    for (const StoredDocument& document : state.documents) {
        texts += document.recognizedText ? document.recognizedText->size() : 0;
    }
    std::string json;
    json.reserve(texts + texts / 4 + 1'000 * state.documents.size());
    taxcore::JsonWriter(json, taxcore::JsonStyle::pretty).write(state);
    return json += '\n';
}

tl::expected<PersistedState, StateFault> decodeState(std::string_view json) {
    auto state = taxcore::fromJson<PersistedState>(json);
    if (state && state->version <= newestStateVersion) {
        return std::move(*state);
    }
    // A newer form may well not fit; then the version alone tells.
    const auto version = state ? state->version : [&] {
        const auto alone = taxcore::fromJson<VersionOnly>(json);
        return alone ? alone->version : 0;
    }();
    if (version > newestStateVersion) {
        return tl::unexpected(newer(version));
    }
    std::string message = state.error().message;
    return tl::unexpected(
        StateFault{.json = std::move(state).error(), .message = std::move(message)});
}

} // namespace fiscarel

namespace taxcore {
template tl::expected<fiscarel::PersistedState, JsonError>
    fromJson<fiscarel::PersistedState>(std::string_view, JsonGaps);
template std::string toJson<fiscarel::PersistedState>(const fiscarel::PersistedState&, JsonStyle);
} // namespace taxcore
