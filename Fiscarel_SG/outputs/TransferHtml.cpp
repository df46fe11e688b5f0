#include "Fiscarel_SG/outputs/TransferHtml.h"

#include <algorithm>

namespace fiscarel::outputs {

namespace {

std::string escaped(std::string_view text) {
    std::string html;
    for (const char c : text) {
        switch (c) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '"':
            html += "&quot;";
            break;
        default:
            html += c;
        }
    }
    return html;
}

std::string cell(std::string_view text, const char* attributes = "") {
    return "<td" + std::string(attributes) + ">" + escaped(text) + "</td>";
}

std::string labelOf(const TransferRow& row) {
    std::string label = row.label;
    if (!row.name.empty() && label.find(row.name) == std::string::npos) {
        label += " – " + row.name;
    }
    return label;
}

std::string rowHtml(const TransferRow& row, bool hasFederal) {
    const char* const right = " align=\"right\"";
    std::string html = "<tr>" + cell(row.tick == Tick::done ? "☑" : "☐") + cell(row.ziffer)
                       + cell(labelOf(row)) + cell(row.value, right);
    return html + (hasFederal ? cell(row.federal, right) : "") + "</tr>";
}

} // namespace

std::string transferHtml(const TransferList& list, std::string_view title) {
    const bool hasFederal =
        std::ranges::any_of(list.rows, [](const TransferRow& row) { return !row.federal.empty(); });
    const std::string all = hasFederal ? "5" : "4";
    std::string html = "<html><body><h2>" + escaped(title) + "</h2>";
    const TransferRow* before = nullptr;
    for (const TransferRow& row : list.rows) {
        if (before == nullptr || before->form != row.form || before->page != row.page) {
            html += before == nullptr ? "" : "</table>";
            html += "<h3>" + escaped(row.form + ", Seite " + std::to_string(row.page)) + "</h3>"
                    + "<table width=\"100%\" cellpadding=\"2\"><tr><th></th><th align=\"left\">"
                      "Ziffer</th><th align=\"left\">Feld</th><th align=\"right\">"
                    + (hasFederal ? "Kanton</th><th align=\"right\">Bund" : "Wert") + "</th></tr>";
            before = nullptr;
        }
        if (before == nullptr || before->part != row.part || before->item != row.item) {
            html += "<tr><td colspan=\"" + all + "\"><b>" + escaped(row.part) + "</b></td></tr>";
        }
        html += rowHtml(row, hasFederal);
        before = &row;
    }
    return html + (before == nullptr ? "" : "</table>") + "</body></html>";
}

} // namespace fiscarel::outputs
