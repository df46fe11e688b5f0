#include "TaxCore/base/Uuid.h"

#include <boost/uuid/random_generator.hpp>

namespace taxcore {

namespace {

constexpr int hexDigit(char c) noexcept {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

constexpr bool hyphenBeforeByte(std::size_t byte) noexcept {
    return byte == 4 || byte == 6 || byte == 8 || byte == 10;
}

} // namespace

Uuid Uuid::random() {
    thread_local boost::uuids::random_generator_mt19937 generate;
    Uuid id;
    id.bytes_ = generate();
    return id;
}

std::optional<Uuid> Uuid::parse(std::string_view text) noexcept {
    if (text.size() != 36) {
        return std::nullopt;
    }
    Uuid id;
    std::size_t at = 0;
    for (std::size_t byte = 0; byte < 16; ++byte) {
        if (hyphenBeforeByte(byte) && text[at++] != '-') {
            return std::nullopt;
        }
        const int high = hexDigit(text[at]);
        const int low = hexDigit(text[at + 1]);
        if (high < 0 || low < 0) {
            return std::nullopt;
        }
        id.bytes_.data[byte] = static_cast<std::uint8_t>(high * 16 + low);
        at += 2;
    }
    return id;
}

std::string Uuid::toString() const {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(36);
    for (std::size_t byte = 0; byte < 16; ++byte) {
        if (hyphenBeforeByte(byte)) {
            text += '-';
        }
        text += digits[bytes_.data[byte] >> 4U];
        text += digits[bytes_.data[byte] & 15U];
    }
    return text;
}

} // namespace taxcore
