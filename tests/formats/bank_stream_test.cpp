// The bank container: frames found by walking their ObjSize words, objects built by ObjType,
// frames appended at the end, and the opens under the locale guard.
#include <gtest/gtest.h>

#include <limits>
#include <locale>
#include <string>

#include "formats/bank_stream.h"
#include "formats/frame_builder.h"
#include "formats/plastic_mat.h"
#include "support/byte_builder.h"
#include "support/temp_files.h"

using qrvtest::Bytes;
using qrvtest::Sample;

namespace {

Sample plastic(const std::string& polymer, int version = 9012) {
    Sample s;
    s.objType = 0;
    s.bodyVer = version;
    s.typeWord = 1;
    s.texts = {polymer, "Producer", "Grade", "Comment", ""};
    s.blocks[0] = {3, 5, {1.5, 2.5}};
    s.blocks[6] = {4, 2, {0.3, 0.3, 2e10, 2e10, 1e10, 7e-5, 7e-5}};
    return s;
}

Sample thermoset(const std::string& polymer) {
    Sample s;
    s.objType = 1;
    s.bodyVer = 9018;
    s.texts = {polymer, "Kobari", "KC", "", ""};
    s.blocks[5] = {1000, 2, {0.3, 1.1}};
    s.blocks[9] = {1000, 1, {170.0, 2.8}};
    return s;
}

Sample metal(const std::string& polymer) {
    Sample s;
    s.objType = 2;
    s.bodyVer = 7101;
    s.texts = {polymer, "Hallam", "316L", "D=7.99 g/cc", ""};
    s.blocks[2] = {1000, 1, {5e6}};
    return s;
}

std::string lead(std::int32_t word = 9051) {
    return Bytes().word(word).str();
}

struct ThreeFrames {
    std::string frames[3] = {plastic("PLA").frame(qrvtest::kPlasticBody),
                             thermoset("Epoxy").frame(qrvtest::kRIMBody),
                             metal("Metal").frame(qrvtest::kNonPolyBody)};
    std::string file(std::int32_t leadWord = 9051) const {
        return lead(leadWord) + frames[0] + frames[1] + frames[2];
    }
};

std::string polymerAt(CQrvBankStream& bank, int index) {
    CQrvMatBase* object = bank.LoadMaterial(index);
    return object ? object->GetPolymer() : std::string("<null>");
}

}  // namespace

TEST(BankStream, FreshStreamHoldsNothing) {
    CQrvBankStream bank;
    EXPECT_FALSE(bank.Writable);
    EXPECT_FALSE(bank.IsOpen);
    EXPECT_EQ(bank.Version, 9051);
    EXPECT_STREQ(bank.FileName, "");
    EXPECT_EQ(bank.GetMaterialCount(), 0);
    EXPECT_EQ(bank.LoadMaterial(0), nullptr);
}

TEST(BankStream, BankOfFourBytesIsEmpty) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("empty.qbk");
    qrvtest::writeFile(path, lead());
    CQrvBankStream bank;
    ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
    EXPECT_EQ(bank.GetMaterialCount(), 0);
    EXPECT_EQ(bank.LoadMaterial(0), nullptr);
    // Shorter still: no lead word, or not even that.
    for (const char* bytes : {"\x5b\x23", ""}) {
        qrvtest::writeFile(path, bytes);
        ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
        EXPECT_EQ(bank.GetMaterialCount(), 0);
        EXPECT_EQ(bank.LoadMaterial(0), nullptr);
    }
}

TEST(BankStream, ThreeFramesAreFoundByTheirSizes) {
    qrvtest::TempFolder folder;
    const ThreeFrames three;
    const std::string bytes = three.file();
    const std::string path = folder.path("three.qbk");
    qrvtest::writeFile(path, bytes);
    CQrvBankStream bank;
    ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
    EXPECT_EQ(bank.GetMaterialCount(), 3);

    const std::int32_t size0 = qrvtest::wordAt(bytes, 4);
    const std::int32_t size1 = qrvtest::wordAt(bytes, 4 + static_cast<std::size_t>(size0) + 4);
    const std::size_t third =
        4 + (static_cast<std::size_t>(size0) + 4) + (static_cast<std::size_t>(size1) + 4);
    EXPECT_EQ(bytes.substr(third), three.frames[2]);

    const char* polymers[] = {"PLA", "Epoxy", "Metal"};
    for (int index = 0; index < 3; ++index) {
        CQrvMatBase* object = bank.LoadMaterial(index);
        ASSERT_NE(object, nullptr) << index;
        EXPECT_EQ(object->GetObjType(), index);
        EXPECT_EQ(object->GetPolymer(), polymers[index]);
    }
    // Each load walks from the start, in any order.
    EXPECT_EQ(polymerAt(bank, 2), "Metal");
    EXPECT_EQ(polymerAt(bank, 0), "PLA");
    EXPECT_EQ(bank.GetMaterialCount(), 3);
}

TEST(BankStream, WrongSizeShiftsEveryFrameBehindIt) {
    qrvtest::TempFolder folder;
    const ThreeFrames three;
    std::string bytes = three.file();
    // Frame 0 claims to reach over frame 1 as well.
    const std::int32_t size0 = qrvtest::wordAt(bytes, 4);
    bytes = lead() +
            Bytes()
                .word(size0 + static_cast<std::int64_t>(three.frames[1].size()))
                .raw(three.frames[0].substr(4))
                .str() +
            three.frames[1] + three.frames[2];
    const std::string path = folder.path("shifted.qbk");
    qrvtest::writeFile(path, bytes);
    CQrvBankStream bank;
    ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
    EXPECT_EQ(bank.GetMaterialCount(), 2);
    EXPECT_EQ(polymerAt(bank, 0), "PLA");  // its own reader does not use ObjSize
    EXPECT_EQ(polymerAt(bank, 1), "Metal");
}

TEST(BankStream, FrameOfAnUnknownHigherVersionIsSkippedBySize) {
    qrvtest::TempFolder folder;
    Sample future = plastic("Future", 9999);
    std::string frame = future.frame(qrvtest::kPlasticBody);
    // Whatever a newer writer put behind the known body stays unread.
    const std::string extra = Bytes().word(77).real(1.25).text("newer data").str();
    frame = Bytes()
                .word(qrvtest::wordAt(frame, 0) + static_cast<std::int64_t>(extra.size()))
                .raw(frame.substr(4) + extra)
                .str();
    const ThreeFrames three;
    const std::string path = folder.path("future.qbk");
    qrvtest::writeFile(path, lead() + three.frames[0] + frame + three.frames[1]);
    CQrvBankStream bank;
    ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
    EXPECT_EQ(bank.GetMaterialCount(), 3);
    CQrvMatBase* object = bank.LoadMaterial(1);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->GetBodyVer(), 9999);
    EXPECT_EQ(object->GetPolymer(), "Future");
    EXPECT_EQ(object->GetParamValue(6, 2), 2e10);
    EXPECT_EQ(polymerAt(bank, 2), "Epoxy");
}

TEST(BankStream, TwoAppendsGiveTwoFrames) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("appended.qbk");
    qrvtest::writeFile(path, lead());
    const Sample sample = plastic("PP");
    {
        CQrvBankStream bank;
        bank.SetFile(path.c_str(), true);
        ASSERT_TRUE(bank.Open());
        CQrvPlasticMat object(nullptr);
        sample.fill(object);
        bank.AppendMaterial(&object);
        bank.AppendMaterial(&object);
        EXPECT_EQ(bank.GetMaterialCount(), 2);  // reading and appending share the stream
        bank.Close();
    }
    const std::string frame = sample.frame(qrvtest::kPlasticBody);
    EXPECT_EQ(qrvtest::fileBytes(path), lead() + frame + frame);
}

TEST(BankStream, AppendBehindExistingFrames) {
    qrvtest::TempFolder folder;
    const ThreeFrames three;
    const std::string path = folder.path("grow.qbk");
    qrvtest::writeFile(path, three.file());
    CQrvBankStream bank;
    ASSERT_TRUE(bank.OpenFile(path.c_str(), true));
    ASSERT_EQ(bank.GetMaterialCount(), 3);
    CQrvMatBase* loaded = bank.LoadMaterial(2);
    ASSERT_NE(loaded, nullptr);
    bank.AppendMaterial(loaded);
    EXPECT_EQ(bank.GetMaterialCount(), 4);
    EXPECT_EQ(polymerAt(bank, 3), "Metal");
    bank.Close();
    EXPECT_EQ(qrvtest::fileBytes(path), three.file() + three.frames[2]);
}

TEST(BankStream, ReadOnlyStreamAppendsNothing) {
    qrvtest::TempFolder folder;
    const ThreeFrames three;
    const std::string path = folder.path("readonly.qbk");
    qrvtest::writeFile(path, three.file());
    {
        CQrvBankStream bank;
        ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
        CQrvPlasticMat object(nullptr);
        plastic("PP").fill(object);
        bank.AppendMaterial(&object);
        bank.AppendMaterial(nullptr);
    }
    EXPECT_EQ(qrvtest::fileBytes(path), three.file());
}

TEST(BankStream, LeadWordIsNotLookedAt) {
    qrvtest::TempFolder folder;
    const ThreeFrames three;
    for (std::int32_t word : {9051, 0, -1, 17101, 123456789}) {
        const std::string path = folder.path("lead.qbk");
        qrvtest::writeFile(path, three.file(word));
        CQrvBankStream bank;
        ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
        EXPECT_EQ(bank.GetMaterialCount(), 3) << word;
        EXPECT_EQ(polymerAt(bank, 1), "Epoxy") << word;
    }
}

TEST(BankStream, OpenFileReopensWhileOpenDoesNothing) {
    qrvtest::TempFolder folder;
    const std::string a = folder.path("a.qbk"), b = folder.path("b.qbk");
    qrvtest::writeFile(a, lead() + plastic("A").frame(qrvtest::kPlasticBody));
    qrvtest::writeFile(b, lead() + plastic("B").frame(qrvtest::kPlasticBody));
    CQrvBankStream bank;
    ASSERT_TRUE(bank.OpenFile(a.c_str(), false));
    bank.SetFile(b.c_str(), false);
    EXPECT_TRUE(bank.Open());
    EXPECT_EQ(polymerAt(bank, 0), "A");
    EXPECT_TRUE(bank.OpenFile(b.c_str(), false));
    EXPECT_TRUE(bank.IsOpen);
    EXPECT_EQ(polymerAt(bank, 0), "B");
    EXPECT_TRUE(bank.OpenFile(b.c_str(), false));  // the same file anew
    EXPECT_EQ(polymerAt(bank, 0), "B");
}

TEST(BankStream, CloseKeepsTheObjectLoadedLast) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("close.qbk");
    qrvtest::writeFile(path, lead() + metal("Metal").frame(qrvtest::kNonPolyBody));
    CQrvBankStream bank;
    ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
    CQrvMatBase* object = bank.LoadMaterial(0);
    ASSERT_NE(object, nullptr);
    bank.Close();
    EXPECT_FALSE(bank.IsOpen);
    EXPECT_EQ(object->GetComment(), "D=7.99 g/cc");
    EXPECT_EQ(bank.GetMaterialCount(), 0);
    bank.Close();  // closing twice is harmless
    EXPECT_TRUE(bank.Open());
    EXPECT_EQ(bank.GetMaterialCount(), 1);
}

TEST(BankStream, MissingFileIsNotCreated) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("missing.qbk");
    CQrvBankStream bank;
    EXPECT_FALSE(bank.OpenFile(path.c_str(), false));
    EXPECT_FALSE(bank.OpenFile(path.c_str(), true));
    EXPECT_FALSE(bank.IsOpen);
    EXPECT_TRUE(bank.fail());
    EXPECT_FALSE(qrvtest::fileExists(path));
    EXPECT_EQ(bank.GetMaterialCount(), 0);
    EXPECT_EQ(bank.LoadMaterial(0), nullptr);
    EXPECT_FALSE(bank.OpenFile(nullptr, false));
}

TEST(BankStream, UnknownObjectTypeGivesNoObject) {
    qrvtest::TempFolder folder;
    for (std::int32_t objType : {3, -1, 1000}) {
        Sample odd = plastic("Odd");
        odd.objType = objType;
        const std::string path = folder.path("odd.qbk");
        qrvtest::writeFile(path, lead() + plastic("PLA").frame(qrvtest::kPlasticBody) +
                                     odd.frame(qrvtest::kPlasticBody));
        CQrvBankStream bank;
        ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
        EXPECT_EQ(bank.GetMaterialCount(), 2);
        ASSERT_NE(bank.LoadMaterial(0), nullptr);
        EXPECT_EQ(bank.LoadMaterial(1), nullptr) << objType;
        EXPECT_EQ(polymerAt(bank, 0), "PLA");  // the stream goes on working
    }
}

TEST(BankStream, NegativeSizeEndsTheWalk) {
    qrvtest::TempFolder folder;
    const ThreeFrames three;
    for (std::int32_t size : {-4, -8, -1, std::numeric_limits<std::int32_t>::min()}) {
        const std::string path = folder.path("negative.qbk");
        qrvtest::writeFile(path, lead() + Bytes().word(size).raw(three.frames[0].substr(4)).str() +
                                     three.frames[1]);
        CQrvBankStream bank;
        ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
        EXPECT_EQ(bank.GetMaterialCount(), 1) << size;
        EXPECT_EQ(polymerAt(bank, 0), "PLA") << size;
        EXPECT_EQ(bank.LoadMaterial(1), nullptr) << size;
    }
}

TEST(BankStream, SizePastTheEndCountsOnceAndLeavesNothingBehind) {
    qrvtest::TempFolder folder;
    const ThreeFrames three;
    const std::string path = folder.path("huge.qbk");
    qrvtest::writeFile(path, lead() +
                                 Bytes()
                                     .word(std::numeric_limits<std::int32_t>::max())
                                     .raw(three.frames[0].substr(4))
                                     .str() +
                                 three.frames[1]);
    CQrvBankStream bank;
    ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
    EXPECT_EQ(bank.GetMaterialCount(), 1);
    EXPECT_EQ(polymerAt(bank, 0), "PLA");
    EXPECT_EQ(bank.LoadMaterial(1), nullptr);
    EXPECT_EQ(bank.LoadMaterial(5), nullptr);
}

TEST(BankStream, FrameThatStartsBeforeTheEndCountsHoweverItEnds) {
    qrvtest::TempFolder folder;
    const ThreeFrames three;
    const std::string whole = three.file();
    const std::string path = folder.path("cut.qbk");
    // Cut inside the last frame, and two stray bytes behind a whole bank.
    qrvtest::writeFile(path, whole.substr(0, whole.size() - 10));
    CQrvBankStream bank;
    ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
    EXPECT_EQ(bank.GetMaterialCount(), 3);
    CQrvMatBase* cut = bank.LoadMaterial(2);
    ASSERT_NE(cut, nullptr);
    EXPECT_EQ(cut->GetPolymer(), "Metal");
    EXPECT_EQ(polymerAt(bank, 1), "Epoxy");  // a short read does not stick to the next walk
    bank.Close();
    qrvtest::writeFile(path, whole + "\x01\x02");
    ASSERT_TRUE(bank.Open());
    EXPECT_EQ(bank.GetMaterialCount(), 4);
    EXPECT_EQ(bank.LoadMaterial(3), nullptr);
    // A negative index walks nowhere.
    EXPECT_EQ(polymerAt(bank, -2), "PLA");
}

TEST(BankStream, OpenPutsTheCallersLocaleBack) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("locale.qbk");
    qrvtest::writeFile(path, lead());
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
    };
    const std::locale callers(std::locale::classic(), new Comma);
    const std::locale before = std::locale::global(callers);
    CQrvBankStream bank;
    const bool opened = bank.OpenFile(path.c_str(), false);
    const bool failed = bank.OpenFile(folder.path("none.qbk").c_str(), false);
    const std::locale after = std::locale::global(before);
    EXPECT_TRUE(opened);
    EXPECT_FALSE(failed);
    EXPECT_TRUE(after == callers);
}
