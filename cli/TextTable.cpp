#include "cli/TextTable.h"

#include <algorithm>

namespace fiscarel::cli {

std::size_t displayWidth(std::string_view text) noexcept {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string padRight(std::string_view text, std::size_t width) {
    std::string padded(text);
    padded.append(width - std::min(width, displayWidth(text)), ' ');
    return padded;
}

std::string padLeft(std::string_view text, std::size_t width) {
    return std::string(width - std::min(width, displayWidth(text)), ' ').append(text);
}

std::string wrapped(std::string_view text, std::size_t width, std::string_view indent) {
    std::string lines;
    std::string line;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        const std::string_view word = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!line.empty() && displayWidth(line) + 1 + displayWidth(word) > width) {
            lines.append(indent).append(line).append("\n");
            line.clear();
        }
        line.append(line.empty() ? "" : " ").append(word);
    }
    return line.empty() ? lines : lines.append(indent).append(line).append("\n");
}

std::string withoutTrailingBlanks(std::string line) {
    line.erase(line.find_last_not_of(' ') + 1);
    return line + "\n";
}

std::string heading(const std::string& text) {
    return text + "\n" + std::string(displayWidth(text), '=') + "\n";
}

} // namespace fiscarel::cli
