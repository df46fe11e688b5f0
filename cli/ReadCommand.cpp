#include "Fiscarel_SG/DocumentScanner.h"
#include "Fiscarel_SG/documents/CaseItems.h"
#include "Fiscarel_SG/documents/ScanSummary.h"
#include "Fiscarel_SG/forms/InputText.h"
#include "Fiscarel_SG/forms/PagePaths.h"
#include "Fiscarel_SG/pages/InputPages.h"
#include "TaxCore/base/MoneyFormat.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/Printable.h"
#include "cli/TextTable.h"

#include <unistd.h>

#include <algorithm>
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

/// A value as people write it; as it stands where it is none of its field.
std::string written(const forms::BoundField& field, const std::string& value) {
    const auto number = Decimal::parse(value);
    const auto day = Date::parse(value);
    switch (field.editor) {
    case forms::Editor::amount:
        return number ? MoneyFormat::chf(*number, 2, false) : value;
    case forms::Editor::decimal:
        return number ? forms::formatNumber(*number) : value;
    case forms::Editor::date:
        return day ? forms::formatDate(*day) : value;
    case forms::Editor::check:
        return value == "true" ? "ja" : value == "false" ? "nein" : value;
    case forms::Editor::iban:
        return forms::groupIban(value);
    case forms::Editor::choice: {
        const auto chosen = std::ranges::find(field.options, value, &forms::Option::raw);
        return chosen != field.options.end() ? chosen->label : value;
    }
    default:
        return value;
    }
}

/// What a document proposes, as lines.
class ProposalLines {
  public:
    explicit ProposalLines(const ScanResult& result) : result_(result) {}

    std::string all() const {
        std::string text;
        for (std::size_t i = 0; i < result_.records.size(); ++i) {
            text += ofRecord(i);
        }
        return text;
    }

  private:
    std::string ofRecord(std::size_t index) const {
        const ProposedRecord& record = result_.records[index];
        std::string title = titleOf(record);
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
        for (const Proposal& proposal : result_.proposals) {
            if (proposal.recordIndex == static_cast<int>(index)) {
                text += ofProposal(proposal, record.kind);
            }
        }
        return text;
    }

    /// The kind of record, unless its title says it already.
    static std::string titleOf(const ProposedRecord& record) {
        const std::string kind(label(record.kind));
        const std::string first = record.title.substr(0, record.title.find(' '));
        return record.title.empty()                    ? kind
               : kind.find(first) != std::string::npos ? record.title
                                                       : kind + ": " + record.title;
    }

    std::string ofProposal(const Proposal& proposal, ProposedRecord::Kind kind) const {
        constexpr std::size_t labelWidth = 50;
        constexpr std::size_t valueWidth = 28;
        const auto field = forms::fieldWithPath(pages_, firstPlaceOf(kind) + "." + proposal.field);
        const std::string name = printable(field ? field->label : proposal.field);
        const std::string value =
            printable(field ? written(*field, proposal.value) : proposal.value);
        const bool isLong = displayWidth(value) > valueWidth;
        std::string text = withoutTrailingBlanks("    " + padRight(name, labelWidth) + " "
                                                 + padLeft(isLong ? "" : value, valueWidth) + "  "
                                                 + std::string(label(proposal.confidence)));
        text += isLong ? paragraph(value, "      ") : std::string();
        text += paragraph(proposal.reason, "      ");
        for (const ProposalCheck& check : proposal.checks) {
            text +=
                paragraph((check.passed ? "stimmt: " : "stimmt nicht: ") + check.text, "      ");
        }
        return text;
    }

    const ScanResult& result_;
    /// What fields are called has one home, the pages of the window.
    const std::vector<forms::Page> pages_ = pages::inputPages(
        {.year = RuleBook::supportedYears.front(), .region = TaxRegion::stGallen});
};

std::string kindText(const ScanResult& result) {
    if (!result.proposedKind || *result.proposedKind == result.kind) {
        return std::string(label(result.kind));
    }
    return std::string(label(*result.proposedKind))
           + (result.kindIsCertain ? " (sicher)" : " (vorgeschlagen)");
}

std::string readingText(const std::string& file, const ScanResult& result) {
    std::string text = heading(printable(std::filesystem::path(file).filename().string()));
    if (result.problem) {
        text += paragraph(*result.problem, "");
    }
    text += "Art:         " + kindText(result) + "\n";
    if (result.issuer) {
        text += "Aussteller:  " + printable(*result.issuer) + "\n";
    }
    text += "Seiten:      " + std::to_string(result.pageCount) + "\n";
    std::string lines;
    for (const ExtractedField& field : credibleFields(result)) {
        constexpr std::size_t labelWidth = 44;
        lines += "  " + padRight(printable(field.label), labelWidth)
                 + cell(MoneyFormat::chf(field.value, 2, false), 16) + "\n";
    }
    text += part("Beträge nach Stichworten", lines);
    text += part("Vorschläge", ProposalLines(result).all());
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
        if (file == "-") {
            return fail("Belege lassen sich nicht aus der Standardeingabe lesen; bitte eine Datei "
                        "nennen.",
                        exitCode::usage);
        }
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
