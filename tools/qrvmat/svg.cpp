#include "svg.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>

namespace qrvmat {
namespace {

constexpr double kWidth = 760, kHeight = 480;
constexpr double kLeft = 90, kRight = 240, kTop = 40, kBottom = 60;
const char* const kColours[] = {"#1f77b4", "#d62728", "#2ca02c", "#ff7f0e",
                                "#9467bd", "#8c564b", "#e377c2", "#17becf"};

std::string escaped(const std::string& text) {
    std::string out;
    for (char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            default:
                out += c;
        }
    }
    return out;
}

std::string number(double value, int digits = 6) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*g", digits, value);
    return text;
}

// One axis: the drawn range (in log10 on a log axis) and its ticks.
struct Axis {
    bool log = false;
    double low = 0, high = 1;
    std::vector<double> ticks;  // in data units

    double scaled(double value) const { return log ? std::log10(value) : value; }
    bool drawable(double value) const { return std::isfinite(value) && (!log || value > 0); }
};

Axis makeAxis(const Chart& chart, bool logarithmic, std::vector<double> Series::*values) {
    Axis axis;
    axis.log = logarithmic;
    double low = INFINITY, high = -INFINITY;
    for (const Series& series : chart.series) {
        for (double value : series.*values) {
            if (!axis.drawable(value)) continue;
            low = std::min(low, axis.scaled(value));
            high = std::max(high, axis.scaled(value));
        }
    }
    if (!std::isfinite(low)) low = 0, high = 1;
    if (high - low < 1e-12 * std::max(1.0, std::fabs(high))) {
        low -= 0.5 * std::max(1.0, std::fabs(low)) * (logarithmic ? 1 : 0.1);
        high += 0.5 * std::max(1.0, std::fabs(high)) * (logarithmic ? 1 : 0.1);
    }
    if (logarithmic) {
        axis.low = std::floor(low);
        axis.high = std::ceil(high);
        for (double decade = axis.low; decade <= axis.high; ++decade) {
            axis.ticks.push_back(std::pow(10.0, decade));
        }
        return axis;
    }
    // Steps of 1, 2 or 5 times a power of ten, about six ticks.
    const double rough = (high - low) / 6;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    double step = power;
    for (double factor : {1.0, 2.0, 5.0, 10.0}) {
        step = factor * power;
        if (step >= rough) break;
    }
    axis.low = std::floor(low / step) * step;
    axis.high = std::ceil(high / step) * step;
    for (double tick = axis.low; tick <= axis.high + step / 2; tick += step) {
        axis.ticks.push_back(std::fabs(tick) < step * 1e-9 ? 0.0 : tick);
    }
    return axis;
}

}  // namespace

std::string renderSvg(const Chart& chart) {
    const Axis xAxis = makeAxis(chart, chart.logX, &Series::x);
    const Axis yAxis = makeAxis(chart, chart.logY, &Series::y);
    const double plotWidth = kWidth - kLeft - kRight, plotHeight = kHeight - kTop - kBottom;
    auto px = [&](double x) {
        return kLeft + (xAxis.scaled(x) - xAxis.low) / (xAxis.high - xAxis.low) * plotWidth;
    };
    auto py = [&](double y) {
        return kTop + plotHeight -
               (yAxis.scaled(y) - yAxis.low) / (yAxis.high - yAxis.low) * plotHeight;
    };

    std::ostringstream svg;
    svg << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << kWidth << "\" height=\""
        << kHeight << "\" viewBox=\"0 0 " << kWidth << " " << kHeight
        << "\" font-family=\"sans-serif\" font-size=\"12\">\n"
        << "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n"
        << "<text x=\"" << kLeft + plotWidth / 2 << "\" y=\"24\" text-anchor=\"middle\" "
        << "font-size=\"15\">" << escaped(chart.title) << "</text>\n";
    // Grid, ticks and tick labels.
    svg << "<g class=\"axes\" stroke=\"#cccccc\" stroke-width=\"1\">\n";
    for (double tick : xAxis.ticks) {
        svg << "<line x1=\"" << px(tick) << "\" y1=\"" << kTop << "\" x2=\"" << px(tick)
            << "\" y2=\"" << kTop + plotHeight << "\"/>\n";
    }
    for (double tick : yAxis.ticks) {
        svg << "<line x1=\"" << kLeft << "\" y1=\"" << py(tick) << "\" x2=\"" << kLeft + plotWidth
            << "\" y2=\"" << py(tick) << "\"/>\n";
    }
    svg << "<rect x=\"" << kLeft << "\" y=\"" << kTop << "\" width=\"" << plotWidth
        << "\" height=\"" << plotHeight << "\" fill=\"none\" stroke=\"black\"/>\n</g>\n";
    svg << "<g class=\"tick-labels\">\n";
    for (double tick : xAxis.ticks) {
        svg << "<text x=\"" << px(tick) << "\" y=\"" << kTop + plotHeight + 18
            << "\" text-anchor=\"middle\">" << number(tick) << "</text>\n";
    }
    for (double tick : yAxis.ticks) {
        svg << "<text x=\"" << kLeft - 6 << "\" y=\"" << py(tick) + 4 << "\" text-anchor=\"end\">"
            << number(tick) << "</text>\n";
    }
    svg << "</g>\n"
        << "<text class=\"x-label\" x=\"" << kLeft + plotWidth / 2 << "\" y=\"" << kHeight - 16
        << "\" text-anchor=\"middle\">" << escaped(chart.xLabel) << "</text>\n"
        << "<text class=\"y-label\" x=\"18\" y=\"" << kTop + plotHeight / 2
        << "\" text-anchor=\"middle\" transform=\"rotate(-90 18 " << kTop + plotHeight / 2 << ")\">"
        << escaped(chart.yLabel) << "</text>\n";

    // Curves, points and the legend.
    int index = 0;
    for (const Series& series : chart.series) {
        const int palette = series.colour >= 0 ? series.colour : index;
        const char* colour = kColours[palette % (sizeof kColours / sizeof *kColours)];
        if (series.points) {
            svg << "<g class=\"points\" fill=\"" << colour << "\">\n";
            for (std::size_t i = 0; i < series.x.size() && i < series.y.size(); ++i) {
                if (!xAxis.drawable(series.x[i]) || !yAxis.drawable(series.y[i])) continue;
                svg << "<circle class=\"point\" cx=\"" << px(series.x[i]) << "\" cy=\""
                    << py(series.y[i]) << "\" r=\"4\"/>\n";
            }
            svg << "</g>\n";
        } else {
            svg << "<polyline class=\"curve\" fill=\"none\" stroke=\"" << colour
                << "\" stroke-width=\"2\" points=\"";
            for (std::size_t i = 0; i < series.x.size() && i < series.y.size(); ++i) {
                if (!xAxis.drawable(series.x[i]) || !yAxis.drawable(series.y[i])) continue;
                svg << px(series.x[i]) << "," << py(series.y[i]) << " ";
            }
            svg << "\"/>\n";
        }
        const double legendY = kTop + 10 + 20 * index;
        const double legendX = kLeft + plotWidth + 14;
        if (series.points) {
            svg << "<circle cx=\"" << legendX + 10 << "\" cy=\"" << legendY << "\" r=\"4\" fill=\""
                << colour << "\"/>\n";
        } else {
            svg << "<line x1=\"" << legendX << "\" y1=\"" << legendY << "\" x2=\"" << legendX + 20
                << "\" y2=\"" << legendY << "\" stroke=\"" << colour << "\" stroke-width=\"2\"/>\n";
        }
        svg << "<text x=\"" << legendX + 26 << "\" y=\"" << legendY + 4 << "\">"
            << escaped(series.label) << "</text>\n";
        ++index;
    }
    svg << "</svg>\n";
    return svg.str();
}

}  // namespace qrvmat
