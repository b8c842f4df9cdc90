// CQrvMatParamBlock: one tagged parameter block of a material object, stored as Source, Model,
// Count (int32 each) and Count doubles: 12 + 8 Count bytes.
#ifndef QRV_FORMATS_PARAM_BLOCK_H
#define QRV_FORMATS_PARAM_BLOCK_H

#include <cstdint>
#include <memory>

class CQrvBinaryStream;

class CQrvMatParamBlock {
public:
    // Stores source, model and count and replaces the array by a copy of count values (a count of
    // 0 gives a zero-length array, and values is then not read). A negative count throws
    // std::bad_array_new_length, as the allocation it asks for would; null values with a positive
    // count throw std::invalid_argument. Both leave the block as it was.
    void Set(int source, int model, int count, const double* values);

    // Null outputs are skipped.
    void GetInfo(int* source, int* model, int* count) const;

    // The value at index, or 0.0 for an index outside 0..Count-1.
    double GetValue(int index) const;

    // The block's own array: null until the first Set or Read, zero-length for a count of 0.
    double* GetArray() const { return Para.get(); }

    // Hands the array (of Count values, or null) to the caller and leaves the block empty: Count
    // 0 and no array. Source and Model stay.
    std::unique_ptr<double[]> TakeArray();

    int GetCount() const { return Count; }
    std::uint32_t GetSize() const;  // Count taken as unsigned

    // Reads Source, Model, Count and a new array of Count values. A field whose read fails keeps
    // what it held; when the count fails (unread, negative or larger than the bytes left) the
    // array is kept too.
    void Read(CQrvBinaryStream& stream);
    void Write(CQrvBinaryStream& stream) const;

    // The text twin: "%d," for Source, Model and Count, "%g," per value, then one comma for each
    // value short of 20.
    void WriteText(CQrvBinaryStream& stream) const;
    // Source, Model, Count and Count values as white-space separated numbers.
    void ReadText(CQrvBinaryStream& stream);

private:
    std::int32_t Source = 0;
    std::int32_t Model = 0;
    std::int32_t Count = 0;
    std::unique_ptr<double[]> Para;
};

#endif
