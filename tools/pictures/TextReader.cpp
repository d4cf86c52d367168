#include "TextReader.h"

#include "OcrLanguage.h"

#include <tesseract/baseapi.h>
#include <tesseract/resultiterator.h>

#include <memory>

namespace zemsub::tool {

TextReader::TextReader() = default;

TextReader::~TextReader()
{
    if (m_api)
        m_api->End();
}

bool TextReader::open(const QString& language)
{
    if (!languageInstalled(language))
        return false;
    m_api = std::make_unique<tesseract::TessBaseAPI>();
    // Tesseract's notes go nowhere: the tools report for themselves.
    m_api->SetVariable("debug_file", "/dev/null");
    const QByteArray folder = languageDataFolder().toLocal8Bit();
    const QByteArray name = language.toLatin1();
    if (m_api->Init(folder.constData(), name.constData(), tesseract::OEM_LSTM_ONLY) != 0) {
        m_api.reset();
        return false;
    }
    m_api->SetPageSegMode(tesseract::PSM_SINGLE_LINE);
    m_api->SetVariable("user_defined_dpi", "300");
    return true;
}

ReadLine TextReader::read(const QImage& source)
{
    ReadLine line;
    if (!m_api)
        return line;
    const QImage image = source.convertToFormat(QImage::Format_Grayscale8);
    m_api->SetImage(image.constBits(), image.width(), image.height(), 1, int(image.bytesPerLine()));
    const std::unique_ptr<char[]> text(m_api->GetUTF8Text());
    line.text = text ? QString::fromUtf8(text.get()).trimmed() : QString();
    line.confidence = m_api->MeanTextConf();
    const std::unique_ptr<tesseract::ResultIterator> words(m_api->GetIterator());
    if (words) {
        do {
            const std::unique_ptr<char[]> word(words->GetUTF8Text(tesseract::RIL_WORD));
            if (!word)
                continue;
            ReadWord read;
            read.text = QString::fromUtf8(word.get()).trimmed();
            read.confidence = int(words->Confidence(tesseract::RIL_WORD));
            int left = 0, top = 0, right = 0, bottom = 0;
            if (words->BoundingBox(tesseract::RIL_WORD, &left, &top, &right, &bottom))
                read.box = QRect(QPoint(left, top), QPoint(right - 1, bottom - 1));
            if (!read.text.isEmpty())
                line.words.push_back(read);
        } while (words->Next(tesseract::RIL_WORD));
    }
    m_api->Clear();
    return line;
}

} // namespace zemsub::tool
