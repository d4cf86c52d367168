#include "TextRecoding.h"

#include <cerrno>
#include <iconv.h>

namespace zemsubfix {

Recoded toUtf8(const QByteArray& bytes, const QString& encoding)
{
    Recoded result;
    const QByteArray name = encoding.toLatin1();
    iconv_t converter = iconv_open("UTF-8", name.constData());
    if (converter == reinterpret_cast<iconv_t>(-1)) {
        result.error = QStringLiteral("unknown encoding \"%1\"").arg(encoding);
        return result;
    }
    QByteArray input = bytes;
    char* in = input.data();
    size_t inLeft = size_t(input.size());
    QByteArray output;
    char chunk[4096];
    while (true) {
        char* out = chunk;
        size_t outLeft = sizeof chunk;
        const size_t done = inLeft == 0 ? iconv(converter, nullptr, nullptr, &out, &outLeft)
                                        : iconv(converter, &in, &inLeft, &out, &outLeft);
        output.append(chunk, int(sizeof chunk - outLeft));
        if (done != size_t(-1)) {
            if (inLeft == 0)
                break;
            continue;
        }
        if (errno == E2BIG)
            continue;
        iconv_close(converter);
        result.error = QStringLiteral("not %1 text (byte %2 cannot be read as %1)")
                           .arg(encoding)
                           .arg(qint64(input.size()) - qint64(inLeft) + 1);
        return result;
    }
    iconv_close(converter);
    result.ok = true;
    result.bytes = output;
    return result;
}

} // namespace zemsubfix
