#include "TaxCore/base/JsonWriter.h"

#include "TaxCore/base/Utf8.h"

#include <simdjson.h>

#include <bit>
#include <cstdint>
#include <cstring>

namespace taxcore {

namespace {

bool isPlain(char c) { return static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\'; }

/// How many bytes from the start of a text need no escape. Eight are looked at in one step: the
/// lowest byte whose high bit is set in `special` is the first one that does.
std::size_t plainPrefix(std::string_view text) {
    static_assert(std::endian::native == std::endian::little);
    constexpr std::uint64_t ones = 0x0101010101010101ULL;
    constexpr std::uint64_t highBits = 0x8080808080808080ULL;
    const auto below = [](std::uint64_t word, std::uint64_t limit) {
        return (word - ones * limit) & ~word;
    };
    std::size_t at = 0;
    for (; at + sizeof(std::uint64_t) <= text.size(); at += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + at, sizeof(word));
        const std::uint64_t special =
            (below(word, 0x20) | below(word ^ (ones * '"'), 1) | below(word ^ (ones * '\\'), 1))
            & highBits;
        if (special != 0) {
            return at + static_cast<std::size_t>(std::countr_zero(special)) / 8;
        }
    }
    while (at < text.size() && isPlain(text[at])) {
        ++at;
    }
    return at;
}

} // namespace

void JsonWriter::write(const Decimal& value) {
    std::array<char, Decimal::maxPlainLength> text{};
    out_.append(text.data(), value.writeTo(text.data()));
}

void JsonWriter::write(int value) { out_ += std::to_string(value); }

void JsonWriter::write(std::int64_t value) { out_ += std::to_string(value); }

void JsonWriter::write(bool value) { out_ += value ? "true" : "false"; }

void JsonWriter::write(const std::set<std::string>& texts) {
    open('[');
    for (const std::string& text : texts) {
        item();
        write(text);
    }
    close(']');
}

void JsonWriter::write(std::string_view text) {
    out_ += '"';
    // Whole documents stand in some texts: those are checked at once instead of letter by letter.
    constexpr std::size_t longText = 64;
    if (text.size() >= longText && simdjson::validate_utf8(text.data(), text.size())) {
        writeEscaped(text, [](std::string_view rest) { return plainPrefix(rest); });
    } else {
        writeEscaped(text, [](std::string_view rest) -> std::size_t {
            const auto code = static_cast<unsigned char>(rest.front());
            return code >= 0x80 ? utf8Length(rest) : isPlain(rest.front()) ? 1 : 0;
        });
    }
    out_ += '"';
}

/// Writes a text in which `plainLength(rest)` bytes can be taken over as they are.
template <class PlainLength>
void JsonWriter::writeEscaped(std::string_view text, const PlainLength& plainLength) {
    std::size_t plain = 0;
    std::size_t at = 0;
    while (at < text.size()) {
        if (const std::size_t length = plainLength(text.substr(at))) {
            at += length;
            continue;
        }
        out_ += text.substr(plain, at - plain);
        if (static_cast<unsigned char>(text[at]) >= 0x80) {
            out_ += "\uFFFD"; // what is no UTF-8 would make a file that does not read back
        } else {
            writeEscape(text[at]);
        }
        plain = ++at;
    }
    out_ += text.substr(plain);
}

void JsonWriter::writeEscape(char c) {
    constexpr std::string_view digits = "0123456789abcdef";
    constexpr std::string_view named = "\"\\\n\t\r";
    constexpr std::string_view names = "\"\\ntr";
    out_ += '\\';
    if (const std::size_t at = named.find(c); at != std::string_view::npos) {
        out_ += names[at];
    } else {
        out_ += "u00";
        out_ += digits[static_cast<unsigned char>(c) >> 4U];
        out_ += digits[static_cast<unsigned char>(c) & 15U];
    }
}

void JsonWriter::open(char bracket) {
    out_ += bracket;
    ++depth_;
    first_ = true;
}

void JsonWriter::close(char bracket) {
    --depth_;
    if (!first_) {
        lineBreak();
    }
    out_ += bracket;
    first_ = false;
}

void JsonWriter::item() {
    if (!first_) {
        out_ += ',';
    }
    first_ = false;
    lineBreak();
}

void JsonWriter::key(std::string_view name) {
    item();
    write(name);
    out_ += style_ == JsonStyle::pretty ? ": " : ":";
}

void JsonWriter::lineBreak() {
    if (style_ == JsonStyle::pretty) {
        out_ += '\n';
        out_.append(depth_ * 2, ' ');
    }
}

} // namespace taxcore
