#include "Fiscarel_SG/pages/PageParts.h"
#include "Fiscarel_SG/pages/WealthCards.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Text.h"

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

/// What every return asks for comes first, what is rarely needed last.
std::vector<Field<SecurityEntry>> securityFields(const PageContext& context) {
    const bool withYields = !isLiechtenstein(context); // only the return of St.Gallen asks for them
    std::vector<Field<SecurityEntry>> fields{
        text<&SecurityEntry::institution>("Bank / Schuldner",
                                          "Bank, Post oder wer das Geld schuldet."),
        choice<&SecurityEntry::kind>(
            "Art", "Konto, Wertschrift oder das Total eines Steuerauszugs der Bank."),
        amount<&SecurityEntry::taxValue>("Steuerwert", taxValueHelp(isLiechtenstein(context)))};
    if (withYields) {
        fields.push_back(amount<&SecurityEntry::incomeWithWithholding>("Ertrag mit VSt",
                                                                       withholdingHelp(context)));
        fields.push_back(amount<&SecurityEntry::incomeWithoutWithholding>(
            "Ertrag ohne VSt",
            "Bruttoerträge ohne Abzug der Verrechnungssteuer, etwa kleine Zinsen und ausländische "
            "Erträge. Sie stehen auf dem Zinsausweis oder Steuerauszug."));
    }
    fields.push_back(
        text<&SecurityEntry::description>("Bezeichnung", "Name des Kontos oder der Wertschrift."));
    fields.push_back(
        choice<&SecurityEntry::owner>("Eigentum", "Wem das Konto oder die Wertschrift gehört."));
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

std::string securitiesTotal(bool liechtenstein, const TaxCase& taxCase) {
    const auto& entries = taxCase.securities;
    const std::string value =
        "Steuerwert " + plainMoney(totalOf(entries, &SecurityEntry::taxValue));
    return liechtenstein
               ? value
               : value + " · Ertrag mit VSt "
                     + plainMoney(totalOf(entries, &SecurityEntry::incomeWithWithholding))
                     + " · ohne VSt "
                     + plainMoney(totalOf(entries, &SecurityEntry::incomeWithoutWithholding));
}

std::vector<Figure> securitiesFigures(const TaxCase& taxCase, const TaxResult& result) {
    std::vector<Figure> figures = linesOf({{"wertschriften", "Steuerwert im Vermögen"},
                                           {"wertschriftenertrag", "Ertrag im Einkommen"},
                                           {"beteiligungsertrag", {}},
                                           {"teilbesteuerung", {}}})(taxCase, result);
    if (!result.withholdingTaxRefund.isZero()) {
        figures.push_back({"Verrechnungssteuer zurück",
                           MoneyFormat::chf(result.withholdingTaxRefund, 2, false),
                           {}});
    }
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
    card.total = [liechtenstein](const TaxCase& taxCase) {
        return securitiesTotal(liechtenstein, taxCase);
    };
    card.figures = liechtenstein ? linesOf({{"730", {}}, {"735", {}}, {"745", {}}})
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
