#pragma once

#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/EnumText.h"
#include "TaxCore/base/Json.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/model/Enumerations.h"
#include "TaxCore/rulebook/Municipalities.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace taxcore {

/// Whose tax an amount is for: canton (with municipality and church) or federation.
enum class Jurisdiction { canton, federal };

template <>
struct EnumTable<Jurisdiction> {
    using enum Jurisdiction;
    static constexpr std::array rows{
        EnumRow{canton, "canton", "Kanton"},
        EnumRow{federal, "federal", "Bund"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(Jurisdiction);

/// One row of the return; amounts in francs.
struct TaxLine {
    enum class Kind {
        income,    ///< adds to the total
        deduction, ///< is subtracted
        subtotal,  ///< an intermediate sum
        total,     ///< a final figure of a section
        info,      ///< for information, part of no sum
    };

    std::string code;   ///< machine key; may be empty for explanatory rows
    std::string ziffer; ///< number on the official form; may be empty
    std::string label;  ///< German
    Decimal canton;
    std::optional<Decimal> federal; ///< absent: the same amount as `canton`
    Kind kind = Kind::income;
    std::optional<std::string> note; ///< German, shown under the line
    std::optional<std::string> form; ///< the auxiliary form the line belongs to

    /// `code`, or `ziffer` and `label` joined by a hyphen when there is no code.
    std::string id() const;
    Decimal federalOrCanton() const { return federal.value_or(canton); }
    /// Whether the federal amount is another one (compared by value).
    bool differsFederally() const { return federal && *federal != canton; }

    bool operator==(const TaxLine&) const = default;
};
TAXCORE_RECORD(TaxLine, code, ziffer, label, canton, federal, kind, note, form);

template <>
struct EnumTable<TaxLine::Kind> {
    using enum TaxLine::Kind;
    static constexpr std::array rows{
        EnumRow{income, "income", "Einkünfte"},         EnumRow{deduction, "deduction", "Abzug"},
        EnumRow{subtotal, "subtotal", "Zwischentotal"}, EnumRow{total, "total", "Total"},
        EnumRow{info, "info", "Information"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(TaxLine::Kind);

/// A section of the return. `title` identifies it within a result.
struct TaxSection {
    std::string title;
    int page = 0;               ///< page of the official return
    std::vector<TaxLine> lines; ///< in display order

    const std::string& id() const noexcept { return title; }

    bool operator==(const TaxSection&) const = default;
};
TAXCORE_RECORD(TaxSection, title, page, lines);

/// The tax bill; amounts in francs, multipliers in percent of the simple tax.
struct TaxBill {
    TariffKind kind = TariffKind::single;
    Decimal taxableIncomeCanton;
    Decimal taxableIncomeFederal;
    Decimal taxableWealth;
    Decimal simpleIncomeTax;
    Decimal simpleIncomeRatePercent; ///< simple tax in percent of the income, unrounded
    Decimal simpleWealthTax;
    Decimal cantonRate;
    Decimal municipalityRate;
    Decimal churchRate; ///< mixed already for a couple of two confessions
    Decimal cantonIncome;
    Decimal municipalityIncome;
    Decimal churchIncome;
    Decimal cantonWealth;
    Decimal municipalityWealth;
    Decimal churchWealth;
    Decimal federalBeforeChildReduction;
    Decimal federalChildReduction;
    Decimal federal;

    Decimal cantonTotal() const { return cantonIncome + cantonWealth; }
    Decimal municipalityTotal() const { return municipalityIncome + municipalityWealth; }
    Decimal churchTotal() const { return churchIncome + churchWealth; }
    /// What the cantonal tax office bills: church tax included.
    Decimal cantonAndMunicipalityTotal() const {
        return cantonTotal() + municipalityTotal() + churchTotal();
    }
    Decimal total() const { return cantonAndMunicipalityTotal() + federal; }
    /// Percent of the simple tax.
    Decimal totalRate() const { return cantonRate + municipalityRate + churchRate; }

    bool operator==(const TaxBill&) const = default;
};
TAXCORE_RECORD(TaxBill, kind, taxableIncomeCanton, taxableIncomeFederal, taxableWealth,
               simpleIncomeTax, simpleIncomeRatePercent, simpleWealthTax, cantonRate,
               municipalityRate, churchRate, cantonIncome, municipalityIncome, churchIncome,
               cantonWealth, municipalityWealth, churchWealth, federalBeforeChildReduction,
               federalChildReduction, federal);

/// The JSON form shows the sums beside the fields.
template <>
struct DerivedFields<TaxBill> {
    static constexpr std::tuple fields{
        DerivedField<TaxBill, Decimal>{"cantonTotal", &TaxBill::cantonTotal},
        DerivedField<TaxBill, Decimal>{"municipalityTotal", &TaxBill::municipalityTotal},
        DerivedField<TaxBill, Decimal>{"churchTotal", &TaxBill::churchTotal},
        DerivedField<TaxBill, Decimal>{"cantonAndMunicipalityTotal",
                                       &TaxBill::cantonAndMunicipalityTotal},
        DerivedField<TaxBill, Decimal>{"total", &TaxBill::total},
        DerivedField<TaxBill, Decimal>{"totalRate", &TaxBill::totalRate},
    };
};

/// The separate tax on the year's lump-sum pension payments; francs.
struct CapitalPaymentTax {
    Decimal amount; ///< total of the payments
    Decimal canton; ///< canton, municipality and church
    Decimal federal;

    bool operator==(const CapitalPaymentTax&) const = default;
};
TAXCORE_RECORD(CapitalPaymentTax, amount, canton, federal);

/// One person's work expenses for one jurisdiction; francs.
struct WorkExpenseBreakdown {
    Decimal commute;         ///< after the cap
    Decimal commuteUncapped; ///< for display; in no sum
    Decimal meals;
    Decimal other;
    Decimal weeklyStay;
    Decimal sideJob;

    Decimal total() const { return commute + meals + other + weeklyStay + sideJob; }

    bool operator==(const WorkExpenseBreakdown&) const = default;
};
TAXCORE_RECORD(WorkExpenseBreakdown, commute, commuteUncapped, meals, other, weeklyStay, sideJob);

/// Insurance premiums and savings interest of the household for one jurisdiction; francs.
struct InsuranceBreakdown {
    Decimal paid;
    Decimal maximum;

    /// The smaller of the two.
    Decimal deduction() const { return paid <= maximum ? paid : maximum; }

    bool operator==(const InsuranceBreakdown&) const = default;
};
TAXCORE_RECORD(InsuranceBreakdown, paid, maximum);

/// A remark on the entries or a savings tip.
struct Notice {
    enum class Level { error, warning, info, tip };

    std::string id; ///< stable, unique within one list
    Level level = Level::info;
    std::string title;
    std::string message;
    std::optional<Decimal> saving;   ///< francs of tax; tips only
    std::optional<std::string> area; ///< page it leads to; absent for general notices
    std::optional<std::string> path; ///< the field of the case to go to, where there is one
    /// Tips only: true when the tax year is over and what the tip asks for can no longer be done in
    /// it; absent otherwise.
    std::optional<bool> missed;

    bool operator==(const Notice&) const = default;
};
TAXCORE_RECORD(Notice, id, level, title, message, saving, area, path, missed);

template <>
struct EnumTable<Notice::Level> {
    using enum Notice::Level;
    static constexpr std::array rows{
        EnumRow{error, "error", "Fehler"},
        EnumRow{warning, "warning", "Warnung"},
        EnumRow{info, "info", "Hinweis"},
        EnumRow{tip, "tip", "Tipp"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(Notice::Level);

/// A value for some of the jurisdictions; in Liechtenstein there is only one.
template <class T>
struct ByJurisdiction {
    std::optional<T> canton;
    std::optional<T> federal;

    std::optional<T>& operator[](Jurisdiction which) {
        return which == Jurisdiction::canton ? canton : federal;
    }
    const std::optional<T>& operator[](Jurisdiction which) const {
        return which == Jurisdiction::canton ? canton : federal;
    }

    bool operator==(const ByJurisdiction&) const = default;
};
using WorkExpensesByJurisdiction = ByJurisdiction<std::vector<WorkExpenseBreakdown>>;
using InsuranceByJurisdiction = ByJurisdiction<InsuranceBreakdown>;
TAXCORE_RECORD(WorkExpensesByJurisdiction, canton, federal);
TAXCORE_RECORD(InsuranceByJurisdiction, canton, federal);

/// A computed return: plain value, owns all its parts, never changed after the calculator
/// returned it.
struct TaxResult {
    int year = 0;
    std::vector<TaxSection> sections; ///< in the order of the forms
    TaxBill bill;
    WorkExpensesByJurisdiction work; ///< one breakdown per person, in the order of the case
    InsuranceByJurisdiction insurance;
    Decimal withholdingTaxRefund; ///< francs
    Decimal withholdingIncomeA;   ///< income subject to withholding tax, francs
    std::optional<CapitalPaymentTax> capitalPaymentTax; ///< absent without capital payments
    std::vector<Notice> notices;                        ///< in the order found
    std::optional<Municipality> municipality;
    std::optional<Parish> parish;

    /// All lines that have a code, in display order; built afresh.
    std::vector<TaxLine> fields() const;
    /// The first line of this code (exact); null when there is none. Valid as long as the result.
    const TaxLine* line(std::string_view code) const noexcept;
    /// The canton's amount of the line; 0 when there is none.
    Decimal value(std::string_view code) const;

    bool operator==(const TaxResult&) const = default;
};
TAXCORE_RECORD(TaxResult, year, sections, bill, work, insurance, withholdingTaxRefund,
               withholdingIncomeA, capitalPaymentTax, notices, municipality, parish);

extern template std::string toJson<TaxResult>(const TaxResult&, JsonStyle);

} // namespace taxcore
