// Any bytes as a material file: loaded as a thermoplastic and as a thermoset name, and walked as
// a bank. Each load gives a record or null, and each record goes back to a file.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include <quorvalib/files.h>

#include "formats/bank_stream.h"
#include "fuzz_files.h"

using qrvfuzz::folder;
using qrvfuzz::write;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string plastic = folder() + "input.mtr";
    const std::string thermoset = folder() + "input.mtx";
    const std::string saved = folder() + "saved.mtr";
    write(plastic, data, size);
    write(thermoset, data, size);
    for (const std::string& path : {plastic, thermoset}) {
        if (QrvMaterial* material = QrvGetMaterial(path.c_str())) {
            QrvSaveMaterial(saved.c_str(), material);
            QrvReleaseMaterial(material);
        }
    }
    CQrvBankStream bank;
    if (bank.OpenFile(plastic.c_str(), false)) {
        const int count = bank.GetMaterialCount();
        for (int i = 0; i < count && i < 8; ++i)
            bank.LoadMaterial(i);
    }
    return 0;
}
