#include "Fiscarel_SG/store/DocumentFiles.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "tests/app/ArchiveSupport.h"
#include "tests/app/FailingFiles.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <zip.h>

#include <cerrno>
#include <csignal>

namespace fiscarel::testing {
namespace {

namespace fs = std::filesystem;

const std::vector<std::string> someNames{"A-lohn.pdf", "B-foto.JPG", "C-brief.txt",
                                         "D-Zürich «quer».eml", "E-leer.dat"};

Contents someDocuments() {
    return {{someNames[0], noise(300'000)},
            {someNames[1], noise(1000)},
            {someNames[2], std::string(100'000, 'x')},
            {someNames[3], "Grüezi"},
            {someNames[4], ""}};
}

class Archive : public ::testing::Test {
  protected:
    /// Puts files among the documents of the household that is exported.
    void keep(const Contents& documents) {
        for (const auto& [name, bytes] : documents) {
            writeFile(from_ / name, bytes);
        }
    }
    ArchiveResult<ArchiveReport> exported(const PersistedState& state, FileSystem& files,
                                          const ArchiveProgress& progress = {}) {
        std::vector<ArchiveDocument> documents;
        for (const StoredDocument& document : state.documents) {
            documents.push_back({document.fileName, from_ / document.fileName});
        }
        return writeArchive(files, archive_, encodeState(state), documents, progress);
    }
    ArchiveResult<ArchiveContent> imported(FileSystem& files,
                                           const ArchiveProgress& progress = {}) {
        return readArchive(files, archive_, to_, {}, progress);
    }
    /// Reads an archive of these bytes, which must fail and change nothing; the sentence.
    std::string refused(const std::string& bytes) {
        writeFile(archive_, bytes);
        const Contents before = contentsOf(to_);
        const auto content = imported(posix_);
        EXPECT_FALSE(content);
        EXPECT_EQ(contentsOf(to_), before);
        return content ? "" : content.error().message;
    }

    TemporaryFolder root_;
    const fs::path from_ = root_.folder("von");
    const fs::path to_ = root_.folder("nach");
    const fs::path out_ = root_.folder("aus");
    const fs::path archive_ = out_ / archiveFileName;
    PosixFiles posix_;
};

TEST_F(Archive, bringsEverythingToAnotherComputer) {
    keep(someDocuments());
    writeFile(archive_, "an older archive");
    ASSERT_EQ(::chmod(archive_.c_str(), 0644), 0);
    const PersistedState state = stateWith(someNames);
    const auto report = exported(state, posix_);
    ASSERT_TRUE(report) << report.error().message;
    EXPECT_EQ(*report, ArchiveReport{.documents = 5});
    EXPECT_EQ(contentsOf(out_).size(), 1U);
    EXPECT_EQ(fs::status(archive_).permissions(), fs::perms::owner_read | fs::perms::owner_write);

    const auto content = imported(posix_);
    ASSERT_TRUE(content) << content.error().message;
    EXPECT_EQ(content->report, ArchiveReport{.documents = 5});
    EXPECT_EQ(content->state, state);
    EXPECT_EQ(contentsOf(to_), someDocuments());
    EXPECT_EQ(fs::status(to_ / someNames[2]).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(Archive, packsWhatIsNotPackedByItself) {
    keep(someDocuments());
    ASSERT_TRUE(exported(stateWith(someNames), posix_));
    int error = 0;
    zip_t* const zip = zip_open(archive_.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &error);
    ASSERT_NE(zip, nullptr) << error;
    ASSERT_EQ(zip_get_num_entries(zip, 0), 6);
    const std::vector<std::pair<std::string, int>> methods{
        {"daten.json", ZIP_CM_DEFLATE},
        {"Belege/" + someNames[0], ZIP_CM_STORE},
        {"Belege/" + someNames[1], ZIP_CM_STORE},
        {"Belege/" + someNames[2], ZIP_CM_DEFLATE},
        {"Belege/" + someNames[3], ZIP_CM_DEFLATE}};
    for (const auto& [name, method] : methods) {
        zip_stat_t status{};
        ASSERT_EQ(zip_stat(zip, name.c_str(), 0, &status), 0) << name;
        EXPECT_EQ(status.comp_method, method) << name;
    }
    zip_discard(zip);
}

TEST_F(Archive, leavesOutDocumentsWithoutAFile) {
    keep({{"da.pdf", "pdf"}});
    const auto report =
        exported(stateWith({"da.pdf", "weg.pdf", "da.pdf", "../von/da.pdf", ".da", ""}), posix_);
    ASSERT_TRUE(report) << report.error().message;
    EXPECT_EQ(*report, (ArchiveReport{.documents = 1, .missing = 4}));
    const auto content = imported(posix_);
    ASSERT_TRUE(content) << content.error().message;
    EXPECT_EQ(content->report, (ArchiveReport{.documents = 1, .missing = 4}));
    EXPECT_EQ(contentsOf(to_), (Contents{{"da.pdf", "pdf"}}));
}

TEST_F(Archive, doesNotTouchFilesThatAreThere) {
    const std::string own = freshDocumentName("anders.pdf");
    keep({{"gleich.pdf", "1234"}, {own, "neuer"}, {"länger.pdf", "12"}, {"ordner.pdf", "1"}});
    const Contents before{{"gleich.pdf", "1234"}, {own, "älter"}, {"länger.pdf", "123"}};
    for (const auto& [name, bytes] : before) {
        writeFile(to_ / name, bytes);
    }
    fs::create_directory(to_ / "ordner.pdf");
    ASSERT_TRUE(exported(stateWith({"gleich.pdf", own, "länger.pdf", own, "ordner.pdf"}), posix_));

    const auto content = imported(posix_);
    ASSERT_TRUE(content) << content.error().message;
    EXPECT_EQ(content->report, (ArchiveReport{.documents = 3, .alreadyThere = 1}));
    const auto& documents = content->state.documents;
    EXPECT_EQ(documents[0].fileName, "gleich.pdf");
    EXPECT_EQ(documents[1].fileName, documents[3].fileName);
    EXPECT_EQ(documents[1].fileName.size(), own.size()) << "one UUID takes the other's place";
    EXPECT_TRUE(documents[2].fileName.ends_with("-länger.pdf"));
    fs::remove(to_ / "ordner.pdf");
    Contents after = before;
    after[documents[1].fileName] = "neuer";
    after[documents[2].fileName] = "12";
    after[documents[4].fileName] = "1";
    EXPECT_EQ(contentsOf(to_), after);

    const auto again = imported(posix_);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->report.alreadyThere, 1U);
}

TEST_F(Archive, takesOnlyWhatTheStateNames) {
    const std::string json = encodeState(stateWith({"a.txt", "nur hier.pdf"}));
    writeFile(to_ / "nur hier.pdf", "x");
    const std::string made = zipOf({{"Belege/", ""},
                                    {"daten.json", json},
                                    {"Belege/a.txt", "a"},
                                    {"Belege/b.txt", "b"},
                                    {"Belege/.DS_Store", "c"},
                                    {"Belege/tiefer/a.txt", "d"},
                                    {"belege/e.txt", "e"},
                                    {"__MACOSX/Belege/._a.txt", "f"},
                                    {"Belege/a.txtX../h", "h"},
                                    {"Hinweis.txt", "g", false, 0120777}});
    writeFile(archive_, patched(made, "a.txtX", std::string_view("a.txt\0", 6)));
    const auto content = imported(posix_);
    ASSERT_TRUE(content) << content.error().message;
    EXPECT_EQ(content->report, (ArchiveReport{.documents = 1, .alreadyThere = 1, .passedOver = 7}));
    EXPECT_EQ(contentsOf(to_), (Contents{{"a.txt", "a"}, {"nur hier.pdf", "x"}}));
}

TEST_F(Archive, refusesWhatWasMadeToDoHarm) {
    const std::string json = encodeState(stateWith({"a1.txt", "a2.txt", "../b", "c\nd"}));
    const RawEntry state{"daten.json", json};
    const std::string zeros(200'000, '\0');
    const std::string good =
        zipOf({state, {"Belege/a1.txt", "aaaa"}, {"Belege/a2.txt", zeros, true}});
    PersistedState newer = stateWith({});
    newer.version = newestStateVersion + 1;
    std::vector<RawEntry> many{state};
    for (std::size_t i = 0; i < maxArchiveDocuments + 2; ++i) {
        many.push_back({"x" + std::to_string(i), ""});
    }
    struct Row {
        std::string name;
        std::string bytes;
        std::string says;
    };
    const std::string size = littleEndian(zeros.size(), 4);
    const std::vector<Row> rows{
        {"parent", zipOf({state, {"Belege/../b", "x"}}), "unzulässig"},
        {"parent, unrelated", zipOf({state, {"../../b", "x"}}), "unzulässig"},
        {"absolute", zipOf({state, {"/etc/b", "x"}}), "unzulässig"},
        {"backslashes", zipOf({state, {"Belege\\b", "x"}}), "unzulässig"},
        {"link", zipOf({state, {"Belege/a1.txt", "/etc/passwd", false, 0120777}}), "Verweis"},
        {"state as link", zipOf({{"daten.json", "/etc/passwd", false, 0120777}}), "Verweis"},
        {"twice", patched(good, "Belege/a2.txt", "Belege/a1.txt"), "zweimal"},
        {"encrypted", patchedHeaders(good, 6, 8, 1), "Passwort"},
        {"unknown packing", patchedHeaders(good, 8, 10, 97), "Verfahren"},
        {"more than it says", patched(good, size, littleEndian(1000, 4)), "beschädigt"},
        {"less than it says", patched(good, size, littleEndian(300'000, 4)), "beschädigt"},
        {"says too much", patched(good, size, littleEndian(0x7FFFFFFF, 4)), "grösser als 200 MB"},
        {"checksum", patched(good, "aaaa", "aaba"), "«Belege/a1.txt» lässt sich nicht unversehrt"},
        {"no state", zipOf({{"Belege/a1.txt", "x"}}), "keine Daten"},
        {"state is no JSON", zipOf({{"daten.json", "{"}}), ""},
        {"state says too much",
         patched(zipOf({{"daten.json", json + "  ", true}}), littleEndian(json.size() + 2, 4),
                 littleEndian(0x7FFFFFFF, 4)),
         "grösser als 256 MB"},
        {"newer version", zipOf({{"daten.json", encodeState(newer)}}), "neueren Ausgabe"},
        {"too many entries", zipOf(many), "höchstens 20000"},
        {"empty file", "", "Archiv"},
        {"no ZIP file", json, "kein Archiv"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string message = refused(row.bytes);
        EXPECT_NE(message.find(row.says), std::string::npos) << message;
        EXPECT_TRUE(message.ends_with('.')) << message;
    }
    writeFile(archive_, good);
    EXPECT_TRUE(imported(posix_)) << "or the rows above tell nothing";
}

TEST_F(Archive, unpacksNoMoreThanABombSaysItHas) {
    const std::string zeros(std::size_t{20} << 20U, '\0');
    writeFile(archive_, patched(zipOf({{"daten.json", encodeState(stateWith({"a.txt"}))},
                                       {"Belege/a.txt", zeros, true}}),
                                littleEndian(zeros.size(), 4), littleEndian(1000, 4)));
    int pieces = 0;
    const auto content = imported(posix_, [&](std::uint64_t, std::uint64_t) {
        ++pieces;
        return true;
    });
    EXPECT_FALSE(content);
    EXPECT_LE(pieces, 2);
    EXPECT_EQ(contentsOf(to_), Contents());
}

TEST_F(Archive, refusesMoreThanItsTotal) {
    std::vector<std::string> names;
    std::vector<RawEntry> entries;
    const std::string bytes(12'345, '\0');
    for (std::size_t i = 0; i <= maxArchiveSize / maxDocumentSize; ++i) {
        names.push_back(std::to_string(i) + ".txt");
        entries.push_back({"Belege/" + names.back(), bytes, true});
    }
    entries.push_back({"daten.json", encodeState(stateWith(names))});
    const std::string made =
        patched(zipOf(entries), littleEndian(bytes.size(), 4), littleEndian(maxDocumentSize, 4));
    EXPECT_EQ(refused(made), "Ein Archiv fasst höchstens 8192 MB an Belegen.");
}

TEST_F(Archive, refusesTablesLargerThanAnyOfOurs) {
    // 600 entries with names of 60'000 bytes, and nothing else.
    constexpr std::size_t count = 600;
    constexpr std::size_t nameLength = 60'000;
    std::string made;
    for (std::size_t i = 0; i < count; ++i) {
        made += "PK\x01\x02" + std::string(24, '\0') + littleEndian(nameLength, 2)
                + std::string(16, '\0') + std::string(nameLength, 'n');
    }
    const std::size_t length = made.size();
    made += "PK\x05\x06" + std::string(4, '\0') + littleEndian(count, 2) + littleEndian(count, 2)
            + littleEndian(length, 4) + littleEndian(0, 4) + std::string(2, '\0');
    EXPECT_NE(refused(made).find("kein Archiv"), std::string::npos);
}

TEST_F(Archive, refusesWhatIsNoFile) {
    EXPECT_EQ(imported(posix_).error().message,
              "«Fiscarel-SG-Archiv.zip»: Sie ist nicht vorhanden.");
    fs::create_directory(archive_);
    EXPECT_EQ(imported(posix_).error().message, "«Fiscarel-SG-Archiv.zip»: Es ist ein Ordner.");
    fs::remove(archive_);
    ASSERT_EQ(::mkfifo(archive_.c_str(), 0600), 0);
    EXPECT_EQ(imported(posix_).error().message,
              "«Fiscarel-SG-Archiv.zip»: Es ist keine gewöhnliche Datei.");
}

std::string smallArchive() {
    return zipOf({{"daten.json", encodeState(stateWith({"a.txt", "b.txt"})), true},
                  {"Belege/a.txt", noise(50)},
                  {"Belege/b.txt", std::string(400, 'b'), true}});
}

TEST_F(Archive, refusesEveryTruncation) {
    const std::string whole = smallArchive();
    for (std::size_t length = 0; length < whole.size(); length += 3) {
        refused(whole.substr(0, length));
    }
}

TEST_F(Archive, neverTakesDamagedDocuments) {
    const std::string whole = smallArchive();
    std::size_t taken = 0;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string damaged = whole;
        damaged[at] = static_cast<char>(~damaged[at]);
        writeFile(archive_, damaged);
        const auto content = imported(posix_);
        const Contents contents = contentsOf(to_);
        EXPECT_EQ(contents.size(), content ? content->report.documents : 0U) << at;
        for (const auto& [name, bytes] : contents) {
            EXPECT_TRUE(bytes == (name == "a.txt" ? noise(50) : std::string(400, 'b')))
                << name << " " << at;
            fs::remove(to_ / name);
        }
        taken += content ? 1U : 0U;
    }
    EXPECT_LT(taken, whole.size() / 2) << "few bytes of an archive mean nothing";
}

TEST_F(Archive, leavesNothingWhenStopped) {
    keep(someDocuments());
    const PersistedState state = stateWith(someNames);
    const auto stopAt = [](std::size_t& calls, std::size_t at) {
        return [&calls, at](std::uint64_t done, std::uint64_t total) {
            EXPECT_LE(done, total);
            return calls++ != at;
        };
    };
    for (std::size_t at = 0;; ++at) {
        std::size_t calls = 0;
        const auto report = exported(state, posix_, stopAt(calls, at));
        if (report) {
            EXPECT_GT(at, 8U);
            break;
        }
        EXPECT_TRUE(report.error().isStopped);
        EXPECT_EQ(contentsOf(out_), Contents());
    }
    writeFile(to_ / someNames[2], "anders");
    writeFile(to_ / someNames[3], "Grüezi");
    const Contents before = contentsOf(to_);
    for (std::size_t at = 0;; ++at) {
        std::size_t calls = 0;
        const auto content = imported(posix_, stopAt(calls, at));
        if (content) {
            EXPECT_GT(at, 8U);
            break;
        }
        EXPECT_TRUE(content.error().isStopped);
        ASSERT_EQ(contentsOf(to_), before);
    }
}

TEST_F(Archive, leavesNothingWhenAnyOperationFails) {
    keep(someDocuments());
    const PersistedState state = stateWith(someNames);
    FailingFiles files;
    files.code = ENOSPC;
    for (files.failsAt = 0;; ++files.failsAt) {
        files.operations = 0;
        const auto report = exported(state, files);
        if (report) {
            EXPECT_GT(files.failsAt, 30);
            break;
        }
        EXPECT_NE(report.error().message.find("kein Platz mehr"), std::string::npos)
            << files.failsAt << report.error().message;
        EXPECT_EQ(contentsOf(out_), Contents()) << files.failsAt;
    }
    writeFile(to_ / someNames[3], "Grüezi");
    const Contents before = contentsOf(to_);
    for (files.failsAt = 0;; ++files.failsAt) {
        SCOPED_TRACE(files.failsAt);
        files.operations = 0;
        const auto content = imported(files);
        if (content) {
            // A file of which one could not tell whether it is the same is taken for another one.
            const ArchiveReport& report = content->report;
            EXPECT_EQ(report.documents + report.alreadyThere, someNames.size());
            const Contents after = contentsOf(to_);
            for (std::size_t i = 0; i < someNames.size(); ++i) {
                const std::string& name = content->state.documents[i].fileName;
                EXPECT_EQ(after.at(name), someDocuments().at(someNames[i]));
                if (!before.contains(name)) {
                    fs::remove(to_ / name);
                }
            }
        }
        ASSERT_EQ(contentsOf(to_), before);
        if (files.operations <= files.failsAt) {
            EXPECT_TRUE(content);
            EXPECT_GT(files.failsAt, 30);
            break;
        }
    }
}

TEST_F(Archive, leavesNothingOnAFullDisk) {
    keep(someDocuments());
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{.rlim_cur = 100'000, .rlim_max = before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto report = exported(stateWith(someNames), posix_);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    ASSERT_FALSE(report);
    EXPECT_EQ(report.error().message, "«Fiscarel-SG-Archiv.zip»: Sie ist zu gross.");
    EXPECT_EQ(contentsOf(out_), Contents());
}

TEST_F(Archive, asksForRoomBeforehand) {
    keep(someDocuments());
    ASSERT_TRUE(exported(stateWith(someNames), posix_));
    FailingFiles files;
    files.free = 300'000;
    const auto content = imported(files);
    ASSERT_FALSE(content);
    EXPECT_EQ(content.error().message,
              "Für die Belege des Archivs fehlen auf dem Datenträger 0.1 MB Platz.");
    EXPECT_EQ(contentsOf(to_), Contents());
}

TEST_F(Archive, placesNothingWithoutConsent) {
    keep(someDocuments());
    ASSERT_TRUE(exported(stateWith(someNames), posix_));
    const auto content =
        readArchive(posix_, archive_, to_, [&]() -> tl::expected<void, std::string> {
            for (const auto& [name, bytes] : contentsOf(to_)) {
                EXPECT_EQ(name.front(), '.') << "placed too early";
            }
            return tl::unexpected(std::string("Nein."));
        });
    ASSERT_FALSE(content);
    EXPECT_EQ(content.error().message, "Nein.");
    EXPECT_EQ(contentsOf(to_), Contents());
}

TEST_F(Archive, writesOverNothingThatAppearsMeanwhile) {
    keep(someDocuments());
    ASSERT_TRUE(exported(stateWith(someNames), posix_));
    const auto appears = [&] {
        writeFile(to_ / someNames[3], "fremd");
        return tl::expected<void, std::string>();
    };
    const auto content = readArchive(posix_, archive_, to_, appears);
    ASSERT_FALSE(content);
    EXPECT_NE(content.error().message.find("Es gibt schon eine Datei"), std::string::npos);
    EXPECT_EQ(contentsOf(to_), (Contents{{someNames[3], "fremd"}}));
}

TEST(DocumentNames, suitEveryFileSystemAndArchive) {
    struct Row {
        std::string name;
        std::string own; ///< after the UUID
    };
    const std::string uuid = "0F8FAD5B-D9CB-469F-A165-70867728950E-";
    const std::vector<Row> rows{
        {"a b.pdf", "a b.pdf"},
        {".versteckt", ".versteckt"},
        {"zei\nle\x7F.pdf", "zei_le_.pdf"},
        {"Z\xFCrich.pdf", "Z_rich.pdf"},
        {uuid + "lohn.pdf", "lohn.pdf"},
        {uuid, uuid},
        {std::string(191, 'x') + "üüüü.pdf", std::string(191, 'x') + "üü.pdf"},
    };
    for (const Row& row : rows) {
        const std::string name = freshDocumentName(row.name);
        EXPECT_TRUE(isPlainFileName(name)) << name;
        EXPECT_EQ(name.substr(37), row.own);
    }
}

} // namespace
} // namespace fiscarel::testing
