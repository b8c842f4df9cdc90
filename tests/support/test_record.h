// Records built by hand for the tests: a zero-state record owned by a smart pointer, and blocks
// filled from a list of values.
#ifndef QRV_TESTS_SUPPORT_TEST_RECORD_H
#define QRV_TESTS_SUPPORT_TEST_RECORD_H

#include <memory>
#include <vector>

#include <quorvalib/record.h>

#include "record/material_internal.h"

namespace qrv::test {

struct ReleaseRecord {
    void operator()(QrvMaterial* material) const { QrvReleaseMaterial(material); }
};
using Record = std::unique_ptr<QrvMaterial, ReleaseRecord>;

inline Record makeRecord(int fileType = QRV_TYPE_THERMOPLASTIC) {
    Record record(new QrvMaterial);
    QrvInitMaterial(record.get());
    record->FileType = fileType;
    return record;
}

// Replaces the block's array by a fresh one holding values (an empty list leaves Para null).
inline void setBlock(QrvMatParam& block, int model, const std::vector<double>& values) {
    delete[] block.Para;
    block.Para = nullptr;
    qrv::allocateBlock(block, block.Source, model, static_cast<int>(values.size()));
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

}  // namespace qrv::test

#endif
