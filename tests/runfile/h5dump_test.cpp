// A small run file as any HDF5 tool sees it: the listing of h5dump compared with the one kept in
// tests/data.
#include <gtest/gtest.h>

#include <quorvalib/measured.h>
#include <quorvalib/runfile.h>

#include <cstdio>
#include <string>

#include "runfile/run_file_support.h"
#include "support/temp_files.h"

namespace {

using namespace qrvtest;

std::string run(const std::string& command) {
    std::string output;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return output;
    char buffer[4096];
    size_t read = 0;
    while ((read = std::fread(buffer, 1, sizeof buffer, pipe)) > 0)
        output.append(buffer, read);
    ::pclose(pipe);
    return output;
}

// A thermoplastic with two blocks, one measured viscosity curve and one MTC record of one section.
MaterialPtr smallMaterial() {
    MaterialPtr material = makeRecord();
    material->Polymer = qrv::newText("PP");
    material->Producer = qrv::newText("Maker");
    material->GradeName = qrv::newText("G1");
    material->Comment = qrv::newText("");
    setBlock(material->Vis, 1, {1000.0, 0.3});
    setBlock(material->Cp, 1, {2.0e7});
    material->VisRaw = new CQrvViscosityData;
    const double x[] = {100.0, 1000.0}, y[] = {500.0, 200.0};
    material->VisRaw->AddCurve(200.0, 2, x, y);
    QrvMTCSection section{1, 3, 2, {0.5, 7.0}};
    double temperature = 180.0;
    QRV_MTC record{2, 0, 1, &section, &temperature};
    QrvAddMTCData(material.get(), &record, 1);
    return material;
}

TEST(H5dumpTest, ListingOfASmallRunFileIsTheKeptOne) {
    TempFolder folder;
    MaterialPtr material = smallMaterial();
    {
        MATIO_RSVManipulator manipulator(folder.path("small.rsv").c_str());
        ASSERT_TRUE(manipulator.AddMaterial(material.get(), "Part", kRun1Plastic));
    }
    // Run inside the folder so that the file name in the first line is the same everywhere.
    const std::string listing =
        run("cd '" + folder.root().string() + "' && h5dump -n small.rsv 2>&1");
    EXPECT_EQ(listing, fileBytes(dataPath("runfile_h5dump.txt")));
}

}  // namespace
