// Construction, assignment and release of the material record.
#include "record/material_internal.h"

#include <quorvalib/measured.h>

#include "measured/mtc_list.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

QrvMatParam::QrvMatParam() : Source(0), Model(0), Count(0), Para(nullptr) {}

QrvMatParam::~QrvMatParam() {
    delete[] Para;
    Para = nullptr;
}

QrvMatParam& QrvMatParam::operator=(const QrvMatParam& other) {
    Source = other.Source;
    Model = other.Model;
    Count = other.Count;
    Para = other.Para;
    return *this;
}

// FileType, FileVer and the dates stay as the allocation left them, as callers of the record
// have always had to run QrvInitMaterial or a reader before looking at them.
QrvMaterial::QrvMaterial()
    : Polymer(nullptr),
      Producer(nullptr),
      GradeName(nullptr),
      Comment(nullptr),
      Source(nullptr),
      VisRaw(nullptr),
      PVTRaw(nullptr),
      MTC(nullptr) {}

QrvMaterial::~QrvMaterial() {
    for (auto text : qrv::kTexts) {
        delete[](this->*text);
        this->*text = nullptr;
    }
    delete VisRaw;  // virtual destructors
    VisRaw = nullptr;
    delete PVTRaw;
    PVTRaw = nullptr;
    delete MTC;
    MTC = nullptr;
    // The blocks free their own arrays as members, PW first and Vis last.
}

QrvMaterial& QrvMaterial::operator=(const QrvMaterial& other) {
    FileType = other.FileType;
    FileVer = other.FileVer;
    LastEditDate = other.LastEditDate;
    MeasureDate = other.MeasureDate;
    for (auto text : qrv::kTexts)
        this->*text = other.*text;
    for (auto block : qrv::kBlocks)
        this->*block = other.*block;
    VisRaw = other.VisRaw;
    PVTRaw = other.PVTRaw;
    MTC = other.MTC;
    return *this;
}

void QrvReleaseMaterial(QrvMaterial* material) {
    if (!material) return;
    for (auto text : qrv::kTexts) {
        delete[](material->*text);
        material->*text = nullptr;
    }
    // A zero-length array left by a format reader is not freed here: the block's destructor,
    // which looks at Para alone, frees it below.
    for (auto member : qrv::kBlocks) {
        QrvMatParam& block = material->*member;
        if (block.Para && block.Count >= 1) {
            delete[] block.Para;
            block.Para = nullptr;
        }
    }
    delete material->VisRaw;
    material->VisRaw = nullptr;
    delete material->PVTRaw;
    material->PVTRaw = nullptr;
    delete material->MTC;
    material->MTC = nullptr;
    delete material;
}

void QrvInitMaterial(QrvMaterial* material) {
    if (!material) throw std::invalid_argument("QrvInitMaterial: null record");
    material->FileType = QRV_TYPE_THERMOPLASTIC;
    material->FileVer = 0;
    material->LastEditDate = 0;
    material->MeasureDate = 0;
    for (auto text : qrv::kTexts)
        material->*text = nullptr;
    for (auto member : qrv::kBlocks) {
        QrvMatParam& block = material->*member;
        block.Source = 0;
        block.Model = 0;
        block.Count = 0;
        block.Para = nullptr;
    }
    material->VisRaw = nullptr;
    material->PVTRaw = nullptr;
}

void QrvBuildMechBlocks(QrvMaterial* material) {
    if (!material) return;
    const QrvMatParam& mech = material->Mech;
    const bool layoutUpTo2 = mech.Model <= 2;
    const int prIndex = layoutUpTo2 ? 0 : 1;
    const int clteIndex = layoutUpTo2 ? 5 : 3;
    const int needed = std::max({2, prIndex, clteIndex}) + 1;
    if (!mech.Para || mech.Count < needed) return;

    qrv::allocateBlock(material->EM, 1000, 1, 1)[0] = mech.Para[2];
    qrv::allocateBlock(material->PR, 1000, 1, 1)[0] = mech.Para[prIndex];
    qrv::allocateBlock(material->CLTE, 1000, 1, 1)[0] = mech.Para[clteIndex];
}

namespace qrv {

double* allocateBlock(QrvMatParam& block, int source, int model, int count) {
    block.Source = source;
    block.Model = model;
    block.Count = count;
    block.Para = count > 0 ? new double[count]() : nullptr;
    return block.Para;
}

char* newText(const char* text, int bufferSize) {
    const std::size_t length = text ? std::strlen(text) : 0;
    const std::size_t size = std::max<std::size_t>(length + 1, bufferSize > 0 ? bufferSize : 0);
    char* copy = new char[size]();
    if (length) std::memcpy(copy, text, length);
    return copy;
}

}  // namespace qrv
