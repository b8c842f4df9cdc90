// Measured curve families: access, copying, the stored form and the rounded axis limits.
#include <quorvalib/measured.h>

#include "formats/binary_stream.h"
#include "measured/checked_vector.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace {

// Bytes of a curve record without points, and per point (one X and one Y).
constexpr std::uint64_t kCurveHeadBytes = 12;
constexpr std::uint64_t kPointBytes = 16;

// Reads one curve record; false (nothing kept) when the stream failed on the way.
bool readCurve(CQrvBinaryStream& stream, QrvRawCurve& curve) {
    std::int32_t points = 0;
    if (!stream.ReadDouble(curve.Condition) || !stream.ReadCount(points, kPointBytes)) return false;
    curve.X.assign(static_cast<std::size_t>(points), 0.0);
    curve.Y.assign(static_cast<std::size_t>(points), 0.0);
    for (double& x : curve.X)
        stream.ReadDouble(x);
    for (double& y : curve.Y)
        stream.ReadDouble(y);
    return !stream.Failed();
}

}  // namespace

CQrvMatRawData::CQrvMatRawData(CQrvBinaryStream* stream)
    : Source(0), FitError(0.0), Stream(stream) {}

CQrvMatRawData::~CQrvMatRawData() = default;

double CQrvMatRawData::GetCondition(int index) const {
    return qrv::checkedAt(Curves, index).Condition;
}

bool CQrvMatRawData::GetCurve(int index, double& condition, int& pointCount, double*& x,
                              double*& y) {
    // Only an index above the count is answered with false; the count itself reaches the
    // subscript and raises the range error, as it always has.
    if (index > GetCurveCount()) return false;
    QrvRawCurve& curve = qrv::checkedAt(Curves, index);
    condition = curve.Condition;
    pointCount = static_cast<int>(curve.X.size());
    x = curve.X.data();
    y = curve.Y.data();
    return true;
}

void CQrvMatRawData::AddCurve(double condition, int count, const double* x, const double* y) {
    const std::size_t points = count > 0 ? static_cast<std::size_t>(count) : 0;
    if (points > 0 && (!x || !y))
        throw std::invalid_argument("CQrvMatRawData::AddCurve: null points");
    QrvRawCurve curve{condition, std::vector<double>(x, x + points),
                      std::vector<double>(y, y + points)};
    qrv::checkedAppend(Curves, std::move(curve));
}

bool CQrvMatRawData::Clear() {
    Source = 0;
    FitError = 0.0;
    MeasureStandard.clear();
    Curves.clear();
    return true;
}

bool CQrvMatRawData::CopyTo(CQrvMatRawData* destination) const {
    if (!destination) return false;
    destination->Clear();
    destination->Source = Source;
    destination->FitError = FitError;
    destination->MeasureStandard = MeasureStandard;
    // The source holds no more curves than the limit allows, so reserving them cannot fail.
    destination->Curves.reserve(Curves.size());
    for (const QrvRawCurve& curve : Curves)
        qrv::checkedAppend(destination->Curves, curve);
    return true;
}

unsigned CQrvMatRawData::GetDataSize() const {
    unsigned size = 20 + static_cast<unsigned>(MeasureStandard.size());
    for (const QrvRawCurve& curve : Curves)
        size += static_cast<unsigned>(kCurveHeadBytes + kPointBytes * curve.X.size());
    return size;
}

bool CQrvMatRawData::Read() {
    if (!Stream) return false;
    CQrvBinaryStream& stream = *Stream;
    std::int32_t curves = 0;
    stream.ReadInt(Source);
    stream.ReadDouble(FitError);
    stream.ReadCount(curves, kCurveHeadBytes);
    stream.ReadText(MeasureStandard);
    for (std::int32_t i = 0; i < curves && !stream.Failed(); ++i) {
        QrvRawCurve curve{0.0, {}, {}};
        if (readCurve(stream, curve)) qrv::checkedAppend(Curves, std::move(curve));
    }
    return true;
}

bool CQrvMatRawData::Write() {
    return Stream ? Write(*Stream) : false;
}

bool CQrvMatRawData::Write(CQrvBinaryStream& stream) const {
    stream.WriteInt(Source);
    stream.WriteDouble(FitError);
    stream.WriteInt(GetCurveCount());
    stream.WriteText(MeasureStandard);
    for (const QrvRawCurve& curve : Curves) {
        stream.WriteDouble(curve.Condition);
        stream.WriteInt(static_cast<std::int32_t>(curve.X.size()));
        for (double x : curve.X)
            stream.WriteDouble(x);
        for (double y : curve.Y)
            stream.WriteDouble(y);
    }
    return true;
}

double CQrvMatRawData::Greatest(std::vector<double> QrvRawCurve::*axis) const {
    double greatest = 0.0;
    for (const QrvRawCurve& curve : Curves)
        for (double value : curve.*axis)
            greatest = std::max(greatest, value);
    return greatest;
}

double CQrvMatRawData::Smallest(std::vector<double> QrvRawCurve::*axis) const {
    double smallest = 1e9;
    for (const QrvRawCurve& curve : Curves)
        for (double value : curve.*axis)
            smallest = std::min(smallest, value);
    return smallest;
}

CQrvViscosityData::CQrvViscosityData(CQrvBinaryStream* stream) : CQrvMatRawData(stream) {}
CQrvViscosityData::~CQrvViscosityData() = default;

double CQrvViscosityData::GetMaxX() const {
    return std::pow(10.0, std::ceil(std::log10(Greatest(&QrvRawCurve::X))));
}
double CQrvViscosityData::GetMaxY() const {
    return std::pow(10.0, std::ceil(std::log10(Greatest(&QrvRawCurve::Y))));
}
double CQrvViscosityData::GetMinX() const {
    return std::pow(10.0, std::floor(std::log10(Smallest(&QrvRawCurve::X))));
}
double CQrvViscosityData::GetMinY() const {
    return std::pow(10.0, std::floor(std::log10(Smallest(&QrvRawCurve::Y))));
}

CQrvPVTData::CQrvPVTData(CQrvBinaryStream* stream) : CQrvMatRawData(stream) {}
CQrvPVTData::~CQrvPVTData() = default;

double CQrvPVTData::GetMaxX() const {
    return std::ceil(Greatest(&QrvRawCurve::X) / 50.0) * 50.0;
}
double CQrvPVTData::GetMaxY() const {
    return std::ceil(Greatest(&QrvRawCurve::Y) * 100.0) / 100.0;
}
double CQrvPVTData::GetMinX() const {
    return std::floor(Smallest(&QrvRawCurve::X) / 50.0) * 50.0;
}
double CQrvPVTData::GetMinY() const {
    return std::floor(Smallest(&QrvRawCurve::Y) * 100.0) / 100.0;
}
