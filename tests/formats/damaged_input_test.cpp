// Randomly damaged sample frames: whatever the bytes, a read throws nothing, allocates within
// the stream's bounds and leaves an object that measures exactly what it writes.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <random>
#include <string>

#include "formats/binary_stream.h"
#include "formats/mat_factory.h"
#include "support/byte_builder.h"

namespace {

// Overwrites a few bytes or whole words with random values, or cuts the tail.
std::string damage(std::string bytes, std::mt19937& random) {
    std::uniform_int_distribution<std::size_t> position(0, bytes.size() - 1);
    std::uniform_int_distribution<int> kind(0, 3), byte(0, 255), times(1, 4);
    const int edits = times(random);
    for (int e = 0; e < edits; ++e) {
        const std::size_t at = position(random);
        switch (kind(random)) {
            case 0:
                bytes[at] = static_cast<char>(byte(random));
                break;
            case 1:  // a word of all ones: -1
                for (std::size_t i = at; i < at + 4 && i < bytes.size(); ++i)
                    bytes[i] = '\xff';
                break;
            case 2:  // a huge positive word
                for (std::size_t i = at; i < at + 4 && i < bytes.size(); ++i)
                    bytes[i] = i + 1 == at + 4 ? '\x7f' : '\xff';
                break;
            default:
                bytes.resize(at);
                return bytes;
        }
    }
    return bytes;
}

}  // namespace

TEST(DamagedInput, ReadsOfDamagedSampleFilesStayBounded) {
    std::mt19937 random(20261122);
    for (const char* name : {"sample_thermoplastic_9012.mtr", "sample_thermoset_9018.mtx",
                             "sample_metal.mtr", "sample_default_3_2.mtr"}) {
        const std::string file = qrvtest::readFile(std::string(QRV_TEST_DATA_DIR) + "/" + name);
        ASSERT_GT(file.size(), 12u);
        const int objType = qrvtest::wordAt(file, 8);
        const std::string reader = file.substr(12);
        for (int round = 0; round < 400; ++round) {
            CQrvMemoryStream in(damage(reader, random));
            auto object = qrv::newObjectOfType(objType, &in);
            ASSERT_NE(object, nullptr) << name;
            ASSERT_NO_THROW(EXPECT_TRUE(object->Read())) << name << " " << round;
            CQrvMemoryStream out;
            object->WriteTo(out);
            EXPECT_EQ(out.Bytes().size(), object->GetSize() + 4u) << name << " " << round;
        }
    }
}
