// qrvmat dump FILE: the library's content text of a material.
#include "common.h"

#include <iostream>

namespace qrvmat {

void addDump(CLI::App& app) {
    auto file = std::make_shared<std::string>();
    auto* command = app.add_subcommand("dump", "The library's content text of a material file");
    command->add_option("FILE", *file, "Material file")->required();
    command->callback([file] {
        MaterialPtr material = loadMaterial(*file);
        const char* content = QrvGetContent(material.get(), QrvIsThermoset(material.get()));
        if (!content) throw Failure(*file, "the content text cannot be formed for this material");
        std::cout << content;
    });
}

}  // namespace qrvmat
