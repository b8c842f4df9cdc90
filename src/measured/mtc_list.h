// CQrvMTCList: the list of MTC records that QrvMaterial::MTC points to, with deep copies and the
// stored form.
//
// Stored form, little-endian with no padding: list Version (int32), record count N (int32), then
// per record Version, SecurityLevel and SectionCount S (int32 each) and S section forms of 188
// bytes: Attribute, ModelId, MaxParameterNum (int32 each), all 21 Parameters, and the interval's
// temperature (double). So 8 bytes plus 12 + 188 S per record.
#ifndef QRV_MEASURED_MTC_LIST_H
#define QRV_MEASURED_MTC_LIST_H

#include <quorvalib/measured.h>

#include <cstdint>
#include <memory>
#include <vector>

class CQrvBinaryStream;

namespace qrv {

constexpr int kMTCParameterSlots = 21;

// Number of parameters of a section that a copy takes: MaxParameterNum held to 0..21, so that a
// damaged count never runs past the fixed slots.
int meaningfulParameters(const QrvMTCSection& section);

// Frees a record's two arrays and the record.
struct MTCRecordDeleter {
    void operator()(QRV_MTC* record) const;
};
using MTCRecordPtr = std::unique_ptr<QRV_MTC, MTCRecordDeleter>;

// A new record holding a deep copy of source; parameters beyond the meaningful ones are zero.
// Throws std::invalid_argument for a negative SectionCount or null arrays behind a positive one.
MTCRecordPtr copyMTCRecord(const QRV_MTC& source);

}  // namespace qrv

class CQrvMTCList {
public:
    // Version 0, no records; stream is what the plain Read and Write use (may be null).
    explicit CQrvMTCList(CQrvBinaryStream* stream = nullptr);
    ~CQrvMTCList();
    CQrvMTCList(const CQrvMTCList&) = delete;
    CQrvMTCList& operator=(const CQrvMTCList&) = delete;

    int GetVersion() const { return Version; }
    void SetVersion(int version) { Version = version; }
    int GetRecordCount() const { return static_cast<int>(Records.size()); }

    // The record at index, owned by the list; throws std::out_of_range outside the list.
    QRV_MTC* GetRecord(int index);

    // Frees every record; Version stays as it is.
    void Clear();

    // Appends deep copies of count records (nothing for a count below 1). Null records with a
    // positive count, or a record that copyMTCRecord refuses, throw std::invalid_argument before
    // anything is appended.
    void AddRecords(const QRV_MTC* records, int count);

    // Copies Version, clears the destination and deep-copies every record into it. False for a
    // null destination.
    bool CopyTo(CQrvMTCList* destination) const;

    unsigned GetDataSize() const;

    // Reads the stored form from the list's stream, appending behind the records held. A damaged
    // or short stream is handled as the stream's header tells; a record is appended only when all
    // of it was read, and reading stops at the first failure. True, or false without a stream.
    bool Read();

    // Writes the stored form to the list's stream (false when it has none) or to the given one.
    bool Write();
    bool Write(CQrvBinaryStream& stream) const;

private:
    int Version;
    std::vector<qrv::MTCRecordPtr> Records;
    CQrvBinaryStream* Stream;  // not owned
};

#endif
