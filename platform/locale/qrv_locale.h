// QRVLocale: the name of the system's default locale, for the short switch of the global locale
// around a file open.
#ifndef QRV_PLATFORM_LOCALE_H
#define QRV_PLATFORM_LOCALE_H

#include <string>

class CQRVLocale {
public:
    // The name of the locale that the environment selects (LC_ALL, LC_*, LANG), in a form that a
    // standard locale object accepts for all categories; "C" when the environment names a locale
    // that this system does not have. Never throws. The text is owned by this object.
    const char* GetSystemDefaultLocale();

private:
    std::string name_;
};

#endif
