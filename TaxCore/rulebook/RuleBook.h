#pragma once

#include "TaxCore/rulebook/DeductionParams.h"
#include "TaxCore/rulebook/Municipalities.h"
#include "TaxCore/rulebook/RuleCache.h"
#include "TaxCore/rulebook/RuleFiles.h"
#include "TaxCore/rulebook/Tariffs.h"

#include <tl/expected.hpp>

#include <array>
#include <memory>
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

/// Keeps every book once read; the shared one does so for the life of the process.
class RuleBookCache {
  public:
    static RuleBookCache& shared();

    /// The book kept for canton (as given) and year; null when there is none.
    std::shared_ptr<const RuleBook> get(int year, std::string_view canton) const;

    /// Keeps a book under its canton and year, replacing any other.
    void put(std::shared_ptr<const RuleBook> book);

  private:
    RuleCache<std::string, RuleBook> books_;
};

} // namespace taxcore
