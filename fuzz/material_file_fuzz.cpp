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
// FileType 0 and is saved as a non-polymer) loses on its save what its new class does not carry,
// and a non-polymer rebuilds PVT from its comment and EM, PR and CLTE from Mech. A load may also
// retype the record: an old block gives the type digit alone, and the next load of a Polymer
// "Coolant" or "Metal" gives FileType 4 or 3, so such a record changes class on its second save
// as well, and so does a record of FileType 0 loaded again through QrvGetMaterialRIM, which
// gives its type word 0 FileType 2. Each trip whose classes part is therefore compared on what
// every class keeps; the trips go on until one after the first (whose load may drop what the
// current form has no place for) keeps its class, which must then change nothing at all.
constexpr int kTripsToSettle = 3;  // old block -> saving class -> keyword class

void roundTrip(const char* name, const std::string& input, int inputClass, Load load, Save save) {
    qrvfuzz::trip() = name;
    const std::string saved = folder() + "saved-" + input.substr(folder().size());
    QrvMaterial* record = load(input.c_str());
    int frame = inputClass;  // the class of the frame the record was read from
    for (int trip = 0; record && trip < kTripsToSettle; ++trip) {
        QrvMaterial* next = again(record, saved, load, save);
        if (!next) break;
        const int saving = qrv::objTypeFor(record->FileType);
        qrvfuzz::Compared parts;
        parts.CommonOnly = saving != frame || qrv::objTypeFor(next->FileType) != saving;
        parts.ThermosetCorrection = load == QrvGetMaterialRIM;
        if (trip == 0) {
            // An old fixed block has an edit date and a Source text; the current form keeps
            // only the measuring date and no Source text.
            parts.LastEditDate = inputClass != -1;
            parts.SourceText = inputClass != -1;
            parts.EmptyLateBlocksZeroed = true;
            // A Polymer text of "Metal" or "Coolant" gives its type on the next load, whatever
            // FileType the record was saved with.
            parts.KeywordTypes = true;
        }
        qrvfuzz::compareRecords(*record, *next, parts);
        QrvReleaseMaterial(record);
        record = next;
        frame = saving;
        if (trip > 0 && !parts.CommonOnly) break;  // settled, and nothing changed
        if (trip + 1 == kTripsToSettle)
            qrvfuzz::differs("class",
                             "still changing after " + std::to_string(kTripsToSettle) + " saves");
    }
    QrvReleaseMaterial(record);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qrvfuzz::useSystemLocale();
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
