// Reading documents on the command line.

#include "Fiscarel_SG/documents/ScanResult.h"
#include "cli/TextTable.h"
#include "tests/cli/CommandLine.h"

#include <gtest/gtest.h>

#include <string>

namespace taxcore {
namespace {

/// A PDF file of one page with these lines.
std::string pdfWith(const std::vector<std::string>& lines) {
    std::string content = "BT /F 12 Tf 20 TL 60 780 Td";
    for (const std::string& line : lines) {
        content += " (" + line + ") Tj T*";
    }
    content += " ET";
    const std::vector<std::string> objects{
        "<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Contents 4 0 R "
        "/Resources << /Font << /F 5 0 R >> >> >>",
        "<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content + "\nendstream",
        "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica /Encoding /WinAnsiEncoding >>"};
    std::string pdf = "%PDF-1.4\n";
    for (std::size_t i = 0; i < objects.size(); ++i) {
        pdf += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    return pdf + "trailer << /Root 1 0 R >>\n%%EOF\n";
}

const std::vector<std::string> bill{"Physiotherapie am Rhein", "Rechnung vom 3. Mai 2025",
                                    "Rechnungsbetrag CHF 1'250.40"};

std::string quoted(const fs::path& path) { return " '" + path.string() + "'"; }

TEST_F(CommandLine, readsDocuments) {
    const std::string good = quoted(write("beleg.pdf", pdfWith(bill)));
    const Outcome text = run("lies" + good);
    EXPECT_EQ(text.exitCode, 0) << text.err;
    for (const char* part : {"beleg.pdf\n=========\n", "Art:         Arzt / Zahnarzt",
                             "Aussteller:  Physiotherapie am Rhein", "Seiten:      1",
                             "Rechnungsbetrag", " 1’250.40  wahrscheinlich\n",
                             " 03.05.2025  wahrscheinlich\n", "  Rechnung vom 3. Mai 2025\n"}) {
        EXPECT_NE(text.out.find(part), std::string::npos) << part << " in\n" << text.out;
    }
    for (const char* part : {"Beträge nach Stichworten", "gross ", "2025-05-03"}) {
        EXPECT_EQ(text.out.find(part), std::string::npos) << part << " in\n" << text.out;
    }
    for (const std::string& line : linesOf(text.out)) {
        EXPECT_LE(fiscarel::cli::displayWidth(line), fiscarel::cli::lineWidth) << line;
    }
    EXPECT_EQ(text.err, "");

    const Outcome json = run("lies --json" + good);
    EXPECT_EQ(json.exitCode, 0);
    const auto result = fromJson<fiscarel::ScanResult>(json.out);
    ASSERT_TRUE(result.has_value()) << result.error().message;
    EXPECT_EQ(result->kind, fiscarel::StoredDocument::Kind::arztrechnung);
    ASSERT_EQ(result->fields.size(), 1U);
    EXPECT_EQ(result->fields[0].value, Decimal::parse("1250.4").value());
    EXPECT_EQ(json.out, toJson(*result));
}

TEST_F(CommandLine, readsTheOtherDocumentsWhenOneCannotBeRead) {
    const std::string good = quoted(write("gut.pdf", pdfWith(bill)));
    const std::string bad = quoted(write("schlecht.pdf", "nichts"));
    const Outcome text = run("lies" + good + bad + good);
    EXPECT_EQ(text.exitCode, 1);
    EXPECT_NE(text.err.find("schlecht.pdf»: Dieses Dateiformat ist unbekannt."), std::string::npos)
        << text.err;
    const std::size_t first = text.out.find("gut.pdf");
    EXPECT_NE(text.out.find("gut.pdf", first + 1), std::string::npos) << text.out;

    const Outcome json = run("lies --json" + good + bad + quoted(folder_ / "fehlt.png"));
    EXPECT_EQ(json.exitCode, 1);
    const auto lines = linesOf(json.out);
    ASSERT_EQ(lines.size(), 3U) << json.out;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto result = fromJson<fiscarel::ScanResult>(lines[i]);
        ASSERT_TRUE(result.has_value()) << lines[i];
        EXPECT_EQ(result->problem.has_value(), i > 0);
    }
    EXPECT_EQ(linesOf(json.err).size(), 2U) << json.err;
    EXPECT_EQ(run("lies").exitCode, 2);
    EXPECT_EQ(run("lies" + good + " >/dev/full").exitCode, 1);
}

} // namespace
} // namespace taxcore
