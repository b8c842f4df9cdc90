// CQrvPolymerDataCheck: is a thermoplastic's data plausible against the statistics of its polymer
// class? Its one product is a text of numbered warning sentences for the material report, run
// together with nothing between them ("1. ...2. ..."), or "None".
//
// Use: construct with the install folder and the material, call CheckMaterial once, destroy.
//
//   CQrvPolymerDataCheck check(installFolder, material);
//   std::string warnings = check.CheckMaterial();
//
// The statistics file is <install folder>Bank/System/StatData.sta (the folder text ends in its
// separator; nothing is added). A missing or damaged file is not reported: the checks that need it
// stay silent. The check never changes the material.
#ifndef QRV_REPORT_POLYMER_DATA_CHECK_H
#define QRV_REPORT_POLYMER_DATA_CHECK_H

#include <quorvalib/record.h>

#include <memory>
#include <string>

#include "report/property_set.h"
#include "report/stat_data.h"

class CQrvPlasticMat;

class CQrvPolymerDataCheck {
public:
    // A null folder is taken as an empty text (the file is then looked for relative to the
    // working folder). The material is borrowed and must outlive the object.
    CQrvPolymerDataCheck(const char* installFolder, QrvMaterial* material);
    ~CQrvPolymerDataCheck();
    CQrvPolymerDataCheck(const CQrvPolymerDataCheck&) = delete;
    CQrvPolymerDataCheck& operator=(const CQrvPolymerDataCheck&) = delete;

    // The warnings, numbered from 1 without gaps, or "None" when no check fires. The empty text
    // for a material that is not a thermoplastic (FileType other than 1) and for a null material.
    // Never throws for a material's or a file's content.
    std::string CheckMaterial();

    // The path the statistics are read from.
    const std::string& GetStatFilePath() const { return StatFilePath; }

private:
    // Released in the reverse order: the statistics, the evaluators, the working copy, the path.
    std::string StatFilePath;
    QrvMaterial* Material;
    std::unique_ptr<CQrvPlasticMat> PlasticMat;
    std::unique_ptr<CPropertySet> Evaluators;
    std::unique_ptr<CQrvStatData> Stat;
};

#endif
