#include "TextForm.h"

namespace zemsub::tool {

QString fromNarrow(const char* text)
{
    return text ? QString::fromLocal8Bit(text) : QString();
}

QString fromWide(const wchar_t* text)
{
    return text ? QString::fromWCharArray(text) : QString();
}

QString escaped(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (QChar c : text) {
        switch (c.unicode()) {
        case '\n':
            result += QStringLiteral("\\n");
            break;
        case '\r':
            result += QStringLiteral("\\r");
            break;
        case '\t':
            result += QStringLiteral("\\t");
            break;
        default:
            if (c.unicode() < 0x20 || c.unicode() == 0x7f)
                result += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
            else
                result += c;
        }
    }
    return result;
}

QString drawnText(const QString& libraryText)
{
    if (libraryText.startsWith(QLatin1Char('\n')))
        return libraryText.mid(1);
    return libraryText;
}

} // namespace zemsub::tool
