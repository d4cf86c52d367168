#ifndef ZEMSUB_TESTS_MAKER_MAKERTESTSUPPORT_H
#define ZEMSUB_TESTS_MAKER_MAKERTESTSUPPORT_H

// Helpers shared by the maker tests: SubRip files, the test font, pixel inspection.

#include <QColor>
#include <QImage>
#include <QtGlobal>
#include <QPixmap>
#include <QString>

#include <clocale>
#include <functional>
#include <string>

#include "ISubTitle.h"

namespace makertest {

// One SubRip block: number, time line, text lines, blank line.
inline std::string srtBlock(int number, const std::string& start, const std::string& end,
                            const std::string& text)
{
    return std::to_string(number) + "\n" + start + " --> " + end + "\n" + text + "\n\n";
}

// Captions "Hello" 1000-2000 and "World" 3000-4000 (narrow parsers never show the
// highest-numbered entry, hence the third block).
inline std::string twoCaptionSrt()
{
    return srtBlock(1, "00:00:01,000", "00:00:02,000", "Hello") +
           srtBlock(2, "00:00:03,000", "00:00:04,000", "World") +
           srtBlock(3, "00:00:05,000", "00:00:06,000", "Never shown");
}

// The font every rendering test draws with (fonts-dejavu-core).
constexpr const char* kFamily = "DejaVu Sans";

inline void useTestFont(ISubTitle& subtitle, int colour = 0xFFFFFF, int pointSize = 20, int lineSpacing = 2)
{
    subtitle.setFontInfo(kFamily, colour, pointSize, "Regular", lineSpacing);
}

inline QImage pixels(const QPixmap& pixmap)
{
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
}

// Smallest rectangle holding every pixel that matches; empty() when none does.
struct InkBox
{
    int top = -1;
    int bottom = -1;
    int left = -1;
    int right = -1;
    bool empty() const { return top < 0; }
};

inline InkBox inkBox(const QImage& image, const std::function<bool(QRgb)>& match)
{
    InkBox box;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (!match(row[x]))
                continue;
            if (box.top < 0)
                box.top = y;
            box.bottom = y;
            if (box.left < 0 || x < box.left)
                box.left = x;
            if (x > box.right)
                box.right = x;
        }
    }
    return box;
}

// Anything drawn at all (outline or text).
inline bool anyInk(QRgb p)
{
    return qAlpha(p) > 0;
}

// Text drawn in a colour with some red in it (the outline is black and adds none).
inline bool redInk(QRgb p)
{
    return qAlpha(p) > 0 && qRed(p) > 0;
}

inline int countPixels(const QImage& image, const std::function<bool(QRgb)>& match)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (match(image.pixel(x, y)))
                ++count;
    return count;
}

// Sets LC_ALL for the lifetime of the object and restores the previous locale.
class LocaleGuard
{
public:
    explicit LocaleGuard(const char* name)
    {
        const char* previous = std::setlocale(LC_ALL, nullptr);
        m_previous = previous ? previous : "C";
        m_ok = std::setlocale(LC_ALL, name) != nullptr;
    }
    ~LocaleGuard() { std::setlocale(LC_ALL, m_previous.c_str()); }
    LocaleGuard(const LocaleGuard&) = delete;
    LocaleGuard& operator=(const LocaleGuard&) = delete;
    bool ok() const { return m_ok; }

private:
    std::string m_previous;
    bool m_ok = false;
};

// Counts the messages Qt would print (warnings included) while the object lives.
class MessageCounter
{
public:
    MessageCounter() { s_count = 0; m_previous = qInstallMessageHandler(&MessageCounter::handle); }
    ~MessageCounter() { qInstallMessageHandler(m_previous); }
    MessageCounter(const MessageCounter&) = delete;
    MessageCounter& operator=(const MessageCounter&) = delete;
    int count() const { return s_count; }

private:
    static void handle(QtMsgType, const QMessageLogContext&, const QString&) { ++s_count; }
    static inline int s_count = 0;
    QtMessageHandler m_previous = nullptr;
};

} // namespace makertest

#endif
