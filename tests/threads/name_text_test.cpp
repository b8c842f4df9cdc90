// The name text and the content text belong to the calling thread: a thread sees exactly what a
// process with one thread would see, whatever other threads ask meanwhile.
#include <gtest/gtest.h>

#include <quorvalib/quorvalib.h>

#include <string>
#include <thread>

#include "support/material_ptr.h"

namespace {

using qrvtest::MaterialPtr;

// Power law (id 2) has three labels: index 3 lies past its table and gives the stale text.
MaterialPtr powerLaw() {
    MaterialPtr r = qrvtest::makeRecord(QRV_TYPE_THERMOPLASTIC);
    r->Vis.Model = 2;
    return r;
}

TEST(NameText, ANewThreadStartsWithTheEmptyText) {
    MaterialPtr r = powerLaw();
    EXPECT_STREQ(QrvGetMaterialType(r.get()), "Thermoplastic");
    std::string seen = "not run";
    std::thread([&] { seen = QrvGetVisParaName(r.get(), 3); }).join();
    EXPECT_EQ(seen, "");
    EXPECT_STREQ(QrvGetVisParaName(r.get(), 3), "Thermoplastic");
}

TEST(NameText, TheStaleTextIsTheCallingThreadsOwn) {
    MaterialPtr r = powerLaw();
    MaterialPtr thermoset = qrvtest::makeRecord(QRV_TYPE_THERMOSET);
    MaterialPtr tait = qrvtest::makeRecord(QRV_TYPE_THERMOPLASTIC);
    tait->PVT.Model = 3;
    EXPECT_STREQ(QrvGetPVTParaName(tait.get(), 0), "Tait Model - (b1)");

    int wrong = 0;
    std::thread([&] {
        for (int i = 0; i < 1000; ++i) {
            QrvGetMaterialType(thermoset.get());
            if (std::string(QrvGetVisParaName(r.get(), 3)) != "Thermosetting plastic") ++wrong;
        }
    }).join();
    EXPECT_EQ(wrong, 0);
    // The other thread's thousand calls did not reach this thread's text.
    EXPECT_STREQ(QrvGetVisParaName(r.get(), 3), "Tait Model - (b1)");
}

TEST(NameText, APointerFromAThreadThatEndedStaysReadable) {
    MaterialPtr r = powerLaw();
    const char* handedOut = nullptr;
    std::thread([&] { handedOut = QrvGetVisModelName(r.get()); }).join();
    ASSERT_NE(handedOut, nullptr);
    // The thread's text was cleared for the next thread; the memory is still the library's.
    EXPECT_STREQ(handedOut, "");
}

TEST(ContentText, AnotherThreadsDumpLeavesThisThreadsText) {
    MaterialPtr mine = qrvtest::adopt(QrvGetDefaultMaterial(5, 5, false, 2, 2, 1));
    MaterialPtr other = qrvtest::adopt(QrvGetDefaultMaterial(12, 1, false, 1, 1, 0));
    const char* text = QrvGetContent(mine.get(), false);
    ASSERT_NE(text, nullptr);
    const std::string copy = text;
    std::string theirs;
    std::thread([&] { theirs = QrvGetContent(other.get(), true); }).join();
    EXPECT_NE(theirs, copy);
    EXPECT_EQ(std::string(text), copy);
    EXPECT_NE(copy.find("Model       = 5\n"), std::string::npos);
}

}  // namespace
