#include "Fiscarel_SG/documents/kinds/PersonBlocks.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/NamedAmounts.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"

#include <utility>
#include <vector>

namespace fiscarel {

std::optional<ProvenAmount> remainderIn(const RowRange& block) {
    using enum Concept;
    static const Labels open{"offen*",  "ausstehend*", "Restbetrag",
                             "ouvert*", "impayé*",     "scopert*"};
    const bool isRecognised = block.page->isRecognised;
    std::vector<Decimal> parts; // the whole first, then what is taken off
    Decimal rest;
    bool areBorne = false; // by others
    for (std::size_t at = block.first; at < block.end; ++at) {
        const Row& row = block.page->rows[at];
        const RowAmount* newest = lastOrNewest(*block.page, at);
        if (newest == nullptr || !newest->amount.isFirm()) {
            continue;
        }
        const RowAmount& last = *newest;
        const Decimal value = last.amount.value;
        if (parts.size() >= 2 && value == rest && rest >= 1) {
            const bool isOwn = areBorne || namesAny(row, {parents, deductible}, isRecognised);
            if (!isOwn || findLabel(row, open, isRecognised)) {
                return std::nullopt;
            }
            const std::size_t end = last.first == 0 ? 0 : last.first - 1;
            return ProvenAmount{
                {.page = block.page, .row = at, .amount = last, .label = textBetween(row, 0, end)},
                {sumText(parts, rest) + ", was davon bleibt", true}};
        }
        if (parts.empty()) {
            if (value < 1) {
                return std::nullopt;
            }
            areBorne = namesAny(row, {childcare, course, fee}, isRecognised);
            rest = value;
        } else {
            areBorne &=
                value < 0 || namesAny(row, {publicShare, reduction, refunded}, isRecognised);
            rest = rest - value.abs();
        }
        parts.push_back(parts.empty() ? value : -value.abs());
    }
    return std::nullopt;
}

std::optional<FoundAmount> withoutMeals(const RowRange& above, FoundAmount total) {
    const bool isRecognised = above.page->isRecognised;
    std::vector<FoundAmount> parts;
    Decimal meals;
    for (std::size_t at = above.first; at < above.end; ++at) {
        const Row& row = above.page->rows[at];
        const RowAmount* newest = lastOrNewest(*above.page, at);
        if (newest == nullptr || !isWorthy(*newest)) {
            continue;
        }
        const RowAmount& last = *newest;
        if (namesAny(row, {Concept::meals, Concept::notDeductible}, isRecognised)) {
            meals = meals + last.amount.value;
        } else {
            const std::size_t end = last.first == 0 ? 0 : last.first - 1;
            parts.push_back(
                {.page = above.page, .row = at, .amount = last, .label = textBetween(row, 0, end)});
        }
    }
    Decimal sum = meals;
    for (const FoundAmount& part : parts) {
        sum = sum + part.value();
    }
    if (meals.isZero() || sum != total.value()) {
        return total;
    }
    return parts.size() == 1 ? std::optional(std::move(parts.front())) : std::nullopt;
}

} // namespace fiscarel
