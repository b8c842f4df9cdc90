// Material files are opened under the system's default locale, through which the stream library
// turns narrow file names into system names; the caller's global locale is put back right after
// the open, also when the open throws. Installing a named global locale also sets the C library's
// locale, so that is remembered and put back as well.
//
// A switch costs a lookup of the system's locale data in the C library for every category. When
// the caller already runs under the system's default locale (the C++ global locale and the C
// library's both), the guard has nothing to switch and nothing to put back, and it leaves both
// untouched.
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
    bool switched_ = false;  // something was installed that the destructor must undo
};

}  // namespace qrv

#endif
