// Parsing of the build-date text that the library carries ("Mar  1 2016").
#ifndef QRV_FACADE_BUILD_DATE_H
#define QRV_FACADE_BUILD_DATE_H

namespace qrv {

// (year * 100 + month) * 100 + day; a month name that is none of "Jan" .. "Dec" counts as 0,
// and a text that does not parse gives 0.
long dateTextToNumber(const char* text);

}  // namespace qrv

#endif
