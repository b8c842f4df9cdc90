// Digit splitting of the packed words of the legacy block.
#include <cstdio>

#include "record/material_internal.h"

namespace {

// The word printed "%05d" into a zeroed buffer; bytes past the printed digits stay 0.
struct PrintedWord {
    char text[16] = {};
    explicit PrintedWord(int value) { std::snprintf(text, sizeof text, "%05d", value); }

    // Characters [first, first + length) as a decimal number, each character minus '0'.
    int digits(int first, int length) const {
        int value = 0;
        for (int i = first; i < first + length; ++i)
            value = value * 10 + (text[i] - '0');
        return value;
    }
};

}  // namespace

int QrvSplitFileVer(int packed) {
    return PrintedWord(packed).digits(1, 4);
}

int QrvSplitFileType(int packed) {
    return PrintedWord(packed).digits(0, 1);
}

void QrvSplitBlockCode(unsigned code, int* source, int* model, int* count) {
    const PrintedWord word(static_cast<int>(code));
    if (source) *source = word.digits(0, 4);
    if (model) *model = word.digits(4, 2);
    if (count) *count = word.digits(6, 2);
}
