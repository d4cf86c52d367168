#include "maker/ZemSubtitleMaker.h"

#include <QLatin1String>

#include "maker/detail/CaptionPainter.h"
#include "manager/xcSubtitleManager.h"

ZemSubtitleMaker::ZemSubtitleMaker()
    : m_manager(nullptr),
      m_font(),
      m_lineSpacing(2),
      m_captionY(330),
      m_captionX(240),
      m_textColor(Qt::white),
      m_outlineColor(Qt::black),
      m_alpha(255),
      m_lastText(),
      m_captionImage(),
      m_videoWidth(480),
      m_videoHeight(360)
{
}

ZemSubtitleMaker::~ZemSubtitleMaker()
{
    delete m_manager;
    m_manager = nullptr;
}

void ZemSubtitleMaker::createSubManager()
{
    if (!m_manager)
        m_manager = new xcSubtitleManager;
}

bool ZemSubtitleMaker::open(const char* path)
{
    if (!m_manager)
        createSubManager();
    // A file that is already open stays: the host closes before opening another.
    if (m_manager->IsOpen())
        return true;
    return m_manager->Open(path);
}

bool ZemSubtitleMaker::close()
{
    if (!m_manager)
        return false;
    delete m_manager;
    m_manager = nullptr;
    return true;
}

bool ZemSubtitleMaker::isOpened()
{
    return m_manager ? m_manager->IsOpen() : false;
}

SubtitleData* ZemSubtitleMaker::getSubtitleData(long long position, long long offset)
{
    if (!m_manager)
        return nullptr;

    // The sum wraps on overflow instead of being undefined.
    const long long time = static_cast<long long>(static_cast<unsigned long long>(position) +
                                                  static_cast<unsigned long long>(offset));
    QString text;
    if (m_manager->IsWide()) {
        if (const wchar_t* wide = m_manager->GetSubTitleU(time))
            text = QString::fromWCharArray(wide, -1);
    } else {
        if (const char* narrow = m_manager->GetSubTitle(time))
            text = QString::fromLocal8Bit(narrow, -1);
    }

    if (!text.isEmpty()) {
        if (text != m_lastText) {
            m_lastText = text;
            m_captionImage = makeSubImage(text);
        }
    } else {
        // The last text stays: the same caption after a gap is not drawn again.
        m_captionImage = QPixmap();
    }

    if (m_captionImage.isNull())
        return nullptr;

    SubtitleData* data = new SubtitleData;  // reserved is left as it comes
    data->width = m_captionImage.width();
    data->height = m_captionImage.height();
    data->image = &m_captionImage;
    data->x = m_captionX - data->width / 2;
    data->y = m_captionY - data->height / 2;
    return data;
}

void ZemSubtitleMaker::destroySubData(SubtitleData* data)
{
    delete data;
}

QPixmap ZemSubtitleMaker::makeSubImage(const QString& text)
{
    const zemsub::detail::CaptionStyle style{m_font,        m_textColor, m_outlineColor,
                                             m_alpha,       m_lineSpacing, m_captionX,
                                             m_captionY,    m_videoWidth,  m_videoHeight};
    return zemsub::detail::paintCaption(text, style);
}

void ZemSubtitleMaker::setVideoSize(int width, int height)
{
    // Deliberately keeps the last text: a caption already drawn keeps its size.
    m_videoWidth = width;
    m_videoHeight = height;
}

void ZemSubtitleMaker::setFontInfo(const char* family, int colour, int pointSize, const char* style,
                                   int lineSpacing)
{
    m_font.setFamily(QString::fromUtf8(family));
    // QFont ignores a size below 1 anyway, with a warning on stderr.
    if (pointSize > 0)
        m_font.setPointSize(pointSize);

    const QString word = QString::fromLatin1(style);
    if (word == QLatin1String("Regular")) {
        m_font.setStyle(QFont::StyleNormal);
        m_font.setWeight(QFont::Normal);
    } else if (word == QLatin1String("Italic")) {
        m_font.setStyle(QFont::StyleItalic);
        m_font.setWeight(QFont::Normal);
    } else if (word == QLatin1String("Bold")) {
        m_font.setStyle(QFont::StyleNormal);
        m_font.setWeight(QFont::Bold);
    } else if (word == QLatin1String("Bold Italic")) {
        m_font.setStyle(QFont::StyleItalic);
        m_font.setWeight(QFont::Bold);
    }

    const unsigned int rgb = static_cast<unsigned int>(colour);
    m_textColor = QColor(static_cast<int>(rgb & 0xFFu), static_cast<int>((rgb >> 8) & 0xFFu),
                         static_cast<int>((rgb >> 16) & 0xFFu));
    m_lineSpacing = lineSpacing;
    m_lastText = QStringLiteral("");
}

void ZemSubtitleMaker::setSubtitlePos(int x, int y)
{
    m_captionX = x;
    m_captionY = y;
    m_lastText = QStringLiteral("");
}

void ZemSubtitleMaker::setTrasparency(int percent)
{
    // Unclamped: 0 gives 200, 100 gives 0; 255 is only the constructor's value.
    m_alpha = (100 - percent) * 2;
    m_lastText = QStringLiteral("");
}

xcSubtitleManager* ZemSubtitleMaker::manager() const
{
    return m_manager;
}

const QFont& ZemSubtitleMaker::font() const
{
    return m_font;
}

int ZemSubtitleMaker::lineSpacing() const
{
    return m_lineSpacing;
}

int ZemSubtitleMaker::captionX() const
{
    return m_captionX;
}

int ZemSubtitleMaker::captionY() const
{
    return m_captionY;
}

QColor ZemSubtitleMaker::textColor() const
{
    return m_textColor;
}

QColor ZemSubtitleMaker::outlineColor() const
{
    return m_outlineColor;
}

int ZemSubtitleMaker::alpha() const
{
    return m_alpha;
}

const QString& ZemSubtitleMaker::lastText() const
{
    return m_lastText;
}

const QPixmap& ZemSubtitleMaker::captionImage() const
{
    return m_captionImage;
}

int ZemSubtitleMaker::videoWidth() const
{
    return m_videoWidth;
}

int ZemSubtitleMaker::videoHeight() const
{
    return m_videoHeight;
}
