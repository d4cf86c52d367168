#include "TimeParser.h"
#include "reading/Digits.h"

#include <QRegularExpression>
#include <limits>

namespace zemsub::tool {

namespace {

constexpr long long kMaxMs = std::numeric_limits<long long>::max() / 2;

std::optional<long long> digitsValue(const QString& text)
{
    if (!isAllDigits(text) || text.size() > 15)
        return std::nullopt;
    return text.toLongLong();
}

} // namespace

std::optional<long long> parseTime(const QString& input)
{
    const QString text = input.trimmed();
    if (text.isEmpty())
        return std::nullopt;

    // Plain milliseconds.
    static const QRegularExpression plain(QStringLiteral("^([+-]?)(\\d{1,18})$"));
    const QRegularExpressionMatch plainMatch = plain.match(text);
    if (plainMatch.hasMatch()) {
        bool ok = false;
        const long long value = plainMatch.captured(2).toLongLong(&ok);
        if (!ok || value > kMaxMs)
            return std::nullopt;
        return plainMatch.captured(1) == QLatin1String("-") ? -value : value;
    }

    // [h:]mm:ss[,fraction] or [h:]mm:ss[.fraction]
    static const QRegularExpression clock(
        QStringLiteral("^(?:(\\d+):)?(\\d{1,2}):(\\d{1,2})(?:[,.](\\d{1,3}))?$"));
    const QRegularExpressionMatch match = clock.match(text);
    if (!match.hasMatch())
        return std::nullopt;

    const std::optional<long long> hours =
        match.captured(1).isEmpty() ? std::optional<long long>(0) : digitsValue(match.captured(1));
    const std::optional<long long> minutes = digitsValue(match.captured(2));
    const std::optional<long long> seconds = digitsValue(match.captured(3));
    if (!hours || !minutes || !seconds || *seconds >= 60)
        return std::nullopt;
    if (!match.captured(1).isEmpty() && *minutes >= 60)
        return std::nullopt;
    if (*hours > kMaxMs / 3600000)
        return std::nullopt;

    long long fraction = 0;
    const QString fractionText = match.captured(4);
    if (!fractionText.isEmpty()) {
        fraction = fractionText.toLongLong();
        for (int digits = int(fractionText.size()); digits < 3; ++digits)
            fraction *= 10;
    }
    return *hours * 3600000 + *minutes * 60000 + *seconds * 1000 + fraction;
}

QString formatTime(long long ms)
{
    const bool negative = ms < 0;
    // The magnitude of the most negative value does not fit; such times are not shown anyway.
    unsigned long long value =
        negative ? 0ULL - static_cast<unsigned long long>(ms) : static_cast<unsigned long long>(ms);
    const unsigned long long millis = value % 1000;
    value /= 1000;
    const unsigned long long seconds = value % 60;
    value /= 60;
    const unsigned long long minutes = value % 60;
    const unsigned long long hours = value / 60;
    return QStringLiteral("%1%2:%3:%4,%5")
        .arg(negative ? QStringLiteral("-") : QString())
        .arg(hours, 2, 10, QLatin1Char('0'))
        .arg(minutes, 2, 10, QLatin1Char('0'))
        .arg(seconds, 2, 10, QLatin1Char('0'))
        .arg(millis, 3, 10, QLatin1Char('0'));
}

} // namespace zemsub::tool
