#include "Stretch.h"

#include <algorithm>

namespace zemsubfix {

QStringList shownLines(const QString& text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    bool any = false;
    for (QString& line : lines) {
        // Carriage returns and zero characters inside a line draw nothing.
        line.remove(QLatin1Char('\r'));
        line.remove(QChar(0));
        line = line.trimmed();
        any = any || !line.isEmpty();
    }
    return any ? lines : QStringList();
}

std::vector<Stretch> buildStretches(const std::vector<SourceCaption>& captions)
{
    struct Shown
    {
        long long start;
        long long end;
        int order;
        QStringList lines;
    };
    std::vector<Shown> shown;
    std::vector<long long> bounds;
    for (int i = 0; i < int(captions.size()); ++i) {
        const SourceCaption& caption = captions[size_t(i)];
        QStringList lines = shownLines(caption.text);
        if (caption.end <= caption.start || lines.isEmpty())
            continue;
        shown.push_back(Shown{caption.start, caption.end, i, lines});
        bounds.push_back(caption.start);
        bounds.push_back(caption.end);
    }
    std::sort(bounds.begin(), bounds.end());
    bounds.erase(std::unique(bounds.begin(), bounds.end()), bounds.end());
    std::stable_sort(shown.begin(), shown.end(), [](const Shown& a, const Shown& b) {
        return a.start != b.start ? a.start < b.start : a.order < b.order;
    });

    std::vector<Stretch> stretches;
    std::vector<const Shown*> active; // in order of appearance
    size_t next = 0;
    for (size_t b = 0; b + 1 < bounds.size(); ++b) {
        const long long from = bounds[b];
        const long long to = bounds[b + 1];
        active.erase(
            std::remove_if(active.begin(), active.end(), [from](const Shown* s) { return s->end <= from; }),
            active.end());
        while (next < shown.size() && shown[next].start <= from)
            active.push_back(&shown[next++]);
        if (active.empty())
            continue;
        QStringList lines;
        for (auto it = active.rbegin(); it != active.rend(); ++it)
            lines += (*it)->lines;
        if (!stretches.empty() && stretches.back().end == from && stretches.back().lines == lines) {
            stretches.back().end = to;
            continue;
        }
        Stretch stretch;
        stretch.start = from;
        stretch.end = to;
        stretch.lines = lines;
        // The caption image keeps its last text across a gap.
        stretch.repeat = !stretches.empty() && stretches.back().end < from &&
                         stretches.back().lines == lines && !stretches.back().repeat;
        stretches.push_back(stretch);
    }
    return stretches;
}

} // namespace zemsubfix
