#include "vocabulary/name_text.h"

#include <algorithm>
#include <cstring>

namespace qrv {

namespace {

char gNameText[kNameTextCapacity];

}  // namespace

const char* nameText() {
    return gNameText;
}

const char* setNameText(const char* text, std::size_t length) {
    const std::size_t kept = std::min(length, kNameTextCapacity - 1);
    if (kept) std::memmove(gNameText, text, kept);
    gNameText[kept] = '\0';
    return gNameText;
}

const char* setNameText(const char* text) {
    return setNameText(text, text ? std::strlen(text) : 0);
}

}  // namespace qrv
