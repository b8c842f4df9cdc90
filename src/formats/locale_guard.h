// Material files are opened under the system's default locale, through which the stream library
// turns narrow file names into system names; the caller's global locale is put back right after
// the open, also when the open throws.
#ifndef QRV_FORMATS_LOCALE_GUARD_H
#define QRV_FORMATS_LOCALE_GUARD_H

#include <locale>

namespace qrv {

class LocaleGuard {
public:
    LocaleGuard();
    ~LocaleGuard();
    LocaleGuard(const LocaleGuard&) = delete;
    LocaleGuard& operator=(const LocaleGuard&) = delete;

private:
    std::locale saved_;
};

}  // namespace qrv

#endif
