// File name rules of the entry points: the thermoset ending, the mapping of old endings, and the
// existence tests.
#include <gtest/gtest.h>

#include <quorvalib/files.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "files/file_names.h"

namespace {

std::string tempPath(const std::string& name) {
    return ::testing::TempDir() + "qrv_names_" + name;
}

std::string mapped(const char* path) {
    const char* result = nullptr;
    EXPECT_TRUE(QrvMapFileName(path, &result));
    return result ? result : "<null>";
}

}  // namespace

TEST(ThermosetName, EndingDecides) {
    EXPECT_TRUE(QrvIsRIM("part.mtx"));
    EXPECT_TRUE(QrvIsRIM("X.MTX"));
    EXPECT_TRUE(QrvIsRIM("x.MtX"));
    EXPECT_TRUE(QrvIsRIM("a.mtxbak"));
    EXPECT_TRUE(QrvIsRIM("mtxdata"));  // no dot: the first characters decide
    EXPECT_FALSE(QrvIsRIM("m.tx"));
    EXPECT_FALSE(QrvIsRIM("part.mtr"));
    EXPECT_FALSE(QrvIsRIM("part.emc"));
    EXPECT_TRUE(QrvIsRIM("dir.mtx/part"));  // the last dot of the whole path, directories too
    EXPECT_FALSE(QrvIsRIM("dir.mtx/part.mtr"));
    EXPECT_TRUE(QrvIsRIM("dir.v2/part.mtx"));
    EXPECT_FALSE(QrvIsRIM("part.mt"));
    EXPECT_FALSE(QrvIsRIM("part."));
    EXPECT_FALSE(QrvIsRIM(""));
    EXPECT_FALSE(QrvIsRIM(static_cast<const char*>(nullptr)));
}

TEST(MapFileName, OldEndingsMapToCurrentOnes) {
    EXPECT_EQ(mapped("a.mat"), "a.mtr");
    EXPECT_EQ(mapped("A.MAT"), "A.Mtr");
    EXPECT_EQ(mapped("a.emc"), "a.mtx");
    EXPECT_EQ(mapped("a.EmC"), "a.mtx");
    EXPECT_EQ(mapped("format"), "formtr");  // the dot is never looked at
    EXPECT_EQ(mapped("a.mtr"), "a.mtr");
    EXPECT_EQ(mapped("at"), "at");
    EXPECT_EQ(mapped(""), "");
}

TEST(MapFileName, OneSharedBufferHoldsTheLastName) {
    const char* first = nullptr;
    const char* second = nullptr;
    ASSERT_TRUE(QrvMapFileName("first.mat", &first));
    ASSERT_TRUE(QrvMapFileName("2.mtr", &second));
    EXPECT_EQ(first, second);
    EXPECT_STREQ(first, "2.mtr");
}

TEST(MapFileName, NameTooLongForTheBufferFails) {
    const std::string longest(519, 'a');
    EXPECT_EQ(mapped(longest.c_str()), longest);
    const std::string tooLong(520, 'a');
    const char* result = reinterpret_cast<const char*>(1);
    EXPECT_FALSE(QrvMapFileName(tooLong.c_str(), &result));
    EXPECT_EQ(result, nullptr);
    EXPECT_FALSE(QrvMapFileName(nullptr, &result));
}

TEST(FileTests, ExistenceContentAndRemoval) {
    const std::string empty = tempPath("empty.mtr");
    const std::string full = tempPath("full.mtr");
    { std::ofstream(empty, std::ios::binary); }
    { std::ofstream(full, std::ios::binary) << "x"; }
    EXPECT_TRUE(QrvFileExists(empty.c_str(), false));
    EXPECT_FALSE(QrvFileHasContent(empty.c_str()));
    EXPECT_TRUE(QrvFileHasContent(full.c_str()));
    EXPECT_TRUE(QrvFileExists(full.c_str(), true));
    EXPECT_FALSE(QrvFileExists(full.c_str(), false));
    EXPECT_FALSE(QrvFileHasContent(full.c_str()));  // missing: no open to look at
    EXPECT_FALSE(QrvFileExists(nullptr, false));
    EXPECT_FALSE(QrvFileHasContent(nullptr));
    std::remove(empty.c_str());
}
