#include "cli/ReturnText.h"

#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/model/Household.h"
#include "cli/Printable.h"
#include "cli/TextTable.h"

#include <algorithm>

namespace fiscarel::cli {

namespace {

using namespace taxcore;

constexpr std::size_t zifferWidth = 6;
constexpr std::size_t labelWidth = 58;
constexpr std::size_t amountWidth = 16;
constexpr std::size_t billNameWidth = 30;
constexpr std::size_t rateWidth = 12;
constexpr std::size_t textWidth = 92;

std::string amount(const Decimal& value) { return MoneyFormat::chf(value, 2, false); }

std::string cell(std::string_view text) { return cli::cell(text, amountWidth); }

/// A label of at most `width` columns behind `start`, with the amounts behind its last line; the
/// lines after the first are indented like the text behind `start`.
std::string labelled(const std::string& start, const std::string& label, std::size_t width,
                     const std::string& amounts) {
    const std::string indent(displayWidth(start), ' ');
    std::string lines = wrapped(label, width, indent);
    if (lines.empty()) {
        return withoutTrailingBlanks(padRight(start, indent.size() + width) + amounts);
    }
    lines.replace(0, indent.size(), start);
    lines.pop_back();
    const std::size_t last = lines.rfind('\n') + 1;
    return lines.substr(0, last)
           + withoutTrailingBlanks(padRight(lines.substr(last), indent.size() + width) + amounts);
}

/// Deductions are shown with a minus, so that a column adds up. Their total is the one line that
/// stands in the result as a positive amount although it is taken off.
bool isTakenOff(const TaxLine& line) {
    return line.kind == TaxLine::Kind::deduction || line.code == "totalAbzuege"
           || (line.code == "640" && line.kind == TaxLine::Kind::subtotal);
}

std::string sectionText(const TaxSection& section) {
    const bool twoColumns = std::ranges::any_of(section.lines, &TaxLine::differsFederally);
    std::string text =
        withoutTrailingBlanks(padRight(section.title, 2 + zifferWidth + labelWidth)
                              + (twoColumns ? cell("Kanton") + cell("Bund") : cell("CHF")));
    bool afterSum = true; // nothing stands above the first line
    for (const TaxLine& line : section.lines) {
        const bool sum = line.kind == TaxLine::Kind::subtotal || line.kind == TaxLine::Kind::total;
        const bool minus = isTakenOff(line);
        const auto shown = [&](const Decimal& value) {
            return cell(amount(minus ? -value : value));
        };
        if (sum && !afterSum) {
            const std::size_t rule = amountWidth * (twoColumns ? 2 : 1);
            text += std::string(2 + zifferWidth + labelWidth, ' ') + std::string(rule, '-') + "\n";
        }
        afterSum = sum;
        text +=
            labelled("  " + padRight(line.ziffer, zifferWidth), printable(line.label), labelWidth,
                     shown(line.canton) + (twoColumns ? shown(line.federalOrCanton()) : ""));
        if (line.note) {
            text +=
                wrapped(printable(*line.note), labelWidth, std::string(2 + zifferWidth + 2, ' '));
        }
    }
    return text + "\n";
}

std::string billRow(const std::string& name, const std::string& rate, const std::string& income,
                    const std::string& wealth, const std::string& total) {
    return labelled("  ", name, billNameWidth,
                    cli::cell(rate, rateWidth) + cell(income) + cell(wealth) + cell(total));
}

/// The church row names the parish whose multiplier counts, or why there is none.
std::string churchName(const TaxCase& taxCase, const TaxResult& result) {
    const auto paysToParish = [](const Person& person) {
        return person.confession == Confession::roemischKatholisch
               || person.confession == Confession::evangelischReformiert;
    };
    if (result.parish) {
        return "Kirche (Kirchgemeinde " + result.parish->name + ")";
    }
    if (taxCase.parish) {
        return "Kirche (Kirchgemeinde «" + printable(*taxCase.parish) + "» nicht gefunden)";
    }
    return std::ranges::any_of(taxCase.persons(), paysToParish)
               ? "Kirche (keine Kirchgemeinde gewählt)"
               : "Kirche";
}

std::string billText(const TaxCase& taxCase, const TaxResult& result) {
    const TaxBill& bill = result.bill;
    const auto percent = [](const Decimal& rate) { return MoneyFormat::number(rate) + "%"; };
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
    text +=
        billRow(churchName(taxCase, result), percent(bill.churchRate), amount(bill.churchIncome),
                amount(bill.churchWealth), amount(bill.churchTotal()));
    text += billRow("Kanton, Gemeinde und Kirche", percent(bill.totalRate()), "", "",
                    amount(bill.cantonAndMunicipalityTotal()));
    text += billRow("Direkte Bundessteuer", "", amount(bill.federal), "", amount(bill.federal));
    if (!bill.federalChildReduction.isZero()) {
        text += "    nach Tarif " + amount(bill.federalBeforeChildReduction) + ", Abzug für Kinder "
                + amount(bill.federalChildReduction) + "\n";
    }
    text += "  " + std::string(billNameWidth + rateWidth + 3 * amountWidth, '-') + "\n";
    text += billRow("Total der Steuern", "", "", "", amount(bill.total()));
    if (result.capitalPaymentTax && !result.capitalPaymentTax->amount.isZero()) {
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

/// In Liechtenstein there is one tax: the section of the return holds its amounts already.
std::string liechtensteinBillText(const TaxCase& taxCase, const TaxResult& result) {
    const TaxBill& bill = result.bill;
    const auto percent = [](const Decimal& rate) { return MoneyFormat::number(rate) + "%"; };
    const auto row = [](const std::string& name, const std::string& rate,
                        const std::string& value) {
        return labelled("  ", name, billNameWidth + 2 * amountWidth,
                        cli::cell(rate, rateWidth) + cell(value));
    };
    std::string text = heading("Steuerrechnung");
    text += "\n  Tarif: " + std::string(label(liTariffOf(taxCase))) + "\n\n";
    text += row("Steuerbarer Gesamterwerb", "", amount(bill.taxableIncomeCanton));
    text += row("Landessteuer", "", amount(bill.cantonIncome));
    const bool unknown =
        std::ranges::find(result.notices, "li-gemeinde", &Notice::id) != result.notices.end();
    text += row("Gemeindezuschlag "
                    + (unknown ? std::string("(angenommen)") : printable(taxCase.municipality)),
                percent(bill.municipalityRate), amount(bill.municipalityIncome));
    text += "  " + std::string(billNameWidth + rateWidth + 3 * amountWidth, '-') + "\n";
    text += row("Total der Steuern", percent(bill.simpleIncomeRatePercent), amount(bill.total()));
    return text + "\n";
}

std::string noticesText(const TaxResult& result) {
    std::string text;
    for (const Notice& notice : result.notices) {
        text += wrapped(std::string(label(notice.level)) + ": " + printable(notice.title),
                        textWidth, "  ");
        text += wrapped(printable(notice.message), textWidth, "    ");
    }
    return text.empty() ? text : heading("Hinweise") + "\n" + text;
}

/// The persons' names; of two persons, one without a name is told by its number.
std::string names(const TaxCase& taxCase) {
    std::string names;
    int number = 1;
    for (const Person& person : taxCase.persons()) {
        const bool nameless = person.firstName.empty() && person.lastName.empty();
        names += number == 1 ? "" : " und ";
        names += nameless && taxCase.isJoint() ? "Person " + std::to_string(number)
                                               : person.displayName();
        ++number;
    }
    return names;
}

} // namespace

std::string returnText(const TaxCase& taxCase, const TaxResult& result) {
    const std::string& municipality =
        result.municipality ? result.municipality->name : taxCase.municipality;
    const bool liechtenstein = taxCase.taxRegion() == TaxRegion::liechtenstein;
    std::string text =
        heading("Steuererklärung " + std::to_string(result.year) + " – "
                + (liechtenstein ? "" : "Kanton ") + std::string(label(taxCase.taxRegion())));
    text += wrapped(printable(names(taxCase) + (municipality.empty() ? "" : ", " + municipality)
                              + ", " + std::string(label(taxCase.civilStatus))),
                    lineWidth, "")
            + "\n";
    for (const TaxSection& section : result.sections) {
        text += sectionText(section);
    }
    text += liechtenstein ? liechtensteinBillText(taxCase, result) : billText(taxCase, result);
    return text + noticesText(result);
}

} // namespace fiscarel::cli
