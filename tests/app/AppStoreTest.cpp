#include "TaxCore/demo/DemoData.h"
#include "tests/app/AppStoreFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace fiscarel {
namespace {

using namespace std::chrono_literals;
using namespace taxcore;
using testing::readFile;
using testing::writeFile;

// Years and carrying over.

TEST_F(AppStoreTest, beginsInTheStoredYearWhenThereAreRulesForIt) {
    EXPECT_EQ(start().year(), 2025);
    settings.setNumber("selectedYear", 2026);
    EXPECT_EQ(start().year(), 2026);
    for (const char* odd : {"1999", "viel", ""}) {
        settings.setText("selectedYear", odd);
        EXPECT_EQ(start().year(), 2025) << odd;
    }
}

TEST_F(AppStoreTest, makesTheCaseOfANewYear) {
    settings.setText("defaultRegion", "li");
    start();
    EXPECT_EQ(store->current().taxRegion(), TaxRegion::liechtenstein);
    EXPECT_EQ(store->current().municipality, "Vaduz");
    EXPECT_EQ(store->current().year, 2025);

    settings.setText("defaultRegion", "nirgends");
    std::filesystem::remove_all(root());
    start();
    EXPECT_EQ(store->current(), TaxCase{.year = 2025});
    store->setCurrent(DemoData::family(2025));
    store->setYear(2026);
    EXPECT_EQ(settings.number("selectedYear"), 2026);
    EXPECT_EQ(store->current().municipality, DemoData::family(2025).municipality);
    EXPECT_EQ(store->current().person1, DemoData::family(2025).person1);
}

TEST(CarryOver, keepsWhatStaysTrueAndNoAmount) {
    TaxCase old = DemoData::family(2025);
    old.cash = 5'000;
    old.children.front().birthDate = Date::of(2010, 5, 4);
    old.children.front().childcareCosts = 4'000;
    old.deductions1.work.carKmOneWay = 12;
    old.deductions1.pillar3a = 7'000;
    old.securities.front().documentID = Uuid::random();
    old.securities.front().managedByThirdParty = true;
    old.realEstate.resize(1);
    old.realEstate.front().rentalIncome = 900;
    old.realEstate.front().taxValue = 700'000;
    old.debts.resize(1);
    old.debts.front().interest = 7'000;
    old.debts.front().amount = 400'000;
    old.insurances.resize(1);
    old.insurances.front().surrenderValue = 12'000;
    old.li = LIExtras{};
    const TaxCase next = AppStore::carryOver(old, 2026);

    EXPECT_EQ(next.year, 2026);
    EXPECT_EQ(next.person2, old.person2);
    EXPECT_EQ(next.parish, old.parish);
    EXPECT_EQ(next.iban, old.iban);
    EXPECT_EQ(next.li, old.li);
    EXPECT_EQ(next.deductions1.work, old.deductions1.work);
    EXPECT_EQ(next.deductions1.pillar3a, 0);
    EXPECT_EQ(next.cash, 0);
    EXPECT_TRUE(next.vehicles.empty());
    EXPECT_EQ(next.children.front().id, old.children.front().id);
    EXPECT_EQ(next.children.front().childcareCosts, 0);
    EXPECT_EQ(next.children.front().education, ChildEducation::ausbildung);
    ASSERT_EQ(next.income1.salaries.size(), old.income1.salaries.size());
    EXPECT_EQ(next.income1.salaries.front().employer, old.income1.salaries.front().employer);
    EXPECT_NE(next.income1.salaries.front().id, old.income1.salaries.front().id);
    EXPECT_EQ(next.income1.salaries.front().grossSalary, 0);
    ASSERT_EQ(next.securities.size(), old.securities.size());
    const SecurityEntry& entry = next.securities.front();
    EXPECT_EQ(entry.institution, old.securities.front().institution);
    EXPECT_NE(entry.id, old.securities.front().id);
    EXPECT_FALSE(entry.managedByThirdParty);
    EXPECT_FALSE(entry.documentID.has_value());
    EXPECT_EQ(entry.taxValue, 0);
    EXPECT_EQ(next.realEstate.front().taxValue, 700'000);
    EXPECT_EQ(next.realEstate.front().rentalIncome, 0);
    EXPECT_EQ(next.debts.front().amount, 400'000);
    EXPECT_EQ(next.debts.front().interest, 0);
    EXPECT_EQ(next.insurances.front().surrenderValue, 0);
    EXPECT_EQ(next.householdDeductions, HouseholdDeductions{});

    EXPECT_EQ(AppStore::carryOver(old, 2026), next) << "another machine makes the same";
    const TaxCase later = AppStore::carryOver(next, 2027);
    EXPECT_NE(later.securities.front().id, entry.id);
    EXPECT_NE(AppStore::carryOver(old, 2027).securities.front().id, entry.id);
}

// Calculating and saving.

TEST_F(AppStoreTest, tenQuickEditsGiveOneCalculationAndOneSave) {
    start();
    settle();
    saves = calculations = 0;
    for (int i = 1; i <= 10; ++i) {
        setCash(*store, i);
        pass(50ms);
    }
    EXPECT_EQ(calculations, 0);
    EXPECT_EQ(saves, 0);
    EXPECT_TRUE(store->hasUnsavedChanges());
    pass(70ms);
    EXPECT_EQ(calculations, 1);
    pass(479ms);
    EXPECT_EQ(saves, 0);
    pass(1ms);
    EXPECT_EQ(saves, 1);
    EXPECT_EQ(store->lastSaved(), clock.now());
    EXPECT_FALSE(store->hasUnsavedChanges());
    settle();
    EXPECT_EQ(calculations, 1);
    EXPECT_EQ(saves, 1);
    EXPECT_EQ(decodeState(readFile(stateFile()))->cases.at(2025).cash, 10);
}

TEST_F(AppStoreTest, anUnchangedCaseDoesNothing) {
    start();
    settle();
    saves = calculations = 0;
    store->setCurrent(store->current());
    setCash(*store, 0);
    store->setTransferChecked(2025, "x=1", false);
    store->updateDocument(Uuid::random(), [](StoredDocument&) {});
    settle();
    EXPECT_EQ(calculations + saves, 0);
    EXPECT_FALSE(store->undoName().has_value());
}

TEST_F(AppStoreTest, tellsWhichFieldsChanged) {
    start();
    std::vector<std::string> told;
    QObject::connect(store.get(), &AppStore::currentChanged,
                     [&](const std::vector<std::string>& paths) { told = paths; });
    store->edit("Lohn", [](TaxCase& taxCase) {
        taxCase.income1.salaries.resize(1);
        taxCase.cash = 3;
    });
    EXPECT_EQ(told, (std::vector<std::string>{"income1.salaries[0]", "cash"}));
}

TEST_F(AppStoreTest, computesByTheRegionOfTheCase) {
    start();
    store->setCurrent(DemoData::family(2025));
    settle();
    ASSERT_NE(store->result(), nullptr);
    EXPECT_GT(store->result()->bill.federal, 0);
    EXPECT_FALSE(store->tips().empty());
    EXPECT_GT(store->marginalRate(), 0);
    store->setCurrent(DemoData::liechtensteinFamily(2025));
    settle();
    EXPECT_EQ(store->result()->bill.federal, 0);
    EXPECT_GT(store->result()->bill.cantonIncome, 0);
}

TEST_F(AppStoreTest, saysWhenAYearHasNoRules) {
    start();
    store->setYear(2031);
    EXPECT_EQ(store->result(), nullptr);
    EXPECT_TRUE(store->tips().empty());
    ASSERT_TRUE(store->loadError().has_value());
    EXPECT_NE(store->loadError()->find("Regeldatei fehlt: "), std::string::npos);
}

TEST_F(AppStoreTest, movesBetweenTheRegions) {
    start();
    EXPECT_TRUE(store->needsRegionChoice());
    store->edit("Gemeinde", [](TaxCase& taxCase) { taxCase.parish = "Wartau"; });
    store->chooseInitialRegion(TaxRegion::liechtenstein);
    EXPECT_FALSE(store->needsRegionChoice());
    EXPECT_EQ(settings.text("defaultRegion"), "li");
    EXPECT_EQ(store->current().municipality, "Vaduz");
    store->edit("Gemeinde", [](TaxCase& taxCase) { taxCase.municipality = "Schaan"; });
    store->setRegion(TaxRegion::liechtenstein);
    EXPECT_EQ(store->current().municipality, "Schaan");
    store->setRegion(TaxRegion::stGallen);
    EXPECT_EQ(store->current().municipality, "Sevelen");
    EXPECT_FALSE(store->current().parish.has_value());
    store->edit("Gemeinde", [](TaxCase& taxCase) { taxCase.municipality = "Wil"; });
    store->setRegion(TaxRegion::stGallen);
    EXPECT_EQ(store->current().municipality, "Wil");
}

TEST_F(AppStoreTest, leavingTheProgramSavesWhatWaits) {
    start();
    setCash(*store, 77);
    queue.held = true;
    store.reset();
    EXPECT_EQ(decodeState(readFile(stateFile()))->cases.at(2025).cash, 77);
}

TEST_F(AppStoreTest, theDemoReadsAndWritesNothing) {
    writeFile(folder.path() / "x", "");
    store = std::make_unique<AppStore>(services(), LaunchArguments{.demo = true});
    EXPECT_EQ(store->current(), DemoData::family(2025));
    EXPECT_FALSE(store->needsRegionChoice());
    setCash(*store, 9);
    store->setYear(2026);
    store->chooseInitialRegion(TaxRegion::liechtenstein);
    store->importDocuments({folder.path() / "x"});
    EXPECT_TRUE(store->loadError().has_value());
    settle();
    EXPECT_TRUE(store->flush());
    store = std::make_unique<AppStore>(services(),
                                       LaunchArguments::parse({"-BrennickLI", "-BrennickDemo"}));
    EXPECT_EQ(store->current(), DemoData::liechtensteinFamily(2025));
    store.reset();
    EXPECT_TRUE(settings.values.empty());
    EXPECT_FALSE(std::filesystem::exists(root()));
    EXPECT_FALSE(LaunchArguments::parse({"-BrennickLI"}).demo);
}

// Remote state.

TEST_F(AppStoreTest, remoteStateCausesNoEcho) {
    start();
    settle();
    saves = 0;
    setCash(*store, 5);
    PersistedState remote;
    remote.cases[2024] = TaxCase{.year = 2024, .cash = 24};
    remote.documents.emplace_back().title = "fern";
    store->applyRemote(remote);
    settle();
    EXPECT_EQ(saves, 0);
    EXPECT_EQ(store->current(), TaxCase{.year = 2025}) << "not carried over";
    EXPECT_EQ(store->cases().at(2024).cash, 24);
    EXPECT_EQ(decodeState(readFile(stateFile()))->documents.front().title, "fern");
    EXPECT_FALSE(store->undoName().has_value()) << "what no longer applies is dropped";
    setCash(*store, 6);
    settle();
    EXPECT_EQ(saves, 1);
    remote.version = 2;
    store->applyRemote(remote);
    EXPECT_EQ(store->current().cash, 6);
    EXPECT_NE(store->loadError()->find("Version 2"), std::string::npos);
}

// Resetting a year.

TEST_F(AppStoreTest, aResetYearIsInABackupAndCanBeUndone) {
    start();
    setCash(*store, 31);
    store->resetYear();
    EXPECT_EQ(store->current(), TaxCase{.year = 2025});
    ASSERT_TRUE(hasBackup("vor-zuruecksetzen-"));
    store->undo();
    EXPECT_EQ(store->current().cash, 31);
    store->resetYear();
    settle();
    std::vector<BackupFile> all;
    store->listBackups([&](std::vector<BackupFile> found) { all = std::move(found); });
    const auto reset = std::ranges::find_if(
        all, [](const BackupFile& file) { return file.name.label == backup::beforeReset; });
    ASSERT_NE(reset, all.end());
    EXPECT_EQ(reset->label(), "vor dem Zurücksetzen eines Jahres");
    store->inspectBackup(*reset, [](const AppStore::Inspected& content) {
        EXPECT_EQ(content->years, std::vector<int>{2025});
    });
    store->restoreBackup(*reset, [](const auto& problem) { EXPECT_FALSE(problem.has_value()); });
    EXPECT_EQ(store->current().cash, 31);
    EXPECT_TRUE(hasBackup("vor-wiederherstellung-"));
    EXPECT_EQ(decodeState(readFile(stateFile()))->cases.at(2025).cash, 31);
}

// Documents.

TEST_F(AppStoreTest, importsAndDeletesDocuments) {
    start();
    const auto pdf = folder.path() / "Lohn 2025.pdf";
    writeFile(pdf, "%PDF");
    std::vector<Uuid> added;
    store->importDocuments({pdf, pdf, folder.path() / "fehlt.pdf", folder.path()},
                           [&](std::vector<Uuid> ids) { added = std::move(ids); });
    ASSERT_EQ(added.size(), 2U);
    ASSERT_EQ(store->documentsForYear().size(), 2U);
    EXPECT_TRUE(store->loadError()->starts_with("Import fehlgeschlagen: «"));
    const StoredDocument document = store->documents().front();
    EXPECT_NE(document.fileName, store->documents().back().fileName);
    EXPECT_EQ(document.title, "Lohn 2025");
    EXPECT_TRUE(document.fileName.ends_with("-Lohn 2025.pdf"));
    EXPECT_EQ(readFile(store->fileOf(document).value()), "%PDF");

    store->edit("Lohnausweis", [&](TaxCase& taxCase) {
        taxCase.income1.salaries.resize(1);
        taxCase.income1.salaries[0].documentID = document.id;
    });
    std::vector<Uuid> told;
    store->onDocumentDeleted = [&](const StoredDocument& gone) { told.push_back(gone.id); };
    store->deleteDocument(document.id);
    EXPECT_EQ(told, std::vector<Uuid>{document.id});
    EXPECT_EQ(store->documents().size(), 1U);
    EXPECT_FALSE(store->current().income1.salaries[0].documentID.has_value());
    EXPECT_TRUE(store->fileOf(document).has_value()) << "until the program ends";
    store->undo();
    EXPECT_EQ(store->documents().front(), document);
    EXPECT_EQ(store->current().income1.salaries[0].documentID, document.id);
    store->redo();
    const auto kept = persistence->fileOf(store->documents().front()).value();
    const auto gone = persistence->fileOf(document).value();
    store.reset();
    EXPECT_FALSE(std::filesystem::exists(gone));
    EXPECT_TRUE(std::filesystem::exists(kept));
}

TEST_F(AppStoreTest, neverLeavesTheDocumentsFolder) {
    start();
    writeFile(folder.path() / "fremd", "x");
    for (const char* name : {"", ".", "..", "../../fremd", "/etc/passwd", "a/b"}) {
        StoredDocument document{.fileName = name};
        EXPECT_FALSE(persistence->fileOf(document).has_value()) << name;
        persistence->remove(document);
    }
    EXPECT_EQ(readFile(folder.path() / "fremd"), "x");
    std::string longName(240, 'x');
    longName += "ä";
    longName.replace(190, 2, "ä");
    writeFile(folder.path() / (longName + ".pdf"), "x");
    const auto imported = persistence->importFile(folder.path() / (longName + ".pdf"));
    ASSERT_TRUE(imported.has_value()) << imported.error().description();
    EXPECT_TRUE(imported->ends_with(".pdf"));
}

} // namespace
} // namespace fiscarel
