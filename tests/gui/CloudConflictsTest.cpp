// What the page of the account says of the encrypted backup: conflicts, losses, states, the sheet.

#include "Fiscarel_SG/CloudCrypto.h"
#include "Fiscarel_SG/pages/account/CloudText.h"
#include "Fiscarel_SG/pages/account/ConflictText.h"
#include "Fiscarel_SG/pages/account/RecoverySheet.h"
#include "tests/gui/CloudPage.h"

#include <QPushButton>
#include <array>
#include <functional>
#include <optional>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using Activity = CloudStatus::Activity;
using Phase = CloudStatus::Phase;
using CloudConflicts = testing::CloudPage;
using taxcore::TaxCase;

TEST_F(CloudConflicts, conflictsAreReadAsTheFieldsShowThem) {
    open({});
    const int year = program.store->year();
    program.store->setYear(year - 1);
    program.store->setYear(year);
    std::vector<MergeConflict> conflicts = states().conflicts();
    conflicts.push_back(
        {year, "securities[6F9619FF-8B86-D011-B42D-00C04FC964FF].taxValue", "100", "0"});
    conflicts.push_back({year, "li.commute1.kmPerDay", "12.5", "14"});
    conflicts.push_back({year - 1, "person1.firstName", "\"Nora\"", "\"Nora  \\u00e4\\nB.\""});
    conflicts.push_back({1999, "", std::nullopt, "{}"});
    conflicts.push_back(
        {year, conflicts[0].path.substr(0, conflicts[0].path.find(']') + 1) + ".documentID",
         std::nullopt, "\"6F9619FF-8B86-D011-B42D-00C04FC964FF\""});
    struct Row {
        QString label, where, ours, theirs;
        bool operator==(const Row&) const = default;
    };
    const QString at = u"Steuerjahr %1 · "_s.arg(year);
    const std::array expected{
        Row{u"Bruttolohn"_s, at, u"CHF"_s, u"128’450.75 CHF"_s},
        Row{u"Zivilstand"_s, at + u"Familie"_s, u"verheiratet"_s, u"getrennt"_s},
        Row{u"Geburtsdatum"_s, at + u"Familie · "_s, u"."_s, u"09.07.2015"_s},
        Row{u"Bank / Schuldner"_s, at + u"Vermögen · "_s, {}, u"Gemeinnützige"_s},
        Row{u"Schuld"_s, at + u"Vermögen · "_s, u"gelöscht"_s, u","_s},
        Row{u"Art"_s, u"Belege"_s, u"Spende"_s, u"Lohnausweis"_s},
        Row{u"Steuerwert"_s, at + u"Vermögen · "_s, u"100 CHF"_s, u"leer"_s},
        Row{{}, u"Steuerjahr"_s, u"12.5"_s, u"14"_s},
        Row{u"Vorname"_s, u"Steuerjahr %1 · Familie"_s.arg(year - 1), u"Nora"_s, u"Nora ä B."_s},
        Row{u"Steuerjahr 1999"_s, {}, u"gelöscht"_s, u"vorhanden"_s},
        Row{u"Beleg zu «Lohnausweis»"_s, at, u"leer"_s, u"ein Beleg, der hier fehlt"_s}};
    const auto texts = pages::describe(*program.store, conflicts);
    ASSERT_EQ(texts.size(), expected.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto& [label, where, ours, theirs, path, document, isWhole] = texts[i];
        SCOPED_TRACE(
            (label + u" | "_s + where + u" | "_s + ours + u" | "_s + theirs).toStdString());
        EXPECT_TRUE(label.contains(expected[i].label));
        EXPECT_TRUE(where.startsWith(expected[i].where));
        EXPECT_TRUE(ours.contains(expected[i].ours));
        EXPECT_TRUE(theirs.contains(expected[i].theirs));
        EXPECT_EQ(isWhole, i == 4 || i == 9);
    }
    EXPECT_EQ(texts[0].path, "income1.salaries[0].grossSalary");
    EXPECT_EQ(texts[6].path, "") << "there is no such entry to go to";
}

TEST_F(CloudConflicts, conflictsAreSettledByTheKeyboard) {
    open({});
    cloud.set(states().ready());
    const auto all = states().conflicts();
    cloud.change([&](CloudStatus& now) { now.conflicts = all; });
    program.settle();
    EXPECT_EQ(program.find<QPushButton>(u"cloudLineDoor"_s).text(), u"Cloud: Konflikte ansehen"_s);
    const auto drop = [&](std::size_t index) {
        cloud.answers = [&, index] {
            cloud.change([&](CloudStatus& now) {
                now.conflicts.erase(now.conflicts.begin() + static_cast<std::ptrdiff_t>(index));
            });
        };
    };
    drop(1);
    program.find(u"cloudTake:1"_s).setFocus(Qt::TabFocusReason);
    program.press(Qt::Key_Return);
    EXPECT_EQ(cloud.asked.back(), "settleConflict 1 other");
    EXPECT_EQ(keyboard(), u"cloudKeep:1"_s);
    EXPECT_FALSE(program.isShown(u"toastAnswer"_s)) << "nothing was done that could be undone";
    cloud.answers = [&, step = cloud.answers] {
        program.store->edit("Geburtsdatum", [](TaxCase& taxCase) { taxCase.cash = 7; });
        cloud.change([&](CloudStatus& now) { now.conflicts.erase(now.conflicts.begin() + 1); });
    };
    program.click(u"cloudTake:1"_s);
    EXPECT_TRUE(program.isShown(u"toastAnswer"_s));
    drop(3);
    program.click(u"cloudKeep:3"_s);
    EXPECT_EQ(cloud.asked.back(), "settleConflict 3 ours");
    EXPECT_EQ(keyboard(), u"cloudKeep:2"_s) << "the last one is gone";
    cloud.answers = [&] { cloud.change([](CloudStatus& now) { now.conflicts.clear(); }); };
    program.click(u"cloudKeepHere"_s);
    EXPECT_EQ(cloud.asked.back(), "settleAllConflicts");
    EXPECT_FALSE(program.isShown(u"cloudConflicts"_s));
    EXPECT_EQ(keyboard(), u"cloudCheckNow"_s);
}

TEST_F(CloudConflicts, whatWasDeletedHereAndChangedElsewhereStaysUntilOneChooses) {
    open({});
    cloud.set(states().ready());
    const int year = program.store->year();
    const std::size_t before = program.store->current().debts.size();
    const std::string path = "debts[" + program.store->current().debts.front().id.toString() + "]";
    const auto json = taxcore::valueAt(program.store->current(), path);
    cloud.change([&](CloudStatus& now) {
        now.conflicts = {{year, path, std::nullopt, json}, {year, path, json, std::nullopt}};
    });
    program.settle();
    struct Choice {
        const char* name;
        const char* text;
    };
    for (const auto& [name, told] : {Choice{"cloudKeep:0", "Löschen"},
                                     {"cloudTake:0", "Behalten"},
                                     {"cloudKeep:1", "Behalten"},
                                     {"cloudTake:1", "Löschen"}}) {
        EXPECT_EQ(program.find<QPushButton>(QString::fromLatin1(name)).text(),
                  QString::fromUtf8(told));
    }
    program.store->setYear(year - 1);
    program.settle();
    cloud.answers = [&] { // as the engine settles it
        program.store->setYear(year);
        program.store->edit("Schuld", [](TaxCase& now) { now.debts.erase(now.debts.begin()); });
    };
    program.click(u"cloudKeep:0"_s);
    EXPECT_EQ(cloud.asked.back(), "settleConflict 0 ours");
    cloud.answers = {};
    EXPECT_EQ(program.store->year(), year);
    EXPECT_EQ(program.store->current().debts.size(), before - 1);
    program.settle();
    program.click(u"toastAnswer"_s);
    EXPECT_EQ(program.store->current().debts.size(), before);
    program.settle();
    program.window->showPage(u"account"_s);
    program.click(u"cloudTake:0"_s);
    EXPECT_EQ(cloud.asked.back(), "settleConflict 0 other");
    EXPECT_EQ(program.store->current().debts.size(), before);
}

TEST_F(CloudConflicts, aConflictLeadsToItsField) {
    open({});
    cloud.set(states().ready());
    const int year = program.store->year();
    program.store->setYear(year - 1);
    program.settle();
    cloud.change([&](CloudStatus& now) { now.conflicts = {{year, "cash", "1", "2"}}; });
    program.settle();
    program.click(u"cloudDoor:0"_s);
    program.settle();
    EXPECT_EQ(program.store->year(), year);
    EXPECT_EQ(program.window->currentPage(), u"wealth"_s);
    EXPECT_EQ(keyboard(), u"cash"_s);
    program.click(u"cloudLineDoor"_s);
    EXPECT_EQ(program.window->currentPage(), u"account"_s);
}

TEST(CloudText, theSidebarSaysHowTheBackupStands) {
    const QDateTime now(QDate(2026, 11, 21), QTime(15, 0));
    const auto at = [](int day, int hour) {
        return taxcore::Moment{QDateTime(QDate(2026, 11, day), QTime(hour, 32)).toSecsSinceEpoch()};
    };
    const auto ready = [](const std::function<void(CloudStatus&)>& change) {
        CloudStatus status{.phase = Phase::ready, .email = "nora@muster.ch"};
        change(status);
        return status;
    };
    struct Row {
        CloudStatus status;
        QString line;
        bool asksUser = false;
    };
    const std::array rows{
        Row{{}, {}},
        Row{{.phase = Phase::signedOut}, {}},
        Row{{.phase = Phase::signedOut, .problem = "Keine Verbindung."}, {}},
        Row{{.phase = Phase::signedOut, .email = "n@m.ch"}, u"Cloud: abgemeldet"_s},
        Row{{.phase = Phase::signedOut, .email = "n@m.ch", .problem = "Nicht mehr angemeldet."},
            u"Cloud: bitte neu anmelden"_s,
            true},
        Row{{.phase = Phase::needsRecoveryKey, .email = "n@m.ch"},
            u"Cloud: Schlüssel eingeben"_s,
            true},
        Row{ready([&](auto& s) { s.compared = at(21, 14); }), u"Cloud: abgeglichen 14:32"_s},
        Row{ready([&](auto& s) { s.compared = at(20, 9); }), u"Cloud: abgeglichen 20.11., 09:32"_s},
        Row{ready([&](auto& s) {
                s.activity = Activity::offline;
                s.problem = "Keine Verbindung.";
            }),
            u"Cloud: offline, wird nachgeholt"_s},
        Row{ready([](auto& s) { s.problem = "Voll."; }), u"Cloud: Meldung ansehen"_s, true},
        Row{ready([](auto& s) {
                s.activity = Activity::sending;
                s.documentsToSend = 1;
            }),
            u"Cloud: 1 Beleg hochzuladen"_s},
        Row{ready([](auto& s) {
                s.activity = Activity::offline;
                s.conflicts.resize(2);
            }),
            u"Cloud: Konflikte ansehen"_s, true},
        Row{ready([](auto& s) {
                s.conflicts.resize(2);
                s.question.emplace();
            }),
            u"Cloud: Frage beantworten"_s, true}};
    for (const auto& [status, line, asksUser] : rows) {
        EXPECT_EQ(pages::cloudLine(status, now), (pages::CloudLine{line, asksUser}))
            << line.toStdString();
    }
}

TEST(CloudText, aLossIsToldWithItsFigures) {
    struct Row {
        StateLoss loss;
        QString told;
    };
    const auto loss = [](std::vector<int> years, std::vector<int> halved, std::size_t fields,
                         std::size_t documents, std::size_t documentsBefore) {
        StateLoss made;
        made.years = std::move(years);
        made.halvedYears = std::move(halved);
        made.fields = fields;
        made.fieldsBefore = 140;
        made.documents = documents;
        made.documentsBefore = documentsBefore;
        return made;
    };
    const std::array rows{
        Row{loss({2024}, {}, 0, 0, 9), u"das Steuerjahr 2024"_s},
        Row{loss({2024, 2025}, {}, 0, 1, 1), u"die Steuerjahre 2024, 2025 und der einzige Beleg"_s},
        Row{loss({}, {2025}, 70, 3, 6),
            u"grosse Teile des Steuerjahrs 2025, 70 von 140 Angaben und 3 von 6 Belegen"_s},
        Row{loss({}, {}, 100, 0, 0), u"100 von 140 Angaben"_s}};
    for (const auto& [what, told] : rows) {
        EXPECT_EQ(pages::lossText(what), told) << told.toStdString();
    }
}

TEST(CloudText, theSheetHasTheWholeKeyWithinItsMargins) {
    const std::string key = CloudCrypto::newRecoveryKey();
    const std::string address = std::string(70, 'n') + "@gemeinnuetzige-genossenschaft.example";
    const auto sheet = pages::recoverySheet(address, key, taxcore::Date::of(2026, 11, 21).value());
    ASSERT_EQ(sheet.pages.size(), 1U);
    QString all;
    for (const paper::PaperText& text : sheet.pages.front().texts) {
        all += text.text;
        EXPECT_LE(text.at.x() + paper::widthOf(text.type, text.text),
                  paper::pageWidth - paper::marginRight + 0.5);
        EXPECT_LE(text.at.y(), paper::pageHeight - paper::marginBottom);
    }
    EXPECT_TRUE(all.contains(u"21.11.2026"_s));
    all.remove(u' ');
    EXPECT_TRUE(all.contains(QString::fromStdString(key).remove(u'-')));
    EXPECT_TRUE(all.contains(QString::fromStdString(address)));
}

} // namespace
} // namespace fiscarel
