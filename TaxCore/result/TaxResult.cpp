#include "TaxCore/result/TaxResult.h"

#include "TaxCore/base/JsonWriter.h"

namespace taxcore {

template std::string toJson<TaxResult>(const TaxResult&, JsonStyle);

std::string TaxLine::id() const { return code.empty() ? ziffer + "-" + label : code; }

std::vector<TaxLine> TaxResult::fields() const {
    std::vector<TaxLine> coded;
    for (const TaxSection& section : sections) {
        for (const TaxLine& entry : section.lines) {
            if (!entry.code.empty()) {
                coded.push_back(entry);
            }
        }
    }
    return coded;
}

const TaxLine* TaxResult::line(std::string_view code) const noexcept {
    if (code.empty()) {
        return nullptr;
    }
    for (const TaxSection& section : sections) {
        for (const TaxLine& entry : section.lines) {
            if (entry.code == code) {
                return &entry;
            }
        }
    }
    return nullptr;
}

Decimal TaxResult::value(std::string_view code) const {
    const TaxLine* found = line(code);
    return found != nullptr ? found->canton : Decimal(0);
}

} // namespace taxcore
