#ifndef ZEMSUBFIX_COPYTEXT_H
#define ZEMSUBFIX_COPYTEXT_H

#include "Stretch.h"

#include <QString>
#include <vector>

namespace zemsubfix {

// The text of a copy and its number of lines.
struct CopyText
{
    QString text;
    int lines = 0;
};

// Builds the text line by line and counts the lines.
class LineSink
{
public:
    void add(const QString& line);
    CopyText take() { return std::move(m_copy); }
    int lines() const { return m_copy.lines; }

private:
    CopyText m_copy;
};

} // namespace zemsubfix

#endif
