// The round-trip oracle of the fuzz targets: two records compared field by field, bit for bit
// (a NaN read from a file must come back as the same NaN). A difference names its field on
// stderr and aborts, so that libFuzzer keeps the input as a finding.
#ifndef QRV_FUZZ_RECORD_COMPARE_H
#define QRV_FUZZ_RECORD_COMPARE_H

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <quorvalib/measured.h>
#include <quorvalib/record.h>

namespace qrvfuzz {

// Which parts of a record take part in a comparison; a target clears the ones its path
// legitimately changes and says why.
struct Compared {
    bool Header = true;  // FileType, FileVer and the two dates
    bool LastEditDate = true;
    // A load through QrvGetMaterial gives a Polymer of exactly "Metal" FileType 3 and one of
    // "Coolant" FileType 4, whatever the class it was saved as.
    bool KeywordTypes = false;
    // A load through QrvGetMaterialRIM gives a type word of 0 FileType 2: a record of FileType 0
    // (an old fixed block of type digit 0) saved and loaded that way comes back a thermoset.
    bool ThermosetCorrection = false;
    bool Texts = true;
    bool SourceText = true;
    bool UnstoredBlocks = true;  // EM, PR, CLTE and SI, which a run file does not keep
    bool BlockSources = true;
    bool RawExtras = true;  // Source, FitError and MeasureStandard of the measured curves
    bool MTC = true;
    bool NullTextIsEmpty = false;  // a missing text and an empty one count as equal
    bool NoCurvesIsNone = false;   // measured data without a curve counts as no measured data
    // A material file writes an empty VE, OP, CR or PW block as zeros, whatever Source and Model
    // it held.
    bool EmptyLateBlocksZeroed = false;
    std::vector<QrvMatParam QrvMaterial::*> Skipped;  // blocks left out of the comparison
    // Only what every object class of a material file carries: the header, the texts and the
    // blocks Cp and K.
    bool CommonOnly = false;
};

// Which round trip runs, for the message of a difference.
inline const char*& trip() {
    static const char* name = "";
    return name;
}

[[noreturn]] inline void differs(const char* what, const std::string& field) {
    std::fprintf(stderr, "round trip %s changed %s: %s\n", trip(), what, field.c_str());
    std::abort();
}

inline bool sameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

inline void compareText(const char* a, const char* b, const char* field, const Compared& parts) {
    if (parts.NullTextIsEmpty) {
        a = a ? a : "";
        b = b ? b : "";
    }
    if ((a == nullptr) != (b == nullptr) || (a && std::strcmp(a, b) != 0))
        differs("text", std::string(field) + " from \"" + (a ? a : "(null)") + "\" to \"" +
                            (b ? b : "(null)") + "\"");
}

inline void compareBlock(const QrvMatParam& a, const QrvMatParam& b, const char* field,
                         bool zeroedWhenEmpty, const Compared& parts) {
    const std::string change = std::string(field) + " from " + std::to_string(a.Source) + "/" +
                               std::to_string(a.Model) + "/" + std::to_string(a.Count) + " to " +
                               std::to_string(b.Source) + "/" + std::to_string(b.Model) + "/" +
                               std::to_string(b.Count) + " (source/model/count)";
    const bool zeroed = zeroedWhenEmpty && a.Count < 1;
    if (parts.BlockSources && !zeroed && a.Source != b.Source) differs("block source", change);
    if (!zeroed && a.Model != b.Model) differs("block model", change);
    if (a.Count != b.Count) differs("block count", change);
    // Below a Count of 1 the array is meaningless: a reader may leave one of no values behind.
    if (a.Count >= 1 && (a.Para == nullptr) != (b.Para == nullptr))
        differs("block values present", field);
    for (int i = 0; a.Para && i < a.Count; ++i)
        if (!sameBits(a.Para[i], b.Para[i])) differs("block value", field + std::to_string(i));
}

inline void compareRaw(CQrvMatRawData* a, CQrvMatRawData* b, const char* field,
                       const Compared& parts) {
    if (parts.NoCurvesIsNone) {
        if (a && a->GetCurveCount() == 0) a = nullptr;
        if (b && b->GetCurveCount() == 0) b = nullptr;
    }
    if ((a == nullptr) != (b == nullptr))
        differs("curves present", std::string(field) + (a ? " lost " : " gained ") +
                                      std::to_string((a ? a : b)->GetCurveCount()) + " curves");
    if (!a) return;
    if (parts.RawExtras &&
        (a->GetSource() != b->GetSource() || !sameBits(a->GetFitError(), b->GetFitError()) ||
         a->GetMeasureStandard() != b->GetMeasureStandard()))
        differs("curve header", field);
    if (a->GetCurveCount() != b->GetCurveCount()) differs("curve count", field);
    for (int c = 0; c < a->GetCurveCount(); ++c) {
        double conditionA = 0, conditionB = 0;
        int countA = 0, countB = 0;
        double *xA = nullptr, *yA = nullptr, *xB = nullptr, *yB = nullptr;
        a->GetCurve(c, conditionA, countA, xA, yA);
        b->GetCurve(c, conditionB, countB, xB, yB);
        if (!sameBits(conditionA, conditionB) || countA != countB) differs("curve", field);
        for (int p = 0; p < countA; ++p)
            if (!sameBits(xA[p], xB[p]) || !sameBits(yA[p], yB[p])) differs("curve point", field);
    }
}

inline void compareMTC(QrvMaterial& a, QrvMaterial& b) {
    int versionA = 0, countA = 0, versionB = 0, countB = 0;
    QrvGetMTCInfo(&a, versionA, countA);
    QrvGetMTCInfo(&b, versionB, countB);
    if ((a.MTC == nullptr) != (b.MTC == nullptr)) differs("MTC list present", "MTC");
    if (versionA != versionB || countA != countB) differs("MTC list", "MTC");
    for (int r = 0; r < countA; ++r) {
        const QRV_MTC& x = *QrvGetMTCData(&a, r);
        const QRV_MTC& y = *QrvGetMTCData(&b, r);
        if (x.Version != y.Version || x.SecurityLevel != y.SecurityLevel ||
            x.SectionCount != y.SectionCount)
            differs("MTC record", std::to_string(r));
        for (int s = 0; s < x.SectionCount; ++s) {
            const QrvMTCSection& u = x.Sections[s];
            const QrvMTCSection& v = y.Sections[s];
            if (u.Attribute != v.Attribute || u.ModelId != v.ModelId ||
                u.MaxParameterNum != v.MaxParameterNum ||
                !sameBits(x.IntervalTemperature[s], y.IntervalTemperature[s]))
                differs("MTC section", std::to_string(r) + "/" + std::to_string(s));
            for (int p = 0; p < 21; ++p)
                if (!sameBits(u.Parameters[p], v.Parameters[p]))
                    differs("MTC parameter", std::to_string(r) + "/" + std::to_string(s));
        }
    }
}

inline void compareRecords(QrvMaterial& a, QrvMaterial& b, const Compared& parts = Compared()) {
    if (parts.Header) {
        const bool keyword =
            parts.KeywordTypes && b.Polymer &&
            ((b.FileType == QRV_TYPE_METAL && std::strcmp(b.Polymer, "Metal") == 0) ||
             (b.FileType == QRV_TYPE_COOLANT && std::strcmp(b.Polymer, "Coolant") == 0));
        const bool corrected =
            parts.ThermosetCorrection && a.FileType == 0 && b.FileType == QRV_TYPE_THERMOSET;
        if (a.FileType != b.FileType && !keyword && !corrected)
            differs("header", "FileType from " + std::to_string(a.FileType) + " to " +
                                  std::to_string(b.FileType) + " of " +
                                  (a.Polymer ? a.Polymer : ""));
        if (a.FileVer != b.FileVer) differs("header", "FileVer");
        if (parts.LastEditDate && a.LastEditDate != b.LastEditDate)
            differs("header", "LastEditDate");
        if (a.MeasureDate != b.MeasureDate) differs("header", "MeasureDate");
    }
    if (parts.Texts) {
        compareText(a.Polymer, b.Polymer, "Polymer", parts);
        compareText(a.Producer, b.Producer, "Producer", parts);
        compareText(a.GradeName, b.GradeName, "GradeName", parts);
        compareText(a.Comment, b.Comment, "Comment", parts);
        if (parts.SourceText) compareText(a.Source, b.Source, "Source", parts);
    }
    struct Named {
        QrvMatParam QrvMaterial::*Block;
        const char* Name;
        bool Stored;
    };
    static const Named kBlocks[] = {
        {&QrvMaterial::Vis, "Vis", true},    {&QrvMaterial::PVT, "PVT", true},
        {&QrvMaterial::Cp, "Cp", true},      {&QrvMaterial::K, "K", true},
        {&QrvMaterial::EM, "EM", false},     {&QrvMaterial::PR, "PR", false},
        {&QrvMaterial::CLTE, "CLTE", false}, {&QrvMaterial::Temp, "Temp", true},
        {&QrvMaterial::KN, "KN", true},      {&QrvMaterial::Mech, "Mech", true},
        {&QrvMaterial::VE, "VE", true},      {&QrvMaterial::OP, "OP", true},
        {&QrvMaterial::SI, "SI", false},     {&QrvMaterial::CR, "CR", true},
        {&QrvMaterial::PW, "PW", true}};
    for (const Named& block : kBlocks) {
        const bool common = block.Block == &QrvMaterial::Cp || block.Block == &QrvMaterial::K;
        const bool late = block.Block == &QrvMaterial::VE || block.Block == &QrvMaterial::OP ||
                          block.Block == &QrvMaterial::CR || block.Block == &QrvMaterial::PW;
        const bool skipped = std::find(parts.Skipped.begin(), parts.Skipped.end(), block.Block) !=
                             parts.Skipped.end();
        if ((block.Stored || parts.UnstoredBlocks) && (common || !parts.CommonOnly) && !skipped)
            compareBlock(a.*block.Block, b.*block.Block, block.Name,
                         late && parts.EmptyLateBlocksZeroed, parts);
    }
    if (parts.CommonOnly) return;
    compareRaw(a.VisRaw, b.VisRaw, "VisRaw", parts);
    compareRaw(a.PVTRaw, b.PVTRaw, "PVTRaw", parts);
    if (parts.MTC) compareMTC(a, b);
}

}  // namespace qrvfuzz

#endif
