#include "CopyText.h"

namespace zemsubfix {

void LineSink::add(const QString& line)
{
    m_copy.text += line;
    m_copy.text += QLatin1Char('\n');
    ++m_copy.lines;
}

} // namespace zemsubfix
