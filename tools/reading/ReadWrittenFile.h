#ifndef ZEMSUB_READING_READWRITTENFILE_H
#define ZEMSUB_READING_READWRITTENFILE_H

#include "WrittenFile.h"

#include <QByteArray>
#include <QString>

namespace zemsub::tool {

// Reads a subtitle file's bytes as an FFmpeg-based player does: the encoding
// from its mark, else forcedEncoding, else uchardet; the events demuxed and
// decoded by FFmpeg from memory; then each event joined to the lines it stands
// on in the file (by FFmpeg's byte offset, else by its times). fileName gives
// the extension FFmpeg's probing weighs and need not exist. When FFmpeg cannot
// read the bytes, the result has read false, kind Unknown and FFmpeg's reason
// in failure. FFmpeg prints nothing.
WrittenFile readWrittenFile(const QByteArray& bytes, const QString& fileName,
                            const QString& forcedEncoding = QString());

} // namespace zemsub::tool

#endif
