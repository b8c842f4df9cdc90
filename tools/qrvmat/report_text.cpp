#include "report_text.h"

#include "common.h"

#include <cstdlib>
#include <random>
#include <sstream>
#include <system_error>

namespace qrvmat {
namespace {

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::string reportText(MATIO_Manipulator& manipulator, const std::string& module,
                       const std::string& file) {
    QRVFrmOut_StringStream stream;
    if (!manipulator.GetLogString(module.c_str(), file.c_str(), stream)) {
        throw Failure(file, "no material is held for the report");
    }
    return stream.str();
}

std::vector<ReportLine> reportLines(const std::string& text) {
    std::vector<ReportLine> lines;
    std::istringstream in(text);
    std::string raw;
    while (std::getline(in, raw)) {
        ReportLine line;
        const auto indent = raw.find_first_not_of(' ');
        if (indent == std::string::npos) continue;
        line.depth = static_cast<int>(indent / 2);
        const auto mark = raw.find(" : ", indent);
        line.hasValue = mark != std::string::npos;
        line.label = raw.substr(indent, line.hasValue ? mark - indent : std::string::npos);
        if (line.hasValue) line.value = raw.substr(mark + 3);
        lines.push_back(std::move(line));
    }
    return lines;
}

std::vector<ReportLine> sectionLines(const std::vector<ReportLine>& lines,
                                     const std::string& section) {
    std::vector<ReportLine> found;
    bool inside = false;
    for (const ReportLine& line : lines) {
        if (line.depth <= 1)
            inside = line.depth == 1 && line.label == section && !line.hasValue;
        else if (inside)
            found.push_back(line);
    }
    return found;
}

bool splitQuantity(const std::string& value, double& number, std::string& unit) {
    const char* start = value.c_str();
    char* end = nullptr;
    number = std::strtod(start, &end);
    if (end == start || (*end != '\0' && *end != ' ')) return false;
    unit = trimmed(end);
    return true;
}

void loadInto(MATIO_Manipulator& manipulator, const std::string& path) {
    requireFile(path);
    if (!manipulator.GetMaterial(path.c_str())) {
        throw Failure(path,
                      "not a readable material file (too short, damaged, or of an unknown "
                      "object class)");
    }
}

TempFolder::TempFolder() {
    std::random_device random;
    const auto base = std::filesystem::temp_directory_path();
    for (int attempt = 0; attempt < 100; ++attempt) {
        path_ = base / ("qrvmat-" + std::to_string(random()));
        std::error_code error;
        if (std::filesystem::create_directory(path_, error)) return;
    }
    throw Failure(base.string(), "cannot make a temporary folder");
}

TempFolder::~TempFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

void useStatistics(const TempFolder& folder, const std::string& statistics) {
    requireFile(statistics);
    const auto system = folder.path() / "Bank" / "System";
    std::error_code error;
    std::filesystem::create_directories(system, error);
    if (error || !std::filesystem::copy_file(statistics, system / "StatData.sta", error)) {
        throw Failure(statistics, "cannot be read: " + error.message());
    }
    QRVSetInstallFolderPath(folder.path().string().c_str());
}

}  // namespace qrvmat
