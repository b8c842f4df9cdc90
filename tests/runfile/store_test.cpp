// The run-file store on its own: files, groups, tables, arrays, compound types, attributes, the id
// packing and the fixed vocabulary of a run.
#include <gtest/gtest.h>

#include <hdf5.h>

#include <cstring>
#include <string>
#include <tuple>
#include <vector>

#include "rsv/rsv_tool.h"
#include "rsv/run_vocabulary.h"
#include "runfile/run_file_support.h"
#include "runfile/store_access.h"
#include "support/temp_files.h"

namespace {

using namespace QRV3DRSVExTool;

TEST(RunItemIdTest, SplitsRunAndItemByTruncatingDivision) {
    const RunItem plastic = splitRunItemId(65536 + 4096);
    EXPECT_EQ(plastic.Run, 1);
    EXPECT_EQ(plastic.ItemClass, kItemPlastic);
    const RunItem insert = splitRunItemId(3 * 65536 + 8192 + 5);
    EXPECT_EQ(insert.Run, 3);
    EXPECT_EQ(insert.ItemClass, kItemPartInsert);
    EXPECT_EQ(insert.Child, 5);
    EXPECT_EQ(splitRunItemId(65535).Run, 0);  // below 65536: run 0
    EXPECT_EQ(splitRunItemId(0).Run, 0);
    // Truncation towards zero: -1 is run 0, -65537 run -1 (not -2), with a negative low part.
    EXPECT_EQ(splitRunItemId(-1).Run, 0);
    EXPECT_EQ(splitRunItemId(-1).Low, -1);
    EXPECT_EQ(splitRunItemId(-65537).Run, -1);
    EXPECT_EQ(splitRunItemId(-65537).Low, -1);
    EXPECT_EQ(splitRunItemId(-131072).Run, -2);
    EXPECT_EQ(splitRunItemId(65536 + 3 * 4096).ItemClass, 3);
}

TEST(VocabularyTest, TablesHaveTheirRowsWidthsAndSpellings) {
    EXPECT_EQ(sizeof kRunGroups, 7u * 128);
    EXPECT_EQ(sizeof kEntityNames, 48u * 64);
    EXPECT_EQ(sizeof kEntityPaths, 48u * 128);
    EXPECT_EQ(sizeof kAnalysisNames, 11u * 64);
    EXPECT_EQ(sizeof kComputationSubPaths, 11u * 128);
    EXPECT_STREQ(kRunGroups[0], "Material/");
    EXPECT_STREQ(kRunGroups[6], "Sequence/");
    EXPECT_STREQ(kEntityNames[0], "MeltEntrance");
    EXPECT_STREQ(kEntityNames[15], "Plastic");
    EXPECT_STREQ(kEntityNames[18], "PartInsert");
    EXPECT_STREQ(kEntityNames[47], "PaddleshiftBC");
    EXPECT_STREQ(kEntityPaths[47], "/Vantrell/Run%d/Entity/PaddleshiftBC/");
    EXPECT_STREQ(kEntitySubPaths[0], "MeltEntrance/");
    const char* const shift[] = {kAnalysisNames[7], kComputationNames[7]};
    for (const char* name : shift)
        EXPECT_STREQ(name, "PadddleShift");
    EXPECT_STREQ(kAnalysisPaths[7], "/Vantrell/Run%d/Analysis/PadddleShift/");
    EXPECT_STREQ(kComputationPaths[7], "/Vantrell/Run%d/Computation/PadddleShift/");
    EXPECT_STREQ(kAnalysisSubPaths[7], "PadddleShift/");
    EXPECT_STREQ(kComputationSubPaths[7], "PadddleShift/");
    EXPECT_STREQ(kComputationNames[10], "MoldDeformation");
    EXPECT_STREQ(kAnalysisPaths[0], "/Vantrell/Run%d/Analysis/Model/");
}

class StoreTest : public ::testing::Test {
protected:
    qrvtest::TempFolder folder;
    std::string file = folder.path("run.rsv");
    CRSVTool tool;
};

TEST_F(StoreTest, CreateRefusesAnExistingFileWithoutTouchingItAndOpenTakesOver) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    tool.Close();
    const std::string before = qrvtest::fileBytes(file);
    ASSERT_FALSE(before.empty());
    EXPECT_NE(tool.Create(file, 4, 13, 0), 0);
    EXPECT_EQ(qrvtest::fileBytes(file), before);
    EXPECT_EQ(tool.Open(file), 0);
    EXPECT_NE(tool.OpenGroup(1), nullptr);
}

// The category numbers belong to the run format (callers pass 1, 2 and 7 themselves): each opens
// its one group, and no other number opens anything.
TEST_F(StoreTest, CategoriesOneTwoAndSevenAreEntityMaterialAndDescription) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    ASSERT_NE(tool.CreateGroup(tool.OpenGroup(1), "Material"), nullptr);
    const auto pathOf = [](CRSVGroup* group) {
        if (!group) return std::string("(none)");
        char name[128] = {};
        H5Iget_name(group->ObjectId(), name, sizeof name);
        return std::string(name);
    };
    EXPECT_EQ(pathOf(tool.OpenGroup(1, 1)), "/Vantrell/Run1/Entity");
    EXPECT_EQ(pathOf(tool.OpenGroup(1, 2)), "/Vantrell/Run1/Material");
    EXPECT_EQ(pathOf(tool.OpenGroup(1, 7)), "/Vantrell/Run1/Description");
    for (int other : {-1, 0, 3, 4, 5, 6, 8, 9})
        EXPECT_EQ(tool.OpenGroup(1, other), nullptr) << other;
}

// The run and category groups are opened from HDF5 once per file and held until Close: a handle
// given back leaves the group open for the next ask.
TEST_F(StoreTest, ARunGroupStaysOpenFromItsFirstOpenToClose) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    tool.Close();
    const auto openGroups = [] { return H5Fget_obj_count(H5F_OBJ_ALL, H5F_OBJ_GROUP); };
    ASSERT_EQ(openGroups(), 0);
    ASSERT_EQ(tool.Open(file), 0);
    EXPECT_EQ(openGroups(), 0);
    for (int ask = 0; ask < 3; ++ask) {
        CRSVGroup* run = tool.OpenGroup(1);
        ASSERT_NE(run, nullptr);
        EXPECT_EQ(openGroups(), 1) << ask;  // the handle shares the held group
        EXPECT_EQ(tool.CloseGroup(run), 0);
        EXPECT_EQ(openGroups(), 1) << ask;
    }
    tool.Close();
    EXPECT_EQ(openGroups(), 0);
}

TEST_F(StoreTest, RunGroupIsMadeWithItsEntityAndDescriptionGroups) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    EXPECT_EQ(tool.OpenGroup(2, kCategoryMaterial), nullptr);  // never created by a category open
    EXPECT_EQ(tool.OpenGroup(2, kCategoryEntity), nullptr);
    EXPECT_EQ(tool.OpenGroup(0), nullptr);  // no run 0
    EXPECT_EQ(tool.OpenGroup(-1), nullptr);
    CRSVGroup* run = tool.OpenGroup(2);
    ASSERT_NE(run, nullptr);
    EXPECT_EQ(run->GetGroupCount(), 2u);
    EXPECT_NE(tool.OpenGroup(2, kCategoryEntity), nullptr);
    EXPECT_NE(tool.OpenGroup(2, kCategoryDescription), nullptr);
    EXPECT_EQ(tool.OpenGroup(2, kCategoryMaterial), nullptr);
    EXPECT_EQ(tool.OpenGroup(2, 3), nullptr);
    ASSERT_NE(tool.CreateGroup(run, "Material"), nullptr);
    EXPECT_NE(tool.OpenGroup(2, kCategoryMaterial), nullptr);
    tool.Close();
    // Seen by HDF5 itself.
    hid_t raw = H5Fopen(file.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
    ASSERT_GE(raw, 0);
    for (const char* path :
         {"/Vantrell/Run2/Entity", "/Vantrell/Run2/Description", "/Vantrell/Run2/Material"})
        EXPECT_GT(H5Lexists(raw, path, H5P_DEFAULT), 0) << path;
    H5Fclose(raw);
}

TEST_F(StoreTest, RelativePathsTakeTrailingSlashAndBackslash) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* entity = tool.OpenGroup(1, kCategoryEntity);
    ASSERT_NE(tool.OpenGroup(1), nullptr);
    entity = tool.OpenGroup(1, kCategoryEntity);
    ASSERT_NE(entity, nullptr);
    ASSERT_NE(tool.CreateGroup(entity, "Plastic\\Child0"), nullptr);
    EXPECT_NE(tool.OpenGroup(entity, "Plastic\\Child0"), nullptr);
    EXPECT_NE(tool.OpenGroup(entity, "Plastic/"), nullptr);
    EXPECT_NE(tool.OpenGroup(entity, "Plastic/Child0/"), nullptr);
    EXPECT_EQ(tool.OpenGroup(entity, "Plastic\\Child1"), nullptr);
    EXPECT_EQ(tool.OpenGroup(entity, ""), nullptr);
    EXPECT_EQ(tool.CreateGroup(entity, "Plastic"), nullptr);  // exists already
    EXPECT_EQ(tool.OpenGroup(nullptr, "Plastic"), nullptr);
}

TEST_F(StoreTest, TableItemsKeepTheirKindsAndAreNotCountedAsGroups) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* run = tool.OpenGroup(1);
    CRSVGroup* group = tool.CreateGroup(run, "Material");
    CRSVTable* table = tool.CreateTable(group, "Summary");
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->SetItem("Count", 42), 0);
    EXPECT_EQ(table->SetItem("Ratio", 0.125), 0);
    EXPECT_EQ(table->SetItem("Name", "PP"), 0);
    EXPECT_EQ(table->SetItem("Empty", std::string()), 0);
    EXPECT_EQ(table->SetItem("Count", 43), 0);  // replaced
    EXPECT_EQ(table->SetItem("Null", static_cast<const char*>(nullptr)), -1);
    EXPECT_EQ(table->SetItem("RSV_CLASS", 1), -1);
    EXPECT_EQ(tool.CloseTable(table), 0);
    EXPECT_EQ(tool.CloseTable(table), -1);  // given back already

    EXPECT_EQ(group->GetGroupCount(), 0u);
    EXPECT_EQ(tool.OpenGroup(group, "Summary"), nullptr);  // a table is not a group
    CRSVTable* again = tool.OpenTable(group, "Summary");
    ASSERT_NE(again, nullptr);
    int count = 0;
    double ratio = 0.0;
    std::string name = "x", empty = "x";
    EXPECT_EQ(again->GetItem("Count", &count), 0);
    EXPECT_EQ(again->GetItem("Ratio", &ratio), 0);
    EXPECT_EQ(again->GetItem("Name", &name), 0);
    EXPECT_EQ(again->GetItem("Empty", &empty), 0);
    EXPECT_EQ(count, 43);
    EXPECT_EQ(ratio, 0.125);
    EXPECT_EQ(name, "PP");
    EXPECT_EQ(empty, "");
    // A missing key or another kind leaves the output as it was.
    int wrong = 7;
    double wrongReal = 7.0;
    std::string wrongText = "kept";
    EXPECT_EQ(again->GetItem("Name", &wrong), -1);
    EXPECT_EQ(again->GetItem("Count", &wrongReal), -1);
    EXPECT_EQ(again->GetItem("Ratio", &wrongText), -1);
    EXPECT_EQ(again->GetItem("Missing", &wrong), -1);
    EXPECT_EQ(again->GetItem("Count", static_cast<int*>(nullptr)), -1);
    EXPECT_EQ(wrong, 7);
    EXPECT_EQ(wrongReal, 7.0);
    EXPECT_EQ(wrongText, "kept");
    EXPECT_EQ(tool.OpenTable(run, "Material"), nullptr);  // a group is not a table
}

// Callers name an element type by a number of the written format, 3 for a 32-bit signed integer
// and 8 for a double, and old programs pass the numbers themselves: the arrays they make must hold
// those HDF5 types, whatever the library calls the codes inside.
TEST_F(StoreTest, ElementCodeThreeMakesInt32AndEightMakesDoubleInTheFile) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* group = tool.CreateGroup(tool.OpenGroup(1), "Material");
    const int ints[] = {-7, 40000};
    const double reals[] = {0.25, -3.5};
    CRSVArray* three = tool.CreateArray(group, "Three", 3, 1, 2);
    CRSVArray* eight = tool.CreateArray(group, "Eight", 8, 2, 1);
    ASSERT_NE(three, nullptr);
    ASSERT_NE(eight, nullptr);
    EXPECT_EQ(three->WriteArray(ints), 0);
    EXPECT_EQ(eight->WriteArray(reals), 0);
    tool.Close();

    {
        qrvtest::RawFile raw(file);
        ASSERT_GE(raw.id(), 0);
        EXPECT_EQ(raw.elementType("/Vantrell/Run1/Material/Three"),
                  std::make_tuple(H5T_INTEGER, size_t{4}, H5T_SGN_2));
        EXPECT_EQ(raw.elementType("/Vantrell/Run1/Material/Eight"),
                  std::make_tuple(H5T_FLOAT, size_t{8}, H5T_SGN_ERROR));
        EXPECT_EQ(raw.dimensions("/Vantrell/Run1/Material/Three"), (std::vector<hsize_t>{1, 2}));
        EXPECT_EQ(raw.dimensions("/Vantrell/Run1/Material/Eight"), (std::vector<hsize_t>{2, 1}));
    }

    ASSERT_EQ(tool.Open(file), 0);
    CRSVGroup* again = tool.OpenGroup(tool.OpenGroup(1), "Material");
    ASSERT_NE(again, nullptr);
    CRSVArray* threeAgain = tool.OpenArray(again, "Three");
    CRSVArray* eightAgain = tool.OpenArray(again, "Eight");
    ASSERT_NE(threeAgain, nullptr);
    ASSERT_NE(eightAgain, nullptr);
    EXPECT_EQ(threeAgain->GetElementType(), 3);
    EXPECT_EQ(eightAgain->GetElementType(), 8);
}

TEST_F(StoreTest, OneRowArrayGivesOneAndItsElementCount) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* group = tool.CreateGroup(tool.OpenGroup(1), "Material");
    const double values[] = {1.5, 2.5, 3.5};
    CRSVArray* array = tool.CreateArray(group, "Vis Para", kTypeDouble, 1, 3);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(array->WriteArray(values), 0);
    EXPECT_EQ(tool.CloseArray(array), 0);
    const int ints[] = {-4, 9};
    CRSVArray* integers = tool.CreateArray(group, "Ints", kTypeInt32, 2, 1);
    ASSERT_NE(integers, nullptr);
    EXPECT_EQ(integers->WriteArray(ints), 0);
    EXPECT_EQ(tool.CreateArray(group, "Ints", kTypeInt32, 2, 1), nullptr);  // exists
    EXPECT_EQ(tool.CreateArray(group, "Bad", 5, 1, 1), nullptr);            // unknown type
    ASSERT_NE(tool.CreateArray(group, "Empty", kTypeDouble, 1, 0), nullptr);
    tool.CreateGroup(group, "Sub");
    EXPECT_EQ(group->GetArrayCount(), 3u);
    EXPECT_EQ(group->GetGroupCount(), 1u);

    CRSVArray* read = tool.OpenArray(group, "Vis Para");
    ASSERT_NE(read, nullptr);
    size_t rows = 0, columns = 0;
    EXPECT_EQ(read->GetDimension(&rows, &columns), 0);
    EXPECT_EQ(rows, 1u);
    EXPECT_EQ(columns, 3u);
    EXPECT_EQ(read->GetElementType(), kTypeDouble);
    double back[3] = {};
    EXPECT_EQ(read->ReadArray(back), 0);
    EXPECT_EQ(std::vector<double>(back, back + 3), std::vector<double>(values, values + 3));
    CRSVArray* readInts = tool.OpenArray(group, "Ints");
    ASSERT_NE(readInts, nullptr);
    EXPECT_EQ(readInts->GetElementType(), kTypeInt32);
    int intsBack[2] = {};
    EXPECT_EQ(readInts->ReadArray(intsBack), 0);
    EXPECT_EQ(intsBack[0], -4);
    EXPECT_EQ(intsBack[1], 9);
    EXPECT_EQ(read->ReadArray(nullptr), -1);
    EXPECT_EQ(tool.OpenArray(group, "Sub"), nullptr);  // a group is not an array
    EXPECT_EQ(tool.OpenArray(group, "Missing"), nullptr);
}

TEST_F(StoreTest, ATextMemberOfOneByteIsAMember) {
    // One byte holds the terminator alone: an empty text, but a member all the same.
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    const int type = tool.BeginCreateCompoundDataType(1);
    ASSERT_GE(type, 0);
    EXPECT_EQ(tool.AddCompoundDataTypeFixedLengthStringMember(type, "Flag", 0, 1), 0);
    EXPECT_EQ(tool.EndCreateCompoundDataType(type), 0);
}

TEST_F(StoreTest, IntegerArraysOfOtherWritersAreTakenByWidthAndSign) {
    {
        hid_t raw = H5Fcreate(file.c_str(), H5F_ACC_EXCL, H5P_DEFAULT, H5P_DEFAULT);
        ASSERT_GE(raw, 0);
        hid_t links = H5Pcreate(H5P_LINK_CREATE);
        H5Pset_create_intermediate_group(links, 1);
        hid_t group = H5Gcreate2(raw, "/Vantrell/Run1", links, H5P_DEFAULT, H5P_DEFAULT);
        const hsize_t dimensions[2] = {1, 2};
        hid_t space = H5Screate_simple(2, dimensions, nullptr);
        const int values[2] = {-3, 70000};
        for (auto [name, type] :
             {std::pair<const char*, hid_t>{"Big", H5T_STD_I32BE}, {"Unsigned", H5T_STD_U32LE}}) {
            hid_t set = H5Dcreate2(group, name, type, space, H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
            H5Dwrite(set, H5T_NATIVE_INT, H5S_ALL, H5S_ALL, H5P_DEFAULT, values);
            H5Dclose(set);
        }
        H5Sclose(space);
        H5Gclose(group);
        H5Pclose(links);
        H5Fclose(raw);
    }
    ASSERT_EQ(tool.Open(file), 0);
    CRSVGroup* run = tool.OpenGroup(1);
    // A 4-byte signed integer of either byte order is an int32 array, read as native ints.
    CRSVArray* big = tool.OpenArray(run, "Big");
    ASSERT_NE(big, nullptr);
    EXPECT_EQ(big->GetElementType(), kTypeInt32);
    int back[2] = {0, 0};
    EXPECT_EQ(big->ReadArray(back), 0);
    EXPECT_EQ(back[0], -3);
    EXPECT_EQ(back[1], 70000);
    // An unsigned one is not: a reader of int32 arrays would misread its upper half.
    CRSVArray* unsignedArray = tool.OpenArray(run, "Unsigned");
    ASSERT_NE(unsignedArray, nullptr);
    EXPECT_EQ(unsignedArray->GetElementType(), -1);
}

TEST_F(StoreTest, ATableMarkedAgainWithAnIntegerIsAGroupAgain) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* parent = tool.CreateGroup(tool.OpenGroup(1), "Parent");
    CRSVGroup* child = tool.CreateGroup(parent, "Child");
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(parent->GetGroupCount(), 1u);
    EXPECT_EQ(tool.WriteAttribute(child, "RSV_CLASS", "TABLE"), 0);
    EXPECT_EQ(parent->GetGroupCount(), 0u);
    EXPECT_NE(tool.OpenTable(parent, "Child"), nullptr);
    // The marker is a text "TABLE" or no marker: an integer one leaves a plain group.
    EXPECT_EQ(tool.WriteAttribute(child, "RSV_CLASS", 1), 0);
    EXPECT_EQ(parent->GetGroupCount(), 1u);
    EXPECT_EQ(tool.OpenTable(parent, "Child"), nullptr);
    EXPECT_NE(tool.OpenGroup(parent, "Child"), nullptr);
}

TEST_F(StoreTest, ArraysReadBackHoldAtMost2To20Values) {
    // A damaged file may declare any shape: a reader takes 1,048,576 values (8 MB) whole, in any
    // shape, and one more value in no shape at all.
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* group = tool.CreateGroup(tool.OpenGroup(1), "Arrays");
    ASSERT_NE(group, nullptr);
    constexpr std::size_t kLimit = std::size_t{1} << 20;
    std::vector<double> values(kLimit + 2, 0.5);
    values[kLimit - 1] = 7.0;
    const struct {
        const char* name;
        std::size_t rows, columns;
        bool read;
    } shapes[] = {{"Row", 1, kLimit, true},
                  {"Column", kLimit, 1, true},
                  {"Square", 1024, 1024, true},
                  {"RowPlusOne", 1, kLimit + 1, false},
                  {"ColumnPlusOne", kLimit + 1, 1, false},
                  {"TwoHalvesPlusOne", 2, kLimit / 2 + 1, false}};
    for (const auto& shape : shapes)
        qrv::runfile::writeDoubles(tool, group, shape.name, shape.rows, shape.columns,
                                   values.data());
    for (const auto& shape : shapes) {
        const auto back = qrv::runfile::readDoubles(tool, group, shape.name);
        EXPECT_EQ(back.has_value(), shape.read) << shape.name;
        if (!back || !shape.read) continue;
        EXPECT_EQ(back->Rows, shape.rows);
        EXPECT_EQ(back->Columns, shape.columns);
        ASSERT_EQ(back->Values.size(), kLimit);
        EXPECT_EQ(back->Values[kLimit - 1], 7.0);
        EXPECT_EQ(back->Values[0], 0.5);
    }
}

TEST_F(StoreTest, CompoundTypeHandlesStayApartFromTypeCodes) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* group = tool.CreateGroup(tool.OpenGroup(1), "Rows");
    EXPECT_EQ(tool.BeginCreateCompoundDataType(0), -1);
    const int type = tool.BeginCreateCompoundDataType(12);
    ASSERT_GE(type, 0);
    EXPECT_NE(type, kTypeInt32);
    EXPECT_NE(type, kTypeDouble);
    EXPECT_EQ(tool.AddCompoundDataTypeMember(type, "ID", kTypeInt32, 0), 0);
    EXPECT_EQ(tool.AddCompoundDataTypeFixedLengthStringMember(type, "Empty", 4, 0), -1);
    EXPECT_EQ(tool.AddCompoundDataTypeMember(type, "Code", 77, 4), -1);  // no such type code
    EXPECT_EQ(tool.AddCompoundDataTypeFixedLengthStringMember(type, "Value", 4, 8), 0);
    EXPECT_EQ(tool.AddCompoundDataTypeMember(type, "Late", kTypeInt32, 20), -1);  // outside
    EXPECT_EQ(tool.CreateArray(group, "Early", type, 1, 1), nullptr);  // not complete yet
    EXPECT_EQ(tool.EndCreateCompoundDataType(type), 0);
    EXPECT_EQ(tool.AddCompoundDataTypeMember(type, "After", kTypeInt32, 0), -1);
    EXPECT_EQ(tool.AddCompoundDataTypeFixedLengthStringMember(type, "After", 0, 4), -1);
    EXPECT_EQ(tool.EndCreateCompoundDataType(type), -1);  // complete already
    EXPECT_EQ(tool.AddCompoundDataTypeMember(type + 1, "X", kTypeInt32, 0), -1);
    EXPECT_EQ(tool.AddCompoundDataTypeFixedLengthStringMember(type + 1, "X", 0, 4), -1);
    CRSVArray* array = tool.CreateArray(group, "Result0", type, 2, 1);
    ASSERT_NE(array, nullptr);
    char rows[24] = {};
    rows[0] = 7;
    std::memcpy(rows + 4, "seven", 6);
    rows[12] = 8;
    std::memcpy(rows + 16, "eight", 6);
    EXPECT_EQ(array->WriteArray(rows), 0);
    size_t r = 0, c = 0;
    EXPECT_EQ(array->GetDimension(&r, &c), 0);
    EXPECT_EQ(r, 2u);
    EXPECT_EQ(c, 1u);
    EXPECT_EQ(array->GetElementType(), -1);
    char back[24] = {};
    EXPECT_EQ(array->ReadArray(back), 0);
    EXPECT_EQ(std::memcmp(rows, back, sizeof rows), 0);
}

// A row type built again and again, as a manipulator builds its description row for every
// material, and one that differs in a member: each handle makes arrays of its own layout.
TEST_F(StoreTest, CompoundTypesBuiltAgainServeTheirOwnHandles) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* group = tool.CreateGroup(tool.OpenGroup(1), "Rows");
    auto build = [this](size_t textBytes) {
        const int type = tool.BeginCreateCompoundDataType(4 + textBytes);
        tool.AddCompoundDataTypeMember(type, "ID", kTypeInt32, 0);
        tool.AddCompoundDataTypeFixedLengthStringMember(type, "Value", 4, textBytes);
        EXPECT_EQ(tool.EndCreateCompoundDataType(type), 0);
        return type;
    };
    const int first = build(8);
    const int again = build(8);
    const int wider = build(12);
    EXPECT_NE(first, again);
    EXPECT_NE(again, wider);
    // Completed: no member goes into any of them, nor into its twin.
    EXPECT_EQ(tool.AddCompoundDataTypeMember(again, "More", kTypeInt32, 0), -1);
    EXPECT_EQ(tool.EndCreateCompoundDataType(again), -1);

    const char rows[12] = {5, 0, 0, 0, 'f', 'i', 'v', 'e', 0, 0, 0, 0};
    const char wide[16] = {6, 0, 0, 0, 's', 'i', 'x', 0, 0, 0, 0, 0, 0, 0, 0, 0};
    ASSERT_EQ(tool.CreateArray(group, "First", first, 1, 1)->WriteArray(rows), 0);
    ASSERT_EQ(tool.CreateArray(group, "Again", again, 1, 1)->WriteArray(rows), 0);
    ASSERT_EQ(tool.CreateArray(group, "Wider", wider, 1, 1)->WriteArray(wide), 0);
    tool.Close();

    // Element sizes and the text of each, as HDF5 itself reads them.
    qrvtest::RawFile raw(file);
    for (const auto& [name, size, text] :
         {std::tuple<const char*, size_t, const char*>{"First", 12, "five"},
          {"Again", 12, "five"},
          {"Wider", 16, "six"}}) {
        const std::string path = std::string("/Vantrell/Run1/Rows/") + name;
        hid_t set = H5Dopen2(raw.id(), path.c_str(), H5P_DEFAULT);
        ASSERT_GE(set, 0) << name;
        hid_t type = H5Dget_type(set);
        EXPECT_EQ(H5Tget_size(type), size) << name;
        EXPECT_EQ(H5Tget_nmembers(type), 2) << name;
        std::vector<char> bytes(size, 'x');
        EXPECT_GE(H5Dread(set, type, H5S_ALL, H5S_ALL, H5P_DEFAULT, bytes.data()), 0);
        EXPECT_STREQ(bytes.data() + 4, text) << name;
        H5Tclose(type);
        H5Dclose(set);
    }
}

TEST_F(StoreTest, AttributesGoOnGroupsAndArrays) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* run = tool.OpenGroup(1);
    EXPECT_EQ(tool.WriteAttribute(run, "Material Type", 1), 0);
    EXPECT_EQ(tool.WriteAttribute(run, "Material Type", -1), 0);
    EXPECT_EQ(tool.WriteAttribute(run, "Material", "PP(Maker Grade)"), 0);
    EXPECT_EQ(tool.WriteAttribute(nullptr, "Material", "x"), -1);
    EXPECT_EQ(tool.WriteAttribute(run, "Material", static_cast<const char*>(nullptr)), -1);
    CRSVArray* array = tool.CreateArray(run, "Values", kTypeDouble, 1, 3);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(tool.WriteAttribute(array, "Material Type", 7), 0);
    EXPECT_EQ(tool.WriteAttribute(array, "Unit", "cm"), 0);
    tool.Close();
    qrvtest::RawFile raw(file);
    ASSERT_GE(raw.id(), 0);
    EXPECT_EQ(raw.intAttribute("/Vantrell/Run1", "Material Type"), -1);
    EXPECT_EQ(raw.textAttribute("/Vantrell/Run1", "Material"), "PP(Maker Grade)");
    // On the array itself, not on its group.
    EXPECT_EQ(raw.intAttribute("/Vantrell/Run1/Values", "Material Type"), 7);
    EXPECT_EQ(raw.textAttribute("/Vantrell/Run1/Values", "Unit"), "cm");
    EXPECT_EQ(raw.textAttribute("/Vantrell/Run1", "Unit"), "<missing>");
}

TEST_F(StoreTest, CloseReleasesHandlesStillOpenAndRefusesForeignOnes) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* run = tool.OpenGroup(1);
    CRSVGroup* left = tool.CreateGroup(run, "Material");
    CRSVTable* table = tool.CreateTable(left, "Summary");
    CRSVArray* array = tool.CreateArray(left, "A", kTypeDouble, 1, 1);
    ASSERT_NE(table, nullptr);
    ASSERT_NE(array, nullptr);
    CRSVTool other;
    EXPECT_EQ(other.CloseGroup(run), -1);
    EXPECT_EQ(other.CloseTable(table), -1);
    EXPECT_EQ(other.CloseArray(array), -1);
    EXPECT_EQ(tool.CloseGroup(nullptr), -1);
    tool.Close();
    // Everything was released: HDF5 has no object of the file left open, and it opens again.
    EXPECT_EQ(H5Fget_obj_count(H5F_OBJ_ALL, H5F_OBJ_ALL), 0);
    EXPECT_EQ(tool.Open(file), 0);
    EXPECT_EQ(tool.OpenGroup(1, kCategoryMaterial)->GetArrayCount(), 1u);
}

TEST_F(StoreTest, AClosedToolAnswersFailureValues) {
    EXPECT_EQ(tool.OpenGroup(1), nullptr);
    EXPECT_EQ(tool.OpenGroup(1, kCategoryMaterial), nullptr);
    EXPECT_NE(tool.Open(folder.path("missing.rsv")), 0);
    EXPECT_FALSE(qrvtest::fileExists(folder.path("missing.rsv")));
    EXPECT_NE(tool.Create(folder.path("no/such/folder.rsv"), 4, 13, 0), 0);
}

TEST_F(StoreTest, FailuresPrintNothing) {
    qrvtest::writeFile(file, "not an HDF5 file at all");
    ::testing::internal::CaptureStderr();
    EXPECT_NE(tool.Open(file), 0);
    EXPECT_NE(tool.Create(file, 4, 13, 0), 0);
    ASSERT_EQ(tool.Create(folder.path("ok.rsv"), 4, 13, 0), 0);
    CRSVGroup* run = tool.OpenGroup(1);
    EXPECT_EQ(tool.OpenGroup(run, "Missing/Deeper"), nullptr);
    EXPECT_EQ(tool.OpenArray(run, "Missing"), nullptr);
    EXPECT_EQ(tool.CreateGroup(run, "Entity"), nullptr);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_F(StoreTest, TheHostsOwnErrorPrintingIsPutBack) {
    H5E_auto2_t handler = nullptr;
    void* data = nullptr;
    H5Eget_auto2(H5E_DEFAULT, &handler, &data);
    EXPECT_NE(tool.Open(file), 0);
    H5E_auto2_t after = nullptr;
    void* afterData = nullptr;
    H5Eget_auto2(H5E_DEFAULT, &after, &afterData);
    EXPECT_EQ(after, handler);
    EXPECT_EQ(afterData, data);
}

}  // namespace

// Every call refuses a null handle, an empty name, the table marker as an item and a null output
// with its failure value, and writes nothing then.
TEST_F(StoreTest, NullHandlesEmptyNamesAndTheMarkerAreRefused) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* run = tool.OpenGroup(1);
    ASSERT_NE(run, nullptr);
    EXPECT_EQ(tool.CreateGroup(run, "/"), nullptr);  // nothing left of the name
    EXPECT_EQ(tool.CreateGroup(nullptr, "Group"), nullptr);
    EXPECT_EQ(tool.OpenGroup(nullptr, "Entity"), nullptr);
    EXPECT_EQ(tool.CreateTable(nullptr, "Table"), nullptr);
    EXPECT_EQ(tool.OpenTable(nullptr, "Table"), nullptr);
    EXPECT_EQ(tool.CreateArray(nullptr, "Array", kTypeDouble, 1, 1), nullptr);
    EXPECT_EQ(tool.CreateArray(run, "", kTypeDouble, 1, 1), nullptr);
    EXPECT_EQ(tool.OpenArray(nullptr, "Array"), nullptr);
    EXPECT_EQ(tool.OpenArray(run, ""), nullptr);
    EXPECT_EQ(tool.WriteAttribute(run, "", 1), -1);  // HDF5 has no attribute without a name

    CRSVTable* table = tool.CreateTable(run, "Table");
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->SetItem("", 5), -1);
    EXPECT_EQ(table->SetItem("RSV_CLASS", 5), -1);
    EXPECT_EQ(table->SetItem("Count", 5), 0);
    int number = 7;
    EXPECT_EQ(table->GetItem("RSV_CLASS", &number), -1);
    EXPECT_EQ(number, 7);
    EXPECT_EQ(table->GetItem("Count", static_cast<int*>(nullptr)), -1);
    EXPECT_EQ(table->GetItem("Count", static_cast<std::string*>(nullptr)), -1);
    EXPECT_EQ(table->GetItem("Count", &number), 0);
    EXPECT_EQ(number, 5);

    CRSVArray* array = tool.CreateArray(run, "Values", kTypeDouble, 1, 2);
    ASSERT_NE(array, nullptr);
    size_t rows = 9;
    EXPECT_EQ(array->GetDimension(nullptr, &rows), -1);
    EXPECT_EQ(rows, 9u);
    EXPECT_EQ(array->GetDimension(&rows, nullptr), -1);
    EXPECT_EQ(rows, 9u);
    tool.Close();

    // None of it reached the file: the run group holds its two groups, the table and the array.
    hid_t raw = H5Fopen(file.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
    ASSERT_GE(raw, 0);
    H5G_info_t info{};
    EXPECT_GE(H5Gget_info_by_name(raw, "/Vantrell/Run1", &info, H5P_DEFAULT), 0);
    EXPECT_EQ(info.nlinks, 4u);
    H5O_info_t table_info{};
    EXPECT_GE(H5Oget_info_by_name2(raw, "/Vantrell/Run1/Table", &table_info, H5O_INFO_NUM_ATTRS,
                                   H5P_DEFAULT),
              0);
    EXPECT_EQ(table_info.num_attrs, 2u);  // the marker and Count
    H5Fclose(raw);
}

TEST_F(StoreTest, TheTableMarkerIsNoItem) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVTable* table = tool.CreateTable(tool.CreateGroup(tool.OpenGroup(1), "Material"), "T");
    ASSERT_NE(table, nullptr);
    std::string text = "kept";
    EXPECT_EQ(table->GetItem("RSV_CLASS", &text), -1);
    EXPECT_EQ(text, "kept");
}

TEST_F(StoreTest, FailureValuesAreMinusOne) {
    EXPECT_EQ(tool.WriteAttribute(nullptr, "Material Type", 1), -1);
    // A file that carries the HDF5 signature and nothing else is taken for HDF5 and then cannot
    // be opened.
    qrvtest::writeFile(file, std::string("\x89HDF\r\n\x1a\n", 8));
    EXPECT_EQ(tool.Open(file), -1);
    EXPECT_EQ(tool.OpenGroup(1), nullptr);
}

TEST_F(StoreTest, TextsAreStoredWithTheirTerminator) {
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* run = tool.OpenGroup(1);
    ASSERT_EQ(tool.WriteAttribute(run, "Material", "PP"), 0);
    tool.Close();
    hid_t raw = H5Fopen(file.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
    ASSERT_GE(raw, 0);
    hid_t attribute = H5Aopen_by_name(raw, "/Vantrell/Run1", "Material", H5P_DEFAULT, H5P_DEFAULT);
    ASSERT_GE(attribute, 0);
    hid_t type = H5Aget_type(attribute);
    EXPECT_EQ(H5Tget_size(type), 3u);  // "PP" and its NUL
    EXPECT_EQ(H5Tget_strpad(type), H5T_STR_NULLTERM);
    H5Tclose(type);
    H5Aclose(attribute);
    H5Fclose(raw);
}

TEST_F(StoreTest, VariableLengthTextItemsOfOtherWritersAreRead) {
    // Another program may store a text item as an HDF5 variable-length string.
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    ASSERT_NE(tool.CreateTable(tool.CreateGroup(tool.OpenGroup(1), "Material"), "Summary"),
              nullptr);
    tool.Close();
    hid_t raw = H5Fopen(file.c_str(), H5F_ACC_RDWR, H5P_DEFAULT);
    ASSERT_GE(raw, 0);
    hid_t group = H5Gopen2(raw, "/Vantrell/Run1/Material/Summary", H5P_DEFAULT);
    ASSERT_GE(group, 0);
    hid_t type = H5Tcopy(H5T_C_S1);
    H5Tset_size(type, H5T_VARIABLE);
    hid_t space = H5Screate(H5S_SCALAR);
    hid_t attribute = H5Acreate2(group, "Polymer", type, space, H5P_DEFAULT, H5P_DEFAULT);
    const char* text = "Polyamide 66";
    EXPECT_GE(H5Awrite(attribute, type, &text), 0);
    H5Aclose(attribute);
    H5Sclose(space);
    H5Tclose(type);
    H5Gclose(group);
    H5Fclose(raw);

    ASSERT_EQ(tool.Open(file), 0);
    CRSVTable* table = tool.OpenTable(tool.OpenGroup(1, kCategoryMaterial), "Summary");
    ASSERT_NE(table, nullptr);
    std::string read;
    EXPECT_EQ(table->GetItem("Polymer", &read), 0);
    EXPECT_EQ(read, "Polyamide 66");
}
