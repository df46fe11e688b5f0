#include "Fiscarel_SG/documents/payload/JoinedPayload.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace fiscarel {

namespace {

constexpr std::size_t headerSize = 14;

struct Piece {
    std::string_view bytes;
    int page = 0;
    PagePlace place;
};
using Pieces = std::map<int, Piece>; ///< by index

unsigned bigEndian(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned>(static_cast<unsigned char>(bytes[at])) << 8U
           | static_cast<unsigned char>(bytes[at + 1]);
}

/// Puts parts together that begin with index `from`; complete when none is missing.
JoinedPayload join(const Pieces& pieces, int from, int expected) {
    JoinedPayload joined{.found = static_cast<int>(pieces.size()), .expected = expected};
    int next = from;
    for (const auto& [index, piece] : pieces) {
        joined.isComplete = index == next++;
        if (!joined.isComplete) {
            break;
        }
        joined.bytes += piece.bytes;
    }
    joined.isComplete = joined.isComplete && (expected == 0 || joined.found == expected);
    for (const auto& [index, piece] : pieces) {
        if (std::ranges::find(joined.pages, piece.page) == joined.pages.end()) {
            joined.pages.push_back(piece.page);
        }
    }
    std::ranges::sort(joined.pages);
    const auto first = std::ranges::find_if(
        pieces, [&](const auto& entry) { return entry.second.page == joined.pages.front(); });
    joined.place = first->second.place;
    return joined;
}

template <class Use>
void forEachPdf417(const DocumentReading& reading, Use use) {
    for (const PageReading& page : reading.pages) {
        for (const PageSymbol& symbol : page.symbols) {
            if (symbol.symbology == PageSymbol::Symbology::pdf417) {
                use(page, symbol);
            }
        }
    }
}

bool beginsAsZlib(std::string_view bytes) {
    // RFC 1950 2.2: method 8 in the low four bits, both bytes together divisible by 31.
    return bytes.size() > 2 && (bytes[0] & 0x0F) == 8 && bigEndian(bytes, 0) % 31 == 0;
}

} // namespace

std::vector<JoinedPayload> certificatePayloads(const DocumentReading& reading) {
    struct Message {
        int count = 0;
        Pieces pieces;
    };
    std::vector<std::string> order;
    std::map<std::string, Message> messages;
    forEachPdf417(reading, [&](const PageReading& page, const PageSymbol& symbol) {
        const std::string_view bytes = symbol.bytes;
        if (bytes.size() <= headerSize) {
            return;
        }
        const int index = static_cast<int>(bigEndian(bytes, 10));
        const int count = static_cast<int>(bigEndian(bytes, 12));
        const std::size_t length = bigEndian(bytes, 6);
        if (index < 1 || index > count || count > mostPayloadParts || length <= headerSize) {
            return;
        }
        const std::string_view data = bytes.substr(0, length).substr(headerSize);
        if (index == 1 && !data.starts_with("PK")) {
            return;
        }
        const std::string document(bytes.substr(0, 4));
        if (!messages.contains(document)) {
            order.push_back(document);
        }
        Message& message = messages[document];
        message.count = std::max(message.count, count);
        message.pieces.try_emplace(index, Piece{data, page.number, symbol.place});
    });
    std::vector<JoinedPayload> joined;
    for (const std::string& document : order) {
        joined.push_back(join(messages[document].pieces, 1, messages[document].count));
    }
    return joined;
}

std::vector<JoinedPayload> statementPayloads(const DocumentReading& reading) {
    std::map<std::string, Pieces> messages;
    std::map<std::string, int> counts;
    std::vector<JoinedPayload> joined;
    forEachPdf417(reading, [&](const PageReading& page, const PageSymbol& symbol) {
        if (symbol.part) {
            if (symbol.part->index >= 0 && symbol.part->index < mostPayloadParts) {
                messages[symbol.part->message].try_emplace(
                    symbol.part->index, Piece{symbol.bytes, page.number, symbol.place});
                int& count = counts[symbol.part->message];
                count = std::max(count, symbol.part->count.value_or(0));
            }
        } else if (beginsAsZlib(symbol.bytes)) {
            joined.push_back(join({{0, Piece{symbol.bytes, page.number, symbol.place}}}, 0, 1));
        }
    });
    for (const auto& [message, pieces] : messages) {
        JoinedPayload one = join(pieces, 0, counts[message]);
        if (beginsAsZlib(one.bytes) || !one.isComplete) {
            joined.push_back(std::move(one));
        }
    }
    return joined;
}

std::vector<PageMark> pageMarks(const DocumentReading& reading) {
    std::vector<PageMark> marks;
    for (const PageReading& page : reading.pages) {
        for (const PageSymbol& symbol : page.symbols) {
            const bool isMark =
                symbol.symbology == PageSymbol::Symbology::code128 && symbol.bytes.size() == 16
                && std::ranges::all_of(symbol.bytes, [](char c) { return c >= '0' && c <= '9'; });
            if (isMark) {
                marks.push_back({.standard = std::stoi(symbol.bytes.substr(0, 3)),
                                 .version = std::stoi(symbol.bytes.substr(3, 2)),
                                 .page = page.number});
            }
        }
    }
    return marks;
}

} // namespace fiscarel
