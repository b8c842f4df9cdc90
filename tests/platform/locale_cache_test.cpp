// The default locale's name is kept between calls only while the environment stays the same, and
// the guard's locale follows the name.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <locale>
#include <memory>
#include <string>
#include <vector>

#include "formats/locale_guard.h"
#include "locale/qrv_locale.h"

namespace {

// Sets (or, with null, removes) an environment variable for the life of the object.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) {
            old_ = old;
            had_ = true;
        }
        if (value)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
    ~Variable() {
        if (had_)
            setenv(name_.c_str(), old_.c_str(), 1);
        else
            unsetenv(name_.c_str());
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    std::string name_, old_;
    bool had_ = false;
};

bool systemHas(const char* name) {
    try {
        std::locale probe(name);
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

std::string guardedName() {
    qrv::LocaleGuard guard;
    return std::locale().name();
}

}  // namespace

TEST(SystemLocaleCache, FollowsEveryChangeOfTheEnvironment) {
    if (!systemHas("C.UTF-8")) GTEST_SKIP() << "no C.UTF-8 locale on this system";
    std::locale::global(std::locale::classic());
    Variable all("LC_ALL", "C");
    CQRVLocale locale;
    EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C");
    EXPECT_EQ(guardedName(), "C");
    setenv("LC_ALL", "C.UTF-8", 1);
    EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C.UTF-8");
    EXPECT_EQ(guardedName(), "C.UTF-8");
    {
        // The same name by another variable.
        Variable none("LC_ALL", nullptr);
        Variable lang("LANG", "C");
        Variable type("LC_CTYPE", nullptr);
        EXPECT_STREQ(CQRVLocale().GetSystemDefaultLocale(), "C");
        EXPECT_EQ(guardedName(), "C");
    }
    EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C.UTF-8");
    setenv("LC_ALL", "xx_NOWHERE.UTF-99", 1);
    EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C");
    EXPECT_EQ(std::locale().name(), "C");
}

// A variable removed again is a change too: the name goes back to the one of the environment
// without it.
TEST(SystemLocaleCache, AVariableRemovedAgainIsAChange) {
    if (!systemHas("C.UTF-8")) GTEST_SKIP() << "no C.UTF-8 locale on this system";
    std::locale::global(std::locale::classic());
    const char* variables[] = {
        "LC_ALL",       "LC_CTYPE",       "LC_NUMERIC",        "LC_TIME", "LC_COLLATE",
        "LC_MONETARY",  "LC_MESSAGES",    "LC_PAPER",          "LC_NAME", "LC_ADDRESS",
        "LC_TELEPHONE", "LC_MEASUREMENT", "LC_IDENTIFICATION", "LANG"};
    std::vector<std::unique_ptr<Variable>> unset;
    for (const char* name : variables)
        unset.push_back(std::make_unique<Variable>(name, nullptr));
    CQRVLocale locale;
    EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C");
    {
        Variable lang("LANG", "C.UTF-8");
        EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C.UTF-8");
    }
    EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C");
    {
        Variable all("LC_ALL", "C.UTF-8");
        EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C.UTF-8");
    }
    EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C");
}

// Only a variable of exactly the name counts: LANGUAGE, which stands before LANG in the
// environment here, is not LANG, so a change of LANG is seen.
TEST(SystemLocaleCache, AVariableWhoseNameOnlyBeginsAlikeIsNotTaken) {
    if (!systemHas("C.UTF-8")) GTEST_SKIP() << "no C.UTF-8 locale on this system";
    std::locale::global(std::locale::classic());
    const char* categories[] = {"LC_ALL",           "LC_CTYPE",    "LC_NUMERIC",   "LC_TIME",
                                "LC_COLLATE",       "LC_MONETARY", "LC_MESSAGES",  "LC_PAPER",
                                "LC_NAME",          "LC_ADDRESS",  "LC_TELEPHONE", "LC_MEASUREMENT",
                                "LC_IDENTIFICATION"};
    std::vector<std::unique_ptr<Variable>> unset;
    for (const char* name : categories)
        unset.push_back(std::make_unique<Variable>(name, nullptr));
    Variable noLang("LANG", nullptr);
    Variable language("LANGUAGE", "C.UTF-8");  // ahead of LANG from here on
    Variable lang("LANG", "C");
    Variable allx("LC_ALLX", "C.UTF-8");
    CQRVLocale locale;
    EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C");
    setenv("LANG", "C.UTF-8", 1);
    EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C.UTF-8");
    EXPECT_EQ(guardedName(), "C.UTF-8");
    setenv("LANG", "C", 1);
    EXPECT_STREQ(locale.GetSystemDefaultLocale(), "C");
}
// A caller that runs under the default locale keeps its own locale object through an open: the
// guard has nothing to switch. One under another locale gets the default for the open and its
// own back after it, in the C library too.
TEST(LocaleGuard, SwitchesOnlyWhenTheCallerIsUnderAnotherLocale) {
    if (!systemHas("C.UTF-8")) GTEST_SKIP() << "no C.UTF-8 locale on this system";
    Variable all("LC_ALL", "C.UTF-8");
    const std::locale callers("C.UTF-8");
    const std::locale before = std::locale::global(callers);
    const auto* callersFacet = &std::use_facet<std::ctype<wchar_t>>(callers);
    {
        qrv::LocaleGuard guard;
        EXPECT_EQ(&std::use_facet<std::ctype<wchar_t>>(std::locale()), callersFacet);
    }
    EXPECT_EQ(&std::use_facet<std::ctype<wchar_t>>(std::locale()), callersFacet);

    std::locale::global(std::locale::classic());
    {
        qrv::LocaleGuard guard;
        EXPECT_EQ(std::locale().name(), "C.UTF-8");
        EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C.UTF-8");
    }
    EXPECT_EQ(std::locale().name(), "C");
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    std::locale::global(before);
}
