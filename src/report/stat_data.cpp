// The statistics table and its reader.
//
// The file is text read in lines of at most 99 characters with the line end (a longer line's
// remainder comes as a further line). Blocks of all polymer classes stand in any order; a block
// opens with a line "<class> <marker>", the class word being everything up to the line's first
// blank. The next line is the block's header, then data lines up to the first line that holds no
// blank at all (an empty line), which is consumed by the block:
//
//   [Viscosity]     header "%lf %d" temperature, materials   rows "%lf %lf %lf %lf %lf" samples
//   [Vis_Mode]      header "%d %d" model id, materials       rows "%lf %lf" Low, High per parameter
//   [PVT]           header "%lf %d" pressure, materials      rows as [Viscosity]
//   [PVT_Mode]      header "%d %d" model id, materials       rows as [Vis_Mode]
//   [CP], [K]       header "%d" materials                    rows as [Viscosity]
//   [Mechanical]    header "%d %d" model id, materials       rows as [Vis_Mode]
//   [Temperature]   header "%d %d" (first ignored), materials rows as [Vis_Mode]
//
// One opening line may carry several markers: their blocks follow one another in the order above.
// A line holding "[EOF]" that the main loop reads ends the file; inside a block it is a line like
// any other. Headers are scanned without looking at the result, so a field that does not scan
// keeps what it held; a data line that does not scan is skipped without ending its block.
#include "report/stat_data.h"

#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <string_view>
#include <type_traits>

namespace {

constexpr int kLineBuffer = 100;
constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

using Line = char[kLineBuffer];

// False at the end of the file (or on a read error): every loop of the reader ends there.
bool readLine(std::FILE* file, Line& line) {
    return std::fgets(line, kLineBuffer, file) != nullptr;
}

bool hasBlank(const char* line) {
    return std::strchr(line, ' ') != nullptr;
}

// The class word of a line: up to its first blank, or the whole line with its line end.
std::string_view classWord(const char* line) {
    const char* blank = std::strchr(line, ' ');
    return blank ? std::string_view(line, static_cast<std::size_t>(blank - line))
                 : std::string_view(line);
}

// Reads the data lines of a block. Each line that scans is stored at the next row while rows
// remain (rows may be null: the block is then read past and nothing is kept).
template <typename Row, typename Scan>
void readRows(std::FILE* file, Row* rows, int size, Scan scan) {
    Line line;
    int next = 0;
    while (readLine(file, line)) {
        Row row;
        if (scan(line, row)) {
            if (rows && next < size) rows[next] = row;
            ++next;
        }
        if (!hasBlank(line)) break;
    }
}

void readSamples(std::FILE* file, StatSample* rows, int size) {
    readRows(file, rows, size, [](const char* line, StatSample& s) {
        return std::sscanf(line, "%lf %lf %lf %lf %lf", &s.Condition, &s.Min, &s.Max, &s.Mean,
                           &s.Std) == 5;
    });
}

// The file writes Low first; the row keeps High first.
void readRanges(std::FILE* file, StatRange* rows, int size) {
    readRows(file, rows, size, [](const char* line, StatRange& r) {
        return std::sscanf(line, "%lf %lf", &r.Low, &r.High) == 2;
    });
}

// The header line; false at the end of the file.
bool readHeader(std::FILE* file, Line& header) {
    return readLine(file, header);
}

void readViscosity(std::FILE* file, CQrvStatData& s) {
    Line header;
    if (!readHeader(file, header)) return;
    std::sscanf(header, "%lf %d", &s.VisTemperature, &s.VisCount);
    readSamples(file, s.VisSample, CQrvStatData::kVisSamples);
}

void readPVT(std::FILE* file, CQrvStatData& s) {
    Line header;
    if (!readHeader(file, header)) return;
    std::sscanf(header, "%lf %d", &s.PVTPressure, &s.PVTCount);
    readSamples(file, s.PVTSample, CQrvStatData::kCurveSamples);
}

void readCp(std::FILE* file, CQrvStatData& s) {
    Line header;
    if (!readHeader(file, header)) return;
    std::sscanf(header, "%d", &s.CpCount);
    readSamples(file, s.CpSample, CQrvStatData::kCurveSamples);
}

void readK(std::FILE* file, CQrvStatData& s) {
    Line header;
    if (!readHeader(file, header)) return;
    std::sscanf(header, "%d", &s.KCount);
    readSamples(file, s.KSample, CQrvStatData::kCurveSamples);
}

// A block of ranges per model id: the header's id picks the row and its count. An id outside
// the table stores nothing; its lines are still read past.
template <int Models, int Params>
void readModelRanges(std::FILE* file, std::int32_t (&counts)[Models],
                     StatRange (&ranges)[Models][Params]) {
    Line header;
    if (!readHeader(file, header)) return;
    int id = -1, count = 0;
    const int scanned = std::sscanf(header, "%d %d", &id, &count);
    const bool known = scanned >= 1 && id >= 0 && id < Models;
    if (known && scanned == 2) counts[id] = count;
    readRanges(file, known ? ranges[id] : nullptr, Params);
}

void readVisMode(std::FILE* file, CQrvStatData& s) {
    readModelRanges(file, s.VisModeCount, s.VisRange);
}

void readPVTMode(std::FILE* file, CQrvStatData& s) {
    readModelRanges(file, s.PVTModeCount, s.PVTRange);
}

void readMechanical(std::FILE* file, CQrvStatData& s) {
    readModelRanges(file, s.MechCount, s.MechRange);
}

void readTemperature(std::FILE* file, CQrvStatData& s) {
    Line header;
    if (!readHeader(file, header)) return;
    int ignored = 0, count = 0;
    if (std::sscanf(header, "%d %d", &ignored, &count) == 2) s.TempCount = count;
    readRanges(file, s.TempRange, CQrvStatData::kTempRanges);
}

struct Block {
    const char* marker;
    void (*read)(std::FILE*, CQrvStatData&);
};

// In the order in which the markers of one opening line are served.
constexpr Block kBlocks[] = {
    {"[Viscosity]", readViscosity},
    {"[Vis_Mode]", readVisMode},
    {"[PVT]", readPVT},
    {"[PVT_Mode]", readPVTMode},
    {"[CP]", readCp},
    {"[K]", readK},
    {"[Mechanical]", readMechanical},
    {"[Temperature]", readTemperature},
};

template <typename Row, std::size_t N>
void forget(Row (&rows)[N]) {
    for (Row& row : rows) {
        if constexpr (std::is_same_v<Row, StatRange>) {
            row = {kUnknown, kUnknown};
        } else if constexpr (std::is_same_v<Row, StatSample>) {
            row = {kUnknown, kUnknown, kUnknown, kUnknown, kUnknown};
        } else {
            forget(row);
        }
    }
}

}  // namespace

CQrvStatData::CQrvStatData()
    : VisTemperature(kUnknown),
      PVTPressure(kUnknown),
      VisModeCount{},
      PVTModeCount{},
      CpCount(0),
      KCount(0),
      MechCount{},
      TempCount(0),
      VisCount(0),
      PVTCount(0) {
    forget(VisRange);
    forget(PVTRange);
    forget(MechRange);
    forget(TempRange);
    forget(VisSample);
    forget(PVTSample);
    forget(CpSample);
    forget(KSample);
}

void CQrvStatData::ReadFile(std::string polymerClass) {
    if (!FilePath) return;
    File file(std::fopen(FilePath, "r"));
    if (!file) return;
    Line line;
    while (readLine(file.get(), line)) {
        if (classWord(line) == polymerClass) {
            for (const Block& block : kBlocks)
                if (std::strstr(line, block.marker)) block.read(file.get(), *this);
        }
        if (std::strstr(line, "[EOF]")) break;
    }
}
