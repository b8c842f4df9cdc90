#include "locale/qrv_locale.h"

#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <locale>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

// The variables from which the C library takes the default locale of each category.
constexpr const char* kLocaleVariables[] = {
    "LC_ALL",       "LC_CTYPE",       "LC_NUMERIC",        "LC_TIME", "LC_COLLATE",
    "LC_MONETARY",  "LC_MESSAGES",    "LC_PAPER",          "LC_NAME", "LC_ADDRESS",
    "LC_TELEPHONE", "LC_MEASUREMENT", "LC_IDENTIFICATION", "LANG"};

bool isLocaleVariable(const char* entry, const char* equals) {
    const std::size_t length = static_cast<std::size_t>(equals - entry);
    for (const char* variable : kLocaleVariables)
        if (std::strlen(variable) == length && std::strncmp(entry, variable, length) == 0)
            return true;
    return false;
}

// Those variables as they stand in the environment, names and values, in one pass over it (every
// material file open asks, and a getenv per variable would pass over the environment 14 times).
// The same variables in another order give another key, and so only a needless new lookup.
std::string environmentKey() {
    std::string key;
    for (char** entry = environ; entry && *entry; ++entry) {
        const char* text = *entry;
        if (text[0] != 'L') continue;
        const char* equals = std::strchr(text, '=');
        if (equals && isLocaleVariable(text, equals)) {
            key += text;
            key += '\0';
        }
    }
    return key;
}

}  // namespace

const char* CQRVLocale::GetSystemDefaultLocale() {
    // Finding the name builds a whole locale, and every material file open asks for it: the answer
    // for the environment last seen is kept until the environment changes.
    static std::string lastKey;
    static std::string lastName;
    static bool known = false;
    std::string key = environmentKey();
    if (!known || key != lastKey) {
        try {
            lastName = std::locale("").name();
        } catch (const std::runtime_error&) {
            lastName = "C";
        }
        lastKey = std::move(key);
        known = true;
    }
    name_ = lastName;
    return name_.c_str();
}
