// What every subcommand of qrvmat shares: the failure it reports, the held material record, the
// unit system option and the registration of one subcommand.
#ifndef QRVMAT_COMMON_H
#define QRVMAT_COMMON_H

#include <quorvalib/quorvalib.h>

#include "output.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <stdexcept>
#include <string>

namespace qrvmat {

// A failed operation: the tool prints "qrvmat: <subject>: <what>" on stderr and exits with 1.
// subject names the file concerned, or is empty when no file is.
class Failure : public std::runtime_error {
public:
    Failure(std::string subject, const std::string& what)
        : std::runtime_error(what), subject_(std::move(subject)) {}
    const std::string& subject() const { return subject_; }

private:
    std::string subject_;
};

struct ReleaseMaterial {
    void operator()(QrvMaterial* material) const { QrvReleaseMaterial(material); }
};
using MaterialPtr = std::unique_ptr<QrvMaterial, ReleaseMaterial>;

// The material of a file, read as the library reads it (a thermoset by its ".mtx" ending).
// Throws Failure naming the file when it does not exist or is no readable material file.
MaterialPtr loadMaterial(const std::string& path);

// Saves material to path (thermosets by their own call). Throws Failure naming the file.
void saveMaterial(const std::string& path, QrvMaterial* material);

// Throws Failure naming path when it names no existing regular file.
void requireFile(const std::string& path);

// The unit systems of the library by name: base 0, SI 1, English 2.
// Adds --units to command; the value is left as it is when the option is not given.
void addUnitsOption(CLI::App& command, int& unitSystem);

// The unit system that the installation sets (QUORVANE_UNIT_SYSTEM), else base.
int installedUnitSystem();

// A text field of a record as a string; empty for a null text.
std::string textOf(const char* value);

// The listing of the materials of a bank or a run: index, type, polymer, producer and grade.
Table entryTable();
void addEntry(Table& table, int index, QrvMaterial* material);

// Every subcommand file offers one of these; main calls them in the order of the help text.
void addInfo(CLI::App& app);
void addDump(CLI::App& app);
void addCheck(CLI::App& app);
void addReport(CLI::App& app);
void addEval(CLI::App& app);
void addPlot(CLI::App& app);
void addDefault(CLI::App& app);
void addConvert(CLI::App& app);
void addBank(CLI::App& app);
void addMetals(CLI::App& app);
void addRun(CLI::App& app);

}  // namespace qrvmat

#endif
