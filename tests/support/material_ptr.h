// Test helpers shared by the test programs.
#ifndef QRV_TESTS_SUPPORT_MATERIAL_PTR_H
#define QRV_TESTS_SUPPORT_MATERIAL_PTR_H

#include <quorvalib/record.h>

#include "record/material_internal.h"

#include <memory>
#include <vector>

namespace qrvtest {

// A record owned by the test and released through the library.
using MaterialPtr = std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)>;

inline MaterialPtr adopt(QrvMaterial* material) {
    return MaterialPtr(material, QrvReleaseMaterial);
}

// A new record in its zero state, of the given FileType.
inline MaterialPtr makeRecord(int fileType = QRV_TYPE_THERMOPLASTIC) {
    MaterialPtr record = adopt(new QrvMaterial);
    QrvInitMaterial(record.get());
    record->FileType = fileType;
    return record;
}

// Sets a block to model and a fresh array holding exactly values (no spare room, so that a read
// past Count is caught by the address sanitizer). The block's old array is freed.
inline void setBlock(QrvMatParam& block, int model, const std::vector<double>& values) {
    delete[] block.Para;
    block.Model = model;
    block.Count = static_cast<int>(values.size());
    block.Para = values.empty() ? nullptr : new double[values.size()];
    for (std::size_t i = 0; i < values.size(); ++i)
        block.Para[i] = values[i];
}

// Gives the block a Count that does not match a null Para, as a damaged record might.
inline void setNullBlock(QrvMatParam& block, int model, int count) {
    delete[] block.Para;
    block.Para = nullptr;
    block.Model = model;
    block.Count = count;
}

// The values of a block as a vector (empty for a null Para).
inline std::vector<double> values(const QrvMatParam& block) {
    if (!block.Para || block.Count < 1) return {};
    return std::vector<double>(block.Para, block.Para + block.Count);
}

}  // namespace qrvtest

#endif
