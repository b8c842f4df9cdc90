// The material report of the library, run for qrvmat and read back as sections of lines. The
// report is where the library shows every block's parameters in a chosen unit system; info and
// check take their lines from it rather than knowing the parameters' units themselves.
#ifndef QRVMAT_REPORT_TEXT_H
#define QRVMAT_REPORT_TEXT_H

#include <quorvalib/quorvalib.h>

#include <filesystem>
#include <string>
#include <vector>

namespace qrvmat {

// One printed line: "label" or "label : value", indented two blanks per depth.
struct ReportLine {
    int depth = 0;
    std::string label;
    std::string value;
    bool hasValue = false;
};

// The report text of the held material for module, naming file as its material file.
// Throws Failure when the manipulator holds no material.
std::string reportText(MATIO_Manipulator& manipulator, const std::string& module,
                       const std::string& file);

std::vector<ReportLine> reportLines(const std::string& text);

// The lines below the section labelled section (depth 1), in order; empty when it is missing.
std::vector<ReportLine> sectionLines(const std::vector<ReportLine>& lines,
                                     const std::string& section);

// A value shown as "%g unit": the number and the unit label, blanks trimmed. False when the value
// does not start with a number.
bool splitQuantity(const std::string& value, double& number, std::string& unit);

// Loads path into manipulator; throws Failure naming the file when that fails.
void loadInto(MATIO_Manipulator& manipulator, const std::string& path);

// A folder of its own below the temporary folder, removed with everything in it at the end.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

// Makes folder an install folder whose statistics file is a copy of statistics, and sets it as
// the install folder of the process. Throws Failure naming statistics when it cannot be read.
void useStatistics(const TempFolder& folder, const std::string& statistics);

}  // namespace qrvmat

#endif
