// The melt flow index quoted in a record's comment.
#include <quorvalib/vocabulary.h>

#include <string>

#include "vocabulary/name_text.h"

const char* QrvGetMFIString(QrvMaterial* material) {
    if (!material) return qrv::setNameText("fail");
    if (!material->Comment) return qrv::setNameText("Unavailable");
    // Both marks are searched from the start: a "/10min" ahead of the first "MFI" hides a later
    // one.
    const std::string comment = material->Comment;
    const std::size_t mfi = comment.find("MFI");
    const std::size_t unit = comment.find("/10min");
    if (mfi == std::string::npos || unit == std::string::npos || unit <= mfi)
        return qrv::setNameText("Unavailable");
    const std::size_t end = unit + std::string("/10min").size();
    return qrv::setNameText(material->Comment + mfi, end - mfi);
}
