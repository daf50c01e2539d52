#include "content/text/CZoTextDocument.h"

#include "object/ZoPictureReader.h"

#include <QUrl>

namespace
{
const SZoLogSite kSite{"CZoTextMapObject", "SetHtml"};
// A style sheet or other text resource beyond this is no label's.
constexpr qint64 kMaxResourceBytes = 4 * 1024 * 1024;

// The local file a resource name stands for, resolved as Qt does for a
// document without a base URL; empty for remote names.
QString LocalPath(const QUrl& name)
{
    if (name.scheme() == QLatin1String("qrc"))
        return QLatin1Char(':') + name.path();
    if (name.isRelative())
    {
        QUrl file = name;
        file.setScheme(QStringLiteral("file"));
        return file.toLocalFile();
    }
    return name.isLocalFile() ? name.toLocalFile() : QString();
}

// Qt reads an image that its document could not give by itself, unchecked;
// a refused or missing picture is therefore answered with Qt's own
// broken-image picture.
QImage PictureOrStandIn(const QImage& picture)
{
    if (!picture.isNull())
        return picture;
    static const QImage standIn = [] {
        QImage image(QStringLiteral(":/qt-project.org/styles/commonstyle/images/file-16.png"));
        if (image.isNull())
        {
            image = QImage(1, 1, QImage::Format_ARGB32);
            image.fill(Qt::transparent);
        }
        return image;
    }();
    return standIn;
}
} // namespace

CZoTextDocument::CZoTextDocument(QObject* parent) : QTextDocument(parent) {}

QVariant CZoTextDocument::loadResource(int type, const QUrl& name)
{
    QVariant resource;
    if (name.scheme().compare(QLatin1String("data"), Qt::CaseInsensitive) == 0)
    {
        // Qt decodes the URL itself and reads no file for it.
        resource = QTextDocument::loadResource(type, name);
        if (type == ImageResource)
            resource = PictureOrStandIn(ZoDecodePicture(resource.toByteArray(), kSite));
    }
    else
    {
        const QString path = LocalPath(name);
        if (type == ImageResource)
        {
            resource = PictureOrStandIn(path.isEmpty() ? QImage() : ZoReadPicture(path, kSite));
        }
        else
        {
            QByteArray contents;
            if (!path.isEmpty())
                ZoReadRegularFile(path, kMaxResourceBytes, kSite, &contents);
            resource = contents;
        }
    }
    // Kept, so that layouts and paints do not decode the picture again.
    addResource(type, name, resource);
    return resource;
}
