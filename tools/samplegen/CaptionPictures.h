#ifndef ZEMSUB_SAMPLEGEN_CAPTIONPICTURES_H
#define ZEMSUB_SAMPLEGEN_CAPTIONPICTURES_H

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>
#include <vector>

namespace zemsub::samplegen {

// A caption to be drawn as a subtitle picture.
struct CaptionText
{
    long long start = 0;    // milliseconds
    long long duration = 0; // milliseconds
    QString text;           // lines separated by "\n"
    QString family = QStringLiteral("DejaVu Sans");
    int pixelSize = 30;
    bool italic = false;
    int outline = 2;   // pixels of black outline around the white fill; 0 none
    int shadow = 0;    // pixels the shadow lies right and down; 0 none
    bool smooth = false; // antialiased edges (Blu-ray), else four flat colours (DVD)
};

// The caption as an ARGB32 picture: white fill inside a black outline, a grey
// shadow, a transparent ground, lines centred.
QImage drawCaption(const CaptionText& caption);

// The picture as DVD pixel codes, a binary PGM (P5) for tools/make-sample-sub.py
// --bitmaps: 0 ground, 1 fill (light), 2 outline (dark), 3 shadow (between).
QByteArray dvdBitmap(const QImage& picture);

// Writes each caption's DVD bitmap (caption-N.pgm) and their listing (captions.txt,
// "START_MS DURATION_MS X Y FILE" per line) into folder, for tools/make-sample-sub.py
// --bitmaps. False, with the reason in *error, when a file cannot be written.
bool writeDvdBitmaps(const QString& folder, const std::vector<CaptionText>& captions, QString* error);

// Where a DVD picture of this size sits: centred, its bottom at line 540 of a 720x576 frame.
QPoint dvdPosition(QSize picture);
constexpr QSize kDvdFrame{720, 576};

// The captions the samples and the benchmark use: several fonts and sizes,
// italic, two lines, outline and shadow. count > the built-in set repeats them
// with a number, so that every picture differs.
std::vector<CaptionText> sampleCaptions(int count = 0);

} // namespace zemsub::samplegen

#endif
