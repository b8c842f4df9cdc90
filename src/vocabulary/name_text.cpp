#include "vocabulary/name_text.h"

namespace qrv {

std::string& QrvNameText() {
    static std::string text;
    return text;
}

const char* setNameText(const char* text) {
    std::string& shared = QrvNameText();
    shared = text ? text : "";
    return shared.c_str();
}

}  // namespace qrv
