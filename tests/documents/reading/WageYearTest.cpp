#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

using Kind = StoredDocument::Kind;

const std::vector<std::string> wageOfYear{"grossSalary=62000 high", "socialContributions=4500 high",
                                          "pensionContributions=3100 high",
                                          "netSalaryOverride=54400 high"};

struct Slip {
    const char* title;
    const char* month; ///< heads the column of the month
    const char* year;  ///< and that of the year
    double monthEdge = 420;
    double yearEdge = 540;
    double labels = 60;
};

/// A slip whose wage of a month stands beside what it comes to.
DrawnPage slip(const Slip& slip) {
    DrawnPage page;
    page.text(60, 40, slip.title).text(60, 60, "Eintritt 01.03.2019");
    page.right(slip.monthEdge, 100, slip.month).right(slip.yearEdge, 100, slip.year);
    double y = 120;
    const auto line = [&](const char* label, const char* month, const char* year) {
        page.text(slip.labels, y, label);
        page.right(slip.monthEdge, y, month).right(slip.yearEdge, y, year);
        y += 16;
    };
    line("Monatslohn", "5’000.00", "60’000.00");
    line("Zulagen", "", "2’000.00");
    line("Bruttolohn", "5’000.00", "62’000.00");
    line("AHV", "-300.00", "-3’720.00");
    line("ALV", "-70.00", "-780.00");
    line("Pensionskasse", "-250.00", "-3’100.00");
    line("Nettolohn", "4’380.00", "54’400.00");
    line("Spesen", "80.00", "960.00");
    line("Auszahlung", "4’460.00", "55’360.00");
    return page;
}

TEST(WageYear, theYearsLastSlipGivesTheColumnOfTheYear) {
    for (const Slip& row : {
             Slip{"Lohnabrechnung Dezember 2024", "Betrag Monat", "Kumuliert"},
             Slip{"Lohnabrechnung 12.2024", "Monat", "Jahr 2024", 220, 140, 260},
             Slip{"Décompte de salaire décembre 2024", "Ce mois", "Cumul annuel", 540, 120, 160},
             Slip{"Décompte de salaire décembre 2024", "Montant", "Total année"},
             Slip{"Busta paga 12 / 2024", "Mese", "Progressivo"},
             Slip{"Lohnzettel", "Dez. 2024", "Jan. - Dez. 2024"},
         }) {
        const ScanResult result = slip(row).proposed();
        EXPECT_EQ(result.proposedKind, Kind::lohnausweis) << row.title;
        EXPECT_EQ(valuesOf(result), wageOfYear) << row.title << ' ' << row.year;
    }
}

TEST(WageYear, whatAddsUpUntilAnEarlierMonthIsNoWageOfAYear) {
    for (const Slip& row : {
             Slip{"Lohnabrechnung November 2024", "Monat", "Kumuliert"},
             Slip{"Conteggio salario 03/2024", "Importo mese", "Cumulato 2024"},
             Slip{"Fiche de paie juin 2024", "Montant", "Total année"},
             Slip{"Lohnzettel", "April 2024", "Jan. - April 2024"},
         }) {
        const ScanResult result = slip(row).proposed();
        EXPECT_EQ(result.proposedKind, Kind::anderes) << row.title;
        EXPECT_TRUE(result.proposals.empty()) << row.title;
    }
}

TEST(WageYear, whatTheHeadSaysTellsAMonthFromTheYear) {
    struct Case {
        const char* head;
        bool isYear;
    };
    for (const Case& row : {
             Case{"Monatsabrechnung Mai 2024", false},
             Case{"Salaire du mois de mars 2024", false},
             Case{"Cedolino paga 04/2024", false},
             Case{"Lohnzettel Dez. 2024", false},
             Case{"Lohnabrechnung Jahr 2024", true},
             Case{"Décompte de salaire du 01.01.2024 au 31.12.2024", true},
             Case{"Lohnabrechnung Januar - Dezember 2024", true},
             Case{"Lohn ab Mai 2024", true},
             Case{"Lohnausweis 2024, Periode Dezember 2024", true},
         }) {
        DrawnPage page;
        page.line(row.head).line("Monatslohn", "60’000.00").line("Bruttolohn", "62’000.00");
        page.line("AHV", "-3’720.00").line("ALV", "-780.00").line("Pensionskasse", "-3’100.00");
        page.line("Nettolohn", "54’400.00");
        EXPECT_EQ(wageOf(page.proposed()), row.isYear ? wageOfYear : std::vector<std::string>())
            << row.head;
    }
}

TEST(WageYear, aBlockBelowTheMonthOrARowBesideItTellsTheYear) {
    DrawnPage block;
    block.line("Bulletin de salaire décembre 2024").line("Salaire brut", "5’000.00");
    block.line("AVS/AI/APG", "-300.00").line("LPP", "-250.00").line("Salaire net", "4’450.00");
    block.line("Cumuls de l'année 2024").line("Brut", "62’000.00").line("AVS/AI/APG", "-3’720.00");
    block.line("AC", "-780.00").line("LPP", "-3’100.00").line("Net", "54’400.00");
    DrawnPage rows;
    rows.line("Lohnabrechnung Dezember 2024");
    const auto row = [&](double y, const char* label, const std::vector<const char*>& amounts) {
        rows.text(60, y, label);
        for (std::size_t i = 0; i < amounts.size(); ++i) {
            rows.right(240 + 100 * static_cast<double>(i), y, amounts[i]);
        }
    };
    row(120, "", {"Brutto", "Sozialabzüge", "PK", "Netto"});
    row(140, "Dezember 2024", {"5’000.00", "370.00", "250.00", "4’380.00"});
    row(156, "Kumuliert 2024", {"62’000.00", "4’500.00", "3’100.00", "54’400.00"});
    EXPECT_EQ(valuesOf(block.proposed()), wageOfYear);
    EXPECT_EQ(valuesOf(rows.proposed()), wageOfYear);
}

/// A table of wages, its columns "gross, social, fund, net".
DrawnPage table(const char* title, const char* stub,
                const std::vector<std::vector<const char*>>& rows) {
    DrawnPage page;
    page.text(60, 40, title).text(60, 100, stub);
    const std::vector<const char*> heads{"Bruttolohn", "AHV/ALV/NBU", "Pensionskasse", "Nettolohn"};
    double y = 100;
    const auto put = [&](const std::vector<const char*>& words, std::size_t first) {
        for (std::size_t i = first; i < words.size(); ++i) {
            page.right(280 + 85 * static_cast<double>(i - first), y, words[i]);
        }
    };
    put(heads, 0);
    for (const auto& words : rows) {
        y += 18;
        page.text(60, y, words[0]);
        put(words, 1);
    }
    return page;
}

TEST(WageYear, aTableByMonthsGivesItsTotalAndNoneOfItsParts) {
    for (const char* total : {"Total", "Jahr 2024", "Jahrestotal"}) {
        const ScanResult result =
            table("Lohnkarte 2024", "Zeit",
                  {{"1. Halbjahr", "30’000.00", "(2’200.00)", "(1’500.00)", "26’300.00"},
                   {"2. Halbjahr", "32’000.00", "(2’300.00)", "(1’600.00)", "28’100.00"},
                   {total, "62’000.00", "(4’500.00)", "(3’100.00)", "54’400.00"}})
                .proposed();
        EXPECT_EQ(valuesOf(result), wageOfYear) << total;
        EXPECT_EQ(result.records.size(), 1U) << total;
    }
}

TEST(WageYear, eachOfSeveralPeopleHasAWageAndTheirTotalIsNobodys) {
    for (const auto& [one, other] : {std::pair{"KELLER ROSA", "KELLER URS"},
                                     std::pair{"Rosa Keller Küche", "Urs Keller Service"},
                                     std::pair{"Muster Bau AG", "Beispiel Treuhand GmbH"}}) {
        const ScanResult result =
            table("Lohnliste 2024", "Name",
                  {{one, "62’000.00", "4’500.00", "3’100.00", "54’400.00"},
                   {other, "20’000.00", "1’400.00", "1’000.00", "17’600.00"},
                   {"Total", "82’000.00", "5’900.00", "4’100.00", "72’000.00"}})
                .proposed();
        ASSERT_EQ(result.records.size(), 2U) << one;
        EXPECT_EQ(wageOf(result), wageOfYear) << one;
        EXPECT_EQ(valueOf(result, "grossSalary", 1), "20000") << one;
    }
    DrawnPage columns;
    columns.line("Salaires 2024 récapitulatif pour les impôts");
    const auto row = [&](double y, const char* label, const char* one, const char* other) {
        columns.text(60, y, label).right(380, y, one).right(540, y, other);
    };
    row(100, "", "Anne Rochat", "Luc Rochat");
    row(116, "naissance", "06.07.1965", "19.09.1975");
    row(132, "Brut", "62 000,00", "20 000,00");
    row(148, "AVS/AC/AANP", "4 500,00", "1 400,00");
    row(164, "2ème pilier", "3 100,00", "1 000,00");
    row(180, "Net", "54 400,00", "17 600,00");
    const ScanResult result = columns.proposed();
    ASSERT_EQ(result.records.size(), 2U);
    EXPECT_EQ(result.records[0].personName, "Anne Rochat");
    EXPECT_EQ(result.records[1].birthDate, taxcore::Date::of(1975, 9, 19));
    EXPECT_EQ(valuesOf(result), wageOfYear);
}

struct Box {
    double x;
    double y;
    const char* label;
    const char* line;
    const char* amount;
};

TEST(WageYear, boxesMayHaveTheirAmountAboveTheLabelOrBelowTwoLinesOfIt) {
    DrawnPage above;
    above.line("Votre année salariale 2024");
    for (const Box& box : {Box{60, 120, "Salaire brut", "13e compris", "62’000.00"},
                           Box{320, 120, "Assurances sociales", "AVS/AI/APG, AC", "4’500.00"},
                           Box{60, 220, "2e pilier", "cotisations", "3’100.00"},
                           Box{320, 220, "Salaire net", "chiffre 11", "54’400.00"}}) {
        above.text(box.x, box.y, box.amount).right(box.x + 200, box.y, "CHF");
        above.text(box.x, box.y + 14, box.label).text(box.x, box.y + 28, box.line);
    }
    DrawnPage below;
    below.line("Ihr Lohnjahr 2024");
    for (const Box& box : {Box{60, 120, "Bruttolohn", "inkl. 13. Monatslohn", "62’000.00"},
                           Box{320, 120, "Sozialabgaben", "AHV/IV/EO, ALV", "4’500.00"},
                           Box{60, 220, "Pensionskasse", "ordentliche Beiträge", "3’100.00"},
                           Box{320, 220, "Nettolohn", "Ziffer 11", "54’400.00"}}) {
        below.text(box.x, box.y, box.label).text(box.x, box.y + 12, box.line);
        below.right(box.x + 200, box.y + 40, box.amount);
    }
    EXPECT_EQ(valuesOf(above.proposed()), wageOfYear);
    EXPECT_EQ(valuesOf(below.proposed()), wageOfYear);
}

struct Account {
    const char* carried;  ///< what the first page ends with
    const char* incoming; ///< what the second page begins with; empty: nothing
    bool hasHeading = true;
};

/// A wage account that goes on over two pages, or breaks off after the first.
ScanResult accountOver(const Account& account, int pages) {
    std::vector<PageReading> sheets;
    for (int number = 1; number <= pages; ++number) {
        DrawnPage page;
        page.number(number).line("Lohnkonto 2024").line("Anna Muster, geboren 3.4.1975");
        double y = 110;
        const auto row = [&](const char* label, const std::vector<const char*>& words) {
            page.text(60, y, label);
            for (std::size_t i = 0; i < words.size(); ++i) {
                page.right(260 + 90 * static_cast<double>(i), y, words[i]);
            }
            y += 16;
        };
        if (number == 1 || account.hasHeading) {
            row("Monat", {"Bruttolohn", "AHV/ALV", "Pensionskasse", "Nettolohn"});
        }
        if (number == 1) {
            row("Oktober", {"20’000.00", "1’400.00", "1’000.00", "17’600.00"});
            row("November", {"21’000.00", "1’600.00", "1’050.00", "18’350.00"});
            row(account.carried, {"41’000.00", "3’000.00", "2’050.00", "35’950.00"});
        } else if (account.incoming[0] != '\0') {
            row(account.incoming, {"41’000.00", "3’000.00", "2’050.00", "35’950.00"});
        }
        if (number == 2) {
            row("Dezember", {"21’000.00", "1’500.00", "1’050.00", "18’450.00"});
            row("Total 2024", {"62’000.00", "4’500.00", "3’100.00", "54’400.00"});
        }
        sheets.push_back(page.page());
    }
    ScanResult result;
    propose({.pages = sheets, .pageCount = pages}, result);
    return result;
}

TEST(WageYear, whatAPageCarriesOverIsNoWageOfAYear) {
    for (const Account& row : {
             Account{"Übertrag", "Übertrag"},
             Account{"Übertrag auf Seite 2", "Übertrag von Seite 1", false},
             Account{"À reporter", "Report"},
             Account{"Da riportare", "Riporto"},
             Account{"Zwischentotal", ""},
             Account{"Total", ""},
             Account{"Stand November", "Stand November"},
         }) {
        const ScanResult whole = accountOver(row, 2);
        ASSERT_EQ(whole.records.size(), 1U) << row.carried;
        EXPECT_EQ(wageOf(whole), wageOfYear) << row.carried;
    }
    for (const char* carried : {"Übertrag", "À reporter", "Da riportare", "Zwischensumme"}) {
        EXPECT_TRUE(accountOver({carried, ""}, 1).proposals.empty()) << carried;
    }
}

TEST(WageYear, anEarlierYearBesideIsLeftOut) {
    struct Columns {
        const char* own;
        const char* former;
        bool isSwapped = false;
    };
    for (const Columns& row :
         {Columns{"2024", "2023"}, Columns{"2024", "2023", true}, Columns{"2024", "Vorjahr"},
          Columns{"Année 2024", "Année précédente"},
          Columns{"Anno 2024", "Anno precedente", true}}) {
        DrawnPage page;
        page.line("Lohnabrechnung kumuliert").line("Anna Muster");
        double y = 110;
        const auto line = [&](const char* label, const char* own, const char* former,
                              const char* change) {
            page.text(60, y, label);
            page.right(row.isSwapped ? 420 : 320, y, own)
                .right(row.isSwapped ? 320 : 420, y, former);
            page.right(520, y, change);
            y += 16;
        };
        line("", row.own, row.former, "Differenz");
        line("Bruttolohn", "62’000.00", "58’000.00", "4’000.00");
        line("AHV/IV/EO/ALV", "-4’500.00", "-4’200.00", "-300.00");
        line("Pensionskasse", "-3’100.00", "-3’000.00", "-100.00");
        line("Nettolohn", "54’400.00", "50’800.00", "3’600.00");
        EXPECT_EQ(wageOf(page.proposed()), wageOfYear) << row.own << ' ' << row.former;
    }
}

TEST(WageYear, contributionsAreKnownByTheirRiskBetweenGrossAndNet) {
    struct Names {
        const char* title;
        const char* gross;
        const char* unemployment;
        const char* accidents;
        const char* fund;
        const char* sum; ///< of what is taken off, and no part of it
        const char* net;
    };
    for (const Names& row : {
             Names{"Lohnbescheinigung 2024", "Bruttolohn", "Arbeitslosigkeit", "Unfall NBU",
                   "Pens.kasse", "Total Abzüge", "Nettolohn"},
             Names{"Attestation de salaire 2024", "Salaire brut", "Chômage", "Acc. non prof.",
                   "Caisse de retraite", "Total des retenues", "Salaire net"},
             Names{"Attestato di salario 2024", "Totale competenze", "Disocc. 1,1 %", "Inf. n.p.",
                   "C.P.", "Totale trattenute", "Salario dopo i contributi"},
             Names{"Conferma di stipendio 2024", "Lordo annuo", "Contro la disoccupazione",
                   "Infortuni tempo libero", "Ente previdenziale", "Totale", "Netto annuo"},
         }) {
        DrawnPage page;
        page.line(row.title).line(row.gross, "62’000.00").line("AVS / AHV", "-3’300.00");
        page.line(row.unemployment, "-700.00").line(row.accidents, "-500.00");
        page.line(row.fund, "-3’100.00").line(row.sum, "-7’600.00").line(row.net, "54’400.00");
        EXPECT_EQ(wageOf(page.proposed()), wageOfYear) << row.title;
    }
}

TEST(WageYear, whatMayBeThePensionFundsIsNoSocialInsurances) {
    DrawnPage page;
    page.line("Attestato di salario 2024").line("Salario lordo", "62’000.00");
    page.line("AVS/AI/IPG/AD", "-4’500.00").line("Trattenuta B", "-3’100.00");
    page.line("Salario netto", "54’400.00");
    const ScanResult result = page.proposed();
    EXPECT_EQ(valueOf(result, "grossSalary"), "62000");
    EXPECT_EQ(valueOf(result, "socialContributions"), "");
}

TEST(WageYear, aLetterNamesEachDeductionBeforeItsAmount) {
    DrawnPage page;
    page.line("Conferma dello stipendio versato nel 2024");
    page.line("Il salario lordo dell'anno ammonta a fr. 62'000.00. Dal lordo abbiamo trattenuto i");
    page.line("contributi AVS/AI/IPG di fr. 3'800.00 e quelli dell'assicurazione contro la");
    page.line("disoccupazione di fr. 700.00. Un'altra cassa non è dovuta, la cassa pensione");
    page.line("ha ricevuto fr. 3'100.00. L'assicurazione infortuni è a nostro carico, e la cassa");
    page.line("malati pure. Il salario netto da dichiarare è di fr. 54'400.00.");
    EXPECT_EQ(wageOf(page.proposed()), wageOfYear);
}

TEST(WageYear, aTableByMonthsMayHaveColumnsWhoseHeadingsSayLittle) {
    for (const char* heading : {"Inf. n.p.", "Rit. 3", "CCL"}) {
        DrawnPage page;
        page.text(30, 40, "Riassunto stipendi anno 2024").text(30, 60, "Scheda: Carla Muster");
        const auto row = [&](double y, const std::vector<const char*>& words) {
            page.text(30, y, words[0]);
            for (std::size_t i = 1; i < words.size(); ++i) {
                page.right(70 + 80 * static_cast<double>(i), y, words[i]);
            }
        };
        row(100, {"Mese", "TOT. LORDO", "AVS 5,3%", heading, "LPP", "TOT. NETTO", "Bonificato"});
        row(118, {"Gennaio", "31000.00", "1643.00", "607.00", "1550.00", "27200.00", "27000.00"});
        row(136, {"Febbraio", "31000.00", "1643.00", "607.00", "1550.00", "27200.00", "27200.00"});
        row(160, {"Totale", "62000.00", "3286.00", "1214.00", "3100.00", "54400.00", "54200.00"});
        const ScanResult result = page.proposed();
        EXPECT_EQ(result.proposedKind, Kind::lohnausweis) << heading;
        EXPECT_EQ(valueOf(result, "grossSalary"), "62000") << heading;
        EXPECT_EQ(valueOf(result, "socialContributions"), "4500") << heading;
        EXPECT_EQ(valueOf(result, "pensionContributions"), "3100") << heading;
        EXPECT_EQ(valueOf(result, "netSalaryOverride"), "54400") << heading;
    }
}

TEST(WageYear, earningsAndDeductionsMayStandBesideEachOther) {
    DrawnPage page;
    page.line("RIEPILOGO SALARIO 2024").line("valido quale certificato di salario");
    const auto row = [&](double y, const std::vector<const char*>& words) {
        page.text(60, y, words[0]).right(270, y, words[1]);
        page.text(310, y, words[2]).right(540, y, words[3]);
    };
    row(110, {"Competenze", "CHF", "Trattenute", "CHF"});
    row(130, {"Stipendio mensile", "58’000.00", "AVS / AI / IPG", "3’300.00"});
    row(146, {"Tredicesima", "4’000.00", "Disoccupazione e INP", "1’200.00"});
    row(162, {"", "", "LPP (quota dipendente)", "3’100.00"});
    row(178, {"Totale lordo", "62’000.00", "Totale trattenute", "7’600.00"});
    page.text(310, 194, "di cui oneri sociali AVS/INP").right(540, 194, "4’500.00");
    page.text(200, 240, "Salario netto").text(200, 256, "CHF 54’400.00");
    EXPECT_EQ(wageOf(page.proposed()), wageOfYear);
}

TEST(WageYear, aTotalOfAQuarterIsNotTheYears) {
    struct Names {
        const char* quarter;
        const char* year;
    };
    for (const Names& row :
         {Names{"Total 1. Quartal", "Total Jahr"}, Names{"Total 1. Halbjahr", "Jahrestotal 2024"},
          Names{"Total 1er trimestre", "Total année"}, Names{"Totale semestre", "Totale anno"}}) {
        DrawnPage page;
        page.line("Lohnkonto 2024").line("Anna Muster");
        double y = 110;
        const auto line = [&](const std::vector<const char*>& words) {
            page.text(60, y, words[0]);
            for (std::size_t i = 1; i < words.size(); ++i) {
                page.right(140 + 100 * static_cast<double>(i), y, words[i]);
            }
            y += 16;
        };
        line({"Monat", "Brutto", "AHV", "BVG", "Netto"});
        line({"Januar", "5’000.00", "300.00", "250.00", "4’450.00"});
        line({"Februar", "5’000.00", "300.00", "250.00", "4’450.00"});
        line({"März", "5’000.00", "300.00", "250.00", "4’450.00"});
        line({row.quarter, "15’000.00", "900.00", "750.00", "13’350.00"});
        line({"April – Dezember", "47’000.00", "3’600.00", "2’350.00", "41’050.00"});
        line({row.year, "62’000.00", "4’500.00", "3’100.00", "54’400.00"});
        EXPECT_EQ(wageOf(page.proposed()), wageOfYear) << row.quarter;
    }
}

} // namespace
} // namespace fiscarel
