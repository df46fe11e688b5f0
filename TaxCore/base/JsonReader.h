#pragma once

// The templates behind `fromJson`; include it only where a record type is instantiated.

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/EnumText.h"
#include "TaxCore/base/Json.h"
#include "TaxCore/base/JsonFault.h"
#include "TaxCore/base/Moment.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/base/Uuid.h"

#include <simdjson.h>

#include <array>
#include <bitset>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace taxcore {

namespace ondemand = simdjson::ondemand;

/// Walks a JSON text in document order and fills records. Reading reports by `bool`; the error is
/// kept in the reader, so that the ordinary way costs nothing for it.
class JsonReader {
  public:
    explicit JsonReader(JsonGaps gaps) noexcept : gaps_(gaps) {}

    /// Reads the whole text into `target`.
    template <class T>
    tl::expected<void, JsonError> readDocument(std::string_view text, T& target);

    template <Record T>
    bool read(ondemand::value json, T& target);
    template <class T>
    bool read(ondemand::value json, std::vector<T>& target);
    template <class T>
    bool read(ondemand::value json, std::optional<T>& target);
    template <class T>
    bool read(ondemand::value json, std::map<int, T>& target);
    bool read(ondemand::value json, std::set<std::string>& target);
    template <TabledEnum E>
    bool read(ondemand::value json, E& target);
    bool read(ondemand::value json, Decimal& target);
    bool read(ondemand::value json, int& target);
    bool read(ondemand::value json, std::int64_t& target);
    bool read(ondemand::value json, bool& target);
    bool read(ondemand::value json, std::string& target);
    bool read(ondemand::value json, Date& target);
    bool read(ondemand::value json, Moment& target);
    bool read(ondemand::value json, Uuid& target);

  private:
    /// One step of the path to the value being read: a key or, with an empty key, a list index.
    struct Step {
        std::string_view key;
        std::size_t index = 0;
    };

    bool push(Step step) {
        if (depth_ == steps_.size()) {
            return malformed();
        }
        steps_[depth_++] = step;
        return true;
    }
    void pop() noexcept { --depth_; }

    /// Opens a value as what is expected of it; false, with the error set, for another type.
    bool open(ondemand::value& json, ondemand::object& object);
    bool open(ondemand::value& json, ondemand::array& array);
    /// Hands each entry to `use(key, value)` while the path names its key; ends at the first false.
    template <class Use>
    bool forEachEntry(ondemand::object& object, const Use& use);
    /// The same with `use(index, item)` for the elements of a list.
    template <class Use>
    bool forEachElement(ondemand::array& array, const Use& use);

    template <Record T>
    bool readField(std::size_t index, ondemand::value json, T& target);
    template <Record T>
    bool checkMissing(const std::bitset<fieldCount<T>>& seen);

    /// Walks a value nobody asked for, so that a damaged file is noticed there too.
    bool skip(ondemand::value json);

    /// A text that the type reads by itself; `fault` when it does not.
    template <class T>
    bool readParsed(ondemand::value json, std::string_view expected, JsonError::Kind fault,
                    T& target);
    /// A text value; false, with the error set, for another type.
    bool readText(ondemand::value json, std::string_view expected, std::string_view& target);
    static std::string_view token(ondemand::value& json) noexcept;
    std::string path() const;
    bool fail(JsonError::Kind kind, std::string_view detail = {});
    /// The text itself is damaged; where is found out afterwards.
    static bool malformed() noexcept { return false; }

    JsonGaps gaps_;
    std::size_t depth_ = 0;
    std::array<Step, static_cast<std::size_t>(maxJsonDepth)> steps_{};
    std::optional<JsonError> error_;
};

namespace detail {

/// The parser's buffers are worth keeping between texts.
ondemand::parser& jsonParser();
/// Drops buffers that one large text left behind.
void trimJsonParser();

/// The positions of a record's fields sorted by name: files of ours list their keys that way, so
/// the next key is nearly always the successor of the last.
template <Record T>
inline constexpr auto fieldsByName = [] {
    std::array<std::size_t, fieldCount<T>> order{};
    for (std::size_t i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    for (std::size_t i = 1; i < order.size(); ++i) {
        for (std::size_t j = i; j > 0 && fieldNames<T>[order[j]] < fieldNames<T>[order[j - 1]];
             --j) {
            std::swap(order[j], order[j - 1]);
        }
    }
    return order;
}();

/// The field named `key`, looked for from `expected` (a position in `fieldsByName`) on; moves
/// `expected` behind the hit. `fieldCount<T>` when there is none.
template <Record T>
std::size_t findField(std::string_view key, std::size_t& expected) noexcept {
    constexpr std::size_t count = fieldCount<T>;
    for (std::size_t step = 0; step < count; ++step) {
        const std::size_t position =
            expected + step < count ? expected + step : expected + step - count;
        const std::size_t field = fieldsByName<T>[position];
        if (fieldNames<T>[field] == key) {
            expected = position + 1 < count ? position + 1 : 0;
            return field;
        }
    }
    return count;
}

} // namespace detail

template <class T>
tl::expected<void, JsonError> JsonReader::readDocument(std::string_view text, T& target) {
    if (text.size() > maxJsonSize) {
        return tl::unexpected(contentError(JsonError::Kind::tooLarge, {}));
    }
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.remove_prefix(3); // some editors put a byte order mark before UTF-8
    }
    const simdjson::padded_string padded(text);
    ondemand::document document;
    ondemand::value root;
    const bool ok = detail::jsonParser().iterate(padded).get(document) == simdjson::SUCCESS
                    && document.get_value().get(root) == simdjson::SUCCESS;
    const bool done = ok ? read(root, target) : malformed();
    const bool complete =
        done && (document.current_location().error() == simdjson::OUT_OF_BOUNDS || malformed());
    detail::trimJsonParser();
    if (complete) {
        return {};
    }
    // What does not fit is told only of well-formed texts; the library itself looks no further than
    // it must.
    if (auto fault = locateFault(text)) {
        return tl::unexpected(std::move(*fault));
    }
    return tl::unexpected(error_ ? std::move(*error_)
                                 : contentError(JsonError::Kind::wrongType, {}, "ein Objekt"));
}

template <class Use>
bool JsonReader::forEachEntry(ondemand::object& object, const Use& use) {
    for (auto entry : object) {
        ondemand::field pair;
        std::string_view key;
        if (std::move(entry).get(pair) != simdjson::SUCCESS
            || pair.unescaped_key().get(key) != simdjson::SUCCESS) {
            return malformed();
        }
        if (!push({key}) || !use(key, pair.value())) {
            return false;
        }
        pop();
    }
    return true;
}

template <class Use>
bool JsonReader::forEachElement(ondemand::array& array, const Use& use) {
    std::size_t index = 0;
    for (auto entry : array) {
        ondemand::value item;
        if (entry.get(item) != simdjson::SUCCESS) {
            return malformed();
        }
        if (!push({{}, index}) || !use(index, item)) {
            return false;
        }
        pop();
        ++index;
    }
    return true;
}

template <Record T>
bool JsonReader::read(ondemand::value json, T& target) {
    ondemand::object object;
    if (!open(json, object)) {
        return false;
    }
    std::bitset<fieldCount<T>> seen;
    std::size_t expected = 0;
    const bool walked = forEachEntry(object, [&](std::string_view key, ondemand::value value) {
        const std::size_t index = detail::findField<T>(key, expected);
        if (index == fieldCount<T>) {
            return skip(value);
        }
        if (seen[index]) {
            return fail(JsonError::Kind::duplicateKey);
        }
        seen.set(index);
        return readField(index, value, target);
    });
    if (!walked) {
        return false;
    }
    return (gaps_ == JsonGaps::filled || toleratesMissingKeys<T> || seen.all())
           || checkMissing<T>(seen);
}

template <Record T>
bool JsonReader::readField(std::size_t index, ondemand::value json, T& target) {
    return boost::mp11::mp_with_index<fieldCount<T>>(index, [&](auto i) {
        auto& field = target.*Field<T, i>::pointer;
        if constexpr (toleratesMissingKeys<T>) {
            bool null = false;
            if (json.is_null().get(null) == simdjson::SUCCESS && null) {
                return true;
            }
        }
        return read(json, field);
    });
}

template <Record T>
bool JsonReader::checkMissing(const std::bitset<fieldCount<T>>& seen) {
    bool complete = true;
    boost::mp11::mp_for_each<boost::mp11::mp_iota_c<fieldCount<T>>>([&](auto i) {
        using Member = std::remove_cvref_t<decltype(std::declval<T&>().*Field<T, i>::pointer)>;
        if constexpr (!isOptional<Member>) {
            if (complete && !seen[i]) {
                complete = push({fieldNames<T>[i]}) && fail(JsonError::Kind::missingKey);
            }
        }
    });
    return complete;
}

template <class T>
bool JsonReader::read(ondemand::value json, std::vector<T>& target) {
    ondemand::array array;
    if (!open(json, array)) {
        return false;
    }
    target.clear();
    return forEachElement(array, [&](std::size_t, ondemand::value item) {
        return read(item, target.emplace_back());
    });
}

template <class T>
bool JsonReader::read(ondemand::value json, std::optional<T>& target) {
    bool null = false;
    if (json.is_null().get(null) != simdjson::SUCCESS) {
        return malformed();
    }
    if (null) {
        target.reset();
        return true;
    }
    return read(json, target ? *target : target.emplace());
}

template <class T>
bool JsonReader::read(ondemand::value json, std::map<int, T>& target) {
    ondemand::object object;
    if (!open(json, object)) {
        return false;
    }
    target.clear();
    return forEachEntry(object, [&](std::string_view key, ondemand::value value) {
        int number = 0;
        const auto [end, status] = std::from_chars(key.data(), key.data() + key.size(), number);
        if (status != std::errc{} || end != key.data() + key.size()) {
            return fail(JsonError::Kind::wrongType, "eine Jahreszahl");
        }
        const auto [position, fresh] = target.try_emplace(number);
        return fresh ? read(value, position->second) : fail(JsonError::Kind::duplicateKey);
    });
}

template <TabledEnum E>
bool JsonReader::read(ondemand::value json, E& target) {
    std::string_view raw;
    if (!readText(json, "ein Text", raw)) {
        return false;
    }
    if (const auto value = enumFromRaw<E>(raw)) {
        target = *value;
        return true;
    }
    std::string allowed;
    for (const auto& row : EnumTable<E>::rows) {
        allowed += (allowed.empty() ? "«" : ", «") + std::string(row.raw) + "»";
    }
    return fail(JsonError::Kind::unknownValue, allowed);
}

template <class T>
tl::expected<T, JsonError> fromJson(std::string_view text, JsonGaps gaps) {
    tl::expected<T, JsonError> result;
    if (auto done = JsonReader(gaps).readDocument(text, *result); !done) {
        result = tl::unexpected(std::move(done).error());
    }
    return result;
}

template <class T>
tl::expected<void, JsonError> patchFromJson(T& target, std::string_view text) {
    T patched = target;
    auto done = JsonReader(JsonGaps::filled).readDocument(text, patched);
    if (done) {
        target = std::move(patched);
    }
    return done;
}

} // namespace taxcore
