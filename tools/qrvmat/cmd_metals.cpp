// qrvmat metals SYSROOT USERROOT: the metals on offer, from the system bank and the user's bank.
#include "common.h"
#include "output.h"

#include <iostream>

namespace qrvmat {
namespace {

struct MetalsOptions {
    std::string systemRoot, userRoot;
    bool rim = false;
    Format format = Format::Text;
};

void runMetals(const MetalsOptions& options) {
    MATIO_QrvNonPolyMat metals;
    if (!metals.GetMetalMatBank(options.systemRoot.c_str(), options.userRoot.c_str(),
                                options.rim)) {
        throw Failure(options.systemRoot,
                      "neither Bank/System/Metal.qbk below it nor the user bank below " +
                          options.userRoot + " could be opened");
    }
    Table table{{"index", "name", "density", "cp", "k", "em", "pr", "clte"}, {}};
    for (int i = 0; i < metals.GetMatBankCount(); ++i) {
        MATIO_QrvNonPolyMat::CQrvNonPlastic metal{};
        metals.GetMat(i, metal);
        table.rows.push_back({i, std::string(metal.Name ? metal.Name : ""), metal.Density, metal.Cp,
                              metal.K, metal.EM, metal.PR, metal.CLTE});
    }
    if (options.format == Format::Text) {
        std::cout << "# base units: density g/cc, cp erg/(g.oC), k erg/(sec.cm.oC), em "
                     "dyne/cm^2, clte 1/K\n";
    }
    writeTable(std::cout, table, options.format);
}

}  // namespace

void addMetals(CLI::App& app) {
    auto options = std::make_shared<MetalsOptions>();
    auto* command = app.add_subcommand(
        "metals", "The metals of the system bank and the user's bank, with their values");
    command->add_option("SYSROOT", options->systemRoot, "Folder holding Bank/System/Metal.qbk")
        ->required();
    command
        ->add_option("USERROOT", options->userRoot,
                     "Folder holding Quorvane R13.0/Material/UserBank/user.qbk")
        ->required();
    command->add_flag("--rim", options->rim, "Read the thermoset user bank user-rim.qbk");
    addFormatFlags(*command, options->format);
    command->callback([options] { runMetals(*options); });
}

}  // namespace qrvmat
