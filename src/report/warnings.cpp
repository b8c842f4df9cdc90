// Splitting the check's numbered sentences into report lines.
#include "report/warnings.h"

#include <string>

namespace qrv::report {
namespace {

constexpr std::size_t kShortText = 10;
// The number, its full stop and the blank behind it.
constexpr std::size_t kNumberWidth = 3;

std::string numberMark(int k) {
    return std::to_string(k) + ".";
}

}  // namespace

std::vector<WarningLine> splitWarnings(const std::string& warnings) {
    std::size_t start = warnings.find(numberMark(1));
    if (warnings.size() < kShortText || start == std::string::npos) return {{"Warning", warnings}};
    std::vector<WarningLine> lines;
    for (int k = 1;; ++k) {
        const std::size_t next = warnings.find(numberMark(k + 1));
        const std::size_t from = start + kNumberWidth;
        std::string text;
        if (from < warnings.size() && (next == std::string::npos || next > from))
            text =
                warnings.substr(from, next == std::string::npos ? std::string::npos : next - from);
        lines.push_back({"Warning #" + std::to_string(k), text});
        start = next;
        if (start == std::string::npos || start == 0) break;
    }
    return lines;
}

}  // namespace qrv::report
