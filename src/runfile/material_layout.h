// The names under which a material's fields lie in its run-file group, as tables shared by the
// writer and the reader.
#ifndef QRV_RUNFILE_MATERIAL_LAYOUT_H
#define QRV_RUNFILE_MATERIAL_LAYOUT_H

#include <quorvalib/record.h>

namespace qrv::runfile {

// Texts of the "Summary" table, in the order they are stored.
struct TextItem {
    const char* Key;
    char* QrvMaterial::*Field;
};
constexpr TextItem kTextItems[] = {{"Polymer", &QrvMaterial::Polymer},
                                   {"Grade Name", &QrvMaterial::GradeName},
                                   {"Producer", &QrvMaterial::Producer},
                                   {"Comment", &QrvMaterial::Comment},
                                   {"Source", &QrvMaterial::Source}};

// Integers of the "Summary" table that follow the texts.
struct NumberItem {
    const char* Key;
    int QrvMaterial::*Field;
};
constexpr NumberItem kNumberItems[] = {{"Type", &QrvMaterial::FileType},
                                       {"Version", &QrvMaterial::FileVer},
                                       {"Last modified date", &QrvMaterial::LastEditDate},
                                       {"Measurement date", &QrvMaterial::MeasureDate}};

// The stored blocks: the model id's item in "Summary" (after the integers above) and the array of
// the parameters, in the order of both. "PW para" has its small p in the format itself; EM, PR,
// CLTE and SI are not stored.
struct BlockItem {
    const char* ModelKey;
    const char* ArrayName;
    QrvMatParam QrvMaterial::*Block;
};
constexpr BlockItem kBlockItems[] = {
    {"Vis Model", "Vis Para", &QrvMaterial::Vis},    {"PVT Model", "PVT Para", &QrvMaterial::PVT},
    {"Cp Model", "Cp Para", &QrvMaterial::Cp},       {"K Model", "K Para", &QrvMaterial::K},
    {"VE Model", "VE Para", &QrvMaterial::VE},       {"OP Model", "OP Para", &QrvMaterial::OP},
    {"MECH Model", "MECH Para", &QrvMaterial::Mech}, {"KN Model", "KN Para", &QrvMaterial::KN},
    {"CR Model", "CR Para", &QrvMaterial::CR},       {"PW Model", "PW para", &QrvMaterial::PW},
    {"TEMP Model", "TEMP Para", &QrvMaterial::Temp}};

constexpr const char* kVisRawGroup = "Vis Raw Data";
constexpr const char* kPVTRawGroup = "PVT Raw Data";

}  // namespace qrv::runfile

#endif
