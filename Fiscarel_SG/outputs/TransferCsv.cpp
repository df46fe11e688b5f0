#include "Fiscarel_SG/outputs/TransferCsv.h"

#include "Fiscarel_SG/outputs/FormField.h"

#include <initializer_list>

namespace fiscarel::outputs {

namespace {

std::string quoted(const std::string& cell) {
    if (cell.find_first_of(";\"\r\n") == std::string::npos) {
        return cell;
    }
    std::string text = "\"";
    for (const char c : cell) {
        text += c == '"' ? "\"\"" : std::string(1, c);
    }
    return text + "\"";
}

/// A text from the user: one line, and nothing that a spreadsheet takes for a formula.
std::string harmless(const std::string& text) {
    const std::string line = shownValue(text, ValueKind::text);
    const bool isFormula =
        !line.empty() && std::string_view("=+-@").find(line.front()) != std::string_view::npos;
    return isFormula ? "'" + line : line;
}

std::string valueCell(ValueKind kind, const std::string& value) {
    const std::string cell = pasted(kind, value);
    const bool ours = kind == ValueKind::francs || kind == ValueKind::rappen
                      || kind == ValueKind::number || kind == ValueKind::date;
    return ours ? cell : harmless(cell);
}

std::string line(std::initializer_list<std::string> cells) {
    std::string text;
    for (const std::string& cell : cells) {
        text += (text.empty() ? "" : ";") + quoted(cell);
    }
    return text + "\r\n";
}

} // namespace

std::string_view tickText(Tick tick) noexcept {
    switch (tick) {
    case Tick::open:
        return "offen";
    case Tick::done:
        return "übertragen";
    case Tick::changed:
        break;
    }
    return "geändert";
}

std::string transferCsv(const TransferList& list) {
    std::string text = line({"Formular", "Seite", "Ziffer", "Code", "Person", "Name", "Abschnitt",
                             "Feld", "Wert", "Wert Bund", "Stand", "Bisher", "Hinweis"});
    for (const TransferRow& row : list.rows) {
        // Lines of the return only; the parts of an enclosure have no code on the form.
        const std::string code = row.key == row.code ? row.code : std::string();
        text += line({row.form, std::to_string(row.page), row.ziffer, code,
                      row.person == 0 ? "" : std::to_string(row.person), harmless(row.name),
                      harmless(row.part), harmless(row.label), valueCell(row.kind, row.value),
                      valueCell(row.kind, row.federal), std::string(tickText(row.tick)),
                      harmless(row.oldValue), harmless(row.note)});
    }
    return text;
}

} // namespace fiscarel::outputs
