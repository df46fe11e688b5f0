#include "cli/ReturnText.h"

#include "TaxCore/base/MoneyFormat.h"
#include "cli/TextTable.h"

#include <algorithm>

namespace fiscarel::cli {

namespace {

using namespace taxcore;

constexpr std::size_t zifferWidth = 6;
constexpr std::size_t labelWidth = 58;
constexpr std::size_t amountWidth = 16;
constexpr std::size_t textWidth = 92;

std::string amount(const Decimal& value) { return MoneyFormat::chf(value, 2, false); }

std::string cell(const std::string& text) { return padLeft(text, amountWidth); }

/// A label that leaves room for the amounts, its further words on lines of their own before them.
std::string labelled(const std::string& ziffer, const std::string& label,
                     const std::string& amounts) {
    const std::string indent(2 + zifferWidth, ' ');
    std::string lines = wrapped(label, labelWidth, indent);
    lines.replace(0, indent.size(), "  " + padRight(ziffer, zifferWidth));
    lines.pop_back();
    const std::size_t last = lines.rfind('\n') + 1;
    return lines.substr(0, last)
           + withoutTrailingBlanks(padRight(lines.substr(last), 2 + zifferWidth + labelWidth)
                                   + amounts);
}

std::string sectionText(const TaxSection& section) {
    const bool twoColumns = std::ranges::any_of(section.lines, &TaxLine::differsFederally);
    std::string text =
        withoutTrailingBlanks(padRight(section.title, 2 + zifferWidth + labelWidth)
                              + (twoColumns ? cell("Kanton") + cell("Bund") : cell("CHF")));
    for (const TaxLine& line : section.lines) {
        const bool sum = line.kind == TaxLine::Kind::subtotal || line.kind == TaxLine::Kind::total;
        const bool minus = line.kind == TaxLine::Kind::deduction;
        const auto shown = [&](const Decimal& value) {
            return cell(amount(minus ? -value : value));
        };
        if (sum) {
            const std::size_t rule = amountWidth * (twoColumns ? 2 : 1);
            text += std::string(2 + zifferWidth + labelWidth, ' ') + std::string(rule, '-') + "\n";
        }
        text += labelled(line.ziffer, line.label,
                         shown(line.canton) + (twoColumns ? shown(line.federalOrCanton()) : ""));
        if (line.note) {
            text += wrapped(*line.note, labelWidth, std::string(2 + zifferWidth + 2, ' '));
        }
    }
    return text + "\n";
}

std::string billRow(const std::string& name, const std::string& rate, const std::string& income,
                    const std::string& wealth, const std::string& total) {
    return withoutTrailingBlanks("  " + padRight(name, 30) + padLeft(rate, 12) + cell(income)
                                 + cell(wealth) + cell(total));
}

std::string billText(const TaxResult& result) {
    const TaxBill& bill = result.bill;
    const auto percent = [](const Decimal& rate) { return rate.toString() + " %"; };
    const std::string municipality =
        "Gemeinde" + (result.municipality ? " " + result.municipality->name : std::string());
    std::string text = heading("Steuerrechnung");
    text += "\n  Tarif: " + std::string(label(bill.kind)) + "\n";
    text += "  Steuerbares Einkommen: Kanton " + amount(bill.taxableIncomeCanton) + ", Bund "
            + amount(bill.taxableIncomeFederal) + "\n";
    text += "  Steuerbares Vermögen: " + amount(bill.taxableWealth) + "\n\n";
    text += billRow("", "Steuerfuss", "Einkommen", "Vermögen", "Total");
    text += billRow("Einfache Steuer", "", amount(bill.simpleIncomeTax),
                    amount(bill.simpleWealthTax), "");
    text += billRow("Kanton", percent(bill.cantonRate), amount(bill.cantonIncome),
                    amount(bill.cantonWealth), amount(bill.cantonTotal()));
    text += billRow(municipality, percent(bill.municipalityRate), amount(bill.municipalityIncome),
                    amount(bill.municipalityWealth), amount(bill.municipalityTotal()));
    text += billRow("Kirche", percent(bill.churchRate), amount(bill.churchIncome),
                    amount(bill.churchWealth), amount(bill.churchTotal()));
    text += billRow("Kanton, Gemeinde und Kirche", percent(bill.totalRate()), "", "",
                    amount(bill.cantonAndMunicipalityTotal()));
    text += billRow("Direkte Bundessteuer", "", amount(bill.federal), "", amount(bill.federal));
    if (!bill.federalChildReduction.isZero()) {
        text += "    nach Tarif " + amount(bill.federalBeforeChildReduction) + ", Abzug für Kinder "
                + amount(bill.federalChildReduction) + "\n";
    }
    text += "  " + std::string(30 + 12 + 3 * amountWidth, '-') + "\n";
    text += billRow("Total der Steuern", "", "", "", amount(bill.total()));
    if (result.capitalPaymentTax) {
        const CapitalPaymentTax& tax = *result.capitalPaymentTax;
        text += "\n  Getrennt besteuert: Kapitalleistungen von " + amount(tax.amount)
                + "\n    Kanton, Gemeinde und Kirche " + amount(tax.canton) + ", Bund "
                + amount(tax.federal) + "\n";
    }
    if (!result.withholdingTaxRefund.isZero()) {
        text += "\n  Rückerstattung der Verrechnungssteuer: " + amount(result.withholdingTaxRefund)
                + " (auf Erträgen von " + amount(result.withholdingIncomeA) + ")\n";
    }
    return text + "\n";
}

std::string noticesText(const TaxResult& result) {
    std::string text;
    for (const Notice& notice : result.notices) {
        text += "  " + std::string(label(notice.level)) + ": " + notice.title + "\n";
        text += wrapped(notice.message, textWidth, "    ");
    }
    return text.empty() ? text : heading("Hinweise") + "\n" + text;
}

std::string names(const TaxCase& taxCase) {
    std::string names;
    for (const Person& person : taxCase.persons()) {
        names += (names.empty() ? "" : " und ") + person.displayName();
    }
    return names;
}

} // namespace

std::string returnText(const TaxCase& taxCase, const TaxResult& result) {
    std::string text = heading("Steuererklärung " + std::to_string(result.year) + " – Kanton "
                               + std::string(label(taxCase.taxRegion())));
    text += names(taxCase) + ", " + taxCase.municipality + ", "
            + std::string(label(taxCase.civilStatus)) + "\n\n";
    for (const TaxSection& section : result.sections) {
        text += sectionText(section);
    }
    return text + billText(result) + noticesText(result);
}

} // namespace fiscarel::cli
