#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPoint>
#include <QRectF>
#include <QString>
#include <atomic>
#include <cstddef>
#include <memory>
#include <vector>

// What a label's finished look depends on: its text and style, the scale of
// the device it is drawn to, the sub-pixel phase of its origin there, and the
// antialiasing switch.
struct SZoLabelLookKey
{
    QString text;
    QFont font;
    QRgb textColor = 0;
    QRgb outlineColor = 0;
    double outlineWidth = 0.0;
    int scaleX = 0; // device pixels per label pixel, in 1/1024
    int scaleY = 0;
    int phaseX = 0; // origin's offset from a whole device pixel, in 1/8
    int phaseY = 0;
    bool antialias = true;

    bool operator==(const SZoLabelLookKey& o) const;
    bool operator!=(const SZoLabelLookKey& o) const { return !(*this == o); }
};

// A label drawn once, halo and glyphs, in device pixels: the image's top-left
// pixel sits at offset from the whole device pixel of the label's origin.
struct SZoLabelLook
{
    SZoLabelLookKey key;
    QImage image;
    QPoint offset;

    // Set by labels drawing a look they already hold, read by the cache.
    void MarkUsed() const { used.store(true, std::memory_order_relaxed); }
    bool TakeUsedMark() const { return used.exchange(false, std::memory_order_relaxed); }
    mutable std::atomic<bool> used{false};
};

// Finished label looks shared by every label and bounded in bytes; the least
// recently used go first. Labels keep only weak references, so a look that
// leaves the cache is freed at once. A label drawn for the first time is put
// together from looks of its glyphs, a second cache shared by all labels.
struct SZoPlacedGlyph;
using ZoLaidOutText = std::vector<SZoPlacedGlyph>;

namespace ZoLabelLookCache
{
// The look for key, put together now from the glyphs of its text if the
// cache does not hold it.
std::shared_ptr<const SZoLabelLook> Obtain(const SZoLabelLookKey& key, const ZoLaidOutText& glyphs);
// Drops look from the cache (a hidden label gives its look back).
void Forget(const std::shared_ptr<const SZoLabelLook>& look);
// Bytes of label looks held; the bound, 64 MiB unless changed.
std::size_t Bytes();
// Bytes of glyph looks held (bounded at 16 MiB).
std::size_t GlyphBytes();
std::size_t Limit();
void SetLimit(std::size_t bytes);
void Clear();
} // namespace ZoLabelLookCache

// Draws the label text the way every label looks: the halo stroked, then the
// text drawn and filled over it. Used where a look cannot be (rotated or
// sheared painters); looks are made to match it.
void ZoPaintLabelText(QPainter* painter, const QString& text, const QFont& font, const QColor& textColor,
                      const QColor& outlineColor, double outlineWidth);
// The same for laid-out glyphs, drawing only those whose origin lies within
// a rectangle of the painter's coordinates (all of them for a null one).
void ZoPaintLabelGlyphs(QPainter* painter, const ZoLaidOutText& glyphs, const QRectF& within,
                        const QColor& textColor, const QColor& outlineColor, double outlineWidth);
