// Any bytes as a material file: loaded as a thermoplastic name with QrvGetMaterial and as a
// thermoset with QrvGetMaterialRIM, and walked as a bank. Each record that loads is saved by the
// matching save call and loaded again by the same load, and the second record must equal the
// first field by field.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include <quorvalib/files.h>

#include "formats/bank_stream.h"
#include "formats/conversions.h"
#include "fuzz_files.h"
#include "record_compare.h"

using qrvfuzz::folder;
using qrvfuzz::write;

namespace {

using Load = QrvMaterial* (*)(const char*);
using Save = int (*)(const char*, QrvMaterial*);

// The object class a current-form file was read as (0 thermoplastic, 1 thermoset, 2 non-polymer),
// from its first frame's ObjType; -1 for the old fixed-block form.
int frameClass(const std::uint8_t* data, std::size_t size) {
    auto word = [&](std::size_t at) {
        std::int32_t value = 0;
        if (at + 4 <= size) std::memcpy(&value, data + at, 4);
        return value;
    };
    const std::int32_t lead = word(0);
    return lead >= 0 && lead % 10000 >= 9051 ? word(8) : -1;
}

// The record saved and loaded again, or null when the writer refuses it (a null text, a block
// without values).
QrvMaterial* again(QrvMaterial* record, const std::string& saved, Load load, Save save) {
    if (save(saved.c_str(), record) != 1) return nullptr;
    QrvMaterial* loaded = load(saved.c_str());
    if (!loaded) qrvfuzz::differs("load", "the saved file does not load");
    return loaded;
}

// The record's FileType chooses the class it is saved through (1 thermoplastic, 2 thermoset,
// any other value non-polymer), and each class keeps its own blocks only: a record of one class
// read from a frame of another (a thermoplastic frame with type word 0, say, which loads as
// FileType 0 and is saved as a non-polymer) loses on its first save what its new class does not
// carry, and a non-polymer rebuilds PVT from its comment and EM, PR and CLTE from Mech. So the
// first save is compared on what every class keeps unless the classes agree; the second save,
// whose class has settled, must change nothing at all.
void roundTrip(const char* name, const std::string& input, int inputClass, Load load, Save save) {
    qrvfuzz::trip() = name;
    const std::string saved = folder() + "saved-" + input.substr(folder().size());
    QrvMaterial* first = load(input.c_str());
    if (!first) return;
    if (QrvMaterial* second = again(first, saved, load, save)) {
        qrvfuzz::Compared firstSave;
        // The classes also part when a keyword Polymer retypes the record on its next load.
        firstSave.CommonOnly =
            qrv::objTypeFor(first->FileType) != inputClass ||
            qrv::objTypeFor(second->FileType) != qrv::objTypeFor(first->FileType);
        // An old fixed block has an edit date and a Source text; the current form keeps only
        // the measuring date and no Source text.
        firstSave.LastEditDate = inputClass != -1;
        firstSave.SourceText = inputClass != -1;
        firstSave.EmptyLateBlocksZeroed = true;
        // A Polymer text of "Metal" or "Coolant" gives its type on the next load, whatever
        // FileType the record was saved with.
        firstSave.KeywordTypes = true;
        qrvfuzz::compareRecords(*first, *second, firstSave);
        if (QrvMaterial* third = again(second, saved, load, save)) {
            qrvfuzz::compareRecords(*second, *third);
            QrvReleaseMaterial(third);
        }
        QrvReleaseMaterial(second);
    }
    QrvReleaseMaterial(first);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string plastic = folder() + "input.mtr";
    const std::string thermoset = folder() + "input.mtx";
    write(plastic, data, size);
    write(thermoset, data, size);
    const int inputClass = frameClass(data, size);
    roundTrip("of QrvGetMaterial", plastic, inputClass, QrvGetMaterial, QrvSaveMaterial);
    roundTrip("of QrvGetMaterialRIM", thermoset, inputClass, QrvGetMaterialRIM, QrvSaveMaterialRIM);
    CQrvBankStream bank;
    if (bank.OpenFile(plastic.c_str(), false)) {
        const int count = bank.GetMaterialCount();
        for (int i = 0; i < count && i < 8; ++i)
            bank.LoadMaterial(i);
    }
    return 0;
}
