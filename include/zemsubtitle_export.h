#ifndef ZEMSUBTITLE_EXPORT_H
#define ZEMSUBTITLE_EXPORT_H

// Marks the library's public surface; everything else is built with hidden visibility.
#if defined(_WIN32)
#  if defined(ZEMSUB_BUILDING)
#    define ZEMSUB_EXPORT __declspec(dllexport)
#  else
#    define ZEMSUB_EXPORT __declspec(dllimport)
#  endif
#else
#  define ZEMSUB_EXPORT __attribute__((visibility("default")))
#endif

#endif
