// What a record read from a run file may be when HDF5 refused part of the reading or of the
// writing before it: nothing that was not stored, and each part either as stored or as a new
// record has it. An item or array that was made but whose value HDF5 refused to write holds
// HDF5's fill value, 0 (an empty text): an array's values are all as stored or all 0.
#ifndef QRV_TESTS_RSVFAULT_PARTIAL_RECORD_H
#define QRV_TESTS_RSVFAULT_PARTIAL_RECORD_H

#include <gtest/gtest.h>

#include <quorvalib/measured.h>
#include <quorvalib/record.h>

#include <cstring>
#include <string>

#include "support/material_ptr.h"

namespace qrvtest {

namespace partial {

inline bool sameText(const char* a, const char* b) {
    return std::strcmp(a ? a : "", b ? b : "") == 0;
}

inline bool allAsStoredOrZero(const double* part, const double* stored, int count) {
    bool asStored = true;
    bool zero = true;
    for (int i = 0; i < count; ++i) {
        asStored = asStored && part[i] == stored[i];
        zero = zero && part[i] == 0.0;
    }
    return asStored || zero;
}

// A stored block comes back whole or not at all; its model id is an item of its own.
inline void expectBlock(const QrvMatParam& part, const QrvMatParam& stored, const char* name) {
    SCOPED_TRACE(name);
    EXPECT_TRUE(part.Model == stored.Model || part.Model == 0) << part.Model;
    if (part.Count == 0) {
        EXPECT_EQ(part.Para, nullptr);
        return;
    }
    ASSERT_EQ(part.Count, stored.Count);
    ASSERT_NE(part.Para, nullptr);
    EXPECT_TRUE(allAsStoredOrZero(part.Para, stored.Para, part.Count));
}

// The curves read are the first ones stored, each whole.
inline void expectCurves(CQrvMatRawData* part, CQrvMatRawData* stored, const char* name) {
    SCOPED_TRACE(name);
    if (!part) return;
    ASSERT_NE(stored, nullptr);
    ASSERT_LE(part->GetCurveCount(), stored->GetCurveCount());
    for (int c = 0; c < part->GetCurveCount(); ++c) {
        double conditionA = 0, conditionB = 0;
        int countA = 0, countB = 0;
        double *xA = nullptr, *yA = nullptr, *xB = nullptr, *yB = nullptr;
        part->GetCurve(c, conditionA, countA, xA, yA);
        stored->GetCurve(c, conditionB, countB, xB, yB);
        EXPECT_TRUE(conditionA == conditionB || conditionA == 0.0) << c;
        ASSERT_EQ(countA, countB) << c;
        // One array holds both rows.
        const bool whole = allAsStoredOrZero(xA, xB, countA) && allAsStoredOrZero(yA, yB, countA);
        EXPECT_TRUE(whole) << c;
    }
}

}  // namespace partial

// part: the record read back; stored: the record that was added (as loaded from its file).
inline void expectPartOf(QrvMaterial& part, QrvMaterial& stored) {
    MaterialPtr blank = adopt(new QrvMaterial);
    QrvInitMaterial(blank.get());
    // An item made but not written reads as 0 too; a material with MTC records reads back as
    // version 9010.
    for (auto field : {&QrvMaterial::FileType, &QrvMaterial::FileVer, &QrvMaterial::LastEditDate,
                       &QrvMaterial::MeasureDate}) {
        const int got = part.*field;
        EXPECT_TRUE(got == stored.*field || got == blank.get()->*field || got == 0 ||
                    (field == &QrvMaterial::FileVer && got == 9010))
            << got;
    }
    for (auto text : {&QrvMaterial::Polymer, &QrvMaterial::Producer, &QrvMaterial::GradeName,
                      &QrvMaterial::Comment, &QrvMaterial::Source}) {
        const char* got = part.*text;
        EXPECT_TRUE(partial::sameText(got, stored.*text) || partial::sameText(got, ""))
            << (got ? got : "(null)");
    }
    const std::pair<QrvMatParam QrvMaterial::*, const char*> kept[] = {
        {&QrvMaterial::Vis, "Vis"},   {&QrvMaterial::PVT, "PVT"},  {&QrvMaterial::Cp, "Cp"},
        {&QrvMaterial::K, "K"},       {&QrvMaterial::VE, "VE"},    {&QrvMaterial::OP, "OP"},
        {&QrvMaterial::Mech, "Mech"}, {&QrvMaterial::KN, "KN"},    {&QrvMaterial::CR, "CR"},
        {&QrvMaterial::PW, "PW"},     {&QrvMaterial::Temp, "Temp"}};
    for (const auto& [block, name] : kept)
        partial::expectBlock(part.*block, stored.*block, name);
    for (auto block : {&QrvMaterial::EM, &QrvMaterial::PR, &QrvMaterial::CLTE, &QrvMaterial::SI})
        EXPECT_EQ((part.*block).Count, 0);
    partial::expectCurves(part.VisRaw, stored.VisRaw, "VisRaw");
    partial::expectCurves(part.PVTRaw, stored.PVTRaw, "PVTRaw");
    int partVersion = 0, partCount = 0, storedVersion = 0, storedCount = 0;
    QrvGetMTCInfo(&part, partVersion, partCount);
    QrvGetMTCInfo(&stored, storedVersion, storedCount);
    EXPECT_LE(partCount, storedCount);
}

}  // namespace qrvtest

#endif
