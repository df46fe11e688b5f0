#include "Fiscarel_SG/DocumentScanner.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/Printable.h"
#include "cli/TextTable.h"

#include <unistd.h>

#include <filesystem>

namespace fiscarel::cli {

namespace {

using namespace taxcore;

std::string paragraph(const std::string& text, const std::string& indent) {
    return wrapped(printable(text), lineWidth - indent.size(), indent);
}

std::string part(const std::string& title, const std::string& lines) {
    return lines.empty() ? std::string() : "\n" + title + "\n" + lines;
}

/// A value as it stands in JSON, with its field and how sure it is.
std::string proposalText(const Proposal& proposal) {
    constexpr std::size_t fieldWidth = 30;
    std::string text = withoutTrailingBlanks(
        "    " + padRight(printable(proposal.field), fieldWidth) + " "
        + padRight(printable(proposal.value), fieldWidth) + " "
        + std::string(label(proposal.confidence)));
    text += paragraph(proposal.reason, "      ");
    for (const ProposalCheck& check : proposal.checks) {
        text += paragraph((check.passed ? "stimmt: " : "stimmt nicht: ") + check.text, "      ");
    }
    return text;
}

std::string recordText(const ScanResult& result, std::size_t index) {
    const ProposedRecord& record = result.records[index];
    std::string title = std::string(label(record.kind)) + ": " + record.title;
    if (record.year) {
        title += " (" + std::to_string(*record.year) + ")";
    }
    if (record.page > 0) {
        title += ", Seite " + std::to_string(record.page);
    }
    std::string text = paragraph(title, "  ");
    if (!record.personName.empty()) {
        text += paragraph("Person: " + record.personName, "    ");
    }
    text += paragraph(record.advice, "    ");
    for (const Proposal& proposal : result.proposals) {
        if (proposal.recordIndex == static_cast<int>(index)) {
            text += proposalText(proposal);
        }
    }
    return text;
}

std::string readingText(const std::string& file, const ScanResult& result) {
    std::string text = heading(printable(std::filesystem::path(file).filename().string()));
    if (result.problem) {
        text += paragraph(*result.problem, "");
    }
    text += "Art:         " + std::string(label(result.kind)) + "\n";
    if (result.proposedKind) {
        text += "Vorschlag:   " + std::string(label(*result.proposedKind))
                + (result.kindIsCertain ? " (sicher)\n" : "\n");
    }
    if (result.issuer) {
        text += "Aussteller:  " + printable(*result.issuer) + "\n";
    }
    text += "Seiten:      " + std::to_string(result.pageCount) + "\n";
    std::string lines;
    for (const ExtractedField& field : result.fields) {
        constexpr std::size_t labelWidth = 44;
        lines += withoutTrailingBlanks("  " + padRight(printable(field.label), labelWidth)
                                       + cell(field.value.toString(), 16));
    }
    text += part("Beträge nach Stichworten", lines);
    lines.clear();
    for (std::size_t i = 0; i < result.records.size(); ++i) {
        lines += recordText(result, i);
    }
    text += part("Vorschläge", lines);
    lines.clear();
    for (const std::string& barcode : result.barcodes) {
        lines += paragraph(barcode, "  ");
    }
    text += part("Strichcodes", lines);
    lines.clear();
    for (const std::string& line : result.lines) {
        lines += "  " + printable(line) + "\n";
    }
    return text + part("Text", lines);
}

/// Shows at a terminal how far it is.
void showProgress(int done, int total) {
    if (isatty(STDERR_FILENO) == 1) {
        std::fprintf(stderr, "\rSeite %d von %d %s", done, total, done == total ? "\n" : "");
    }
}

} // namespace

int readDocuments(const ReadOptions& options) {
    int code = exitCode::done;
    bool isFirst = true;
    for (const std::string& file : options.files) {
        const ScanResult result = DocumentScanner::scan(file, {.progress = showProgress});
        if (result.problem && result.pageCount == 0) {
            code = fail("«" + file + "»: " + *result.problem);
            if (!options.json) {
                continue;
            }
        }
        std::string text;
        if (options.json) {
            text = options.files.size() == 1 ? toJson(result)
                                             : toJson(result, JsonStyle::compact) + "\n";
        } else {
            text = (isFirst ? "" : "\n") + readingText(file, result);
        }
        isFirst = false;
        if (const int printed = print(text); printed != exitCode::done) {
            return printed;
        }
    }
    return code;
}

} // namespace fiscarel::cli
