#include "tests/support/Csv.h"

#include <fstream>
#include <stdexcept>

namespace taxcore::testing {

namespace {

std::vector<std::string> cellsOf(const std::string& line, const std::string& place) {
    std::vector<std::string> cells(1);
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"' && quoted && i + 1 < line.size() && line[i + 1] == '"') {
            cells.back() += line[++i];
        } else if (line[i] == '"') {
            quoted = !quoted;
        } else if (line[i] == ',' && !quoted) {
            cells.emplace_back();
        } else {
            cells.back() += line[i];
        }
    }
    if (quoted) {
        throw std::runtime_error(place + ": a quote is not closed");
    }
    return cells;
}

} // namespace

const std::string& CsvRow::text(const std::string& column) const {
    const auto cell = cells_.find(column);
    if (cell == cells_.end()) {
        throw std::runtime_error(place_ + ": no column " + column);
    }
    return cell->second;
}

Decimal CsvRow::amount(const std::string& column) const {
    const auto amount = Decimal::parse(text(column));
    if (!amount) {
        throw std::runtime_error(place_ + ": " + column + " is not an amount");
    }
    return *amount;
}

int CsvRow::integer(const std::string& column) const {
    const auto integer = amount(column).toInteger();
    if (!integer) {
        throw std::runtime_error(place_ + ": " + column + " is not an integer");
    }
    return static_cast<int>(*integer);
}

std::vector<CsvRow> readCsv(const std::string& name) {
    std::ifstream file(std::string(FISCAREL_TEST_DIR "/data/") + name);
    std::vector<CsvRow> rows;
    std::vector<std::string> header;
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        const std::string place = name + ":" + std::to_string(++number);
        const std::vector<std::string> cells = cellsOf(line, place);
        if (header.empty()) {
            header = cells;
            continue;
        }
        if (cells.size() != header.size()) {
            throw std::runtime_error(place + ": not as many cells as columns");
        }
        CsvRow& row = rows.emplace_back();
        row.place_ = place;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            row.cells_.emplace(header[i], cells[i]);
        }
    }
    return rows;
}

} // namespace taxcore::testing
