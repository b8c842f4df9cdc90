// CQrvStatData: what is known statistically about one polymer class, read from the statistics
// file: for each viscosity and PVT model the usual range of each parameter, and for viscosity,
// specific volume, heat capacity and conductivity a few sample conditions with the spread of the
// property over the materials of the class. The data check measures a material against it.
//
// Numbers are in the units of the MaterialProperty evaluators and go to them unconverted.
#ifndef QRV_REPORT_STAT_DATA_H
#define QRV_REPORT_STAT_DATA_H

#include <cstdint>
#include <string>

// The usual range of one model parameter. The file writes Low first; it is kept High first.
struct StatRange {
    double High;
    double Low;
};

// One sampled condition, in the file's order.
struct StatSample {
    double Condition;  // shear rate for viscosity, temperature for the others
    double Min;        // smallest value over the materials; stands in for a negative lower bound
    double Max;        // largest value; no check reads it
    double Mean;
    double Std;  // standard deviation
};

class CQrvStatData {
public:
    static constexpr int kVisModels = 7;    // viscosity model ids 0 to 6
    static constexpr int kVisParams = 7;    // parameters per viscosity row
    static constexpr int kPVTModels = 6;    // PVT model ids 0 to 5
    static constexpr int kPVTParams = 13;   // parameters per PVT row
    static constexpr int kMechModels = 4;   // mechanical model ids 0 to 3
    static constexpr int kMechParams = 14;  // parameters per mechanical row
    static constexpr int kTempRanges = 8;
    static constexpr int kVisSamples = 5;
    static constexpr int kCurveSamples = 3;  // PVT, Cp and K samples each

    // Every count is 0, VisCount and PVTCount included. The ranges and samples are NaN until a
    // block of the file fills them: a check that reads one behind a count that the file set
    // without rows compares against NaN and finds nothing out of range.
    CQrvStatData();

    // Fills the table from the blocks of FilePath whose opening line begins with exactly
    // polymerClass (case counts; the class word of a line ends at its first blank). Silent on
    // every failure: a file that cannot be opened, or a null FilePath, leaves the table as it
    // was; lines that do not scan are skipped; rows beyond an array's size and model ids outside
    // a table are read past and not stored. Reading stops at a line holding "[EOF]" or at the
    // end of the file, and the file is closed before the call returns.
    void ReadFile(std::string polymerClass);

    const char* FilePath = nullptr;  // not owned: the owner keeps the text alive and unchanged

    StatRange VisRange[kVisModels][kVisParams];
    StatRange PVTRange[kPVTModels][kPVTParams];
    StatRange MechRange[kMechModels][kMechParams];  // read, used by no check
    StatRange TempRange[kTempRanges];               // read, used by no check
    double VisTemperature;                          // temperature of VisSample
    double PVTPressure;                             // pressure of PVTSample
    std::int32_t VisModeCount[kVisModels];          // materials behind each VisRange row
    std::int32_t PVTModeCount[kPVTModels];
    std::int32_t CpCount;
    std::int32_t KCount;
    std::int32_t MechCount[kMechModels];
    std::int32_t TempCount;
    std::int32_t VisCount;
    std::int32_t PVTCount;
    StatSample VisSample[kVisSamples];  // Condition is a shear rate
    StatSample PVTSample[kCurveSamples];
    StatSample CpSample[kCurveSamples];
    StatSample KSample[kCurveSamples];
};

#endif
