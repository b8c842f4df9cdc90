// qrvmat report FILE --module NAME: the material report for one analysis module.
#include "common.h"
#include "report_text.h"

#include <iostream>

namespace qrvmat {
namespace {

struct ReportOptions {
    std::string file;
    std::string module;
    std::string install;
    int units = -1;
};

}  // namespace

void addReport(CLI::App& app) {
    auto options = std::make_shared<ReportOptions>();
    auto* command = app.add_subcommand("report", "The material report for an analysis module");
    command->add_option("FILE", options->file, "Material file")->required();
    command
        ->add_option("--module", options->module,
                     "Analysis module: Filling, Packing, Cooling, Warpage, RIMFilling, "
                     "RIMCuring, Filling3D, Cooling3D, Warpage3D, RIM3D, Packing3D")
        ->required()
        ->check([](const std::string& name) {
            return QRVFrmOut_TranslateModuleName(name.c_str()) == 0
                       ? "unknown analysis module '" + name + "'"
                       : std::string();
        });
    command->add_option("--install", options->install,
                        "Install folder holding Bank/System/StatData.sta (default: "
                        "QUORVANE_INSTALL_DIR)");
    addUnitsOption(*command, options->units);
    command->callback([options] {
        MATIO_Manipulator material;
        loadInto(material, options->file);
        if (!options->install.empty()) QRVSetInstallFolderPath(options->install.c_str());
        QRVSetReleaseVersionUnit(options->units >= 0 ? options->units : installedUnitSystem());
        std::cout << reportText(material, options->module,
                                std::filesystem::path(options->file).filename().string());
    });
}

}  // namespace qrvmat
