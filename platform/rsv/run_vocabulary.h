// The fixed vocabulary of a run file and the packing of a run and an item into one id.
//
// The path tables are shared vocabulary of the run format, kept as zero-terminated texts in rows
// of fixed width; paths hold "%d" where the run number goes. Of them the library itself reads
// only the first run group row, "Material/". The analysis and computation names keep the format's
// own "PadddleShift" (three d), while the entity names spell "PaddleshiftBC".
#ifndef QRV_PLATFORM_RSV_RUN_VOCABULARY_H
#define QRV_PLATFORM_RSV_RUN_VOCABULARY_H

namespace QRV3DRSVExTool {

constexpr int kRunGroupCount = 7;
constexpr int kEntityCount = 48;
constexpr int kStageCount = 11;  // analyses and computations share the eleven names

extern const char kRunGroups[kRunGroupCount][128];
extern const char kEntityNames[kEntityCount][64];
extern const char kEntityPaths[kEntityCount][128];
extern const char kEntitySubPaths[kEntityCount][128];
extern const char kAnalysisNames[kStageCount][64];
extern const char kAnalysisPaths[kStageCount][128];
extern const char kAnalysisSubPaths[kStageCount][128];
extern const char kComputationNames[kStageCount][64];
extern const char kComputationPaths[kStageCount][128];
extern const char kComputationSubPaths[kStageCount][128];

// Well-known groups of a run, by the category number OpenGroup takes.
constexpr int kCategoryEntity = 1;
constexpr int kCategoryMaterial = 2;
constexpr int kCategoryDescription = 7;

// Item classes of the low part of an id.
constexpr int kItemPlastic = 1;
constexpr int kItemPartInsert = 2;

// A RunItemId split up: the run is the id divided by 65536, truncating towards zero (so an id
// below 65536 is run 0 and a negative id a run of 0 or below); the low part is what remains; its
// item class is the low part divided by 4096, and a part insert's child number is the low part
// less 8192.
struct RunItem {
    int Run;
    int Low;
    int ItemClass;
    int Child;
};

constexpr RunItem splitRunItemId(int id) {
    const int run = id / 65536;
    const int low = id - run * 65536;
    return RunItem{run, low, low / 4096, low - 8192};
}

}  // namespace QRV3DRSVExTool

#endif
