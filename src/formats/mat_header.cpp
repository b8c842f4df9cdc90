// The frame header: three words and five length-prefixed texts.
#include "formats/mat_header.h"

#include "formats/binary_stream.h"

std::uint32_t CQrvMatHeader::GetSize() {
    std::uint32_t size = 32;
    for (int i = 0; i < TextFieldCount; ++i) {
        Lengths[i] = static_cast<std::int32_t>(Texts[i].size());
        size += static_cast<std::uint32_t>(Lengths[i]);
    }
    return size;
}

void CQrvMatHeader::Read(CQrvBinaryStream& stream) {
    stream.ReadInt(Reserved0);
    stream.ReadInt(TypeWord);
    stream.ReadInt(DateWord);
    for (int i = 0; i < TextFieldCount; ++i)
        stream.ReadText(Texts[i], &Lengths[i]);
}

void CQrvMatHeader::Write(CQrvBinaryStream& stream) const {
    stream.WriteInt(Reserved0);
    stream.WriteInt(TypeWord);
    stream.WriteInt(DateWord);
    for (const std::string& text : Texts)
        stream.WriteText(text);
}
