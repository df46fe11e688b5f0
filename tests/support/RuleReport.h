#pragma once

#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/Record.h"

#include <simdjson.h>

#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace taxcore::testing {

/// What is wrong with a rule file, "<file>: <path of the key>: <fault>".
using Complaints = std::vector<std::string>;

/// Collects the complaints about one file.
class RuleReport {
  public:
    RuleReport(std::string file, Complaints& complaints)
        : file_(std::move(file)), complaints_(complaints) {}

    void add(const std::string& place, const std::string& fault) {
        complaints_.push_back(file_ + ": " + place + ": " + fault);
    }
    void require(bool holds, const std::string& place, const std::string& fault) {
        if (!holds) {
            add(place, fault);
        }
    }

  private:
    std::string file_;
    Complaints& complaints_;
};

/// "tarif" and "bis" give "tarif.bis".
std::string join(const std::string& path, std::string_view key);

/// "gemeinden" and 2 give "gemeinden[2]".
std::string item(const std::string& path, std::size_t index);

/// In lower case, as far as ASCII goes.
std::string lowered(std::string_view text);

/// Whether there is a name, and no blank before or after it.
bool isProperName(const std::string& name);

/// Complains when a name stands twice or is not a proper one.
void checkNames(const std::vector<std::string>& names, const std::string& key, RuleReport& report);

/// There has to be a citation, and none may be empty.
void checkCitations(const std::vector<std::string>& citations, const std::string& key,
                    RuleReport& report);

/// What a number may be when its key contains a part.
struct Range {
    std::string_view part; ///< in lower case
    Decimal least;
    Decimal most;
};

/// The first range whose part the key contains. The last one has to fit every key.
const Range& rangeOf(std::string_view key, std::span<const Range> ranges);

/// Every number below a value; those of a list have the range of the list.
template <class T>
void checkRanges(const T& value, std::span<const Range> ranges, RuleReport& report,
                 const std::string& path, const Range& range) {
    if constexpr (Record<T>) {
        forEachField(value, [&](std::string_view name, const auto& field) {
            checkRanges(field, ranges, report, join(path, name), rangeOf(name, ranges));
        });
    } else if constexpr (isOptional<T>) {
        if (value) {
            checkRanges(*value, ranges, report, path, range);
        }
    } else if constexpr (isList<T>) {
        for (std::size_t i = 0; i < value.size(); ++i) {
            checkRanges(value[i], ranges, report, item(path, i), range);
        }
    } else if constexpr (!std::is_same_v<T, bool> && std::is_convertible_v<T, Decimal>) {
        const Decimal number = value;
        if (number < range.least || number > range.most) {
            report.add(path, number.toString() + " is out of range");
        }
    }
}

template <Record T>
void checkRanges(const T& record, std::span<const Range> ranges, RuleReport& report) {
    checkRanges(record, ranges, report, {}, ranges.back());
}

/// The keys of an object are those of the records it is read as; `flags` are truth values that may
/// stand beside them.
template <Record... Parts>
void checkKeys(simdjson::dom::element json, const std::string& path, RuleReport& report,
               const std::set<std::string_view>& flags = {});

/// Looks for records below a value. Whether plain values are of the right type shows when the book
/// is read.
template <class T>
void checkBelow(simdjson::dom::element json, const std::string& path, RuleReport& report) {
    if constexpr (Record<T>) {
        checkKeys<T>(json, path, report);
    } else if constexpr (isOptional<T>) {
        checkBelow<typename T::value_type>(json, path, report);
    } else if constexpr (isList<T>) {
        simdjson::dom::array list;
        std::size_t index = 0;
        if (json.get(list) == simdjson::SUCCESS) {
            for (const simdjson::dom::element entry : list) {
                checkBelow<typename T::value_type>(entry, item(path, index++), report);
            }
        }
    }
}

template <Record... Parts>
void checkKeys(simdjson::dom::element json, const std::string& path, RuleReport& report,
               const std::set<std::string_view>& flags) {
    simdjson::dom::object object;
    if (json.get(object) != simdjson::SUCCESS) {
        report.add(path, "not an object");
        return;
    }
    std::set<std::string_view> unread;
    for (const auto [key, value] : object) {
        report.require(unread.insert(key).second, join(path, key), "stands twice");
    }
    const auto readPart = [&](const auto& part) {
        forEachField(part, [&](std::string_view name, const auto& field) {
            using Value = std::remove_cvref_t<decltype(field)>;
            const std::string place = join(path, name);
            if (unread.erase(name) > 0) {
                checkBelow<Value>(object[name], place, report);
            } else {
                report.require(isOptional<Value>, place, "missing key");
            }
        });
    };
    (readPart(Parts{}), ...);
    for (const std::string_view key : unread) {
        report.require(flags.contains(key), join(path, key), "unknown key");
    }
}

/// `name` with its part `from` exchanged; empty when it has no such part.
std::string exchanged(std::string name, std::string_view from, std::string_view to);

/// Siblings whose names make one the bound of the other.
template <Record T>
void checkPairs(const T& record, const std::string& path, int workDays, RuleReport& report) {
    std::map<std::string, Decimal> numbers;
    forEachField(record, [&](std::string_view name, const auto& field) {
        using Value = std::remove_cvref_t<decltype(field)>;
        if constexpr (Record<Value>) {
            checkPairs(field, join(path, name), workDays, report);
        } else if constexpr (std::is_same_v<Value, Decimal>) {
            numbers.emplace(name, field);
        }
    });
    for (const auto& entry : numbers) {
        const std::string& name = entry.first;
        const auto notAbove = [&](const std::string& other, const Decimal& factor) {
            if (const auto bound = numbers.find(other); bound != numbers.end()) {
                report.require(entry.second <= bound->second * factor, join(path, name),
                               "more than " + other + " allows");
            }
        };
        notAbove(exchanged(name, "Min", "Max"), 1);
        notAbove(exchanged(name, "min", "max"), 1);
        notAbove(exchanged(name, "Verbilligt", ""), 1);
        // A yearly maximum that no year of work reaches would be no maximum.
        notAbove(exchanged(name, "Max", "ProTag"), workDays);
    }
}

} // namespace taxcore::testing
