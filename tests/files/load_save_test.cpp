// The file entry points through real files: names, the lead word's choice of form, what becomes of
// existing files, every return code, the facade's calls, and damaged files of every kind.
#include <gtest/gtest.h>

#include <quorvalib/files.h>
#include <quorvalib/manipulator.h>
#include <quorvalib/measured.h>

#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "formats/frame_builder.h"
#include "record/material_internal.h"
#include "support/byte_builder.h"
#include "support/material_ptr.h"
#include "support/temp_files.h"

using qrvtest::Bytes;
using qrvtest::fileBytes;
using qrvtest::fileExists;
using qrvtest::MaterialPtr;
using qrvtest::Sample;
using qrvtest::writeFile;

namespace {

// A frame of the given class with a type word of 0 (as a bank add writes it), so that the
// thermoset correction shows in FileType.
std::string frameFile(int objType = 1, const std::string& polymer = "EP", int leadWord = 9051) {
    Sample s;
    s.objType = objType;
    s.bodyVer = objType == 1 ? 9018 : 9012;
    s.typeWord = 0;
    s.texts = {polymer, "Maker", "Grade", "", ""};
    s.blocks[objType == 2 ? 2 : 0] = {1, 2, {3.0, 4.0}};
    const auto& body = objType == 1   ? qrvtest::kRIMBody
                       : objType == 2 ? qrvtest::kNonPolyBody
                                      : qrvtest::kPlasticBody;
    return Bytes().word(leadWord).str() + s.frame(body);
}

// An old fixed block of 2624 bytes: version word, dates, seven codes, the '$' texts and values.
std::string legacyBlock(std::int32_t versionWord, const std::vector<std::int32_t>& codes,
                        const std::string& texts, const std::vector<double>& values) {
    Bytes b;
    b.word(versionWord).word(19990101).word(19980101);
    for (std::int32_t code : codes)
        b.word(code);
    std::string bytes = b.str();
    bytes.resize(64, '\0');
    bytes += texts;
    bytes.resize(576, '\0');
    bytes += Bytes().reals(values).str();
    bytes.resize(2624, '\0');
    return bytes;
}

// Vis with two values, every other block empty; Mech of model 0 is empty too.
std::string typicalLegacy(std::int32_t versionWord) {
    return legacyBlock(versionWord,
                       {10000102, 10000100, 10000100, 10000100, 10000000, 10000100, 10000100},
                       "Old$Maker$Grade$Note$Archive$", {2.5, 3.5});
}

MaterialPtr newRecord(int fileType, int fileVer) {
    MaterialPtr m = qrvtest::adopt(new QrvMaterial);
    QrvInitMaterial(m.get());
    m->FileType = fileType;
    m->FileVer = fileVer;
    m->Polymer = qrv::newText("PP");
    m->Producer = qrv::newText("Maker");
    m->GradeName = qrv::newText("Grade");
    m->Comment = qrv::newText("");
    qrvtest::setBlock(m->Vis, 2, {1.0, 2.0});
    return m;
}

MaterialPtr get(const std::string& path) {
    return qrvtest::adopt(QrvGetMaterial(path.c_str()));
}

// Whether a loaded record holds a fibre fraction above 0 at the place its Mech model keeps it.
bool fibreAbove0(const QrvMaterial& m) {
    const int place = m.Mech.Model == 2 ? 9 : m.Mech.Model >= 3 && m.Mech.Model <= 5 ? 4 : -1;
    return place >= 0 && m.Mech.Para && m.Mech.Count > place && m.Mech.Para[place] > 0.0;
}

}  // namespace

TEST(LoadSave, AGoodFileOfAShortNameIsStillRefused) {
    qrvtest::TempFolder folder;
    qrvtest::WorkingFolder here(folder.root());
    MaterialPtr m = newRecord(1, 7101);
    ASSERT_EQ(QrvSaveMaterial("a.mtr", m.get()), 1);
    std::filesystem::copy_file("a.mtr", "a.mt");
    EXPECT_EQ(QrvGetMaterial("a.mt"), nullptr);
    EXPECT_EQ(QrvGetMaterialRIM("a.mt"), nullptr);
    // The same bytes under five characters load, by either call.
    EXPECT_NE(get("a.mtr"), nullptr);
    EXPECT_NE(qrvtest::adopt(QrvGetMaterialRIM("a.mtr")), nullptr);
}

// A process started without standard input gets descriptor 0 from its next open.
TEST(LoadSave, DescriptorZeroIsAFileLikeAnyOther) {
    qrvtest::TempFolder folder;
    qrvtest::WorkingFolder here(folder.root());
    MaterialPtr m = newRecord(1, 7101);
    ASSERT_EQ(QrvSaveMaterial("old.mtr", m.get()), 1);
    writeFile("old.mat", "an old name with content");
    const int input = ::dup(0);
    ASSERT_GE(input, 0);
    ::close(0);
    MaterialPtr byOldName = get("old.mat");
    MaterialPtr byName = get("old.mtr");
    ::dup2(input, 0);
    ::close(input);
    EXPECT_NE(byOldName, nullptr);
    EXPECT_NE(byName, nullptr);
}

TEST(LoadSave, NamesOfFourCharactersOrFewerAreRefusedBeforeAnyFileAccess) {
    qrvtest::TempFolder folder;
    qrvtest::WorkingFolder here(folder.root());
    MaterialPtr m = newRecord(1, 7101);
    writeFile("a.b", "untouched");  // an existing file of a short name is neither read nor removed
    for (const char* name : {"a.b", "a.mt", "", "x"}) {
        EXPECT_EQ(QrvGetMaterial(name), nullptr) << name;
        EXPECT_EQ(QrvGetMaterialRIM(name), nullptr) << name;
        EXPECT_EQ(QrvSaveMaterial(name, m.get()), -3) << name;
        EXPECT_EQ(QrvSaveMaterialRIM(name, m.get()), -3) << name;
        EXPECT_FALSE(QrvMatHasFiber(name)) << name;
        EXPECT_EQ(fileExists(name), std::string(name) == "a.b") << name;
    }
    EXPECT_EQ(fileBytes("a.b"), "untouched");
    EXPECT_EQ(QrvGetMaterial(nullptr), nullptr);
    EXPECT_EQ(QrvSaveMaterial(nullptr, m.get()), -3);
    EXPECT_FALSE(QrvMatHasFiber(nullptr));
    // The record is tested first.
    EXPECT_EQ(QrvSaveMaterial("a.b", nullptr), -1);
    EXPECT_EQ(QrvSaveMaterialRIM(nullptr, nullptr), -1);
    EXPECT_EQ(QrvSaveMaterial("a.mtr", nullptr), -1);
    EXPECT_FALSE(fileExists("a.mtr"));
    // Five characters go on.
    EXPECT_EQ(QrvSaveMaterial("a.mtr", m.get()), 1);
    auto back = get("a.mtr");
    ASSERT_NE(back, nullptr);
    EXPECT_STREQ(back->Polymer, "PP");
    EXPECT_EQ(qrvtest::values(back->Vis), (std::vector<double>{1.0, 2.0}));
}

TEST(LoadSave, ThermosetNamesChooseTheThermosetLoad) {
    qrvtest::TempFolder folder;
    qrvtest::WorkingFolder here(folder.root());
    const std::string bytes = frameFile(1);
    struct Case {
        const char* name;
        int fileType;
    };
    const Case cases[] = {{"mtxdata", 2},  {"mm.tx", 0}, {"X.MTX", 2},
                          {"a.mtxbak", 2}, {"a.mTx", 2}, {"b.mtr", 0}};
    for (const Case& c : cases) {
        writeFile(c.name, bytes);
        auto material = get(c.name);
        ASSERT_NE(material, nullptr) << c.name;
        EXPECT_EQ(material->FileType, c.fileType) << c.name;
        EXPECT_EQ(qrvtest::values(material->Vis), (std::vector<double>{3.0, 4.0}));
    }
    // The thermoset load itself does not look at the name.
    auto rim = qrvtest::adopt(QrvGetMaterialRIM("b.mtr"));
    ASSERT_NE(rim, nullptr);
    EXPECT_EQ(rim->FileType, 2);
}

TEST(LoadSave, OldEndingsReadTheCurrentName) {
    qrvtest::TempFolder folder;
    const std::string emc = folder.path("x.emc"), mtx = folder.path("x.mtx");
    writeFile(emc, "the old name only has to exist");
    writeFile(mtx, frameFile(1, "Current"));
    // The ending as given decides the thermoset load: ".emc" is not a thermoset name.
    auto plain = get(emc);
    ASSERT_NE(plain, nullptr);
    EXPECT_STREQ(plain->Polymer, "Current");
    EXPECT_EQ(plain->FileType, 0);
    auto rim = qrvtest::adopt(QrvGetMaterialRIM(emc.c_str()));
    ASSERT_NE(rim, nullptr);
    EXPECT_EQ(rim->FileType, 2);

    // Only the last two letters change, to lower case: y.MAT is read from y.Mtr.
    const std::string mat = folder.path("y.MAT"), mtr = folder.path("y.Mtr");
    writeFile(mat, "old");
    writeFile(folder.path("y.mtr"), frameFile(0, "wrong case"));
    writeFile(folder.path("y.MTR"), frameFile(0, "wrong case"));
    writeFile(mtr, frameFile(0, "Mapped"));
    auto mapped = get(mat);
    ASSERT_NE(mapped, nullptr);
    EXPECT_STREQ(mapped->Polymer, "Mapped");
}

TEST(LoadSave, OldNameWithoutCurrentFileLeavesAnEmptyFileBehind) {
    qrvtest::TempFolder folder;
    const std::string mat = folder.path("x.mat"), mtr = folder.path("x.mtr");
    writeFile(mat, frameFile(0, "Old"));
    EXPECT_EQ(get(mat), nullptr);
    ASSERT_TRUE(fileExists(mtr));
    EXPECT_EQ(fileBytes(mtr), "");
    EXPECT_EQ(get(mat), nullptr);  // and the empty file reads short again

    // Without x.mat the load ends at once, even though a z.mtr exists.
    const std::string z = folder.path("z.mtr");
    writeFile(z, frameFile(0, "Current"));
    EXPECT_EQ(get(folder.path("z.mat")), nullptr);
    EXPECT_FALSE(fileExists(folder.path("z.mat")));
    EXPECT_EQ(fileBytes(z), frameFile(0, "Current"));
}

TEST(LoadSave, SavingToAnOldNameIsNotReadBack) {
    qrvtest::TempFolder folder;
    const std::string mat = folder.path("x.mat");
    MaterialPtr m = newRecord(1, 7101);
    ASSERT_EQ(QrvSaveMaterial(mat.c_str(), m.get()), 1);
    EXPECT_TRUE(fileExists(mat));
    EXPECT_FALSE(fileExists(folder.path("x.mtr")));
    EXPECT_EQ(get(mat), nullptr);
}

TEST(LoadSave, MissingOrEmptyFilesGiveNull) {
    qrvtest::TempFolder folder;
    EXPECT_EQ(get(folder.path("none.mtr")), nullptr);
    EXPECT_FALSE(fileExists(folder.path("none.mtr")));
    writeFile(folder.path("empty.mtr"), "");
    EXPECT_EQ(get(folder.path("empty.mtr")), nullptr);
    EXPECT_EQ(get(folder.root().string()), nullptr);  // a folder has no content to read
}

TEST(LoadSave, OldNameWhoseCurrentFileCannotBeMadeGivesNull) {
    // x.mat has content, so the load goes on to x.mtr; x.mtr is a link into a folder that does
    // not exist, so it can neither be read nor created empty.
    qrvtest::TempFolder folder;
    const std::string mat = folder.path("x.mat"), mtr = folder.path("x.mtr");
    writeFile(mat, frameFile(0, "Old"));
    std::filesystem::create_symlink(folder.path("missing/x.mtr"), mtr);
    EXPECT_EQ(get(mat), nullptr);
    EXPECT_FALSE(std::filesystem::exists(folder.path("missing")));
    EXPECT_EQ(fileBytes(mat), frameFile(0, "Old"));
}

TEST(LoadSave, LeadWordChoosesTheForm) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("lead.mtr");
    // A current frame padded to a whole old block: read as an old block, its codes are short.
    for (std::int32_t word : {9051, 19051, 29051, 9999, 9050, 17101, 0, -9051, -1,
                              std::numeric_limits<std::int32_t>::min()}) {
        std::string bytes = frameFile(0, "Frame", word);
        bytes.resize(2624, '\0');
        writeFile(path, bytes);
        auto material = get(path);
        const bool current = word >= 0 && word % 10000 >= 9051;
        if (current) {
            ASSERT_NE(material, nullptr) << word;
            EXPECT_STREQ(material->Polymer, "Frame") << word;
        } else {
            EXPECT_EQ(material, nullptr) << word;
        }
    }
    // Old blocks whose version word is such a lead word.
    for (std::int32_t word : {17101, 9050, 19005, 7101}) {
        writeFile(path, typicalLegacy(word));
        auto material = get(path);
        ASSERT_NE(material, nullptr) << word;
        EXPECT_STREQ(material->Polymer, "Old");
        EXPECT_STREQ(material->Source, "Archive");
        EXPECT_EQ(material->FileType, word / 10000);
        EXPECT_EQ(material->FileVer, word % 10000);
        EXPECT_EQ(material->LastEditDate, 19990101);
        EXPECT_EQ(qrvtest::values(material->Vis), (std::vector<double>{2.5, 3.5}));
    }
}

TEST(LoadSave, DamagedOldBlocksGiveNull) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("old.mtr");
    // Short: 100 bytes of a good block.
    writeFile(path, typicalLegacy(17101).substr(0, 100));
    EXPECT_EQ(get(path), nullptr);
    // A code of fewer than eight digits, and counts past the 256 values.
    writeFile(path, legacyBlock(17101, {10000102, 102, 0, 0, 0, 0, 0}, "A$B$C$D$E$", {1, 2}));
    EXPECT_EQ(get(path), nullptr);
    writeFile(
        path,
        legacyBlock(17101, {10000199, 10000199, 10000199, 10000100, 10000000, 10000100, 10000100},
                    "A$B$C$D$E$", {}));
    EXPECT_EQ(get(path), nullptr);
    // A thermoset load reads the fifth code as KN and stops there.
    writeFile(path, legacyBlock(29000, {10000101, 10000100, 10000100, 10000100, 10000201, 1, 1},
                                "A$B$C$D$E$", {7.0, 8.0}));
    auto rim = qrvtest::adopt(QrvGetMaterialRIM(path.c_str()));
    ASSERT_NE(rim, nullptr);
    EXPECT_EQ(rim->FileType, 2);
    EXPECT_EQ(qrvtest::values(rim->KN), (std::vector<double>{8.0}));
}

TEST(LoadSave, ExistingFileIsDeletedBeforeTheNewOneIsWritten) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("old.mtr"), link = folder.path("link");
    writeFile(path, "old content");
    std::filesystem::create_hard_link(path, link);
    MaterialPtr m = newRecord(1, 7101);
    ASSERT_EQ(QrvSaveMaterial(path.c_str(), m.get()), 1);
    // Truncating in place would have changed the linked file too.
    EXPECT_EQ(fileBytes(link), "old content");
    EXPECT_EQ(qrvtest::wordAt(fileBytes(path), 0), 9051);
}

TEST(LoadSave, FailedOpenForWritingGivesZeroOnlyInThePlainSave) {
    qrvtest::TempFolder folder;
    MaterialPtr m = newRecord(1, 7101);
    // A folder that holds a file: it opens for reading, cannot be removed, cannot be written.
    const std::string taken = folder.path("taken.mtr");
    std::filesystem::create_directory(taken);
    writeFile(taken + "/inside", "x");
    EXPECT_EQ(QrvSaveMaterial(taken.c_str(), m.get()), 0);
    EXPECT_EQ(QrvSaveMaterialRIM(taken.c_str(), m.get()), 1);
    EXPECT_TRUE(std::filesystem::is_directory(taken));
    // An empty folder named with a closing "/": it opens for reading and is removed, and then no
    // file can be created under a name that ends in "/". What stood there is lost.
    for (bool rim : {false, true}) {
        const std::string lost = folder.path(rim ? "lost.mtx" : "lost.mtr");
        std::filesystem::create_directory(lost);
        const std::string name = lost + "/";
        EXPECT_EQ(rim ? QrvSaveMaterialRIM(name.c_str(), m.get())
                      : QrvSaveMaterial(name.c_str(), m.get()),
                  rim ? 1 : 0);
        EXPECT_FALSE(std::filesystem::exists(lost));
    }
    // A folder that does not exist.
    const std::string nowhere = folder.path("no/such/folder.mtr");
    EXPECT_EQ(QrvSaveMaterial(nowhere.c_str(), m.get()), 0);
    EXPECT_EQ(QrvSaveMaterialRIM(nowhere.c_str(), m.get()), 1);
    EXPECT_FALSE(fileExists(nowhere));
}

TEST(LoadSave, UnwritableRecordIsRefusedAndTheOldFileKept) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("keep.mtr");
    writeFile(path, "old content");
    MaterialPtr m = newRecord(1, 9010);
    m->Cp.Count = 3;  // values promised, none there
    EXPECT_EQ(QrvSaveMaterial(path.c_str(), m.get()), -1);
    EXPECT_EQ(QrvSaveMaterialRIM(path.c_str(), m.get()), -1);
    MaterialPtr fresh = qrvtest::adopt(new QrvMaterial);
    QrvInitMaterial(fresh.get());  // null texts
    EXPECT_EQ(QrvSaveMaterial(path.c_str(), fresh.get()), -1);
    EXPECT_EQ(fileBytes(path), "old content");
}

// An old block of a version that carries MTC data in the current form has none to give: the
// material still saves, with an empty MTC section, and reads back.
TEST(LoadSave, OldBlockOfALateVersionSavesWithAnEmptyMTCSection) {
    qrvtest::TempFolder folder;
    const std::string old = folder.path("late.mtr");
    const std::string saved = folder.path("late-saved.mtr");
    writeFile(old, typicalLegacy(19012));
    MaterialPtr m = get(old);
    ASSERT_NE(m, nullptr);
    EXPECT_EQ(m->FileVer, 9012);
    EXPECT_EQ(m->MTC, nullptr);
    ASSERT_EQ(QrvSaveMaterial(saved.c_str(), m.get()), 1);
    MaterialPtr back = get(saved);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->FileVer, 9012);
    EXPECT_EQ(qrvtest::values(back->Vis), (std::vector<double>{2.5, 3.5}));
    ASSERT_NE(back->MTC, nullptr);
    int version = -1, count = -1;
    QrvGetMTCInfo(back.get(), version, count);
    EXPECT_EQ(version, 0);
    EXPECT_EQ(count, 0);
    // The section is the list's version and record count, both 0, in front of CR and PW.
    const std::string bytes = fileBytes(saved);
    const std::string emptyBlock = Bytes().word(0).word(0).word(0).str();
    const std::string tail = Bytes().word(0).word(0).str() + emptyBlock + emptyBlock;
    ASSERT_GE(bytes.size(), tail.size());
    EXPECT_EQ(bytes.substr(bytes.size() - tail.size()), tail);
}

TEST(LoadSave, AnOldBlockOfTypeDigit0ComesBackAThermosetThroughTheThermosetLoad) {
    // The old form has no type word to correct: its type digit 0 stays FileType 0 in either
    // load. Saved, FileType 0 writes a non-polymer frame with type word 0, which the thermoset
    // load corrects to FileType 2 and the plain load leaves at 0.
    qrvtest::TempFolder folder;
    const std::string old = folder.path("digit0.mtx");
    const std::string saved = folder.path("digit0-saved.mtr");  // the plain load reads it plain
    writeFile(old, typicalLegacy(9043));
    MaterialPtr first = qrvtest::adopt(QrvGetMaterialRIM(old.c_str()));
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->FileType, 0);
    EXPECT_EQ(first->FileVer, 9043);
    ASSERT_EQ(QrvSaveMaterialRIM(saved.c_str(), first.get()), 1);
    const std::string bytes = fileBytes(saved);
    EXPECT_EQ(qrvtest::wordAt(bytes, 8), 2);   // CQrvNonPolyMat
    EXPECT_EQ(qrvtest::wordAt(bytes, 20), 0);  // TypeWord
    MaterialPtr corrected = qrvtest::adopt(QrvGetMaterialRIM(saved.c_str()));
    ASSERT_NE(corrected, nullptr);
    EXPECT_EQ(corrected->FileType, QRV_TYPE_THERMOSET);
    EXPECT_EQ(corrected->FileVer, 9043);
    MaterialPtr plain = get(saved);
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(plain->FileType, 0);
}

TEST(LoadSave, ObjectClassFollowsTheFileTypeNotTheCall) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("metal.mtx");
    MaterialPtr m = newRecord(3, 7101);
    ASSERT_EQ(QrvSaveMaterialRIM(path.c_str(), m.get()), 1);
    const std::string bytes = fileBytes(path);
    EXPECT_EQ(qrvtest::wordAt(bytes, 0), 9051);
    EXPECT_EQ(qrvtest::wordAt(bytes, 8), 2);   // CQrvNonPolyMat
    EXPECT_EQ(qrvtest::wordAt(bytes, 20), 3);  // TypeWord
    MaterialPtr rim = newRecord(2, 9018);
    ASSERT_EQ(QrvSaveMaterial(path.c_str(), rim.get()), 1);
    EXPECT_EQ(qrvtest::wordAt(fileBytes(path), 8), 1);
}

TEST(LoadSave, SaveWritesTheLeadWordWhateverTheVersion) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("old.mtr");
    MaterialPtr m = newRecord(1, 7101);
    ASSERT_EQ(QrvSaveMaterial(path.c_str(), m.get()), 1);
    const std::string bytes = fileBytes(path);
    EXPECT_EQ(qrvtest::wordAt(bytes, 0), 9051);
    EXPECT_EQ(qrvtest::wordAt(bytes, 4), static_cast<std::int32_t>(bytes.size()) - 8);
    EXPECT_EQ(qrvtest::wordAt(bytes, 12), 7101);
    EXPECT_EQ(m->FileVer, 7101);
}

TEST(LoadSave, PathsOf520CharactersOrMore) {
    qrvtest::TempFolder folder;
    std::filesystem::path deep = folder.root();
    while (deep.string().size() < 400)
        deep /= std::string(100, 'd');
    std::filesystem::create_directories(deep);
    const std::string base = deep.string() + "/";
    MaterialPtr m = newRecord(1, 7101);
    const std::string fits = base + std::string(519 - base.size() - 4, 'f') + ".mtr";
    const std::string tooLong = base + std::string(520 - base.size() - 4, 'g') + ".mtr";
    ASSERT_EQ(fits.size(), 519u);
    ASSERT_EQ(tooLong.size(), 520u);
    ASSERT_EQ(QrvSaveMaterial(fits.c_str(), m.get()), 1);
    EXPECT_NE(get(fits), nullptr);
    // Saving maps no name and has no buffer to fill; loading does.
    ASSERT_EQ(QrvSaveMaterial(tooLong.c_str(), m.get()), 1);
    EXPECT_TRUE(fileExists(tooLong));
    EXPECT_EQ(get(tooLong), nullptr);
    EXPECT_FALSE(QrvMatHasFiber(tooLong.c_str()));
}

TEST(LoadSave, FibreFractionByMechModel) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("fibre.mtr");
    struct Case {
        int model;
        std::vector<double> mech;
        bool fibre;
    };
    std::vector<double> model2(14, 0.5), model2None(14, 0.5), model3(8, 0.5), model3None(8, 0.5);
    model2None[9] = 0.0;
    model3None[4] = 0.0;
    std::vector<double> model2Short(7, 0.5);  // enough for EM, PR and CLTE, not for index 9
    std::vector<double> model3Short(4, 0.5);  // Count 4: index 4 is just past the end
    const Case cases[] = {
        {1, {}, false},         {6, {1, 1, 1, 1, 1, 1, 1}, false},
        {0, model2, false},     {2, model2, true},
        {2, model2None, false}, {2, model2Short, false},
        {3, model3, true},      {4, model3, true},
        {5, model3, true},      {5, model3None, false},
        {-1, model3, false},    {3, model3Short, false},
    };
    for (const Case& c : cases) {
        MaterialPtr m = newRecord(1, 7101);
        qrvtest::setBlock(m->Mech, c.model, c.mech);
        ASSERT_EQ(QrvSaveMaterial(path.c_str(), m.get()), 1);
        EXPECT_EQ(QrvMatHasFiber(path.c_str()), c.fibre) << c.model;
    }
    EXPECT_FALSE(QrvMatHasFiber(folder.path("missing.mtr").c_str()));

    // A thermoset file is asked at the same places, not at those of the thermoset layout.
    const std::string rim = folder.path("fibre.mtx");
    MaterialPtr thermoset = newRecord(2, 9018);
    std::vector<double> mech(12, 0.0);
    mech[9] = 0.3;  // index 11 would be the thermoset's own fibre place
    qrvtest::setBlock(thermoset->Mech, 2, mech);
    ASSERT_EQ(QrvSaveMaterialRIM(rim.c_str(), thermoset.get()), 1);
    EXPECT_TRUE(QrvMatHasFiber(rim.c_str()));
}

TEST(LoadSave, DamagedCurrentFramesLoadWhatWasRead) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("damaged.mtr");
    const std::string good = frameFile(0, "PLA");
    // The single-file reader does not use ObjSize: a lying size changes nothing.
    for (std::int64_t size : {0LL, -1LL, 5LL, 0x7fffffffLL}) {
        writeFile(path, Bytes().word(9051).word(size).raw(good.substr(8)).str());
        auto material = get(path);
        ASSERT_NE(material, nullptr) << size;
        EXPECT_STREQ(material->Polymer, "PLA");
        EXPECT_EQ(qrvtest::values(material->Vis), (std::vector<double>{3.0, 4.0}));
    }
    // An unknown ObjType gives no record.
    for (std::int32_t objType : {3, -1, 99}) {
        writeFile(path, Bytes().word(9051).word(100).word(objType).raw(good.substr(12)).str());
        EXPECT_EQ(get(path), nullptr) << objType;
    }
    // Negative and huge text lengths and counts: the reads stop there, the record keeps what
    // came before.
    const std::size_t polymerLength = 4 + 4 + 4 + 4 + 12;  // lead, size, type, version, 3 words
    for (std::int64_t bad : {-1LL, -1000LL, 0x7fffffffLL, 1000000LL}) {
        std::string bytes = good;
        const std::string word = Bytes().word(bad).str();
        bytes.replace(polymerLength, 4, word);
        writeFile(path, bytes);
        auto material = get(path);
        ASSERT_NE(material, nullptr) << bad;
        EXPECT_STREQ(material->Polymer, "");
        EXPECT_EQ(material->FileVer, 9012);
        EXPECT_EQ(material->Vis.Count, 0);
    }
}

TEST(LoadSave, AnyBytesBehindAnyLeadWordAreSafe) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("random.mtr");
    std::mt19937 random(4);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<std::size_t> length(1, 3000);
    const std::int32_t leads[] = {9051,
                                  19051,
                                  9050,
                                  17101,
                                  0,
                                  -1,
                                  std::numeric_limits<std::int32_t>::min(),
                                  std::numeric_limits<std::int32_t>::max()};
    for (int round = 0; round < 120; ++round) {
        std::string bytes = Bytes().word(leads[round % 8]).str();
        const std::size_t n = length(random);
        for (std::size_t i = 0; i < n; ++i)
            bytes.push_back(static_cast<char>(byte(random)));
        writeFile(path, bytes);
        auto material = get(path);
        if (material) {
            EXPECT_NE(material->Polymer, nullptr);
        }
        EXPECT_EQ(QrvMatHasFiber(path.c_str()), material && fibreAbove0(*material)) << round;
    }
}

TEST(Manipulator, GetMaterialReplacesOrEmpties) {
    qrvtest::TempFolder folder;
    const std::string mtx = folder.path("a.mtx"), mtr = folder.path("b.mtr");
    writeFile(mtx, frameFile(1, "Thermoset"));
    writeFile(mtr, frameFile(0, "Plastic"));
    MATIO_Manipulator manipulator;
    ASSERT_TRUE(manipulator.GetMaterial(mtx.c_str()));
    EXPECT_TRUE(manipulator.IsRIM());
    EXPECT_EQ(manipulator.GetQrvMaterial()->FileType, 2);
    EXPECT_STREQ(manipulator.GetPolymer(), "Thermoset");
    ASSERT_TRUE(manipulator.GetMaterial(mtr.c_str()));
    EXPECT_FALSE(manipulator.IsRIM());
    EXPECT_STREQ(manipulator.GetPolymer(), "Plastic");
    // A short name touches nothing.
    EXPECT_FALSE(manipulator.GetMaterial("a.mt"));
    EXPECT_FALSE(manipulator.GetMaterial(nullptr));
    EXPECT_STREQ(manipulator.GetPolymer(), "Plastic");
    // A failed load leaves the object empty, not with the old material.
    EXPECT_FALSE(manipulator.GetMaterial(folder.path("none.mtx").c_str()));
    EXPECT_EQ(manipulator.GetQrvMaterial(), nullptr);
    EXPECT_TRUE(manipulator.IsRIM());
}

TEST(Manipulator, NamesOfFiveCharactersGoOn) {
    qrvtest::TempFolder folder;
    qrvtest::WorkingFolder here(folder.root());
    MATIO_Manipulator manipulator;
    ASSERT_TRUE(manipulator.GetDefaultMaterial(1, 1, false, 1, 1, 0));
    EXPECT_TRUE(manipulator.SaveMaterial("a.mtr"));
    EXPECT_TRUE(fileExists("a.mtr"));
    MATIO_Manipulator reader;
    EXPECT_TRUE(reader.GetMaterial("a.mtr"));
    EXPECT_STREQ(reader.GetPolymer(), "Polymer");
}

TEST(Manipulator, SaveMaterialReportsTheAttemptOnly) {
    qrvtest::TempFolder folder;
    MATIO_Manipulator manipulator;
    EXPECT_FALSE(manipulator.SaveMaterial(folder.path("empty.mtr").c_str()));  // no record
    EXPECT_FALSE(fileExists(folder.path("empty.mtr")));
    ASSERT_TRUE(manipulator.GetDefaultMaterial(1, 1, false, 1, 1, 0));
    EXPECT_FALSE(manipulator.SaveMaterial("a.mt"));
    const std::string nowhere = folder.path("missing/folder/x.mtr");
    EXPECT_TRUE(manipulator.SaveMaterial(nowhere.c_str()));
    EXPECT_FALSE(fileExists(nowhere));
    const std::string rim = folder.path("saved.mtx");
    EXPECT_TRUE(manipulator.SaveMaterial(rim.c_str()));
    EXPECT_TRUE(manipulator.IsRIM());
    const std::string plain = folder.path("saved.mtr");
    EXPECT_TRUE(manipulator.SaveMaterial(plain.c_str()));
    EXPECT_FALSE(manipulator.IsRIM());
    EXPECT_EQ(fileBytes(rim), fileBytes(plain));
    MATIO_Manipulator reader;
    ASSERT_TRUE(reader.GetMaterial(plain.c_str()));
    EXPECT_STREQ(reader.GetPolymer(), manipulator.GetPolymer());
    EXPECT_EQ(reader.GetViscosity(100.0, 230.0, 0.0, 0.0),
              manipulator.GetViscosity(100.0, 230.0, 0.0, 0.0));
}
