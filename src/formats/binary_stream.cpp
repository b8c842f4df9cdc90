// Little-endian words and reals, length-prefixed texts, and the bounds that keep a damaged file
// from making a read allocate without limit.
#include "formats/binary_stream.h"

#include <cstring>
#include <istream>
#include <limits>

namespace {

std::uint32_t decodeWord(const unsigned char* bytes) {
    return static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
           static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
}

void encodeWord(std::uint32_t word, char* bytes) {
    for (int i = 0; i < 4; ++i)
        bytes[i] = static_cast<char>((word >> (8 * i)) & 0xFFu);
}

// True when the stream still holds at least bytes. What the buffer already holds answers without a
// system call; only a larger request measures the rest of the stream, which on a file means
// seeking and throwing the buffer away.
bool holds(CQrvBinaryStream& stream, std::uint64_t bytes) {
    const std::streamsize buffered = stream.Io().rdbuf()->in_avail();
    if (buffered > 0 && bytes <= static_cast<std::uint64_t>(buffered)) return true;
    return bytes <= stream.BytesLeft();
}

}  // namespace

CQrvBinaryStream::CQrvBinaryStream(std::iostream& io) : io_(io) {}

// Straight from the stream buffer: a word or a real is too small to pay for the sentry of a
// formatted-input call each time. A short read fails the stream as istream::read does.
bool CQrvBinaryStream::readRaw(char* bytes, std::size_t size) {
    if (io_.fail()) return false;
    if (io_.eof()) {
        io_.setstate(std::ios::failbit);
        return false;
    }
    const std::streamsize wanted = static_cast<std::streamsize>(size);
    if (io_.rdbuf()->sgetn(bytes, wanted) == wanted) return true;
    io_.setstate(std::ios::eofbit | std::ios::failbit);
    return false;
}

bool CQrvBinaryStream::ReadInt(std::int32_t& value) {
    unsigned char bytes[4];
    if (!readRaw(reinterpret_cast<char*>(bytes), sizeof bytes)) return false;
    value = static_cast<std::int32_t>(decodeWord(bytes));
    return true;
}

bool CQrvBinaryStream::ReadDouble(double& value) {
    unsigned char bytes[8];
    if (!readRaw(reinterpret_cast<char*>(bytes), sizeof bytes)) return false;
    const std::uint64_t bits = decodeWord(bytes) | static_cast<std::uint64_t>(decodeWord(bytes + 4))
                                                       << 32;
    std::memcpy(&value, &bits, sizeof value);
    return true;
}

bool CQrvBinaryStream::ReadCount(std::int32_t& count, std::uint64_t bytesPerItem) {
    std::int32_t read = 0;
    if (!ReadInt(read)) return false;
    if (read < 0 || !holds(*this, static_cast<std::uint64_t>(read) * bytesPerItem)) {
        Fail();
        return false;
    }
    count = read;
    return true;
}

bool CQrvBinaryStream::ReadText(std::string& text, std::int32_t* storedLength) {
    std::int32_t length = 0;
    if (!ReadCount(length, 1)) return false;
    std::string bytes(static_cast<std::size_t>(length), '\0');
    if (length > 0 && !readRaw(&bytes[0], bytes.size())) return false;
    const std::size_t end = bytes.find('\0');
    if (end != std::string::npos) bytes.resize(end);
    text = std::move(bytes);
    if (storedLength) *storedLength = length;
    return true;
}

bool CQrvBinaryStream::ScanInt(std::int32_t& value) {
    if (io_.fail()) return false;
    std::int32_t read = 0;
    if (!(io_ >> read)) return false;
    value = read;
    return true;
}

bool CQrvBinaryStream::ScanDouble(double& value) {
    if (io_.fail()) return false;
    double read = 0.0;
    if (!(io_ >> read)) return false;
    value = read;
    return true;
}

bool CQrvBinaryStream::ScanCount(std::int32_t& count) {
    std::int32_t read = 0;
    if (!ScanInt(read)) return false;
    // Each value takes at least one character.
    if (read < 0 || !holds(*this, static_cast<std::uint64_t>(read))) {
        Fail();
        return false;
    }
    count = read;
    return true;
}

void CQrvBinaryStream::WriteInt(std::int32_t value) {
    char bytes[4];
    encodeWord(static_cast<std::uint32_t>(value), bytes);
    io_.write(bytes, sizeof bytes);
}

void CQrvBinaryStream::WriteDouble(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof value);
    char bytes[8];
    encodeWord(static_cast<std::uint32_t>(bits & 0xFFFFFFFFu), bytes);
    encodeWord(static_cast<std::uint32_t>(bits >> 32), bytes + 4);
    io_.write(bytes, sizeof bytes);
}

void CQrvBinaryStream::WriteText(const std::string& text) {
    WriteInt(static_cast<std::int32_t>(text.size()));
    Print(text);
}

void CQrvBinaryStream::Print(const std::string& text) {
    io_.write(text.data(), static_cast<std::streamsize>(text.size()));
}

bool CQrvBinaryStream::Failed() const {
    return io_.fail();
}

void CQrvBinaryStream::Fail() {
    io_.setstate(std::ios::failbit);
}

std::uint64_t CQrvBinaryStream::BytesLeft() {
    if (io_.fail()) return 0;
    const std::streampos here = io_.tellg();
    if (here == std::streampos(-1)) return 0;
    io_.seekg(0, std::ios::end);
    const std::streampos end = io_.tellg();
    io_.seekg(here);
    if (end == std::streampos(-1) || end < here) return 0;
    return static_cast<std::uint64_t>(end - here);
}

CQrvMemoryStream::CQrvMemoryStream() : MemoryBuffer(std::string()), CQrvBinaryStream(buffer) {}

CQrvMemoryStream::CQrvMemoryStream(const std::string& bytes)
    : MemoryBuffer(bytes), CQrvBinaryStream(buffer) {}

namespace qrv::detail {

ByteView::ByteView(const char* bytes, std::size_t size) {
    // The get area only ever reads: the bytes are not written through it.
    char* begin = const_cast<char*>(bytes);
    setg(begin, begin, begin + size);
}

ByteView::pos_type ByteView::seekoff(off_type offset, std::ios::seekdir direction,
                                     std::ios::openmode which) {
    if (!(which & std::ios::in)) return pos_type(off_type(-1));
    const off_type size = egptr() - eback();
    off_type base = 0;
    if (direction == std::ios::cur)
        base = gptr() - eback();
    else if (direction == std::ios::end)
        base = size;
    // Checked without overflow: base lies in 0..size.
    if (offset < -base || offset > size - base) return pos_type(off_type(-1));
    setg(eback(), eback() + base + offset, egptr());
    return pos_type(base + offset);
}

ByteView::pos_type ByteView::seekpos(pos_type position, std::ios::openmode which) {
    return seekoff(off_type(position), std::ios::beg, which);
}

std::streamsize ByteView::xsgetn(char* target, std::streamsize count) {
    const std::streamsize available = egptr() - gptr();
    const std::streamsize taken = count < available ? count : available;
    if (taken > 0) {
        std::memcpy(target, gptr(), static_cast<std::size_t>(taken));
        setg(eback(), gptr() + taken, egptr());
    }
    return taken;
}

}  // namespace qrv::detail

CQrvByteReader::CQrvByteReader(const char* bytes, std::size_t size)
    : ViewBuffer(bytes, size), CQrvBinaryStream(stream) {}

CQrvFileStream::CQrvFileStream() : CQrvBinaryStream(file) {}

CQrvFileStream::CQrvFileStream(const std::string& path, std::ios::openmode mode)
    : CQrvBinaryStream(file) {
    file.open(path, mode | std::ios::binary);
}
