#include "TaxCore/base/JsonFault.h"

#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/Utf8.h"

#include <algorithm>
#include <charconv>
#include <utility>
#include <vector>

namespace taxcore {

namespace {

/// «income1.salaries[0]»; long keys of foreign files are shortened so that the sentence stays one.
std::string inQuotes(std::string_view path) {
    constexpr std::size_t longest = 160;
    std::string text = "«";
    if (path.size() <= longest) {
        text += path;
    } else {
        std::size_t end = longest;
        while (end > 0 && (static_cast<unsigned char>(path[end]) & 0xC0U) == 0x80U) {
            --end;
        }
        text += path.substr(0, end);
        text += "…";
    }
    return text + "»";
}

/// The sentence about a damaged text; line 0 is not named.
std::string damageSentence(JsonError::Kind fault, const std::string& path, std::size_t line) {
    const std::string place = (path.empty() ? "auf der obersten Ebene" : "bei " + inQuotes(path))
                              + (line > 0 ? " (Zeile " + std::to_string(line) + ")" : "");
    switch (fault) {
    case JsonError::Kind::truncated:
        return "Die Daten brechen " + place + " ab.";
    case JsonError::Kind::encoding:
        return "Die Daten enthalten " + place + " Zeichen, die nicht in UTF-8 geschrieben sind.";
    case JsonError::Kind::tooDeep:
        return "Die Daten sind " + place + " zu tief verschachtelt.";
    default:
        return "Die Daten sind " + place + " kein gültiges JSON.";
    }
}

/// A plain pushdown scanner of JSON that remembers where it is.
class FaultScanner {
  public:
    explicit FaultScanner(std::string_view text) noexcept : text_(text) {}

    std::optional<JsonError> run() {
        const Fault fault = scan();
        if (!fault) {
            return std::nullopt;
        }
        const std::size_t atLine = line();
        std::string where = path();
        std::string message = damageSentence(*fault, where, atLine);
        return JsonError{*fault, std::move(where), std::move(message), atLine};
    }

  private:
    using Fault = std::optional<JsonError::Kind>;

    struct Level {
        bool object;
        std::string_view key; ///< as written, escapes included
        std::size_t index = 0;
    };

    bool atEnd() const noexcept { return at_ >= text_.size(); }
    char peek() const noexcept { return text_[at_]; }

    void skipBlanks() noexcept {
        while (!atEnd() && (peek() == ' ' || peek() == '\t' || peek() == '\n' || peek() == '\r')) {
            ++at_;
        }
    }

    Fault scan() {
        do {
            if (const Fault fault = scanValue()) {
                return fault;
            }
        } while (!levels_.empty());
        skipBlanks();
        return atEnd() ? std::nullopt : Fault(JsonError::Kind::syntax);
    }

    /// One value, or the opening of one; after a finished value it moves on to the next.
    Fault scanValue() {
        skipBlanks();
        if (atEnd()) {
            return JsonError::Kind::truncated;
        }
        if (peek() == '{' || peek() == '[') {
            if (levels_.size() >= static_cast<std::size_t>(maxJsonDepth)) {
                return JsonError::Kind::tooDeep;
            }
            const bool object = peek() == '{';
            ++at_;
            levels_.push_back({object, {}});
            skipBlanks();
            if (!atEnd() && peek() == (object ? '}' : ']')) {
                return next();
            }
            return object ? scanKey() : std::nullopt;
        }
        Fault fault = peek() == '"' ? scanString().first : scanScalar();
        return fault ? fault : next();
    }

    /// After a value: closes what ends here and stands before the next value.
    Fault next() {
        while (!levels_.empty()) {
            skipBlanks();
            if (atEnd()) {
                return JsonError::Kind::truncated;
            }
            Level& level = levels_.back();
            if (peek() == (level.object ? '}' : ']')) {
                ++at_;
                levels_.pop_back();
                continue;
            }
            if (peek() != ',') {
                return JsonError::Kind::syntax;
            }
            ++at_;
            ++level.index;
            skipBlanks();
            return level.object ? scanKey() : std::nullopt;
        }
        return std::nullopt;
    }

    Fault scanKey() {
        skipBlanks();
        if (atEnd()) {
            return JsonError::Kind::truncated;
        }
        if (peek() != '"') {
            return JsonError::Kind::syntax;
        }
        const auto [fault, key] = scanString();
        if (fault) {
            return fault;
        }
        levels_.back().key = key;
        skipBlanks();
        if (atEnd()) {
            return JsonError::Kind::truncated;
        }
        if (peek() != ':') {
            return JsonError::Kind::syntax;
        }
        ++at_;
        return std::nullopt;
    }

    std::pair<Fault, std::string_view> scanString() {
        const std::size_t begin = ++at_;
        while (!atEnd() && peek() != '"') {
            const std::size_t length = utf8Length(text_.substr(at_));
            if (length == 0) {
                return {JsonError::Kind::encoding, {}};
            }
            if (static_cast<unsigned char>(peek()) < 0x20) {
                return {JsonError::Kind::syntax, {}};
            }
            if (peek() != '\\') {
                at_ += length;
            } else if (const Fault fault = scanEscape()) {
                return {fault, {}};
            }
        }
        if (atEnd()) {
            return {JsonError::Kind::truncated, {}};
        }
        return {std::nullopt, text_.substr(begin, at_++ - begin)};
    }

    /// One escape sequence; a high surrogate must be followed by its low one.
    Fault scanEscape() {
        ++at_;
        if (atEnd()) {
            return JsonError::Kind::truncated;
        }
        if (peek() != 'u') {
            const bool known =
                std::string_view("\"\\/bfnrt").find(peek()) != std::string_view::npos;
            ++at_;
            return known ? std::nullopt : Fault(JsonError::Kind::syntax);
        }
        ++at_;
        const auto first = scanHex();
        if (first >= 0xDC00 && first <= 0xDFFF) {
            return JsonError::Kind::syntax;
        }
        if (first >= 0xD800 && first <= 0xDBFF) {
            const bool paired = text_.substr(at_, 2) == "\\u";
            at_ += paired ? 2 : 0;
            const auto second = paired ? scanHex() : -1;
            return second >= 0xDC00 && second <= 0xDFFF ? std::nullopt : endOrSyntax();
        }
        return first < 0 ? endOrSyntax() : std::nullopt;
    }

    Fault endOrSyntax() const noexcept {
        return atEnd() ? JsonError::Kind::truncated : JsonError::Kind::syntax;
    }

    /// Four hexadecimal digits; negative when they are not there.
    int scanHex() noexcept {
        unsigned value = 0;
        const std::string_view digits = text_.substr(std::min(at_, text_.size()), 4);
        const auto [end, status] =
            std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
        const bool four = status == std::errc{} && end == digits.data() + 4;
        at_ += four ? 4 : digits.size() < 4 ? digits.size() : 0;
        return four ? static_cast<int>(value) : -1;
    }

    Fault scanScalar() {
        const std::size_t begin = at_;
        while (!atEnd()
               && std::string_view(",]}: \t\r\n\"[{").find(peek()) == std::string_view::npos) {
            const std::size_t length = utf8Length(text_.substr(at_));
            if (length == 0) {
                return JsonError::Kind::encoding;
            }
            at_ += length;
        }
        const std::string_view token = text_.substr(begin, at_ - begin);
        if (token == "true" || token == "false" || token == "null") {
            return std::nullopt;
        }
        const auto number = Decimal::parse(token);
        if (number || number.error() != DecimalFault::syntax) {
            return std::nullopt;
        }
        return atEnd() ? JsonError::Kind::truncated : JsonError::Kind::syntax;
    }

    std::string path() const {
        std::string path;
        for (const Level& level : levels_) {
            if (level.object) {
                if (level.key.data() != nullptr) {
                    path += path.empty() ? "" : ".";
                    path += level.key;
                }
            } else {
                path += "[" + std::to_string(level.index) + "]";
            }
        }
        return path;
    }

    std::size_t line() const {
        return 1 + static_cast<std::size_t>(std::ranges::count(text_.substr(0, at_), '\n'));
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::vector<Level> levels_;
};

} // namespace

std::string JsonError::messageWithoutLine() const {
    return line > 0 ? damageSentence(kind, path, 0) : message;
}

std::optional<JsonError> locateFault(std::string_view text) { return FaultScanner(text).run(); }

JsonError contentError(JsonError::Kind kind, std::string path, std::string_view detail) {
    const std::string place = path.empty() ? "Der Inhalt" : inQuotes(path);
    std::string message;
    switch (kind) {
    case JsonError::Kind::missingKey:
        message = "Die Angabe " + place + " fehlt.";
        break;
    case JsonError::Kind::duplicateKey:
        message = "Die Angabe " + place + " kommt doppelt vor.";
        break;
    case JsonError::Kind::wrongType:
        message = place + " muss " + std::string(detail) + " sein.";
        break;
    case JsonError::Kind::unknownValue:
        message = place + " hat einen unbekannten Wert; erlaubt sind " + std::string(detail) + ".";
        break;
    case JsonError::Kind::invalidUuid:
        message = place + " ist keine gültige UUID.";
        break;
    case JsonError::Kind::invalidDate:
        message = place + " ist kein gültiges Datum wie «2025-12-31».";
        break;
    case JsonError::Kind::number:
        message = place + " ist eine Zahl " + std::string(detail) + ".";
        break;
    case JsonError::Kind::tooLarge:
        message = "Die Daten sind grösser als " + std::to_string(maxJsonSize >> 20U) + " MB.";
        break;
    default:
        message = "Die Daten sind bei " + place + " kein gültiges JSON.";
        break;
    }
    return {kind, std::move(path), std::move(message)};
}

} // namespace taxcore
