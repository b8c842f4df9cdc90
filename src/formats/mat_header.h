// CQrvMatHeader: the header of a material frame. Three words (Reserved0, TypeWord, DateWord) and
// five texts (Polymer, Producer, GradeName, Comment, SourceText), each stored as its length word
// and bytes: 32 bytes plus the five lengths.
#ifndef QRV_FORMATS_MAT_HEADER_H
#define QRV_FORMATS_MAT_HEADER_H

#include <array>
#include <cstdint>
#include <string>

class CQrvBinaryStream;

class CQrvMatHeader {
public:
    enum TextField { Polymer, Producer, GradeName, Comment, SourceText, TextFieldCount };

    // Brings the five length words up to date from the texts (the only place that sets them
    // apart from reading) and returns the header's size in bytes.
    std::uint32_t GetSize();

    // Reads the three words and the five texts. Each text is cut at its first NUL byte while the
    // stream stays in step; a field whose read fails keeps what it held.
    void Read(CQrvBinaryStream& stream);

    // Writes the three words and each text as its length and bytes.
    void Write(CQrvBinaryStream& stream) const;

    std::int32_t Reserved0 = 0;  // always written 0, read and kept
    std::int32_t TypeWord = 0;
    std::int32_t DateWord = 0;
    std::array<std::string, TextFieldCount> Texts;
    std::array<std::int32_t, TextFieldCount> Lengths{};
};

#endif
