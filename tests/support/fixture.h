// Reading the sample files of tests/data and comparing records with their JSON descriptions.
#ifndef QRV_TESTS_SUPPORT_FIXTURE_H
#define QRV_TESTS_SUPPORT_FIXTURE_H

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <quorvalib/measured.h>
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

// A family of measured curves against its JSON (null for a null pointer).
inline void expectRawData(CQrvMatRawData* actual, const nlohmann::json& expected,
                          const char* field) {
    SCOPED_TRACE(field);
    if (expected.is_null()) {
        EXPECT_EQ(actual, nullptr);
        return;
    }
    ASSERT_NE(actual, nullptr);
    EXPECT_EQ(actual->GetSource(), expected.at("Source").get<int>());
    EXPECT_EQ(actual->GetFitError(), expected.at("FitError").get<double>());
    EXPECT_EQ(actual->GetMeasureStandard(), expected.at("MeasureStandard").get<std::string>());
    const nlohmann::json& curves = expected.at("Curves");
    ASSERT_EQ(actual->GetCurveCount(), expected.at("CurveCount").get<int>());
    ASSERT_EQ(static_cast<int>(curves.size()), actual->GetCurveCount());
    for (int c = 0; c < actual->GetCurveCount(); ++c) {
        SCOPED_TRACE(c);
        double condition = 0.0;
        int points = -1;
        double* x = nullptr;
        double* y = nullptr;
        ASSERT_TRUE(actual->GetCurve(c, condition, points, x, y));
        const nlohmann::json& curve = curves.at(static_cast<std::size_t>(c));
        EXPECT_EQ(condition, curve.at("Condition").get<double>());
        ASSERT_EQ(points, curve.at("PointCount").get<int>());
        const auto xs = curve.at("X").get<std::vector<double>>();
        const auto ys = curve.at("Y").get<std::vector<double>>();
        ASSERT_EQ(static_cast<int>(xs.size()), points);
        ASSERT_EQ(static_cast<int>(ys.size()), points);
        for (int i = 0; i < points; ++i) {
            EXPECT_EQ(x[i], xs[static_cast<std::size_t>(i)]) << i;
            EXPECT_EQ(y[i], ys[static_cast<std::size_t>(i)]) << i;
        }
    }
}

// The MTC list of a record against its JSON (null for a null list). A section lists its first
// MaxParameterNum parameters.
inline void expectMTC(QrvMaterial& m, const nlohmann::json& expected) {
    SCOPED_TRACE("MTC");
    if (expected.is_null()) {
        EXPECT_EQ(m.MTC, nullptr);
        return;
    }
    ASSERT_NE(m.MTC, nullptr);
    int version = -1, count = -1;
    QrvGetMTCInfo(&m, version, count);
    EXPECT_EQ(version, expected.at("Version").get<int>());
    ASSERT_EQ(count, expected.at("RecordCount").get<int>());
    const nlohmann::json& records = expected.at("Records");
    ASSERT_EQ(static_cast<int>(records.size()), count);
    for (int r = 0; r < count; ++r) {
        SCOPED_TRACE(r);
        const QRV_MTC* record = QrvGetMTCData(&m, r);
        ASSERT_NE(record, nullptr);
        const nlohmann::json& want = records.at(static_cast<std::size_t>(r));
        EXPECT_EQ(record->Version, want.at("Version").get<int>());
        EXPECT_EQ(record->SecurityLevel, want.at("SecurityLevel").get<int>());
        ASSERT_EQ(record->SectionCount, want.at("SectionCount").get<int>());
        const nlohmann::json& sections = want.at("Sections");
        ASSERT_EQ(static_cast<int>(sections.size()), record->SectionCount);
        for (int s = 0; s < record->SectionCount; ++s) {
            const QrvMTCSection& section = record->Sections[s];
            const nlohmann::json& ws = sections.at(static_cast<std::size_t>(s));
            EXPECT_EQ(section.Attribute, ws.at("Attribute").get<int>());
            EXPECT_EQ(section.ModelId, ws.at("ModelId").get<int>());
            ASSERT_EQ(section.MaxParameterNum, ws.at("MaxParameterNum").get<int>());
            const auto parameters = ws.at("Parameters").get<std::vector<double>>();
            ASSERT_EQ(static_cast<int>(parameters.size()), section.MaxParameterNum);
            for (std::size_t i = 0; i < parameters.size(); ++i)
                EXPECT_EQ(section.Parameters[i], parameters[i]) << s << " " << i;
            EXPECT_EQ(record->IntervalTemperature[s], ws.at("IntervalTemperature").get<double>());
        }
    }
}

// Everything a load decodes: the record of expectRecord and its measured data.
inline void expectMaterial(QrvMaterial& m, const nlohmann::json& record) {
    expectRecord(m, record);
    expectRawData(m.VisRaw, record.at("VisRaw"), "VisRaw");
    expectRawData(m.PVTRaw, record.at("PVTRaw"), "PVTRaw");
    expectMTC(m, record.at("MTC"));
}

}  // namespace qrvtest

#endif
