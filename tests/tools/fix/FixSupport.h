#ifndef ZEMSUB_TESTS_FIXSUPPORT_H
#define ZEMSUB_TESTS_FIXSUPPORT_H

#include "ZemsubFix.h"
#include "support/LibraryAnswers.h"

#include <QString>
#include <ostream>
#include <string>

inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

// Fixes bytes named name into a copy named copyName inside dir; returns the report.
zemsubfix::FixReport fixInto(const std::string& dir, const std::string& bytes, const std::string& name,
                             const std::string& copyName);

#endif
