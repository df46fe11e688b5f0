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

/// The name in characters that the state file and an archive can hold.
std::string cleaned(std::string_view name) {
    std::string clean;
    while (!name.empty()) {
        const std::size_t length = taxcore::utf8Length(name);
        if (length == 0 || isControl(name.front())) {
            clean += '_';
        } else {
            clean += name.substr(0, length);
        }
        name.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return clean;
}

/// A name cut to what file systems allow, with its ending and without half characters.
std::string shortened(const std::filesystem::path& name) {
    std::string stem = name.stem().string();
    std::string ending = name.extension().string();
    if (ending.size() > longestOwnName / 2) {
        stem += ending;
        ending.clear();
    }
    if (stem.size() + ending.size() > longestOwnName) {
        std::size_t end = longestOwnName - ending.size();
        const auto continues = [&] {
            return (static_cast<unsigned char>(stem[end]) & 0xC0U) == 0x80;
        };
        while (end > 0 && continues()) {
            --end;
        }
        stem.resize(end);
    }
    return stem + ending;
}

/// The user's part of a name that was made here.
std::string_view withoutUuid(std::string_view name) {
    const bool isOurs = name.size() > uuidLength + 1 && name[uuidLength] == '-'
                        && Uuid::parse(name.substr(0, uuidLength));
    return isOurs ? name.substr(uuidLength + 1) : name;
}

} // namespace

bool isPlainFileName(std::string_view name) noexcept {
    return !name.empty() && name.size() <= longestFileName && name.front() != '.'
           && std::ranges::none_of(name, [](char c) { return c == '/' || isControl(c); });
}

std::string freshDocumentName(const std::filesystem::path& name) {
    const std::string own = cleaned(name.string());
    return Uuid::random().toString() + "-" + shortened(withoutUuid(own));
}

} // namespace fiscarel
