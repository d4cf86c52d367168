#include "CopyCheck.h"

#include "CaptionLines.h"
#include "manager/xcSubtitleManager.h"
#include "playback/CaptionImageModel.h"

#include <QFile>

#include <algorithm>

namespace zemsubfix {

namespace {

struct Question
{
    long long time = 0;
    int caption = -1; // -1: a gap
};

QString drawn(const QString& answer)
{
    QString text = answer;
    if (text.startsWith(QLatin1Char('\n')))
        text.remove(0, 1);
    return withoutMarks(text);
}

bool sameLines(const QString& shown, const QStringList& expected)
{
    const QStringList lines = shown.split(QLatin1Char('\n'));
    if (lines.size() != expected.size())
        return false;
    for (int i = 0; i < int(lines.size()); ++i) {
        if (lines[i].trimmed() != expected[i].trimmed())
            return false;
    }
    return true;
}

// The stretch on screen at time, or null.
const Stretch* stretchAt(const std::vector<Stretch>& stretches, long long time)
{
    auto it = std::upper_bound(stretches.begin(), stretches.end(), time,
                               [](long long t, const Stretch& s) { return t < s.start; });
    if (it == stretches.begin())
        return nullptr;
    --it;
    return time < it->end ? &*it : nullptr;
}

} // namespace

CopyCheck checkCopy(const QString& path, const std::vector<SourceCaption>& captions,
                    const std::vector<Stretch>& stretches, bool exactEnds)
{
    CopyCheck check;
    check.captionShown.assign(captions.size(), true);

    std::vector<Question> questions;
    for (int i = 0; i < int(captions.size()); ++i) {
        const SourceCaption& caption = captions[size_t(i)];
        if (caption.end <= caption.start || shownLines(caption.text).isEmpty())
            continue;
        const long long last = caption.end - 1;
        questions.push_back({caption.start, i});
        questions.push_back({caption.start + (last - caption.start) / 2, i});
        questions.push_back({last, i});
    }
    for (size_t s = 0; s + 1 < stretches.size(); ++s) {
        const long long from = stretches[s].end;
        const long long to = stretches[s + 1].start;
        if (from >= to)
            continue;
        if (exactEnds)
            questions.push_back({from, -1});
        questions.push_back({from + (to - from) / 2, -1});
    }
    std::stable_sort(questions.begin(), questions.end(),
                     [](const Question& a, const Question& b) { return a.time < b.time; });

    xcSubtitleManager manager;
    check.opened = manager.Open(QFile::encodeName(path).constData()) && manager.IsOpen();

    zemsub::tool::CaptionImageModel image;
    for (const Question& question : questions) {
        QString answer;
        if (check.opened) {
            if (manager.IsWide()) {
                const wchar_t* text = manager.GetSubTitleU(question.time);
                answer = text ? QString::fromWCharArray(text) : QString();
            } else {
                const char* text = manager.GetSubTitle(question.time);
                answer = text ? QString::fromLocal8Bit(text) : QString();
            }
        }
        const QString shown = image.show(answer);
        const Stretch* expected = stretchAt(stretches, question.time);
        const bool right =
            expected ? !shown.isNull() && sameLines(drawn(shown), expected->lines) : shown.isNull();
        if (right)
            continue;
        if (question.caption < 0) {
            check.shownInGaps.push_back(question.time);
            continue;
        }
        check.captionShown[size_t(question.caption)] = false;
        if (question.time == 0)
            check.missedAtZero.push_back(question.caption);
    }
    return check;
}

} // namespace zemsubfix
