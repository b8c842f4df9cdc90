// QrvNameText: the one process-wide text behind every naming call. Each call assigns a literal to
// it and hands out its characters, which live until the next naming call.
#ifndef QRV_VOCABULARY_NAME_TEXT_H
#define QRV_VOCABULARY_NAME_TEXT_H

#include <string>

namespace qrv {

std::string& QrvNameText();

// Assigns text to the shared name text and returns its characters.
const char* setNameText(const char* text);

}  // namespace qrv

#endif
