// CQrvBankStream: a file of material frames behind a 4-byte lead word, walked by position.
//
//   offset 0   lead word (9051 in every file this library writes; never looked at here)
//   offset 4   frames one behind the other, each ObjSize (int32) and ObjSize bytes
//
// There is no count and no index: the number of materials and the place of each follow only from
// walking the ObjSize words, and a material is addressed by its 0-based position. A single
// material file of the current form is the same container with one frame.
//
// Damaged files. A frame that starts before the end of the file counts, however it ends. A
// negative ObjSize cannot be walked past, so such a frame counts as reaching the end of the file.
// A frame whose ObjType is not 0, 1 or 2, or whose ObjType cannot be read, gives no object: the
// load is null. Reads behind the end of a short frame fail silently (see formats/binary_stream.h).
//
// Walking. The stream remembers where each frame it has walked to starts, for as long as it stays
// open and nothing is appended, so that going through every entry of an open bank reads each
// ObjSize word once: a pass over all entries costs time linear in the bank's size. The answers
// are those of a walk from the first frame; the file is taken to stay as it is while the stream
// has it open.
#ifndef QRV_FORMATS_BANK_STREAM_H
#define QRV_FORMATS_BANK_STREAM_H

#include <cstdint>
#include <fstream>
#include <memory>
#include <vector>

#include "formats/binary_stream.h"
#include "formats/mat_base.h"

class CQrvBankStream : public std::fstream {
public:
    CQrvBankStream();
    // Destroys the object loaded last, then closes the file as any file stream does.
    ~CQrvBankStream() override;
    CQrvBankStream(const CQrvBankStream&) = delete;
    CQrvBankStream& operator=(const CQrvBankStream&) = delete;

    // Stores the name (not copied: it must outlive the stream) and the mode; opens nothing.
    void SetFile(const char* name, bool writable);

    // True at once when open. Otherwise opens FileName for reading, and for writing too when
    // Writable, keeping the content and never creating the file, under the locale guard. False
    // when the open fails (the stream is then in its failed state); a folder does not open.
    bool Open();

    // Stores name and mode, closes a file that is open, then Open.
    bool OpenFile(const char* name, bool writable);

    // Closes the file when open; the object loaded last survives.
    void Close();

    // Number of frames found by walking the ObjSize words from offset 4; 0 when not open. A file
    // of 4 bytes or fewer has none.
    int GetMaterialCount();

    // Goes to the frame at index (a negative index is taken as 0; no range check otherwise),
    // builds its object on this stream and lets it read itself. The stream keeps the object until
    // the next load or its own end. Null, with the previous object destroyed, when the frame's
    // ObjType is unknown or unreadable; null too when the stream is not open.
    CQrvMatBase* LoadMaterial(int index);

    // Writes the object's frame behind the end of the file in one piece. True when it was
    // written. A null object, or a stream that is not open, writes nothing and gives false. When
    // the write fails, the file is cut back to its old length, so that it never ends in part of a
    // frame, and the result is false.
    bool AppendMaterial(CQrvMatBase* object);

    // The byte stream that the material objects read from and write to.
    CQrvBinaryStream& Binary() { return Bytes; }

    bool Writable = false;
    bool IsOpen = false;
    std::int32_t Version = 9051;  // nothing reads it
    const char* FileName = "";    // not owned

private:
    // Makes the start of frame index known, walking on from the last known frame. False when the
    // walk ended before it (the stream is then failed).
    bool reachFrame(std::size_t index);
    void forgetFrames();
    // Moves the read position to target, inside the read buffer when it can.
    void moveTo(std::streamoff target);
    // Each walk starts from a clean state, whatever a short read of the last one left.
    void restart();

    CQrvBinaryStream Bytes{*this};
    // Starts of the frames walked to so far: frame i starts at FrameStarts[i], reached from the
    // first frame by i steps that could be taken. WalkEnded: no step leads behind the last one.
    // (A type of the library's own, so that the vector's code is not exported with the std types.)
    struct FrameStart {
        std::streamoff at;
    };
    std::vector<FrameStart> FrameStarts;
    bool WalkEnded = false;
    std::unique_ptr<CQrvMatBase> Object;  // declared behind Bytes, so destroyed before it
};

#endif
