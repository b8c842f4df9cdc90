// Measured data that a material carries beside its fitted models: families of raw viscosity and
// PVT curves, and MTC records (piecewise models over temperature intervals). The library keeps,
// copies, stores and hands out these data; it evaluates nothing from them.
// Threads: the const readers, GetCurve, QrvGetMTCInfo and QrvGetMTCData from any number of
// threads on data that no thread changes; the calls that change data, one thread per object.
#ifndef QUORVALIB_MEASURED_H
#define QUORVALIB_MEASURED_H

#include <quorvalib/export.h>
#include <quorvalib/record.h>

#include <string>
#include <vector>

class CQrvBinaryStream;

// One measured curve: the condition it was measured under and its points (X and Y of equal
// length).
struct QrvRawCurve {
    double Condition;
    std::vector<double> X;
    std::vector<double> Y;
};

// A family of measured curves with the source, fit error and measuring standard of the data.
// The stored form, little-endian with no padding, is Source (int32), FitError (double), curve
// count C (int32), text length L (int32), the L bytes of MeasureStandard, then per curve its
// Condition (double), point count P (int32), P doubles of X and P doubles of Y: 20 + L bytes plus
// 12 + 16 P per curve.
//
// Range errors leave as std::out_of_range("invalid vector<T> subscript"); a curve array that
// would pass 2^31 - 1 curves (its count is a 32-bit word on disk) raises
// std::length_error("vector<T> too long").
class QRV_API CQrvMatRawData {
public:
    virtual ~CQrvMatRawData();

    // Axis limits over all points of all curves, rounded by the kind of data. The greatest value
    // starts from 0.0 and the smallest from 1e9, so with no points these starts are rounded.
    // Curves without points take no part.
    virtual double GetMaxX() const = 0;
    virtual double GetMaxY() const = 0;
    virtual double GetMinX() const = 0;
    virtual double GetMinY() const = 0;

    int GetSource() const { return Source; }
    double GetFitError() const { return FitError; }
    std::string GetMeasureStandard() const { return MeasureStandard; }
    int GetCurveCount() const { return static_cast<int>(Curves.size()); }

    // The curve's condition; an index outside the curves throws std::out_of_range.
    double GetCondition(int index) const;

    // False, with the outputs untouched, when index is greater than the number of curves. An index
    // equal to the number of curves (or negative) is not caught by that test and throws
    // std::out_of_range. Otherwise sets the outputs (x and y stay owned by the object) and is true.
    bool GetCurve(int index, double& condition, int& pointCount, double*& x, double*& y);

    // Appends a curve with copies of the first count values of x and of y; a count below 1 appends
    // a curve with no points. Null x or y with a count of 1 or more throws std::invalid_argument
    // and appends nothing.
    void AddCurve(double condition, int count, const double* x, const double* y);

    // Source 0, FitError 0.0, no standard, no curves. Always true.
    bool Clear();

    // Clears the destination and copies the three fields and every curve into it. False for a null
    // destination.
    bool CopyTo(CQrvMatRawData* destination) const;

    // Size in bytes of the stored form.
    unsigned GetDataSize() const;

    // Reads the stored form from the object's stream, appending the curves read behind those
    // held; Source, FitError and the standard are replaced. A damaged or short stream is handled
    // as the stream's header tells; a curve is appended only when all of it was read, and reading
    // stops at the first failure. True, or false when the object has no stream.
    bool Read();

    // Writes the stored form to the object's stream (false when it has none) or to the given one
    // (always true).
    bool Write();
    bool Write(CQrvBinaryStream& stream) const;

protected:
    explicit CQrvMatRawData(CQrvBinaryStream* stream);

    // Greatest value (from 0.0) and smallest value (from 1e9) of one axis over all points.
    double Greatest(std::vector<double> QrvRawCurve::*axis) const;
    double Smallest(std::vector<double> QrvRawCurve::*axis) const;

private:
    int Source;
    double FitError;
    std::string MeasureStandard;
    std::vector<QrvRawCurve> Curves;
    CQrvBinaryStream* Stream;  // not owned; null when the object only holds data
};

// Viscosity curves: limits on whole decades on both axes.
class QRV_API CQrvViscosityData : public CQrvMatRawData {
public:
    explicit CQrvViscosityData(CQrvBinaryStream* stream = nullptr);
    ~CQrvViscosityData() override;

    double GetMaxX() const override;  // 10^ceil(log10(greatest X))
    double GetMaxY() const override;
    double GetMinX() const override;  // 10^floor(log10(smallest X))
    double GetMinY() const override;
};

// PVT curves: limits on steps of 50 on the X axis and of 0.01 on the Y axis.
class QRV_API CQrvPVTData : public CQrvMatRawData {
public:
    explicit CQrvPVTData(CQrvBinaryStream* stream = nullptr);
    ~CQrvPVTData() override;

    double GetMaxX() const override;  // ceil(m / 50) * 50
    double GetMaxY() const override;  // ceil(m * 100) / 100
    double GetMinX() const override;  // floor(n / 50) * 50
    double GetMinY() const override;  // floor(n * 100) / 100
};

// One interval of an MTC record: a model with its parameters. MaxParameterNum values of
// Parameters are meaningful; the stored form always holds all 21. MaxParameterNum is kept as the
// caller or the file gave it, so it may be negative or above 21: a reader takes at most 21 values
// and none for a negative number.
struct QrvMTCSection {
    int Attribute;
    int ModelId;
    int MaxParameterNum;
    double Parameters[21];
};

// A plain MTC record: SectionCount intervals, each with its section and its temperature. The two
// arrays are owned by the record and made with new[].
struct QRV_MTC {
    int Version;
    int SecurityLevel;
    int SectionCount;
    QrvMTCSection* Sections;
    double* IntervalTemperature;
};

// Appends deep copies of count records to the material's MTC list, creating the list (Version
// 1000) when the material has none, and sets FileVer to 9010, also for a count below 1. Of each
// section the copy takes the first MaxParameterNum parameters (at most 21, none for a negative
// number) and clears the rest to zero. A null material is ignored. Null records with a count of 1
// or more, a negative SectionCount, or null arrays behind a positive SectionCount throw
// std::invalid_argument and change nothing.
QRV_API void QrvAddMTCData(QrvMaterial* material, QRV_MTC* records, int count);

// The list's Version and number of records; 0 and 0 when the material (or its list) is null.
QRV_API void QrvGetMTCInfo(QrvMaterial* material, int& version, int& count);

// The record at index, still owned by the list; null when the material or its list is null. An
// index outside the list throws std::out_of_range("invalid vector<T> subscript").
QRV_API QRV_MTC* QrvGetMTCData(QrvMaterial* material, int index);

// Empties the MTC list (keeping it) and sets FileVer to the lowest version that still describes
// the material: 9005 with VE data, 9008 with OP data, 9009 with raw curves (the last that applies
// decides), 9007 with none of them. A null material is ignored.
QRV_API void QrvRemoveAllMTC(QrvMaterial* material);

#endif
