#include "Fiscarel_SG/outputs/TransferCsv.h"

#include <gtest/gtest.h>

namespace fiscarel::outputs {
namespace {

constexpr const char* head =
    "Formular;Seite;Ziffer;Code;Person;Name;Abschnitt;Feld;Wert;Wert Bund;Stand;Bisher;Hinweis\r\n";

TransferRow row(ValueKind kind, std::string value) {
    TransferRow made;
    made.key = made.code = "500";
    made.form = "F";
    made.page = 3;
    made.ziffer = "11.11";
    made.label = "Feld";
    made.kind = kind;
    made.value = std::move(value);
    return made;
}

TEST(TransferCsv, quotesAndDisarmsWhatUsersTyped) {
    struct Case {
        ValueKind kind;
        const char* value;
        const char* cell;
    };
    const Case cases[] = {
        {ValueKind::francs, "-1’234", "-1234"}, // a number of ours stays one
        {ValueKind::rappen, "1’480.90", "1480.90"},
        {ValueKind::text, "=HYPERLINK(\"x\";\"y\")", "\"'=HYPERLINK(\"\"x\"\";\"\"y\"\")\""},
        {ValueKind::text, "+41 71", "'+41 71"},
        {ValueKind::text, "-5", "'-5"},
        {ValueKind::text, "@SUM(A1)", "'@SUM(A1)"},
        {ValueKind::text, "\t=1", "'=1"},
        {ValueKind::text, "Müller; «Söhne»", "\"Müller; «Söhne»\""},
        {ValueKind::text, "drei\r\nZeilen\n", "drei Zeilen"},
        {ValueKind::iban, "=A1", "'=A1"},
        {ValueKind::iban, "CH93 0076 2011 6238 5295 7", "CH9300762011623852957"},
    };
    for (const Case& tested : cases) {
        TransferList list;
        list.rows.push_back(row(tested.kind, tested.value));
        EXPECT_EQ(transferCsv(list),
                  head + std::string("F;3;11.11;500;;;;Feld;") + tested.cell + ";;offen;;\r\n");
    }
}

TEST(TransferCsv, tellsPersonsFederalValuesAndTicks) {
    TransferRow changed = row(ValueKind::francs, "8’220");
    changed.key = "berufskosten1.commute"; // a part of an enclosure, no line with a code
    changed.code = "berufskosten1";
    changed.person = 1;
    changed.name = "=Anna";
    changed.federal = "7’900";
    changed.tick = Tick::changed;
    changed.oldValue = "8’000 / Bund 7’000";
    TransferList list;
    list.rows.push_back(changed);
    EXPECT_EQ(transferCsv(list), head
                                     + std::string("F;3;11.11;;1;'=Anna;;Feld;8220;7900;geändert;"
                                                   "8’000 / Bund 7’000;\r\n"));
}

} // namespace
} // namespace fiscarel::outputs
