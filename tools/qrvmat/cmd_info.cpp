// qrvmat info FILE: the header of a material and every block's model and parameters, with
// units in a chosen system.
#include "common.h"
#include "output.h"
#include "report_text.h"

#include <iostream>
#include <set>

namespace qrvmat {
namespace {

struct InfoOptions {
    std::string file;
    int units = -1;
    Format format = Format::Text;
};

const char* const kUnitSystemNames[] = {"base", "si", "english"};

// The analysis modules whose reports show every block of a material of this kind.
std::vector<std::string> modulesFor(MATIO_Manipulator& material) {
    if (material.IsThermoset() || material.IsRIM()) return {"RIMFilling"};
    if (material.IsThermoplastic()) return {"Filling"};
    return {"Cooling", "Warpage"};
}

struct Block {
    std::string section;
    std::string model;
    nlohmann::json parameters = nlohmann::json::array();
};

// Everything the report shows below its sections of blocks (the header and the warnings are
// told by info itself and by check).
std::vector<Block> blocksOf(MATIO_Manipulator& material, const std::string& file) {
    std::vector<Block> blocks;
    std::set<std::string> seen{"General_Information", "Checking_Polymer_Data_Warning"};
    for (const std::string& module : modulesFor(material)) {
        const auto lines = reportLines(reportText(material, module, file));
        for (const ReportLine& line : lines) {
            if (line.depth == 1 && !line.hasValue && seen.insert(line.label).second) {
                blocks.push_back({line.label, {}, nlohmann::json::array()});
                for (const ReportLine& entry : sectionLines(lines, line.label)) {
                    Block& block = blocks.back();
                    // A section opens with its model line, the model's name as its value.
                    if (block.model.empty() && block.parameters.empty()) {
                        block.model = entry.value;
                        continue;
                    }
                    std::string name = entry.label;
                    const std::string prefix = block.model + " - ";
                    if (!block.model.empty() && name.compare(0, prefix.size(), prefix) == 0) {
                        name.erase(0, prefix.size());
                    }
                    nlohmann::json parameter{{"name", name}};
                    double number = 0.0;
                    std::string unit;
                    if (splitQuantity(entry.value, number, unit)) {
                        parameter["value"] = number;
                        parameter["unit"] = unit;
                    } else {
                        parameter["value"] = entry.value;
                        parameter["unit"] = "";
                    }
                    block.parameters.push_back(std::move(parameter));
                }
            }
        }
    }
    return blocks;
}

void runInfo(const InfoOptions& options) {
    MATIO_Manipulator material;
    loadInto(material, options.file);
    const int units = options.units >= 0 ? options.units : installedUnitSystem();
    QRVSetReleaseVersionUnit(units);
    const std::string name = std::filesystem::path(options.file).filename().string();
    const auto blocks = blocksOf(material, name);

    nlohmann::json info{{"file", options.file},
                        {"type", textOf(material.GetMaterialType())},
                        {"polymer", textOf(material.GetPolymer())},
                        {"producer", textOf(material.GetProducer())},
                        {"grade", textOf(material.GetGradeName())},
                        {"comment", textOf(material.GetComment())},
                        {"source", textOf(material.GetSource())},
                        {"body_version", material.GetFileVer()},
                        {"last_edit_date", material.GetLastEditDate()},
                        {"measure_date", material.GetMeasureDate()},
                        {"units", units >= 0 && units <= 2 ? kUnitSystemNames[units] : "base"}};
    nlohmann::json list = nlohmann::json::array();
    for (const Block& block : blocks) {
        list.push_back(
            {{"section", block.section}, {"model", block.model}, {"parameters", block.parameters}});
    }
    info["blocks"] = list;
    if (options.format == Format::Json) {
        writeJson(std::cout, info);
        return;
    }
    for (const char* key : {"file", "type", "polymer", "producer", "grade", "comment", "source",
                            "body_version", "last_edit_date", "measure_date", "units"}) {
        const auto& value = info[key];
        std::cout << key << ": " << (value.is_string() ? value.get<std::string>() : value.dump())
                  << "\n";
    }
    for (const Block& block : blocks) {
        std::cout << "\n" << block.section << ": " << block.model << "\n";
        Table parameters{{"parameter", "value", "unit"}, {}};
        for (const auto& parameter : block.parameters) {
            Cell value = parameter["value"].is_number()
                             ? Cell(parameter["value"].get<double>())
                             : Cell(parameter["value"].get<std::string>());
            parameters.rows.push_back({parameter["name"].get<std::string>(), value,
                                       parameter["unit"].get<std::string>()});
        }
        if (!parameters.rows.empty()) writeTable(std::cout, parameters, Format::Text);
    }
}

}  // namespace

void addInfo(CLI::App& app) {
    auto options = std::make_shared<InfoOptions>();
    auto* command = app.add_subcommand(
        "info", "Type, names, body version, dates and every block's model and parameters");
    command->add_option("FILE", options->file, "Material file (.mtr, .mtx, or an old .mat)")
        ->required();
    addUnitsOption(*command, options->units);
    addFormatFlags(*command, options->format, false);
    command->callback([options] { runInfo(*options); });
}

}  // namespace qrvmat
