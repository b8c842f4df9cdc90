// QrvNameText: the text behind every naming call. Each call assigns a literal to it and hands out
// its characters, which live until the next naming call.
//
// Each thread has a text of its own (see thread_slot.h): a thread sees exactly what a process with
// one thread sees, the stale text of its own previous call included, and a new thread starts with
// the empty text. The text has a fixed place of kNameTextCapacity characters that is never freed,
// so a pointer handed out earlier stays readable (it then reads the newer text) and never
// dangles. A text longer than the place (only an MFI text cut from a very long comment can be) is
// cut to kNameTextCapacity - 1 characters.
#ifndef QRV_VOCABULARY_NAME_TEXT_H
#define QRV_VOCABULARY_NAME_TEXT_H

#include <cstddef>

namespace qrv {

constexpr std::size_t kNameTextCapacity = 4096;

// The calling thread's text as it stands.
const char* nameText();

// Assigns text (null counts as empty) to the calling thread's name text and returns its
// characters.
const char* setNameText(const char* text);

// The same for a run of characters that need not be terminated.
const char* setNameText(const char* text, std::size_t length);

}  // namespace qrv

#endif
