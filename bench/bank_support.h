// Banks written by the benchmarks themselves: count copies of the metal sample, added by name in
// one call, below a temporary folder that goes at the end of the run.
#ifndef QRV_BENCH_BANK_SUPPORT_H
#define QRV_BENCH_BANK_SUPPORT_H

#include <quorvalib/quorvalib.h>

#include <unistd.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace qrvbench {

class BankFolder {
public:
    BankFolder()
        : root_(std::filesystem::temp_directory_path() /
                ("quorvalib_bank_bench_" + std::to_string(::getpid()))) {
        std::filesystem::create_directories(root_);
    }
    ~BankFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }
    BankFolder(const BankFolder&) = delete;
    BankFolder& operator=(const BankFolder&) = delete;

    // The root below which "<root>/<count>/Bank/System/Metal.qbk" holds count metals.
    const std::string& RootOf(int count) {
        auto found = roots_.find(count);
        if (found != roots_.end()) return found->second;
        const std::filesystem::path root = root_ / std::to_string(count);
        std::filesystem::create_directories(root / "Bank" / "System");
        const std::string bank = (root / "Bank" / "System" / "Metal.qbk").string();
        std::string sample = std::string(QRV_BENCH_DATA_DIR) + "/sample_metal.mtr";
        std::vector<char*> names(static_cast<std::size_t>(count), &sample[0]);
        MATIO_BankManipulator banks;
        banks.AddMaterialsToBank(bank.c_str(), names.data(), count);
        return roots_[count] = root.string();
    }
    std::string BankOf(int count) { return RootOf(count) + "/Bank/System/Metal.qbk"; }

private:
    std::filesystem::path root_;
    std::map<int, std::string> roots_;
};

inline BankFolder& banks() {
    static BankFolder folder;
    return folder;
}

}  // namespace qrvbench

#endif
