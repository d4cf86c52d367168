#include "TagModel.h"

#include <string>

#include "reference/SsaTagSteps.h"

namespace zemsub::tool {

namespace {

QString removeBlocks(QString text, QChar open, QChar close)
{
    int p = 0;
    for (;;) {
        p = int(text.indexOf(open, p));
        if (p < 0)
            return text;
        const int q = int(text.indexOf(close, p));
        if (q < 0)
            return text;
        text.remove(p, q - p + 1);
    }
}

} // namespace

// The library's step-by-step reference walk, over the text's UTF-16 units.
TagPassResult modelTagPasses(const QString& text)
{
    std::u32string stored;
    for (QChar c : text)
        stored += char32_t(c.unicode());
    reference::TagStepsNotes notes;
    const std::u32string stripped = reference::stripTagsSteps(stored, &notes);

    TagPassResult result;
    result.repeated = notes.repeated;
    result.usedOldTail = notes.usedOldTail;
    for (char32_t c : stripped) {
        if (c == 0)
            break;
        result.visible += QChar(char16_t(c));
    }
    result.breaksLeft = int(result.visible.count(QStringLiteral("\\N")));
    return result;
}

QString removeCompleteBlocks(const QString& text)
{
    return removeBlocks(removeBlocks(text, QLatin1Char('{'), QLatin1Char('}')), QLatin1Char('<'),
                        QLatin1Char('>'));
}

} // namespace zemsub::tool
