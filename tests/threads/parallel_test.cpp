// Every call of the thread-safe groups, from eight threads at once, against what one thread gets.
// The ThreadSanitizer build of this program (scripts/test) must report nothing.
#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <fstream>
#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "support/fixture.h"
#include "threads/call_table.h"
#include "threads/shared_records.h"

namespace threads_test {
namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 2;

// Runs job(t) on kThreads threads that start together, and gathers what each reports wrong.
std::vector<std::string> onThreads(const std::function<std::vector<std::string>(int)>& job) {
    std::atomic<int> waiting{kThreads};
    std::vector<std::vector<std::string>> wrong(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            waiting.fetch_sub(1);
            while (waiting.load() > 0)
                std::this_thread::yield();
            wrong[t] = job(t);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    std::vector<std::string> all;
    for (const auto& list : wrong)
        all.insert(all.end(), list.begin(), list.end());
    return all;
}

std::string describe(const std::string& call, const std::string& where, const std::string& want,
                     const std::string& got) {
    return call + " on " + where + ": one thread " + want.substr(0, 120) + ", parallel " +
           got.substr(0, 120);
}

TEST(Parallel, RecordCallsOnSharedRecordsAgreeWithOneThread) {
    const std::vector<SharedRecord> records = sharedRecords();
    const std::vector<RecordCall>& calls = recordCalls();
    const std::vector<Point>& at = points();
    ASSERT_GE(records.size(), 20u);

    struct Case {
        std::size_t record, call, point;
    };
    std::vector<Case> cases;
    std::vector<std::string> expected;
    for (std::size_t r = 0; r < records.size(); ++r)
        for (std::size_t c = 0; c < calls.size(); ++c)
            for (std::size_t p = 0; p < at.size(); ++p) {
                cases.push_back({r, c, p});
                expected.push_back(calls[c].run(records[r].record.get(), at[p]));
            }

    // Threads in pairs walk the same order from four starting places: two threads make the same
    // call on the same record at the same moment, and the pairs make different calls.
    const std::vector<std::string> wrong = onThreads([&](int t) {
        std::vector<std::string> mine;
        const std::size_t n = cases.size();
        const std::size_t start = static_cast<std::size_t>(t % 4) * n / 4;
        for (int round = 0; round < kRounds; ++round) {
            for (std::size_t k = 0; k < n; ++k) {
                const std::size_t i = (start + k) % n;
                const Case& c = cases[i];
                const std::string got =
                    calls[c.call].run(records[c.record].record.get(), at[c.point]);
                if (got != expected[i] && mine.size() < 5)
                    mine.push_back(
                        describe(calls[c.call].name, records[c.record].name, expected[i], got));
            }
        }
        return mine;
    });
    EXPECT_TRUE(wrong.empty()) << wrong.size() << " differences, first: " << wrong.front();
}

TEST(Parallel, ManipulatorsOfTheirOwnAgreeWithOneThread) {
    // Each thread builds its manipulators and runs the whole table in one order, so a call that
    // changes the object (GetDefaultMaterial) changes what the following calls see in the same way
    // on every thread.
    struct Setup {
        int vis, pvt, cp, k, filler;
    };
    constexpr Setup kSetups[] = {{5, 5, 2, 2, 2}, {12, 1, 1, 1, 0}, {3, 7, 4, 3, 6}};
    const auto runAll = [&] {
        std::vector<std::string> out;
        for (const Setup& s : kSetups) {
            MATIO_Manipulator manipulator;
            manipulator.GetDefaultMaterial(s.vis, s.pvt, false, s.cp, s.k, s.filler);
            for (const ManipulatorCall& call : manipulatorCalls())
                for (const Point& point : points())
                    out.push_back(std::string(call.name) + " " + call.run(manipulator, point));
        }
        return out;
    };
    const std::vector<std::string> expected = runAll();

    const std::vector<std::string> wrong = onThreads([&](int) {
        std::vector<std::string> mine;
        for (int round = 0; round < kRounds; ++round) {
            const std::vector<std::string> got = runAll();
            for (std::size_t i = 0; i < got.size() && i < expected.size(); ++i)
                if (got[i] != expected[i] && mine.size() < 5)
                    mine.push_back(describe("manipulator", std::to_string(i), expected[i], got[i]));
        }
        return mine;
    });
    EXPECT_TRUE(wrong.empty()) << wrong.size() << " differences, first: " << wrong.front();
}

// The exported flat calls outside the table above: they open files or change the record.
constexpr const char* kCallsOfOtherGroups[] = {
    "QrvGetMaterial", "QrvGetMaterialRIM", "QrvSaveMaterial", "QrvSaveMaterialRIM",
    "QrvMatHasFiber", "QrvAddMTCData",     "QrvRemoveAllMTC"};

// A flat call added to the library must find its group: a line in the table of record_calls.cpp,
// or a place in the list above (and in the thread model of the headers).
TEST(Parallel, EveryExportedFlatCallHasAGroup) {
    std::set<std::string> classified(std::begin(kCallsOfOtherGroups),
                                     std::end(kCallsOfOtherGroups));
    for (const RecordCall& call : recordCalls()) {
        std::istringstream words(call.name);
        for (std::string word; words >> word;)
            classified.insert(word);
    }
    std::ifstream symbols(qrvtest::dataPath("exported_symbols.txt"));
    ASSERT_TRUE(symbols) << "exported_symbols.txt";
    int flatCalls = 0;
    for (std::string line; std::getline(symbols, line);) {
        const std::string name = line.substr(0, line.find('('));
        if (name.rfind("Qrv", 0) != 0 || name.find("::") != std::string::npos) continue;
        ++flatCalls;
        EXPECT_EQ(classified.count(name), 1u) << name << " belongs to no group";
    }
    EXPECT_GE(flatCalls, 80);
}

}  // namespace
}  // namespace threads_test
