#include "object/ZoPictureReader.h"

#include "object/ZoLogText.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <QXmlStreamReader>
#include <cmath>
#include <zlib.h>

namespace
{
// An SVG of this many bytes, once inflated, is far beyond any drawing a map
// shows; a gzip bomb stops here.
constexpr qint64 kMaxSvgBytes = 64 * 1024 * 1024;

bool IsSvgFormat(const QByteArray& format)
{
    return format == "svg" || format == "svgz";
}

bool FitsCap(const QSize& size)
{
    return size.isValid() && size.width() <= kZoMaxPictureSide && size.height() <= kZoMaxPictureSide;
}

bool Inflate(const QByteArray& compressed, QByteArray* out)
{
    z_stream stream{};
    // 16 + MAX_WBITS: a gzip header and trailer around the deflate stream.
    if (inflateInit2(&stream, 16 + MAX_WBITS) != Z_OK)
        return false;
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(compressed.constData()));
    stream.avail_in = static_cast<uInt>(compressed.size());
    QByteArray chunk(64 * 1024, Qt::Uninitialized);
    int status = Z_OK;
    while (status == Z_OK && out->size() <= kMaxSvgBytes)
    {
        stream.next_out = reinterpret_cast<Bytef*>(chunk.data());
        stream.avail_out = static_cast<uInt>(chunk.size());
        status = inflate(&stream, Z_NO_FLUSH);
        out->append(chunk.constData(), chunk.size() - static_cast<int>(stream.avail_out));
    }
    inflateEnd(&stream);
    return status == Z_STREAM_END && out->size() <= kMaxSvgBytes;
}

// Whether Qt may decode this picture on its own, at full size: a raster
// picture within the cap. One Qt cannot read at all fails there harmlessly.
bool QtMayDecode(QImageReader& reader)
{
    if (!reader.canRead())
        return true;
    return !IsSvgFormat(reader.format()) && FitsCap(reader.size());
}

// Mirrors how Qt's SVG handler reads an <image>'s reference: inline base64
// data, or else a file name.
bool ImageReferenceAcceptable(const QString& href)
{
    if (href.startsWith(QLatin1String("data")))
    {
        const int at = href.lastIndexOf(QLatin1String("base64,"));
        if (at < 0)
            return true;
        QByteArray data = QByteArray::fromBase64(href.mid(at + 7).toLatin1());
        QBuffer buffer(&data);
        buffer.open(QIODevice::ReadOnly);
        QImageReader reader(&buffer);
        return QtMayDecode(reader);
    }
    const QFileInfo info(href);
    if (!info.exists())
        return true;
    if (!info.isFile())
        return false;
    QImageReader reader(href);
    return QtMayDecode(reader);
}

// The first reference of an <image> element that Qt must not decode, or a
// null string. Read with the parser settings of Qt's SVG handler, so that
// both see the same attributes.
QString RefusedImageReference(const QByteArray& xml)
{
    QXmlStreamReader reader(xml);
    reader.setNamespaceProcessing(false);
    // A generic lambda: the parser hands out QStringRef under Qt 5 and
    // QStringView under Qt 6.
    const auto named = [](const auto& name, QLatin1String local) {
        const QString prefixed = QLatin1Char(':') + local;
        return name == local || name.endsWith(prefixed);
    };
    while (!reader.atEnd())
    {
        if (reader.readNext() != QXmlStreamReader::StartElement || !named(reader.name(), QLatin1String("image")))
            continue;
        for (const QXmlStreamAttribute& attribute : reader.attributes())
        {
            const QString href = attribute.value().toString().trimmed();
            if (named(attribute.name(), QLatin1String("href")) && !ImageReferenceAcceptable(href))
                return href.isEmpty() ? QStringLiteral(" ") : href.left(256);
        }
    }
    return QString();
}

// Inflates a compressed document and checks its images; false, logged.
bool PrepareSvg(QByteArray* xml, const SZoLogSite& site)
{
    if (xml->startsWith("\x1f\x8b"))
    {
        QByteArray inflated;
        if (!Inflate(*xml, &inflated))
        {
            ZoLogWarnAt(site.className, site.method) << "SVG解压失败或过大, 拒绝加载";
            xml->clear();
            return false;
        }
        *xml = std::move(inflated);
    }
    const QString refused = RefusedImageReference(*xml);
    if (refused.isNull())
        return true;
    ZoLogWarnAt(site.className, site.method) << "SVG引用的图片不可读取或过大, 拒绝加载: " << refused;
    xml->clear();
    return false;
}

QImage RenderSvg(QByteArray xml, const SZoLogSite& site)
{
    if (!PrepareSvg(&xml, site))
        return QImage();
    QSvgRenderer renderer(xml);
    if (!renderer.isValid())
        return QImage();
    return ZoRasteriseSvg(renderer, renderer.defaultSize(), site);
}

QImage DecodeCapped(QImageReader& reader, const SZoLogSite& site)
{
    if (!reader.canRead())
        return QImage();
    const QSize size = reader.size();
    if (!FitsCap(size))
    {
        ZoLogWarnAt(site.className, site.method)
            << "图片尺寸过大或未知, 拒绝解码: " << size.width() << "x" << size.height();
        return QImage();
    }
    return reader.read();
}
} // namespace

QImage ZoRasteriseSvg(QSvgRenderer& renderer, const QSizeF& requested, const SZoLogSite& site)
{
    QSizeF size = requested;
    if (!std::isfinite(size.width()) || !std::isfinite(size.height()))
        return QImage();
    const bool capped = size.width() > kZoMaxPictureSide || size.height() > kZoMaxPictureSide;
    if (capped)
        size.scale(kZoMaxPictureSide, kZoMaxPictureSide, Qt::KeepAspectRatio);
    QImage image(size.toSize(), QImage::Format_ARGB32);
    if (capped)
        ZoLogWarnAt(site.className, site.method) << "SVG尺寸过大, 图像已缩小到: " << image.width() << "x"
                                                 << image.height();
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(QPointF(0.0, 0.0), size));
    return image;
}

bool ZoReadSvgDocument(const QString& path, const SZoLogSite& site, QByteArray* xml)
{
    return ZoReadRegularFile(path, kMaxSvgBytes, site, xml) && PrepareSvg(xml, site);
}

QImage ZoReadPicture(const QString& path, const SZoLogSite& site)
{
    if (!ZoCheckRegularFile(path, site))
        return QImage();
    QImageReader reader(path);
    if (!IsSvgFormat(reader.format()))
        return DecodeCapped(reader, site);
    QByteArray xml;
    if (!ZoReadRegularFile(path, kMaxSvgBytes, site, &xml))
        return QImage();
    return RenderSvg(std::move(xml), site);
}

QImage ZoDecodePicture(const QByteArray& data, const SZoLogSite& site)
{
    QByteArray bytes = data;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    if (IsSvgFormat(reader.format()))
        return RenderSvg(data, site);
    return DecodeCapped(reader, site);
}
