#include "EncodingDetection.h"

#include <uchardet.h>

namespace zemsub::tool {

namespace {

bool startsWith(const QByteArray& bytes, const char* mark, int size)
{
    return bytes.size() >= size && bytes.left(size) == QByteArray(mark, size);
}

QString guess(const QByteArray& bytes)
{
    uchardet_t detector = uchardet_new();
    if (!detector)
        return QString();
    QString name;
    if (uchardet_handle_data(detector, bytes.constData(), static_cast<size_t>(bytes.size())) == 0) {
        uchardet_data_end(detector);
        const char* charset = uchardet_get_charset(detector);
        name = QString::fromLatin1(charset ? charset : "").toUpper();
    }
    uchardet_delete(detector);
    return name;
}

} // namespace

QString DetectedEncoding::decoderEncoding() const
{
    if (forced)
        return name;
    if (utf16 || name == QLatin1String("UTF-8") || name == QLatin1String("ASCII"))
        return QString();
    return name;
}

bool isValidUtf8(const QByteArray& bytes)
{
    const int n = int(bytes.size());
    for (int i = 0; i < n;) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        int follow = 0;
        if (c < 0x80)
            follow = 0;
        else if (c >= 0xC2 && c <= 0xDF)
            follow = 1;
        else if (c >= 0xE0 && c <= 0xEF)
            follow = 2;
        else if (c >= 0xF0 && c <= 0xF4)
            follow = 3;
        else
            return false;
        if (i + follow >= n && follow > 0)
            return false;
        for (int k = 1; k <= follow; ++k) {
            if ((static_cast<unsigned char>(bytes[i + k]) & 0xC0) != 0x80)
                return false;
        }
        i += follow + 1;
    }
    return true;
}

DetectedEncoding detectEncoding(const QByteArray& bytes, const QString& forcedEncoding)
{
    DetectedEncoding encoding;
    encoding.utf8Mark = startsWith(bytes, "\xEF\xBB\xBF", 3);
    encoding.ffFeMark = startsWith(bytes, "\xFF\xFE", 2);
    encoding.feFfMark = startsWith(bytes, "\xFE\xFF", 2);
    if (!forcedEncoding.isEmpty()) {
        encoding.name = forcedEncoding;
        encoding.forced = true;
        encoding.utf16 = encoding.ffFeMark || encoding.feFfMark;
        return encoding;
    }
    if (encoding.ffFeMark || encoding.feFfMark) {
        encoding.utf16 = true;
        encoding.name = encoding.ffFeMark ? QStringLiteral("UTF-16LE") : QStringLiteral("UTF-16BE");
        return encoding;
    }
    const QByteArray text = encoding.utf8Mark ? bytes.mid(3) : bytes;
    if (encoding.utf8Mark || isValidUtf8(text)) {
        // uchardet answers ASCII for plain ASCII; both read as UTF-8.
        encoding.name = QStringLiteral("UTF-8");
        return encoding;
    }
    encoding.name = guess(text);
    encoding.guessed = true;
    if (encoding.name.isEmpty() || encoding.name == QLatin1String("ASCII") ||
        encoding.name == QLatin1String("UTF-8"))
        encoding.name = QStringLiteral("WINDOWS-1252"); // invalid UTF-8 that uchardet cannot place
    return encoding;
}

} // namespace zemsub::tool
