// MATIO_Manipulator: ownership of its one record, its own guards, and the version calls.
#include <gtest/gtest.h>

#include <quorvalib/quorvalib.h>

#include <cmath>
#include <ctime>

#include "facade/build_date.h"

TEST(Manipulator, FreshObjectAnswersItsMisses) {
    MATIO_Manipulator m;
    EXPECT_EQ(m.GetViscosity(100.0, 230.0, 0.0, 0.0), 0.0);
    EXPECT_EQ(m.GetFileVer(), 0);
    EXPECT_EQ(m.GetFileType(), 0);
    EXPECT_EQ(m.GetLastEditDate(), 0);
    EXPECT_EQ(m.GetMeasureDate(), 0);
    EXPECT_EQ(m.GetPolymer(), nullptr);
    EXPECT_EQ(m.GetProducer(), nullptr);
    EXPECT_EQ(m.GetGradeName(), nullptr);
    EXPECT_EQ(m.GetComment(), nullptr);
    EXPECT_EQ(m.GetSource(), nullptr);
    EXPECT_FALSE(m.IsRIM());
    EXPECT_FALSE(m.IsMetal());
    EXPECT_FALSE(m.IsCoolant());
    EXPECT_FALSE(m.IsThermoplastic());
    EXPECT_FALSE(m.IsThermoset());
    EXPECT_FALSE(m.IsIC_Wire());
    EXPECT_FALSE(m.IsIC_Chip());
    EXPECT_FALSE(m.IsIC_LeadFrame());
    EXPECT_FALSE(m.IsIC_Substrate());
    EXPECT_STREQ(m.GetMaterialType(), "fail");
    EXPECT_EQ(m.GetQrvMaterial(), nullptr);
    EXPECT_EQ(m.GetContent(), nullptr);
}

TEST(Manipulator, ThermosetMarkIsNotTheRecordType) {
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(12, 0, false, 0, 0, 0));
    EXPECT_TRUE(m.IsRIM());
    EXPECT_FALSE(m.IsThermoset());
    EXPECT_TRUE(m.IsThermoplastic());
    EXPECT_EQ(m.GetFileType(), 1);
    ASSERT_TRUE(m.GetDefaultMaterial(9, 1, false, 1, 1, 0));
    EXPECT_FALSE(m.IsRIM());
    ASSERT_TRUE(m.GetDefaultMaterial(10, 1, false, 1, 1, 0));
    EXPECT_TRUE(m.IsRIM());
}

TEST(Manipulator, ForwardsToTheHeldRecord) {
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(4, 5, false, 3, 2, 1));
    const QrvMaterial* held = m.GetQrvMaterial();
    ASSERT_NE(held, nullptr);
    EXPECT_EQ(m.GetFileVer(), 7101);
    EXPECT_EQ(m.GetLastEditDate(), 20041215);
    EXPECT_STREQ(m.GetPolymer(), "Polymer");
    EXPECT_STREQ(m.GetProducer(), "Quorvane");
    EXPECT_STREQ(m.GetComment(), "Vis=4,PVT=5,Cp=3,K=2,Filler=1(Amorphous)");
    EXPECT_EQ(m.GetPolymer(), held->Polymer);
    EXPECT_STREQ(m.GetMaterialType(), "Thermoplastic");
    const double expected = QrvGetViscosity(const_cast<QrvMaterial*>(held), 500.0, 240.0, 1e7, 0.0);
    EXPECT_EQ(m.GetViscosity(500.0, 240.0, 1e7, 0.0), expected);
    EXPECT_GT(expected, 0.0);
}

// The flat function gives 0.0 for an empty Vis block too; the manipulator answers before it.
TEST(Manipulator, ViscosityGuardOnMissingParameters) {
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(7, 1, false, 1, 1, 0));
    EXPECT_EQ(m.GetQrvMaterial()->Vis.Para, nullptr);
    EXPECT_EQ(m.GetViscosity(1.0, 200.0, 0.0, 0.0), 0.0);
}

TEST(Manipulator, ReplacingTheRecordReleasesTheOldOne) {
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(2, 1, false, 1, 1, 0));
    const QrvMaterial* first = m.GetQrvMaterial();
    ASSERT_TRUE(m.GetDefaultMaterial(11, 1, false, 1, 1, 0));
    EXPECT_NE(m.GetQrvMaterial(), nullptr);
    EXPECT_STREQ(m.GetPolymer(), "EMC");
    (void)first;  // freed by the second call; the sanitizer run reports a leak otherwise
}

namespace {

// Curves that tell when they are destroyed: the release of a record deletes its curve objects.
class WatchedCurves : public CQrvViscosityData {
public:
    explicit WatchedCurves(int& destroyed) : CQrvViscosityData(nullptr), destroyed_(destroyed) {}
    ~WatchedCurves() override { ++destroyed_; }

private:
    int& destroyed_;
};

}  // namespace

TEST(Manipulator, TheHeldRecordIsReleasedOnReplacementAndAtTheEnd) {
    int destroyed = 0;
    {
        MATIO_Manipulator m;
        ASSERT_TRUE(m.GetDefaultMaterial(2, 1, false, 1, 1, 0));
        QrvMaterial* held = const_cast<QrvMaterial*>(m.GetQrvMaterial());
        ASSERT_EQ(held->VisRaw, nullptr);
        held->VisRaw = new WatchedCurves(destroyed);
        ASSERT_TRUE(m.GetDefaultMaterial(3, 1, false, 1, 1, 0));
        EXPECT_EQ(destroyed, 1);
        held = const_cast<QrvMaterial*>(m.GetQrvMaterial());
        held->VisRaw = new WatchedCurves(destroyed);
    }
    EXPECT_EQ(destroyed, 2);
}

TEST(Manipulator, AssignmentSharesTheRecord) {
    MATIO_Manipulator owner;
    ASSERT_TRUE(owner.GetDefaultMaterial(13, 0, false, 0, 0, 0));
    auto* alias = new MATIO_Manipulator;
    *alias = owner;
    EXPECT_EQ(alias->GetQrvMaterial(), owner.GetQrvMaterial());
    EXPECT_TRUE(alias->IsRIM());
    // Destroying both would release the record twice; the alias forgets it by taking an empty
    // manipulator's fields before it goes.
    MATIO_Manipulator empty;
    *alias = empty;
    delete alias;
    EXPECT_STREQ(owner.GetPolymer(), "EMC");
}

TEST(Version, LibraryLevelCalls) {
    EXPECT_EQ(GetDLLVersion(), 9007);
    EXPECT_EQ(InitQuorvaLib(0), 0);
    EXPECT_EQ(InitQuorvaLib(-7), 0);
    CQuorvalib marker;
    CQuorvalib other;
    EXPECT_EQ(&(marker = other), &marker);
}

TEST(Version, BuildDateText) {
    EXPECT_EQ(qrv::dateTextToNumber("Mar  1 2016"), 20160301);
    const char* months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    for (int i = 0; i < 12; ++i) {
        const std::string text = std::string(months[i]) + " 28 2031";
        EXPECT_EQ(qrv::dateTextToNumber(text.c_str()), 20310028 + (i + 1) * 100);
    }
    EXPECT_EQ(qrv::dateTextToNumber("Foo 3 2020"), 20200003);
    EXPECT_EQ(qrv::dateTextToNumber("garbage"), 0);
    EXPECT_EQ(qrv::dateTextToNumber(nullptr), 0);
}

TEST(Version, BuildDateOfThisLibrary) {
    // The library was built before this test runs, and not before this code was written: a real
    // calendar day between the two (a day of margin for the time zone of the build).
    const long version = Get_Quorvalib_Dll_Ver();
    std::tm day{};
    day.tm_year = static_cast<int>(version / 10000) - 1900;
    day.tm_mon = static_cast<int>(version / 100 % 100) - 1;
    day.tm_mday = static_cast<int>(version % 100);
    day.tm_hour = 12;
    std::tm checked = day;
    ASSERT_NE(std::mktime(&checked), static_cast<std::time_t>(-1));
    EXPECT_EQ(checked.tm_mday, day.tm_mday) << version;  // no 31 November
    EXPECT_EQ(checked.tm_mon, day.tm_mon) << version;
    const std::time_t tomorrow = std::time(nullptr) + 24 * 3600;
    std::tm latest{};
    gmtime_r(&tomorrow, &latest);
    const long latestNumber =
        (latest.tm_year + 1900L) * 10000 + (latest.tm_mon + 1L) * 100 + latest.tm_mday;
    EXPECT_LE(version, latestNumber);
    EXPECT_GE(version, 20250101);
    MATIO_Manipulator m;
    EXPECT_EQ(m.GetMATIO_DllVer(), version);
}
