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
    CQRVLocale system;
    const std::locale* wanted = nullptr;
    try {
        wanted = &localeNamed(system.GetSystemDefaultLocale());
    } catch (const std::runtime_error&) {
        // The name came from the system itself; should it still be refused, the open goes on
        // under the caller's locale.
        return;
    }
    const char* c = std::setlocale(LC_ALL, nullptr);
    // A caller that runs under the default locale already (most programs set it at start) has
    // nothing to switch and nothing to put back: installing a named locale costs a search of
    // the system's locale data, twice per open.
    if (saved_ == *wanted && c && wanted->name() == c) return;
    if (c) savedC_ = c;
    std::locale::global(*wanted);
    switched_ = true;
}

LocaleGuard::~LocaleGuard() {
    if (!switched_) return;
    std::locale::global(saved_);
    if (!savedC_.empty()) std::setlocale(LC_ALL, savedC_.c_str());
}

}  // namespace qrv
