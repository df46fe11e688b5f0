#include "cli/TransferText.h"

#include "cli/Printable.h"
#include "cli/TextTable.h"

#include <algorithm>
#include <vector>

namespace fiscarel::cli {

namespace {

using namespace taxcore;
using outputs::Tick;
using outputs::TransferList;
using outputs::TransferRow;

constexpr std::size_t zifferWidth = 6;
constexpr std::size_t codeWidth = 4;
constexpr std::size_t markWidth = 4;
constexpr std::size_t valueWidth = 16;

/// What of the table depends on the region: Liechtenstein has codes and one tax.
struct Layout {
    bool liechtenstein = false;

    std::size_t start() const { return 2 + zifferWidth + (liechtenstein ? codeWidth : 0); }
    std::size_t label() const {
        return lineWidth - start() - markWidth - valueWidth * (liechtenstein ? 1 : 2);
    }
};

std::string mark(Tick tick) {
    switch (tick) {
    case Tick::open:
        return "[ ] ";
    case Tick::done:
        return "[x] ";
    case Tick::changed:
        break;
    }
    return "[!] ";
}

/// Lines of the return alternate between persons: there each names its own.
bool isLine(const TransferRow& row) { return row.key == row.code; }

std::string partTitle(const TransferRow& row) {
    return printable(row.name.empty() || isLine(row) ? row.part : row.part + " – " + row.name);
}

std::string rowLabel(const TransferRow& row) {
    const bool named =
        row.name.empty() || !isLine(row) || row.label.find(row.name) != std::string::npos;
    return printable(named ? row.label : row.label + " – " + row.name);
}

std::string rowText(const TransferRow& row, const Layout& layout) {
    const std::string indent(layout.start() + markWidth, ' ');
    std::string begin = "  " + padRight(row.ziffer, zifferWidth);
    if (layout.liechtenstein) {
        begin += padRight(isLine(row) ? row.code : "", codeWidth);
    }
    std::string lines = wrapped(rowLabel(row), layout.label(), indent);
    if (lines.empty()) {
        lines = indent + "\n";
    }
    lines.replace(0, indent.size(), begin + mark(row.tick));
    lines.pop_back();
    const std::string value = printable(row.value);
    const bool fits = displayWidth(value) < valueWidth;
    const std::size_t last = lines.rfind('\n') + 1;
    std::string text = lines.substr(0, last);
    text += withoutTrailingBlanks(padRight(lines.substr(last), indent.size() + layout.label())
                                  + (fits ? cell(value, valueWidth) : "")
                                  + (layout.liechtenstein ? "" : cell(row.federal, valueWidth)));
    const std::size_t width = lineWidth - indent.size() - 2;
    if (!fits) {
        text += wrapped(value, width, indent + "  ");
    }
    if (row.tick == Tick::changed) {
        text += wrapped("bisher " + printable(row.oldValue), width, indent + "  ");
    }
    if (!row.note.empty()) {
        text += wrapped(printable(row.note), width, indent + "  ");
    }
    return text;
}

std::string rowsText(const TransferList& list, const Layout& layout) {
    std::string text;
    const TransferRow* before = nullptr;
    for (const TransferRow& row : list.rows) {
        const bool fresh =
            before == nullptr || before->form != row.form || before->page != row.page;
        if (fresh) {
            const std::string title = row.form + ", Seite " + std::to_string(row.page);
            text +=
                (before == nullptr ? "" : "\n")
                + withoutTrailingBlanks(padRight(title, layout.start() + markWidth + layout.label())
                                        + (layout.liechtenstein ? cell("CHF", valueWidth)
                                                                : cell("Kanton", valueWidth)
                                                                      + cell("Bund", valueWidth)));
        }
        if (fresh || partTitle(*before) != partTitle(row) || before->item != row.item) {
            text += wrapped(partTitle(row), lineWidth - 2, "  ");
        }
        text += rowText(row, layout);
        before = &row;
    }
    return text + "\n";
}

std::string goneText(const TransferList& list) {
    if (list.gone.empty()) {
        return {};
    }
    std::string text = heading("Bereits übertragen, aber nicht mehr in der Steuererklärung") + "\n";
    for (const outputs::GoneRow& gone : list.gone) {
        std::string values;
        for (const std::string& value : gone.oldValues) {
            values += (values.empty() ? "" : ", ") + value;
        }
        text += wrapped(printable(gone.label + ": " + values), lineWidth - 2, "  ");
    }
    return text + "\n";
}

/// Entries of one reason and name together: a register repeats them.
std::string exceptionsText(const TransferList& list) {
    std::vector<std::string> reasons;
    for (const outputs::NotTransferred& entry : list.notTransferred) {
        if (!entry.isInitial && std::ranges::find(reasons, entry.reason) == reasons.end()) {
            reasons.push_back(entry.reason);
        }
    }
    if (reasons.empty()) {
        return {};
    }
    std::string text = heading("Nicht zu übertragen") + "\n";
    for (const std::string& reason : reasons) {
        text += wrapped(reason, lineWidth - 2, "  ");
        for (const outputs::NotTransferred& entry : list.notTransferred) {
            if (!entry.isInitial && entry.reason == reason) {
                text += wrapped(entry.path + ": " + printable(entry.value), lineWidth - 4, "    ");
            }
        }
    }
    return text + "\n";
}

} // namespace

std::string transferText(const TaxCase& taxCase, const TransferList& list) {
    const Layout layout{taxCase.taxRegion() == TaxRegion::liechtenstein};
    std::string text = heading("Übertragungsliste " + std::to_string(taxCase.year) + " – "
                               + (layout.liechtenstein ? "" : "Kanton ")
                               + std::string(label(taxCase.taxRegion())));
    text += std::to_string(list.doneCount()) + " von " + std::to_string(list.rows.size())
            + " Feldern übertragen\n\n";
    return text + rowsText(list, layout) + goneText(list) + exceptionsText(list);
}

} // namespace fiscarel::cli
