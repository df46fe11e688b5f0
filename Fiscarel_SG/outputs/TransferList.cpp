#include "Fiscarel_SG/outputs/TransferList.h"

#include "Fiscarel_SG/outputs/CaseEntries.h"
#include "Fiscarel_SG/outputs/SharedForms.h"
#include "Fiscarel_SG/outputs/TransferExceptions.h"
#include "Fiscarel_SG/store/DocumentLinks.h"

#include <algorithm>
#include <map>
#include <utility>

namespace fiscarel::outputs {

using namespace taxcore;

namespace {

template <class T>
void addOnce(std::vector<T>& list, const T& item) {
    if (std::ranges::find(list, item) == list.end()) {
        list.push_back(item);
    }
}

/// Tells each line's row the entries and lines behind it.
void addSources(std::vector<TransferRow>& rows, const std::vector<Derivation>& derivations) {
    std::map<std::string_view, const Derivation*> byCode;
    for (const Derivation& derivation : derivations) {
        byCode.emplace(derivation.code, &derivation);
    }
    for (TransferRow& row : rows) {
        const auto found = row.code.empty() ? byCode.end() : byCode.find(row.code);
        if (found == byCode.end()) {
            continue;
        }
        for (const DerivationStep& step : found->second->steps) {
            if (step.path) {
                addOnce(row.paths, *step.path);
            }
            if (step.kind == DerivationStep::Kind::line && step.code) {
                addOnce(row.lines, *step.code);
            }
        }
    }
}

/// Tells each row the documents behind its entries: those taken over into them and the one linked
/// to their item.
void addDocuments(std::vector<TransferRow>& rows, const TransferInput& input) {
    std::multimap<std::string, Uuid> applied;
    for (const StoredDocument& document : input.documents) {
        for (std::string& path : appliedPaths(input.taxCase, document)) {
            applied.emplace(std::move(path), document.id);
        }
    }
    const std::map<std::string, Uuid> linked = linkedDocuments(input.taxCase);
    for (TransferRow& row : rows) {
        for (const std::string& path : row.paths) {
            const auto [first, last] = applied.equal_range(path);
            for (auto at = first; at != last; ++at) {
                addOnce(row.documents, at->second);
            }
            if (const auto link = linked.find(itemOf(path)); link != linked.end()) {
                addOnce(row.documents, link->second);
            }
        }
    }
}

/// The ticks by the key of their row, each with its value.
std::map<std::string, std::vector<std::string>> byKey(const std::set<std::string>& ticks) {
    std::map<std::string, std::vector<std::string>> values;
    for (const std::string& tick : ticks) {
        const std::size_t sign = std::min(tick.find('='), tick.size());
        values[tick.substr(0, sign)].push_back(tick.substr(std::min(sign + 1, tick.size())));
    }
    return values;
}

void applyTicks(std::vector<TransferRow>& rows,
                std::map<std::string, std::vector<std::string>>& ticks) {
    for (TransferRow& row : rows) {
        const auto found = ticks.find(row.key);
        if (found == ticks.end()) {
            continue;
        }
        const std::string shown = row.shown();
        for (const std::string& value : found->second) {
            if (value == shown) {
                row.tick = Tick::done;
            } else {
                row.formers.push_back(row.key + "=" + value);
                row.oldValue = value;
            }
        }
        if (row.tick == Tick::done) {
            row.oldValue.clear();
        } else {
            row.tick = Tick::changed;
        }
        ticks.erase(found);
    }
}

/// What somebody would call a row that is no more.
std::string goneLabel(const std::string& key, const std::vector<Derivation>& derivations) {
    const auto line = std::ranges::find(derivations, key, &Derivation::code);
    if (line != derivations.end()) {
        return line->label;
    }
    constexpr std::pair<std::string_view, std::string_view> lists[] = {
        {"securities[", "Wertschriften- und Guthabenverzeichnis"},
        {"debts[", "Schuldenverzeichnis"},
        {"realEstate[", "Liegenschaft"},
        {"children[", "Kind"},
        {"vehicles[", "Fahrzeug"},
        {"insurances[", "Lebens- oder Rentenversicherung"},
        {"capitalPayments[", "Kapitalleistung"},
        {"income1.salaries[", "Lohnausweis"},
        {"income2.salaries[", "Lohnausweis"},
        {"income1.pensions[", "Rente"},
        {"income2.pensions[", "Rente"},
        {"householdDeductions.medicalCosts[", "Krankheitskosten"},
        {"householdDeductions.donations[", "Zuwendung"},
        {"person2", "Person 2"},
        {"deductions1.work", "Berufskosten Person 1"},
        {"deductions2.work", "Berufskosten Person 2"},
        {"berufskosten", "Berufskosten"},
        {"li.commute", "Arbeitsweg"},
        {"580.", "Gewinnungskosten"},
    };
    for (const auto& [begin, label] : lists) {
        if (key.starts_with(begin)) {
            return std::string(label);
        }
    }
    return "Feld «" + key + "»";
}

/// What was ticked and is no more, the fields of a record together.
std::vector<GoneRow> goneRows(const std::map<std::string, std::vector<std::string>>& ticks,
                              const std::vector<Derivation>& derivations) {
    std::vector<GoneRow> gone;
    std::string last;
    for (const auto& [key, values] : ticks) {
        const std::size_t point = key.rfind('.');
        const std::string record = point == std::string::npos ? key : key.substr(0, point);
        if (gone.empty() || record != last || point == std::string::npos) {
            gone.push_back({goneLabel(key, derivations), {}, {}});
        }
        last = record;
        for (const std::string& value : values) {
            gone.back().oldValues.push_back(value);
            gone.back().ticks.push_back(key + "=" + value);
        }
    }
    return gone;
}

void addExceptions(TransferList& list, const TransferInput& input) {
    std::set<std::string_view> told;
    for (const TransferRow& row : list.rows) {
        told.insert(row.paths.begin(), row.paths.end());
    }
    for (CaseEntry& entry : entriesOf(input.taxCase)) {
        if (told.contains(entry.path)) {
            continue;
        }
        if (auto reason = reasonNotTransferred(input.taxCase, input.result, entry.path)) {
            list.notTransferred.push_back({std::move(entry.path), std::move(entry.value),
                                           std::move(*reason), entry.isInitial});
        } else {
            list.unexplained.push_back(std::move(entry.path));
        }
    }
}

} // namespace

std::size_t TransferList::doneCount() const {
    return static_cast<std::size_t>(std::ranges::count(rows, Tick::done, &TransferRow::tick));
}

std::vector<std::string> TransferList::forms() const {
    std::vector<std::string> names;
    for (const TransferRow& row : rows) {
        addOnce(names, row.form);
    }
    return names;
}

TransferList makeTransferList(const TransferInput& input) {
    const std::vector<Derivation> derivations = input.calculator.explainAll(input.taxCase);
    FormWriter writer(input.taxCase);
    if (input.taxCase.taxRegion() == TaxRegion::liechtenstein) {
        writeLiechtenstein(writer, input.result);
    } else {
        writeStGallen(writer, input.result);
    }
    TransferList list;
    list.rows = std::move(writer).take();
    addSources(list.rows, derivations);
    addDocuments(list.rows, input);
    auto ticks = byKey(input.ticks);
    applyTicks(list.rows, ticks);
    list.gone = goneRows(ticks, derivations);
    addExceptions(list, input);
    return list;
}

} // namespace fiscarel::outputs
