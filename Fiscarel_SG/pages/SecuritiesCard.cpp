#include "Fiscarel_SG/pages/PageParts.h"
#include "Fiscarel_SG/pages/WealthCards.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Text.h"

#include <algorithm>
#include <utility>

namespace fiscarel::pages {

namespace {

using namespace forms;
using namespace taxcore;

std::string withholdingHelp(const PageContext& context) {
    const RuleBook* const rules = context.stGallen;
    if (rules == nullptr) {
        return "Spalte «mit VSt»: Erträge, von denen Verrechnungssteuer abgezogen wurde. Brutto "
               "einzutragen; die Steuer wird zurückerstattet.";
    }
    const CantonExtraParams& extra = rules->cantonalExtra;
    return "Spalte «mit VSt»: Erträge, von denen " + percentText(extra.verrechnungssteuerSatz)
           + " Verrechnungssteuer abgezogen wurde (Zinsen über "
           + MoneyFormat::fr(extra.verrechnungssteuerFreigrenzeZins)
           + " und Dividenden schweizerischer Schuldner). Brutto einzutragen; die Steuer wird "
             "zurückerstattet.";
}

std::string taxValueHelp(bool liechtenstein) {
    return liechtenstein ? "Wert am 1. Januar in Franken, gemäss Kontoauszug oder "
                           "Depotverzeichnis der Bank."
                         : "Wert am 31. Dezember in Franken, gemäss Zinsausweis, Depotverzeichnis "
                           "oder Steuerauszug der Bank.";
}

/// The persons by their names.
Field<SecurityEntry> ownerField() {
    auto field =
        choice<&SecurityEntry::owner>("Eigentum", "Wem das Konto oder die Wertschrift gehört.");
    field.optionsFor = [general = field.options](const TaxCase& taxCase) {
        std::vector<Option> options = general;
        for (Option& option : options) {
            for (const auto& [owner, number] :
                 {std::pair(Owner::person1, 1), std::pair(Owner::person2, 2)}) {
                if (option.raw == rawValue(owner)) {
                    option.label = personName(taxCase, number);
                }
            }
        }
        return options;
    };
    return field;
}

/// A column has room for the short name alone; elsewhere nobody has to know what it stands for.
Field<SecurityEntry> spelledOut(Field<SecurityEntry> field, const std::string& label) {
    field.labelFor = [label](const TaxCase&) { return label; };
    return field;
}

/// What every return asks for comes first, what is rarely needed last.
std::vector<Field<SecurityEntry>> securityFields(const PageContext& context) {
    const bool withYields = !isLiechtenstein(context); // only the return of St.Gallen asks for them
    std::vector<Field<SecurityEntry>> fields{
        text<&SecurityEntry::institution>("Bank / Schuldner",
                                          "Bank, Post oder wer das Geld schuldet."),
        choice<&SecurityEntry::kind>(
            "Art", "Konto, Wertschrift oder das Total eines Steuerauszugs der Bank."),
        amount<&SecurityEntry::taxValue>("Steuerwert", taxValueHelp(isLiechtenstein(context)))
            .summed()};
    if (withYields) {
        fields.push_back(spelledOut(amount<&SecurityEntry::incomeWithWithholding>(
                                        "Ertrag mit VSt", withholdingHelp(context))
                                        .summed(),
                                    "Ertrag mit Verrechnungssteuer"));
        fields.push_back(
            spelledOut(amount<&SecurityEntry::incomeWithoutWithholding>(
                           "Ertrag ohne VSt",
                           "Bruttoerträge ohne Abzug der Verrechnungssteuer, etwa kleine Zinsen "
                           "und ausländische "
                           "Erträge. Sie stehen auf dem Zinsausweis oder Steuerauszug.")
                           .summed(),
                       "Ertrag ohne Verrechnungssteuer"));
    }
    fields.push_back(
        text<&SecurityEntry::description>("Bezeichnung", "Name des Kontos oder der Wertschrift."));
    fields.push_back(ownerField());
    if (withYields) {
        fields.push_back(check<&SecurityEntry::isSavingsAccount>(
            "Sparkonto", "Zinsen von Spar- und Privatkonten zählen zum Abzug der "
                         "Versicherungsprämien und Sparzinsen."));
        fields.push_back(check<&SecurityEntry::managedByThirdParty>(
            "Fremdverwaltet",
            "Ankreuzen, wenn eine Bank das Depot führt; danach bemisst sich die Pauschale für die "
            "Verwaltungskosten."));
    }
    fields.push_back(text<&SecurityEntry::ibanOrValor>(
        "IBAN / Valor", "IBAN des Kontos oder Valorennummer der Wertschrift; beides steht auf "
                        "dem Auszug der Bank."));
    fields.push_back(decimal<&SecurityEntry::quantity>(
        "Anzahl", "Stück", "Anzahl Stücke gemäss Depotverzeichnis; bei Konten leer lassen."));
    fields.push_back(choice<&SecurityEntry::code>(
        "Code", "Nur in besonderen Fällen: Geschäftsvermögen, Nutzniessung, Erbschaft, "
                "Schenkung oder eine grosse Beteiligung."));
    return fields;
}

std::vector<Figure> securitiesFigures(const TaxCase& taxCase, const TaxResult& result) {
    std::vector<LineFigure> lines{{"wertschriften", "Steuerwert im Vermögen"},
                                  {"wertschriftenertrag", "Ertrag im Einkommen"}};
    if (std::ranges::find(taxCase.securities, AssetCode::privateParticipation, &SecurityEntry::code)
        != taxCase.securities.end()) {
        lines.push_back({"beteiligungsertrag", "Ertrag aus Beteiligungen ab 10%"});
        lines.push_back({"teilbesteuerung", "Abzug Teilbesteuerung"});
    }
    std::vector<Figure> figures = linesOf(std::move(lines))(taxCase, result);
    const Decimal& refund = result.withholdingTaxRefund;
    figures.push_back({"Verrechnungssteuer zurück",
                       refund.isZero() ? noFigure : MoneyFormat::chf(refund, 2, false),
                       {}});
    return figures;
}

RowSummary securitySummary(const SecurityEntry& entry) {
    const std::string kind(label(entry.kind));
    const std::string& name = entry.institution;
    return {named(name, kind), named(entry.description, isBlank(name) ? "" : kind),
            rowMoney(entry.taxValue)};
}

} // namespace

ListCard securitiesCard(const PageContext& context) {
    const bool liechtenstein = isLiechtenstein(context);
    ListCard card = listCard<SecurityEntry>(
        within<&TaxCase::securities>(wholeCase()),
        {.title = "Wertschriften und Guthaben",
         .help = liechtenstein
                     ? "Alle Konten, Wertschriften und Darlehen. Erträge sind keine einzutragen: "
                       "an ihre Stelle tritt der Sollertrag des Vermögens."
                     : "Alle Konten, Wertschriften und Darlehen mit Steuerwert und Bruttoertrag, "
                       "auch im Lauf des Jahres aufgelöste.",
         .itemName = "Eintrag",
         .isTable = true,
         .offersLastYear = true},
        securityFields(context), securitySummary);
    card.figures = liechtenstein ? linesOf({{"730", "Guthaben und Bargeld"},
                                            {"735", "Wertschriften und Edelmetalle"},
                                            {"745", "Darlehen"}})
                                 : Figures(securitiesFigures);
    return card;
}

FieldsCard assetManagementCard(const PageContext& context) {
    const RuleBook* const rules = context.stGallen;
    const std::string help =
        rules != nullptr
            ? "Leer lassen für die Pauschale von "
                  + MoneyFormat::number(rules->cantonal.verwaltungskostenPromille)
                  + "‰ des durch Banken verwalteten Wertschriftenvermögens (max. "
                  + MoneyFormat::fr(rules->cantonal.verwaltungskostenMax)
                  + "). Sonst die tatsächlichen Depot- und Verwaltungsgebühren gemäss Abrechnung "
                    "der Bank."
            : "Leer lassen für die Pauschale des durch Banken verwalteten Wertschriftenvermögens. "
              "Sonst die tatsächlichen Depot- und Verwaltungsgebühren gemäss Abrechnung der Bank.";
    return fieldsCard(
        "Verwaltungskosten der Wertschriften", {},
        bindAll(within<&TaxCase::householdDeductions>(wholeCase()),
                {onlyStGallen(context, amount<&HouseholdDeductions::actualAssetManagementCosts>(
                                           "Tatsächliche Verwaltungskosten", help))}),
        isLiechtenstein(context) ? Figures{} : linesOf({{"verwaltungskosten", "Abziehbar"}}));
}

} // namespace fiscarel::pages
