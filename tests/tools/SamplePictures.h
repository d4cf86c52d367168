#ifndef ZEMSUB_TESTS_SAMPLEPICTURES_H
#define ZEMSUB_TESTS_SAMPLEPICTURES_H

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <vector>

// One subpicture as tools/make-sample-sub.py draws it.
struct DrawnPicture
{
    long long start = 0;
    QPoint position;
    QImage image; // ARGB32
};

// What the script writes into a fresh folder: the VobSub pair and its pictures.
struct ScriptOutput
{
    bool ran = false;
    QString failure;
    QByteArray index;
    QByteArray sub;
    std::vector<DrawnPicture> pictures;
};

// Runs python3 tools/make-sample-sub.py --out DIR --pictures DIR in a temporary folder,
// with the script's options (--position X,Y, --size WxH|none, --contrast A,B,C,D).
ScriptOutput runSampleScript(const QStringList& options = {});

#endif
