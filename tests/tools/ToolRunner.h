#ifndef ZEMSUB_TESTS_TOOLRUNNER_H
#define ZEMSUB_TESTS_TOOLRUNNER_H

#include <QColor>
#include <QImage>
#include <QProcessEnvironment>
#include <QRect>
#include <QString>
#include <QStringList>

#include <ostream>
#include <string>

// Readable failure messages for Qt strings.
inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

// What a run of one of the built programs gave.
struct RunResult
{
    int exitCode = -1;
    bool finished = false;
    QString out;
    QString err;
};

// The environment the programs run in: offscreen, a UTF-8 locale, no LC_ALL.
QProcessEnvironment toolEnvironment();

// Runs zemsub (or the example host) with args, in workDir when given.
RunResult runZemsub(const QStringList& args, const QString& workDir = QString(),
                    const QProcessEnvironment& environment = toolEnvironment());
RunResult runHost(const QStringList& args);

// A file of the repository's samples/ folder.
QString sample(const QString& name);
QString qs(const std::string& text);

// The smallest rectangle holding every pixel that differs from background by more
// than tolerance in a channel; null when there is none.
QRect pixelsUnlike(const QImage& image, const QColor& background, int tolerance = 8);
// The smallest rectangle holding every pixel whose three channels all exceed threshold.
QRect brightPixels(const QImage& image, int threshold = 200);

// "key=value" pairs of a line such as "x=0 y=150 width=480 height=360".
int recordValue(const QString& line, const QString& key);

#endif
