#include "formats/legacy_block.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>

#include "record/material_internal.h"

namespace {

using namespace qrv::legacy;

// The block's words are little-endian whatever the host.
std::int32_t wordAt(const unsigned char* bytes, int offset) {
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i)
        value = (value << 8) | bytes[offset + i];
    return static_cast<std::int32_t>(value);
}

double doubleAt(const unsigned char* bytes, int offset) {
    std::uint64_t bits = 0;
    for (int i = 7; i >= 0; --i)
        bits = (bits << 8) | bytes[offset + i];
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

enum CodeSlot { kVis, kPVT, kCp, kK, kFifth, kTemp, kVE };

// Reads blocks in code order, each taking its values from where the last one ended.
class BlockReader {
public:
    explicit BlockReader(const unsigned char* bytes) : bytes_(bytes) {}

    std::int32_t code(CodeSlot slot) const { return wordAt(bytes_, 12 + 4 * slot); }

    // Splits the code into block and copies its values. An empty block still gets a zero-length
    // array, as the old reader always allocated one, unless allocateEmpty is false: then a count
    // of zero or below leaves Para null and the split fields as they came.
    void read(QrvMatParam& block, CodeSlot slot, bool allocateEmpty = true) {
        QrvSplitBlockCode(static_cast<unsigned>(code(slot)), &block.Source, &block.Model,
                          &block.Count);
        if (block.Count <= 0 && !allocateEmpty) return;
        if (block.Count < 0) {
            throw std::invalid_argument("legacy block code with fewer than eight digits");
        }
        if (block.Count > kValueCapacity - next_) {
            throw std::invalid_argument("legacy block values run past the block");
        }
        block.Para = new double[block.Count];
        for (int i = 0; i < block.Count; ++i) {
            block.Para[i] = doubleAt(bytes_, kValuesOffset + 8 * (next_ + i));
        }
        next_ += block.Count;
    }

private:
    const unsigned char* bytes_;
    int next_ = 0;
};

void emptyBlock(QrvMatParam& block) {
    block.Source = 0;
    block.Model = 0;
    block.Count = 0;
    block.Para = nullptr;
}

bool carriesViscoelasticBlock(int fileVer) {
    return fileVer == 9005 || fileVer >= 9007;
}

}  // namespace

const char* QrvBlockText(const char* text, int field) {
    static char buffer[kTextSize];
    if (!text || !std::strchr(text, '$')) return "";
    std::memset(buffer, 0, sizeof buffer);
    int passed = 0;
    int length = 0;
    for (const char* c = text; *c; ++c) {
        if (*c == '$') {
            if (++passed == field) break;
        } else if (passed == field - 1 && length < kTextSize - 1) {
            buffer[length++] = *c;
        }
    }
    return buffer;
}

void QrvMaterialFromBlock(QrvMaterial* material, const void* block, bool isRIM) {
    if (!material || !block) return;
    const auto* bytes = static_cast<const unsigned char*>(block);
    const std::int32_t versionWord = wordAt(bytes, 0);
    material->FileVer = QrvSplitFileVer(versionWord);
    material->FileType = QrvSplitFileType(versionWord);
    material->LastEditDate = wordAt(bytes, 4);
    material->MeasureDate = wordAt(bytes, 8);

    // A terminated copy of the run, so that a run filled to its last byte stays bounded.
    char run[kTextSize + 1] = {};
    std::memcpy(run, bytes + kTextOffset, kTextSize);
    int field = 1;
    for (auto text : qrv::kTexts)
        material->*text = qrv::newText(QrvBlockText(run, field++));

    BlockReader reader(bytes);
    reader.read(material->Vis, kVis);
    reader.read(material->PVT, kPVT);
    reader.read(material->Cp, kCp);
    reader.read(material->K, kK);
    if (isRIM) {
        emptyBlock(material->Mech);
        emptyBlock(material->Temp);
        reader.read(material->KN, kFifth);
        return;
    }
    emptyBlock(material->KN);
    reader.read(material->Mech, kFifth);
    QrvBuildMechBlocks(material);
    reader.read(material->Temp, kTemp);
    if (carriesViscoelasticBlock(material->FileVer)) {
        reader.read(material->VE, kVE, /*allocateEmpty=*/false);
    }
}
