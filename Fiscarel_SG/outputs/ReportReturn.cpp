// The chapters that show the result: return, bill, and how some of its parts add up.

#include "Fiscarel_SG/outputs/ReportParts.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/review/Advisor.h"

#include <algorithm>
#include <array>
#include <utility>

namespace fiscarel::outputs {

using namespace taxcore;

namespace {

using Weight = ReportRow::Weight;

/// Whether the amount is taken off, so that a column adds up with a minus. The total of the
/// deductions is the one line that stands in the result as a positive amount although it is.
bool isTakenOff(const TaxLine& line) {
    return line.kind == TaxLine::Kind::deduction || line.code == "totalAbzuege"
           || (line.code == "640" && line.kind == TaxLine::Kind::subtotal);
}

bool isSum(const TaxLine& line) {
    return line.kind == TaxLine::Kind::subtotal || line.kind == TaxLine::Kind::total;
}

/// Leads a row to the derivation of its amount and names the documents behind it, in the last two
/// cells.
void trace(ReportRow& row, const std::string& code, const ReportMaterial& material) {
    row.code = code;
    row.link = material.reasonAnchor(code);
    row.cells.push_back({material.documentsOf(code)});
    row.cells.push_back({.pageOf = row.link});
}

ReportTable sectionTable(const TaxSection& section, const ReportMaterial& material) {
    const bool twoSides = std::ranges::any_of(section.lines, &TaxLine::differsFederally);
    std::vector<ReportColumn> columns{labelColumn("Ziffer"), textColumn("")};
    if (twoSides) {
        columns.push_back(amountColumn("Kanton"));
        columns.push_back(amountColumn("Bund"));
    } else {
        columns.push_back(amountColumn("CHF"));
    }
    columns.push_back(labelColumn("Beleg"));
    columns.push_back(pageColumn());
    ReportTable rows = table(std::move(columns));
    for (const TaxLine& line : section.lines) {
        const auto shown = [&](const Decimal& value) {
            return money(isTakenOff(line) ? -value : value);
        };
        Cells cells{{line.ziffer}, {line.label, line.note.value_or("")}, {shown(line.canton)}};
        if (twoSides) {
            cells.push_back({shown(line.federalOrCanton())});
        }
        trace(addRow(rows, std::move(cells), isSum(line) ? Weight::sum : Weight::plain), line.code,
              material);
    }
    return rows;
}

/// The church row names the parish whose multiplier counts, or why there is none.
std::string churchNote(const TaxCase& taxCase, const TaxResult& result) {
    if (result.parish) {
        return "Kirchgemeinde " + result.parish->name;
    }
    if (taxCase.parish) {
        return "Kirchgemeinde «" + *taxCase.parish + "» nicht gefunden";
    }
    const bool pays = std::ranges::any_of(taxCase.persons(), [](const Person& person) {
        return person.confession == Confession::roemischKatholisch
               || person.confession == Confession::evangelischReformiert;
    });
    return pays ? "keine Kirchgemeinde gewählt" : std::string();
}

ReportTable stGallenBill(const ReportMaterial& material) {
    const TaxResult& result = material.result();
    const TaxBill& bill = result.bill;
    ReportTable rows = table({textColumn(""), amountColumn("Steuerfuss"), amountColumn("Einkommen"),
                              amountColumn("Vermögen"), amountColumn("Total CHF"),
                              labelColumn("Beleg"), pageColumn()});
    const auto add = [&](ReportCell name, std::string rate, std::string income, std::string wealth,
                         std::string total, const char* code, Weight weight = Weight::plain) {
        trace(addRow(rows,
                     {std::move(name),
                      {std::move(rate)},
                      {std::move(income)},
                      {std::move(wealth)},
                      {std::move(total)}},
                     weight),
              code, material);
    };
    add({"Einfache Steuer", MoneyFormat::number(bill.simpleIncomeRatePercent.roundPlain(6))
                                + "% des steuerbaren Einkommens"},
        "", money(bill.simpleIncomeTax), money(bill.simpleWealthTax), "", "simpleIncomeTax");
    add({"Kanton"}, percent(bill.cantonRate), money(bill.cantonIncome), money(bill.cantonWealth),
        money(bill.cantonTotal()), "cantonTotal");
    add({"Gemeinde", result.municipality ? result.municipality->name : std::string()},
        percent(bill.municipalityRate), money(bill.municipalityIncome),
        money(bill.municipalityWealth), money(bill.municipalityTotal()), "municipalityTotal");
    add({"Kirche", churchNote(material.taxCase(), result)}, percent(bill.churchRate),
        money(bill.churchIncome), money(bill.churchWealth), money(bill.churchTotal()),
        "churchTotal");
    add({"Kanton, Gemeinde und Kirche"}, percent(bill.totalRate()), "", "",
        money(bill.cantonAndMunicipalityTotal()), "cantonAndMunicipalityTotal", Weight::sum);
    const bool reduced = !bill.federalChildReduction.isZero();
    add({"Direkte Bundessteuer", reduced ? "nach Tarif " + money(bill.federalBeforeChildReduction)
                                               + ", Abzug für Kinder "
                                               + money(bill.federalChildReduction)
                                         : std::string()},
        "", money(bill.federal), "", money(bill.federal), "federal");
    add({"Total der Steuern"}, "", "", "", money(bill.total()), "total", Weight::sum);
    return rows;
}

ReportTable liechtensteinBill(const ReportMaterial& material) {
    const TaxResult& result = material.result();
    const TaxBill& bill = result.bill;
    ReportTable rows = table({textColumn(""), amountColumn("Satz"), amountColumn("CHF"),
                              labelColumn("Beleg"), pageColumn()});
    const auto add = [&](ReportCell name, std::string rate, const Decimal& amount, const char* code,
                         Weight weight = Weight::plain) {
        trace(addRow(rows, {std::move(name), {std::move(rate)}, {money(amount)}}, weight), code,
              material);
    };
    add({"Steuerbarer Gesamterwerb"}, "", bill.taxableIncomeCanton, "taxableIncomeCanton");
    add({"Landessteuer"}, "", bill.cantonTotal(), "cantonTotal");
    const bool unknown =
        std::ranges::find(result.notices, "li-gemeinde", &Notice::id) != result.notices.end();
    add({"Gemeindezuschlag", unknown
                                 ? std::string("angenommen, die Gemeinde ist nicht in der Liste")
                                 : material.taxCase().municipality},
        percent(bill.municipalityRate), bill.municipalityTotal(), "municipalityTotal");
    add({"Total der Steuern", "in Prozent des steuerbaren Gesamterwerbs"},
        MoneyFormat::number(bill.simpleIncomeRatePercent.roundPlain(6)) + "%", bill.total(),
        "total", Weight::sum);
    return rows;
}

/// What stands beside the bill: the refund of the withholding tax and the total with the tax on
/// capital payments.
void addBesideBill(ReportChapter& bill, const ReportMaterial& material) {
    const TaxResult& result = material.result();
    ReportTable rows = table({textColumn("Ausserhalb der Steuerrechnung"), amountColumn("CHF"),
                              labelColumn("Beleg"), pageColumn()});
    if (!result.withholdingTaxRefund.isZero() || !result.withholdingIncomeA.isZero()) {
        trace(addRow(rows, {{"Rückerstattung der Verrechnungssteuer",
                             "auf Erträgen von " + money(result.withholdingIncomeA)},
                            {money(result.withholdingTaxRefund)}}),
              "withholdingTaxRefund", material);
    }
    const Decimal total = Advisor::totalTax(result);
    if (total != result.bill.total()) {
        addRow(rows, {{"Steuer auf Kapitalleistungen"},
                      {money(total - result.bill.total())},
                      {},
                      {.pageOf = "breakdown"}})
            .link = "breakdown";
        addRow(rows,
               {{"Steuern " + std::to_string(result.year) + " insgesamt"}, {money(total)}, {}, {}},
               Weight::sum);
    }
    if (!rows.rows.empty()) {
        bill.blocks.emplace_back(std::move(rows));
    }
}

void addCapitalPayments(ReportChapter& breakdown, const ReportMaterial& material) {
    const TaxCase& taxCase = material.taxCase();
    if (taxCase.capitalPayments.empty()) {
        return;
    }
    breakdown.blocks.emplace_back(ReportHeading{"Kapitalleistungen aus Vorsorge", 2, "capital"});
    breakdown.blocks.emplace_back(ReportText{
        material.isLiechtenstein()
            ? "Nur zur Information: Die Steuer darauf wird gesondert erhoben und ist hier nicht "
              "berechnet."
            : "Sie werden getrennt vom übrigen Einkommen besteuert."});
    ReportTable rows = table({textColumn("Art"), labelColumn("Ausbezahlt am"), amountColumn("CHF"),
                              labelColumn("Beleg"), pageColumn()});
    Decimal sum;
    for (const CapitalPayment& payment : taxCase.capitalPayments) {
        addRow(rows, {{std::string(label(payment.kind))},
                      {dayText(payment.date)},
                      {money(payment.amount)},
                      {},
                      {}});
        sum += payment.amount;
    }
    const auto& tax = material.result().capitalPaymentTax;
    addRow(rows, {{"Total"}, {}, {money(tax ? tax->amount : sum)}, {}, {}}, Weight::sum);
    if (tax && !material.isLiechtenstein()) {
        trace(addRow(rows, {{"Steuer von Kanton, Gemeinde und Kirche"}, {}, {money(tax->canton)}}),
              "capitalPaymentTax.canton", material);
        trace(addRow(rows, {{"Steuer des Bundes"}, {}, {money(tax->federal)}}),
              "capitalPaymentTax.federal", material);
        addRow(rows,
               {{"Steuer auf Kapitalleistungen"}, {}, {money(tax->canton + tax->federal)}, {}, {}},
               Weight::sum);
    }
    breakdown.blocks.emplace_back(std::move(rows));
}

struct WorkPart {
    const char* name;
    Decimal WorkExpenseBreakdown::*amount;
};
constexpr std::array workParts{
    WorkPart{"Arbeitsweg", &WorkExpenseBreakdown::commute},
    WorkPart{"Verpflegung", &WorkExpenseBreakdown::meals},
    WorkPart{"Übrige Berufskosten", &WorkExpenseBreakdown::other},
    WorkPart{"Wochenaufenthalt", &WorkExpenseBreakdown::weeklyStay},
    WorkPart{"Nebenerwerb", &WorkExpenseBreakdown::sideJob},
};

/// The amounts of both authorities, or of the one there is.
Cells sides(const Decimal& canton, const std::optional<Decimal>& federal) {
    Cells cells{{money(canton)}};
    if (federal) {
        cells.push_back({money(*federal)});
    }
    return cells;
}

std::vector<ReportColumn> sideColumns(std::string head, bool federal) {
    std::vector<ReportColumn> columns{textColumn(std::move(head)),
                                      amountColumn(federal ? "Kanton" : "CHF")};
    if (federal) {
        columns.push_back(amountColumn("Bund"));
    }
    return columns;
}

ReportTable workTable(const std::string& name, const WorkExpenseBreakdown& canton,
                      const WorkExpenseBreakdown* federal) {
    ReportTable rows = table(sideColumns(name, federal != nullptr));
    const auto add = [&](ReportCell head, const auto& amountOf, Weight weight) {
        Cells cells{std::move(head)};
        std::ranges::copy(sides(amountOf(canton), federal != nullptr
                                                      ? std::optional(amountOf(*federal))
                                                      : std::nullopt),
                          std::back_inserter(cells));
        addRow(rows, std::move(cells), weight);
    };
    for (const WorkPart& part : workParts) {
        const auto amountOf = [&](const WorkExpenseBreakdown& one) { return one.*part.amount; };
        if (amountOf(canton).isZero() && (federal == nullptr || amountOf(*federal).isZero())) {
            continue;
        }
        const bool cut =
            part.amount == &WorkExpenseBreakdown::commute
            && (canton.commute < canton.commuteUncapped
                || (federal != nullptr && federal->commute < federal->commuteUncapped));
        const bool differs =
            cut && federal != nullptr && canton.commuteUncapped != federal->commuteUncapped;
        add({part.name,
             cut ? "vor der Begrenzung " + money(canton.commuteUncapped)
                       + (differs ? ", Bund " + money(federal->commuteUncapped) : std::string())
                 : std::string()},
            amountOf, Weight::plain);
    }
    add(
        {"Total"}, [](const WorkExpenseBreakdown& one) { return one.total(); }, Weight::sum);
    return rows;
}

void addWork(ReportChapter& breakdown, const ReportMaterial& material) {
    const auto& work = material.result().work;
    if (!work.canton || work.canton->empty()) {
        return;
    }
    breakdown.blocks.emplace_back(ReportHeading{"Berufskosten", 2, "work"});
    for (std::size_t i = 0; i < work.canton->size(); ++i) {
        const bool hasFederal = work.federal && i < work.federal->size();
        breakdown.blocks.emplace_back(
            workTable(personName(material.taxCase(), static_cast<int>(i) + 1), (*work.canton)[i],
                      hasFederal ? &(*work.federal)[i] : nullptr));
    }
}

void addInsurance(ReportChapter& breakdown, const ReportMaterial& material) {
    const auto& insurance = material.result().insurance;
    if (!insurance.canton) {
        return;
    }
    const InsuranceBreakdown& canton = *insurance.canton;
    const auto& federal = insurance.federal;
    breakdown.blocks.emplace_back(ReportHeading{material.isLiechtenstein()
                                                    ? "Private Versicherungen"
                                                    : "Versicherungsprämien und Sparzinsen",
                                                2, "insurance"});
    ReportTable rows = table(sideColumns("", federal.has_value()));
    const auto add = [&](const char* name, const auto& amountOf, Weight weight = Weight::plain) {
        Cells cells{{name}};
        std::ranges::copy(
            sides(amountOf(canton), federal ? std::optional(amountOf(*federal)) : std::nullopt),
            std::back_inserter(cells));
        addRow(rows, std::move(cells), weight);
    };
    add("Bezahlt, nach Prämienverbilligung", [](const auto& one) { return one.paid; });
    add("Höchstbetrag", [](const auto& one) { return one.maximum; });
    add(
        "Abzug", [](const auto& one) { return one.deduction(); }, Weight::sum);
    breakdown.blocks.emplace_back(std::move(rows));
}

} // namespace

ReportChapter returnChapter(const ReportMaterial& material) {
    ReportChapter made = chapter("Steuererklärung", "return");
    made.blocks.emplace_back(
        ReportText{"Abzüge stehen mit Minus. «Beleg» nennt die Nummern im Verzeichnis der Belege, "
                   "«Seite» führt zur Herleitung des Betrags.",
                   ReportText::Tone::faint});
    int number = 0;
    for (const TaxSection& section : material.result().sections) {
        made.blocks.emplace_back(
            ReportHeading{section.title, 2, "section:" + std::to_string(++number)});
        made.blocks.emplace_back(sectionTable(section, material));
    }
    return made;
}

ReportChapter billChapter(const ReportMaterial& material) {
    ReportChapter bill = chapter("Steuerrechnung", "bill");
    const TaxBill& figures = material.result().bill;
    const bool li = material.isLiechtenstein();
    bill.blocks.emplace_back(ReportText{
        "Tarif: " + std::string(li ? label(liTariffOf(material.taxCase())) : label(figures.kind))});
    if (!li) {
        bill.blocks.emplace_back(
            ReportText{"Steuerbares Einkommen: Kanton " + money(figures.taxableIncomeCanton)
                       + ", Bund " + money(figures.taxableIncomeFederal)
                       + ". Steuerbares Vermögen: " + money(figures.taxableWealth) + "."});
    }
    bill.blocks.emplace_back(li ? liechtensteinBill(material) : stGallenBill(material));
    addBesideBill(bill, material);
    return bill;
}

ReportChapter breakdownChapter(const ReportMaterial& material) {
    ReportChapter breakdown = chapter("Einzelheiten", "breakdown");
    addCapitalPayments(breakdown, material);
    addWork(breakdown, material);
    addInsurance(breakdown, material);
    return breakdown;
}

} // namespace fiscarel::outputs
