#include "Fiscarel_SG/documents/payload/PayloadXml.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace fiscarel {

using taxcore::Date;
using taxcore::Decimal;

namespace {

constexpr int deepest = 40;
constexpr int mostElements = 100'000;

/// A stream of zlib that is released whatever happens.
class Inflation {
  public:
    explicit Inflation(int windowBits) { isReady_ = inflateInit2(&stream_, windowBits) == Z_OK; }
    ~Inflation() {
        if (isReady_) {
            inflateEnd(&stream_);
        }
    }
    Inflation(const Inflation&) = delete;
    Inflation& operator=(const Inflation&) = delete;
    Inflation(Inflation&&) = delete;
    Inflation& operator=(Inflation&&) = delete;

    std::optional<std::string> run(std::string_view bytes) {
        if (!isReady_ || bytes.size() > std::numeric_limits<uInt>::max()) {
            return std::nullopt;
        }
        std::string input(bytes); // zlib wants bytes it could write to
        stream_.next_in = reinterpret_cast<Bytef*>(input.data());
        stream_.avail_in = static_cast<uInt>(input.size());
        std::string out;
        std::array<Bytef, 16 * 1024> buffer{};
        for (int state = Z_OK; state != Z_STREAM_END;) {
            stream_.next_out = buffer.data();
            stream_.avail_out = buffer.size();
            state = inflate(&stream_, Z_NO_FLUSH);
            const std::size_t count = buffer.size() - stream_.avail_out;
            if ((state != Z_OK && state != Z_STREAM_END) || out.size() + count > mostPayloadBytes
                || (count == 0 && state == Z_OK)) {
                return std::nullopt;
            }
            out.append(reinterpret_cast<const char*>(buffer.data()), count);
        }
        return out;
    }

  private:
    z_stream stream_{};
    bool isReady_ = false;
};

unsigned littleEndian(std::string_view bytes, std::size_t at, std::size_t count) {
    unsigned value = 0;
    for (std::size_t i = count; i > 0; --i) {
        value = value << 8U | static_cast<unsigned char>(bytes[at + i - 1]);
    }
    return value;
}

/// Where a tag ends that begins at `at`: behind comments and quoted values with ">" in them.
std::size_t endOfTag(std::string_view text, std::size_t at) {
    for (const auto& [begin, end] :
         {std::pair{std::string_view("<!--"), std::string_view("-->")},
          std::pair{std::string_view("<![CDATA["), std::string_view("]]>")},
          std::pair{std::string_view("<?"), std::string_view("?>")}}) {
        if (text.substr(at).starts_with(begin)) {
            const std::size_t found = text.find(end, at);
            return found == std::string_view::npos ? found : found + end.size() - 1;
        }
    }
    char quote = 0;
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (quote != 0) {
            quote = c == quote ? '\0' : quote;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            return at;
        }
    }
    return std::string_view::npos;
}

/// Whether there are no more elements than memory is meant for, nor deeper ones.
bool isWithinBounds(std::string_view text) {
    int depth = 0;
    int count = 0;
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at)) {
        const std::size_t end = endOfTag(text, at);
        if (end == std::string_view::npos) {
            return false;
        }
        const char next = text[at + 1];
        if (next == '/') {
            --depth;
        } else if (next != '?' && next != '!') {
            depth += text[end - 1] == '/' ? 0 : 1;
            if (depth > deepest || ++count > mostElements) {
                return false;
            }
        }
        at = end + 1;
    }
    return true;
}

std::string tidied(std::string_view text) {
    std::string out;
    for (const char c : text) {
        const bool isBlank = c == ' ' || c == '\n' || c == '\r' || c == '\t';
        if (!isBlank) {
            out += c;
        } else if (!out.empty() && out.back() != ' ') {
            out += ' ';
        }
    }
    if (out.ends_with(' ')) {
        out.pop_back();
    }
    return out;
}

} // namespace

std::optional<std::string> unpackZlib(std::string_view bytes) {
    return Inflation(MAX_WBITS).run(bytes);
}

std::optional<std::string> unpackFirstZipEntry(std::string_view bytes) {
    // PKWARE APPNOTE 4.3.7: flags at 6, method at 8, checksum at 14, lengths of the packed bytes,
    // name and extra field at 18, 26 and 28, behind which the data begins.
    constexpr std::size_t header = 30;
    if (bytes.size() < header || !bytes.starts_with("PK\x03\x04")) {
        return std::nullopt;
    }
    const unsigned flags = littleEndian(bytes, 6, 2);
    const unsigned method = littleEndian(bytes, 8, 2);
    const std::size_t begin = header + littleEndian(bytes, 26, 2) + littleEndian(bytes, 28, 2);
    if ((flags & 1U) != 0 || begin > bytes.size()) {
        return std::nullopt;
    }
    const bool isToldLater = (flags & 8U) != 0;
    std::optional<std::string> content;
    if (method == Z_DEFLATED) {
        content = Inflation(-MAX_WBITS).run(bytes.substr(begin));
    } else if (method == 0 && !isToldLater && littleEndian(bytes, 18, 4) <= bytes.size() - begin) {
        content = std::string(bytes.substr(begin, littleEndian(bytes, 18, 4)));
    }
    if (content && !isToldLater
        && crc32(0, reinterpret_cast<const Bytef*>(content->data()),
                 static_cast<uInt>(content->size()))
               != littleEndian(bytes, 14, 4)) {
        return std::nullopt;
    }
    return content;
}

std::optional<PayloadXml> PayloadXml::parse(std::string_view text) {
    if (text.size() > mostPayloadBytes || text.find("<!DOCTYPE") != std::string_view::npos
        || text.find("<!ENTITY") != std::string_view::npos || !isWithinBounds(text)) {
        return std::nullopt;
    }
    PayloadXml xml;
    xml.document_ = std::make_shared<pugi::xml_document>();
    // UTF-8 only: another encoding would pass by the checks above.
    const auto result = xml.document_->load_buffer(text.data(), text.size(), pugi::parse_default,
                                                   pugi::encoding_utf8);
    if (!result || !xml.root()) {
        return std::nullopt;
    }
    return xml;
}

std::string_view localName(std::string_view name) {
    const std::size_t colon = name.rfind(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

pugi::xml_node childOf(pugi::xml_node node, std::string_view name) {
    for (const pugi::xml_node child : node.children()) {
        if (child.type() == pugi::node_element && localName(child.name()) == name) {
            return child;
        }
    }
    return {};
}

std::string textOf(pugi::xml_node node, std::string_view child) {
    return tidied(childOf(node, child).text().get());
}

std::string attributeOf(pugi::xml_node node, std::string_view name) {
    for (const pugi::xml_attribute attribute : node.attributes()) {
        if (localName(attribute.name()) == name) {
            return tidied(attribute.value());
        }
    }
    return {};
}

std::optional<Decimal> amountOf(std::string_view text) {
    if (text.starts_with('+')) {
        text.remove_prefix(1);
    }
    if (text.empty() || text.size() > 40 || text.find_first_of("eE") != std::string_view::npos) {
        return std::nullopt;
    }
    const auto value = Decimal::parse(text);
    const Decimal most(1'000'000'000'000);
    if (!value || *value > most || *value < -most) {
        return std::nullopt;
    }
    return *value;
}

std::optional<Date> dayOf(std::string_view text) { return Date::parse(text.substr(0, 10)); }

} // namespace fiscarel
