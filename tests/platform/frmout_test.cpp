// The print tree: line form, depth, values, the line count, ownership and the module table.
#include <gtest/gtest.h>

#include <quorvalib/frmout.h>

#include <string>

namespace {

TEST(FrmOut, PrintsDepthFirstWithTwoBlanksPerLevel) {
    QRVFrmOut_PrintEntry root, section, line, deeper;
    root.SetLabel("Root");
    section.SetLabel("Section");
    line.SetLabel("Line");
    deeper.SetLabel("Deeper");
    QRVFrmOut_String text("value");
    QRVFrmOut_Integer number(-42);
    line.SelectValue(&text);
    deeper.SelectValue(&number);
    line.AddSubPrintEntry(&deeper);
    section.AddSubPrintEntry(&line);
    root.AddSubPrintEntry(&section);
    root.AddSubPrintEntry(&line);

    QRVFrmOut_StringStream stream;
    EXPECT_EQ(root.Print(0, stream), 6);
    EXPECT_EQ(stream.str(),
              "Root\n"
              "  Section\n"
              "    Line : value\n"
              "      Deeper : -42\n"
              "  Line : value\n"
              "    Deeper : -42\n");
    QRVFrmOut_StringStream indented;
    EXPECT_EQ(deeper.Print(2, indented), 1);
    EXPECT_EQ(indented.str(), "    Deeper : -42\n");
}

TEST(FrmOut, LabelIsCopiedAndNullsAreEmpty) {
    QRVFrmOut_PrintEntry entry;
    char buffer[] = "first";
    entry.SetLabel(buffer);
    buffer[0] = 'X';
    QRVFrmOut_String empty(nullptr);
    EXPECT_EQ(entry.SelectValue(&empty), nullptr);
    QRVFrmOut_StringStream stream;
    entry.Print(0, stream);
    EXPECT_EQ(stream.str(), "first : \n");
    entry.SetLabel(nullptr);
    EXPECT_EQ(entry.SelectValue(nullptr), &empty);
    stream.Clear();
    EXPECT_EQ(entry.Print(-3, stream), 1);
    EXPECT_EQ(stream.str(), "\n");
}

TEST(FrmOut, RefusesNullAndItselfAndStopsAtACycle) {
    QRVFrmOut_PrintEntry a, b;
    a.SetLabel("a");
    b.SetLabel("b");
    EXPECT_FALSE(a.AddSubPrintEntry(nullptr));
    EXPECT_FALSE(a.AddSubPrintEntry(&a));
    EXPECT_TRUE(a.AddSubPrintEntry(&b));
    EXPECT_TRUE(b.AddSubPrintEntry(&a));
    QRVFrmOut_StringStream stream;
    EXPECT_EQ(a.Print(0, stream), -1);
    QRVFrmOut_StringStream deep;
    EXPECT_EQ(b.Print(1001, deep), -1);
    EXPECT_EQ(deep.str(), "");
}

TEST(FrmOut, DeleterReleasesWhatItWasGiven) {
    // Under the address sanitizer a missed release shows as a leak, a double one as an error.
    QRVFrmOut_Deleter deleter;
    auto* entry = new QRVFrmOut_PrintEntry;
    auto* value = new QRVFrmOut_String("v");
    entry->SelectValue(value);
    deleter.ManageEntry(entry);
    deleter.ManageValue(value);
    deleter.ManageEntry(nullptr);
    deleter.ManageValue(nullptr);
    QRVFrmOut_StringStream stream;
    EXPECT_EQ(entry->Print(0, stream), 1);
    EXPECT_EQ(stream.str(), " : v\n");
}

TEST(FrmOut, ModuleNumbers) {
    const std::pair<const char*, int> modules[] = {
        {"Filling", 1},    {"Packing", 2},   {"Cooling", 3},    {"Warpage", 4},
        {"RIMFilling", 5}, {"RIMCuring", 6}, {"Filling3D", 11}, {"Cooling3D", 12},
        {"Warpage3D", 13}, {"RIM3D", 14},    {"Packing3D", 15}, {"filling", 0},
        {"Filling ", 0},   {"", 0},          {"Flow", 0}};
    for (const auto& [name, number] : modules)
        EXPECT_EQ(QRVFrmOut_TranslateModuleName(name), number) << name;
    EXPECT_EQ(QRVFrmOut_TranslateModuleName(nullptr), 0);
}

}  // namespace

TEST(FrmOut, StreamAppendsTextsAndSkipsANullOne) {
    QRVFrmOut_StringStream stream;
    stream.Append("Melt ");
    stream.Append(static_cast<const char*>(nullptr));
    stream.Append(std::string("temperature"));
    EXPECT_EQ(stream.str(), "Melt temperature");
}

TEST(FrmOut, LabelReadsBackAsSet) {
    QRVFrmOut_PrintEntry entry;
    EXPECT_EQ(entry.GetLabel(), "");
    char buffer[] = "Mold temperature";
    entry.SetLabel(buffer);
    buffer[0] = 'X';  // the entry keeps its own copy
    EXPECT_EQ(entry.GetLabel(), "Mold temperature");
    entry.SetLabel(nullptr);
    EXPECT_EQ(entry.GetLabel(), "");
}
