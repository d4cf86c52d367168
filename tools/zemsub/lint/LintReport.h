#ifndef ZEMSUB_TOOL_LINTREPORT_H
#define ZEMSUB_TOOL_LINTREPORT_H

#include "LintCauses.h"
#include "LintFindings.h"
#include "reading/WrittenFile.h"

#include <QString>
#include <vector>

namespace zemsub::tool {

// Everything lint found for one file, ready to print.
struct LintReport
{
    QString path;
    const WrittenFile* written = nullptr;
    const LibrarySide* library = nullptr;
    std::vector<Finding> findings;
    int track = -1;      // the subtitle track read
    QString trackReason; // why that one
};

// Writes the report to stdout as JSON or as text.
void printLintJson(const LintReport& report);
void printLintText(const LintReport& report);

} // namespace zemsub::tool

#endif
