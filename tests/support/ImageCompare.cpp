#include "support/ImageCompare.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <cstdlib>
#include <utility>

namespace
{
// Both Qt versions lay the tests' text out at 96 dots per inch (main.cpp), and
// plain text then comes out the same; the glyphs of outlined and scaled
// labels still differ along their edges under Qt 6. Such a picture may differ
// there in up to this many pixels: what Qt 6.4.2 gives, plus a fifth.
int Qt6TextAllowance(const QString& name)
{
    if (QT_VERSION_MAJOR < 6)
        return 0;
    static const std::pair<const char*, int> allowances[] = {
        {"markpoint_label_", 160},     // measured up to 131
        {"dot_label_", 260},           // 213
        {"text_outline", 1190},        // 988: 18 pt text in a box
        {"bubble_tails", 1800},        // 1500: six bubbles with labels
        {"circle_label_bottom", 275},  // 228
        {"ellipse_label_right", 325},  // 269
        {"polygon_label_centre", 255}, // 209
    };
    for (const auto& [prefix, pixels] : allowances)
        if (name.startsWith(QLatin1String(prefix)))
            return pixels;
    return 0;
}

int ChannelDistance(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)),
                     std::abs(qAlpha(a) - qAlpha(b))});
}
} // namespace

QImage BlankCanvas(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    return image;
}

QString CompareWithReference(const QImage& actualImage, const QString& name, int channelTolerance, int maxBadPixels)
{
    const QString referencePath = QStringLiteral(ZO_TEST_DATA_DIR "/") + name + QStringLiteral(".png");
    const QImage actual = actualImage.convertToFormat(QImage::Format_ARGB32);
    if (qEnvironmentVariableIntValue("ZO_UPDATE_REFERENCES") == 1)
    {
        actual.save(referencePath);
        return QString();
    }
    const QImage reference = QImage(referencePath).convertToFormat(QImage::Format_ARGB32);
    QDir().mkpath(QStringLiteral(ZO_TEST_OUTPUT_DIR));
    const QString outputBase = QStringLiteral(ZO_TEST_OUTPUT_DIR "/") + name;
    if (reference.isNull())
    {
        actual.save(outputBase + QStringLiteral(".actual.png"));
        return QStringLiteral("missing reference ") + referencePath;
    }
    if (reference.size() != actual.size())
    {
        actual.save(outputBase + QStringLiteral(".actual.png"));
        return QStringLiteral("size differs from ") + referencePath;
    }
    QImage diff(actual.size(), QImage::Format_ARGB32);
    diff.fill(Qt::white);
    int bad = 0;
    for (int y = 0; y < actual.height(); ++y)
    {
        for (int x = 0; x < actual.width(); ++x)
        {
            if (ChannelDistance(actual.pixel(x, y), reference.pixel(x, y)) > channelTolerance)
            {
                ++bad;
                diff.setPixel(x, y, qRgb(255, 0, 0));
            }
        }
    }
    if (bad <= std::max(maxBadPixels, Qt6TextAllowance(name)))
        return QString();
    actual.save(outputBase + QStringLiteral(".actual.png"));
    diff.save(outputBase + QStringLiteral(".diff.png"));
    return QStringLiteral("%1 pixels differ from %2; see %3.diff.png").arg(bad).arg(referencePath, outputBase);
}
