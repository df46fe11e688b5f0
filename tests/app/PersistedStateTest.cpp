#include "Fiscarel_SG/store/PersistedState.h"

#include "tests/support/RandomCase.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fiscarel {
namespace {

using taxcore::testing::RandomCase;

class RandomState {
  public:
    explicit RandomState(std::uint64_t seed) : random_(seed) {}

    PersistedState next() {
        PersistedState state;
        for (std::size_t count = random_.below(3); count > 0; --count) {
            taxcore::TaxCase& taxCase = state.cases[2020 + static_cast<int>(random_.below(10))];
            random_.fill(taxCase);
        }
        for (std::size_t count = random_.below(4); count > 0; --count) {
            fill(state.documents.emplace_back());
        }
        for (std::size_t count = random_.below(3); count > 0; --count) {
            auto& rows = state.transferChecked[static_cast<int>(random_.below(10'000))];
            for (std::size_t row = random_.below(3); row > 0; --row) {
                rows.insert(text());
            }
        }
        return state;
    }

  private:
    std::string text() {
        std::string text;
        random_.fill(text);
        return text;
    }

    /// Moments are no values of a case, so they are drawn here.
    void fill(StoredDocument& document) {
        taxcore::forEachField(document, [&](std::string_view, auto& field) {
            using Type = std::remove_cvref_t<decltype(field)>;
            if constexpr (std::is_same_v<Type, Moment>) {
                field.seconds =
                    static_cast<std::int64_t>(random_.below(8'000'000'000)) - 4'000'000'000;
            } else {
                random_.fill(field);
            }
        });
    }

    RandomCase random_;
};

TEST(PersistedStateText, keepsTenThousandRandomStates) {
    RandomState random(20261121);
    for (int i = 0; i < 10'000; ++i) {
        const PersistedState state = random.next();
        const std::string text = encodeState(state);
        const auto read = decodeState(text);
        ASSERT_TRUE(read.has_value()) << read.error().message << "\n" << text;
        ASSERT_TRUE(*read == state) << text;
        ASSERT_EQ(encodeState(*read), text);
    }
}

/// As somebody else's program would write it: other order, offsets, lower case, keys of its own.
constexpr const char* byHand = R"({
  "version": 1, "generator": {"name": "von Hand", "list": [1, null, {"deep": true}]},
  "transferChecked": {"2025": ["haupterwerb1=80’000", "ahv1=1"], "2024": []},
  "documents": [
    {"year": 2025, "id": "6f1c2b9a-0000-4000-8000-00000000000a", "kind": "arztrechnung",
     "title": "Zahnarzt", "fileName": "x.pdf", "importedAt": "2026-02-01T08:30:15+01:00",
     "note": "", "isApplied": true, "amount": 812.50, "pages": 3,
     "applied": [{"path": "cash", "value": "1’000", "page": 1,
                  "box": {"x": 0.1, "y": 0.25, "width": 0.5, "height": 0.02}}]},
    {"id": "6F1C2B9A-0000-4000-8000-00000000000B", "year": 2024, "kind": "anderes", "title": "",
     "fileName": "y.png", "importedAt": "2025-07-01T00:00:00.250-03:30", "isApplied": false,
     "note": "später", "recognizedText": null}
  ],
  "cases": {}
})";

TEST(PersistedStateText, readsTheFormOfOthers) {
    const auto state = decodeState(byHand);
    ASSERT_TRUE(state.has_value()) << state.error().message;
    ASSERT_EQ(state->documents.size(), 2U);
    const StoredDocument& first = state->documents.front();
    EXPECT_EQ(first.id.toString(), "6F1C2B9A-0000-4000-8000-00000000000A");
    EXPECT_EQ(first.importedAt.toString(), "2026-02-01T07:30:15Z");
    EXPECT_EQ(first.amount.value(), Decimal::parse("812.5").value());
    ASSERT_TRUE(first.applied.has_value());
    EXPECT_EQ(first.applied->front().box->y, Decimal::parse("0.25").value());
    EXPECT_EQ(state->documents.back().importedAt.toString(), "2025-07-01T03:30:00Z");
    EXPECT_FALSE(state->documents.back().recognizedText.has_value());
    EXPECT_EQ(state->transferChecked.at(2025).size(), 2U);
    EXPECT_TRUE(state->transferChecked.at(2024).empty());
}

TEST(PersistedStateText, refusesWhatItDoesNotUnderstand) {
    const auto changed = [](const std::string& from, const std::string& to) {
        std::string text = byHand;
        const std::size_t at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        return text.replace(at, from.size(), to);
    };
    const std::pair<std::string, std::string> table[] = {
        {changed("\"note\": \"\",", ""), "documents[0].note"},
        {changed("\"isApplied\": false,", ""), "documents[1].isApplied"},
        {changed("\"transferChecked\"", "\"ticked\""), "transferChecked"},
        {changed("\"documents\"", "\"dokumente\""), "documents"},
        {changed("\"version\": 1,", ""), "version"},
        {changed("\"arztrechnung\"", "\"zahnarzt\""), "documents[0].kind"},
        {changed("2026-02-01T08:30:15+01:00", "gestern"), "documents[0].importedAt"},
        {changed("6f1c2b9a", "6f1c2b9"), "documents[0].id"},
        {changed("[]}", "[3]}"), "transferChecked.2024[0]"},
    };
    for (const auto& [text, path] : table) {
        const auto state = decodeState(text);
        ASSERT_FALSE(state.has_value()) << path;
        EXPECT_FALSE(state.error().isNewer) << path;
        EXPECT_EQ(state.error().json.path, path);
        EXPECT_NE(state.error().message.find(path), std::string::npos) << state.error().message;
    }
    for (const std::string& newer : {changed("\"version\": 1", "\"version\": 2"),
                                     std::string(R"({"version": 7, "cases": "elsewhere"})")}) {
        const auto state = decodeState(newer);
        ASSERT_FALSE(state.has_value());
        EXPECT_TRUE(state.error().isNewer) << newer;
        EXPECT_NE(state.error().message.find("neueren Ausgabe"), std::string::npos);
    }
}

TEST(MomentText, readsAnyOffsetAndWritesUtc) {
    const std::pair<const char*, const char*> table[] = {
        {"1970-01-01T00:00:00Z", "1970-01-01T00:00:00Z"},
        {"2026-03-29T01:59:59+01:00", "2026-03-29T00:59:59Z"},
        {"2026-03-29T01:59:59", "2026-03-29T00:59:59Z"}, // the last second of winter
        {"2026-03-29T03:00:00", "2026-03-29T01:00:00Z"}, // and the first of summer
        {"2026-10-25T01:59:59", "2026-10-24T23:59:59Z"}, // still summer
        {"2026-10-25T03:00:00", "2026-10-25T02:00:00Z"}, // winter again
        {"2026-07-01", "2026-06-30T22:00:00Z"},
        {"2026-07-01T24:00:00-11:00", "2026-07-02T11:00:00Z"},
        {"1899-12-31T23:59:59Z", "1899-12-31T23:59:59Z"},
    };
    for (const auto& [text, written] : table) {
        const auto moment = Moment::parse(text);
        ASSERT_TRUE(moment.has_value()) << text;
        EXPECT_EQ(moment->toString(), written) << text;
        EXPECT_EQ(Moment::parse(moment->toString()), moment) << text;
    }
    EXPECT_EQ(Moment{INT64_MAX / 4}.toString(), "9999-12-31T23:59:59Z");
    EXPECT_FALSE(Moment::parse("2026-02-30T00:00:00Z").has_value());
}

} // namespace
} // namespace fiscarel
