// A parameter block in its binary and text forms.
#include "formats/param_block.h"

#include "formats/binary_stream.h"

#include <algorithm>
#include <cstdio>
#include <new>
#include <stdexcept>
#include <string>

namespace {

constexpr int kTextColumns = 20;

std::string formatted(const char* format, double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

}  // namespace

void CQrvMatParamBlock::Set(int source, int model, int count, const double* values) {
    if (count < 0) throw std::bad_array_new_length();
    if (count > 0 && !values) throw std::invalid_argument("CQrvMatParamBlock::Set: null values");
    std::unique_ptr<double[]> para(new double[static_cast<std::size_t>(count)]);
    std::copy_n(values, count, para.get());
    Source = source;
    Model = model;
    Count = count;
    Para = std::move(para);
}

void CQrvMatParamBlock::GetInfo(int* source, int* model, int* count) const {
    if (source) *source = Source;
    if (model) *model = Model;
    if (count) *count = Count;
}

double CQrvMatParamBlock::GetValue(int index) const {
    return index >= 0 && index < Count && Para ? Para[index] : 0.0;
}

std::unique_ptr<double[]> CQrvMatParamBlock::TakeArray() {
    Count = 0;
    return std::move(Para);
}

std::uint32_t CQrvMatParamBlock::GetSize() const {
    return 12u + 8u * static_cast<std::uint32_t>(Count);
}

void CQrvMatParamBlock::Read(CQrvBinaryStream& stream) {
    stream.ReadInt(Source);
    stream.ReadInt(Model);
    std::int32_t count = 0;
    if (!stream.ReadCount(count, sizeof(double))) return;
    std::unique_ptr<double[]> para(new double[static_cast<std::size_t>(count)]());
    for (std::int32_t i = 0; i < count; ++i)
        stream.ReadDouble(para[i]);
    Count = count;
    Para = std::move(para);
}

void CQrvMatParamBlock::Write(CQrvBinaryStream& stream) const {
    stream.WriteInt(Source);
    stream.WriteInt(Model);
    stream.WriteInt(Count);
    for (std::int32_t i = 0; i < Count; ++i)
        stream.WriteDouble(Para[i]);
}

void CQrvMatParamBlock::WriteText(CQrvBinaryStream& stream) const {
    std::string line;
    for (std::int32_t word : {Source, Model, Count})
        line += std::to_string(word) + ",";
    for (std::int32_t i = 0; i < Count; ++i)
        line += formatted("%g,", Para[i]);
    if (Count < kTextColumns) line.append(static_cast<std::size_t>(kTextColumns - Count), ',');
    stream.Print(line);
}

void CQrvMatParamBlock::ReadText(CQrvBinaryStream& stream) {
    stream.ScanInt(Source);
    stream.ScanInt(Model);
    std::int32_t count = 0;
    if (!stream.ScanCount(count)) return;
    std::unique_ptr<double[]> para(new double[static_cast<std::size_t>(count)]());
    for (std::int32_t i = 0; i < count; ++i)
        stream.ScanDouble(para[i]);
    Count = count;
    Para = std::move(para);
}
