// Any bytes as the statistics file of an install folder: the data check of a thermoplastic of the
// class PLA reads it and always ends with a text, and the table is read once more for the class
// named by the input's first word.
#include <sys/stat.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz_files.h"
#include "record/material_internal.h"
#include "report/polymer_data_check.h"

namespace {

// An install folder with the file at Bank/System/StatData.sta.
const std::string& installFolder() {
    static const std::string path = [] {
        for (const char* sub : {"Bank", "Bank/System"})
            mkdir((qrvfuzz::folder() + sub).c_str(), 0700);
        return qrvfuzz::folder();
    }();
    return path;
}

void setBlock(QrvMatParam& block, int model, const std::vector<double>& values) {
    delete[] block.Para;
    block.Model = model;
    block.Count = static_cast<int>(values.size());
    block.Para = new double[values.size()];
    std::memcpy(block.Para, values.data(), values.size() * sizeof(double));
}

// A PLA whose models are those the richest statistics speak of.
QrvMaterial* material() {
    static QrvMaterial* pla = [] {
        auto* m = new QrvMaterial;
        QrvInitMaterial(m);
        m->FileType = QRV_TYPE_THERMOPLASTIC;
        m->FileVer = 9008;
        delete[] m->Polymer;
        m->Polymer = qrv::newText("PLA");
        setBlock(m->Vis, 5, {0.28, 1.5e5, 3e12, 373.15, 1.5e-7, 28.0, 51.6});
        setBlock(m->PVT, 5,
                 {0.93, 6e-4, 1.8e9, 4.5e-3, 0.92, 2.5e-4, 2.7e9, 3.5e-3, 420.0, 1.6e-7, 0.03, 0.06,
                  1.2e-9});
        setBlock(m->Cp, 4, {1.1e7, 20.0, 1.3e7, 80.0, 2.4e7, 150.5});
        setBlock(m->K, 3, {1.7e4, 30.0, 1.9e4, 90.0});
        setBlock(m->Temp, 0, {1, 1, 1, 1, 1, 1, 1, 100});
        return m;
    }();
    return pla;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string path = installFolder() + "Bank/System/StatData.sta";
    qrvfuzz::write(path, data, size);
    {
        CQrvPolymerDataCheck check(installFolder().c_str(), material());
        if (check.CheckMaterial().empty()) __builtin_trap();  // a thermoplastic always has a text
    }
    std::size_t word = 0;
    while (word < size && word < 32 && data[word] != ' ' && data[word] != '\n' && data[word] != 0)
        ++word;
    CQrvStatData table;
    table.FilePath = path.c_str();
    table.ReadFile(std::string(reinterpret_cast<const char*>(data), word));
    return 0;
}
