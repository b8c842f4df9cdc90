// The frame, header and tagged bodies shared by every material class, driven by its layout.
#include "formats/mat_base.h"

#include "formats/binary_stream.h"

#include <string>

CQrvMatBase::CQrvMatBase(CQrvBinaryStream* stream, const QrvMatLayout& layout)
    : ObjType(layout.objType), Stream(stream), Layout(layout) {
    for (const QrvBodyItem& item : layout.body)
        if (item.kind == QrvBodyItem::Block) Carried[static_cast<std::size_t>(item.tag)] = true;
}

CQrvMatBase::~CQrvMatBase() = default;

CQrvMatParamBlock* CQrvMatBase::block(int tag) {
    const auto index = static_cast<std::size_t>(tag);
    return tag >= 0 && tag < QRV_TAG_COUNT && Carried[index] ? &Blocks[index] : nullptr;
}

const CQrvMatParamBlock* CQrvMatBase::block(int tag) const {
    return const_cast<CQrvMatBase*>(this)->block(tag);
}

void CQrvMatBase::take(CQrvMatHeader::TextField field, std::string& text) {
    Header.Texts[field] = text;
    text.clear();
}

std::uint32_t CQrvMatBase::GetSize() {
    std::uint32_t size = Header.GetSize() + 8;
    for (const QrvBodyItem& item : Layout.body) {
        if (!item.PresentAt(BodyVer)) continue;
        size +=
            item.kind == QrvBodyItem::Block ? block(item.tag)->GetSize() : SectionSize(item.kind);
    }
    return size;
}

bool CQrvMatBase::Read() {
    if (!Stream) return false;
    Stream->ReadInt(BodyVer);
    Header.Read(*Stream);
    for (const QrvBodyItem& item : Layout.body) {
        if (!item.PresentAt(BodyVer)) continue;
        if (item.kind == QrvBodyItem::Block)
            block(item.tag)->Read(*Stream);
        else
            ReadSection(item.kind);
    }
    return true;
}

bool CQrvMatBase::WriteTo(CQrvBinaryStream& stream) {
    // The size comes first: it also sets the header's length words.
    ObjSize = static_cast<std::int32_t>(GetSize());
    stream.WriteInt(ObjSize);
    stream.WriteInt(ObjType);
    stream.WriteInt(BodyVer);
    Header.Write(stream);
    for (const QrvBodyItem& item : Layout.body) {
        if (!item.PresentAt(BodyVer)) continue;
        if (item.kind == QrvBodyItem::Block)
            block(item.tag)->Write(stream);
        else
            WriteSection(item.kind, stream);
    }
    return true;
}

bool CQrvMatBase::Write() {
    return Stream ? WriteTo(*Stream) : false;
}

bool CQrvMatBase::ReadText(CQrvBinaryStream& /*unused*/) {
    if (!Stream) return true;
    for (const QrvBodyItem& item : Layout.text)
        if (item.fromVersion == QrvBodyItem::kAlways) block(item.tag)->ReadText(*Stream);
    return true;
}

bool CQrvMatBase::WriteText(CQrvBinaryStream& stream) {
    if (Layout.text.count == 0) return true;
    // The type number: TypeWord printed with "%d" and padded on the left with 0 to four
    // characters (a negative word keeps its sign behind the padding).
    std::string type = std::to_string(Header.TypeWord);
    if (type.size() < 4) type.insert(0, 4 - type.size(), '0');
    const auto& texts = Header.Texts;
    stream.Print(texts[CQrvMatHeader::Polymer] + type + "," + texts[CQrvMatHeader::Polymer] + "," +
                 texts[CQrvMatHeader::Producer] + "," + texts[CQrvMatHeader::GradeName] + ",\"" +
                 texts[CQrvMatHeader::Comment] + "\",\"" + texts[CQrvMatHeader::SourceText] +
                 "\",");
    for (const QrvBodyItem& item : Layout.text)
        if (item.PresentAt(BodyVer)) block(item.tag)->WriteText(stream);
    return true;
}

void CQrvMatBase::SetVisRaw(CQrvViscosityData* /*data*/) {}
void CQrvMatBase::SetPVTRaw(CQrvPVTData* /*data*/) {}
void CQrvMatBase::SetMTC(CQrvMTCList* /*list*/) {}
void CQrvMatBase::GetVisRaw(CQrvViscosityData** /*data*/) {}
void CQrvMatBase::GetPVTRaw(CQrvPVTData** /*data*/) {}
void CQrvMatBase::GetMTC(CQrvMTCList* /*list*/) {}

void CQrvMatBase::SetParam(int tag, int source, int model, int count, const double* values) {
    if (CQrvMatParamBlock* carried = block(tag)) carried->Set(source, model, count, values);
}

void CQrvMatBase::GetParamInfo(int tag, int* source, int* model, int* count) {
    if (const CQrvMatParamBlock* carried = block(tag)) carried->GetInfo(source, model, count);
}

double CQrvMatBase::GetParamValue(int tag, int index) {
    const CQrvMatParamBlock* carried = block(tag);
    return carried ? carried->GetValue(index) : -1.0;
}

double* CQrvMatBase::GetParamArray(int tag) {
    const CQrvMatParamBlock* carried = block(tag);
    return carried ? carried->GetArray() : nullptr;
}

std::unique_ptr<double[]> CQrvMatBase::TakeParamArray(int tag) {
    CQrvMatParamBlock* carried = block(tag);
    return carried ? carried->TakeArray() : nullptr;
}

std::uint32_t CQrvMatBase::SectionSize(QrvBodyItem::Kind /*kind*/) const {
    return 0;
}
void CQrvMatBase::ReadSection(QrvBodyItem::Kind /*kind*/) {}
void CQrvMatBase::WriteSection(QrvBodyItem::Kind /*kind*/, CQrvBinaryStream& /*stream*/) const {}
