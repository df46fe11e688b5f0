#include "TaxCore/base/JsonWriter.h"

#include "TaxCore/base/Utf8.h"

namespace taxcore {

void JsonWriter::write(const Decimal& value) {
    std::array<char, Decimal::maxPlainLength> text{};
    out_.append(text.data(), value.writeTo(text.data()));
}

void JsonWriter::write(int value) { out_ += std::to_string(value); }

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
    std::size_t plain = 0;
    std::size_t at = 0;
    const auto flush = [&] { out_ += text.substr(plain, at - plain); };
    while (at < text.size()) {
        const auto code = static_cast<unsigned char>(text[at]);
        if (code >= 0x80) {
            const std::size_t length = utf8Length(text.substr(at));
            if (length == 0) {
                // What is no UTF-8 would make a file that does not read back.
                flush();
                out_ += "\uFFFD";
                plain = at + 1;
            }
            at += length == 0 ? 1 : length;
        } else {
            if (code < 0x20 || code == '"' || code == '\\') {
                flush();
                writeEscape(text[at]);
                plain = at + 1;
            }
            ++at;
        }
    }
    flush();
    out_ += '"';
}

void JsonWriter::writeEscape(char c) {
    constexpr std::string_view digits = "0123456789abcdef";
    switch (c) {
    case '"':
        out_ += "\\\"";
        break;
    case '\\':
        out_ += "\\\\";
        break;
    case '\n':
        out_ += "\\n";
        break;
    case '\t':
        out_ += "\\t";
        break;
    case '\r':
        out_ += "\\r";
        break;
    default:
        out_ += "\\u00";
        out_ += digits[static_cast<unsigned char>(c) >> 4U];
        out_ += digits[static_cast<unsigned char>(c) & 15U];
        break;
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
