// The frames a bank stream has walked to are remembered while it stays open: every order of loads
// and counts gives what a fresh walk from the first frame gives, and an append or a new open
// starts the walk anew.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "formats/bank_stream.h"
#include "formats/frame_builder.h"
#include "formats/nonpoly_mat.h"
#include "support/byte_builder.h"
#include "support/temp_files.h"

using qrvtest::Bytes;
using qrvtest::Sample;

namespace {

// A bank of count non-polymer frames whose grade names are their positions, with comments of
// varying length so that frames differ in size.
std::string bankOf(int count) {
    std::string bytes = Bytes().word(9051).str();
    for (int i = 0; i < count; ++i) {
        Sample s;
        s.objType = 2;
        s.texts = {"Metal", "P", std::to_string(i),
                   std::string(static_cast<std::size_t>(i % 37), 'c'), ""};
        s.blocks[2] = {1000, 1, {static_cast<double>(i)}};
        bytes += s.frame(qrvtest::kNonPolyBody);
    }
    return bytes;
}

std::string gradeAt(CQrvBankStream& bank, int index) {
    CQrvMatBase* object = bank.LoadMaterial(index);
    return object ? object->GetGradeName() : std::string("<none>");
}

}  // namespace

TEST(BankWalk, AnyOrderGivesWhatAFreshWalkGives) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("walk.qbk");
    constexpr int kCount = 300;
    qrvtest::writeFile(path, bankOf(kCount));
    std::vector<int> order;
    for (int i = -2; i < kCount + 3; ++i)
        order.push_back(i);
    std::shuffle(order.begin(), order.end(), std::mt19937(20261123));
    CQrvBankStream kept;
    ASSERT_TRUE(kept.OpenFile(path.c_str(), false));
    for (int index : order) {
        CQrvBankStream fresh;
        ASSERT_TRUE(fresh.OpenFile(path.c_str(), false));
        const std::string expected = index < 0        ? "0"
                                     : index < kCount ? std::to_string(index)
                                                      : "<none>";
        EXPECT_EQ(gradeAt(kept, index), expected) << index;
        EXPECT_EQ(gradeAt(fresh, index), expected) << index;
        if (index % 17 == 0) {
            EXPECT_EQ(kept.GetMaterialCount(), kCount);
        }
    }
    EXPECT_EQ(kept.GetMaterialCount(), kCount);
}

TEST(BankWalk, AppendAndReopenStartTheWalkAnew) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("grow.qbk");
    qrvtest::writeFile(path, bankOf(3));
    CQrvBankStream bank;
    ASSERT_TRUE(bank.OpenFile(path.c_str(), true));
    ASSERT_EQ(bank.GetMaterialCount(), 3);
    EXPECT_EQ(gradeAt(bank, 3), "<none>");
    EXPECT_EQ(gradeAt(bank, 4), "<none>");  // the walk has met the end
    CQrvNonPolyMat added(nullptr);
    std::string grade = "added";
    added.SetGradeName(grade);
    ASSERT_TRUE(bank.AppendMaterial(&added));
    ASSERT_TRUE(bank.AppendMaterial(&added));
    EXPECT_EQ(bank.GetMaterialCount(), 5);
    EXPECT_EQ(gradeAt(bank, 3), "added");
    EXPECT_EQ(gradeAt(bank, 4), "added");

    // The file replaced behind the stream's back is seen after a new open.
    qrvtest::writeFile(path, bankOf(6));
    ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
    EXPECT_EQ(bank.GetMaterialCount(), 6);
    EXPECT_EQ(gradeAt(bank, 5), "5");
    bank.Close();
    qrvtest::writeFile(path, bankOf(2));
    ASSERT_TRUE(bank.Open());
    EXPECT_EQ(bank.GetMaterialCount(), 2);
    EXPECT_EQ(gradeAt(bank, 5), "<none>");
}
