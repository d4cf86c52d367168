#include "CaptionProbes.h"

#include "CaptionImageModel.h"

#include <QStringList>

#include <algorithm>

namespace zemsub::tool {

namespace {

QString trimBlanks(const QString& line)
{
    int from = 0;
    int to = int(line.size());
    auto blank = [](QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t'); };
    while (from < to && blank(line[from]))
        ++from;
    while (to > from && blank(line[to - 1]))
        --to;
    return line.mid(from, to - from);
}

// The stretches of screen where something shows: the union of the spans, in time order.
std::vector<TimeSpan> unionOf(std::vector<TimeSpan> spans)
{
    spans.erase(std::remove_if(spans.begin(), spans.end(), [](const TimeSpan& s) { return s.end <= s.start; }),
                spans.end());
    std::sort(spans.begin(), spans.end(), [](const TimeSpan& a, const TimeSpan& b) { return a.start < b.start; });
    std::vector<TimeSpan> merged;
    for (const TimeSpan& span : spans) {
        if (!merged.empty() && span.start <= merged.back().end)
            merged.back().end = std::max(merged.back().end, span.end);
        else
            merged.push_back(span);
    }
    return merged;
}

} // namespace

QString probeKindName(ProbeKind kind)
{
    switch (kind) {
    case ProbeKind::Start:
        return QStringLiteral("start");
    case ProbeKind::Middle:
        return QStringLiteral("middle");
    case ProbeKind::End:
        return QStringLiteral("end");
    case ProbeKind::Gap:
        return QStringLiteral("gap");
    case ProbeKind::GapStart:
        return QStringLiteral("gap-start");
    }
    return QString();
}

std::vector<ProbeTime> planProbes(const std::vector<TimeSpan>& captions, const std::vector<bool>& shows,
                                  const std::vector<TimeSpan>& screen)
{
    std::vector<ProbeTime> probes;
    for (int i = 0; i < int(captions.size()); ++i) {
        const TimeSpan& caption = captions[size_t(i)];
        const long long duration = caption.end - caption.start;
        if (duration <= 0 || !(size_t(i) < shows.size() && shows[size_t(i)]))
            continue;
        if (duration < 3) {
            probes.push_back({caption.start, ProbeKind::Start, i});
            continue;
        }
        const long long first = caption.start == 0 ? 0 : caption.start + 1;
        probes.push_back({first, ProbeKind::Start, i});
        probes.push_back({caption.start + duration / 2, ProbeKind::Middle, i});
        probes.push_back({caption.end - 1, ProbeKind::End, i});
    }

    const std::vector<TimeSpan> stretches = unionOf(screen);
    for (size_t s = 0; s + 1 < stretches.size(); ++s) {
        const long long from = stretches[s].end;
        const long long middle = from + (stretches[s + 1].start - from) / 2;
        if (middle != from)
            probes.push_back({from, ProbeKind::GapStart, -1});
        probes.push_back({middle, ProbeKind::Gap, -1});
    }

    std::stable_sort(probes.begin(), probes.end(),
                     [](const ProbeTime& a, const ProbeTime& b) { return a.time < b.time; });
    return probes;
}

std::vector<ProbeAnswer> askInOrder(const std::vector<ProbeTime>& probes,
                                    const std::function<QString(long long)>& ask)
{
    std::vector<ProbeAnswer> answers;
    answers.reserve(probes.size());
    CaptionImageModel image;
    for (const ProbeTime& probe : probes) {
        ProbeAnswer answer;
        answer.answer = ask(probe.time);
        answer.drawn = image.show(answer.answer);
        answers.push_back(answer);
    }
    return answers;
}

bool sameCaption(const QString& drawn, const QString& written)
{
    const QStringList a = drawn.split(QLatin1Char('\n'));
    const QStringList b = written.split(QLatin1Char('\n'));
    if (a.size() != b.size())
        return false;
    for (int i = 0; i < int(a.size()); ++i) {
        if (trimBlanks(a[i]) != trimBlanks(b[i]))
            return false;
    }
    return true;
}

} // namespace zemsub::tool
