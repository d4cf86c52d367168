#include "ItalicSlant.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace zemsub::tool {

namespace {

constexpr int kInk = 128;           // mask values below this are text
constexpr int kShortestSpan = 5;    // rows an edge is followed over to take its lean
constexpr double kSpanShare = 0.35; // ... or this share of the ink's height, when longer
constexpr double kSteepest = 1.2;   // edges leaning further are left out (bars, flat curves)
constexpr double kBin = 0.02;       // step of the leans counted
constexpr int kBins = int(2 * kSteepest / kBin + 0.5);
constexpr double kStep = kBin / 2;               // step of the pairs' midpoints, so of the answer
constexpr double kSpread = 0.07;                 // how widely each midpoint counts
constexpr int kReach = int(4 * kSpread / kStep); // midpoints further than 4 spreads count nothing
constexpr double kLeast = -0.3;                  // the shears the answer is sought in
constexpr double kMost = 0.6;
constexpr double kRivalMargin = 0.2; // the margin left by a rival reading scoring nothing

// A change between ground and ink along a row: the left side of a stroke
// (rising) or its right side.
struct Edge
{
    int x = 0; // the first pixel after the change
    bool rising = false;
    int below = -1;     // the same side of the same stroke on the next row
    bool above = false; // one on the row above continues into it
};

// The midpoint of the pair counts at m (two leans' bins adding up to m).
double midpoint(int m)
{
    return -kSteepest + kStep * (m + 1);
}

} // namespace

// Each stroke side (an edge followed from row to row) gives its lean, the
// horizontal shift per row read over a span of rows, as shears that would
// stand it upright. Italic text leans all of them by the same shear, so the
// answer is the centre around which the leans pair up best: an upright stem
// pairs with itself, the two sides of a V or the bowls of an o pair with each
// other around the slant, and a lone diagonal (z, 7, N) finds no match.
Slant measureSlant(const QImage& mask, const QRect& area)
{
    QRect box = area.intersected(mask.rect());
    if (box.isEmpty())
        return {};
    QImage converted;
    const QImage* image = &mask;
    if (mask.format() != QImage::Format_Grayscale8) {
        converted = mask.copy(box).convertToFormat(QImage::Format_Grayscale8);
        image = &converted;
        box.moveTo(0, 0);
    }

    // The stroke sides, row by row, each linked to its continuation below.
    std::vector<Edge> edges;
    std::vector<int> rowStart(size_t(box.height()) + 1, 0);
    int top = -1, bottom = -1;
    for (int y = 0; y < box.height(); ++y) {
        rowStart[size_t(y)] = int(edges.size());
        const uchar* row = image->constScanLine(box.top() + y) + box.left();
        bool ink = false;
        for (int x = 0; x <= box.width(); ++x) {
            const bool now = x < box.width() && row[x] < kInk;
            if (now != ink)
                edges.push_back(Edge{x, now});
            ink = now;
        }
        if (int(edges.size()) > rowStart[size_t(y)]) {
            top = top < 0 ? y : top;
            bottom = y;
        }
        if (y == 0)
            continue;
        // Each side goes on to the nearest free side of the same kind at most
        // one pixel away on the next row.
        int from = rowStart[size_t(y) - 1];
        const int end = rowStart[size_t(y)];
        for (int i = end; i < int(edges.size()); ++i) {
            Edge& edge = edges[size_t(i)];
            while (from < end && edges[size_t(from)].x < edge.x - 1)
                ++from;
            int best = -1;
            for (int j = from; j < end && edges[size_t(j)].x <= edge.x + 1; ++j) {
                const Edge& candidate = edges[size_t(j)];
                if (candidate.rising != edge.rising || candidate.below >= 0)
                    continue;
                if (best < 0 || std::abs(candidate.x - edge.x) < std::abs(edges[size_t(best)].x - edge.x))
                    best = j;
            }
            if (best >= 0) {
                edges[size_t(best)].below = i;
                edge.above = true;
            }
        }
    }
    if (top < 0)
        return {};

    // The lean of every side over each span of rows it runs (least squares),
    // counted in bins.
    const int span = std::max(kShortestSpan, int(std::lround(kSpanShare * (bottom - top + 1))));
    const int points = span + 1;
    const double moment = double(points) * (double(points) * points - 1) / 12; // sum of (j - span/2)^2
    std::array<double, kBins> leans{};
    int counted = 0;
    std::vector<int> side;
    std::vector<double> sum, weighted; // prefix sums of x and of j * x along the side
    for (const Edge& start : edges) {
        if (start.above)
            continue;
        side.clear();
        for (const Edge* edge = &start;; edge = &edges[size_t(edge->below)]) {
            side.push_back(edge->x);
            if (edge->below < 0)
                break;
        }
        if (int(side.size()) < points)
            continue;
        sum.assign(side.size() + 1, 0);
        weighted.assign(side.size() + 1, 0);
        for (size_t j = 0; j < side.size(); ++j) {
            sum[j + 1] = sum[j] + side[j];
            weighted[j + 1] = weighted[j] + double(j) * side[j];
        }
        for (size_t i = 0; i + size_t(points) <= side.size(); ++i) {
            const double xs = sum[i + size_t(points)] - sum[i];
            const double jxs = weighted[i + size_t(points)] - weighted[i] - double(i) * xs;
            // A side whose x grows down the rows leans back: its shear is negative.
            const double lean = -(jxs - span / 2.0 * xs) / moment;
            if (std::fabs(lean) >= kSteepest)
                continue;
            leans[size_t(std::min(kBins - 1, int((lean + kSteepest) / kBin)))] += 1;
            ++counted;
        }
    }
    if (counted == 0)
        return {};

    // How well the leans pair up around each midpoint.
    std::array<double, 2 * kBins - 1> pairs{};
    for (int a = 0; a < kBins; ++a) {
        if (leans[size_t(a)] == 0)
            continue;
        for (int b = 0; b < kBins; ++b)
            pairs[size_t(a + b)] += leans[size_t(a)] * leans[size_t(b)];
    }
    std::array<double, kReach + 1> weight{};
    for (int k = 0; k <= kReach; ++k)
        weight[size_t(k)] = std::exp(-0.5 * std::pow(k * kStep / kSpread, 2));
    auto score = [&](int m) {
        double total = 0;
        for (int k = -kReach; k <= kReach; ++k) {
            if (m + k >= 0 && m + k < int(pairs.size()))
                total += pairs[size_t(m + k)] * weight[size_t(std::abs(k))];
        }
        return total;
    };
    const int least = int(std::lround((kLeast + kSteepest) / kStep)) - 1;
    const int most = int(std::lround((kMost + kSteepest) / kStep)) - 1;
    std::vector<double> scores;
    for (int m = least - 1; m <= most + 1; ++m)
        scores.push_back(score(m));
    // scores[i] is the score at m = least - 1 + i.
    int best = 1;
    for (int i = 1; i + 1 < int(scores.size()); ++i) {
        if (scores[size_t(i)] > scores[size_t(best)])
            best = i;
    }
    if (scores[size_t(best)] <= 0)
        return {}; // every side leans far beyond any slant
    // Between the steps: the top of the parabola through the best and its neighbours.
    const double peak = scores[size_t(best)], before = scores[size_t(best) - 1],
                 after = scores[size_t(best) + 1];
    const double curve = before - 2 * peak + after;
    const double offset = curve < 0 ? std::clamp(0.5 * (before - after) / curve, -0.5, 0.5) : 0.0;

    Slant slant;
    slant.shear = midpoint(least - 1 + best) + offset * kStep;
    slant.italic = slant.shear >= kItalicShear;
    // The best rival reading across the threshold: a peak of its own there.
    double rival = 0;
    for (int i = 1; i + 1 < int(scores.size()); ++i) {
        const bool italic = midpoint(least - 1 + i) >= kItalicShear;
        if (italic != slant.italic && scores[size_t(i)] >= scores[size_t(i) - 1] &&
            scores[size_t(i)] >= scores[size_t(i) + 1])
            rival = std::max(rival, scores[size_t(i)]);
    }
    slant.margin = std::min(std::fabs(slant.shear - kItalicShear), kRivalMargin * (1 - rival / peak));
    return slant;
}

} // namespace zemsub::tool
