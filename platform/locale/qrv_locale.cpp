#include "locale/qrv_locale.h"

#include <cstdlib>
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

// The values of those variables, an unset one told apart from an empty one.
std::string environmentKey() {
    std::string key;
    for (const char* variable : kLocaleVariables) {
        const char* value = std::getenv(variable);
        key += value ? value : "\x01";
        key += '\0';
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
