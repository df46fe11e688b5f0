#include "cli/TextTable.h"

#include <algorithm>

namespace fiscarel::cli {

namespace {

/// Whether a byte begins a code point.
bool isLead(char c) noexcept { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }

/// Length in bytes of the first `width` columns of a text that is wider.
std::size_t bytesOfColumns(std::string_view text, std::size_t width) noexcept {
    std::size_t end = 0;
    for (std::size_t columns = 0; end < text.size(); ++end) {
        columns += isLead(text[end]) ? 1U : 0U;
        if (columns > width) {
            break;
        }
    }
    return end;
}

} // namespace

std::size_t displayWidth(std::string_view text) noexcept {
    return static_cast<std::size_t>(std::ranges::count_if(text, isLead));
}

std::string padRight(std::string_view text, std::size_t width) {
    std::string padded(text);
    padded.append(width - std::min(width, displayWidth(text)), ' ');
    return padded;
}

std::string padLeft(std::string_view text, std::size_t width) {
    return std::string(width - std::min(width, displayWidth(text)), ' ').append(text);
}

std::string cell(std::string_view text, std::size_t width) {
    return " " + padLeft(text, std::max<std::size_t>(width, 1) - 1);
}

std::string wrapped(std::string_view text, std::size_t width, std::string_view indent) {
    std::string lines;
    std::string line;
    const auto endLine = [&] {
        lines.append(indent).append(line).append("\n");
        line.clear();
    };
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        std::string_view word = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!line.empty() && displayWidth(line) + 1 + displayWidth(word) > width) {
            endLine();
        }
        for (std::size_t columns = displayWidth(word); columns > width; columns -= width) {
            const std::size_t fits = bytesOfColumns(word, width);
            line = word.substr(0, fits);
            word.remove_prefix(fits);
            endLine();
        }
        line.append(line.empty() ? "" : " ").append(word);
    }
    if (!line.empty()) {
        endLine();
    }
    return lines;
}

std::string withoutTrailingBlanks(std::string line) {
    line.erase(line.find_last_not_of(' ') + 1);
    return line + "\n";
}

std::string heading(std::string_view text) {
    const std::string lines = wrapped(text, lineWidth, "");
    std::size_t widest = 0;
    for (std::string_view rest = lines; !rest.empty();) {
        const std::size_t end = rest.find('\n');
        widest = std::max(widest, displayWidth(rest.substr(0, end)));
        rest.remove_prefix(end + 1);
    }
    return lines + std::string(widest, '=') + "\n";
}

} // namespace fiscarel::cli
