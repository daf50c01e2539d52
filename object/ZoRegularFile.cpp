#include "object/ZoRegularFile.h"

#include "object/ZoLogText.h"

#include <QFile>
#include <QFileInfo>

bool ZoCheckRegularFile(const QString& path, const SZoLogSite& site)
{
    const QFileInfo info(path);
    if (info.isFile())
        return true;
    if (info.exists())
        ZoLogWarnAt(site.className, site.method) << "不是普通文件, 拒绝读取: " << path;
    return false;
}

bool ZoReadRegularFile(const QString& path, qint64 maxBytes, const SZoLogSite& site, QByteArray* contents)
{
    contents->clear();
    if (!ZoCheckRegularFile(path, site))
        return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
    {
        ZoLogWarnAt(site.className, site.method) << "文件打开失败: " << path;
        return false;
    }
    if (file.size() > maxBytes)
    {
        ZoLogWarnAt(site.className, site.method) << "文件过大, 拒绝读取: " << path;
        return false;
    }
    *contents = file.readAll();
    return true;
}
