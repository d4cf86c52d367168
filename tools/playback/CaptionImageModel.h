#ifndef ZEMSUB_TOOL_CAPTIONIMAGEMODEL_H
#define ZEMSUB_TOOL_CAPTIONIMAGEMODEL_H

#include <QString>

namespace zemsub::tool {

// The caption image as the library keeps it between frames: a new text is
// drawn; the same text again is not drawn anew; no text clears the image but
// keeps the last text, so an equal text after a gap is not drawn again.
class CaptionImageModel
{
public:
    // What the image shows after the library answered this text (null: nothing).
    QString show(const QString& answer)
    {
        if (!answer.isEmpty()) {
            if (answer != m_lastText) {
                m_lastText = answer;
                m_image = true;
            }
        } else {
            m_image = false;
        }
        return m_image ? m_lastText : QString();
    }

private:
    QString m_lastText;
    bool m_image = false;
};

} // namespace zemsub::tool

#endif
