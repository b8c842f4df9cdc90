// Material files are opened under the system's default locale, through which the stream library
// turns narrow file names into system names; the caller's global locale is put back right after
// the open, also when the open throws. Installing a named global locale also sets the C library's
// locale, so that is remembered and put back as well. When both are the default locale already,
// nothing is switched.
#ifndef QRV_FORMATS_LOCALE_GUARD_H
#define QRV_FORMATS_LOCALE_GUARD_H

#include <locale>
#include <string>

namespace qrv {

class LocaleGuard {
public:
    LocaleGuard();
    ~LocaleGuard();
    LocaleGuard(const LocaleGuard&) = delete;
    LocaleGuard& operator=(const LocaleGuard&) = delete;

private:
    std::locale saved_;
    std::string savedC_;     // the C library's locale, all categories, as setlocale names it
    bool switched_ = false;  // false when the default locale was in force already
};

}  // namespace qrv

#endif
