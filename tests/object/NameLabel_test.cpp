#include "object/CZoNameLabel.h"
#include "object/ZoLabelLook.h"
#include "support/ImageCompare.h"

#include <QFontMetrics>
#include <QPainter>
#include <gtest/gtest.h>

namespace
{
CZoNameLabel Label(const QString& text, int pointSize = 11)
{
    CZoNameLabel label;
    label.font = QFont(QStringLiteral("DejaVu Sans"), pointSize);
    label.SetText(text);
    label.visible = true;
    label.outlineColor = QColor(20, 40, 220);
    label.textColor = QColor(230, 30, 30);
    label.outlineWidth = 1.5;
    return label;
}

// The label drawn through its finished look, or the same text drawn stroke by
// stroke straight into the image, under the same painter set-up.
QImage Render(const CZoNameLabel& label, const QTransform& transform = QTransform(), bool throughLook = true)
{
    QImage image = BlankCanvas(160, 80);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(transform);
    if (throughLook)
        label.Draw(&painter);
    else
    {
        painter.translate(label.originX, label.originY);
        ZoPaintLabelText(&painter, label.text, label.font, label.textColor, label.outlineColor, label.outlineWidth);
    }
    painter.end();
    return image;
}

int CountPixels(const QImage& image, QRgb colour)
{
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            n += image.pixel(x, y) == colour;
    return n;
}

int DifferingPixels(const QImage& a, const QImage& b, int tolerance)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
        {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            count += std::abs(qRed(p) - qRed(q)) > tolerance || std::abs(qGreen(p) - qGreen(q)) > tolerance ||
                     std::abs(qBlue(p) - qBlue(q)) > tolerance;
        }
    return count;
}

class NameLabel : public ::testing::Test
{
protected:
    void SetUp() override { ZoLabelLookCache::Clear(); }
    void TearDown() override
    {
        ZoLabelLookCache::SetLimit(64u << 20);
        ZoLabelLookCache::Clear();
    }
};
} // namespace

TEST_F(NameLabel, LooksMatchDirectDrawingAtEveryPhaseAndScale)
{
    constexpr int kFarPixels = QT_VERSION_MAJOR >= 6 ? 2 : 0;
    constexpr int kNearPixels = QT_VERSION_MAJOR >= 6 ? 70 : 30;
    CZoNameLabel label = Label(QStringLiteral("Qingdao\nline two"));
    const QTransform transforms[] = {
        QTransform(),
        QTransform::fromTranslate(0.5, 0.25),
        QTransform::fromTranslate(0.375, 0.875),
        QTransform::fromScale(2.0, 2.0),
        QTransform::fromScale(0.5, 0.5) * QTransform::fromTranslate(3.5, 1.0),
        QTransform().rotate(12.0), // drawn directly: the same strokes exactly
    };
    for (const QTransform& transform : transforms)
    {
        label.Place(EZoLabelPlacement::RightBaseline, 8.0, 22.0);
        const QImage direct = Render(label, transform, false);
        const QImage viaLook = Render(label, transform, true);
        // Looks are put together glyph by glyph: where two glyphs' halos
        // overlap at their antialiased rims, a few pixels blend a little
        // differently from one stroke over the whole text.
        // Qt 6 rounds the outlines' antialiased rims differently between a
        // glyph's own path and the whole text's (measured under 6.4.2: at most
        // 1 pixel past 40 and 58 past 16), so its bounds are wider.
        EXPECT_LE(DifferingPixels(direct, viaLook, 40), kFarPixels) << transform.dx() << " " << transform.m11();
        EXPECT_LE(DifferingPixels(direct, viaLook, 16), kNearPixels) << transform.dx() << " " << transform.m11();
    }
}

TEST_F(NameLabel, ChangedStylesAndTextsGetLooksOfTheirOwn)
{
    CZoNameLabel label = Label(QStringLiteral("AB"));
    label.outlineWidth = 0.0;
    label.Place(EZoLabelPlacement::RightBaseline, 10, 40);
    EXPECT_GT(CountPixels(Render(label), qRgb(230, 30, 30)), 20);
    label.textColor = QColor(0, 160, 0);
    const QImage green = Render(label);
    EXPECT_EQ(CountPixels(green, qRgb(230, 30, 30)), 0);
    EXPECT_GT(CountPixels(green, qRgb(0, 160, 0)), 20);
    label.SetText(QStringLiteral("ABCDEFGH"));
    label.Place(EZoLabelPlacement::RightBaseline, 10, 40);
    EXPECT_GT(CountPixels(Render(label), qRgb(0, 160, 0)), 2 * CountPixels(green, qRgb(0, 160, 0)));
}

TEST_F(NameLabel, AReleasedLabelGivesItsLookBackAndReusesItsGlyphs)
{
    CZoNameLabel label = Label(QStringLiteral("released"));
    label.Place(EZoLabelPlacement::RightBaseline, 10, 30);
    const QImage first = Render(label);
    const std::size_t glyphBytes = ZoLabelLookCache::GlyphBytes();
    EXPECT_GT(glyphBytes, 0u);
    label.Release();
    label.Place(EZoLabelPlacement::RightBaseline, 10, 30);
    EXPECT_EQ(std::pair(Render(label), ZoLabelLookCache::GlyphBytes()), std::pair(first, glyphBytes));
    // Released after its look left the cache, it still measures anew.
    ZoLabelLookCache::SetLimit(0);
    ASSERT_FALSE(label.HoldsLook());
    label.font = QFont(QStringLiteral("DejaVu Sans"), 22);
    label.Release();
    label.Place(EZoLabelPlacement::RightBaseline, 10, 30);
    EXPECT_EQ(label.TextRect().width(), QFontMetrics(label.font).horizontalAdvance(QStringLiteral("released")));
}

TEST_F(NameLabel, TheCacheStaysWithinItsBoundDroppingTheLeastRecentlyUsed)
{
    // Digits share one advance: the three looks have about the same size, and
    // the bound holds two of them but not three.
    CZoNameLabel first = Label(QStringLiteral("label 1"));
    CZoNameLabel second = Label(QStringLiteral("label 2"));
    CZoNameLabel third = Label(QStringLiteral("label 3"));
    for (CZoNameLabel* label : {&first, &second, &third})
        label->Place(EZoLabelPlacement::RightBaseline, 5, 30);
    Render(first);
    Render(second);
    ZoLabelLookCache::SetLimit(ZoLabelLookCache::Bytes() * 5 / 4);
    Render(first); // first is used again: second is now the oldest
    Render(third);
    EXPECT_LE(ZoLabelLookCache::Bytes(), ZoLabelLookCache::Limit());
    EXPECT_EQ(std::tuple(first.HoldsLook(), second.HoldsLook(), third.HoldsLook()), std::tuple(true, false, true));
    // An evicted look is drawn again on demand.
    EXPECT_NE(Render(second), BlankCanvas(160, 80));
}

// A label blown up far past the screen (a huge render scale, a wide
// outline) is drawn stroke by stroke: a finished look of it would take
// memory with the square of the scale, gigabytes for a rendering at 100x.
TEST_F(NameLabel, LabelsFarLargerThanTheScreenAreDrawnWithoutALook)
{
    CZoNameLabel label = Label(QStringLiteral("enormous"));
    label.outlineWidth = 90.0;
    label.Place(EZoLabelPlacement::RightBaseline, 0.5, 0.4);
    const QTransform huge = QTransform::fromScale(100.0, 100.0);
    const QImage drawn = Render(label, huge);
    EXPECT_EQ(std::pair(label.HoldsLook(), ZoLabelLookCache::Bytes()), std::pair(false, std::size_t(0)));
    EXPECT_EQ(DifferingPixels(drawn, Render(label, huge, false), 0), 0);
    EXPECT_NE(drawn, BlankCanvas(160, 80));
}
