// CQrvMatBase: a material as a stream object, the common frame of the thermoplastic, RIM and
// non-polymer bodies.
//
// A frame is ObjSize, ObjType and BodyVer (int32 each), the header (CQrvMatHeader) and a body.
// ObjSize counts the bytes behind itself. A body is a sequence of parameter blocks by tag and, for
// the thermoplastic, of measured sections, each present from a version on. The classes differ only
// in the layout they hand to this base: which tags they carry, in what order, from which version,
// and which blocks their text twin holds. Version gates are inclusive lower bounds with no upper
// bound, so a body version above every known one reads as the richest layout.
//
// Reading follows the rules in formats/binary_stream.h: a damaged or short stream makes the reads
// from that point on fail silently and leave their fields as they were; nothing is thrown because
// of a file's content.
#ifndef QRV_FORMATS_MAT_BASE_H
#define QRV_FORMATS_MAT_BASE_H

#include "formats/mat_header.h"
#include "formats/param_block.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

class CQrvBinaryStream;
class CQrvViscosityData;
class CQrvPVTData;
class CQrvMTCList;

// Stream tags of the blocks; 0 to 11 is the whole range.
enum QrvBlockTag {
    QRV_TAG_VIS = 0,
    QRV_TAG_PVT = 1,
    QRV_TAG_CP = 2,
    QRV_TAG_K = 3,
    QRV_TAG_VE = 4,
    QRV_TAG_KN = 5,
    QRV_TAG_MECH = 6,
    QRV_TAG_TEMP = 7,
    QRV_TAG_OP = 8,
    QRV_TAG_SI = 9,
    QRV_TAG_CR = 10,
    QRV_TAG_PW = 11,
    QRV_TAG_COUNT = 12
};

// One item of a body, in stream order.
struct QrvBodyItem {
    enum Kind { Block, ViscosityCurves, PVTCurves, MTCData };
    static constexpr std::int32_t kAlways = std::numeric_limits<std::int32_t>::min();

    Kind kind;
    int tag;                   // for blocks
    std::int32_t fromVersion;  // present when BodyVer is at least this

    bool PresentAt(std::int32_t bodyVer) const { return bodyVer >= fromVersion; }
};

struct QrvBodyItems {
    const QrvBodyItem* items;
    std::size_t count;
    const QrvBodyItem* begin() const { return items; }
    const QrvBodyItem* end() const { return items + count; }
};

// What tells one material class from another.
struct QrvMatLayout {
    std::int32_t objType;
    QrvBodyItems body;
    // Blocks of the text twin: WriteText writes those whose gate holds, ReadText reads the ones
    // without a gate. No items means the class has no text form.
    QrvBodyItems text;
};

class CQrvMatBase {
public:
    virtual ~CQrvMatBase();
    CQrvMatBase(const CQrvMatBase&) = delete;
    CQrvMatBase& operator=(const CQrvMatBase&) = delete;

    // Slot 1: header size + 8 + every body item present at BodyVer. Also brings the header's
    // length words up to date. Kept as a 32-bit value.
    virtual std::uint32_t GetSize();
    // Slot 2: reads BodyVer, the header and the body from the object's stream (the container has
    // consumed ObjSize and ObjType). True; false when the object has no stream.
    virtual bool Read();
    // Slots 3 and 4: ObjSize (from GetSize), ObjType, BodyVer, header, body. WriteTo is always
    // true; Write is false when the object has no stream.
    virtual bool WriteTo(CQrvBinaryStream& stream);
    virtual bool Write();
    // Slot 5: the ungated text blocks as white-space separated numbers from the object's own
    // stream; the argument is not used. No header. True (also when there is no stream to read).
    virtual bool ReadText(CQrvBinaryStream& unused);
    // Slot 6: the header line and the text blocks, all on one line with no line end. True.
    virtual bool WriteText(CQrvBinaryStream& stream);

    // Slots 7 to 12: measured data in and out; nothing here.
    virtual void SetVisRaw(CQrvViscosityData* data);
    virtual void SetPVTRaw(CQrvPVTData* data);
    virtual void SetMTC(CQrvMTCList* list);
    virtual void GetVisRaw(CQrvViscosityData** data);
    virtual void GetPVTRaw(CQrvPVTData** data);
    virtual void GetMTC(CQrvMTCList* list);

    // Slots 13 to 16, over the tags the class carries.
    // SetParam: ignored for another tag; see CQrvMatParamBlock::Set for the block's rules.
    virtual void SetParam(int tag, int source, int model, int count, const double* values);
    // GetParamInfo: outputs untouched for another tag; null outputs are skipped.
    virtual void GetParamInfo(int tag, int* source, int* model, int* count);
    // GetParamValue: -1.0 for another tag; 0.0 for an index outside the block.
    virtual double GetParamValue(int tag, int index);
    // GetParamArray: null for another tag; otherwise the block's own array (null while empty).
    virtual double* GetParamArray(int tag);

    // The block's array handed over, the block left with Count 0 and no array (for an object
    // that is dropped right after); null for another tag or an empty block.
    std::unique_ptr<double[]> TakeParamArray(int tag);

    void SetBodyVer(std::int32_t version) { BodyVer = version; }
    std::int32_t GetBodyVer() const { return BodyVer; }
    void SetTypeWord(std::int32_t word) { Header.TypeWord = word; }
    std::int32_t GetTypeWord() const { return Header.TypeWord; }
    void SetDateWord(std::int32_t word) { Header.DateWord = word; }
    std::int32_t GetDateWord() const { return Header.DateWord; }
    std::int32_t GetObjType() const { return ObjType; }
    std::int32_t GetObjSize() const { return ObjSize; }  // as the last GetSize left it
    const CQrvMatHeader& GetHeader() const { return Header; }

    // Copies of the header's texts.
    std::string GetPolymer() const { return Header.Texts[CQrvMatHeader::Polymer]; }
    std::string GetProducer() const { return Header.Texts[CQrvMatHeader::Producer]; }
    std::string GetGradeName() const { return Header.Texts[CQrvMatHeader::GradeName]; }
    std::string GetComment() const { return Header.Texts[CQrvMatHeader::Comment]; }
    std::string GetSourceText() const { return Header.Texts[CQrvMatHeader::SourceText]; }
    // Copy the text into the header and empty the string given. SourceText has no setter.
    void SetPolymer(std::string& text) { take(CQrvMatHeader::Polymer, text); }
    void SetProducer(std::string& text) { take(CQrvMatHeader::Producer, text); }
    void SetGradeName(std::string& text) { take(CQrvMatHeader::GradeName, text); }
    void SetComment(std::string& text) { take(CQrvMatHeader::Comment, text); }

protected:
    CQrvMatBase(CQrvBinaryStream* stream, const QrvMatLayout& layout);

    CQrvBinaryStream* GetStream() const { return Stream; }

    // The measured sections of a body; only a class whose layout lists them answers.
    virtual std::uint32_t SectionSize(QrvBodyItem::Kind kind) const;
    virtual void ReadSection(QrvBodyItem::Kind kind);
    virtual void WriteSection(QrvBodyItem::Kind kind, CQrvBinaryStream& stream) const;

private:
    CQrvMatParamBlock* block(int tag);
    const CQrvMatParamBlock* block(int tag) const;
    void take(CQrvMatHeader::TextField field, std::string& text);

    std::int32_t ObjSize = 0;
    std::int32_t ObjType;
    CQrvMatHeader Header;
    CQrvBinaryStream* Stream;  // not owned; null for an object that is only written with WriteTo
    std::int32_t BodyVer = 0;
    const QrvMatLayout& Layout;
    // Every tag's block in place (a load makes no allocation per block); only those the layout
    // lists are carried.
    std::array<CQrvMatParamBlock, QRV_TAG_COUNT> Blocks;
    std::array<bool, QRV_TAG_COUNT> Carried{};
};

#endif
