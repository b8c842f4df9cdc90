#include "formats/locale_guard.h"

#include <stdexcept>

#include "locale/qrv_locale.h"

namespace qrv {

LocaleGuard::LocaleGuard() : saved_(std::locale()) {
    CQRVLocale system;
    try {
        std::locale::global(std::locale(system.GetSystemDefaultLocale()));
    } catch (const std::runtime_error&) {
        // The name came from the system itself; should it still be refused, the open goes on
        // under the caller's locale.
    }
}

LocaleGuard::~LocaleGuard() {
    std::locale::global(saved_);
}

}  // namespace qrv
