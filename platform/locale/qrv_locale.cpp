#include "locale/qrv_locale.h"

#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <locale>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

// The variables from which the C library takes the default locale of each category.
constexpr std::array<std::string_view, 14> kLocaleVariables = {
    "LC_ALL",       "LC_CTYPE",       "LC_NUMERIC",        "LC_TIME", "LC_COLLATE",
    "LC_MONETARY",  "LC_MESSAGES",    "LC_PAPER",          "LC_NAME", "LC_ADDRESS",
    "LC_TELEPHONE", "LC_MEASUREMENT", "LC_IDENTIFICATION", "LANG"};

using Values = std::array<const char*, kLocaleVariables.size()>;

// The values of those variables as getenv would give them (the first entry of a name counts;
// null for an unset one), found in one pass over the environment instead of one pass per name:
// every material file open asks.
Values environmentValues() {
    Values values{};
    for (char** entry = environ; entry && *entry; ++entry) {
        const char* text = *entry;
        if (text[0] != 'L') continue;
        const std::string_view name(text, std::strcspn(text, "="));
        if (text[name.size()] != '=') continue;
        for (std::size_t i = 0; i < kLocaleVariables.size(); ++i) {
            if (name != kLocaleVariables[i]) continue;
            if (!values[i]) values[i] = text + name.size() + 1;
            break;
        }
    }
    return values;
}

// The values last seen, an unset variable told apart from an empty one.
struct SeenValue {
    bool set = false;
    std::string value;

    bool Same(const char* now) const { return now ? set && value == now : !set; }
    void Take(const char* now) {
        set = now != nullptr;
        value = now ? now : "";
    }
};

}  // namespace

const char* CQRVLocale::GetSystemDefaultLocale() {
    // Finding the name builds a whole locale, and every material file open asks for it: the answer
    // for the environment last seen is kept until the environment changes.
    static std::array<SeenValue, kLocaleVariables.size()> seen;
    static std::string lastName;
    static bool known = false;
    const Values values = environmentValues();
    bool same = known;
    for (std::size_t i = 0; same && i < values.size(); ++i)
        same = seen[i].Same(values[i]);
    if (!same) {
        try {
            lastName = std::locale("").name();
        } catch (const std::runtime_error&) {
            lastName = "C";
        }
        for (std::size_t i = 0; i < values.size(); ++i)
            seen[i].Take(values[i]);
        known = true;
    }
    name_ = lastName;
    return name_.c_str();
}
