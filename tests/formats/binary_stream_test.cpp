// The byte stream: encodings, reading past the end and the bounds on counts and lengths.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <iostream>
#include <sstream>
#include <string>

#include "formats/binary_stream.h"
#include "support/byte_builder.h"

using qrvtest::Bytes;

TEST(BinaryStream, WordsAreLittleEndian) {
    CQrvMemoryStream out;
    out.WriteInt(0x01020304);
    out.WriteInt(-2);
    EXPECT_EQ(out.Bytes(), std::string("\x04\x03\x02\x01\xfe\xff\xff\xff", 8));
}

TEST(BinaryStream, RealsAreLittleEndianBinary64) {
    CQrvMemoryStream out;
    out.WriteDouble(1.0);   // 0x3FF0000000000000
    out.WriteDouble(-2.5);  // 0xC004000000000000
    EXPECT_EQ(out.Bytes(), std::string("\0\0\0\0\0\0\xf0\x3f\0\0\0\0\0\0\x04\xc0", 16));
    CQrvMemoryStream in(out.Bytes());
    double a = 0, b = 0;
    EXPECT_TRUE(in.ReadDouble(a));
    EXPECT_TRUE(in.ReadDouble(b));
    EXPECT_EQ(a, 1.0);
    EXPECT_EQ(b, -2.5);
}

TEST(BinaryStream, TextIsALengthWordAndBytes) {
    CQrvMemoryStream out;
    out.WriteText("PP");
    out.WriteText("");
    EXPECT_EQ(out.Bytes(), std::string("\x02\0\0\0PP\0\0\0\0", 10));
}

TEST(BinaryStream, EmbeddedNulCutsTheTextAndKeepsTheStreamInStep) {
    CQrvMemoryStream in(Bytes().text(std::string("AB\0CD", 5)).word(42).str());
    std::string text = "old";
    std::int32_t length = 0, next = 0;
    EXPECT_TRUE(in.ReadText(text, &length));
    EXPECT_EQ(text, "AB");
    EXPECT_EQ(length, 5);
    EXPECT_TRUE(in.ReadInt(next));
    EXPECT_EQ(next, 42);
}

TEST(BinaryStream, ReadingPastTheEndKeepsTheTarget) {
    CQrvMemoryStream in(std::string("\x07\0\0\0\x01\x02", 6));
    std::int32_t value = 0;
    EXPECT_TRUE(in.ReadInt(value));
    EXPECT_EQ(value, 7);
    EXPECT_FALSE(in.ReadInt(value));  // two bytes left
    EXPECT_EQ(value, 7);
    EXPECT_TRUE(in.Failed());
    double real = 3.5;
    EXPECT_FALSE(in.ReadDouble(real));
    EXPECT_EQ(real, 3.5);
    std::string text = "kept";
    EXPECT_FALSE(in.ReadText(text));
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(in.BytesLeft(), 0u);
}

TEST(BinaryStream, BadLengthsFailTheStream) {
    for (std::int64_t bad : {std::int64_t{-1}, std::int64_t{-2147483647 - 1},
                             std::int64_t{2147483647}, std::int64_t{9}}) {
        // Eight bytes follow the length, so 9 is just too large.
        CQrvMemoryStream in(Bytes().word(bad).raw("ABCD").word(9).str());
        std::string text = "kept";
        std::int32_t length = -77;
        EXPECT_FALSE(in.ReadText(text, &length));
        EXPECT_EQ(text, "kept");
        EXPECT_EQ(length, -77);
        EXPECT_TRUE(in.Failed());
        std::int32_t after = 3;
        EXPECT_FALSE(in.ReadInt(after));  // later reads fail silently
        EXPECT_EQ(after, 3);
    }
    CQrvMemoryStream fits(Bytes().word(4).raw("ABCD").str());
    std::string text;
    EXPECT_TRUE(fits.ReadText(text));
    EXPECT_EQ(text, "ABCD");
}

TEST(BinaryStream, BadCountsFailTheStream) {
    // Sixteen bytes follow the count: two items of 8 fit, three do not.
    const std::string tail(16, '\0');
    for (std::int64_t bad : {std::int64_t{-1}, std::int64_t{2147483647}, std::int64_t{3}}) {
        CQrvMemoryStream in(Bytes().word(bad).raw(tail).str());
        std::int32_t count = 11;
        EXPECT_FALSE(in.ReadCount(count, 8));
        EXPECT_EQ(count, 11);
        EXPECT_TRUE(in.Failed());
    }
    CQrvMemoryStream in(Bytes().word(2).raw(tail).str());
    std::int32_t count = 11;
    EXPECT_TRUE(in.ReadCount(count, 8));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(in.BytesLeft(), 16u);
}

TEST(BinaryStream, ScanReadsWhiteSpaceSeparatedNumbers) {
    CQrvMemoryStream in(std::string("12 -3 2.5e3 4 x"));
    std::int32_t a = 0, b = 0, count = 0;
    double c = 0;
    EXPECT_TRUE(in.ScanInt(a));
    EXPECT_TRUE(in.ScanInt(b));
    EXPECT_TRUE(in.ScanDouble(c));
    EXPECT_FALSE(in.ScanCount(count));  // 4 values cannot fit in the 2 characters left
    EXPECT_EQ(count, 0);
    EXPECT_EQ(a, 12);
    EXPECT_EQ(b, -3);
    EXPECT_EQ(c, 2500.0);
    CQrvMemoryStream bad(std::string("abc"));
    std::int32_t kept = 5;
    EXPECT_FALSE(bad.ScanInt(kept));
    EXPECT_EQ(kept, 5);
    CQrvMemoryStream negative(std::string("-1 1 1"));
    EXPECT_FALSE(negative.ScanCount(kept));
    EXPECT_EQ(kept, 5);
}

TEST(BinaryStream, FileStreamWritesAndReads) {
    const std::string path = ::testing::TempDir() + "qrv_binary_stream_test.bin";
    {
        CQrvFileStream out(path, std::ios::out | std::ios::trunc);
        ASSERT_TRUE(out.IsOpen());
        out.WriteInt(9051);
        out.WriteText("PP");
    }
    EXPECT_EQ(qrvtest::readFile(path), Bytes().word(9051).text("PP").str());
    CQrvFileStream in(path, std::ios::in);
    std::int32_t lead = 0;
    std::string text;
    EXPECT_TRUE(in.ReadInt(lead));
    EXPECT_EQ(in.BytesLeft(), 6u);
    EXPECT_TRUE(in.ReadText(text));
    EXPECT_EQ(lead, 9051);
    EXPECT_EQ(text, "PP");

    CQrvFileStream later;  // opened by its owner
    EXPECT_FALSE(later.IsOpen());
    later.File().open(path, std::ios::in | std::ios::binary);
    ASSERT_TRUE(later.IsOpen());
    EXPECT_EQ(later.BytesLeft(), 10u);
    EXPECT_TRUE(later.ReadInt(lead));
    EXPECT_EQ(lead, 9051);

    std::remove(path.c_str());
    CQrvFileStream missing(path, std::ios::in);
    EXPECT_FALSE(missing.IsOpen());
    EXPECT_FALSE(missing.ReadInt(lead));
    EXPECT_EQ(lead, 9051);
}

// The reader over bytes held elsewhere reads what the same bytes hold in a memory stream, seeks
// within them and measures what is left, and fails past their end without reading beyond it.
TEST(ByteReader, ReadsSeeksAndEndsLikeAMemoryStream) {
    const std::string bytes = Bytes().word(9051).real(-2.5).text("PP").word(7).str();
    ASSERT_EQ(bytes.size(), 22u);
    CQrvByteReader in(bytes.data(), bytes.size());
    std::int32_t lead = 0;
    double real = 0.0;
    std::string text;
    EXPECT_EQ(in.BytesLeft(), 22u);
    EXPECT_TRUE(in.ReadInt(lead));
    EXPECT_EQ(lead, 9051);
    EXPECT_TRUE(in.ReadDouble(real));
    EXPECT_EQ(real, -2.5);
    EXPECT_EQ(in.BytesLeft(), 10u);
    EXPECT_TRUE(in.ReadText(text));
    EXPECT_EQ(text, "PP");
    // Back to the real and on again: the offsets are those of the bytes.
    in.Io().seekg(4);
    EXPECT_EQ(in.Io().tellg(), std::streampos(4));
    EXPECT_TRUE(in.ReadDouble(real));
    EXPECT_EQ(real, -2.5);
    in.Io().seekg(-4, std::ios::end);
    std::int32_t last = 0;
    EXPECT_TRUE(in.ReadInt(last));
    EXPECT_EQ(last, 7);
    EXPECT_EQ(in.BytesLeft(), 0u);
    EXPECT_FALSE(in.ReadInt(last));  // at the end
    EXPECT_EQ(last, 7);
    EXPECT_TRUE(in.Failed());
}

TEST(ByteReader, SeeksOutsideTheBytesFailAndACountMustFitThem) {
    const std::string bytes = Bytes().word(3).raw("ABC").str();
    CQrvByteReader before(bytes.data(), bytes.size());
    before.Io().seekg(-1);
    EXPECT_TRUE(before.Failed());
    CQrvByteReader beyond(bytes.data(), bytes.size());
    beyond.Io().seekg(8);
    EXPECT_TRUE(beyond.Failed());
    CQrvByteReader atEnd(bytes.data(), bytes.size());
    atEnd.Io().seekg(7);  // the end itself is a place
    EXPECT_FALSE(atEnd.Failed());
    EXPECT_EQ(atEnd.BytesLeft(), 0u);
    CQrvByteReader fromMiddle(bytes.data(), bytes.size());
    fromMiddle.Io().seekg(4);
    fromMiddle.Io().seekg(4, std::ios::cur);  // one past the end, counted from the middle
    EXPECT_TRUE(fromMiddle.Failed());

    // Only the first five bytes are the reader's: a text of 3 does not fit in the 1 left.
    CQrvByteReader cut(bytes.data(), 5);
    std::string text = "kept";
    EXPECT_FALSE(cut.ReadText(text));
    EXPECT_EQ(text, "kept");
    CQrvByteReader whole(bytes.data(), bytes.size());
    EXPECT_TRUE(whole.ReadText(text));
    EXPECT_EQ(text, "ABC");
}

TEST(ByteReader, WritesFailAndLeaveTheBytesAlone) {
    const std::string bytes = Bytes().word(1).str();
    CQrvByteReader in(bytes.data(), bytes.size());
    in.WriteInt(2);
    EXPECT_TRUE(in.Failed());
    EXPECT_EQ(bytes, Bytes().word(1).str());
}

namespace {

// Bytes in memory whose end cannot be measured: a seek to the end fails (or, with shortEnd,
// lands before the read position), while the position itself is told as usual.
class EndlessBuffer : public std::stringbuf {
public:
    EndlessBuffer(const std::string& bytes, bool shortEnd)
        : std::stringbuf(bytes, std::ios::in | std::ios::out | std::ios::binary),
          shortEnd_(shortEnd) {}

protected:
    pos_type seekoff(off_type offset, std::ios::seekdir way, std::ios::openmode which) override {
        if (way == std::ios::end)
            return shortEnd_ ? std::stringbuf::seekoff(0, std::ios::beg, which)
                             : pos_type(off_type(-1));
        return std::stringbuf::seekoff(offset, way, which);
    }

private:
    bool shortEnd_;
};

}  // namespace

TEST(BinaryStream, AStreamWithoutAMeasurableEndHoldsNothingMore) {
    for (bool shortEnd : {false, true}) {
        // A word already read, then a count of a million reals with four bytes behind it: only
        // the end of the stream could say whether they fit, and it cannot be had.
        EndlessBuffer buffer(Bytes().word(5).word(1000000).raw("ABCD").str(), shortEnd);
        std::iostream io(&buffer);
        CQrvBinaryStream in(io);
        std::int32_t first = 0;
        ASSERT_TRUE(in.ReadInt(first));
        EXPECT_EQ(first, 5);
        std::int32_t count = 11;
        EXPECT_FALSE(in.ReadCount(count, 8)) << "shortEnd " << shortEnd;
        EXPECT_EQ(count, 11);
        EXPECT_TRUE(in.Failed());
    }
}

namespace {

// Bytes in memory that can be read but cannot tell or change their position.
class UntellableBuffer : public std::stringbuf {
public:
    explicit UntellableBuffer(const std::string& bytes)
        : std::stringbuf(bytes, std::ios::in | std::ios::binary) {}

protected:
    pos_type seekoff(off_type, std::ios::seekdir, std::ios::openmode) override {
        return pos_type(off_type(-1));
    }
};

}  // namespace

TEST(BinaryStream, AStreamThatCannotTellItsPositionHasNothingLeftAndReadsOn) {
    UntellableBuffer buffer(Bytes().word(5).raw("ABCD").str());
    std::iostream io(&buffer);
    CQrvBinaryStream in(io);
    EXPECT_EQ(in.BytesLeft(), 0u);
    std::int32_t word = 0;
    EXPECT_TRUE(in.ReadInt(word));
    EXPECT_EQ(word, 5);
}
