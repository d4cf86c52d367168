#ifndef ZEMSUB_PICTURES_TEXTREADER_H
#define ZEMSUB_PICTURES_TEXTREADER_H

#include <QImage>
#include <QRect>
#include <QString>
#include <memory>
#include <vector>

namespace tesseract {
class TessBaseAPI;
}

namespace zemsub::tool {

// One word of a line as Tesseract reads it.
struct ReadWord
{
    QString text;
    int confidence = 0; // 0 to 100
    QRect box;          // where it lies on the line's picture
};

// One line of text as Tesseract reads it.
struct ReadLine
{
    QString text;       // its words, joined by single spaces
    int confidence = 0; // 0 to 100
    std::vector<ReadWord> words;
};

// A Tesseract engine for one language, reading one line of text at a time. An
// engine is used by one thread at a time; a thread that reads keeps its own.
class TextReader
{
public:
    TextReader();
    ~TextReader();
    TextReader(const TextReader&) = delete;
    TextReader& operator=(const TextReader&) = delete;

    // Loads the language's data (see OcrLanguage.h); false when it cannot.
    bool open(const QString& language);
    // A prepared line (Grayscale8, dark text on a light ground).
    ReadLine read(const QImage& line);

private:
    std::unique_ptr<tesseract::TessBaseAPI> m_api;
};

} // namespace zemsub::tool

#endif
