// The one export macro of the library. Everything that a caller links against carries QRV_API;
// the library is compiled with hidden visibility, so nothing else leaves the shared object.
#ifndef QUORVALIB_EXPORT_H
#define QUORVALIB_EXPORT_H

#if defined(_WIN32)
#if defined(QRV_BUILDING_LIBRARY)
#define QRV_API __declspec(dllexport)
#else
#define QRV_API __declspec(dllimport)
#endif
#else
#define QRV_API __attribute__((visibility("default")))
#endif

#endif
