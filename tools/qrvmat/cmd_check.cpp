// qrvmat check FILE --stats STATFILE: the plausibility warnings of a thermoplastic judged
// against a polymer statistics file, or "None".
#include "common.h"
#include "output.h"
#include "report_text.h"

#include <iostream>

namespace qrvmat {
namespace {

struct CheckOptions {
    std::string file;
    std::string statistics;
    Format format = Format::Text;
};

void runCheck(const CheckOptions& options) {
    MATIO_Manipulator material;
    loadInto(material, options.file);
    if (!material.IsThermoplastic()) {
        throw Failure(options.file, "the data check judges thermoplastics only; this is a " +
                                        std::string(material.GetMaterialType()));
    }
    TempFolder install;
    if (!options.statistics.empty()) useStatistics(install, options.statistics);
    char folder[1024];
    if (!QRVGetInstallFolderPath(nullptr, folder, sizeof folder)) {
        throw Failure(options.file,
                      "no statistics to judge it by: give --stats, or set "
                      "QUORVANE_INSTALL_DIR");
    }
    // The report's warning section holds one line "Warning : None" when every check passed,
    // else the numbered warnings.
    const auto lines = reportLines(reportText(material, "Filling", options.file));
    nlohmann::json warnings = nlohmann::json::array();
    for (const ReportLine& line : sectionLines(lines, "Checking_Polymer_Data_Warning")) {
        if (line.label != "Warning") warnings.push_back(line.value);
    }
    if (options.format == Format::Json) {
        writeJson(std::cout, {{"file", options.file}, {"warnings", warnings}});
        return;
    }
    if (warnings.empty()) std::cout << "None\n";
    for (std::size_t i = 0; i < warnings.size(); ++i) {
        std::cout << "Warning #" << i + 1 << ": " << warnings[i].get<std::string>() << "\n";
    }
}

}  // namespace

void addCheck(CLI::App& app) {
    auto options = std::make_shared<CheckOptions>();
    auto* command = app.add_subcommand(
        "check", "Judge a thermoplastic against polymer statistics: its warnings, or None");
    command->add_option("FILE", options->file, "Material file")->required();
    command->add_option("--stats", options->statistics,
                        "Statistics file (default: Bank/System/StatData.sta below "
                        "QUORVANE_INSTALL_DIR)");
    addFormatFlags(*command, options->format, false);
    command->callback([options] { runCheck(*options); });
}

}  // namespace qrvmat
