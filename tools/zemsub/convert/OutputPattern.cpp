#include "OutputPattern.h"

#include <QFileInfo>

namespace zemsub::tool {

QString expandPattern(const QString& pattern, const PatternValues& values)
{
    const QFileInfo input(values.input);
    QString path = pattern;
    path.replace(QStringLiteral("{dir}"), input.path());
    path.replace(QStringLiteral("{stem}"), input.completeBaseName());
    path.replace(QStringLiteral("{lang}"), values.language.isEmpty() ? QStringLiteral("und") : values.language);
    path.replace(QStringLiteral("{track}"), values.track >= 0 ? QString::number(values.track) : QString());
    path.replace(QStringLiteral("{forced}"), values.forced ? QStringLiteral(".forced") : QString());
    return path;
}

bool patternPerInput(const QString& pattern)
{
    return pattern.contains(QStringLiteral("{stem}"));
}

bool patternNeedsTrack(const QString& pattern)
{
    return pattern.contains(QStringLiteral("{lang}")) || pattern.contains(QStringLiteral("{track}"));
}

} // namespace zemsub::tool
