// qrvmat plot FILE --property viscosity|pvt|cp|k --out F.svg: the usual engineering plots of a
// material, with the measured curves that the file carries drawn as points over the model lines.
#include "common.h"
#include "grid.h"
#include "svg.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <map>

namespace qrvmat {
namespace {

enum class Kind { Viscosity, Pvt, Cp, K };

struct PlotOptions {
    std::string file, output;
    Kind kind = Kind::Viscosity;
    std::string temperatures, pressures, shearRates;
};

std::vector<double> gridOr(const std::string& text, std::vector<double> otherwise) {
    std::string why;
    return text.empty() ? otherwise : parseGrid(text, why);
}

std::string label(const char* prefix, double value, const char* unit) {
    char text[96];
    std::snprintf(text, sizeof text, "%s%g %s", prefix, value, unit);
    return text;
}

// The conditions of the measured curves, in file order; empty without measured data.
std::vector<double> conditionsOf(const CQrvMatRawData* raw) {
    std::vector<double> conditions;
    for (int i = 0; raw && i < raw->GetCurveCount(); ++i)
        conditions.push_back(raw->GetCondition(i));
    return conditions;
}

// Measured curves as points, each in the colour of the model line drawn at its condition.
void addMeasured(Chart& chart, CQrvMatRawData* raw, const char* linePrefix, const char* unit) {
    const std::size_t lines = chart.series.size();
    for (int i = 0; raw && i < raw->GetCurveCount(); ++i) {
        double condition = 0.0;
        int count = 0;
        double *x = nullptr, *y = nullptr;
        if (!raw->GetCurve(i, condition, count, x, y) || count < 1) continue;
        Series points{label("measured ", condition, unit), std::vector<double>(x, x + count),
                      std::vector<double>(y, y + count), true};
        for (std::size_t line = 0; line < lines; ++line) {
            if (chart.series[line].label == label(linePrefix, condition, unit)) {
                points.colour = static_cast<int>(line);
            }
        }
        chart.series.push_back(std::move(points));
    }
}

Chart viscosityChart(QrvMaterial* material, const PlotOptions& options) {
    Chart chart{"Viscosity of " + std::string(material->Polymer ? material->Polymer : ""),
                "Shear rate [1/sec]",
                "Viscosity [g/(cm.sec)]",
                true,
                true,
                {}};
    std::vector<double> temperatures = conditionsOf(material->VisRaw);
    if (temperatures.empty()) {
        const double low = QrvGetMeltTempMin(material), high = QrvGetMeltTempMax(material);
        temperatures = low > 0 && high > low ? spaced(low, high, 3, false)
                                             : std::vector<double>{200.0, 230.0, 260.0};
    }
    temperatures = gridOr(options.temperatures, temperatures);
    const auto shear = gridOr(options.shearRates, spaced(1.0, 1e5, 41, true));
    for (double t : temperatures) {
        Series line{label("T = ", t, "C"), shear, std::vector<double>(shear.size()), false};
        const std::vector<double> temperature(shear.size(), t);
        QrvGetViscosityN(material, static_cast<int>(shear.size()), shear.data(), temperature.data(),
                         nullptr, nullptr, line.y.data());
        chart.series.push_back(std::move(line));
    }
    addMeasured(chart, material->VisRaw, "T = ", "C");
    return chart;
}

Chart pvtChart(QrvMaterial* material, const PlotOptions& options) {
    Chart chart{"Specific volume of " + std::string(material->Polymer ? material->Polymer : ""),
                "Temperature [degree C]",
                "Specific volume [cc/g]",
                false,
                false,
                {}};
    std::vector<double> pressures = conditionsOf(material->PVTRaw);
    if (pressures.empty()) pressures = spaced(0.0, 2e9, 5, false);
    pressures = gridOr(options.pressures, pressures);
    const auto temperatures = gridOr(options.temperatures, spaced(20.0, 300.0, 57, false));
    for (double p : pressures) {
        Series line{label("P = ", p, "dyne/cm^2"), temperatures,
                    std::vector<double>(temperatures.size()), false};
        const std::vector<double> pressure(temperatures.size(), p);
        QrvGetSpecificVolumeN(material, static_cast<int>(temperatures.size()), pressure.data(),
                              temperatures.data(), nullptr, line.y.data());
        chart.series.push_back(std::move(line));
    }
    addMeasured(chart, material->PVTRaw, "P = ", "dyne/cm^2");
    return chart;
}

Chart tableChart(QrvMaterial* material, const PlotOptions& options, bool heatCapacity) {
    Chart chart{
        (heatCapacity ? "Heat capacity of " : "Thermal conductivity of ") +
            std::string(material->Polymer ? material->Polymer : ""),
        "Temperature [degree C]",
        heatCapacity ? "Heat capacity [erg/(g.oC)]" : "Thermal conductivity [erg/(sec.cm.oC)]",
        false,
        false,
        {}};
    const auto temperatures = gridOr(options.temperatures, spaced(0.0, 300.0, 61, false));
    Series line{heatCapacity ? "Cp" : "K", temperatures, std::vector<double>(temperatures.size()),
                false};
    const int count = static_cast<int>(temperatures.size());
    if (heatCapacity)
        QrvGetHeatCapacityN(material, count, temperatures.data(), line.y.data());
    else
        QrvGetThermalConductivityN(material, count, temperatures.data(), line.y.data());
    chart.series.push_back(std::move(line));
    return chart;
}

void runPlot(const PlotOptions& options) {
    MaterialPtr material = loadMaterial(options.file);
    Chart chart;
    switch (options.kind) {
        case Kind::Viscosity:
            chart = viscosityChart(material.get(), options);
            break;
        case Kind::Pvt:
            chart = pvtChart(material.get(), options);
            break;
        case Kind::Cp:
            chart = tableChart(material.get(), options, true);
            break;
        case Kind::K:
            chart = tableChart(material.get(), options, false);
            break;
    }
    // A model the library cannot evaluate answers 0.0 (-1.0 for the tables) everywhere: there is
    // no curve to draw.
    for (const Series& series : chart.series) {
        if (series.points) continue;
        if (std::all_of(series.y.begin(), series.y.end(), [](double v) { return v <= 0.0; })) {
            throw Failure(options.file, "this material's model for the plot cannot be evaluated");
        }
    }
    std::ofstream out(options.output, std::ios::binary | std::ios::trunc);
    out << renderSvg(chart);
    out.close();
    if (!out) throw Failure(options.output, "cannot be written");
}

}  // namespace

void addPlot(CLI::App& app) {
    auto options = std::make_shared<PlotOptions>();
    auto* command = app.add_subcommand(
        "plot",
        "Write an SVG plot: viscosity against shear rate, specific volume (pvt), Cp or K "
        "against temperature");
    command->add_option("FILE", options->file, "Material file")->required();
    const std::map<std::string, Kind> kinds{
        {"viscosity", Kind::Viscosity}, {"pvt", Kind::Pvt}, {"cp", Kind::Cp}, {"k", Kind::K}};
    command->add_option("--property", options->kind, "viscosity, pvt, cp or k")
        ->required()
        ->transform(CLI::CheckedTransformer(kinds));
    command->add_option("--out", options->output, "SVG file to write")->required();
    const CLI::Validator grid(gridError, "GRID");
    command
        ->add_option("--temp", options->temperatures,
                     "Temperatures in degree C: the curves of a viscosity plot (default: the "
                     "measured curves', else the melt range), the axis of the others")
        ->check(grid);
    command
        ->add_option("--pressure", options->pressures,
                     "Pressures in dyne/cm^2 of the pvt curves (default: the measured "
                     "curves', else 0:2e9:5)")
        ->check(grid);
    command
        ->add_option("--shear", options->shearRates,
                     "Shear rates in 1/sec of the viscosity axis (default 1:1e5:41:log)")
        ->check(grid);
    command->callback([options] { runPlot(*options); });
}

}  // namespace qrvmat
