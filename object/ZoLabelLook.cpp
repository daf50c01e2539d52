#include "object/ZoLabelLook.h"

#include "object/ZoPixelValues.h"
#include "object/ZoTextPath.h"

#include <ZoGraphics/ZoCoreUtility.h>

#include "object/TZoLruCache.h"

#include <QFontMetricsF>
#include <QHash>
#include <QCoreApplication>
#include <QPainter>
#include <cmath>

bool SZoLabelLookKey::operator==(const SZoLabelLookKey& o) const
{
    return scaleX == o.scaleX && scaleY == o.scaleY && phaseX == o.phaseX && phaseY == o.phaseY &&
           textColor == o.textColor && outlineColor == o.outlineColor && outlineWidth == o.outlineWidth &&
           antialias == o.antialias && text == o.text && font == o.font;
}

namespace
{
constexpr double kScaleUnit = 1024.0;
constexpr double kPhaseUnit = 8.0;

struct LookHash
{
    std::size_t operator()(const SZoLabelLookKey& k) const
    {
        uint h = qHash(k.text);
        h = h * 31 + qHash(k.font);
        h = h * 31 + k.textColor;
        h = h * 31 + k.outlineColor;
        h = h * 31 + qHash(k.outlineWidth);
        h = h * 31 + uint(k.scaleX * 8 + k.phaseX);
        h = h * 31 + uint(k.scaleY * 8 + k.phaseY);
        return h * 2 + k.antialias;
    }
};

// One glyph's halo and fill in device pixels at one sub-pixel phase. Labels
// are put together from these: most labels share their glyphs, so a label
// drawn for the first time costs a few image copies instead of stroking
// glyph outlines.
struct GlyphLookKey
{
    QRawFont font;
    quint32 glyph = 0;
    QRgb textColor = 0;
    QRgb outlineColor = 0;
    double outlineWidth = 0.0;
    int scaleX = 0;
    int scaleY = 0;
    int phaseX = 0;
    int phaseY = 0;
    bool antialias = true;

    bool operator==(const GlyphLookKey& o) const
    {
        return glyph == o.glyph && phaseX == o.phaseX && phaseY == o.phaseY && scaleX == o.scaleX &&
               scaleY == o.scaleY && textColor == o.textColor && outlineColor == o.outlineColor &&
               outlineWidth == o.outlineWidth && antialias == o.antialias && font == o.font;
    }
};

struct GlyphLookHash
{
    std::size_t operator()(const GlyphLookKey& k) const
    {
        uint h = qHash(k.font);
        h = h * 31 + k.glyph;
        h = h * 31 + k.textColor;
        h = h * 31 + k.outlineColor;
        h = h * 31 + qHash(k.outlineWidth);
        h = h * 31 + uint(k.scaleX * 8 + k.phaseX);
        h = h * 31 + uint(k.scaleY * 8 + k.phaseY);
        return h * 2 + k.antialias;
    }
};

struct GlyphLook
{
    QImage halo; // the halo stroked twice, as a label strokes it under and over its glyphs
    QImage fill;
    QPoint offset; // of both images' top-left pixel from the glyph origin's whole pixel

    // Glyph looks are always obtained through the cache: no second chances.
    bool TakeUsedMark() const { return false; }
};

QPen HaloPen(const QColor& colour, double outlineWidth)
{
    return IsEqual(outlineWidth, 0.0) ? QPen(Qt::NoPen) : QPen(QBrush(colour), outlineWidth * 2.5, Qt::SolidLine);
}

std::size_t Cost(const QImage& image) { return static_cast<std::size_t>(image.sizeInBytes()); }

void ClearLooks();

// Glyph looks hold Qt's font engines: they are let go while the application
// still exists, not at static destruction after it.
void ClearWithApplication()
{
    static const bool registered = [] {
        qAddPostRoutine(&ClearLooks);
        return true;
    }();
    (void)registered;
}

TZoLruCache<GlyphLookKey, GlyphLook, GlyphLookHash>& GlyphLooks()
{
    static TZoLruCache<GlyphLookKey, GlyphLook, GlyphLookHash> cache(16u << 20);
    ClearWithApplication();
    return cache;
}

TZoLruCache<SZoLabelLookKey, SZoLabelLook, LookHash>& LabelLooks()
{
    static TZoLruCache<SZoLabelLookKey, SZoLabelLook, LookHash> cache(64u << 20);
    return cache;
}

std::shared_ptr<const GlyphLook> ObtainGlyph(const GlyphLookKey& key)
{
    if (std::shared_ptr<const GlyphLook> found = GlyphLooks().Find(key))
        return found;
    auto look = std::make_shared<GlyphLook>();
    const QPainterPath outline = ZoGlyphOutline(key.font, key.glyph);
    if (!outline.isEmpty())
    {
        const double sx = key.scaleX / kScaleUnit;
        const double sy = key.scaleY / kScaleUnit;
        const QPointF phase(key.phaseX / kPhaseUnit, key.phaseY / kPhaseUnit);
        const QPen pen = HaloPen(QColor::fromRgba(key.outlineColor), key.outlineWidth);
        const double halo = pen.style() == Qt::NoPen ? 0.0 : pen.widthF() / 2.0;
        const QRectF ink = outline.controlPointRect().adjusted(-halo, -halo, halo, halo);
        const QRect device =
            QRectF(ink.left() * sx + phase.x(), ink.top() * sy + phase.y(), ink.width() * sx, ink.height() * sy)
                .toAlignedRect()
                .adjusted(-1, -1, 1, 1);
        auto draw = [&](QImage& image, auto&& paint) {
            image = QImage(device.size(), QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing, key.antialias);
            painter.translate(phase - QPointF(device.topLeft()));
            painter.scale(sx, sy);
            paint(painter);
        };
        if (pen.style() != Qt::NoPen)
            draw(look->halo, [&](QPainter& painter) {
                painter.strokePath(outline, pen);
                painter.strokePath(outline, pen);
            });
        draw(look->fill, [&](QPainter& painter) {
            painter.fillPath(outline, QBrush(QColor::fromRgba(key.textColor), Qt::SolidPattern));
        });
        look->offset = device.topLeft();
    }
    GlyphLooks().Insert(key, look, Cost(look->halo) + Cost(look->fill) + sizeof(GlyphLook));
    return look;
}

// Whole device pixel and sub-pixel phase, in 1/8, of a device coordinate.
void SplitPhase(double at, int* whole, int* phase)
{
    double floor = std::floor(at);
    int eighths = static_cast<int>(std::lround((at - floor) * kPhaseUnit));
    if (eighths == kPhaseUnit)
    {
        eighths = 0;
        floor += 1.0;
    }
    *whole = ZoPixelInt(floor);
    *phase = eighths;
}

std::shared_ptr<const SZoLabelLook> DrawLabel(const SZoLabelLookKey& key, const ZoLaidOutText& glyphs)
{
    auto look = std::make_shared<SZoLabelLook>();
    look->key = key;
    const double sx = key.scaleX / kScaleUnit;
    const double sy = key.scaleY / kScaleUnit;
    const QPointF phase(key.phaseX / kPhaseUnit, key.phaseY / kPhaseUnit);

    struct Placed
    {
        std::shared_ptr<const GlyphLook> look;
        QPoint at;
    };
    std::vector<Placed> placed;
    QRect bounds;
    GlyphLookKey glyphKey;
    glyphKey.textColor = key.textColor;
    glyphKey.outlineColor = key.outlineColor;
    glyphKey.outlineWidth = key.outlineWidth;
    glyphKey.scaleX = key.scaleX;
    glyphKey.scaleY = key.scaleY;
    glyphKey.antialias = key.antialias;
    for (const SZoPlacedGlyph& glyph : glyphs)
    {
        int wholeX = 0;
        int wholeY = 0;
        SplitPhase(phase.x() + glyph.position.x() * sx, &wholeX, &glyphKey.phaseX);
        SplitPhase(phase.y() + glyph.position.y() * sy, &wholeY, &glyphKey.phaseY);
        glyphKey.font = glyph.font;
        glyphKey.glyph = glyph.glyph;
        std::shared_ptr<const GlyphLook> glyphLook = ObtainGlyph(glyphKey);
        if (glyphLook->fill.isNull())
            continue;
        const QPoint at = QPoint(wholeX, wholeY) + glyphLook->offset;
        bounds |= QRect(at, glyphLook->fill.size());
        placed.push_back({glyphLook, at});
    }
    if (bounds.isEmpty() || bounds.width() > 16384 || bounds.height() > 16384)
        return look;

    QImage image(bounds.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(-bounds.topLeft());
    // Every halo first, then every glyph: no halo covers a neighbour's glyph.
    for (const Placed& p : placed)
    {
        if (!p.look->halo.isNull())
            painter.drawImage(p.at, p.look->halo);
    }
    for (const Placed& p : placed)
        painter.drawImage(p.at, p.look->fill);
    painter.end();
    look->image = image;
    look->offset = bounds.topLeft();
    return look;
}
} // namespace

namespace
{
void ClearLooks() { ZoLabelLookCache::Clear(); }
} // namespace

namespace ZoLabelLookCache
{
std::shared_ptr<const SZoLabelLook> Obtain(const SZoLabelLookKey& key, const ZoLaidOutText& glyphs)
{
    if (std::shared_ptr<const SZoLabelLook> found = LabelLooks().Find(key))
        return found;
    // Drawn outside the cache's lock: another thread may draw the same look at
    // the same time, and the second insertion simply replaces the first.
    std::shared_ptr<const SZoLabelLook> look = DrawLabel(key, glyphs);
    LabelLooks().Insert(key, look, Cost(look->image) + sizeof(SZoLabelLook));
    return look;
}
void Forget(const std::shared_ptr<const SZoLabelLook>& look)
{
    if (look)
        LabelLooks().Erase(look->key, look.get());
}
std::size_t Bytes() { return LabelLooks().Cost(); }
std::size_t GlyphBytes() { return GlyphLooks().Cost(); }
std::size_t Limit() { return LabelLooks().Limit(); }
void SetLimit(std::size_t bytes) { LabelLooks().SetLimit(bytes); }
void Clear()
{
    LabelLooks().Clear();
    GlyphLooks().Clear();
}
} // namespace ZoLabelLookCache

void ZoPaintLabelGlyphs(QPainter* painter, const ZoLaidOutText& glyphs, const QRectF& within,
                        const QColor& textColor, const QColor& outlineColor, double outlineWidth)
{
    const QPainterPath path = ZoGlyphsToPath(glyphs, within);
    if (path.isEmpty())
        return;
    const QPen pen = HaloPen(outlineColor, outlineWidth);
    const QBrush brush(textColor, Qt::SolidPattern);
    painter->setPen(pen);
    painter->setBrush(brush);
    // The halo is stroked under the glyphs, then the glyphs are filled on top.
    painter->strokePath(path, pen);
    painter->drawPath(path);
    painter->fillPath(path, brush);
}

void ZoPaintLabelText(QPainter* painter, const QString& text, const QFont& font, const QColor& textColor,
                      const QColor& outlineColor, double outlineWidth)
{
    ZoPaintLabelGlyphs(painter, ZoLayOutText(text, font, QFontMetricsF(font).lineSpacing()), QRectF(), textColor,
                       outlineColor, outlineWidth);
}
