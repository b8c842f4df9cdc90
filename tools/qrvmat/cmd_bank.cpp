// qrvmat bank list|add|extract|export BANK ...: material banks.
#include "common.h"
#include "output.h"

#include <unistd.h>

#include <iostream>

namespace qrvmat {
namespace {

// An empty record as extraction wants it, with the fields that extraction may leave as they came
// in set to 0.
MaterialPtr emptyRecord() {
    MaterialPtr material(new QrvMaterial());
    material->FileType = 0;
    material->FileVer = 0;
    material->LastEditDate = 0;
    material->MeasureDate = 0;
    return material;
}

// The entry at index, or null past the last entry. Throws Failure for an unreadable bank.
MaterialPtr entryAt(const std::string& bank, int index) {
    MATIO_BankManipulator banks;
    MaterialPtr material = emptyRecord();
    switch (banks.ExtractPlasticMaterialFromBank(bank.c_str(), index, *material)) {
        case 1:
        case -3:
            return material;
        case -2:
            return nullptr;
        default:
            throw Failure(bank, "cannot be read, or entry " + std::to_string(index) +
                                    " is of an unknown class");
    }
}

void list(const std::string& bank, Format format) {
    requireFile(bank);
    Table table = entryTable();
    for (int index = 0;; ++index) {
        MaterialPtr material = entryAt(bank, index);
        if (!material) break;
        addEntry(table, index, material.get());
    }
    writeTable(std::cout, table, format);
}

void add(const std::string& bank, const std::vector<std::string>& files) {
    MATIO_BankManipulator banks;
    const bool terminal = isatty(STDERR_FILENO) == 1;
    std::vector<std::string> failed;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (terminal) {
            std::cerr << "\radding " << i + 1 << "/" << files.size() << ": " << files[i] << "\033[K"
                      << std::flush;
        }
        std::vector<char> name(files[i].begin(), files[i].end());
        name.push_back('\0');
        char* names[] = {name.data()};
        const int result = banks.AddMaterialsToBank(bank.c_str(), names, 1);
        if (result == -1) {
            if (terminal) std::cerr << "\n";
            throw Failure(bank, "cannot be opened for update (a folder, or a damaged bank)");
        }
        if (result != 0) failed.push_back(files[i]);
    }
    if (terminal)
        std::cerr << "\radded " << files.size() - failed.size() << " of " << files.size()
                  << "\033[K\n";
    for (const std::string& file : failed) {
        std::cerr << "qrvmat: " << file << ": not a readable material file; not added\n";
    }
    if (!failed.empty()) {
        throw Failure(bank, std::to_string(failed.size()) + " of " + std::to_string(files.size()) +
                                " files were not added");
    }
}

int checkedIndex(const std::string& bank, int index, int result) {
    if (result == -2) throw Failure(bank, "has no entry " + std::to_string(index));
    if (result == -1) throw Failure(bank, "cannot be read, or the entry is of an unknown class");
    return result;
}

struct BankOptions {
    std::string bank;
    std::vector<std::string> files;
    int index = 0;
    std::string output;
    Format format = Format::Text;
};

}  // namespace

void addBank(CLI::App& app) {
    auto options = std::make_shared<BankOptions>();
    auto* command = app.add_subcommand("bank", "Material banks (.qbk)");
    command->require_subcommand(1);

    auto* listing =
        command->add_subcommand("list", "Index, type, polymer, producer and grade of every entry");
    listing->add_option("BANK", options->bank, "Bank file")->required();
    addFormatFlags(*listing, options->format);
    listing->callback([options] { list(options->bank, options->format); });

    auto* adding = command->add_subcommand(
        "add", "Append material files to a bank (made when missing), in order");
    adding->add_option("BANK", options->bank, "Bank file")->required();
    adding->add_option("FILE", options->files, "Material files")->required();
    adding->callback([options] { add(options->bank, options->files); });

    auto* extracting = command->add_subcommand(
        "extract", "Take one entry into a record: print its content text, or save it");
    extracting->add_option("BANK", options->bank, "Bank file")->required();
    extracting->add_option("INDEX", options->index, "Entry, from 0")->required();
    extracting->add_option("--out", options->output, "Save the record to this material file");
    extracting->callback([options] {
        requireFile(options->bank);
        MATIO_BankManipulator banks;
        MaterialPtr material = emptyRecord();
        checkedIndex(
            options->bank, options->index,
            banks.ExtractPlasticMaterialFromBank(options->bank.c_str(), options->index, *material));
        if (!options->output.empty()) {
            saveMaterial(options->output, material.get());
            return;
        }
        const char* content = QrvGetContent(material.get(), QrvIsThermoset(material.get()));
        if (!content) throw Failure(options->bank, "the entry's content text cannot be formed");
        std::cout << content;
    });

    auto* exporting = command->add_subcommand(
        "export", "Write one entry as a material file of its own, as the bank keeps it");
    exporting->add_option("BANK", options->bank, "Bank file")->required();
    exporting->add_option("INDEX", options->index, "Entry, from 0")->required();
    exporting->add_option("OUT", options->output, "Material file to write")->required();
    exporting->callback([options] {
        requireFile(options->bank);
        MATIO_BankManipulator banks;
        const int result =
            checkedIndex(options->bank, options->index,
                         banks.ExportPlasticMaterialFromBank(options->bank.c_str(), options->index,
                                                             options->output.c_str()));
        if (result == -4) throw Failure(options->output, "cannot be written");
    });
}

}  // namespace qrvmat
