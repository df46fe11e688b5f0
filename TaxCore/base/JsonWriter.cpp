#include "TaxCore/base/JsonWriter.h"

namespace taxcore {

void JsonWriter::write(const Decimal& value) {
    std::array<char, Decimal::maxPlainLength> text{};
    out_.append(text.data(), value.writeTo(text.data()));
}

void JsonWriter::write(int value) { out_ += std::to_string(value); }

void JsonWriter::write(bool value) { out_ += value ? "true" : "false"; }

void JsonWriter::write(std::string_view text) {
    constexpr std::string_view digits = "0123456789abcdef";
    out_ += '"';
    std::size_t plain = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const auto code = static_cast<unsigned char>(c);
        if (code >= 0x20 && c != '"' && c != '\\') {
            continue;
        }
        out_ += text.substr(plain, i - plain);
        plain = i + 1;
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
            out_ += digits[code >> 4U];
            out_ += digits[code & 15U];
            break;
        }
    }
    out_ += text.substr(plain);
    out_ += '"';
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
