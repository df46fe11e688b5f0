#pragma once

#include "TaxCore/rulebook/DeductionParams.h"
#include "TaxCore/rulebook/Municipalities.h"
#include "TaxCore/rulebook/RuleFiles.h"
#include "TaxCore/rulebook/Tariffs.h"

#include <tl/expected.hpp>

#include <array>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace taxcore {

class RuleBookCache;

/// The rules of one canton and year, immutable once loaded.
struct RuleBook {
    using LoadError = RuleLoadError;

    /// The years for which rule files ship, ascending.
    static constexpr std::array supportedYears{2025, 2026};

    int year = 0;
    std::string canton; ///< as asked for
    DeductionParams cantonal;
    CantonExtraParams cantonalExtra;
    DeductionParams federal;
    FederalRules federalRules;
    SGTariffTable sgTariff;
    MunicipalityList municipalities;

    /// The book of a year from the shared cache; on a miss it is read from the files that ship with
    /// the program and kept. Any thread may call it.
    static tl::expected<std::shared_ptr<const RuleBook>, LoadError> load(int year,
                                                                         std::string_view canton);

    /// The same with the cache and the files given. Nothing is cached after a failure.
    static tl::expected<std::shared_ptr<const RuleBook>, LoadError>
    load(int year, std::string_view canton, RuleBookCache& cache, const RuleFiles& files);
};

/// Keeps every book once read, for the life of the process. Books are immutable and shared, so
/// handing one out copies nothing.
class RuleBookCache {
  public:
    static RuleBookCache& shared();

    /// The book kept for canton (as given) and year; null when there is none.
    std::shared_ptr<const RuleBook> get(int year, std::string_view canton) const;

    /// Keeps a book under its canton and year, replacing any other.
    void put(std::shared_ptr<const RuleBook> book);

  private:
    mutable std::mutex lock_;
    std::map<std::string, std::shared_ptr<const RuleBook>, std::less<>> books_;
};

} // namespace taxcore
