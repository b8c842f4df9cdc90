// qrvmat run list|add|get RUNFILE ...: the materials that simulation runs keep in their run file.
#include "common.h"
#include "output.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace qrvmat {
namespace {

// A run item id packs the run (id / 65536) and the item: 4096 the plastic, 8192 + n the part
// insert n.
constexpr int kRunStep = 65536, kPlastic = 4096, kInsert = 8192;

struct RunOptions {
    std::string runFile;
    std::vector<std::string> files;
    std::string label;
    int run = 1;
    int insert = -1;
    int index = 0;
    std::string output;
    Format format = Format::Text;
};

// A run file is an HDF5 file; anything else would only give an empty store.
void requireRunFile(const std::string& path) {
    requireFile(path);
    char signature[8] = {};
    std::ifstream(path, std::ios::binary).read(signature, sizeof signature);
    if (std::memcmp(signature, "\x89HDF\r\n\x1a\n", sizeof signature) != 0) {
        throw Failure(path, "not a run file (no HDF5 signature)");
    }
}

// Reads the materials of run 1 one after the other. The manipulator keeps the record of its last
// read and hands the one before over to the caller, which releases it here.
class RunReader {
public:
    explicit RunReader(const std::string& path) : store_(path.c_str()) {}
    int count() { return store_.GetMaterialCount(); }
    QrvMaterial* at(int index) {
        QrvMaterial* material = store_.GetMaterial(index);
        if (material) {
            previous_.reset(last_);
            last_ = material;
        }
        return material;
    }

private:
    MATIO_RSVManipulator store_;
    QrvMaterial* last_ = nullptr;  // owned by store_
    MaterialPtr previous_;
};

void list(const RunOptions& options) {
    requireRunFile(options.runFile);
    RunReader reader(options.runFile);
    Table table = entryTable();
    const int count = reader.count();
    for (int i = 0; i < count; ++i) {
        QrvMaterial* material = reader.at(i);
        if (!material)
            throw Failure(options.runFile, "material " + std::to_string(i) + " cannot be read");
        addEntry(table, i, material);
    }
    writeTable(std::cout, table, options.format);
}

void add(const RunOptions& options) {
    std::vector<MaterialPtr> materials;
    for (const std::string& file : options.files)
        materials.push_back(loadMaterial(file));
    MATIO_RSVManipulator store(options.runFile.c_str());
    const int item = options.insert >= 0 ? kInsert + options.insert : kPlastic;
    for (std::size_t i = 0; i < materials.size(); ++i) {
        const std::string label = options.label.empty()
                                      ? std::filesystem::path(options.files[i]).filename().string()
                                      : options.label;
        if (!store.AddMaterial(materials[i].get(), label.c_str(), options.run * kRunStep + item)) {
            throw Failure(options.runFile,
                          "cannot be created or written (not a run file, or "
                          "held open by another process)");
        }
    }
}

void get(const RunOptions& options) {
    requireRunFile(options.runFile);
    RunReader reader(options.runFile);
    QrvMaterial* material = reader.at(options.index);
    if (!material) {
        throw Failure(options.runFile, "has no material " + std::to_string(options.index) +
                                           " in run 1 (it holds " + std::to_string(reader.count()) +
                                           ")");
    }
    if (!options.output.empty()) {
        saveMaterial(options.output, material);
        return;
    }
    const char* content = QrvGetContent(material, QrvIsThermoset(material));
    if (!content) throw Failure(options.runFile, "the material's content text cannot be formed");
    std::cout << content;
}

}  // namespace

void addRun(CLI::App& app) {
    auto options = std::make_shared<RunOptions>();
    auto* command = app.add_subcommand("run", "Materials kept in simulation run files");
    command->require_subcommand(1);

    auto* listing = command->add_subcommand(
        "list", "Index, type, polymer, producer and grade of every material of run 1");
    listing->add_option("RUNFILE", options->runFile, "Run file")->required();
    addFormatFlags(*listing, options->format);
    listing->callback([options] { list(*options); });

    auto* adding = command->add_subcommand(
        "add", "Add material files to a run (the run file is made when missing)");
    adding->add_option("RUNFILE", options->runFile, "Run file")->required();
    adding->add_option("FILE", options->files, "Material files")->required();
    adding->add_option("--run", options->run, "Run number, from 1 (default 1)")
        ->check(CLI::Range(1, 32767));
    adding
        ->add_option("--insert", options->insert,
                     "Add as the material of this part insert (default: the plastic)")
        ->check(CLI::Range(0, 4095));
    adding->add_option("--label", options->label,
                       "Label of the description (default: the file's name)");
    adding->callback([options] { add(*options); });

    auto* getting =
        command->add_subcommand("get", "One material of run 1: print its content text, or save it");
    getting->add_option("RUNFILE", options->runFile, "Run file")->required();
    getting->add_option("INDEX", options->index, "Material, from 0")->required();
    getting->add_option("--out", options->output, "Save the material to this file");
    getting->callback([options] { get(*options); });
}

}  // namespace qrvmat
