// Output of qrvmat in one place: tables as aligned text, CSV or JSON, and JSON documents.
#ifndef QRVMAT_OUTPUT_H
#define QRVMAT_OUTPUT_H

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <ostream>
#include <string>
#include <variant>
#include <vector>

namespace qrvmat {

enum class Format { Text, Csv, Json };

// Adds the mutually exclusive flags --csv and --json (or --json alone) that set format.
void addFormatFlags(CLI::App& command, Format& format, bool csv = true);

// One table cell: a number, a whole number (an index) or a text.
using Cell = std::variant<double, int, std::string>;

// Rows of cells under named columns. Text form: columns right-aligned to their widest cell,
// numbers with 6 significant digits. CSV: a header row, numbers with 17 significant digits (they
// read back to the same double), texts quoted where they hold a comma or a quote. JSON: an array
// of objects keyed by column name.
struct Table {
    std::vector<std::string> columns;
    std::vector<std::vector<Cell>> rows;
};

void writeTable(std::ostream& out, const Table& table, Format format);

// A JSON document, indented by 2, with a final newline.
void writeJson(std::ostream& out, const nlohmann::json& document);

// A number as the text form shows it (6 significant digits).
std::string shortNumber(double value);

}  // namespace qrvmat

#endif
