#include "Fiscarel_SG/documents/kinds/Property.h"

#include "Fiscarel_SG/documents/kinds/PageRuns.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

const Labels& parcelLabels() {
    static const Labels labels{
        "Grundstück Nr.", "Grundstück-Nr.",  "Grundstücknummer", "Grundstück",   "Parzelle Nr.",
        "Parzellen-Nr.",  "Parzellennummer", "Parzelle",         "Kataster-Nr.", "Parcelle n°",
        "Parcelle",       "Bien-fonds n°",   "Particella n.",    "Particella",   "Mappale",
        "Fondo n.",       "Parzellen"};
    return labels;
}

/// "1373", "S8129", "M12": the number of a parcel, of a flat or of a share in one.
bool isParcelNumber(std::string_view word) {
    if (word.starts_with('S') || word.starts_with('M') || word.starts_with('D')) {
        word.remove_prefix(1);
    }
    return !word.empty() && word[0] >= '0' && word[0] <= '9' && !parseDay(word);
}

/// What a field of a property may be.
enum class Named { place, parcel, words };

/// The value that begins with a word, within its run; empty when it is none.
std::optional<Run> valueFrom(const PageRows& page, const Row& row, std::size_t first, Named named) {
    static const Labels fillers{"Nr", "n", "no", "numero", "numéro"};
    while (first < row.words.size()
           && (row.words[first].folded.empty() || isAnyIn(row.words[first].folded, fillers))) {
        ++first;
    }
    if (first >= row.words.size()) {
        return std::nullopt;
    }
    const std::string& text = row.words[first].text;
    if (named == Named::parcel) {
        return isParcelNumber(text) ? std::optional(Run{&row, first, first}) : std::nullopt;
    }
    if (!startsWithCapital(text)) {
        return std::nullopt;
    }
    const Run run = runFrom(page, row, first);
    std::size_t last = first;
    while (last < run.last) {
        const std::string_view next = row.words[last + 1].text;
        const bool isLabel =
            next.ends_with(':') || next.starts_with('(') || row.words[last + 1].folded.empty();
        if (row.words[last].text.ends_with(',') || isLabel
            || (named == Named::place && (hasDigit(next) || !startsWithCapital(next)))) {
            break;
        }
        ++last;
    }
    // The first word of a label of two: "Ebnat-Kappel Parzellen Nr.: 12"
    return Run{&row, first, last};
}

/// The cell under a label that heads a column.
std::optional<Run> valueBelow(const PageRows& page, std::size_t at, const LabelPlace& label,
                              Named named) {
    const bool isHeading = page.number != 0 && cellsOf(page.rows[at]).size() >= 2
                           && !hasFirmAmount(page.rows[at]) && at + 1 < page.rows.size();
    if (!isHeading) {
        return std::nullopt;
    }
    const auto heads = cellsOf(page.rows[at]);
    const bool isTwoLines = at + 2 < page.rows.size() && heads.size() > 2
                            && std::ranges::any_of(cellsOf(page.rows[at]), [&](const auto& head) {
                                   return page.rows[at].words[head.last].text.ends_with('-');
                               });
    const Row& below = page.rows[at + (isTwoLines ? 2 : 1)];
    const auto cells = cellsOf(below);
    const bool isTable =
        heads.size() > 2 || std::ranges::all_of(heads, [&](const LabelPlace& head) {
            return std::ranges::any_of(cells, [&](const LabelPlace& cell) {
                return cell.left < head.right && head.left < cell.right;
            });
        });
    if (!isTable) {
        return std::nullopt; // a field with its value beside it
    }
    for (const LabelPlace& cell : cells) {
        if (cell.left < label.right && label.left < cell.right) {
            return valueFrom(page, below, cell.first, named);
        }
    }
    return std::nullopt;
}

std::optional<Run> findNamed(const PageRows& page, const Labels& labels, Named named) {
    for (const Label& one : labels) {
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            const Row& row = page.rows[at];
            const auto label = findLabel(row, one, page.isRecognised);
            if (!label) {
                continue;
            }
            const bool isHeading =
                std::ranges::none_of(row.words, hasDigit, &RowWord::text)
                && std::ranges::any_of(cellsOf(row), [&](const LabelPlace& cell) {
                       return cell.first == label->first && cell.last == label->last;
                   });
            auto value = isHeading ? valueBelow(page, at, *label, named) : std::nullopt;
            value = value ? value : valueFrom(page, row, label->last + 1, named);
            if (value) {
                return value;
            }
        }
    }
    return std::nullopt;
}

/// The rows of a page up to one that hold no amounts, as the beginning of what is about one parcel.
PageRows headOf(const PageRows& page, std::size_t end) {
    PageRows head = withoutRows(page);
    std::copy_if(page.rows.begin(), page.rows.begin() + static_cast<std::ptrdiff_t>(end),
                 std::back_inserter(head.rows), [](const Row& row) { return !hasFirmAmount(row); });
    return head;
}

DocumentRows documentOf(const DocumentRows& whole, PageRows page) {
    DocumentRows part{.pages = {}, .folded = {}, .hasPlaces = whole.hasPlaces};
    for (const Row& row : page.rows) {
        part.folded += row.folded + ' ';
    }
    part.pages.push_back(std::move(page));
    return part;
}

/// Whether a word below is the number of a parcel under its heading.
bool standsUnder(const Row& row, const LabelPlace& heading) {
    return std::ranges::any_of(row.words, [&](const RowWord& word) {
        return isParcelNumber(word.text) && word.place.left < heading.right
               && heading.left < word.place.right;
    });
}

/// Each row of a table of parcels, with the table's heading.
void splitTables(const DocumentRows& document, std::vector<DocumentRows>& parts) {
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            const Row& heading = page.rows[at];
            const auto label = findLabel(heading, parcelLabels(), page.isRecognised);
            if (!label || cellsOf(heading).size() < 3 || hasFirmAmount(heading)) {
                continue;
            }
            std::size_t end = at + 1; // headings may go on in further rows
            while (end < page.rows.size() && !hasFirmAmount(page.rows[end])) {
                ++end;
            }
            for (std::size_t below = end; below < page.rows.size(); ++below) {
                if (hasFirmAmount(page.rows[below]) && standsUnder(page.rows[below], *label)) {
                    PageRows own = headOf(page, end);
                    own.rows.push_back(page.rows[below]);
                    parts.push_back(documentOf(document, std::move(own)));
                }
            }
        }
    }
}

/// Parcels beside each other, their numbers in one row, what their values are left of all.
void splitColumns(const DocumentRows& document, std::vector<DocumentRows>& parts) {
    constexpr std::size_t above = 3; // rows of a table before that of the numbers
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            const Row& row = page.rows[at];
            const auto label = findLabel(row, parcelLabels(), page.isRecognised);
            std::vector<LabelPlace> numbers;
            bool hasOther = false; // "Grundstück Nr. 950   Vers.-Nr. 3887"
            for (const LabelPlace& cell : cellsOf(row)) {
                const bool isOne = cell.first == cell.last && cell.first > 0;
                if (label && label->first == 0 && isOne
                    && isParcelNumber(row.words[cell.first].text)) {
                    numbers.push_back(cell);
                } else {
                    hasOther |= numbers.size() == 1;
                }
            }
            if (numbers.size() < 2 || hasOther) {
                continue;
            }
            for (PageRows& part : columnsAsPages(page, at > above ? at - above : 0, numbers)) {
                parts.push_back(documentOf(document, std::move(part)));
            }
            return;
        }
    }
}

/// The rows from the number of each parcel to that of the next.
void splitBlocks(const DocumentRows& document, std::vector<DocumentRows>& parts) {
    for (const PageRows& page : document.pages) {
        std::vector<std::size_t> starts;
        std::set<std::string> numbers;
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            const Row& row = page.rows[at];
            const auto label = findLabel(row, parcelLabels(), page.isRecognised);
            const auto number = label && (label->first == 0 || !hasFirmAmount(row))
                                    ? valueFrom(page, row, label->last + 1, Named::parcel)
                                    : std::nullopt;
            if (number && numbers.insert(number->text()).second) {
                starts.push_back(at);
            }
        }
        for (std::size_t i = 0; i < starts.size(); ++i) {
            const std::size_t end = i + 1 < starts.size() ? starts[i + 1] : page.rows.size();
            PageRows own = headOf(page, starts[0]);
            own.rows.insert(own.rows.end(),
                            page.rows.begin() + static_cast<std::ptrdiff_t>(starts[i]),
                            page.rows.begin() + static_cast<std::ptrdiff_t>(end));
            parts.push_back(documentOf(document, std::move(own)));
        }
    }
}

} // namespace

void nameProperty(const DocumentRows& document, int record, ProposalDraft& draft) {
    struct NameRow {
        const char* field;
        Labels labels;
        Named named;
    };
    static const std::vector<NameRow> rows{
        {"municipality",
         {"Politische Gemeinde", "Grundbuch", "Gemeinde", "Commune", "Comune"},
         Named::place},
        {"parcelNumber", parcelLabels(), Named::parcel},
        {"description",
         {"Objekt", "Lage", "Strasse", "Adresse", "Objet", "Oggetto", "Ubicazione"},
         Named::words},
    };
    for (const NameRow& wanted : rows) {
        for (const PageRows& page : document.pages) {
            const auto value = findNamed(page, wanted.labels, wanted.named);
            if (!value) {
                continue;
            }
            PlacedText text = placedText(page, *value);
            while (text.text.ends_with(',') || text.text.ends_with(';')) {
                text.text.pop_back();
            }
            draft.add(record, wanted.field, std::move(text.text),
                      {.witness = page.number == 0 ? Witness::text : Witness::position,
                       .confidence = Confidence::medium,
                       .reason = "Steht bei der Bezeichnung des Grundstücks.",
                       .page = page.number,
                       .box = text.box});
            break;
        }
    }
}

std::vector<DocumentRows> parcelsOf(const DocumentRows& document) {
    for (const auto split : {splitColumns, splitTables, splitBlocks}) {
        std::vector<DocumentRows> parts;
        split(document, parts);
        if (parts.size() >= 2) {
            return parts;
        }
    }
    return {};
}

void confirmParcels(const KindContext& context, std::size_t from, ProposalDraft& draft) {
    auto& proposals = draft.result().proposals;
    for (const std::string_view field : {"taxValue", "imputedRentalValue"}) {
        const auto isOne = [&](const Proposal& proposal) { return proposal.field == field; };
        Decimal sum;
        std::vector<Decimal> parts;
        for (std::size_t i = from; i < proposals.size(); ++i) {
            if (const auto value = Decimal::parse(proposals[i].value);
                value && isOne(proposals[i])) {
                sum = sum + *value;
                parts.push_back(*value);
            }
        }
        if (parts.size() < 2 || !findSum(context.document, sum)) {
            continue;
        }
        for (std::size_t i = from; i < proposals.size(); ++i) {
            Proposal& proposal = proposals[i];
            if (isOne(proposal)) {
                proposal.checks.push_back({partsText("Grundstücke", parts, sum), true});
                const bool isRaised =
                    context.isKindClear && proposal.confidence == Confidence::medium;
                proposal.confidence = isRaised ? Confidence::high : proposal.confidence;
            }
        }
    }
}

} // namespace fiscarel
