// MTC records: the exported calls, deep copies, the version after removal and the stored form.
#include <quorvalib/measured.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "formats/binary_stream.h"
#include "measured/mtc_list.h"
#include "record/material_internal.h"
#include "support/byte_builder.h"

using qrvtest::Bytes;

namespace {

struct MaterialDeleter {
    void operator()(QrvMaterial* m) const { QrvReleaseMaterial(m); }
};
using MaterialPtr = std::unique_ptr<QrvMaterial, MaterialDeleter>;

MaterialPtr newMaterial() {
    MaterialPtr material(new QrvMaterial());
    QrvInitMaterial(material.get());
    return material;
}

// A caller's record of two sections; section i has parameters 1..p at 10 i + k and garbage
// behind them.
struct CallerRecord {
    QrvMTCSection sections[2];
    double temperatures[2] = {170.0, 210.0};
    QRV_MTC record;

    CallerRecord(int version, int maxParameters) {
        for (int i = 0; i < 2; ++i) {
            sections[i].Attribute = i + 1;
            sections[i].ModelId = 3;
            sections[i].MaxParameterNum = maxParameters;
            for (int k = 0; k < 21; ++k)
                sections[i].Parameters[k] = k < maxParameters ? 10.0 * i + k : -777.0;
        }
        record = QRV_MTC{version, 4, 2, sections, temperatures};
    }
};

// The stored form of one section, written out in the test.
void sectionForm(Bytes& b, int attribute, int model, int maxParameters,
                 const std::vector<double>& parameters, double temperature) {
    b.word(attribute).word(model).word(maxParameters);
    for (int k = 0; k < 21; ++k)
        b.real(k < static_cast<int>(parameters.size()) ? parameters[k] : 0.0);
    b.real(temperature);
}

std::string written(const CQrvMTCList& list) {
    CQrvMemoryStream out;
    EXPECT_TRUE(list.Write(out));
    return out.Bytes();
}

}  // namespace

TEST(MTC, AddCreatesTheListAndSetsTheVersion) {
    auto material = newMaterial();
    material->FileVer = 9012;
    CallerRecord caller(2, 3);
    QrvAddMTCData(material.get(), &caller.record, 1);
    ASSERT_NE(material->MTC, nullptr);
    EXPECT_EQ(material->FileVer, 9010);
    int version = -1, count = -1;
    QrvGetMTCInfo(material.get(), version, count);
    EXPECT_EQ(version, 1000);
    EXPECT_EQ(count, 1);

    QRV_MTC* copy = QrvGetMTCData(material.get(), 0);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, &caller.record);
    EXPECT_NE(copy->Sections, caller.sections);
    EXPECT_EQ(copy->Version, 2);
    EXPECT_EQ(copy->SecurityLevel, 4);
    EXPECT_EQ(copy->SectionCount, 2);
    EXPECT_EQ(copy->IntervalTemperature[1], 210.0);
    EXPECT_EQ(copy->Sections[1].Attribute, 2);
    EXPECT_EQ(copy->Sections[1].ModelId, 3);
    EXPECT_EQ(copy->Sections[1].MaxParameterNum, 3);
    for (int k = 0; k < 21; ++k)  // the unused slots are cleared, not copied
        EXPECT_EQ(copy->Sections[1].Parameters[k], k < 3 ? 10.0 + k : 0.0) << k;

    caller.sections[0].Parameters[0] = 5555.0;  // the caller keeps its own record
    EXPECT_EQ(copy->Sections[0].Parameters[0], 0.0);
}

TEST(MTC, AddTwiceAppendsAndKeepsTheListVersion) {
    auto material = newMaterial();
    CallerRecord first(1, 2), second(7, 21);
    QrvAddMTCData(material.get(), &first.record, 1);
    material->MTC->SetVersion(1234);  // a version another writer gave the list stays
    QrvAddMTCData(material.get(), &second.record, 1);
    int version = 0, count = 0;
    QrvGetMTCInfo(material.get(), version, count);
    EXPECT_EQ(version, 1234);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(QrvGetMTCData(material.get(), 1)->Version, 7);
    EXPECT_EQ(QrvGetMTCData(material.get(), 1)->Sections[0].Parameters[20], 20.0);

    auto fresh = newMaterial();
    QrvAddMTCData(fresh.get(), &first.record, 1);
    QrvAddMTCData(fresh.get(), &second.record, 1);
    QrvGetMTCInfo(fresh.get(), version, count);
    EXPECT_EQ(version, 1000);
    EXPECT_EQ(count, 2);
}

TEST(MTC, AddWithCountBelowOneStillCreatesTheList) {
    auto material = newMaterial();
    material->FileVer = 7101;
    QrvAddMTCData(material.get(), nullptr, 0);
    ASSERT_NE(material->MTC, nullptr);
    EXPECT_EQ(material->MTC->GetRecordCount(), 0);
    EXPECT_EQ(material->MTC->GetVersion(), 1000);
    EXPECT_EQ(material->FileVer, 9010);
    material->FileVer = 1;
    QrvAddMTCData(material.get(), nullptr, -3);
    EXPECT_EQ(material->FileVer, 9010);
}

TEST(MTC, InfoAndDataWithoutAList) {
    auto material = newMaterial();
    int version = 5, count = 5;
    QrvGetMTCInfo(material.get(), version, count);
    EXPECT_EQ(version, 0);
    EXPECT_EQ(count, 0);
    version = count = 5;
    QrvGetMTCInfo(nullptr, version, count);
    EXPECT_EQ(version, 0);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(QrvGetMTCData(material.get(), 0), nullptr);
    EXPECT_EQ(QrvGetMTCData(nullptr, 0), nullptr);
    QrvAddMTCData(nullptr, nullptr, 1);  // ignored
    QrvRemoveAllMTC(nullptr);            // ignored
    EXPECT_EQ(material->MTC, nullptr);
}

TEST(MTC, IndexOutsideTheListThrowsTheRangeError) {
    auto material = newMaterial();
    CallerRecord caller(1, 1);
    QrvAddMTCData(material.get(), &caller.record, 1);
    for (int index : {1, -1, 100}) {
        try {
            QrvGetMTCData(material.get(), index);
            ADD_FAILURE() << index;
        } catch (const std::out_of_range& e) {
            EXPECT_STREQ(e.what(), "invalid vector<T> subscript");
        }
    }
}

TEST(MTC, BadCallerRecordsAreRefused) {
    auto material = newMaterial();
    material->FileVer = 9008;
    EXPECT_THROW(QrvAddMTCData(material.get(), nullptr, 1), std::invalid_argument);
    EXPECT_EQ(material->MTC, nullptr);
    EXPECT_EQ(material->FileVer, 9008);

    CallerRecord good(1, 1);
    QRV_MTC bad[2] = {good.record, QRV_MTC{1, 0, -1, nullptr, nullptr}};
    EXPECT_THROW(QrvAddMTCData(material.get(), bad, 2), std::invalid_argument);
    bad[1] = QRV_MTC{1, 0, 2, nullptr, good.temperatures};
    EXPECT_THROW(QrvAddMTCData(material.get(), bad, 2), std::invalid_argument);
    // One section is already one too many for a null array.
    bad[1] = QRV_MTC{1, 0, 1, good.record.Sections, nullptr};
    EXPECT_THROW(QrvAddMTCData(material.get(), bad, 2), std::invalid_argument);
    bad[1] = QRV_MTC{1, 0, 1, nullptr, good.temperatures};
    EXPECT_THROW(QrvAddMTCData(material.get(), bad, 2), std::invalid_argument);
    EXPECT_EQ(material->MTC, nullptr);

    QrvAddMTCData(material.get(), &good.record, 1);
    EXPECT_THROW(QrvAddMTCData(material.get(), bad, 2), std::invalid_argument);
    EXPECT_EQ(material->MTC->GetRecordCount(), 1);  // nothing of the refused call appended
}

TEST(MTC, ParameterCountIsGuardedAgainstTheTwentyOneSlots) {
    CallerRecord tooMany(1, 40), negative(1, -5);
    CQrvMTCList list;
    list.AddRecords(&tooMany.record, 1);
    list.AddRecords(&negative.record, 1);
    const QRV_MTC* first = list.GetRecord(0);
    EXPECT_EQ(first->Sections[0].MaxParameterNum, 40);  // kept as given
    for (int k = 0; k < 21; ++k)
        EXPECT_EQ(first->Sections[0].Parameters[k], static_cast<double>(k));
    const QRV_MTC* second = list.GetRecord(1);
    EXPECT_EQ(second->Sections[1].MaxParameterNum, -5);
    for (double parameter : second->Sections[1].Parameters)
        EXPECT_EQ(parameter, 0.0);
    QrvMTCSection section{};
    section.MaxParameterNum = 99;
    EXPECT_EQ(qrv::meaningfulParameters(section), 21);
    section.MaxParameterNum = -1;
    EXPECT_EQ(qrv::meaningfulParameters(section), 0);
    section.MaxParameterNum = 7;
    EXPECT_EQ(qrv::meaningfulParameters(section), 7);
}

TEST(MTC, RemoveAllKeepsTheEmptyListAndLowersTheVersion) {
    double value = 1.0;
    struct Case {
        bool ve, op, raw;
        int expected;
    };
    const Case cases[] = {{false, false, false, 9007}, {true, false, false, 9005},
                          {false, true, false, 9008},  {true, true, false, 9008},
                          {false, true, true, 9009},   {true, false, true, 9009},
                          {false, false, true, 9009}};
    for (const Case& c : cases) {
        auto material = newMaterial();
        CallerRecord caller(1, 1);
        QrvAddMTCData(material.get(), &caller.record, 1);
        if (c.ve) material->VE.Count = 1, material->VE.Para = new double[1]{value};
        if (c.op) material->OP.Count = 1, material->OP.Para = new double[1]{value};
        if (c.raw) material->PVTRaw = new CQrvPVTData();
        QrvRemoveAllMTC(material.get());
        EXPECT_EQ(material->FileVer, c.expected);
        ASSERT_NE(material->MTC, nullptr);
        int version = 0, count = -1;
        QrvGetMTCInfo(material.get(), version, count);
        EXPECT_EQ(version, 1000);
        EXPECT_EQ(count, 0);
    }
    // Without a list the version is lowered all the same.
    auto bare = newMaterial();
    bare->FileVer = 9012;
    bare->VisRaw = new CQrvViscosityData();
    QrvRemoveAllMTC(bare.get());
    EXPECT_EQ(bare->FileVer, 9009);
    EXPECT_EQ(bare->MTC, nullptr);
}

TEST(MTC, EmptyListStoresEightBytes) {
    CQrvMTCList list;
    list.SetVersion(1000);
    EXPECT_EQ(list.GetDataSize(), 8u);
    EXPECT_EQ(written(list), Bytes().word(1000).word(0).str());
}

TEST(MTC, RecordWithoutSectionsStoresTwelveBytes) {
    QRV_MTC record{3, 9, 0, nullptr, nullptr};
    CQrvMTCList list;
    list.AddRecords(&record, 1);
    EXPECT_EQ(list.GetDataSize(), 8u + 12u);
    EXPECT_EQ(written(list), Bytes().word(0).word(1).word(3).word(9).word(0).str());
}

TEST(MTC, StoredFormHoldsAllTwentyOneParameters) {
    CallerRecord caller(2, 3);
    CQrvMTCList list;
    list.SetVersion(1000);
    list.AddRecords(&caller.record, 1);
    EXPECT_EQ(list.GetDataSize(), 8u + 12u + 2u * 188u);
    Bytes expected;
    expected.word(1000).word(1).word(2).word(4).word(2);
    sectionForm(expected, 1, 3, 3, {0, 1, 2}, 170.0);
    sectionForm(expected, 2, 3, 3, {10, 11, 12}, 210.0);
    EXPECT_EQ(written(list), expected.str());
    EXPECT_EQ(expected.size(), list.GetDataSize());
}

TEST(MTC, ReadGivesEveryStoredParameterAndAppends) {
    std::vector<double> all;
    for (int k = 0; k < 21; ++k)
        all.push_back(0.5 * k + 1);
    Bytes form;
    form.word(1000).word(2);
    form.word(1).word(0).word(1);
    sectionForm(form, 1, 2, 3, all, 150.0);
    form.word(5).word(6).word(0);
    CQrvMemoryStream in(form.str());
    CQrvMTCList list(&in);
    CallerRecord held(9, 1);
    list.AddRecords(&held.record, 1);
    ASSERT_TRUE(list.Read());
    EXPECT_FALSE(in.Failed());
    EXPECT_EQ(list.GetVersion(), 1000);
    ASSERT_EQ(list.GetRecordCount(), 3);
    EXPECT_EQ(list.GetRecord(0)->Version, 9);
    const QRV_MTC* read = list.GetRecord(1);
    EXPECT_EQ(read->SectionCount, 1);
    EXPECT_EQ(read->Sections[0].MaxParameterNum, 3);
    for (int k = 0; k < 21; ++k)
        EXPECT_EQ(read->Sections[0].Parameters[k], all[k]);
    EXPECT_EQ(read->IntervalTemperature[0], 150.0);
    EXPECT_EQ(list.GetRecord(2)->SecurityLevel, 6);

    // A copy holds only the meaningful parameters.
    CQrvMTCList copy;
    copy.AddRecords(&held.record, 1);
    ASSERT_TRUE(list.CopyTo(&copy));
    EXPECT_EQ(copy.GetVersion(), 1000);
    ASSERT_EQ(copy.GetRecordCount(), 3);
    EXPECT_EQ(copy.GetRecord(1)->Sections[0].Parameters[2], all[2]);
    EXPECT_EQ(copy.GetRecord(1)->Sections[0].Parameters[3], 0.0);
    EXPECT_FALSE(list.CopyTo(nullptr));

    // Round trip of the read list through the plain Write.
    CQrvMemoryStream out;
    CQrvMTCList again(&out);
    CQrvMemoryStream in2(form.str());
    CQrvMTCList reread(&in2);
    reread.Read();
    EXPECT_EQ(written(reread), form.str());
    EXPECT_TRUE(again.Read());  // nothing to read: the stream fails, the list stays empty
    EXPECT_TRUE(out.Failed());
    EXPECT_EQ(again.GetRecordCount(), 0);
}

TEST(MTC, ClearKeepsTheVersion) {
    CallerRecord caller(1, 1);
    CQrvMTCList list;
    list.SetVersion(77);
    list.AddRecords(&caller.record, 1);
    list.Clear();
    EXPECT_EQ(list.GetVersion(), 77);
    EXPECT_EQ(list.GetRecordCount(), 0);
}

TEST(MTC, WithoutAStreamReadAndWriteFail) {
    CQrvMTCList list;
    EXPECT_FALSE(list.Read());
    EXPECT_FALSE(list.Write());
}

TEST(MTC, BadCountsFailTheStream) {
    Bytes base;
    base.word(1000);
    const std::size_t recordCountAt = base.mark();
    base.word(2).word(1).word(0);
    const std::size_t firstSectionsAt = base.mark();
    base.word(1);
    sectionForm(base, 1, 1, 1, {4}, 100);
    base.word(2).word(0);
    const std::size_t secondSectionsAt = base.mark();
    base.word(1);
    sectionForm(base, 2, 2, 2, {5, 6}, 200);
    const std::string good = base.str();

    struct Position {
        std::size_t at;
        std::int64_t itemBytes;
        int recordsKept;
    };
    for (const Position& p : {Position{recordCountAt, 12, 0}, Position{firstSectionsAt, 188, 0},
                              Position{secondSectionsAt, 188, 1}}) {
        const std::int64_t left = static_cast<std::int64_t>(good.size() - p.at - 4);
        for (std::int64_t bad : {std::int64_t{-1}, std::int64_t{-2147483647 - 1},
                                 std::int64_t{2147483647}, left / p.itemBytes + 1}) {
            Bytes damaged;
            damaged.raw(good).patch(p.at, bad);
            CQrvMemoryStream in(damaged.str());
            CQrvMTCList list(&in);
            ASSERT_NO_THROW(EXPECT_TRUE(list.Read()));
            EXPECT_TRUE(in.Failed());
            EXPECT_EQ(list.GetVersion(), 1000);
            EXPECT_EQ(list.GetRecordCount(), p.recordsKept) << p.at << " " << bad;
        }
    }
    CQrvMemoryStream in(good);
    CQrvMTCList list(&in);
    list.Read();
    EXPECT_FALSE(in.Failed());
    EXPECT_EQ(list.GetRecordCount(), 2);
}

TEST(MTC, ReadingPastTheEndKeepsWhatWasRead) {
    Bytes form;
    form.word(1000).word(2).word(1).word(0).word(0).word(4).word(4).word(1);
    sectionForm(form, 1, 1, 1, {1}, 1);
    const std::string full = form.str();
    for (std::size_t cut = 0; cut < full.size(); ++cut) {
        CQrvMemoryStream in(full.substr(0, cut));
        CQrvMTCList list(&in);
        list.SetVersion(-8);
        list.Read();
        EXPECT_TRUE(in.Failed());
        EXPECT_EQ(list.GetVersion(), cut >= 4 ? 1000 : -8);
        // Two records need at least 24 bytes behind their count, so below 32 bytes the count
        // fails; from there the first record (no sections) is read and the second is cut short.
        EXPECT_EQ(list.GetRecordCount(), cut >= 32 ? 1 : 0) << cut;
    }
}
