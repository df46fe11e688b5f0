#include "reader/WorkList.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace fiscarel::reader {

namespace {

/// Whether a barcode is that of a tax statement's page: 196, version, institution, page and three
/// more digits (eCH-0270).
bool tellsStatementPage(const PageSymbol& symbol, int page) {
    constexpr std::size_t digits = 16;
    constexpr std::size_t pageAt = 10;
    constexpr std::size_t pageDigits = 3;
    const std::string& text = symbol.bytes;
    if (symbol.symbology != PageSymbol::Symbology::code128 || text.size() != digits
        || !text.starts_with("196")) {
        return false;
    }
    int told = 0;
    std::from_chars(text.data() + pageAt, text.data() + pageAt + pageDigits, told);
    return told == page;
}

} // namespace

WorkList::WorkList(std::vector<PageTask> tasks) {
    for (PageTask& task : tasks) {
        lastPage_ = std::max(lastPage_, task.page);
        open_.emplace(task.page, std::move(task));
    }
}

std::optional<PageTask> WorkList::next() {
    if (open_.empty()) {
        return std::nullopt;
    }
    const bool isPart = !messages_.empty() && !hasEverything_;
    const auto at = isFirst_ || isPart ? std::prev(open_.end()) : open_.begin();
    isFirst_ = false;
    PageTask task = std::move(at->second);
    open_.erase(at);
    task.wantsSymbols = task.wantsSymbols && !hasEverything_;
    return task;
}

void WorkList::add(const PageFound& found) {
    for (const PageSymbol& symbol : found.reading.symbols) {
        if (symbol.part && symbol.symbology == PageSymbol::Symbology::pdf417) {
            Message& message = messages_[symbol.part->message];
            message.parts.insert(symbol.part->index);
            if (symbol.part->count) {
                message.count = symbol.part->count;
            }
        }
        isStatement_ =
            isStatement_
            || (found.reading.number == lastPage_ && tellsStatementPage(symbol, lastPage_));
    }
    hasEverything_ =
        isStatement_ && !messages_.empty() && std::ranges::all_of(messages_, [](const auto& entry) {
            return entry.second.isComplete();
        });
}

} // namespace fiscarel::reader
