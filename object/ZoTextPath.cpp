#include "object/ZoTextPath.h"

#include <QGlyphRun>
#include <QHash>
#include <QRawFont>
#include <QStringList>
#include <QTextLayout>
#include <mutex>

namespace
{
struct GlyphKey
{
    QString family;
    QString style;
    qreal pixelSize;
    int weight;
    int fontStyle;
    quint32 glyph;

    bool operator==(const GlyphKey& o) const
    {
        return glyph == o.glyph && pixelSize == o.pixelSize && weight == o.weight && fontStyle == o.fontStyle &&
               family == o.family && style == o.style;
    }
};

uint qHash(const GlyphKey& key, uint seed = 0)
{
    return ::qHash(key.family, seed) ^ ::qHash(key.glyph, seed) ^ ::qHash(key.pixelSize, seed) ^
           ::qHash(key.weight * 4 + key.fontStyle, seed);
}

// Bounded so that a host cycling through many fonts cannot grow it forever.
constexpr int kMaxCachedGlyphs = 50000;

class GlyphCache
{
public:
    QPainterPath Outline(const QRawFont& font, quint32 glyph)
    {
        const GlyphKey key{font.familyName(), font.styleName(), font.pixelSize(), font.weight(),
                           static_cast<int>(font.style()), glyph};
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            const auto found = m_outlines.constFind(key);
            if (found != m_outlines.constEnd())
                return found.value();
        }
        const QPainterPath outline = font.pathForGlyph(glyph);
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_outlines.size() >= kMaxCachedGlyphs)
            m_outlines.clear();
        m_outlines.insert(key, outline);
        return outline;
    }

private:
    std::mutex m_mutex;
    QHash<GlyphKey, QPainterPath> m_outlines;
};

GlyphCache& Cache()
{
    static GlyphCache cache;
    return cache;
}

void LayOutLine(std::vector<SZoPlacedGlyph>& glyphs, const QString& line, const QFont& font, qreal baseline)
{
    if (line.isEmpty())
        return;
    QTextLayout layout(line, font);
    layout.setCacheEnabled(false);
    layout.beginLayout();
    const QTextLine textLine = layout.createLine();
    layout.endLayout();
    if (!textLine.isValid())
        return;
    const QPointF shift(0.0, baseline - textLine.ascent());
    for (const QGlyphRun& run : layout.glyphRuns())
    {
        const QRawFont rawFont = run.rawFont();
        const QVector<quint32> indexes = run.glyphIndexes();
        const QVector<QPointF> positions = run.positions();
        for (int i = 0; i < indexes.size() && i < positions.size(); ++i)
            glyphs.push_back({rawFont, indexes.at(i), positions.at(i) + shift});
    }
}
} // namespace

std::vector<SZoPlacedGlyph> ZoLayOutText(const QString& text, const QFont& font, qreal lineSpacing)
{
    std::vector<SZoPlacedGlyph> glyphs;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i)
        LayOutLine(glyphs, lines.at(i), font, i * lineSpacing);
    return glyphs;
}

QPainterPath ZoGlyphOutline(const QRawFont& font, quint32 glyph)
{
    return Cache().Outline(font, glyph);
}

QPainterPath ZoGlyphsToPath(const std::vector<SZoPlacedGlyph>& glyphs, const QRectF& within)
{
    QPainterPath path;
    const bool everything = within.isNull();
    for (const SZoPlacedGlyph& placed : glyphs)
    {
        if (!everything && !within.contains(placed.position))
            continue;
        QPainterPath outline = ZoGlyphOutline(placed.font, placed.glyph);
        outline.translate(placed.position);
        path.addPath(outline);
    }
    return path;
}

QPainterPath ZoTextToPath(const QString& text, const QFont& font, qreal lineSpacing)
{
    return ZoGlyphsToPath(ZoLayOutText(text, font, lineSpacing), QRectF());
}
