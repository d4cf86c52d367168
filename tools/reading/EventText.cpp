#include "EventText.h"

namespace zemsub::tool {

QString eventTextField(const QString& event)
{
    int from = 0;
    for (int comma = 0; comma < 8; ++comma) {
        const int next = int(event.indexOf(QLatin1Char(','), from));
        if (next < 0)
            return QString();
        from = next + 1;
    }
    return event.mid(from);
}

QString shownText(const QString& textField)
{
    QString shown;
    const int n = int(textField.size());
    for (int i = 0; i < n; ++i) {
        const QChar c = textField[i];
        if (c == QLatin1Char('{')) {
            const int close = int(textField.indexOf(QLatin1Char('}'), i + 1));
            if (close < 0)
                break;
            i = close;
            continue;
        }
        if (c == QLatin1Char('\\') && i + 1 < n) {
            const QChar next = textField[i + 1];
            if (next == QLatin1Char('N') || next == QLatin1Char('n')) {
                shown += QLatin1Char('\n');
                ++i;
                continue;
            }
            if (next == QLatin1Char('h')) {
                shown += QChar(0x00A0);
                ++i;
                continue;
            }
        }
        shown += c;
    }
    return shown;
}

} // namespace zemsub::tool
