#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace fiscarel {

/// What a column or a label of a paper on securities states.
enum class Stated { quantity, price, value, withTax, withoutTax, income, tax };
constexpr std::size_t statedCount = 7;
using StatedAmounts = std::array<std::optional<FoundAmount>, statedCount>;

inline const std::optional<FoundAmount>& at(const StatedAmounts& amounts, Stated stated) {
    return amounts[static_cast<std::size_t>(stated)];
}
/// By value: what is asked of a passing result must outlive it.
inline std::optional<FoundAmount> at(StatedAmounts&& amounts, Stated stated) {
    return std::move(amounts[static_cast<std::size_t>(stated)]);
}

/// What the Swiss number of a security is called: "Valor", "N° de valeur".
const Labels& securityNumberWords();

/// What words state of a security; absent for numbers and other words,
/// and for more than `most`.
std::optional<Stated> statedBy(const Row& words, bool isRecognised, std::size_t most = 6);
/// Income with or without tax, where words tell.
std::optional<Stated> incomeBy(const Row& words, bool areNamed = false);

/// A security, or an account listed among them.
struct Security {
    std::string number; ///< ISIN or valor; of an account its IBAN
    std::string name;
    bool isAccount = false;
    StatedAmounts amounts;

    /// Sets an amount that is not known yet.
    void put(Stated stated, const std::optional<FoundAmount>& amount);
};

/// Whether a row has an ISIN among its words.
bool hasIsin(const Row& row);
/// The number and name a row gives from its word `first` on before its word `end`.
void readNames(const Row& row, std::size_t end, Security& security, std::size_t first = 0);

/// The securities of a page with what their list prints as totals.
class SecurityList {
  public:
    SecurityList(const KindContext& context, const PageRows& page)
        : context_(context), page_(page) {}

    std::vector<Security> all;
    StatedAmounts totals;
    std::size_t first = 0; ///< row of a table's heading, or of the first name above it
    std::size_t end = 0;   ///< row behind a table's last
    std::vector<std::shared_ptr<const PageRows>>
        parts; ///< of the page, those the amounts point into

    Decimal sumOf(Stated stated) const;
    /// How many securities number times price proves.
    std::size_t countProven() const;
    /// Whether it proves more than one.
    bool isProven() const;
    /// Puts income where the tax that was kept back of it, or that there was none, says.
    void settleByTax();
    /// Puts income that no words tell the tax of where it belongs: that of a Swiss debtor is taxed
    /// at source (VStG Art. 4), interest only above 200 francs. Sure only where the page prints
    /// what both come to, each for itself. Where the tax itself is stated, it tells.
    void settleIncome();
    void propose(ProposalDraft& draft) const;

  private:
    std::optional<ProposalCheck> sumCheck(Stated stated) const;
    std::optional<ProposalCheck> taxCheck() const;
    bool isPrinted(const Decimal& sum) const;
    void proposeOne(const Security& security, ProposalDraft& draft) const;
    void addAmount(int record, const char* field, const Security& security, Stated stated,
                   const std::vector<std::optional<ProposalCheck>>& checks,
                   ProposalDraft& draft) const;

    const KindContext& context_;
    const PageRows& page_;
    bool isTaxAssumed_ = false; ///< of incomes, by their debtors alone
};

} // namespace fiscarel
