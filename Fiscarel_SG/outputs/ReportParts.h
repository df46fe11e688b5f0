#pragma once

// What the chapters of the report are put together from; for the files Report*.cpp alone.

#include "Fiscarel_SG/outputs/EntrySources.h"
#include "Fiscarel_SG/outputs/ReportContent.h"
#include "TaxCore/base/MoneyFormat.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::outputs {

/// The input with what all chapters look up in it.
struct ReportMaterial {
    const ReportInput& input;
    std::vector<taxcore::Derivation> derivations; ///< of every line and figure
    EntrySources sources;
    std::map<std::string, const taxcore::Derivation*, std::less<>> reasons; ///< by code

    explicit ReportMaterial(const ReportInput& input);

    const taxcore::TaxCase& taxCase() const noexcept { return input.taxCase; }
    const taxcore::TaxResult& result() const noexcept { return input.result; }
    bool isLiechtenstein() const noexcept {
        return input.taxCase.taxRegion() == taxcore::TaxRegion::liechtenstein;
    }
    const taxcore::Derivation* reason(std::string_view code) const;
    /// The name of the place where the way to an amount is told; empty when it is not.
    Anchor reasonAnchor(std::string_view code) const;
    /// "1, 3": the documents behind a line.
    std::string documentsOf(std::string_view code) const;
};

// Texts.

/// "1’234.50" with U+2212 before negative amounts.
std::string money(const taxcore::Decimal& francs);
/// The same; empty for 0.
std::string moneyOrNothing(const taxcore::Decimal& francs);
/// "105%"
std::string percent(const taxcore::Decimal& value);
/// An amount of a derivation in its unit, with up to six decimals.
std::string inUnit(const taxcore::Decimal& value, taxcore::Unit unit);
/// "01.03.2025"; empty without a date.
std::string dayText(const std::optional<taxcore::Date>& date);
/// The parts that are not empty, with " · " between them.
std::string dotted(const std::vector<std::string>& parts);
/// The name of person 1 or 2; of two persons, one without a name is told by the number.
std::string personName(const taxcore::TaxCase& taxCase, int number);
/// The adults' names: "Nora Rheintaler und Jonas Rheintaler".
std::string householdName(const taxcore::TaxCase& taxCase);

// Tables.

using Cells = std::vector<ReportCell>;
/// A table whose columns are all shown with a head.
ReportTable table(std::vector<ReportColumn> columns);
ReportRow& addRow(ReportTable& table, Cells cells,
                  ReportRow::Weight weight = ReportRow::Weight::plain);
inline ReportColumn textColumn(std::string head) {
    return {std::move(head), ReportColumn::Kind::text};
}
inline ReportColumn labelColumn(std::string head) {
    return {std::move(head), ReportColumn::Kind::label};
}
inline ReportColumn amountColumn(std::string head) {
    return {std::move(head), ReportColumn::Kind::amount};
}

inline ReportColumn pageColumn() { return {"Seite", ReportColumn::Kind::number}; }

/// A chapter that begins with its title as a heading.
ReportChapter chapter(std::string title, Anchor anchor);

// Chapters; those without content have no blocks but their heading, or none at all.

std::vector<ReportBlock> coverBlocks(const ReportMaterial& material);
ReportChapter householdChapter(const ReportMaterial& material);
ReportChapter returnChapter(const ReportMaterial& material);
ReportChapter billChapter(const ReportMaterial& material);
/// Capital payments, work expenses and insurance.
ReportChapter breakdownChapter(const ReportMaterial& material);
ReportChapter limitsChapter(const ReportMaterial& material);
ReportChapter noticesChapter(const ReportMaterial& material);
ReportChapter incomeRegisters(const ReportMaterial& material);
ReportChapter wealthRegisters(const ReportMaterial& material);
ReportChapter deductionRegisters(const ReportMaterial& material);
ReportChapter reasonsChapter(const ReportMaterial& material);
ReportChapter documentsChapter(const ReportMaterial& material);

/// Whether a chapter holds more than its heading.
bool hasContent(const ReportChapter& chapter);

} // namespace fiscarel::outputs
