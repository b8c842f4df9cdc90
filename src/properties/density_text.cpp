#include "properties/density_text.h"

#include <cstdlib>
#include <cstring>
#include <string>

namespace qrv {

DensityText scanDensityText(const char* text) {
    if (!text) return {DensityText::kNoMark, 0.0};
    const char* mark = std::strstr(text, "D=");
    if (!mark) return {DensityText::kNoMark, 0.0};
    const char* unit = std::strstr(text, "g/cc");
    if (!unit) unit = std::strstr(text, "g/cm3");
    if (!unit || unit <= mark) return {DensityText::kNoUnit, 0.0};
    // unit is behind the mark and differs from its second character, so the span is not negative.
    const double value = std::atof(std::string(mark + 2, unit).c_str());
    if (value > 0.0) return {DensityText::kFound, value};
    return {DensityText::kNotPositive, value};
}

}  // namespace qrv
