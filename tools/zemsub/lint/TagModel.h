#ifndef ZEMSUB_TOOL_TAGMODEL_H
#define ZEMSUB_TOOL_TAGMODEL_H

#include <QString>

namespace zemsub::tool {

// How the script reader's tag removal treats a Text field, worked out by the
// library's step-by-step reference (reference/SsaTagSteps.h) so that lint can
// name the cause of a difference: each removal moves the
// tail down but keeps the recorded length, so the old tail stays behind the end
// of the text, where the brace and angle passes still look; a pass that comes
// back to a state it was in before ends there.
struct TagPassResult
{
    QString visible;          // the text up to its first zero character
    bool repeated = false;    // a pass ended at a repeated state
    bool usedOldTail = false; // a removal reached past the end of the text
    int breaksLeft = 0;       // "\N" left as written in the visible text
};

TagPassResult modelTagPasses(const QString& text);

// The same passes on a text that really shortens: complete blocks removed,
// unclosed ones left as written.
QString removeCompleteBlocks(const QString& text);

} // namespace zemsub::tool

#endif
