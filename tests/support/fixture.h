// Reading the sample files of tests/data and comparing records with their JSON descriptions.
#ifndef QRV_TESTS_SUPPORT_FIXTURE_H
#define QRV_TESTS_SUPPORT_FIXTURE_H

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <quorvalib/record.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace qrvtest {

inline std::string dataPath(const std::string& name) {
    return std::string(QRV_TEST_DATA_DIR) + "/" + name;
}

inline std::vector<unsigned char> readBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::vector<unsigned char>(std::istreambuf_iterator<char>(in), {});
}

inline nlohmann::json readJson(const std::string& name) {
    std::ifstream in(dataPath(name));
    return nlohmann::json::parse(in);
}

// A text field of the record against its JSON value (null or a Latin-1 string whose characters
// are the bytes).
inline void expectText(const char* actual, const nlohmann::json& expected, const char* field) {
    SCOPED_TRACE(field);
    if (expected.is_null()) {
        EXPECT_EQ(actual, nullptr);
        return;
    }
    ASSERT_NE(actual, nullptr);
    // The JSON string is UTF-8; its code points (all below 256) are the file's bytes.
    const std::string utf8 = expected.get<std::string>();
    std::string bytes;
    for (std::size_t i = 0; i < utf8.size();) {
        const unsigned char lead = static_cast<unsigned char>(utf8[i]);
        if (lead < 0x80) {
            bytes.push_back(static_cast<char>(lead));
            i += 1;
        } else {
            const unsigned char next = static_cast<unsigned char>(utf8[i + 1]);
            bytes.push_back(static_cast<char>(((lead & 0x1F) << 6) | (next & 0x3F)));
            i += 2;
        }
    }
    EXPECT_EQ(std::string(actual), bytes);
}

inline void expectBlock(const QrvMatParam& block, const nlohmann::json& expected,
                        const std::string& name) {
    SCOPED_TRACE(name);
    EXPECT_EQ(block.Source, expected.at("Source").get<int>());
    EXPECT_EQ(block.Model, expected.at("Model").get<int>());
    EXPECT_EQ(block.Count, expected.at("Count").get<int>());
    const nlohmann::json& para = expected.at("Para");
    if (para.is_null()) {
        EXPECT_EQ(block.Para, nullptr);
        return;
    }
    ASSERT_NE(block.Para, nullptr);
    const auto values = para.get<std::vector<double>>();
    ASSERT_EQ(static_cast<int>(values.size()), block.Count);
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(block.Para[i], values[i]) << i;
}

// The header fields, texts and fifteen blocks of a record against a JSON "record".
inline void expectRecord(const QrvMaterial& m, const nlohmann::json& record) {
    EXPECT_EQ(m.FileType, record.at("FileType").get<int>());
    EXPECT_EQ(m.FileVer, record.at("FileVer").get<int>());
    EXPECT_EQ(m.LastEditDate, record.at("LastEditDate").get<int>());
    EXPECT_EQ(m.MeasureDate, record.at("MeasureDate").get<int>());
    expectText(m.Polymer, record.at("Polymer"), "Polymer");
    expectText(m.Producer, record.at("Producer"), "Producer");
    expectText(m.GradeName, record.at("GradeName"), "GradeName");
    expectText(m.Comment, record.at("Comment"), "Comment");
    expectText(m.Source, record.at("Source"), "Source");
    const nlohmann::json& blocks = record.at("Blocks");
    const std::pair<const char*, const QrvMatParam*> all[] = {
        {"Vis", &m.Vis}, {"PVT", &m.PVT},   {"Cp", &m.Cp},     {"K", &m.K},   {"EM", &m.EM},
        {"PR", &m.PR},   {"CLTE", &m.CLTE}, {"Temp", &m.Temp}, {"KN", &m.KN}, {"Mech", &m.Mech},
        {"VE", &m.VE},   {"OP", &m.OP},     {"SI", &m.SI},     {"CR", &m.CR}, {"PW", &m.PW}};
    for (const auto& [name, block] : all)
        expectBlock(*block, blocks.at(name), name);
}

}  // namespace qrvtest

#endif
