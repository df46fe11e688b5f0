#include "Fiscarel_SG/documents/ContentHash.h"
#include "Fiscarel_SG/documents/DocumentYears.h"
#include "Fiscarel_SG/documents/Gathering.h"
#include "Fiscarel_SG/documents/ScanCache.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace fiscarel {
namespace {

namespace fs = std::filesystem;
using Kind = StoredDocument::Kind;

class Intake : public ::testing::Test {
  protected:
    testing::TemporaryFolder folder;

    fs::path file(const fs::path& name, const std::string& content = "x") {
        const fs::path path = folder.path() / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }
};

TEST_F(Intake, takesFromFoldersWhatCanBeReadAndNothingElse) {
    const fs::path first = file("Steuern/a.PDF");
    const fs::path deep = file("Steuern/Bank/Zins.jpeg");
    file("Steuern/Notizen.docx");
    file("Steuern/.versteckt.pdf");
    file("Steuern/.git/b.pdf");
    fs::create_directory_symlink(folder.path(), folder.path() / "Steuern/kreis");
    fs::create_directory(folder.path() / "Leer");
    const fs::path nameless = file("ohne-endung", "%PDF-1.7");
    const fs::path table = file("Tabelle.xlsx");
    const Gathered all =
        gatherDocuments({folder.path() / "Steuern", nameless, table, folder.path() / "Leer"});
    EXPECT_EQ(all.files, (std::vector{deep, first, nameless}));
    EXPECT_EQ(all.unreadable, std::vector{table});
    EXPECT_EQ(all.empty, std::vector{folder.path() / "Leer"});
    EXPECT_FALSE(all.isCut);
}

TEST_F(Intake, findsTheSameContentUnderAnotherName) {
    const fs::path known = file("Belege/alt.pdf", "gleich");
    const fs::path other = file("Belege/ebenso lang.pdf", "anders");
    const taxcore::Uuid id = taxcore::Uuid::random();
    std::vector<fs::path> files{file("neu.pdf", "gleich"), file("x.pdf", "zwei mal"),
                                file("y.pdf", "zwei mal"), file("z.pdf", "anderz")};
    const std::vector<Twin> twins =
        takeTwins(files, {{id, known}, {taxcore::Uuid::random(), other}});
    ASSERT_EQ(twins.size(), 2U);
    EXPECT_EQ(twins[0].file.filename(), "neu.pdf");
    EXPECT_EQ(twins[0].of, id);
    EXPECT_EQ(twins[1].file.filename(), "y.pdf");
    EXPECT_EQ(twins[1].of, std::nullopt);
    EXPECT_EQ(twins[1].other.filename(), "x.pdf");
    EXPECT_EQ(files.size(), 2U);
}

TEST_F(Intake, keepsWhatWasReadWithinBounds) {
    PosixFiles files;
    ScanCache cache(files, folder.path() / "gelesen", 3'000);
    const std::string hash = contentHash(file("a.pdf", "abc")).value();
    EXPECT_EQ(hash, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(cache.find(hash), std::nullopt);
    const ScanResult result{.text = "Zeile\nzwei",
                            .kind = Kind::spende,
                            .issuer = "Verein",
                            .proposedKind = Kind::lohnausweis,
                            .records = {{.title = "Lohnausweis", .year = 2025}},
                            .pageCount = 2};
    cache.keep(hash, result);
    EXPECT_EQ(cache.find(hash), result);
    for (const char* const other : {"1", "2", "3"}) {
        cache.keep(other, {.text = std::string(1'000, 'x')});
    }
    EXPECT_TRUE(cache.find("3"));
    EXPECT_FALSE(cache.find("1") && cache.find("2")) << "nothing went";
    cache.forget("3");
    EXPECT_FALSE(cache.find("3"));
    file("gelesen/4-1.json", "{ kaputt");
    EXPECT_EQ(cache.find("4"), std::nullopt);
}

StoredDocument document(int year, Kind kind, std::optional<std::string> issuer,
                        std::string title = {}) {
    StoredDocument made;
    made.year = year;
    made.kind = kind;
    made.issuer = std::move(issuer);
    made.title = std::move(title);
    return made;
}

TEST(DocumentYears, missesWhatThereWasAYearBefore) {
    const std::vector<StoredDocument> documents{
        document(2024, Kind::bankauszug, "Bank am See"),
        document(2024, Kind::bankauszug, "Talbank AG", "Zins Talbank"),
        document(2024, Kind::lohnausweis, "Muster AG"),
        document(2024, Kind::arztrechnung, "Praxis Eins"),
        document(2024, Kind::arztrechnung, "Praxis Zwei"),
        document(2024, Kind::weiterbildung, "Schule"),
        document(2024, Kind::anderes, "Irgendwer"),
        document(2023, Kind::spende, "Zu lange her"),
        document(2025, Kind::bankauszug, "BANK AM SEE"),
        document(2025, Kind::lohnausweis, std::nullopt),
        document(2025, Kind::weiterbildung, "Andere Schule"),
    };
    const std::vector<MissingDocument> expected{{Kind::bankauszug, "Talbank AG", "Zins Talbank"},
                                                {Kind::arztrechnung, "Praxis Eins", ""}};
    EXPECT_EQ(missingSinceYearBefore(documents, 2025), expected);
    EXPECT_TRUE(missingSinceYearBefore(documents, 2023).empty());
}

TEST(DocumentYears, tellsTheYearADocumentSpeaksOf) {
    struct Case {
        std::vector<std::optional<int>> years;
        std::optional<int> other;
    };
    for (const Case& one : {Case{{}, {}}, Case{{std::nullopt}, {}}, Case{{2024}, 2024},
                            Case{{2024, 2025}, {}}, Case{{2023, 2024, 2024}, 2024}}) {
        ScanResult scan;
        for (const auto& year : one.years) {
            scan.records.push_back({.year = year});
        }
        EXPECT_EQ(otherYear(scan, 2025), one.other);
    }
}

} // namespace
} // namespace fiscarel
