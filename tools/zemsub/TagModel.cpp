#include "TagModel.h"

#include <set>
#include <utility>
#include <vector>

namespace zemsub::tool {

namespace {

// Characters with a recorded length; chars.size() is the length plus the terminator.
struct Stored
{
    std::vector<char32_t> chars;
    int length = 0;
};

Stored store(const QString& text)
{
    Stored stored;
    for (QChar c : text)
        stored.chars.push_back(c.unicode());
    stored.length = int(stored.chars.size());
    stored.chars.push_back(0);
    return stored;
}

int find(const Stored& s, char32_t c, int start)
{
    if (start < 0 || start >= s.length)
        return -1;
    for (int i = start; i < s.length; ++i) {
        if (s.chars[size_t(i)] == c)
            return i;
    }
    return -1;
}

int visibleLength(const Stored& s)
{
    for (int i = 0; i < s.length; ++i) {
        if (s.chars[size_t(i)] == 0)
            return i;
    }
    return s.length;
}

// Moves the tail and the terminator down over [pos, pos + count), keeping the length.
void deleteKeepingLength(Stored& s, int pos, int count)
{
    pos = std::max(pos, 0);
    count = std::max(count, 0);
    if (s.length < pos + count)
        count = s.length - pos;
    if (count <= 0)
        return;
    const int moved = s.length - (pos + count) + 1;
    for (int k = 0; k < moved; ++k)
        s.chars[size_t(pos + k)] = s.chars[size_t(pos + count + k)];
}

void pass(Stored& s, char32_t open, char32_t close, TagPassResult& result)
{
    std::set<std::pair<std::vector<char32_t>, int>> seen;
    int p = 0;
    while (p < s.length) {
        if (!seen.insert({s.chars, p}).second) {
            result.repeated = true;
            return;
        }
        p = find(s, open, p);
        if (p < 0)
            return;
        const int q = find(s, close, p);
        if (q < 0)
            return;
        if (q >= visibleLength(s))
            result.usedOldTail = true;
        deleteKeepingLength(s, p, q - p + 1);
    }
}

// "\N" becomes a line feed; the search goes on only while the one replaced stood at 0.
void firstBreaks(Stored& s)
{
    for (;;) {
        int at = -1;
        for (int i = 0; i + 1 < s.length; ++i) {
            if (s.chars[size_t(i)] == U'\\' && s.chars[size_t(i + 1)] == U'N') {
                at = i;
                break;
            }
        }
        if (at < 0)
            return;
        s.chars.erase(s.chars.begin() + at + 1);
        s.chars[size_t(at)] = U'\n';
        --s.length;
        if (at != 0)
            return;
    }
}

QString visibleText(const Stored& s)
{
    QString text;
    const int n = visibleLength(s);
    for (int i = 0; i < n; ++i)
        text += QChar(char16_t(s.chars[size_t(i)]));
    return text;
}

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

TagPassResult modelTagPasses(const QString& text)
{
    TagPassResult result;
    Stored s = store(text);
    pass(s, U'{', U'}', result);
    pass(s, U'<', U'>', result);
    firstBreaks(s);
    result.visible = visibleText(s);
    result.breaksLeft = int(result.visible.count(QStringLiteral("\\N")));
    return result;
}

QString removeCompleteBlocks(const QString& text)
{
    return removeBlocks(removeBlocks(text, QLatin1Char('{'), QLatin1Char('}')), QLatin1Char('<'),
                        QLatin1Char('>'));
}

} // namespace zemsub::tool
