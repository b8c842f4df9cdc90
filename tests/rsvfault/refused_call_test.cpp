// The run file when HDF5 refuses a call in the middle of an operation (a full disk, a quota, a
// file system gone read-only): every public operation of MATIO_RSVManipulator is run with HDF5
// refusing its first call, then its second, and so on to its last. For each refusal: the
// documented answer, no HDF5 id left open once the manipulator is gone, nothing printed, and a
// file that still reads back what was stored before.
#include <gtest/gtest.h>
#include <hdf5.h>

#include <quorvalib/runfile.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "rsvfault/fault_points.h"
#include "rsvfault/hdf5_faults.h"
#include "rsvfault/partial_record.h"
#include "runfile/run_file_support.h"
#include "support/temp_files.h"

namespace {

using namespace qrvtest;

class RefusedCallTest : public ::testing::Test {
protected:
    void SetUp() override { ::testing::internal::CaptureStderr(); }
    void TearDown() override {
        HDF5Faults::disarm();
        // HDF5 prints "HDF5-DIAG" for each refused call unless the library turned printing off.
        EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    }

    // A run file holding the samples in run 1, written without refusals.
    void writeRunFile(const std::string& path, const std::vector<Sample>& samples) {
        std::filesystem::remove(path);
        MATIO_RSVManipulator writer(path.c_str());
        for (const Sample& sample : samples) {
            MaterialPtr material = loadSample(sample);
            ASSERT_TRUE(writer.AddMaterial(material.get(), "Part", kRun1Plastic));
        }
    }

    // The file at path holds the samples first, as stored, and then more (at most `more`)
    // materials; answers how many more.
    int expectStoredFirst(const std::string& path, const std::vector<Sample>& samples, int more) {
        const int count = MATIO_RSVManipulator(path.c_str()).GetMaterialCount();
        EXPECT_GE(count, static_cast<int>(samples.size()));
        EXPECT_LE(count, static_cast<int>(samples.size()) + more);
        for (size_t i = 0; i < samples.size() && static_cast<int>(i) < count; ++i) {
            // One reader per record: the manipulator keeps only the last record it read.
            MATIO_RSVManipulator reader(path.c_str());
            QrvMaterial* back = reader.GetMaterial(static_cast<int>(i));
            EXPECT_NE(back, nullptr) << i;
            if (back) expectMaterial(*back, afterRunFile(sampleRecord(samples[i])));
        }
        return count - static_cast<int>(samples.size());
    }

    // The file under test becomes a copy of the original again.
    void restoreOriginal() {
        std::filesystem::copy_file(original, file,
                                   std::filesystem::copy_options::overwrite_existing);
    }

    // A manipulator made afterwards on path adds a material and reads it back whole.
    void expectUsable(const std::string& path) {
        MATIO_RSVManipulator again(path.c_str());
        const int before = again.GetMaterialCount();
        MaterialPtr metal = loadSample(kMetal);
        ASSERT_TRUE(again.AddMaterial(metal.get(), "Part", kRun1Plastic));
        EXPECT_EQ(again.GetMaterialCount(), before + 1);
        QrvMaterial* back = again.GetMaterial(before);
        ASSERT_NE(back, nullptr);
        expectMaterial(*back, afterRunFile(sampleRecord(kMetal)));
    }

    TempFolder folder;
    std::string file = folder.path("run.rsv");
    std::string original = folder.path("original.rsv");
};

TEST(HDF5FaultsTest, TheLibraryCallsTheWrappersAndARefusalPrintsLikeHDF5) {
    // Every call of an AddMaterial goes through the wrappers (counted, none refused).
    TempFolder folder;
    const std::string path = folder.path("run.rsv");
    MATIO_RSVManipulator manipulator(path.c_str());
    MaterialPtr material = loadSample(kThermoplastic);
    HDF5Faults::arm(1L << 40, Refusal::Once);
    EXPECT_TRUE(manipulator.AddMaterial(material.get(), "Part", kRun1Plastic));
    HDF5Faults::disarm();
    EXPECT_GT(HDF5Faults::calls(), 100);
    EXPECT_EQ(HDF5Faults::refusals(), 0);

    // A refused call outside the library answers HDF5's failure value and prints HDF5's error
    // stack, as a real refusal does: the empty stderr of the tests below is the library's doing.
    ::testing::internal::CaptureStderr();
    HDF5Faults::arm(1, Refusal::Once);
    const hid_t group = H5Gopen2(H5I_INVALID_HID, "/", H5P_DEFAULT);
    HDF5Faults::disarm();
    const std::string printed = ::testing::internal::GetCapturedStderr();
    EXPECT_LT(group, 0);
    EXPECT_EQ(HDF5Faults::refusals(), 1);
    EXPECT_NE(printed.find("HDF5-DIAG"), std::string::npos);
}

TEST_F(RefusedCallTest, MakingANewFile) {
    for (Refusal mode : {Refusal::Once, Refusal::FromThenOn}) {
        const long points = everyFaultPoint(mode, [&](long k) {
            std::filesystem::remove(file);
            const long baseline = openIds();
            {
                HDF5Faults::arm(k, mode);
                MATIO_RSVManipulator manipulator(file.c_str());
                HDF5Faults::disarm();
                // With a store the manipulator works; without one it answers false, 0 and null.
                MaterialPtr metal = loadSample(kMetal);
                const bool added = manipulator.AddMaterial(metal.get(), "Part", kRun1Plastic);
                EXPECT_EQ(manipulator.GetMaterialCount(), added ? 1 : 0);
                QrvMaterial* back = manipulator.GetMaterial(0);
                EXPECT_EQ(back != nullptr, added);
                if (back) expectMaterial(*back, afterRunFile(sampleRecord(kMetal)));
            }
            EXPECT_EQ(openIds(), baseline);
            EXPECT_EQ(H5Fget_obj_count(H5F_OBJ_ALL, H5F_OBJ_ALL), 0);
            expectUsable(file);
        });
        report("constructor on a new file", mode, points);
    }
}

TEST_F(RefusedCallTest, OpeningAnExistingFile) {
    writeRunFile(original, {kThermoset});
    for (Refusal mode : {Refusal::Once, Refusal::FromThenOn}) {
        const long points = everyFaultPoint(mode, [&](long k) {
            restoreOriginal();
            const long baseline = openIds();
            {
                HDF5Faults::arm(k, mode);
                MATIO_RSVManipulator manipulator(file.c_str());
                HDF5Faults::disarm();
                const int count = manipulator.GetMaterialCount();
                EXPECT_TRUE(count == 0 || count == 1) << count;
                if (count == 1) {
                    QrvMaterial* back = manipulator.GetMaterial(0);
                    ASSERT_NE(back, nullptr);
                    expectMaterial(*back, afterRunFile(sampleRecord(kThermoset)));
                }
            }
            EXPECT_EQ(openIds(), baseline);
            EXPECT_EQ(expectStoredFirst(file, {kThermoset}, 0), 0);
            expectUsable(file);
        });
        report("constructor on an existing file", mode, points);
    }
}

// Adds a sample to a copy of a file holding `before`, with HDF5 refusing calls of the AddMaterial.
// The material is then stored in part or not at all, and false means nothing was made. After a
// single refusal the manipulator still works: the same material added again is stored whole.
class RefusedAddTest : public RefusedCallTest {
protected:
    void run(const std::vector<Sample>& before, const Sample& sample, const char* operation) {
        writeRunFile(original, before);
        MaterialPtr material = loadSample(sample);
        for (Refusal mode : {Refusal::Once, Refusal::FromThenOn}) {
            const long points = everyFaultPoint(mode, [&](long k) {
                restoreOriginal();
                const long baseline = openIds();
                bool reported = false;
                {
                    MATIO_RSVManipulator manipulator(file.c_str());
                    HDF5Faults::arm(k, mode);
                    reported = manipulator.AddMaterial(material.get(), "Part", kRun1Plastic);
                    HDF5Faults::disarm();
                    if (mode == Refusal::Once) {
                        EXPECT_TRUE(manipulator.AddMaterial(material.get(), "Part", kRun1Plastic));
                    }
                }
                EXPECT_EQ(openIds(), baseline);
                const int retried = mode == Refusal::Once ? 1 : 0;
                const int more = expectStoredFirst(file, before, 1 + retried);
                // False only when nothing was made.
                if (!reported) {
                    EXPECT_EQ(more, retried);
                }
                EXPECT_GE(more, retried);
                const int first = static_cast<int>(before.size());
                if (more - retried == 1) {
                    MATIO_RSVManipulator reader(file.c_str());
                    QrvMaterial* part = reader.GetMaterial(first);
                    ASSERT_NE(part, nullptr);
                    expectPartOf(*part, *material);
                }
                if (retried) {
                    MATIO_RSVManipulator reader(file.c_str());
                    QrvMaterial* whole = reader.GetMaterial(first + more - 1);
                    ASSERT_NE(whole, nullptr);
                    expectMaterial(*whole, afterRunFile(sampleRecord(sample)));
                }
            });
            report(operation, mode, points);
        }
    }
};

TEST_F(RefusedAddTest, AddingAThermoplasticWithCurvesAndMTCToANewFile) {
    run({}, kThermoplastic, "AddMaterial, thermoplastic, new file");
}

TEST_F(RefusedAddTest, AddingAThermosetToANewFile) {
    run({}, kThermoset, "AddMaterial, thermoset, new file");
}

TEST_F(RefusedAddTest, AddingAMetalToANewFile) {
    run({}, kMetal, "AddMaterial, metal, new file");
}

TEST_F(RefusedAddTest, AddingAThermoplasticBehindTwoMaterials) {
    run({kMetal, kThermoset}, kThermoplastic, "AddMaterial, thermoplastic, existing file");
}

TEST_F(RefusedCallTest, CountingMaterials) {
    writeRunFile(file, {kThermoplastic, kThermoset});
    for (Refusal mode : {Refusal::Once, Refusal::FromThenOn}) {
        const long points = everyFaultPoint(mode, [&](long k) {
            const long baseline = openIds();
            {
                MATIO_RSVManipulator manipulator(file.c_str());
                HDF5Faults::arm(k, mode);
                const int count = manipulator.GetMaterialCount();
                HDF5Faults::disarm();
                EXPECT_GE(count, 0);
                EXPECT_LE(count, 2);
                // A refusal is not remembered: asked again, the count is right.
                EXPECT_EQ(manipulator.GetMaterialCount(), 2);
            }
            EXPECT_EQ(openIds(), baseline);
        });
        report("GetMaterialCount", mode, points);
    }
    EXPECT_EQ(expectStoredFirst(file, {kThermoplastic, kThermoset}, 0), 0);
}

TEST_F(RefusedCallTest, ReadingMaterials) {
    const std::vector<Sample> stored{kThermoplastic, kThermoset};
    writeRunFile(file, stored);
    for (int index : {0, 1}) {
        MaterialPtr material = loadSample(stored[static_cast<size_t>(index)]);
        for (Refusal mode : {Refusal::Once, Refusal::FromThenOn}) {
            const long points = everyFaultPoint(mode, [&](long k) {
                const long baseline = openIds();
                {
                    MATIO_RSVManipulator manipulator(file.c_str());
                    HDF5Faults::arm(k, mode);
                    QrvMaterial* part = manipulator.GetMaterial(index);
                    HDF5Faults::disarm();
                    if (part) expectPartOf(*part, *material);
                    // Read again, the material comes back whole; the first record is then ours.
                    QrvMaterial* whole = manipulator.GetMaterial(index);
                    ASSERT_NE(whole, nullptr);
                    expectMaterial(*whole, afterRunFile(sampleRecord(stored[index])));
                    if (part) QrvReleaseMaterial(part);
                }
                EXPECT_EQ(openIds(), baseline);
            });
            report(index == 0 ? "GetMaterial, thermoplastic" : "GetMaterial, thermoset", mode,
                   points);
        }
    }
    EXPECT_EQ(expectStoredFirst(file, stored, 0), 0);
}

TEST_F(RefusedCallTest, ClosingAfterAnAdd) {
    writeRunFile(original, {kThermoplastic});
    MaterialPtr thermoset = loadSample(kThermoset);
    for (Refusal mode : {Refusal::Once, Refusal::FromThenOn}) {
        const long points = everyFaultPoint(mode, [&](long k) {
            restoreOriginal();
            const long baseline = openIds();
            {
                MATIO_RSVManipulator manipulator(file.c_str());
                ASSERT_TRUE(manipulator.AddMaterial(thermoset.get(), "Part", kRun1Plastic));
                HDF5Faults::arm(k, mode);
            }
            HDF5Faults::disarm();
            EXPECT_EQ(openIds(), baseline);
            EXPECT_EQ(expectStoredFirst(file, {kThermoplastic, kThermoset}, 0), 0);
        });
        report("destructor", mode, points);
    }
}

}  // namespace
