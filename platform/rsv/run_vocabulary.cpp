#include "rsv/run_vocabulary.h"

// Each name list is written once; the name, path and sub-path tables are spelled out from it.
// clang-format off
#define QRV_ENTITY_NAMES(ROW)                                                                     \
    ROW("MeltEntrance") ROW("SensorNode") ROW("ValveGateNode") ROW("FixedNode")                   \
    ROW("MeasureNode") ROW("MatrixNode") ROW("MarkerNode") ROW("Linker") ROW("ColdRunner")        \
    ROW("HotRunner") ROW("MeltChannel") ROW("GasChannel") ROW("CoolantChannel") ROW("Hose")       \
    ROW("HeatingRod") ROW("Plastic") ROW("MoldBase") ROW("MoldInsert") ROW("PartInsert")          \
    ROW("GasFlow") ROW("Symmetry") ROW("RIMWire") ROW("RIMPaddle") ROW("Surface")                 \
    ROW("GasInlet") ROW("WaterInlet") ROW("AirTrap") ROW("WeldingLine") ROW("ElementBC")          \
    ROW("OpticsBC") ROW("StressBC") ROW("CompressionRegion") ROW("ExtremesRegion")                \
    ROW("ParticleTracer") ROW("StreamLine") ROW("Overflow") ROW("PressureBC") ROW("ForceBC")      \
    ROW("DisplacementBC") ROW("AirVent") ROW("CompressionZone") ROW("HotRunnerController")        \
    ROW("HotRunnerInsertBC") ROW("UnderfillPass") ROW("CoreshiftBC") ROW("HotRunnerMetal")        \
    ROW("CompressionCharge") ROW("PaddleshiftBC")

#define QRV_STAGE_NAMES(ROW)                                                                      \
    ROW("Model") ROW("Filling") ROW("Packing") ROW("Cooling") ROW("Warpage") ROW("Optics")        \
    ROW("WireSweep") ROW("PadddleShift") ROW("Stress") ROW("MoldPreheat") ROW("MoldDeformation")
// clang-format on

#define QRV_NAME_ROW(name) name,
#define QRV_SUB_PATH_ROW(name) name "/",
#define QRV_ENTITY_PATH_ROW(name) "/Vantrell/Run%d/Entity/" name "/",
#define QRV_ANALYSIS_PATH_ROW(name) "/Vantrell/Run%d/Analysis/" name "/",
#define QRV_COMPUTATION_PATH_ROW(name) "/Vantrell/Run%d/Computation/" name "/",

namespace QRV3DRSVExTool {

const char kRunGroups[kRunGroupCount][128] = {"Material/",  "CoolingChannel/", "HeatingRod/",
                                              "MoldMetal/", "Process/",        "TaskManager/",
                                              "Sequence/"};

const char kEntityNames[kEntityCount][64] = {QRV_ENTITY_NAMES(QRV_NAME_ROW)};
const char kEntityPaths[kEntityCount][128] = {QRV_ENTITY_NAMES(QRV_ENTITY_PATH_ROW)};
const char kEntitySubPaths[kEntityCount][128] = {QRV_ENTITY_NAMES(QRV_SUB_PATH_ROW)};

const char kAnalysisNames[kStageCount][64] = {QRV_STAGE_NAMES(QRV_NAME_ROW)};
const char kAnalysisPaths[kStageCount][128] = {QRV_STAGE_NAMES(QRV_ANALYSIS_PATH_ROW)};
const char kAnalysisSubPaths[kStageCount][128] = {QRV_STAGE_NAMES(QRV_SUB_PATH_ROW)};

const char kComputationNames[kStageCount][64] = {QRV_STAGE_NAMES(QRV_NAME_ROW)};
const char kComputationPaths[kStageCount][128] = {QRV_STAGE_NAMES(QRV_COMPUTATION_PATH_ROW)};
const char kComputationSubPaths[kStageCount][128] = {QRV_STAGE_NAMES(QRV_SUB_PATH_ROW)};

}  // namespace QRV3DRSVExTool
