// The metal lists: the system bank unfiltered, then the user's bank (plain or thermoset work)
// filtered to "Metal"; the density read from the comment; accessors and one metal file.
#include <gtest/gtest.h>

#include <quorvalib/bank.h>
#include <quorvalib/files.h>

#include <climits>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "bank/bank_support.h"
#include "support/fixture.h"

namespace {

// A system root and a user root, each with its bank folders made.
struct Roots {
    qrvtest::TempFolder folder;
    std::string system = folder.path("install");
    std::string user = folder.path("home");
    Roots() {
        std::filesystem::create_directories(system + "/Bank/System");
        std::filesystem::create_directories(user + "/Quorvane R13.0/Material/UserBank");
    }
    std::string systemBank() const { return system + "/Bank/System/Metal.qbk"; }
    std::string userBank(bool rim) const {
        return user + "/Quorvane R13.0/Material/UserBank/" + (rim ? "user-rim.qbk" : "user.qbk");
    }
};

void add(const std::string& bank, qrvtest::MaterialPtr record) {
    ASSERT_EQ(qrvtest::addOne(bank, *record), 0);
}

qrvtest::MaterialPtr metal(const std::string& grade, const std::string& comment) {
    return qrvtest::metalRecord(grade, comment);
}

std::vector<std::string> names(MATIO_QrvNonPolyMat& list) {
    std::vector<std::string> all;
    for (int i = 0; i < list.GetMatBankCount(); ++i)
        all.push_back(list.GetMatName(i));
    return all;
}

void expectSubscriptError(const std::function<void()>& call) {
    try {
        call();
        ADD_FAILURE() << "no exception";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "invalid vector<T> subscript");
    }
}

}  // namespace

TEST(MetalBank, SystemMetalsComeFirstThenTheUsersMetals) {
    Roots roots;
    add(roots.systemBank(), metal("Steel", "D=7.85 g/cc"));
    // The system bank is taken whole, a chip too.
    add(roots.systemBank(), qrvtest::metalRecord("Die", "D=2.33 g/cc", QRV_TYPE_IC_CHIP, "Chip"));
    add(roots.userBank(false), metal("Copper", "D=8.96g/cm3"));
    add(roots.userBank(false), qrvtest::metalRecord("Die", "", QRV_TYPE_IC_CHIP, "Chip"));
    add(roots.userBank(false), metal("Steel", "D=7.85 g/cc"));
    add(roots.userBank(true), metal("Brass", "D=8.5 g/cc"));

    MATIO_QrvNonPolyMat list;
    ASSERT_TRUE(list.GetMetalMatBank(roots.system.c_str(), roots.user.c_str(), false));
    EXPECT_EQ(names(list), (std::vector<std::string>{"Steel", "Die", "Copper", "Steel"}));
    EXPECT_EQ(list.GetDensity(0), 7.85);
    EXPECT_EQ(list.GetDensity(1), 2.33);
    EXPECT_EQ(list.GetDensity(2), 8.96);
    // Cp, K, then Mech values 2, 0 and 5 of metalRecord().
    EXPECT_EQ(list.GetCp(2), 5e6);
    EXPECT_EQ(list.GetK(2), 1.63e6);
    EXPECT_EQ(list.GetEM(2), 1.93e12);
    EXPECT_EQ(list.GetPR(2), 0.27);
    EXPECT_EQ(list.GetCLTE(2), 1.6e-5);

    ASSERT_TRUE(list.GetMetalMatBank(roots.system.c_str(), roots.user.c_str(), true));
    EXPECT_EQ(names(list), (std::vector<std::string>{"Steel", "Die", "Brass"}));
}

TEST(MetalBank, EitherBankIsEnough) {
    Roots roots;
    MATIO_QrvNonPolyMat list;
    EXPECT_FALSE(list.GetMetalMatBank(roots.system.c_str(), roots.user.c_str(), false));
    EXPECT_EQ(list.GetMatBankCount(), 0);
    add(roots.userBank(false), metal("Copper", "D=8.96 g/cc"));
    EXPECT_TRUE(list.GetMetalMatBank(roots.system.c_str(), roots.user.c_str(), false));
    EXPECT_EQ(names(list), std::vector<std::string>{"Copper"});
    EXPECT_FALSE(list.GetMetalMatBank(roots.system.c_str(), roots.user.c_str(), true));
    EXPECT_EQ(list.GetMatBankCount(), 0);
    // An empty bank opens, and so counts as loaded.
    qrvtest::writeFile(roots.systemBank(), qrvtest::Bytes().word(9051).str());
    EXPECT_TRUE(list.GetMetalMatBank(roots.system.c_str(), roots.user.c_str(), true));
    EXPECT_EQ(list.GetMatBankCount(), 0);
    EXPECT_TRUE(list.GetMetalMatBank(roots.system.c_str(), nullptr, true));
    EXPECT_FALSE(list.GetMetalMatBank(nullptr, nullptr, false));
}

TEST(MetalBank, DensityFromTheComment) {
    Roots roots;
    const std::pair<const char*, double> comments[] = {
        {"D=7.85 g/cc", 7.85},
        {"D=7.85", 0.0},                 // no unit
        {"g/cc D=7.85", 0.0},            // the unit ahead of the mark
        {"in g/cc: D=7.85 g/cm3", 0.0},  // "g/cc" is found first, ahead of the mark
        {"Alloy D= 2.7 g/cm3 cast", 2.7},
        {"Foam D=-0.5 g/cc", -0.5},  // a number not above 0 is taken as it stands
        {"no density", 0.0},
    };
    for (const auto& [comment, density] : comments)
        add(roots.systemBank(), metal(comment, comment));
    MATIO_QrvNonPolyMat list;
    ASSERT_TRUE(list.GetMetalMatBank(roots.system.c_str(), roots.user.c_str(), false));
    ASSERT_EQ(list.GetMatBankCount(), static_cast<int>(std::size(comments)));
    for (int i = 0; i < list.GetMatBankCount(); ++i)
        EXPECT_EQ(list.GetDensity(i), comments[i].second) << comments[i].first;
}

TEST(MetalBank, AccessorsAndGetMat) {
    Roots roots;
    add(roots.systemBank(), metal("Steel", "D=7.85 g/cc"));
    MATIO_QrvNonPolyMat list;
    ASSERT_TRUE(list.GetMetalMatBank(roots.system.c_str(), roots.user.c_str(), false));
    MATIO_QrvNonPolyMat::CQrvNonPlastic entry{};
    ASSERT_TRUE(list.GetMat(0, entry));
    EXPECT_STREQ(entry.Name, "Steel");
    EXPECT_EQ(entry.Name, list.GetMatName(0));  // points into the list
    EXPECT_EQ(entry.Density, 7.85);
    EXPECT_EQ(entry.EM, 1.93e12);
    EXPECT_FALSE(list.GetMat(1, entry));
    EXPECT_FALSE(list.GetMat(1000000, entry));
    for (int index : {-1, 1, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(index);
        expectSubscriptError([&] { list.GetMatName(index); });
        expectSubscriptError([&] { list.GetCp(index); });
        expectSubscriptError([&] { list.GetK(index); });
        expectSubscriptError([&] { list.GetEM(index); });
        expectSubscriptError([&] { list.GetPR(index); });
        expectSubscriptError([&] { list.GetCLTE(index); });
        expectSubscriptError([&] { list.GetDensity(index); });
    }
    // A negative index passes GetMat's own test and fails as the accessors do.
    expectSubscriptError([&] { list.GetMat(-1, entry); });
}

TEST(MetalBank, RootsThatMakeTooLongAPathAreNotOpened) {
    Roots roots;
    add(roots.systemBank(), metal("Steel", "D=7.85 g/cc"));
    // "/Bank/System/Metal.qbk" is 22 characters: a root of 227 reaches 249, one of 228 reaches
    // 250, which the 250-character path buffer cannot hold with its terminating NUL.
    std::string fits = roots.system;
    while (fits.size() < 227)
        fits.insert(fits.size() - std::string("install").size(), "/");
    ASSERT_EQ(fits.size(), 227u);
    MATIO_QrvNonPolyMat list;
    EXPECT_TRUE(list.GetMetalMatBank(fits.c_str(), nullptr, false));
    EXPECT_EQ(list.GetMatBankCount(), 1);
    const std::string tooLong = "/" + fits;
    EXPECT_FALSE(list.GetMetalMatBank(tooLong.c_str(), nullptr, false));
    EXPECT_EQ(list.GetMatBankCount(), 0);
}

TEST(MetalBank, MetalFile) {
    const nlohmann::json record = qrvtest::readJson("sample_metal.json").at("load").at("record");
    MATIO_QrvNonPolyMat list;
    MATIO_QrvNonPolyMat::CQrvNonPlastic metal{};
    const std::string path = qrvtest::dataPath("sample_metal.mtr");
    ASSERT_TRUE(list.GetMetalFile(path.c_str(), metal));
    EXPECT_STREQ(metal.Name, record.at("GradeName").get<std::string>().c_str());
    const auto mech = record.at("Blocks").at("Mech").at("Para").get<std::vector<double>>();
    EXPECT_EQ(metal.Cp, record.at("Blocks").at("Cp").at("Para").at(0).get<double>());
    EXPECT_EQ(metal.K, record.at("Blocks").at("K").at("Para").at(0).get<double>());
    EXPECT_EQ(metal.EM, mech.at(2));
    EXPECT_EQ(metal.PR, mech.at(0));
    EXPECT_EQ(metal.CLTE, mech.at(5));
    EXPECT_EQ(metal.Density, 7.99);  // "Austenitic D=7.99 g/cc"
    EXPECT_EQ(list.GetMatBankCount(), 0);
    // The name stays valid after further calls.
    const char* name = metal.Name;
    MATIO_QrvNonPolyMat::CQrvNonPlastic other{};
    EXPECT_FALSE(list.GetMetalFile(qrvtest::dataPath("sample_coolant.mtr").c_str(), other));
    EXPECT_FALSE(list.GetMetalFile(qrvtest::dataPath("missing.mtr").c_str(), other));
    EXPECT_FALSE(list.GetMetalFile(nullptr, other));
    EXPECT_STREQ(name, "Stainless 316L");
}

TEST(MetalBank, MetalFileEmptiesTheList) {
    Roots roots;
    add(roots.systemBank(), metal("Steel", "D=7.85 g/cc"));
    MATIO_QrvNonPolyMat list;
    ASSERT_TRUE(list.GetMetalMatBank(roots.system.c_str(), nullptr, false));
    ASSERT_EQ(list.GetMatBankCount(), 1);
    MATIO_QrvNonPolyMat::CQrvNonPlastic metal{};
    EXPECT_FALSE(list.GetMetalFile(qrvtest::dataPath("sample_chip.mtr").c_str(), metal));
    EXPECT_EQ(list.GetMatBankCount(), 0);
}

TEST(MetalBank, CopiesShareOneList) {
    Roots roots;
    add(roots.systemBank(), metal("Steel", "D=7.85 g/cc"));
    MATIO_QrvNonPolyMat first;
    {
        MATIO_QrvNonPolyMat second;
        second = first;
        ASSERT_TRUE(second.GetMetalMatBank(roots.system.c_str(), nullptr, false));
        EXPECT_EQ(first.GetMatBankCount(), 1);
        MATIO_QrvNonPolyMat third(second);
        EXPECT_STREQ(third.GetMatName(0), "Steel");
    }
    EXPECT_STREQ(first.GetMatName(0), "Steel");  // still there after the copies are gone
    MATIO_QrvNonPolyMat& alias = first;  // self-assignment, spelt so that no compiler objects
    first = alias;
    EXPECT_EQ(first.GetMatBankCount(), 1);
}

TEST(MetalBank, SampleBankAsSystemBank) {
    Roots roots;
    std::filesystem::copy_file(qrvtest::dataPath("sample_bank.qbk"), roots.systemBank());
    std::filesystem::copy_file(qrvtest::dataPath("sample_bank.qbk"), roots.userBank(false));
    MATIO_QrvNonPolyMat list;
    ASSERT_TRUE(list.GetMetalMatBank(roots.system.c_str(), roots.user.c_str(), false));
    // All three entries of the system bank, and the one metal of the user bank.
    EXPECT_EQ(names(list), (std::vector<std::string>{"GB 2003D", "KC-6600", "Stainless 316L",
                                                     "Stainless 316L"}));
    EXPECT_EQ(list.GetDensity(2), 7.99);
    EXPECT_EQ(list.GetDensity(0), 0.0);
}

TEST(MetalBank, MetalFileTakesEachNumberFromItsOwnPlace) {
    // Mech of a metal: PR at 0, EM at 2 and CLTE at 5; every place holds a different number.
    qrvtest::TempFolder folder;
    const std::string path = folder.path("anisotropic.mtr");
    qrvtest::MaterialPtr record = metal("Rolled", "D=2.7 g/cc");
    qrvtest::setBlock(record->Mech, 0, {0.33, 0.34, 7.0e11, 7.1e11, 2.6e11, 2.3e-5, 2.4e-5});
    ASSERT_EQ(QrvSaveMaterial(path.c_str(), record.get()), 1);
    MATIO_QrvNonPolyMat list;
    MATIO_QrvNonPolyMat::CQrvNonPlastic read{};
    ASSERT_TRUE(list.GetMetalFile(path.c_str(), read));
    EXPECT_EQ(read.PR, 0.33);
    EXPECT_EQ(read.EM, 7.0e11);
    EXPECT_EQ(read.CLTE, 2.3e-5);
    EXPECT_EQ(read.Density, 2.7);
}

TEST(MetalBank, BackslashesOfTheRootAreKept) {
    // Only the fixed tail is written with backslashes for another system; a root is used as given,
    // and on this system a backslash is an ordinary character of a folder name.
    qrvtest::TempFolder folder;
    const std::string root = folder.path("odd\\root");
    std::filesystem::create_directories(root + "/Bank/System");
    add(root + "/Bank/System/Metal.qbk", metal("Steel", "D=7.85 g/cc"));
    MATIO_QrvNonPolyMat list;
    ASSERT_TRUE(list.GetMetalMatBank(root.c_str(), nullptr, false));
    EXPECT_EQ(names(list), std::vector<std::string>{"Steel"});
}
