// Damaged banks and bad arguments: each gives its documented code, nothing crashes, and a bank is
// only ever appended to, so a failed add leaves the entries already in it byte for byte.
#include <gtest/gtest.h>

#include <quorvalib/bank.h>

#include <signal.h>
#include <sys/resource.h>

#include <climits>
#include <filesystem>
#include <string>

#include "bank/bank_support.h"
#include "formats/bank_stream.h"
#include "support/fixture.h"

using qrvtest::Bytes;
using qrvtest::fileBytes;

namespace {

int countOf(const std::string& bank) {
    CQrvBankStream stream;
    if (!stream.OpenFile(bank.c_str(), false)) return -1;
    return stream.GetMaterialCount();
}

bool documentedExtractCode(int code) {
    return code == 1 || code == -1 || code == -2 || code == -3;
}

// A bank of two entries in folder.
std::string twoEntryBank(const qrvtest::TempFolder& folder) {
    const std::string bank = folder.path("two.qbk");
    auto a = qrvtest::thermoplasticRecord(9012, "first");
    auto b = qrvtest::metalRecord("second");
    EXPECT_EQ(qrvtest::addOne(bank, *a), 0);
    EXPECT_EQ(qrvtest::addOne(bank, *b), 0);
    return bank;
}

// Lowers the limit on the size of files this process writes to bytes, and ignores the signal that
// a write beyond it raises, for the life of the object.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &saved_);
        oldHandler_ = signal(SIGXFSZ, SIG_IGN);
        rlimit lowered = saved_;
        lowered.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &lowered);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &saved_);
        signal(SIGXFSZ, oldHandler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit saved_{};
    void (*oldHandler_)(int) = nullptr;
};

}  // namespace

TEST(BankBadInput, FolderIsNoBank) {
    qrvtest::TempFolder folder;
    const std::string bank = folder.path("folder.qbk");
    std::filesystem::create_directory(bank);
    auto record = qrvtest::thermoplasticRecord();
    std::string file = qrvtest::dataPath("sample_metal.mtr");
    char* names[] = {&file[0]};
    MATIO_BankManipulator banks;
    EXPECT_EQ(banks.AddMaterialsToBank(bank.c_str(), record.get(), 1), -1);
    EXPECT_EQ(banks.AddMaterialsToBank(bank.c_str(), names, 1), -1);
    QrvMaterial extracted;
    EXPECT_EQ(banks.ExtractPlasticMaterialFromBank(bank.c_str(), 0, extracted), -1);
    EXPECT_EQ(banks.ExportPlasticMaterialFromBank(bank.c_str(), 0, folder.path("o.mtr").c_str()),
              -1);
    EXPECT_TRUE(std::filesystem::is_empty(bank));
    EXPECT_FALSE(qrvtest::fileExists(folder.path("o.mtr")));
}

TEST(BankBadInput, EmptyFileBecomesABank) {
    qrvtest::TempFolder folder;
    const std::string bank = folder.path("empty.qbk");
    qrvtest::writeFile(bank, "");
    QrvMaterial extracted;
    MATIO_BankManipulator banks;
    EXPECT_EQ(banks.ExtractPlasticMaterialFromBank(bank.c_str(), 0, extracted), -2);
    auto record = qrvtest::metalRecord();
    ASSERT_EQ(qrvtest::addOne(bank, *record), 0);
    EXPECT_EQ(fileBytes(bank).substr(0, 4), Bytes().word(9051).str());
    EXPECT_EQ(countOf(bank), 1);
}

TEST(BankBadInput, FileOfThreeBytesIsLeftAlone) {
    qrvtest::TempFolder folder;
    const std::string bank = folder.path("three.qbk");
    const std::string bytes("\x5B\x23\x00", 3);
    qrvtest::writeFile(bank, bytes);
    auto record = qrvtest::metalRecord();
    EXPECT_EQ(qrvtest::addOne(bank, *record), -1);
    EXPECT_EQ(fileBytes(bank), bytes);
    QrvMaterial extracted;
    MATIO_BankManipulator banks;
    EXPECT_EQ(banks.ExtractPlasticMaterialFromBank(bank.c_str(), 0, extracted), -2);
    EXPECT_EQ(countOf(bank), 0);
}

TEST(BankBadInput, NullBankNameAndMissingFolder) {
    qrvtest::TempFolder folder;
    auto record = qrvtest::metalRecord();
    MATIO_BankManipulator banks;
    EXPECT_EQ(banks.AddMaterialsToBank(nullptr, record.get(), 1), -1);
    const std::string nowhere = folder.path("no/such/bank.qbk");
    EXPECT_EQ(banks.AddMaterialsToBank(nowhere.c_str(), record.get(), 1), -1);
    EXPECT_FALSE(qrvtest::fileExists(nowhere));
    EXPECT_EQ(banks.ExportPlasticMaterialFromBank(nullptr, 0, folder.path("o.mtr").c_str()), -1);
}

// Frames whose ObjSize is wrong: the walk follows the words as they stand.
TEST(BankBadInput, FramesThatLieAboutTheirSize) {
    qrvtest::TempFolder folder;
    const std::string good = twoEntryBank(folder);
    const std::string bytes = fileBytes(good);
    const std::size_t first = static_cast<std::size_t>(qrvtest::wordAt(bytes, 4));
    struct Lie {
        const char* what;
        std::int64_t size;
        int count;  // worked out from the words by hand
    };
    const Lie lies[] = {
        {"past the end", 1 << 30, 1},
        {"negative", -8, 1},
        {"most negative", INT_MIN, 1},
        {"zero: the next frame starts inside this one", 0, -1},
        {"one short", static_cast<std::int64_t>(first) - 1, -1},
    };
    for (const Lie& lie : lies) {
        SCOPED_TRACE(lie.what);
        std::string damaged = bytes;
        Bytes patch;
        patch.word(lie.size);
        damaged.replace(4, 4, patch.str());
        const std::string bank = folder.path("lie.qbk");
        qrvtest::writeFile(bank, damaged);
        const int count = countOf(bank);
        if (lie.count >= 0) {
            EXPECT_EQ(count, lie.count);
        }
        MATIO_BankManipulator banks;
        for (int index : {0, 1, 2, count, INT_MAX}) {
            QrvMaterial extracted;
            EXPECT_TRUE(documentedExtractCode(
                banks.ExtractPlasticMaterialFromBank(bank.c_str(), index, extracted)))
                << index;
            const std::string out = folder.path("out.mtr");
            const int code = banks.ExportPlasticMaterialFromBank(bank.c_str(), index, out.c_str());
            EXPECT_TRUE(documentedExtractCode(code) || code == -4) << index;
            std::filesystem::remove(out);
        }
        MATIO_QrvNonPolyMat list;
        (void)list.GetMetalMatBank(folder.root().c_str(), nullptr, false);
        EXPECT_EQ(fileBytes(bank), damaged);  // reading never writes
    }
}

TEST(BankBadInput, NamesListWithNullsAndACountThatCoversThem) {
    qrvtest::TempFolder folder;
    std::string file = qrvtest::dataPath("sample_metal.mtr");
    std::string shortName = "a.b";
    char* names[] = {nullptr, &file[0], &shortName[0], nullptr};
    const std::string bank = folder.path("names.qbk");
    MATIO_BankManipulator banks;
    EXPECT_EQ(banks.AddMaterialsToBank(bank.c_str(), names, 4), 1);
    EXPECT_EQ(countOf(bank), 1);
}

// A list in which some records cannot be written: those are skipped, the others are added behind
// the old entries, and the result says that not everything went in.
TEST(BankBadInput, FailedRecordsLeaveTheOldBytesAndTheOthersGoIn) {
    qrvtest::TempFolder folder;
    const std::string bank = twoEntryBank(folder);
    const std::string before = fileBytes(bank);

    QrvMaterial records[5];
    for (QrvMaterial& r : records)
        QrvInitMaterial(&r);
    qrvtest::fillMetal(&records[0], "good 1");
    qrvtest::fillMetal(&records[1], "no producer");
    delete[] records[1].Producer;
    records[1].Producer = nullptr;
    qrvtest::fillThermoplastic(&records[2], 9012, "values missing");
    qrvtest::setNullBlock(records[2].Vis, 5, 3);
    qrvtest::fillThermoplastic(&records[3], 9012, "negative count");
    qrvtest::setNullBlock(records[3].Temp, 2, -4);
    qrvtest::fillMetal(&records[4], "good 2");
    // A bad block that the entry's class does not keep does not matter.
    qrvtest::setNullBlock(records[4].KN, 2, -1);

    MATIO_BankManipulator banks;
    EXPECT_EQ(banks.AddMaterialsToBank(bank.c_str(), records, 5), 1);
    const std::string after = fileBytes(bank);
    ASSERT_GT(after.size(), before.size());
    EXPECT_EQ(after.substr(0, before.size()), before);
    ASSERT_EQ(countOf(bank), 4);
    QrvMaterial third, fourth;
    EXPECT_EQ(banks.ExtractPlasticMaterialFromBank(bank.c_str(), 2, third), -3);
    EXPECT_EQ(banks.ExtractPlasticMaterialFromBank(bank.c_str(), 3, fourth), -3);
    EXPECT_STREQ(third.GradeName, "good 1");
    EXPECT_STREQ(fourth.GradeName, "good 2");
}

// A write that fails part-way (the file may grow no further) is cut off again.
TEST(BankBadInput, WriteThatFailsPartWayLeavesTheBankAsItWas) {
    qrvtest::TempFolder folder;
    const std::string bank = twoEntryBank(folder);
    const std::string before = fileBytes(bank);
    auto record = qrvtest::thermoplasticRecord(9012, "too big");
    int result = 0;
    {
        FileSizeLimit limit(before.size() + 100);
        result = qrvtest::addOne(bank, *record);
    }
    EXPECT_EQ(result, 1);
    EXPECT_EQ(fileBytes(bank), before);
    EXPECT_EQ(countOf(bank), 2);
    // The same bank takes the material once there is room.
    EXPECT_EQ(qrvtest::addOne(bank, *record), 0);
    EXPECT_EQ(countOf(bank), 3);
}
