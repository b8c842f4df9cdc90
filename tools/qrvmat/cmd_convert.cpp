// qrvmat convert IN OUT: any material file the library reads, the old fixed block included,
// written in the current form.
#include "common.h"

namespace qrvmat {

void addConvert(CLI::App& app) {
    auto files = std::make_shared<std::pair<std::string, std::string>>();
    auto* command = app.add_subcommand(
        "convert",
        "Write any readable material file (the old fixed block too) in the current "
        "form");
    command->add_option("IN", files->first, "Material file to read")->required();
    command->add_option("OUT", files->second, "Material file to write (.mtr, or .mtx)")->required();
    command->callback([files] {
        MaterialPtr material = loadMaterial(files->first);
        saveMaterial(files->second, material.get());
    });
}

}  // namespace qrvmat
