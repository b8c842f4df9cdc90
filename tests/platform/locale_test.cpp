// The system locale name and the guard that switches to it around an open.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <locale>
#include <stdexcept>
#include <string>

#include "formats/locale_guard.h"
#include "locale/qrv_locale.h"

namespace {

// Sets an environment variable for the life of the object.
class EnvVar {
public:
    EnvVar(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old, had_ = true;
        setenv(name, value, 1);
    }
    ~EnvVar() {
        if (had_) {
            setenv(name_.c_str(), old_.c_str(), 1);
        } else {
            unsetenv(name_.c_str());
        }
    }

private:
    std::string name_, old_;
    bool had_ = false;
};

}  // namespace

TEST(SystemLocale, NamesTheEnvironmentsLocale) {
    EnvVar all("LC_ALL", "C");
    CQRVLocale locale;
    EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C");
}

TEST(SystemLocale, UnknownLocaleFallsBackToC) {
    EnvVar all("LC_ALL", "xx_NOWHERE.UTF-99");
    CQRVLocale locale;
    EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C");
}

TEST(SystemLocale, NameIsAcceptedByAStandardLocale) {
    CQRVLocale locale;
    const std::string name = locale.GetSystemDefaultLocale();
    ASSERT_FALSE(name.empty());
    std::string built;
    try {
        built = std::locale(name.c_str()).name();
    } catch (const std::runtime_error&) {
        built = "(refused)";
    }
    EXPECT_EQ(built, name);
}

TEST(LocaleGuard, SwitchesForItsLifeAndRestores) {
    EnvVar all("LC_ALL", "C");
    std::locale::global(std::locale::classic());
    const std::string before = std::locale().name();
    {
        qrv::LocaleGuard guard;
        CQRVLocale system;
        EXPECT_EQ(std::locale().name(), system.GetSystemDefaultLocale());
    }
    EXPECT_EQ(std::locale().name(), before);
}

// A caller's own global locale, whatever it is, comes back after the guard.
TEST(LocaleGuard, RestoresACallersCustomLocale) {
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
    };
    const std::locale custom(std::locale::classic(), new Comma);
    std::locale::global(custom);
    {
        EnvVar all("LC_ALL", "C");
        qrv::LocaleGuard guard;
        EXPECT_EQ(std::use_facet<std::numpunct<char>>(std::locale()).decimal_point(), '.');
    }
    EXPECT_EQ(std::use_facet<std::numpunct<char>>(std::locale()).decimal_point(), ',');
    std::locale::global(std::locale::classic());
}

// The C library's locale of the caller comes back too, though the C++ global locale that is put
// back has no name that would set it.
TEST(LocaleGuard, RestoresTheCallersCLibraryLocale) {
    std::locale::global(std::locale::classic());
    const char* callers = std::setlocale(LC_ALL, "C.UTF-8");
    if (!callers) GTEST_SKIP() << "no C.UTF-8 locale on this system";
    const std::string before = callers;
    {
        EnvVar all("LC_ALL", "C");
        qrv::LocaleGuard guard;
        EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    }
    EXPECT_EQ(std::string(std::setlocale(LC_ALL, nullptr)), before);
    std::setlocale(LC_ALL, "C");
}

namespace {

// Makes the locale of that name the C++ global one, which sets the C library's too; false when
// the system lacks it.
bool makeGlobal(const char* name) {
    try {
        std::locale::global(std::locale(name));
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

// The names of the C++ global locale and of the C library's, during a guard and after it.
struct GuardedNames {
    std::string during, duringC, after, afterC;
};

GuardedNames namesAroundAGuard() {
    GuardedNames names;
    {
        qrv::LocaleGuard guard;
        names.during = std::locale().name();
        names.duringC = std::setlocale(LC_ALL, nullptr);
    }
    names.after = std::locale().name();
    names.afterC = std::setlocale(LC_ALL, nullptr);
    return names;
}

}  // namespace

// A caller whose C++ global locale is already the system's but whose C library locale is not
// still gets the C library switched for the open, and both back afterwards.
TEST(LocaleGuard, SwitchesTheCLibraryEvenWhenTheGlobalLocaleIsAlreadyTheSystems) {
    EnvVar all("LC_ALL", "C.UTF-8");
    if (!makeGlobal("C.UTF-8")) GTEST_SKIP() << "no C.UTF-8 locale on this system";
    std::setlocale(LC_ALL, "C");
    const GuardedNames names = namesAroundAGuard();
    EXPECT_EQ(names.during, "C.UTF-8");
    EXPECT_EQ(names.duringC, "C.UTF-8");
    EXPECT_EQ(names.after, "C.UTF-8");
    EXPECT_EQ(names.afterC, "C");
    std::locale::global(std::locale::classic());
}

// A caller that runs under the system's locale altogether keeps it, during the guard and after.
TEST(LocaleGuard, ACallerUnderTheSystemsLocaleKeepsIt) {
    EnvVar all("LC_ALL", "C.UTF-8");
    if (!makeGlobal("C.UTF-8")) GTEST_SKIP() << "no C.UTF-8 locale on this system";
    const GuardedNames names = namesAroundAGuard();
    EXPECT_EQ(names.during, "C.UTF-8");
    EXPECT_EQ(names.duringC, "C.UTF-8");
    EXPECT_EQ(names.after, "C.UTF-8");
    EXPECT_EQ(names.afterC, "C.UTF-8");
    std::locale::global(std::locale::classic());
}
