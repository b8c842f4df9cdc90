// Paths that cannot be used, files that are not run files, damaged run files and a file held by
// another process: no crash, nothing on stderr, failure values, and a file left as it was.
#include <gtest/gtest.h>
#include <hdf5.h>

#include <quorvalib/runfile.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

#include "rsv/rsv_tool.h"
#include "rsv/run_vocabulary.h"
#include "runfile/run_file_support.h"
#include "support/temp_files.h"

namespace {

using namespace qrvtest;
using namespace QRV3DRSVExTool;

void expectToolLess(MATIO_RSVManipulator& manipulator) {
    MaterialPtr material = loadSample(kMetal);
    EXPECT_FALSE(manipulator.AddMaterial(material.get(), "Part", kRun1Plastic));
    EXPECT_EQ(manipulator.GetMaterialCount(), 0);
    EXPECT_EQ(manipulator.GetMaterial(0), nullptr);
}

class BadInputTest : public ::testing::Test {
protected:
    void SetUp() override { ::testing::internal::CaptureStderr(); }
    void TearDown() override { EXPECT_EQ(::testing::internal::GetCapturedStderr(), ""); }

    TempFolder folder;
    std::string file = folder.path("run.rsv");
};

TEST_F(BadInputTest, PathsThatCannotBeCreatedOrOpenedGiveAManipulatorWithoutStore) {
    for (const std::string& path :
         {folder.path("no/such/folder/run.rsv"), folder.root().string(), std::string()}) {
        SCOPED_TRACE(path);
        MATIO_RSVManipulator manipulator(path.c_str());
        expectToolLess(manipulator);
    }
    MATIO_RSVManipulator none(nullptr);
    expectToolLess(none);
}

TEST_F(BadInputTest, FilesThatAreNotHDF5AreLeftAsTheyAre) {
    for (const std::string& bytes :
         {std::string(), std::string("plain text, not a run file"), std::string(4096, '\0'),
          std::string("\x89HDF\r\n\x1a\n", 8)}) {
        SCOPED_TRACE(bytes.size());
        writeFile(file, bytes);
        {
            MATIO_RSVManipulator manipulator(file.c_str());
            expectToolLess(manipulator);
        }
        EXPECT_TRUE(fileBytes(file) == bytes);  // not printed: a changed file is large
    }
}

// Builds a run file whose material 1 is damaged in every way a reader must survive.
void writeDamagedRunFile(const std::string& path) {
    {
        CRSVTool tool;
        ASSERT_EQ(tool.Create(path, 4, 13, 0), 0);
        CRSVGroup* materials = tool.CreateGroup(tool.OpenGroup(1), "Material");
        CRSVGroup* m = tool.CreateGroup(materials, "Material 1");
        CRSVTable* summary = tool.CreateTable(m, "Summary");
        summary->SetItem("Polymer", 7);           // an integer where a text belongs
        summary->SetItem("Grade Name", "Grade");  // fine
        summary->SetItem("Type", "two");          // a text where an integer belongs
        summary->SetItem("Vis Model", 2.5);       // a real where an integer belongs
        summary->SetItem("PVT Model", 4);
        const int ints[] = {1, 2, 3};
        tool.CreateArray(m, "Vis Para", kTypeInt32, 1, 3)->WriteArray(ints);
        const double twoRows[] = {1, 2, 3, 4, 5, 6};
        tool.CreateArray(m, "PVT Para", kTypeDouble, 2, 3)->WriteArray(twoRows);
        tool.CreateGroup(m, "Cp Para");  // a group where an array belongs
        const int type = tool.BeginCreateCompoundDataType(8);
        tool.AddCompoundDataTypeMember(type, "a", kTypeInt32, 0);
        tool.EndCreateCompoundDataType(type);
        tool.CreateArray(m, "K Para", type, 1, 2);

        CRSVGroup* vis = tool.CreateGroup(m, "Vis Raw Data");
        const double conditions[] = {190.0, 210.0};
        tool.CreateArray(vis, "Condition", kTypeDouble, 1, 2)->WriteArray(conditions);
        tool.CreateArray(vis, "Curve 1 XY", kTypeDouble, 1, 3)->WriteArray(twoRows);  // one row
        CRSVGroup* pvt = tool.CreateGroup(m, "PVT Raw Data");  // no Summary table at all
        const double three[] = {0.0, 500.0, 1000.0};
        tool.CreateArray(pvt, "Condition", kTypeDouble, 1, 3)->WriteArray(three);
        const double curve[] = {100.0, 200.0, 0.9, 0.95};
        tool.CreateArray(pvt, "Curve 1 XY", kTypeDouble, 2, 2)->WriteArray(curve);

        // MTC 1 misses its second section; MTC 2 is whole with too many parameters; MTC 3 has
        // no temperatures; MTC 5 lies behind the gap and is never probed.
        for (const char* name : {"MTC 1", "MTC 2", "MTC 3", "MTC 5"}) {
            CRSVGroup* mtc = tool.CreateGroup(m, name);
            tool.CreateTable(mtc, "Summary")->SetItem("Version", 6);
            if (std::string(name) == "MTC 3") continue;
            const double temperatures[] = {150.0, 200.0};
            const size_t sections = std::string(name) == "MTC 1" ? 2 : 1;
            tool.CreateArray(mtc, "Interval Temperature", kTypeDouble, 1, sections)
                ->WriteArray(temperatures);
            CRSVGroup* section = tool.CreateGroup(mtc, "Section 1");
            CRSVTable* model = tool.CreateTable(section, "MTC Model");
            model->SetItem("Model ID", 3);
            model->SetItem("Max Parameter num", 30);
            std::vector<double> parameters(30);
            for (size_t i = 0; i < parameters.size(); ++i)
                parameters[i] = static_cast<double>(i + 1);
            tool.CreateArray(section, "Parameters", kTypeDouble, 1, 30)
                ->WriteArray(parameters.data());
        }
        tool.CreateGroup(materials, "Material 2");  // empty: no Summary table
    }
    // What the store itself never makes: a one-dimensional array, and a huge array that holds
    // no data (chunked, never written), so its size costs nothing on disk.
    hid_t f = H5Fopen(path.c_str(), H5F_ACC_RDWR, H5P_DEFAULT);
    ASSERT_GE(f, 0);
    hid_t m = H5Gopen2(f, "/Vantrell/Run1/Material/Material 1", H5P_DEFAULT);
    const hsize_t line[1] = {4};
    hid_t space = H5Screate_simple(1, line, nullptr);
    H5Dclose(
        H5Dcreate2(m, "VE Para", H5T_IEEE_F64LE, space, H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
    H5Sclose(space);
    const hsize_t huge[2] = {1, hsize_t{1} << 28};
    const hsize_t chunk[2] = {1, 1024};
    space = H5Screate_simple(2, huge, nullptr);
    hid_t chunked = H5Pcreate(H5P_DATASET_CREATE);
    H5Pset_chunk(chunked, 2, chunk);
    H5Dclose(H5Dcreate2(m, "OP Para", H5T_IEEE_F64LE, space, H5P_DEFAULT, chunked, H5P_DEFAULT));
    H5Pclose(chunked);
    H5Sclose(space);
    H5Gclose(m);
    H5Fclose(f);
}

TEST_F(BadInputTest, DamagedContentGivesAPartialRecordAndTheFileIsNotChanged) {
    writeDamagedRunFile(file);
    const std::string before = fileBytes(file);
    {
        MATIO_RSVManipulator manipulator(file.c_str());
        ASSERT_EQ(manipulator.GetMaterialCount(), 2);
        QrvMaterial* m = manipulator.GetMaterial(0);
        ASSERT_NE(m, nullptr);
        EXPECT_STREQ(m->Polymer, "");
        EXPECT_STREQ(m->GradeName, "Grade");
        EXPECT_STREQ(m->Producer, "");
        EXPECT_EQ(m->FileType, 1);  // the default record's
        EXPECT_EQ(m->Vis.Model, 0);
        EXPECT_EQ(m->PVT.Model, 4);
        for (const QrvMatParam* empty : {&m->Vis, &m->Cp, &m->K, &m->VE, &m->OP}) {
            EXPECT_EQ(empty->Count, 0);
            EXPECT_EQ(empty->Para, nullptr);
        }
        EXPECT_EQ(values(m->PVT), (std::vector<double>{1, 2, 3}));  // the first row
        ASSERT_NE(m->VisRaw, nullptr);
        EXPECT_EQ(m->VisRaw->GetCurveCount(), 0);
        ASSERT_NE(m->PVTRaw, nullptr);
        ASSERT_EQ(m->PVTRaw->GetCurveCount(), 1);
        EXPECT_EQ(m->PVTRaw->GetCondition(0), 0.0);
        int version = 0, count = 0;
        QrvGetMTCInfo(m, version, count);
        ASSERT_EQ(count, 1);  // only MTC 2 is whole
        const QRV_MTC* record = QrvGetMTCData(m, 0);
        EXPECT_EQ(record->Version, 6);
        ASSERT_EQ(record->SectionCount, 1);
        EXPECT_EQ(record->IntervalTemperature[0], 150.0);
        EXPECT_EQ(record->Sections[0].ModelId, 3);
        EXPECT_EQ(record->Sections[0].Parameters[20], 21.0);
        EXPECT_EQ(m->FileVer, 9010);

        QrvMaterial* bare = manipulator.GetMaterial(1);  // no Summary table
        ASSERT_NE(bare, nullptr);
        EXPECT_STREQ(bare->Polymer, "");
        EXPECT_EQ(bare->FileVer, 0);
        EXPECT_EQ(bare->Vis.Para, nullptr);
        QrvReleaseMaterial(m);  // left to the caller by the second call
    }
    EXPECT_TRUE(fileBytes(file) == before);
}

TEST_F(BadInputTest, AMaterialGroupThatIsAnArrayIsNotAMaterial) {
    {
        CRSVTool tool;
        ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
        CRSVGroup* materials = tool.CreateGroup(tool.OpenGroup(1), "Material");
        tool.CreateArray(materials, "Material 1", kTypeDouble, 1, 1);
    }
    MATIO_RSVManipulator manipulator(file.c_str());
    EXPECT_EQ(manipulator.GetMaterialCount(), 0);
    EXPECT_EQ(manipulator.GetMaterial(0), nullptr);
}

TEST_F(BadInputTest, ARunThatIsAnArrayTakesNoMaterialAndOtherRunsStillDo) {
    {
        // A damaged file: /Vantrell/Run1 is a dataset, where a run's group belongs.
        hid_t raw = H5Fcreate(file.c_str(), H5F_ACC_EXCL, H5P_DEFAULT, H5P_DEFAULT);
        ASSERT_GE(raw, 0);
        hid_t vantrell = H5Gcreate2(raw, "Vantrell", H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
        const hsize_t dimensions[2] = {1, 2};
        hid_t space = H5Screate_simple(2, dimensions, nullptr);
        hid_t run = H5Dcreate2(vantrell, "Run1", H5T_IEEE_F64LE, space, H5P_DEFAULT, H5P_DEFAULT,
                               H5P_DEFAULT);
        const double values[2] = {1.5, 2.5};
        EXPECT_GE(H5Dwrite(run, H5T_NATIVE_DOUBLE, H5S_ALL, H5S_ALL, H5P_DEFAULT, values), 0);
        H5Dclose(run);
        H5Sclose(space);
        H5Gclose(vantrell);
        H5Fclose(raw);
    }
    MaterialPtr metal = loadSample(kMetal);
    {
        MATIO_RSVManipulator manipulator(file.c_str());
        EXPECT_FALSE(manipulator.AddMaterial(metal.get(), "Part", kRun1Plastic));
        EXPECT_EQ(manipulator.GetMaterialCount(), 0);
        EXPECT_EQ(manipulator.GetMaterial(0), nullptr);
        EXPECT_TRUE(manipulator.AddMaterial(metal.get(), "Part", kRun2Plastic));
    }
    RawFile raw(file);
    // The array is left as it was (HDF5 cannot look for a path below it without complaint).
    EXPECT_EQ(raw.dimensions("/Vantrell/Run1"), (std::vector<hsize_t>{1, 2}));
    EXPECT_TRUE(raw.exists("/Vantrell/Run2/Material/Material 1/Summary"));
}

TEST_F(BadInputTest, NullTextsAndBlocksWithoutParametersAreStoredSafely) {
    MaterialPtr material = makeRecord();
    setNullBlock(material->Vis, 2, 5);  // a count with no array behind it
    MATIO_RSVManipulator manipulator(file.c_str());
    ASSERT_TRUE(manipulator.AddMaterial(material.get(), nullptr, kRun1Plastic));
    QrvMaterial* back = manipulator.GetMaterial(0);
    ASSERT_NE(back, nullptr);
    EXPECT_STREQ(back->Polymer, "");
    EXPECT_EQ(back->Vis.Model, 2);
    EXPECT_EQ(back->Vis.Count, 0);
    RawFile raw(file);
    EXPECT_EQ(raw.description("/Vantrell/Run1/Description/Material/Result0").at(1).second, "( )");
}

// A child process holds the file open the way another program would; HDF5's file lock makes the
// open fail at once.
TEST_F(BadInputTest, AFileHeldByAnotherProcessGivesAManipulatorWithoutStore) {
    ::unsetenv("HDF5_USE_FILE_LOCKING");
    {
        MaterialPtr material = loadSample(kMetal);
        MATIO_RSVManipulator writer(file.c_str());
        ASSERT_TRUE(writer.AddMaterial(material.get(), "Part", kRun1Plastic));
    }
    int ready[2], release[2];
    ASSERT_EQ(::pipe(ready), 0);
    ASSERT_EQ(::pipe(release), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::close(release[1]);  // so that the parent's close is seen as the end of the pipe
        ::close(ready[0]);
        hid_t held = H5Fopen(file.c_str(), H5F_ACC_RDWR, H5P_DEFAULT);
        const char mark = held >= 0 ? 'y' : 'n';
        (void)!::write(ready[1], &mark, 1);
        char done;
        (void)!::read(release[0], &done, 1);  // until the parent closes its end
        _exit(0);
    }
    ::close(ready[1]);
    ::close(release[0]);
    char mark = 0;
    ASSERT_EQ(::read(ready[0], &mark, 1), 1);
    ASSERT_EQ(mark, 'y');
    const std::string before = fileBytes(file);
    const auto start = std::chrono::steady_clock::now();
    {
        MATIO_RSVManipulator manipulator(file.c_str());
        expectToolLess(manipulator);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    ::close(release[1]);
    int status = 0;
    ::waitpid(child, &status, 0);
    ::close(ready[0]);
    EXPECT_TRUE(fileBytes(file) == before);
    // Once the other process is gone the file opens again.
    MATIO_RSVManipulator after(file.c_str());
    EXPECT_EQ(after.GetMaterialCount(), 1);
}

}  // namespace

TEST_F(BadInputTest, MTCArraysOfTwoRowsAreReadFromTheirFirstRow) {
    // As for a block's parameters, the reader takes the column count and the first row; a second
    // row is left unread, and a summary without "Security Level" leaves it 0.
    {
        CRSVTool tool;
        ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
        CRSVGroup* materials = tool.CreateGroup(tool.OpenGroup(1), "Material");
        CRSVGroup* m = tool.CreateGroup(materials, "Material 1");
        tool.CreateTable(m, "Summary")->SetItem("Polymer", "PA6");
        CRSVGroup* mtc = tool.CreateGroup(m, "MTC 1");
        tool.CreateTable(mtc, "Summary")->SetItem("Version", 4);
        const double temperatures[] = {150.0, 210.0, -1.0, -2.0};
        tool.CreateArray(mtc, "Interval Temperature", kTypeDouble, 2, 2)->WriteArray(temperatures);
        for (const char* name : {"Section 1", "Section 2"}) {
            CRSVGroup* section = tool.CreateGroup(mtc, name);
            CRSVTable* model = tool.CreateTable(section, "MTC Model");
            model->SetItem("Model ID", 2);
            model->SetItem("Max Parameter num", 3);
            const double parameters[] = {1.5, 2.5, 3.5, 9.0, 9.0, 9.0};
            tool.CreateArray(section, "Parameters", kTypeDouble, 2, 3)->WriteArray(parameters);
        }
    }
    MATIO_RSVManipulator manipulator(file.c_str());
    QrvMaterial* m = manipulator.GetMaterial(0);
    ASSERT_NE(m, nullptr);
    EXPECT_STREQ(m->Polymer, "PA6");
    int version = 0, count = 0;
    QrvGetMTCInfo(m, version, count);
    ASSERT_EQ(count, 1);
    const QRV_MTC* record = QrvGetMTCData(m, 0);
    EXPECT_EQ(record->Version, 4);
    EXPECT_EQ(record->SecurityLevel, 0);
    ASSERT_EQ(record->SectionCount, 2);
    EXPECT_EQ(record->IntervalTemperature[0], 150.0);
    EXPECT_EQ(record->IntervalTemperature[1], 210.0);
    for (int s = 0; s < 2; ++s) {
        SCOPED_TRACE(s);
        EXPECT_EQ(record->Sections[s].ModelId, 2);
        EXPECT_EQ(record->Sections[s].Parameters[0], 1.5);
        EXPECT_EQ(record->Sections[s].Parameters[2], 3.5);
        EXPECT_EQ(record->Sections[s].Parameters[3], 0.0);
    }
}

TEST_F(BadInputTest, ADescriptionNameAlreadyTakenLeavesTheDescriptionOut) {
    // Descriptions are named "Result" and the number of arrays already there: a lone "Result1"
    // takes the name the next one would get. The material is stored all the same.
    const std::string description = "/Vantrell/Run1/Description/Material";
    {
        CRSVTool tool;
        ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
        ASSERT_NE(tool.OpenGroup(1), nullptr);  // makes the run's group
        CRSVGroup* category = tool.OpenGroup(1, kCategoryDescription);
        ASSERT_NE(category, nullptr);
        CRSVGroup* group = tool.CreateGroup(category, "Material");
        const int marker[] = {7};
        tool.CreateArray(group, "Result1", kTypeInt32, 1, 1)->WriteArray(marker);
    }
    {
        MATIO_RSVManipulator manipulator(file.c_str());
        MaterialPtr material = loadSample(kThermoplastic);
        EXPECT_TRUE(manipulator.AddMaterial(material.get(), "Part", kRun1Plastic));
        EXPECT_EQ(manipulator.GetMaterialCount(), 1);
    }
    RawFile raw(file);
    EXPECT_EQ(raw.links(description), 1u);
    EXPECT_EQ(raw.dimensions(description + "/Result1"), (std::vector<hsize_t>{1, 1}));
    EXPECT_TRUE(raw.exists("/Vantrell/Run1/Material/Material 1/Summary"));
}
