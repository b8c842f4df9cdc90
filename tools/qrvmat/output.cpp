#include "output.h"

#include <algorithm>
#include <cstdio>

namespace qrvmat {
namespace {

std::string formatNumber(double value, int digits) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*g", digits, value);
    return text;
}

std::string cellText(const Cell& cell, int digits) {
    if (const double* number = std::get_if<double>(&cell)) return formatNumber(*number, digits);
    if (const int* whole = std::get_if<int>(&cell)) return std::to_string(*whole);
    return std::get<std::string>(cell);
}

std::string csvField(const std::string& text) {
    if (text.find_first_of(",\"\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    return quoted + "\"";
}

void writeText(std::ostream& out, const Table& table) {
    std::vector<std::size_t> widths;
    for (const std::string& column : table.columns)
        widths.push_back(column.size());
    std::vector<std::vector<std::string>> texts;
    for (const auto& row : table.rows) {
        std::vector<std::string> line;
        for (std::size_t i = 0; i < row.size() && i < widths.size(); ++i) {
            line.push_back(cellText(row[i], 6));
            widths[i] = std::max(widths[i], line.back().size());
        }
        texts.push_back(std::move(line));
    }
    auto writeLine = [&](const std::vector<std::string>& line) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (i > 0) out << "  ";
            out << std::string(widths[i] - line[i].size(), ' ') << line[i];
        }
        out << "\n";
    };
    writeLine(table.columns);
    for (const auto& line : texts)
        writeLine(line);
}

void writeCsv(std::ostream& out, const Table& table) {
    auto writeLine = [&](const std::vector<std::string>& line) {
        for (std::size_t i = 0; i < line.size(); ++i)
            out << (i > 0 ? "," : "") << csvField(line[i]);
        out << "\n";
    };
    writeLine(table.columns);
    for (const auto& row : table.rows) {
        std::vector<std::string> line;
        for (const Cell& cell : row)
            line.push_back(cellText(cell, 17));
        writeLine(line);
    }
}

nlohmann::json tableJson(const Table& table) {
    nlohmann::json rows = nlohmann::json::array();
    for (const auto& row : table.rows) {
        nlohmann::json object = nlohmann::json::object();
        for (std::size_t i = 0; i < row.size() && i < table.columns.size(); ++i) {
            std::visit([&](const auto& value) { object[table.columns[i]] = value; }, row[i]);
        }
        rows.push_back(std::move(object));
    }
    return rows;
}

}  // namespace

void addFormatFlags(CLI::App& command, Format& format, bool csv) {
    auto* json = command.add_flag_callback(
        "--json", [&format] { format = Format::Json; }, "Write JSON");
    if (csv) {
        command
            .add_flag_callback(
                "--csv", [&format] { format = Format::Csv; }, "Write CSV")
            ->excludes(json);
    }
}

void writeTable(std::ostream& out, const Table& table, Format format) {
    switch (format) {
        case Format::Text:
            writeText(out, table);
            break;
        case Format::Csv:
            writeCsv(out, table);
            break;
        case Format::Json:
            writeJson(out, tableJson(table));
            break;
    }
}

void writeJson(std::ostream& out, const nlohmann::json& document) {
    // Texts of old files are in the local narrow encoding: bytes that are not UTF-8 are replaced
    // rather than ending the output with an exception.
    out << document.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
}

std::string shortNumber(double value) {
    return formatNumber(value, 6);
}

}  // namespace qrvmat
