#ifndef ZEMSUB_ZEMSUBTITLEMAKER_H
#define ZEMSUB_ZEMSUBTITLEMAKER_H

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QString>

#include "ISubTitle.h"

class xcSubtitleManager;

// The one ISubTitle: owns the subtitle manager and the caption style, and draws
// captions into transparent frame-sized images. A caption is drawn once for as
// long as its text stays the same.
class ZEMSUB_EXPORT ZemSubtitleMaker : public ISubTitle
{
public:
    ZemSubtitleMaker();
    // Not run by destroySubtitle.
    ~ZemSubtitleMaker();

    bool open(const char* path) override;
    bool close() override;
    bool isOpened() override;
    SubtitleData* getSubtitleData(long long position, long long offset) override;
    void destroySubData(SubtitleData* data) override;
    void setVideoSize(int width, int height) override;
    void setFontInfo(const char* family, int colour, int pointSize, const char* style, int lineSpacing) override;
    void setSubtitlePos(int x, int y) override;
    void setTrasparency(int percent) override;

    void createSubManager();
    // Draws text (one leading line feed dropped, one line per line feed) with a
    // two-pixel outline into a transparent video-sized pixmap.
    QPixmap makeSubImage(const QString& text);

    xcSubtitleManager* manager() const;
    const QFont& font() const;
    int lineSpacing() const;
    int captionX() const;
    int captionY() const;
    QColor textColor() const;
    QColor outlineColor() const;
    int alpha() const;
    const QString& lastText() const;
    const QPixmap& captionImage() const;
    int videoWidth() const;
    int videoHeight() const;

private:
    xcSubtitleManager* m_manager;
    QFont m_font;
    int m_lineSpacing;
    int m_captionY;
    int m_captionX;
    QColor m_textColor;
    QColor m_outlineColor;
    int m_alpha;
    QString m_lastText;
    QPixmap m_captionImage;
    int m_videoWidth;
    int m_videoHeight;
};

#endif
