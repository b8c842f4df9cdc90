#include "vocabulary/name_text.h"

#include <algorithm>
#include <cstring>

#include "vocabulary/thread_slot.h"

namespace qrv {

namespace {

struct NameText {
    char text[kNameTextCapacity] = {};
    void clear() { text[0] = '\0'; }
};

char* ownText() {
    return threadSlot<NameText>().text;
}

}  // namespace

const char* nameText() {
    return ownText();
}

const char* setNameText(const char* text, std::size_t length) {
    char* own = ownText();
    const std::size_t kept = std::min(length, kNameTextCapacity - 1);
    if (kept) std::memmove(own, text, kept);
    own[kept] = '\0';
    return own;
}

const char* setNameText(const char* text) {
    return setNameText(text, text ? std::strlen(text) : 0);
}

}  // namespace qrv
