#include "Fiscarel_SG/documents/Applying.h"

#include "AppStoreFixture.h"
#include "Fiscarel_SG/documents/Likeness.h"
#include "Fiscarel_SG/documents/PersonFit.h"
#include "Fiscarel_SG/documents/ScanSummary.h"

#include <gtest/gtest.h>

namespace {

using namespace fiscarel;
using namespace taxcore;
using Kind = ProposedRecord::Kind;
using Outcome = PlannedValue::Outcome;

Date day(int year, int month, int day) { return Date::of(year, month, day).value(); }

/// A couple with two children, each adult with a salary certificate.
TaxCase household() {
    TaxCase taxCase{.year = 2025, .civilStatus = CivilStatus::verheiratet};
    taxCase.person1 = {.firstName = "Nora", .lastName = "Bärtsch", .birthDate = day(1984, 3, 1)};
    taxCase.person2 = {.firstName = "Jörg", .lastName = "Bärtsch", .birthDate = day(1982, 7, 9)};
    taxCase.children = {{.firstName = "Lia"}, {.firstName = "Max"}};
    taxCase.income1.salaries = {{.employer = "Werdenwerk AG"}};
    taxCase.income2.salaries = {{.employer = "Spital Grabs"}, {.employer = "Schule Buchs"}};
    return taxCase;
}

/// A document with what it proposes, applied to the household.
struct Paper {
    TaxCase taxCase = household();
    StoredDocument document{.year = 2025};
    std::vector<StoredDocument> others;
    ScanResult scan;

    int add(ProposedRecord record, const std::vector<std::pair<std::string, std::string>>& values,
            Proposal::Witness witness = Proposal::Witness::position) {
        const int index = static_cast<int>(scan.records.size());
        scan.records.push_back(std::move(record));
        for (const auto& [field, value] : values) {
            scan.proposals.push_back(
                {.recordIndex = index, .field = field, .value = value, .witness = witness});
        }
        return index;
    }
    ApplyContext context() const { return {taxCase, others, document, scan, 200}; }
    ApplyChoice suggested() const { return suggestChoice(context()); }
    ApplyPlan plan() const { return planApplying(context(), suggested()); }
    /// Applies and keeps what the document then stands behind.
    void apply() {
        const ApplyPlan done = plan();
        taxCase = done.taxCase;
        document.applied = done.applied;
    }
    std::string at(const std::string& path) const { return valueAt(taxCase, path).value_or("-"); }
};

TEST(Applying, findsThePersonOfACertificate) {
    struct Row {
        ProposedRecord record;
        std::string employer;
        int person;
    };
    const std::vector<Row> rows{
        {{.birthDate = day(1982, 7, 9)}, "Neu GmbH", 2},
        {{.personName = "Bärtsch Nora", .birthDate = day(1982, 7, 9)}, "Neu GmbH", 2},
        {{.personName = "BAERTSCH JOERG"}, "Neu GmbH", 2},
        {{.personName = "Frau Nora Bärtsch-Keller"}, "Spital Grabs", 1},
        {{.personName = "J. Bärtsch"}, "Neu GmbH", 2},
        {{.personName = "Herr Bärtsch"}, "Neu GmbH", 0},
        {{.personName = "Nora und Jörg Bärtsch"}, "Neu GmbH", 0},
        {{.personName = "Max Bärtsch"}, "Neu GmbH", 0},
        {{.personName = "Étienne Deillon"}, "Spital Grabs", 0},
        {{.personName = "Étienne Deillon", .birthDate = day(1999, 1, 1)}, "Neu GmbH", 0},
        {{}, "SPITAL GRABS", 2},
        {{}, "Neu GmbH", 1},
    };
    for (const Row& row : rows) {
        Paper paper;
        paper.add(row.record, {{"employer", row.employer}});
        EXPECT_EQ(paper.suggested().records[0].person, row.person)
            << row.record.personName << " " << row.employer;
        paper.taxCase.civilStatus = CivilStatus::ledig;
        EXPECT_EQ(paper.suggested().records[0].person, 1);
    }
}

TEST(Applying, peopleWithDifferentNamesNeverGetTheSamePersonByThemselves) {
    struct Row {
        std::vector<std::string> names;
        std::vector<int> persons;
    };
    const std::vector<Row> rows{
        {{"Jörg Bärtsch", "Nora Bärtsch"}, {2, 1}},
        {{"Nora Bärtsch", "Nora Deillon"}, {1, 0}},
        {{"Nora Bärtsch", "BAERTSCH NORA"}, {1, 1}},
        {{"Jörg Bärtsch", ""}, {2, 2}},
        {{"Étienne Deillon", ""}, {0, 0}},
        {{"Nora Bärtsch", "Jörg Bärtsch", ""}, {1, 2, 0}},
    };
    for (const Row& row : rows) {
        Paper paper;
        for (const std::string& name : row.names) {
            paper.add({.personName = name}, {{"grossSalary", "1000"}});
        }
        std::vector<int> persons;
        for (const RecordTarget& target : paper.suggested().records) {
            persons.push_back(target.person);
        }
        EXPECT_EQ(persons, row.persons) << row.names.front();
    }
}

TEST(Applying, aFirstNameWithAnotherLastNameIsRemarkedOn) {
    const std::vector<std::pair<std::string, bool>> rows{
        {"Nora Deillon", true},         {"Nora Bärtsch", false}, {"Nora", false},
        {"Nora Bärtsch-Keller", false}, {"Jörg Deillon", false}, {"", false},
    };
    for (const auto& [name, isOther] : rows) {
        EXPECT_EQ(hasOtherLastName(household().person1, {.personName = name}), isOther) << name;
    }
}

TEST(Applying, nothingGoesToAnyoneBeforeThePersonIsChosen) {
    Paper paper;
    paper.add({.personName = "Étienne Deillon"}, {{"grossSalary", "1000"}});
    paper.add({.kind = Kind::personDeductions, .personName = "Étienne Deillon"},
              {{"pillar3a", "700"}});
    EXPECT_EQ(paper.plan().taxCase, paper.taxCase);
    ApplyChoice choice = paper.suggested();
    choice.records[0].person = choice.records[1].person = 2;
    const ApplyPlan plan = planApplying(paper.context(), choice);
    EXPECT_EQ(plan.taxCase.income2.salaries.size(), 3U);
    EXPECT_EQ(plan.taxCase.deductions2.pillar3a, Decimal(700));
    // Opened again it goes where it went.
    paper.taxCase = plan.taxCase;
    paper.document.applied = plan.applied;
    EXPECT_EQ(paper.suggested().records[0].person, 2);
    EXPECT_EQ(paper.suggested().records[1].person, 2);

    // A return with nobody's name yet can tell nobody; one with a single adult only asks.
    Paper unnamed;
    unnamed.taxCase.person1 = unnamed.taxCase.person2 = {};
    unnamed.add({.personName = "Nora Bärtsch"}, {{"grossSalary", "1000"}});
    EXPECT_EQ(unnamed.suggested().records[0].person, 0);
    unnamed.taxCase.civilStatus = CivilStatus::ledig;
    EXPECT_TRUE(unnamed.suggested().records[0].isIncluded);
    unnamed.taxCase.person1.firstName = "Petra";
    EXPECT_FALSE(unnamed.suggested().records[0].isIncluded);
}

TEST(Applying, whatWasEditedStillTellsWhoseItIs) {
    struct Row {
        std::vector<int> persons; ///< the user's choice, a record each
        std::vector<std::string> values;
    };
    for (const Row& row : {Row{{2}, {"650"}}, Row{{1}, {"650"}}, Row{{2, 1}, {"700", "850"}},
                           Row{{1, 2}, {"650", "800"}}, Row{{2, 2}, {"700", "800"}}}) {
        Paper paper;
        ApplyChoice choice;
        for (std::size_t i = 0; i < row.persons.size(); ++i) {
            paper.add({.kind = i == 0 ? Kind::personDeductions : Kind::personIncome,
                       .personName = "Étienne Deillon"},
                      {{i == 0 ? "pillar3a" : "unemployment", i == 0 ? "700" : "800"}});
        }
        choice = paper.suggested();
        for (std::size_t i = 0; i < row.persons.size(); ++i) {
            EXPECT_EQ(choice.records[i].person, 0);
            choice.records[i].person = row.persons[i];
            choice.values[i].value = row.values[i];
        }
        const ApplyPlan plan = planApplying(paper.context(), choice);
        paper.taxCase = plan.taxCase;
        paper.document.applied = plan.applied;
        for (std::size_t i = 0; i < row.persons.size(); ++i) {
            EXPECT_EQ(paper.suggested().records[i].person, row.persons[i]) << row.values[i];
        }
    }
    // Of two alike the one that is as it was read leaves the other to whom is left.
    Paper paper;
    paper.add({.kind = Kind::personDeductions}, {{"pillar3a", "700"}});
    paper.add({.kind = Kind::personDeductions}, {{"pillar3a", "800"}});
    paper.document.applied = {{.path = "deductions1.pillar3a", .value = "800"},
                              {.path = "deductions2.pillar3a", .value = "650"}};
    EXPECT_EQ(paper.suggested().records[0].person, 2);
    EXPECT_EQ(paper.suggested().records[1].person, 1);
}

TEST(Applying, writesACertificateIntoTheOneOfItsEmployer) {
    Paper paper;
    paper.add({.birthDate = day(1982, 7, 9)}, {{"employer", "Schule  Buchs"},
                                               {"grossSalary", "68000"},
                                               {"socialContributions", "4352.5"},
                                               {"netSalaryOverride", "63647.5"},
                                               {"fieldF", "true"},
                                               {"periodFrom", "2025-02-01"},
                                               {"remarks", "Ja \"und\" nein"}});
    const ApplyPlan plan = paper.plan();
    const SalaryCertificate& salary = plan.taxCase.income2.salaries.at(1);
    EXPECT_EQ(salary.grossSalary, Decimal(68000));
    EXPECT_EQ(salary.periodFrom, day(2025, 2, 1));
    EXPECT_TRUE(salary.fieldF);
    EXPECT_EQ(salary.remarks, "Ja \"und\" nein");
    EXPECT_EQ(salary.documentID, paper.document.id);
    EXPECT_FALSE(salary.netSalaryOverride) << "the return computes it";
    EXPECT_EQ(plan.values.at(3).outcome, Outcome::isComputed);
    EXPECT_EQ(plan.values.at(1).before, "0");
    EXPECT_EQ(plan.values.at(1).path, "income2.salaries[1].grossSalary");
    EXPECT_EQ(plan.applied.size(), 6U);
    paper.scan.proposals[3].value = "63000";
    EXPECT_EQ(paper.plan().taxCase.income2.salaries.at(1).netSalaryOverride, Decimal(63000));
}

TEST(Applying, makesANewItemWhereNoneFits) {
    Paper paper;
    paper.add({}, {{"employer", "Neu GmbH"}, {"grossSalary", "1000"}});
    paper.add({}, {{"employer", "Neu GmbH"}, {"grossSalary", "2000"}});
    paper.apply();
    ASSERT_EQ(paper.taxCase.income1.salaries.size(), 3U);
    EXPECT_EQ(paper.at("income1.salaries[2].grossSalary"), "2000");
    paper.scan.proposals[1].value = "1111";
    paper.apply();
    ASSERT_EQ(paper.taxCase.income1.salaries.size(), 3U) << "applied again";
    EXPECT_EQ(paper.at("income1.salaries[1].grossSalary"), "1111");
    EXPECT_EQ(paper.at("income1.salaries[2].grossSalary"), "2000");
}

TEST(Applying, addsTheSharesOfSeveralDocuments) {
    Paper first;
    first.taxCase.deductions1.pillar3a = 99;
    first.add({.kind = Kind::personDeductions}, {{"pillar3a", "3000"}});
    first.add({.kind = Kind::child, .personName = "Bärtsch Max"}, {{"childcareCosts", "1200.5"}});
    first.apply();
    EXPECT_EQ(first.at("deductions1.pillar3a"), "3000") << "what was typed is replaced";

    Paper second;
    second.taxCase = first.taxCase;
    second.others = {first.document};
    second.add({.kind = Kind::personDeductions}, {{"pillar3a", "2000"}});
    second.add({.kind = Kind::child, .personName = "Max"}, {{"childcareCosts", "100"}});
    second.apply();
    EXPECT_EQ(second.at("deductions1.pillar3a"), "5000");
    EXPECT_EQ(second.at("children[1].childcareCosts"), "1300.5");
    EXPECT_EQ(second.plan().values[0].outcome, Outcome::added);
    second.scan.proposals[0].value = "2500";
    second.apply();
    EXPECT_EQ(second.at("deductions1.pillar3a"), "5500") << "its own share is replaced";

    // The child moves in the list and keeps its share.
    std::swap(second.taxCase.children[0], second.taxCase.children[1]);
    second.apply();
    EXPECT_EQ(second.at("children[0].childcareCosts"), "1300.5");
    EXPECT_EQ(second.at("children[1].childcareCosts"), "0");
}

TEST(Applying, aStatementStandsInTheRegisterAsEntriesOrAsItsTotal) {
    Paper paper;
    paper.taxCase.securities = {{.institution = "Andere Bank"}};
    const auto add = [&](const char* kind, const char* account, const char* value) {
        paper.add({.kind = Kind::security}, {{"kind", kind},
                                             {"institution", "Bank"},
                                             {"ibanOrValor", account},
                                             {"taxValue", value}});
    };
    add("konto", "CH9300762011623852957", "100");
    add("wertschrift", "1213853", "200");
    add("steuerauszug", "", "300");
    const auto take = [&](bool total) {
        ApplyChoice choice = paper.suggested();
        for (std::size_t i = 0; i < choice.records.size(); ++i) {
            choice.records[i].isIncluded = total == isStatementTotal(paper.scan, i);
        }
        const ApplyPlan plan = planApplying(paper.context(), choice);
        paper.taxCase = plan.taxCase;
        paper.document.applied = plan.applied;
        return plan;
    };
    const auto wealth = [&] {
        Decimal sum;
        for (const SecurityEntry& entry : paper.taxCase.securities) {
            sum += entry.taxValue;
        }
        return sum;
    };
    take(false);
    EXPECT_EQ(paper.taxCase.securities.size(), 3U);
    take(true);
    EXPECT_EQ(paper.taxCase.securities.size(), 2U);
    EXPECT_EQ(wealth(), Decimal(300));
    const Uuid total = paper.taxCase.securities.at(1).id;
    paper.taxCase.securities.at(1).taxValue = 299;
    const ApplyPlan again = take(true);
    EXPECT_EQ(paper.taxCase.securities.at(1).id, total) << "the total is found again";
    EXPECT_EQ(again.values.back().before, "299");
    take(false);
    EXPECT_EQ(paper.taxCase.securities.size(), 3U);
    EXPECT_EQ(wealth(), Decimal(300));
    EXPECT_EQ(paper.taxCase.securities.at(0).institution, "Andere Bank");
}

TEST(Applying, aShareThatGoesToAnotherChildLeavesTheFirst) {
    Paper paper;
    paper.add({.kind = Kind::child, .personName = "Lia"}, {{"childcareCosts", "700"}});
    paper.apply();
    ApplyChoice choice = paper.suggested();
    choice.records[0].item = paper.taxCase.children[1].id;
    const ApplyPlan moved = planApplying(paper.context(), choice);
    EXPECT_EQ(moved.taxCase.children[0].childcareCosts, Decimal(0));
    EXPECT_EQ(moved.taxCase.children[1].childcareCosts, Decimal(700));
    paper.taxCase.children[0].childcareCosts = 800;
    EXPECT_EQ(planApplying(paper.context(), choice).taxCase.children[0].childcareCosts,
              Decimal(800))
        << "changed by hand since";
}

TEST(Applying, findsTheRegisterEntryAndTheColumnOfItsInterest) {
    struct Row {
        const char* interest;
        Proposal::Witness witness;
        const char* with;
        const char* without;
    };
    const std::vector<Row> rows{
        {"200", Proposal::Witness::position, "0", "200"},
        {"200.05", Proposal::Witness::position, "200.05", "0"},
        {"900", Proposal::Witness::payload, "0", "900"},
    };
    for (const Row& row : rows) {
        Paper paper;
        paper.taxCase.securities = {{.institution = "Kantonale"},
                                    {.institution = "Kantonale",
                                     .ibanOrValor = "CH93 0076 2011 "
                                                    "6238 5295 7"}};
        paper.add({.kind = Kind::security},
                  {{"ibanOrValor", "CH9300762011623852957"},
                   {"institution", "Andere"},
                   {"taxValue", "1000"},
                   {"incomeWithoutWithholding", row.interest}},
                  row.witness);
        paper.apply();
        ASSERT_EQ(paper.taxCase.securities.size(), 2U);
        EXPECT_EQ(paper.at("securities[1].taxValue"), "1000");
        EXPECT_EQ(paper.at("securities[1].incomeWithWithholding"), row.with) << row.interest;
        EXPECT_EQ(paper.at("securities[1].incomeWithoutWithholding"), row.without) << row.interest;
    }
}

TEST(Applying, leavesOutWhatWouldCountTwiceOrBelongsToNobody) {
    Paper paper;
    paper.add({.kind = Kind::security}, {{"kind", "steuerauszug"}, {"taxValue", "5000"}});
    paper.add({.kind = Kind::security}, {{"taxValue", "5000"}});
    paper.add({.kind = Kind::child, .personName = "Unbekannt"}, {{"childcareCosts", "1"}});
    const ApplyChoice choice = paper.suggested();
    EXPECT_FALSE(choice.records[0].isIncluded);
    EXPECT_TRUE(choice.records[1].isIncluded);
    EXPECT_FALSE(choice.records[2].isIncluded);
    EXPECT_EQ(paper.plan().values.size(), 1U);
}

TEST(Applying, refusesTextThatIsNoValue) {
    Paper paper;
    paper.add({}, {{"grossSalary", "viel"}, {"periodTo", "2025-02-30"}, {"nosuch", "1"}});
    paper.scan.proposals.push_back({.recordIndex = 7, .field = "grossSalary", .value = "5"});
    paper.scan.proposals.push_back({.recordIndex = -1, .field = "grossSalary", .value = "5"});
    const ApplyPlan plan = paper.plan();
    ASSERT_EQ(plan.values.size(), 3U);
    for (const PlannedValue& value : plan.values) {
        EXPECT_EQ(value.outcome, Outcome::unreadable);
    }
    EXPECT_TRUE(plan.applied.empty());
}

TEST(Applying, aBillOrGiftIsAlwaysItsOwnRecord) {
    Paper paper;
    paper.taxCase.householdDeductions.donations = {{.recipient = "Hilfswerk"}};
    paper.add({.kind = Kind::donation}, {{"recipient", "Hilfswerk"}, {"amount", "50"}});
    paper.apply();
    paper.apply();
    EXPECT_EQ(paper.taxCase.householdDeductions.donations.size(), 2U);
}

TEST(Applying, aDocumentIsKnownByWhatItProposes) {
    Paper paper;
    EXPECT_EQ(mainAmount(paper.scan), std::nullopt);
    paper.scan.fields = {{.value = 8}, {.value = Decimal::parse("10.01").value()}, {.value = 2025}};
    EXPECT_EQ(mainAmount(paper.scan), std::nullopt) << "the number of a box, a day, a year";
    paper.scan.fields.push_back({.value = 850});
    paper.scan.issuer = "Erste Zeile";
    EXPECT_EQ(mainAmount(paper.scan), Decimal(850)) << "by words where nothing is proposed";
    EXPECT_EQ(issuerName(paper.scan), "Erste Zeile");
    using Document = StoredDocument::Kind;
    EXPECT_EQ(titleFor(Document::bankauszug, paper.scan), "") << "a line of it is no name";
    paper.add({.kind = Kind::security},
              {{"quantity", "12"}, {"institution", "Bank"}, {"taxValue", "100.5"}});
    EXPECT_EQ(mainAmount(paper.scan), std::nullopt) << "unsure";
    for (Proposal& proposal : paper.scan.proposals) {
        proposal.confidence = Proposal::Confidence::medium;
    }
    EXPECT_EQ(mainAmount(paper.scan), Decimal::parse("100.5").value());
    EXPECT_EQ(issuerName(paper.scan), "Bank");
    EXPECT_EQ(titleFor(Document::bankauszug, paper.scan), "Zins-/Saldobestätigung – Bank");
    EXPECT_EQ(titleFor(Document::anderes, paper.scan), "");
    EXPECT_TRUE(credibleFields(paper.scan).empty()) << "beside proposals";
    paper.add({.kind = Kind::security}, {{"kind", "steuerauszug"}, {"taxValue", "900"}});
    paper.scan.proposals.back().confidence = Proposal::Confidence::high;
    EXPECT_EQ(mainAmount(paper.scan), Decimal(900)) << "the total of a statement";
}

TEST(Applying, theAmountOfADocumentIsTheOneItIsAbout) {
    struct Row {
        std::vector<std::pair<Kind, std::vector<std::pair<std::string, std::string>>>> records;
        int amount;
    };
    for (const Row& row :
         {Row{{{Kind::personDeductions, {{"pillar3aBuyIn", "943"}, {"pillar3a", "3467"}}}}, 3'467},
          Row{{{Kind::security, {{"incomeWithWithholding", "12"}, {"taxValue", "1000"}}},
               {Kind::security, {{"taxValue", "500"}}},
               {Kind::debt, {{"amount", "90000"}}}},
              1'500},
          Row{{{Kind::security, {{"incomeWithWithholding", "12"}}},
               {Kind::security, {{"taxValue", "500"}}}},
              500},
          Row{{{Kind::personIncome, {{"unemployment", "9800"}}}}, 9'800}}) {
        Paper paper;
        for (const auto& [kind, values] : row.records) {
            paper.add({.kind = kind}, values);
        }
        for (Proposal& proposal : paper.scan.proposals) {
            proposal.confidence = Proposal::Confidence::medium;
        }
        EXPECT_EQ(mainAmount(paper.scan), Decimal(row.amount));
    }
}

TEST(Applying, namesAreAlikeHoweverTheyAreWritten) {
    EXPECT_TRUE(alike("Müller & Söhne AG", "MUELLER + SOEHNE AG"));
    EXPECT_TRUE(alike("Crèche «Les Étoiles»", "creche les etoiles"));
    EXPECT_FALSE(alike("", ""));
    EXPECT_FALSE(alike("Migra", "Migra AG"));
    EXPECT_TRUE(isNamedIn("Anna Lena", "Lena Anna Bürki"));
    EXPECT_FALSE(isNamedIn("Ann", "Anna Bürki"));
}

using ApplyingInTheStore = AppStoreTest;

TEST_F(ApplyingInTheStore, isOneStepThatCanBeUndone) {
    start();
    const auto file = folder.path() / "Lohnausweis.pdf";
    fiscarel::testing::writeFile(file, "%PDF-");
    std::vector<Uuid> ids;
    store->importDocuments({file}, [&](std::vector<Uuid> added) { ids = std::move(added); });
    ASSERT_EQ(ids.size(), 1U);
    const PersistedState before = store->snapshot();
    TaxCase taxCase = store->current();
    taxCase.cash = 5;
    taxCase.otherAssets = 6;
    store->applyDocument(ids[0], taxCase, {{.path = "cash", .value = "5"}});
    const PersistedState after = store->snapshot();
    EXPECT_TRUE(after.documents[0].isApplied);
    EXPECT_EQ(after.documents[0].applied->size(), 1U);
    EXPECT_TRUE(store->undo());
    EXPECT_EQ(store->snapshot(), before);
    EXPECT_TRUE(store->redo());
    EXPECT_EQ(store->snapshot(), after);
    // A title given meanwhile stays.
    store->updateDocument(ids[0], [](StoredDocument& document) { document.title = "Mein Lohn"; });
    EXPECT_TRUE(store->undo());
    EXPECT_FALSE(store->documents()[0].isApplied);
    EXPECT_EQ(store->documents()[0].title, "Mein Lohn");
}

} // namespace
