#include "locale/qrv_locale.h"

#include <locale>
#include <stdexcept>

const char* CQRVLocale::GetSystemDefaultLocale() {
    try {
        name_ = std::locale("").name();
    } catch (const std::runtime_error&) {
        name_ = "C";
    }
    return name_.c_str();
}
