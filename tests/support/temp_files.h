// Real files for the tests: a fresh folder per test below the test framework's temporary folder,
// removed again at the end, and helpers to write and read whole files.
#ifndef QRV_TESTS_SUPPORT_TEMP_FILES_H
#define QRV_TESTS_SUPPORT_TEMP_FILES_H

#include <gtest/gtest.h>

#include <unistd.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace qrvtest {

class TempFolder {
public:
    TempFolder() {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string("qrv_") + (info ? info->test_suite_name() : "suite") + "_" +
                           (info ? info->name() : "test") + "_" + std::to_string(::getpid());
        for (char& c : name)
            if (c == '/') c = '_';
        path_ = std::filesystem::path(::testing::TempDir()) / name;
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::string path(const std::string& name) const { return (path_ / name).string(); }
    const std::filesystem::path& root() const { return path_; }

private:
    std::filesystem::path path_;
};

inline void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

inline std::string fileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline bool fileExists(const std::string& path) {
    return std::filesystem::exists(path);
}

// Runs the test's body with the working folder changed, so that short relative names can be used.
class WorkingFolder {
public:
    explicit WorkingFolder(const std::filesystem::path& folder)
        : saved_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    ~WorkingFolder() { std::filesystem::current_path(saved_); }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    std::filesystem::path saved_;
};

}  // namespace qrvtest

#endif
