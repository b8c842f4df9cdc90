// The material data check: eight checks in a fixed order, each yielding one numbered sentence or
// nothing.
//
// 1, 3  parameter ranges of the viscosity and PVT model: a parameter is flagged above 10 High or
//       below Low / 10 (strictly; NaN is not flagged; a negative Low is tightened, not widened).
//       The sentence is always made plural, even for one parameter.
// 2, 4, 6, 7  viscosity, specific volume, heat capacity and conductivity at the sampled
//       conditions: a sample fails outside Mean +- 3 Std (a negative lower bound becomes Min) or
//       when the value is NaN; the warning needs every sample of the curve to fail.
// 5     the WLF D2 of Modified Cross 3 against 43 degrees above the freeze temperature (bodies of
//       9006 on) or above the PVT transition b5 (older bodies), both Modified Tait 2 fits.
// 8     reserved; never fires.
// Statistics behind fewer than 20 materials are not used, so a class that the file lacks leaves
// only check 5.
#include "report/polymer_data_check.h"

#include <cmath>
#include <cstdio>
#include <string>

#include "formats/plastic_mat.h"

namespace {

constexpr int kMinMaterials = 20;
constexpr double kRangeFactor = 10.0;
constexpr double kStdFactor = 3.0;
constexpr double kD2Margin = 43.0;
constexpr double kCelsiusToKelvin = 273.15;
constexpr char kStatFile[] = "Bank\\System\\StatData.sta";

// The running warning number and the sentences of one run.
class Warnings {
public:
    // Formats the pattern with the current number (and one text) and takes the next number.
    std::string next(const char* pattern, const std::string& text = {}) {
        char buffer[256];
        std::snprintf(buffer, sizeof buffer, pattern, number_, text.c_str());
        ++number_;
        return buffer;
    }

private:
    int number_ = 1;
};

// The statistics file below the install folder, with the literal's backslashes as '/'.
std::string statFilePath(const char* installFolder) {
    std::string path = std::string(installFolder ? installFolder : "") + kStatFile;
    for (char& c : path)
        if (c == '\\') c = '/';
    return path;
}

void replaceFirst(std::string& text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    if (at != std::string::npos) text.replace(at, from.size(), to);
}

// Checks 1 and 3. Rows exist for model ids 0 .. Models - 1 with Params parameters; a model or a
// block outside them has no statistic and is not checked.
template <int Models, int Params>
std::string parameterRange(const QrvMatParam& block, const std::int32_t (&counts)[Models],
                           const StatRange (&ranges)[Models][Params], const char* pattern,
                           Warnings& warnings) {
    if (block.Model < 0 || block.Model >= Models || counts[block.Model] < kMinMaterials) return {};
    if (block.Count < 1 || block.Count > Params || !block.Para) return {};
    std::string flagged;
    for (int i = 0; i < block.Count; ++i) {
        const double v = block.Para[i];
        const StatRange& range = ranges[block.Model][i];
        if (v > range.High * kRangeFactor || range.Low / kRangeFactor > v) {
            if (!flagged.empty()) flagged += ", ";
            flagged += std::to_string(i + 1);
        }
    }
    if (flagged.empty()) return {};
    std::string sentence = warnings.next(pattern, flagged);
    // The list begins with a digit, so the sentence always goes into the plural.
    if (flagged.find(',') != 0) {
        replaceFirst(sentence, " value ", " values ");
        replaceFirst(sentence, " is ", " are ");
    }
    return sentence;
}

// Checks 2, 4, 6 and 7: a warning when more than `allowed` samples fail.
template <int N, typename Evaluate>
std::string curve(std::int32_t count, const StatSample (&samples)[N], int allowed,
                  Evaluate evaluate, const char* pattern, Warnings& warnings) {
    if (count < kMinMaterials) return {};
    int failing = 0;
    for (const StatSample& s : samples) {
        const double d = kStdFactor * s.Std;
        const double upper = s.Mean + d;
        double lower = s.Mean - d;
        if (0.0 > lower) lower = s.Min;
        const double x = evaluate(s);
        if (x > upper || lower > x || std::isnan(x)) ++failing;
    }
    return failing > allowed ? warnings.next(pattern) : std::string();
}

bool holds(const QrvMatParam& block, int index) {
    return block.Para && block.Count > index;
}

// Check 5, for a Modified Cross 3 viscosity with a Modified Tait 2 PVT fit.
std::string d2Distance(const QrvMaterial& m, Warnings& warnings) {
    if (m.Vis.Model != 5 || m.PVT.Model != 5 || !holds(m.Vis, 3)) return {};
    const double D2 = m.Vis.Para[3];
    const bool freezeTemperature = m.FileVer % 10000 >= 9006;
    double limit;
    if (freezeTemperature) {
        if (!holds(m.Temp, 7)) return {};
        limit = (m.Temp.Para[7] + kD2Margin) + kCelsiusToKelvin;
    } else {
        if (!holds(m.PVT, 8)) return {};
        limit = m.PVT.Para[8] + kD2Margin;
    }
    if (!(D2 > limit)) return {};
    return warnings.next(freezeTemperature ? "%d. The freeze temperature is too close to the D2 "
                                             "parameter of viscosity WLF model."
                                           : "%d. The input Tg in PVT model is too close to the D2 "
                                             "parameter of viscosity WLF model.");
}

std::string textOf(const char* text) {
    return text ? text : "";
}

// Copies a block into the working object when the object can hold it as it stands.
void copyBlock(CQrvPlasticMat& object, int tag, const QrvMatParam& block) {
    if (block.Count < 0 || (block.Count > 0 && !block.Para)) return;
    object.SetParam(tag, block.Source, block.Model, block.Count, block.Para);
}

// The working copy of the check: texts, versions, and the blocks by stream tag that a
// thermoplastic of this body version carries.
void copyMaterial(const QrvMaterial& m, CQrvPlasticMat& object) {
    std::string polymer = textOf(m.Polymer), producer = textOf(m.Producer),
                grade = textOf(m.GradeName), comment = textOf(m.Comment);
    object.SetPolymer(polymer);
    object.SetProducer(producer);
    object.SetGradeName(grade);
    object.SetComment(comment);
    object.SetBodyVer(m.FileVer);
    object.SetDateWord(m.MeasureDate);
    object.SetTypeWord(m.FileType);
    copyBlock(object, QRV_TAG_VIS, m.Vis);
    copyBlock(object, QRV_TAG_PVT, m.PVT);
    copyBlock(object, QRV_TAG_CP, m.Cp);
    copyBlock(object, QRV_TAG_K, m.K);
    copyBlock(object, QRV_TAG_MECH, m.Mech);
    copyBlock(object, QRV_TAG_TEMP, m.Temp);
    if ((m.FileVer == 9005 || m.FileVer >= 9007) && m.VE.Count > 0)
        copyBlock(object, QRV_TAG_VE, m.VE);
    if (m.FileVer >= 9008 && m.OP.Count >= 1) copyBlock(object, QRV_TAG_OP, m.OP);
}

}  // namespace

CQrvPolymerDataCheck::CQrvPolymerDataCheck(const char* installFolder, QrvMaterial* material)
    : StatFilePath(statFilePath(installFolder)),
      Material(material),
      PlasticMat(std::make_unique<CQrvPlasticMat>(nullptr)),
      Evaluators(std::make_unique<CPropertySet>()),
      Stat(std::make_unique<CQrvStatData>()) {
    Stat->FilePath = StatFilePath.c_str();
}

CQrvPolymerDataCheck::~CQrvPolymerDataCheck() = default;

std::string CQrvPolymerDataCheck::CheckMaterial() {
    if (!Material || Material->FileType != QRV_TYPE_THERMOPLASTIC) return {};
    const QrvMaterial& m = *Material;

    copyMaterial(m, *PlasticMat);
    Evaluators->Fill(*PlasticMat);
    Stat->ReadFile(textOf(m.Polymer));

    const CQrvStatData& s = *Stat;
    const CPropertySet& e = *Evaluators;
    Warnings warnings;
    std::string text;
    text += parameterRange(m.Vis, s.VisModeCount, s.VisRange,
                           "%d. The value of parameter %s of viscosity model is out of reasonable "
                           "range.",
                           warnings);
    if (e.Viscosity)
        text += curve(
            s.VisCount, s.VisSample, 4,
            [&](const StatSample& x) {
                return e.Viscosity->Evaluate(x.Condition, s.VisTemperature, 0.0);
            },
            "%d. The viscosity values is out of 3*STD range.", warnings);
    text += parameterRange(m.PVT, s.PVTModeCount, s.PVTRange,
                           "%d. The value of parameter %s of PVT model is out of reasonable range.",
                           warnings);
    if (e.PVT)
        text += curve(
            s.PVTCount, s.PVTSample, 2,
            [&](const StatSample& x) { return e.PVT->Evaluate(s.PVTPressure, x.Condition); },
            "%d. The specitific volume values may be out of 3*STD range.", warnings);
    text += d2Distance(m, warnings);
    if (e.HeatCapacity)
        text += curve(
            s.CpCount, s.CpSample, 2,
            [&](const StatSample& x) { return e.HeatCapacity->Evaluate(x.Condition); },
            "%d. The heat capacity values is out of 3*STD range.", warnings);
    if (e.ThermoConductivity)
        text += curve(
            s.KCount, s.KSample, 2,
            [&](const StatSample& x) { return e.ThermoConductivity->Evaluate(x.Condition); },
            "%d. The thermal conductivity values is out of 3*STD range.", warnings);
    // The eighth check is reserved and yields nothing.
    return text.empty() ? "None" : text;
}
