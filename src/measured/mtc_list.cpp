// The MTC list: deep copies of plain records and their stored form.
#include "measured/mtc_list.h"

#include "formats/binary_stream.h"
#include "measured/checked_vector.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr std::uint64_t kRecordHeadBytes = 12;
constexpr std::uint64_t kSectionBytes = 12 + 8 * qrv::kMTCParameterSlots + 8;

qrv::MTCRecordPtr newRecord(int version, int securityLevel, int sectionCount) {
    qrv::MTCRecordPtr record(new QRV_MTC());
    record->Version = version;
    record->SecurityLevel = securityLevel;
    record->SectionCount = sectionCount;
    record->Sections = new QrvMTCSection[static_cast<std::size_t>(sectionCount)]();
    record->IntervalTemperature = new double[static_cast<std::size_t>(sectionCount)]();
    return record;
}

void validate(const QRV_MTC& record) {
    if (record.SectionCount < 0) throw std::invalid_argument("QRV_MTC: negative SectionCount");
    if (record.SectionCount > 0 && (!record.Sections || !record.IntervalTemperature))
        throw std::invalid_argument("QRV_MTC: null section arrays");
}

}  // namespace

namespace qrv {

int meaningfulParameters(const QrvMTCSection& section) {
    return std::clamp(section.MaxParameterNum, 0, kMTCParameterSlots);
}

void MTCRecordDeleter::operator()(QRV_MTC* record) const {
    delete[] record->Sections;
    delete[] record->IntervalTemperature;
    delete record;
}

MTCRecordPtr copyMTCRecord(const QRV_MTC& source) {
    validate(source);
    MTCRecordPtr copy = newRecord(source.Version, source.SecurityLevel, source.SectionCount);
    for (int i = 0; i < source.SectionCount; ++i) {
        const QrvMTCSection& from = source.Sections[i];
        QrvMTCSection& to = copy->Sections[i];
        to.Attribute = from.Attribute;
        to.ModelId = from.ModelId;
        to.MaxParameterNum = from.MaxParameterNum;
        // The new section's other slots stay zero from the allocation, so stored files are
        // reproducible.
        std::copy_n(from.Parameters, meaningfulParameters(from), to.Parameters);
        copy->IntervalTemperature[i] = source.IntervalTemperature[i];
    }
    return copy;
}

}  // namespace qrv

CQrvMTCList::CQrvMTCList(CQrvBinaryStream* stream) : Version(0), Stream(stream) {}

CQrvMTCList::~CQrvMTCList() {
    Clear();
}

QRV_MTC* CQrvMTCList::GetRecord(int index) {
    return qrv::checkedAt(Records, index).get();
}

void CQrvMTCList::Clear() {
    Records.clear();
}

void CQrvMTCList::AddRecords(const QRV_MTC* records, int count) {
    if (count < 1) return;
    if (!records) throw std::invalid_argument("CQrvMTCList::AddRecords: null records");
    std::vector<qrv::MTCRecordPtr> copies;
    copies.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        copies.push_back(qrv::copyMTCRecord(records[i]));
    for (auto& copy : copies)
        qrv::checkedAppend(Records, std::move(copy));
}

bool CQrvMTCList::CopyTo(CQrvMTCList* destination) const {
    if (!destination) return false;
    std::vector<qrv::MTCRecordPtr> copies;
    copies.reserve(Records.size());
    for (const auto& record : Records)
        copies.push_back(qrv::copyMTCRecord(*record));
    destination->Version = Version;
    destination->Clear();
    destination->Records.reserve(copies.size());
    for (auto& copy : copies)
        qrv::checkedAppend(destination->Records, std::move(copy));
    return true;
}

unsigned CQrvMTCList::GetDataSize() const {
    unsigned size = 8;
    for (const auto& record : Records)
        size += static_cast<unsigned>(kRecordHeadBytes +
                                      kSectionBytes * static_cast<unsigned>(record->SectionCount));
    return size;
}

bool CQrvMTCList::Read() {
    if (!Stream) return false;
    CQrvBinaryStream& stream = *Stream;
    std::int32_t records = 0;
    stream.ReadInt(Version);
    stream.ReadCount(records, kRecordHeadBytes);
    for (std::int32_t r = 0; r < records && !stream.Failed(); ++r) {
        std::int32_t version = 0, securityLevel = 0, sections = 0;
        stream.ReadInt(version);
        stream.ReadInt(securityLevel);
        if (!stream.ReadCount(sections, kSectionBytes)) break;
        qrv::MTCRecordPtr record = newRecord(version, securityLevel, sections);
        for (std::int32_t i = 0; i < sections; ++i) {
            QrvMTCSection& section = record->Sections[i];
            stream.ReadInt(section.Attribute);
            stream.ReadInt(section.ModelId);
            stream.ReadInt(section.MaxParameterNum);
            for (double& parameter : section.Parameters)
                stream.ReadDouble(parameter);
            stream.ReadDouble(record->IntervalTemperature[i]);
        }
        if (stream.Failed()) break;
        qrv::checkedAppend(Records, std::move(record));
    }
    return true;
}

bool CQrvMTCList::Write() {
    return Stream ? Write(*Stream) : false;
}

bool CQrvMTCList::Write(CQrvBinaryStream& stream) const {
    stream.WriteInt(Version);
    stream.WriteInt(GetRecordCount());
    for (const auto& record : Records) {
        stream.WriteInt(record->Version);
        stream.WriteInt(record->SecurityLevel);
        stream.WriteInt(record->SectionCount);
        for (int i = 0; i < record->SectionCount; ++i) {
            const QrvMTCSection& section = record->Sections[i];
            stream.WriteInt(section.Attribute);
            stream.WriteInt(section.ModelId);
            stream.WriteInt(section.MaxParameterNum);
            for (double parameter : section.Parameters)
                stream.WriteDouble(parameter);
            stream.WriteDouble(record->IntervalTemperature[i]);
        }
    }
    return true;
}
