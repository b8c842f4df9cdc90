// The byte stream under every material object and measured-data section: little-endian 32-bit
// words, little-endian binary64 reals and texts stored as a length word and bytes with no
// terminator, over a file or a memory buffer.
//
// Malformed input. A count or a text length read from the stream that is negative, or that asks
// for more bytes than the stream still holds, is handled as a read past the end: the stream goes
// into its failed state, the target keeps what it held and nothing is allocated for it. Once the
// stream has failed, every further read fails silently and leaves its target unchanged, exactly as
// in a stream that ended early. So no read throws because of what a file holds, and no read
// allocates more than the bytes still in the stream can fill. Writes into a failed stream are
// dropped.
#ifndef QRV_FORMATS_BINARY_STREAM_H
#define QRV_FORMATS_BINARY_STREAM_H

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iosfwd>
#include <istream>
#include <sstream>
#include <streambuf>
#include <string>

class CQrvBinaryStream {
public:
    explicit CQrvBinaryStream(std::iostream& io);
    virtual ~CQrvBinaryStream() = default;
    CQrvBinaryStream(const CQrvBinaryStream&) = delete;
    CQrvBinaryStream& operator=(const CQrvBinaryStream&) = delete;

    // Each read returns true when the value was read and stored; otherwise the target is unchanged.
    bool ReadInt(std::int32_t& value);
    bool ReadDouble(double& value);

    // Reads the count of a following run of items that take at least bytesPerItem bytes each.
    // A negative count, or one whose items cannot fit in the bytes left, fails the stream.
    bool ReadCount(std::int32_t& count, std::uint64_t bytesPerItem);

    // Reads a length word and that many bytes. The text becomes the bytes up to the first NUL, so
    // an embedded NUL shortens it while the stream stays in step. storedLength, when given, gets
    // the length word as it stood in the stream.
    bool ReadText(std::string& text, std::int32_t* storedLength = nullptr);

    // Formatted extraction of white-space separated numbers (the text twin of the material
    // objects). ScanCount fails the stream on a negative count or one above the bytes left.
    bool ScanInt(std::int32_t& value);
    bool ScanDouble(double& value);
    bool ScanCount(std::int32_t& count);

    void WriteInt(std::int32_t value);
    void WriteDouble(double value);
    void WriteText(const std::string& text);  // length word, then the bytes as they stand
    void Print(const std::string& text);      // the bytes alone

    bool Failed() const;
    void Fail();  // puts the stream into its failed state
    std::uint64_t BytesLeft();

    std::iostream& Io() { return io_; }

private:
    bool readRaw(char* bytes, std::size_t size);

    std::iostream& io_;
};

namespace qrv::detail {
// Members that must be built before the stream base that refers to them.
struct MemoryBuffer {
    explicit MemoryBuffer(const std::string& bytes)
        : buffer(bytes, std::ios::in | std::ios::out | std::ios::binary) {}
    std::stringstream buffer;
};
struct FileBuffer {
    std::fstream file;
};

// A read-only buffer over bytes that it does not own or copy: reads and seeks within them, no
// writes (the put area stays empty, so a write fails the stream).
class ByteView : public std::streambuf {
public:
    ByteView(const char* bytes, std::size_t size);

protected:
    pos_type seekoff(off_type offset, std::ios::seekdir direction,
                     std::ios::openmode which) override;
    pos_type seekpos(pos_type position, std::ios::openmode which) override;
    std::streamsize xsgetn(char* target, std::streamsize count) override;
};

struct ViewBuffer {
    ViewBuffer(const char* bytes, std::size_t size) : view(bytes, size), stream(&view) {}
    ByteView view;
    std::iostream stream;
};
}  // namespace qrv::detail

// A stream over bytes held in memory: empty for writing, or over given bytes for reading.
class CQrvMemoryStream : private qrv::detail::MemoryBuffer, public CQrvBinaryStream {
public:
    CQrvMemoryStream();
    explicit CQrvMemoryStream(const std::string& bytes);

    std::string Bytes() const { return buffer.str(); }
};

// A stream that reads bytes held elsewhere, without copying them: they must outlive it. For
// reading a whole file's bytes once; writes fail.
class CQrvByteReader : private qrv::detail::ViewBuffer, public CQrvBinaryStream {
public:
    CQrvByteReader(const char* bytes, std::size_t size);
};

// A stream over a file, opened in binary mode with the given mode added; or not yet opened, for
// an owner that opens and closes the file itself through File().
class CQrvFileStream : private qrv::detail::FileBuffer, public CQrvBinaryStream {
public:
    CQrvFileStream();
    CQrvFileStream(const std::string& path, std::ios::openmode mode);

    bool IsOpen() const { return file.is_open(); }
    std::fstream& File() { return file; }
};

#endif
