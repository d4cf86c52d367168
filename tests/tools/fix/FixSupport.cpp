#include "FixSupport.h"

#include <QFile>

zemsubfix::FixReport fixInto(const std::string& dir, const std::string& bytes, const std::string& name,
                             const std::string& copyName)
{
    const QString input = QString::fromStdString(dir + "/" + name);
    QFile file(input);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(bytes.data(), qint64(bytes.size()));
        file.close();
    }
    const QString output = QString::fromStdString(dir + "/" + copyName);
    zemsubfix::FixOptions options;
    options.format = zemsubfix::formatForPath(output);
    return zemsubfix::fixFile(input, output, options);
}
