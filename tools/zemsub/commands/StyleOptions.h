#ifndef ZEMSUB_TOOL_STYLEOPTIONS_H
#define ZEMSUB_TOOL_STYLEOPTIONS_H

#include "zemsub/frames/FrameRenderer.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>

namespace zemsub::tool {

// The options that render and sheet share.
class StyleOptions
{
public:
    StyleOptions();
    void addTo(QCommandLineParser& parser) const;
    // Throws ToolError (exit 2) for a malformed value.
    RenderStyle read(const QCommandLineParser& parser, const QString& command) const;

private:
    QCommandLineOption m_size, m_font, m_point, m_style, m_colour, m_spacing, m_pos, m_transparency,
        m_background;
};

} // namespace zemsub::tool

#endif
