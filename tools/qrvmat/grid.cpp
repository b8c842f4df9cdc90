#include "grid.h"

#include <cmath>
#include <cstdlib>
#include <sstream>

namespace qrvmat {
namespace {

constexpr int kMaxPoints = 100000;

bool parseNumber(const std::string& text, double& value) {
    const char* start = text.c_str();
    char* end = nullptr;
    value = std::strtod(start, &end);
    return end != start && *end == '\0' && std::isfinite(value);
}

std::vector<std::string> split(const std::string& text, char mark) {
    std::vector<std::string> parts;
    std::istringstream in(text);
    std::string part;
    while (std::getline(in, part, mark))
        parts.push_back(part);
    if (!text.empty() && text.back() == mark) parts.emplace_back();
    return parts;
}

}  // namespace

std::vector<double> spaced(double start, double stop, int count, bool logarithmic) {
    std::vector<double> points;
    const double from = logarithmic ? std::log10(start) : start;
    const double to = logarithmic ? std::log10(stop) : stop;
    for (int i = 0; i < count; ++i) {
        const double x = count == 1 ? from : from + (to - from) * i / (count - 1);
        points.push_back(logarithmic ? std::pow(10.0, x) : x);
    }
    // The ends are given exactly, whatever the rounding of the steps.
    if (count > 1) {
        points.front() = start;
        points.back() = stop;
    }
    return points;
}

std::vector<double> parseGrid(const std::string& text, std::string& why) {
    std::vector<double> points;
    if (text.find(':') == std::string::npos) {
        for (const std::string& part : split(text, ',')) {
            double value = 0.0;
            if (!parseNumber(part, value)) {
                why = "'" + part + "' is not a number";
                return {};
            }
            points.push_back(value);
        }
        if (points.empty()) why = "no value given";
        return points;
    }
    const auto parts = split(text, ':');
    double start = 0.0, stop = 0.0, count = 0.0;
    if ((parts.size() != 3 && parts.size() != 4) || !parseNumber(parts[0], start) ||
        !parseNumber(parts[1], stop) || !parseNumber(parts[2], count)) {
        why = "'" + text + "' is not start:stop:count[:log]";
        return {};
    }
    const bool logarithmic = parts.size() == 4 && parts[3] == "log";
    if (parts.size() == 4 && !logarithmic && parts[3] != "lin") {
        why = "the scale of '" + text + "' must be log or lin";
        return {};
    }
    if (count < 1 || count > kMaxPoints || count != std::floor(count)) {
        why = "the count of '" + text + "' must be a whole number from 1 to 100000";
        return {};
    }
    if (logarithmic && (start <= 0.0 || stop <= 0.0)) {
        why = "a log grid needs ends above 0";
        return {};
    }
    return spaced(start, stop, static_cast<int>(count), logarithmic);
}

std::string gridError(const std::string& text) {
    std::string why;
    parseGrid(text, why);
    return why;
}

}  // namespace qrvmat
