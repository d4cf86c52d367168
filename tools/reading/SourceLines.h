#ifndef ZEMSUB_READING_SOURCELINES_H
#define ZEMSUB_READING_SOURCELINES_H

#include "EncodingDetection.h"

#include <QByteArray>
#include <QStringList>
#include <vector>

namespace zemsub::tool {

// The lines of a file as they stand in it, decoded in the file's encoding.
struct SourceLines
{
    QStringList lines;              // without their line feed and carriage return
    std::vector<long long> offsets; // byte offset in the file where each line begins
    bool crlf = false;              // a line ends in CR LF
    bool unendedLastLine = false;   // the last line has no line feed after it
};

// Splits at line feeds (a last line without one counts; an empty last line does
// not). Marks are skipped; text invalid in the encoding is decoded byte by byte as Latin-1.
SourceLines splitSourceLines(const QByteArray& bytes, const DetectedEncoding& encoding);

// Decodes bytes from encoding (an iconv name) to text; null when iconv does not know it.
QString decodeWith(const QByteArray& bytes, const QString& encoding);

} // namespace zemsub::tool

#endif
