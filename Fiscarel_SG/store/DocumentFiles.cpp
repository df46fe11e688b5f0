#include "Fiscarel_SG/store/DocumentFiles.h"

#include "TaxCore/base/Utf8.h"
#include "TaxCore/base/Uuid.h"

#include <algorithm>

namespace fiscarel {

namespace {

using taxcore::Uuid;

constexpr std::size_t longestFileName = 255; ///< bytes, of all usual file systems
constexpr std::size_t longestOwnName = 200;  ///< bytes, without the UUID
constexpr std::size_t uuidLength = 36;

bool isControl(char c) noexcept {
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20U || code == 0x7FU;
}

/// A name cut to what file systems allow, with its ending and without half characters.
std::string shortened(const std::filesystem::path& name) {
    std::string stem = name.stem().string();
    std::string ending = name.extension().string();
    if (ending.size() > longestOwnName / 2) {
        stem += ending;
        ending.clear();
    }
    cutTo(stem, longestOwnName - ending.size());
    return stem + ending;
}

/// The user's part of a name that was made here.
std::string_view withoutUuid(std::string_view name) {
    const bool isOurs = name.size() > uuidLength + 1 && name[uuidLength] == '-'
                        && Uuid::parse(name.substr(0, uuidLength));
    return isOurs ? name.substr(uuidLength + 1) : name;
}

/// The user's part of the name of a file that is stored: of characters that the state file and an
/// archive can hold.
std::string ownName(const std::string& name) { return shortened(withoutUuid(cleaned(name, '_'))); }

} // namespace

std::string cleaned(std::string_view name, char instead) {
    std::string clean;
    while (!name.empty()) {
        const std::size_t length = taxcore::utf8Length(name);
        if (length == 0 || isControl(name.front())) {
            clean += instead;
        } else {
            clean += name.substr(0, length);
        }
        name.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return clean;
}

void cutTo(std::string& text, std::size_t mostBytes) {
    if (text.size() <= mostBytes) {
        return;
    }
    std::size_t end = mostBytes;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) {
        --end;
    }
    text.resize(end);
}

bool isPlainFileName(std::string_view name) noexcept {
    return !name.empty() && name.size() <= longestFileName && name.front() != '.'
           && std::ranges::none_of(name, [](char c) { return c == '/' || isControl(c); });
}

std::string freshDocumentName(const std::filesystem::path& name) {
    return Uuid::random().toString() + "-" + ownName(name.string());
}

bool isTitleOfFile(const std::string& title, const std::string& fileName) {
    const std::string stored(withoutUuid(fileName));
    return ownName(title + std::filesystem::path(stored).extension().string()) == stored;
}

} // namespace fiscarel
