// Records and banks for the bank tests: small materials of each class built field by field, and
// banks written from hand-made frames.
#ifndef QRV_TESTS_BANK_BANK_SUPPORT_H
#define QRV_TESTS_BANK_BANK_SUPPORT_H

#include <quorvalib/bank.h>

#include <string>
#include <vector>

#include "formats/frame_builder.h"
#include "record/material_internal.h"
#include "support/byte_builder.h"
#include "support/material_ptr.h"
#include "support/temp_files.h"

namespace qrvtest {

inline void setTexts(QrvMaterial& m, const std::string& polymer, const std::string& producer,
                     const std::string& grade, const std::string& comment,
                     const char* source = nullptr) {
    m.Polymer = qrv::newText(polymer.c_str());
    m.Producer = qrv::newText(producer.c_str());
    m.GradeName = qrv::newText(grade.c_str());
    m.Comment = qrv::newText(comment.c_str());
    if (source) m.Source = qrv::newText(source);
}

// A thermoplastic of the given body version with a block in every thermoplastic place; each
// block's own Source is 7, so that the bank's 1000 shows.
inline void fillThermoplastic(QrvMaterial* m, int fileVer = 9012,
                              const std::string& grade = "GB 2003D") {
    m->FileType = QRV_TYPE_THERMOPLASTIC;
    m->FileVer = fileVer;
    m->LastEditDate = 20240314;
    m->MeasureDate = 20190101;
    setTexts(*m, "PLA", "Greenfield", grade, "sheet grade", "lab 4");
    setBlock(m->Vis, 5, {0.01, 204026.1, 7.63e17, 432.06, 0.0, 36.1, 1.09});
    setBlock(m->PVT, 1, {0.9});
    setBlock(m->Cp, 1, {2e7});
    setBlock(m->K, 1, {2e4});
    setBlock(m->Mech, 0, {0.36, 0.36, 3.5e10, 3.5e10, 1.29e10, 7.4e-5, 7.4e-5});
    setBlock(m->Temp, 2, {190, 205, 220, 25, 35, 50, 55, 88});
    setBlock(m->VE, 1, {2e9, 0.35, 0.01});
    setBlock(m->OP, 1, {1.455, 3e-4});
    setBlock(m->CR, 2, {1.0, 2.0});
    setBlock(m->PW, 3, {4.0});
    setBlock(m->KN, 2, {0.5});  // not a thermoplastic's block
    for (QrvMatParam QrvMaterial::*block : qrv::kBlocks)
        if (((*m).*block).Count > 0) ((*m).*block).Source = 7;
}

inline MaterialPtr thermoplasticRecord(int fileVer = 9012, const std::string& grade = "GB 2003D") {
    MaterialPtr m = makeRecord();
    fillThermoplastic(m.get(), fileVer, grade);
    return m;
}

inline MaterialPtr thermosetRecord() {
    MaterialPtr m = makeRecord(QRV_TYPE_THERMOSET);
    m->FileVer = 9018;
    m->LastEditDate = 20230505;
    m->MeasureDate = 20200202;
    setTexts(*m, "Epoxy", "Kobari Chemical", "KC-6600", "green moulding compound", "lab 9");
    setBlock(m->Vis, 13, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    setBlock(m->PVT, 1, {0.55});
    setBlock(m->Cp, 2, {1e7, 20, 1.2e7, 200});
    setBlock(m->K, 1, {3e4});
    setBlock(m->KN, 2, {0.3, 1.1, 2.2, 3.3, 4.4, 5.5, 6.6});
    setBlock(m->Mech, 0, {0.3, 0.3, 2e10, 2e10, 8e9, 2e-5, 2e-5});
    setBlock(m->Temp, 2, {1, 2, 3, 4, 5, 6, 7, 8});
    setBlock(m->SI, 1, {170.0, 2.8});
    setBlock(m->PW, 1, {9.0});
    for (QrvMatParam QrvMaterial::*block : qrv::kBlocks)
        if (((*m).*block).Count > 0) ((*m).*block).Source = 7;
    return m;
}

inline void fillMetal(QrvMaterial* m, const std::string& grade = "Stainless 316L",
                      const std::string& comment = "Austenitic D=7.99 g/cc",
                      int fileType = QRV_TYPE_METAL, const std::string& kind = "Metal") {
    m->FileType = fileType;
    m->FileVer = 7101;
    m->LastEditDate = 20220707;
    m->MeasureDate = 20191001;
    setTexts(*m, kind, "Hallam Steel", grade, comment);
    setBlock(m->Cp, 1, {5e6});
    setBlock(m->K, 1, {1.63e6});
    setBlock(m->Mech, 0, {0.27, 0.28, 1.93e12, 1.93e12, 7.6e11, 1.6e-5, 1.7e-5});
    setBlock(m->Vis, 1, {1.0});  // not a non-polymer's block
}

inline MaterialPtr metalRecord(const std::string& grade = "Stainless 316L",
                               const std::string& comment = "Austenitic D=7.99 g/cc",
                               int fileType = QRV_TYPE_METAL, const std::string& kind = "Metal") {
    MaterialPtr m = makeRecord();
    fillMetal(m.get(), grade, comment, fileType, kind);
    return m;
}

// Adds one record to the bank; the call's result.
inline int addOne(const std::string& bank, QrvMaterial& material) {
    MATIO_BankManipulator banks;
    return banks.AddMaterialsToBank(bank.c_str(), &material, 1);
}

// A record as from the default constructor with the four numbers set to marks, so that a field
// a call does not write can be seen.
constexpr int kUntouched = -777;
inline void markNumbers(QrvMaterial& m) {
    m.FileType = kUntouched;
    m.FileVer = kUntouched;
    m.LastEditDate = kUntouched;
    m.MeasureDate = kUntouched;
}

// The bytes of frame index of a bank file, walked from offset 4 by the ObjSize words.
inline std::string frameOf(const std::string& bank, int index) {
    std::size_t at = 4;
    for (int i = 0; i < index; ++i)
        at += static_cast<std::size_t>(wordAt(bank, at)) + 4;
    return bank.substr(at, static_cast<std::size_t>(wordAt(bank, at)) + 4);
}

}  // namespace qrvtest

#endif
