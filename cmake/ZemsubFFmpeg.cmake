# FFmpeg and uchardet, for the tools only: players read subtitle files through
# libavformat/libavcodec and guess encodings with uchardet. The library itself
# never links them.
find_package(PkgConfig REQUIRED)
pkg_check_modules(ZEMSUB_FFMPEG REQUIRED IMPORTED_TARGET libavformat libavcodec libavutil)
pkg_check_modules(ZEMSUB_UCHARDET REQUIRED IMPORTED_TARGET uchardet)
