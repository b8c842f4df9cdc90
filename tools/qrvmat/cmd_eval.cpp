// qrvmat eval FILE PROPERTY...: properties of a material over a grid of conditions, in the
// library's base units, through the batch calls of the library.
#include "common.h"
#include "grid.h"
#include "output.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iostream>

namespace qrvmat {
namespace {

// The conditions a property may read, in the order of the table's columns.
enum Condition { kTemperature, kPressure, kConversion, kShearRate, kConditionCount };
const char* const kConditionNames[kConditionCount] = {"temperature", "pressure", "conversion",
                                                      "shear_rate"};

struct Points {
    std::vector<double> at[kConditionCount];
};

struct Property {
    const char* name;
    const char* unit;
    unsigned reads;  // bit per Condition
    // Fills out (sized to the points) from the material.
    std::function<void(QrvMaterial*, const Points&, double, std::vector<double>&)> evaluate;
    // True for a result that is the library's "cannot be evaluated" value.
    std::function<bool(double)> failed;
};

constexpr unsigned bit(Condition c) {
    return 1u << c;
}

int size(const Points& points) {
    return static_cast<int>(points.at[kTemperature].size());
}

const Property kProperties[] = {
    {"viscosity", "g/(cm.sec)",
     bit(kTemperature) | bit(kPressure) | bit(kConversion) | bit(kShearRate),
     [](QrvMaterial* m, const Points& p, double, std::vector<double>& out) {
         QrvGetViscosityN(m, size(p), p.at[kShearRate].data(), p.at[kTemperature].data(),
                          p.at[kPressure].data(), p.at[kConversion].data(), out.data());
     },
     [](double v) { return v == 0.0; }},
    {"volume", "cc/g", bit(kTemperature) | bit(kPressure) | bit(kConversion),
     [](QrvMaterial* m, const Points& p, double, std::vector<double>& out) {
         QrvGetSpecificVolumeN(m, size(p), p.at[kPressure].data(), p.at[kTemperature].data(),
                               p.at[kConversion].data(), out.data());
     },
     [](double v) { return v == 0.0; }},
    {"density", "g/cc", bit(kTemperature) | bit(kPressure) | bit(kConversion),
     [](QrvMaterial* m, const Points& p, double, std::vector<double>& out) {
         QrvGetDensityN(m, size(p), p.at[kPressure].data(), p.at[kTemperature].data(),
                        p.at[kConversion].data(), out.data());
     },
     [](double v) { return std::isinf(v); }},
    {"cp", "erg/(g.oC)", bit(kTemperature),
     [](QrvMaterial* m, const Points& p, double, std::vector<double>& out) {
         QrvGetHeatCapacityN(m, size(p), p.at[kTemperature].data(), out.data());
     },
     [](double v) { return v == -1.0; }},
    {"k", "erg/(sec.cm.oC)", bit(kTemperature),
     [](QrvMaterial* m, const Points& p, double, std::vector<double>& out) {
         QrvGetThermalConductivityN(m, size(p), p.at[kTemperature].data(), out.data());
     },
     [](double v) { return v == -1.0; }},
    // One step of the cure from the conversion given, at the heating rate given.
    {"conversion_step", "", bit(kTemperature) | bit(kConversion),
     [](QrvMaterial* m, const Points& p, double heatingRate, std::vector<double>& out) {
         for (int i = 0; i < size(p); ++i) {
             out[i] = QrvGetConversion(m, p.at[kTemperature][i], heatingRate, p.at[kConversion][i]);
         }
     },
     // The library answers 0.0 for a block without the six cure parameters.
     [](double v) { return v == 0.0; }},
};

const Property* findProperty(const std::string& name) {
    for (const Property& property : kProperties) {
        if (name == property.name) return &property;
    }
    return nullptr;
}

struct EvalOptions {
    std::string file;
    std::vector<std::string> properties;
    std::string grids[kConditionCount] = {"", "0", "0", "1000"};
    double heatingRate = 0.0;
    Format format = Format::Text;
};

constexpr std::size_t kMaxRows = 1000000;

void runEval(const EvalOptions& options) {
    MaterialPtr material = loadMaterial(options.file);
    std::vector<const Property*> properties;
    unsigned reads = 0;
    for (const std::string& name : options.properties) {
        properties.push_back(findProperty(name));
        reads |= properties.back()->reads;
    }
    if (reads & bit(kConversion) && !QrvIsThermoset(material.get())) {
        // A thermoplastic has no cure: its models do not read the conversion.
        reads &= ~bit(kConversion);
    }
    std::vector<double> axes[kConditionCount];
    std::size_t rows = 1;
    for (int c = 0; c < kConditionCount; ++c) {
        std::string why;
        axes[c] = parseGrid(options.grids[c], why);
        if (!(reads & bit(Condition(c)))) axes[c].resize(1);
        rows *= axes[c].size();
    }
    if (rows > kMaxRows) throw Failure("", "the grid has more than 1000000 points");

    // Temperature varies slowest and shear rate fastest, so that each viscosity curve is a run.
    Points points;
    for (double t : axes[kTemperature])
        for (double p : axes[kPressure])
            for (double x : axes[kConversion])
                for (double s : axes[kShearRate]) {
                    const double values[kConditionCount] = {t, p, x, s};
                    for (int c = 0; c < kConditionCount; ++c)
                        points.at[c].push_back(values[c]);
                }

    Table table;
    for (int c = 0; c < kConditionCount; ++c) {
        if (reads & bit(Condition(c))) table.columns.push_back(kConditionNames[c]);
    }
    std::vector<std::vector<double>> results;
    for (const Property* property : properties) {
        std::vector<double> values(rows);
        property->evaluate(material.get(), points, options.heatingRate, values);
        if (std::all_of(values.begin(), values.end(), property->failed)) {
            throw Failure(options.file, std::string("the ") + property->name +
                                            " model of this material cannot be evaluated");
        }
        results.push_back(std::move(values));
        table.columns.push_back(property->name);
    }
    for (std::size_t i = 0; i < rows; ++i) {
        std::vector<Cell> row;
        for (int c = 0; c < kConditionCount; ++c) {
            if (reads & bit(Condition(c))) row.emplace_back(points.at[c][i]);
        }
        for (const auto& values : results)
            row.emplace_back(values[i]);
        table.rows.push_back(std::move(row));
    }
    if (options.format == Format::Text) {
        std::cout << "# base units: temperature degree C, pressure dyne/cm^2, shear rate 1/sec";
        for (const Property* property : properties) {
            if (*property->unit) std::cout << ", " << property->name << " " << property->unit;
        }
        std::cout << "\n";
    }
    writeTable(std::cout, table, options.format);
}

}  // namespace

void addEval(CLI::App& app) {
    auto options = std::make_shared<EvalOptions>();
    auto* command =
        app.add_subcommand("eval", "Evaluate properties over a grid of conditions, in base units");
    command->add_option("FILE", options->file, "Material file")->required();
    std::vector<std::string> names;
    for (const Property& property : kProperties)
        names.push_back(property.name);
    command
        ->add_option("PROPERTY", options->properties,
                     "viscosity, volume (specific volume), density, cp, k, conversion_step")
        ->required()
        ->check(CLI::IsMember(names));
    const struct {
        Condition condition;
        const char* flag;
        const char* help;
    } flags[] = {
        {kTemperature, "--temp", "Temperatures in degree C, e.g. 200:280:5"},
        {kPressure, "--pressure", "Pressures in dyne/cm^2 (default 0)"},
        {kConversion, "--conversion", "Cure conversions from 0 to 1, thermosets (default 0)"},
        {kShearRate, "--shear", "Shear rates in 1/sec, e.g. 1:1e5:11:log (default 1000)"},
    };
    for (const auto& flag : flags) {
        auto* option = command->add_option(flag.flag, options->grids[flag.condition], flag.help)
                           ->check(CLI::Validator(gridError, "GRID"));
        if (flag.condition == kTemperature) option->required();
    }
    command->add_option("--heating-rate", options->heatingRate,
                        "Heating rate in degree C/sec of the conversion step (default 0)");
    addFormatFlags(*command, options->format);
    command->callback([options] { runEval(*options); });
}

}  // namespace qrvmat
