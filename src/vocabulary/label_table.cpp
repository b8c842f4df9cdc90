#include "vocabulary/label_table.h"

#include "vocabulary/name_text.h"

namespace qrv {

const char* keepNameText() {
    return nameText();
}

}  // namespace qrv
