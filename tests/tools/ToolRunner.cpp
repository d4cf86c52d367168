#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"

#    include <QProcess>
#    include <QRegularExpression>

namespace {

RunResult run(const QString& program, const QStringList& args, const QString& workDir,
              const QProcessEnvironment& environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    if (!workDir.isEmpty())
        process.setWorkingDirectory(workDir);
    process.start(program, args);
    RunResult result;
    if (!process.waitForStarted(30000))
        return result;
    result.finished = process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit;
    result.exitCode = process.exitCode();
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

} // namespace

QProcessEnvironment toolEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
    environment.remove(QStringLiteral("LC_ALL"));
    environment.remove(QStringLiteral("LC_CTYPE"));
    return environment;
}

RunResult runZemsub(const QStringList& args, const QString& workDir, const QProcessEnvironment& environment)
{
    return run(QStringLiteral(ZEMSUB_TOOL_BINARY), args, workDir, environment);
}

RunResult runHost(const QStringList& args)
{
    return run(QStringLiteral(ZEMSUB_HOST_BINARY), args, QString(), toolEnvironment());
}

QString sample(const QString& name)
{
    return QStringLiteral(ZEMSUB_SOURCE_DIR "/samples/") + name;
}

QString qs(const std::string& text)
{
    return QString::fromStdString(text);
}

QRect pixelsUnlike(const QImage& source, const QColor& background, int tolerance)
{
    const QImage image = source.convertToFormat(QImage::Format_RGB32);
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = row[x];
            if (qAbs(qRed(p) - background.red()) > tolerance ||
                qAbs(qGreen(p) - background.green()) > tolerance ||
                qAbs(qBlue(p) - background.blue()) > tolerance)
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

QRect brightPixels(const QImage& source, int threshold)
{
    const QImage image = source.convertToFormat(QImage::Format_RGB32);
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = row[x];
            if (qRed(p) > threshold && qGreen(p) > threshold && qBlue(p) > threshold)
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

int recordValue(const QString& line, const QString& key)
{
    const QRegularExpression pattern(QStringLiteral("\\b%1=(-?\\d+)").arg(key));
    const QRegularExpressionMatch match = pattern.match(line);
    return match.hasMatch() ? match.captured(1).toInt() : -99999;
}

#endif
