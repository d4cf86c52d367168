// Italic told from upright text by the lean of its strokes, on words drawn in
// several faces, sizes and weights, and on the text fill of drawn captions.
#include "TextPictures.h"
#include "pictures/ItalicSlant.h"
#include "pictures/PicturePrep.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QTransform>

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <vector>

namespace {

using namespace zemsub::tool;

enum class Lean {
    Upright,
    FontItalic, // the face's italic or oblique, as Qt picks it
    Sheared20,  // the upright face leant by hand, as true italic faces lean
    Sheared25,
};

struct Style
{
    QString family = QStringLiteral("DejaVu Sans");
    int pixelSize = 32;
    bool bold = false;
    Lean lean = Lean::Upright;
    bool smooth = true;
    double shear = 0; // leant by hand by this much (Sheared20 and Sheared25 say their own)
};

double handShear(const Style& style)
{
    return style.lean == Lean::Sheared20 ? 0.2 : style.lean == Lean::Sheared25 ? 0.25 : style.shear;
}

bool leansItalic(const Style& style)
{
    return style.lean != Lean::Upright || style.shear >= kItalicShear;
}

QFont fontOf(const Style& style)
{
    QFont font(style.family);
    font.setPixelSize(style.pixelSize);
    font.setBold(style.bold);
    font.setItalic(style.lean == Lean::FontItalic);
    return font;
}

// Draws text dark into mask (Grayscale8) from x on the baseline, over what is there.
void drawText(QImage* mask, const QString& text, const Style& style, int x, int baseline)
{
    QImage canvas(mask->size(), QImage::Format_ARGB32);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing, style.smooth);
    painter.setRenderHint(QPainter::TextAntialiasing, style.smooth);
    QTransform transform;
    transform.translate(x, baseline);
    transform.shear(-handShear(style), 0);
    painter.setTransform(transform);
    painter.setFont(fontOf(style));
    painter.setPen(Qt::black);
    painter.drawText(0, 0, text);
    painter.end();
    const QImage drawn = canvas.convertToFormat(QImage::Format_Grayscale8);
    for (int y = 0; y < mask->height(); ++y) {
        const uchar* from = drawn.constScanLine(y);
        uchar* to = mask->scanLine(y);
        for (int i = 0; i < mask->width(); ++i)
            to[i] = std::min(to[i], from[i]);
    }
}

QImage blankMask(QSize size)
{
    QImage mask(size, QImage::Format_Grayscale8);
    mask.fill(255);
    return mask;
}

QImage wordMask(const QString& word, const Style& style)
{
    const QFontMetrics metrics(fontOf(style));
    QImage mask =
        blankMask(QSize(metrics.horizontalAdvance(word) + style.pixelSize + 20, metrics.height() + 20));
    drawText(&mask, word, style, 10, 10 + metrics.ascent());
    return mask;
}

QRect inkBox(const QImage& mask)
{
    QRect box;
    for (int y = 0; y < mask.height(); ++y) {
        const uchar* row = mask.constScanLine(y);
        for (int x = 0; x < mask.width(); ++x) {
            if (row[x] < 128)
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

std::string describe(const QString& text, const Style& style, bool outline = false)
{
    const QString lean = style.lean == Lean::FontItalic ? QStringLiteral("italic")
                         : handShear(style) != 0        ? QStringLiteral("sheared %1").arg(handShear(style))
                                                        : QStringLiteral("upright");
    return QStringLiteral("\"%1\" %2 %3px%4 %5 %6%7")
        .arg(text, style.family)
        .arg(style.pixelSize)
        .arg(style.bold ? QStringLiteral(" bold") : QString())
        .arg(lean)
        .arg(style.smooth ? QStringLiteral("antialiased") : QStringLiteral("hard-edged"))
        .arg(outline ? QStringLiteral(" fill of an outlined caption") : QString())
        .toStdString();
}

// The words measured: how many went wrong, how many were decided narrowly, and
// the least margin of those right on each side.
struct Tally
{
    int words = 0;
    int wrong = 0;
    int narrow = 0;
    double upright = 1;
    double italic = 1;

    bool add(const Slant& slant, bool italicText)
    {
        ++words;
        narrow += slant.margin < kNarrowMargin;
        if (slant.italic != italicText) {
            ++wrong;
            return false;
        }
        (italicText ? italic : upright) = std::min(italicText ? italic : upright, slant.margin);
        return true;
    }

    void print(const char* what) const
    {
        std::cout << words << " " << what << ": " << wrong << " wrong, " << narrow << " decided by less than "
                  << kNarrowMargin << "; least margins upright " << upright << ", italic " << italic << "\n";
    }

    static constexpr double kNarrowMargin = 0.03;
};

const QStringList kFamilies = {QStringLiteral("DejaVu Sans"), QStringLiteral("DejaVu Serif"),
                               QStringLiteral("DejaVu Sans Mono")};
const Lean kLeans[] = {Lean::Upright, Lean::FontItalic, Lean::Sheared20, Lean::Sheared25};

// Words as subtitles have them: stems, bowls, diagonals, capitals, punctuation.
const QStringList kWords = {
    QStringLiteral("Hello"), QStringLiteral("No"),     QStringLiteral("Oh"),     QStringLiteral("It's"),
    QStringLiteral("Stop"),  QStringLiteral("OK"),     QStringLiteral("all"),    QStringLiteral("me"),
    QStringLiteral("Go"),    QStringLiteral("never"),  QStringLiteral("Who's"),  QStringLiteral("Let"),
    QStringLiteral("on"),    QStringLiteral("Don't"),  QStringLiteral("Come"),   QStringLiteral("here"),
    QStringLiteral("the"),   QStringLiteral("that"),   QStringLiteral("home"),   QStringLiteral("Thank"),
    QStringLiteral("much"),  QStringLiteral("Please"), QStringLiteral("little"), QStringLiteral("Mother"),
    QStringLiteral("again"), QStringLiteral("think"),  QStringLiteral("right"),  QStringLiteral("night?"),
    QStringLiteral("going"), QStringLiteral("you"),    QStringLiteral("we"),     QStringLiteral("Where"),
    QStringLiteral("have"),  QStringLiteral("been"),   QStringLiteral("truth"),  QStringLiteral("I'm"),
};

// Every word of the matrix at pixelSize, each in its own box.
Tally measureWords(int pixelSize, bool expectEach)
{
    Tally tally;
    for (const QString& family : kFamilies) {
        for (bool bold : {false, true}) {
            for (bool smooth : {false, true}) {
                for (Lean lean : kLeans) {
                    const Style style{family, pixelSize, bold, lean, smooth};
                    for (const QString& word : kWords) {
                        const QImage mask = wordMask(word, style);
                        const Slant slant = measureSlant(mask, inkBox(mask));
                        if (tally.add(slant, leansItalic(style)))
                            continue;
                        const std::string what = describe(word, style) + ": shear " +
                                                 std::to_string(slant.shear) + ", margin " +
                                                 std::to_string(slant.margin);
                        if (expectEach)
                            ADD_FAILURE() << what;
                        else
                            std::cout << what << "\n";
                    }
                }
            }
        }
    }
    return tally;
}

TEST(ItalicSlant, EachWordIsToldItalicOrUpright)
{
    for (int pixelSize : {24, 36, 52, 70}) {
        const Tally tally = measureWords(pixelSize, true);
        tally.print(QStringLiteral("words at %1px").arg(pixelSize).toUtf8().constData());
        EXPECT_GE(tally.upright, Tally::kNarrowMargin) << pixelSize << "px";
        EXPECT_GE(tally.italic, Tally::kNarrowMargin) << pixelSize << "px";
    }
}

TEST(ItalicSlant, AtEighteenPixelsFewWordsGoWrong)
{
    // Strokes a pixel or two wide over a dozen rows: a word or two in a
    // hundred may lean the wrong way; the line they stand in does not.
    const Tally tally = measureWords(18, false);
    tally.print("words at 18px");
    EXPECT_LE(tally.wrong * 100, tally.words);
}

TEST(ItalicSlant, TheMarginTellsHowNarrowlyItWasDecided)
{
    for (const QString& family : kFamilies) {
        for (const QString& word :
             {QStringLiteral("Hello"), QStringLiteral("Mother"), QStringLiteral("little")}) {
            Style style{family, 48};
            for (double shear : {0.0, 0.2}) {
                style.shear = shear;
                const QImage mask = wordMask(word, style);
                EXPECT_GT(measureSlant(mask, inkBox(mask)).margin, 0.05) << describe(word, style);
            }
            for (double shear : {kItalicShear - 0.015, kItalicShear + 0.015}) {
                style.shear = shear;
                const QImage mask = wordMask(word, style);
                const Slant slant = measureSlant(mask, inkBox(mask));
                EXPECT_LT(slant.margin, Tally::kNarrowMargin)
                    << describe(word, style) << ": shear " << slant.shear;
            }
        }
    }
}

TEST(ItalicSlant, TheShearIsTheLeanOfTheText)
{
    // A word leant by hand measures the shear it was leant by.
    for (const QString& family : kFamilies) {
        for (Lean lean : {Lean::Upright, Lean::Sheared20, Lean::Sheared25}) {
            const double expected = lean == Lean::Upright ? 0 : lean == Lean::Sheared20 ? 0.2 : 0.25;
            const Style style{family, 48, false, lean, true};
            const QImage mask = wordMask(QStringLiteral("Hello there"), style);
            EXPECT_NEAR(measureSlant(mask, inkBox(mask)).shear, expected, 0.02)
                << describe("Hello there", style);
        }
    }
}

TEST(ItalicSlant, TheTextFillOfACaptionIsToldToo)
{
    // The mask the tools measure: a caption drawn with its outline, which
    // textFill leaves out.
    Tally tally;
    for (const QString& family : kFamilies) {
        for (int pixelSize : {24, 36, 52, 70}) {
            for (bool smooth : {false, true}) {
                for (bool italic : {false, true}) {
                    for (int outline : {0, 2}) {
                        for (const QString& word : kWords) {
                            CaptionText caption;
                            caption.text = word;
                            caption.family = family;
                            caption.pixelSize = pixelSize;
                            caption.italic = italic;
                            caption.smooth = smooth;
                            caption.outline = outline;
                            const QImage mask = textFill(zemsub::samplegen::drawCaption(caption));
                            const Slant slant = measureSlant(mask, inkBox(mask));
                            const Style style{family, pixelSize, false,
                                              italic ? Lean::FontItalic : Lean::Upright, smooth};
                            EXPECT_TRUE(tally.add(slant, italic))
                                << describe(word, style, outline > 0) << ": shear " << slant.shear;
                        }
                    }
                }
            }
        }
    }
    tally.print("caption fills");
}

TEST(ItalicSlant, EachWordOfAMixedLineGetsItsOwnAnswer)
{
    // "upright words *italic words*" with each word's box, as the reader gives them.
    struct Word
    {
        QString text;
        bool italic;
    };
    const std::vector<Word> words = {{QStringLiteral("Then"), false},  {QStringLiteral("he"), false},
                                     {QStringLiteral("said:"), false}, {QStringLiteral("Come"), true},
                                     {QStringLiteral("home"), true},   {QStringLiteral("tonight"), true},
                                     {QStringLiteral("and"), false},   {QStringLiteral("left."), false}};
    for (const QString& family : kFamilies) {
        for (int pixelSize : {24, 48}) {
            for (Lean lean : {Lean::FontItalic, Lean::Sheared20}) {
                Style upright{family, pixelSize, false, Lean::Upright, true};
                Style italic = upright;
                italic.lean = lean;
                const QFontMetrics metrics(fontOf(upright));
                const int space = metrics.horizontalAdvance(QLatin1Char(' '));
                int width = 20;
                for (const Word& word : words)
                    width +=
                        QFontMetrics(fontOf(word.italic ? italic : upright)).horizontalAdvance(word.text) +
                        space;
                const QSize size(width + pixelSize, metrics.height() + 20);
                const int baseline = 10 + metrics.ascent();
                QImage line = blankMask(size);
                std::vector<QRect> boxes;
                int x = 10;
                for (const Word& word : words) {
                    const Style& style = word.italic ? italic : upright;
                    QImage alone = blankMask(size);
                    drawText(&alone, word.text, style, x, baseline);
                    drawText(&line, word.text, style, x, baseline);
                    boxes.push_back(inkBox(alone));
                    x += QFontMetrics(fontOf(style)).horizontalAdvance(word.text) + space;
                }
                for (size_t i = 0; i < words.size(); ++i) {
                    const Slant slant = measureSlant(line, boxes[i]);
                    EXPECT_EQ(slant.italic, words[i].italic)
                        << describe(words[i].text, words[i].italic ? italic : upright) << " in a line: shear "
                        << slant.shear;
                }
            }
        }
    }
}

TEST(ItalicSlant, AWholeLineIsToldAtEverySize)
{
    const QString text = QStringLiteral("We'll see you in the morning, Mrs. Wyatt.");
    for (const QString& family : kFamilies) {
        for (int pixelSize : {16, 18, 24, 36, 52, 70}) {
            for (bool bold : {false, true}) {
                for (bool smooth : {false, true}) {
                    for (Lean lean : kLeans) {
                        const Style style{family, pixelSize, bold, lean, smooth};
                        const QImage mask = wordMask(text, style);
                        const Slant slant = measureSlant(mask, inkBox(mask));
                        EXPECT_EQ(slant.italic, lean != Lean::Upright)
                            << describe(text, style) << ": shear " << slant.shear;
                        EXPECT_GT(slant.margin, 0.05) << describe(text, style);
                    }
                }
            }
        }
    }
}

TEST(ItalicSlant, AnEmptyBoxOrOneWithoutInkIsUpright)
{
    const QImage mask = wordMask(QStringLiteral("Hello"),
                                 Style{QStringLiteral("DejaVu Sans"), 36, false, Lean::Sheared25, true});
    const QRect ink = inkBox(mask);
    ASSERT_TRUE(measureSlant(mask, ink).italic);

    for (const QRect& box : {QRect(), QRect(5, 5, 0, 10), QRect(mask.width() + 10, 0, 20, 20)}) {
        const Slant slant = measureSlant(mask, box);
        EXPECT_FALSE(slant.italic);
        EXPECT_EQ(slant.margin, 0);
    }
    // Ground only: right of the word, and a blank mask.
    const Slant beside =
        measureSlant(mask, QRect(ink.right() + 2, 0, mask.width() - ink.right() - 2, mask.height()));
    EXPECT_FALSE(beside.italic);
    EXPECT_EQ(beside.margin, 0);
    const QImage blank = blankMask(QSize(200, 60));
    const Slant none = measureSlant(blank, blank.rect());
    EXPECT_FALSE(none.italic);
    EXPECT_EQ(none.margin, 0);
    // Ink with no stroke to follow: a dash.
    QImage dash = blankMask(QSize(60, 30));
    for (int y = 14; y < 17; ++y)
        std::fill(dash.scanLine(y) + 10, dash.scanLine(y) + 50, uchar(0));
    const Slant flat = measureSlant(dash, dash.rect());
    EXPECT_FALSE(flat.italic);
    EXPECT_EQ(flat.margin, 0);
}

TEST(ItalicSlant, TheBoxLimitsWhatIsMeasured)
{
    // An upright word beside an italic one: a box around either, reaching
    // past the picture, measures that word only; the same picture in ARGB32
    // reads the same.
    const Style upright{QStringLiteral("DejaVu Serif"), 36, false, Lean::Upright, true};
    Style italic = upright;
    italic.lean = Lean::FontItalic;
    QImage mask = blankMask(QSize(420, 80));
    QImage left = blankMask(mask.size());
    drawText(&left, QStringLiteral("Nothing"), upright, 10, 55);
    drawText(&mask, QStringLiteral("Nothing"), upright, 10, 55);
    drawText(&mask, QStringLiteral("happened"), italic, 220, 55);
    const QRect leftBox = inkBox(left);
    const QRect rightBox(leftBox.right() + 10, -20, 1000, 200);
    EXPECT_FALSE(measureSlant(mask, leftBox).italic);
    EXPECT_TRUE(measureSlant(mask, rightBox).italic);
    EXPECT_FALSE(measureSlant(mask.convertToFormat(QImage::Format_ARGB32), leftBox).italic);
    EXPECT_TRUE(measureSlant(mask.convertToFormat(QImage::Format_ARGB32), rightBox).italic);
}

} // namespace
