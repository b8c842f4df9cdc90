#include "formats/locale_guard.h"

#include <clocale>
#include <stdexcept>
#include <string>

#include "locale/qrv_locale.h"

namespace {

// The locale of a name, built once for the name last asked for: building one reads the system's
// locale data, and every material file open asks for the same.
const std::locale& localeNamed(const char* name) {
    static std::string lastName;
    static std::locale last = std::locale::classic();
    static bool known = false;
    if (!known || lastName != name) {
        last = std::locale(name);
        lastName = name;
        known = true;
    }
    return last;
}

}  // namespace

namespace qrv {

LocaleGuard::LocaleGuard() : saved_(std::locale()) {
    if (const char* c = std::setlocale(LC_ALL, nullptr)) savedC_ = c;
    CQRVLocale system;
    try {
        const std::locale& target = localeNamed(system.GetSystemDefaultLocale());
        // Already there: installing the same locale again would only repeat the C library's
        // lookups, and putting back the same would repeat them once more.
        if (saved_ == target && target.name() == savedC_) return;
        std::locale::global(target);
        switched_ = true;
    } catch (const std::runtime_error&) {
        // The name came from the system itself; should it still be refused, the open goes on
        // under the caller's locale.
    }
}

LocaleGuard::~LocaleGuard() {
    if (!switched_) return;
    std::locale::global(saved_);
    // A named locale put back as global has set the C library's locale to its own name; only a
    // caller whose C library locale differs from that (or whose locale has no name) needs it set
    // on its own.
    if (!savedC_.empty() && saved_.name() != savedC_) std::setlocale(LC_ALL, savedC_.c_str());
}

}  // namespace qrv
