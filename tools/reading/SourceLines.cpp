#include "SourceLines.h"

#include <iconv.h>

#include <cerrno>

namespace zemsub::tool {

namespace {

QString decodeLine(const QByteArray& bytes, const QString& encoding)
{
    if (encoding.isEmpty() || encoding == QLatin1String("UTF-8") || encoding == QLatin1String("ASCII"))
        return isValidUtf8(bytes) ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
    const QString text = decodeWith(bytes, encoding);
    return text.isNull() ? QString::fromLatin1(bytes) : text;
}

ushort unitAt(const QByteArray& bytes, int i, bool littleEndian)
{
    const auto a = static_cast<unsigned char>(bytes[i]);
    const auto b = static_cast<unsigned char>(bytes[i + 1]);
    return littleEndian ? ushort(a | (b << 8)) : ushort(b | (a << 8));
}

void addLine(SourceLines& source, QString line, long long offset)
{
    if (line.endsWith(QLatin1Char('\r'))) {
        source.crlf = true;
        line.chop(1);
    }
    source.lines << line;
    source.offsets.push_back(offset);
}

void splitUtf16(const QByteArray& bytes, bool littleEndian, SourceLines& source)
{
    QString line;
    long long begin = 2;
    for (int i = 2; i + 1 < int(bytes.size()); i += 2) {
        const ushort unit = unitAt(bytes, i, littleEndian);
        if (unit == '\n') {
            addLine(source, line, begin);
            line.clear();
            begin = i + 2;
        } else {
            line += QChar(unit);
        }
    }
    if (!line.isEmpty()) {
        addLine(source, line, begin);
        source.unendedLastLine = true;
    }
}

} // namespace

QString decodeWith(const QByteArray& bytes, const QString& encoding)
{
    iconv_t converter = iconv_open("UTF-8", encoding.toLatin1().constData());
    if (converter == reinterpret_cast<iconv_t>(-1))
        return QString();
    QByteArray output;
    QByteArray chunk(4096, '\0');
    char* in = const_cast<char*>(bytes.constData());
    size_t inLeft = static_cast<size_t>(bytes.size());
    while (inLeft > 0) {
        char* out = chunk.data();
        size_t outLeft = static_cast<size_t>(chunk.size());
        const size_t done = iconv(converter, &in, &inLeft, &out, &outLeft);
        output.append(chunk.constData(), chunk.size() - static_cast<int>(outLeft));
        if (done == static_cast<size_t>(-1) && errno != E2BIG) {
            // A byte the encoding does not hold: shown as Latin-1, then on.
            output.append(QString(QChar(static_cast<unsigned char>(*in))).toUtf8());
            ++in;
            --inLeft;
        }
    }
    iconv_close(converter);
    return QString::fromUtf8(output);
}

SourceLines splitSourceLines(const QByteArray& bytes, const DetectedEncoding& encoding)
{
    SourceLines source;
    if (encoding.utf16) {
        splitUtf16(bytes, encoding.ffFeMark, source);
        return source;
    }
    const QString name = encoding.name.toUpper();
    long long begin = encoding.utf8Mark ? 3 : 0;
    const long long size = bytes.size();
    while (begin < size) {
        long long end = bytes.indexOf('\n', static_cast<int>(begin));
        if (end < 0) {
            end = size;
            source.unendedLastLine = true;
        }
        addLine(source, decodeLine(bytes.mid(static_cast<int>(begin), static_cast<int>(end - begin)), name),
                begin);
        begin = end + 1;
    }
    return source;
}

} // namespace zemsub::tool
