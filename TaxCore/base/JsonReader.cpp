#include "TaxCore/base/JsonReader.h"

namespace taxcore {

namespace detail {

ondemand::parser& jsonParser() {
    thread_local ondemand::parser parser;
    return parser;
}

void trimJsonParser() {
    constexpr std::size_t worthKeeping = std::size_t{4} << 20U;
    ondemand::parser& parser = jsonParser();
    if (parser.capacity() > worthKeeping) {
        parser = ondemand::parser();
    }
}

} // namespace detail

bool JsonReader::fail(JsonError::Kind kind, std::string_view detail) {
    error_ = contentError(kind, path(), detail);
    return false;
}

std::string JsonReader::path() const {
    std::string path;
    for (std::size_t i = 0; i < depth_; ++i) {
        const Step& step = steps_[i];
        if (step.key.data() == nullptr) {
            path += "[" + std::to_string(step.index) + "]";
        } else {
            path += path.empty() ? "" : ".";
            path += step.key;
        }
    }
    return path;
}

std::string_view JsonReader::token(ondemand::value& json) noexcept {
    std::string_view text = json.raw_json_token();
    while (!text.empty()
           && (text.back() == ' ' || text.back() == '\n' || text.back() == '\r'
               || text.back() == '\t')) {
        text.remove_suffix(1);
    }
    return text;
}

bool JsonReader::open(ondemand::value& json, ondemand::object& object) {
    const auto error = json.get_object().get(object);
    return error == simdjson::SUCCESS
           || (error == simdjson::INCORRECT_TYPE ? fail(JsonError::Kind::wrongType, "ein Objekt")
                                                 : malformed());
}

bool JsonReader::open(ondemand::value& json, ondemand::array& array) {
    const auto error = json.get_array().get(array);
    return error == simdjson::SUCCESS
           || (error == simdjson::INCORRECT_TYPE ? fail(JsonError::Kind::wrongType, "eine Liste")
                                                 : malformed());
}

bool JsonReader::readText(ondemand::value json, std::string_view expected,
                          std::string_view& target) {
    if (const auto error = json.get_string().get(target)) {
        return error == simdjson::INCORRECT_TYPE ? fail(JsonError::Kind::wrongType, expected)
                                                 : malformed();
    }
    return true;
}

bool JsonReader::read(ondemand::value json, std::string& target) {
    std::string_view text;
    if (!readText(json, "ein Text", text)) {
        return false;
    }
    target = text;
    return true;
}

bool JsonReader::read(ondemand::value json, Decimal& target) {
    const std::string_view text = token(json);
    if (text.empty() || (text.front() != '-' && (text.front() < '0' || text.front() > '9'))) {
        return fail(JsonError::Kind::wrongType, "eine Zahl");
    }
    const auto number = Decimal::parse(text);
    if (number) {
        target = *number;
        return true;
    }
    switch (number.error()) {
    case DecimalFault::tooManyDigits:
        return fail(JsonError::Kind::number, "mit mehr als 38 Stellen");
    case DecimalFault::outOfRange:
        return fail(JsonError::Kind::number, "ausserhalb des darstellbaren Bereichs");
    default:
        return malformed();
    }
}

bool JsonReader::read(ondemand::value json, int& target) {
    std::int64_t whole = 0;
    if (!read(json, whole)) {
        return false;
    }
    if (whole < std::numeric_limits<int>::min() || whole > std::numeric_limits<int>::max()) {
        return fail(JsonError::Kind::number, "ausserhalb des darstellbaren Bereichs");
    }
    target = static_cast<int>(whole);
    return true;
}

bool JsonReader::read(ondemand::value json, std::int64_t& target) {
    Decimal number;
    if (!read(json, number)) {
        return false;
    }
    if (!number.isInteger()) {
        return fail(JsonError::Kind::wrongType, "eine ganze Zahl");
    }
    const auto whole = number.toInteger();
    if (!whole) {
        return fail(JsonError::Kind::number, "ausserhalb des darstellbaren Bereichs");
    }
    target = *whole;
    return true;
}

bool JsonReader::read(ondemand::value json, bool& target) {
    const std::string_view text = token(json);
    if (text == "true" || text == "false") {
        target = text == "true";
        return true;
    }
    const bool otherType =
        text == "null" || text.empty() || (text.front() != 't' && text.front() != 'f');
    return otherType ? fail(JsonError::Kind::wrongType, "«true» oder «false»") : malformed();
}

template <class T>
bool JsonReader::readParsed(ondemand::value json, std::string_view expected, JsonError::Kind fault,
                            T& target) {
    std::string_view text;
    if (!readText(json, expected, text)) {
        return false;
    }
    const auto parsed = T::parse(text);
    if (!parsed) {
        return fail(fault);
    }
    target = *parsed;
    return true;
}

bool JsonReader::read(ondemand::value json, Date& target) {
    return readParsed(json, "ein Datum", JsonError::Kind::invalidDate, target);
}

bool JsonReader::read(ondemand::value json, Moment& target) {
    return readParsed(json, "ein Zeitpunkt", JsonError::Kind::invalidDate, target);
}

bool JsonReader::read(ondemand::value json, Uuid& target) {
    return readParsed(json, "eine UUID", JsonError::Kind::invalidUuid, target);
}

bool JsonReader::read(ondemand::value json, std::set<std::string>& target) {
    ondemand::array array;
    if (!open(json, array)) {
        return false;
    }
    target.clear();
    return forEachElement(array, [&](std::size_t, ondemand::value item) {
        std::string text;
        return read(item, text) && (target.insert(std::move(text)), true);
    });
}

bool JsonReader::skip(ondemand::value json) {
    auto type = ondemand::json_type::null;
    if (json.type().get(type) != simdjson::SUCCESS) {
        return malformed();
    }
    switch (type) {
    case ondemand::json_type::object: {
        ondemand::object object;
        return depth_ < steps_.size() && open(json, object)
                   ? forEachEntry(object, [&](auto, ondemand::value value) { return skip(value); })
                   : malformed();
    }
    case ondemand::json_type::array: {
        ondemand::array array;
        return depth_ < steps_.size() && open(json, array) ? forEachElement(
                   array, [&](std::size_t, ondemand::value item) { return skip(item); })
                                                           : malformed();
    }
    case ondemand::json_type::string: {
        std::string_view text;
        return json.get_string().get(text) == simdjson::SUCCESS || malformed();
    }
    case ondemand::json_type::number: {
        const auto number = Decimal::parse(token(json));
        return number || number.error() != DecimalFault::syntax || malformed();
    }
    default: {
        const std::string_view text = token(json);
        return text == "true" || text == "false" || text == "null" || malformed();
    }
    }
}

} // namespace taxcore
