#include "object/CZoNameLabel.h"

#include "object/ZoDevicePixels.h"
#include "object/ZoLabelLook.h"
#include "object/ZoTextPath.h"

#include <ZoGraphics/IZoGraphicsMapLayer.h>
#include <ZoGraphics/IZoGraphicsMapObject.h>
#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/ZoGraphicsConstant.h>

#include <QFontMetrics>
#include <QFontMetricsF>
#include <QPainter>
#include <QStringList>
#include <cmath>

namespace
{
// One font with the default request, made once the application exists and
// shared by every label. Copying the shared constant would carry the
// resolution it was built with before any application existed.
const QFont& DefaultNameFont()
{
    static const QFont font = [] {
        const QFont& request = ZoGraphicsConstantNS::FONT_DEFAULT_NAME;
        QFont made;
        made.setFamily(request.family());
        made.setPointSize(request.pointSize());
        if (request.weight() >= 0)
            made.setWeight(request.weight());
        made.setItalic(request.italic());
        return made;
    }();
    return font;
}

constexpr double kScaleUnit = 1024.0;
constexpr double kPhaseUnit = 8.0;

// The painter maps label pixels to device pixels by scaling and moving only:
// the case a finished look can serve.
bool ScalesOnly(const QTransform& device)
{
    return device.type() <= QTransform::TxScale && device.m11() > 0.0 && device.m22() > 0.0 &&
           std::isfinite(device.m11()) && std::isfinite(device.m22()) && std::isfinite(device.dx()) &&
           std::isfinite(device.dy());
}

// A finished look is a picture of the label at the device's scale; past this
// many device pixels a side (a label blown up by a huge render scale or
// outline) the picture would cost more than drawing the outlines directly,
// and its memory would grow with the square of the scale.
constexpr double kLargestLookSide = 2048.0;
} // namespace

CZoNameLabel::CZoNameLabel()
    : textColor(ZoGraphicsConstantNS::CLR_DEFAULT_NAME),
      outlineColor(ZoGraphicsConstantNS::CLR_DEFAULT_NAME_OUTLINE),
      font(DefaultNameFont())
{
}

void CZoNameLabel::SetText(const QString& newText)
{
    text = newText;
    Forget();
}

void CZoNameLabel::SetFont(const QFont& newFont)
{
    font = newFont;
    Forget();
}

void CZoNameLabel::SetOffset(float newOffset)
{
    offset = newOffset;
    Forget();
}

void CZoNameLabel::Forget()
{
    m_measured = false;
    m_look.reset();
    m_glyphs.reset();
}

void CZoNameLabel::Release()
{
    if (!m_measured && !m_glyphs && m_look.expired())
        return; // nothing held, the common case of a hidden label
    ZoLabelLookCache::Forget(m_look.lock());
    Forget();
}

void CZoNameLabel::Measure() const
{
    if (m_measured)
        return;
    const QFontMetrics metrics(font);
    int widest = 0;
    int lines = 0;
    for (const QString& line : text.split(QLatin1Char('\n')))
    {
        widest = std::max(widest, metrics.horizontalAdvance(line));
        ++lines;
    }
    m_textWidth = widest;
    m_textHeight = metrics.height();
    m_ascent = metrics.ascent();
    m_blockHeight = (lines - 1) * QFontMetricsF(font).lineSpacing() + metrics.height();
    m_measured = true;
}

void CZoNameLabel::Place(EZoLabelPlacement placement, double x, double y)
{
    Measure();
    const double w = m_textWidth;
    const double h = m_textHeight;
    const double g = offset;

    double ox = x;
    double oy = y;
    switch (placement)
    {
    case EZoLabelPlacement::Centred: ox = x - w / 2; oy = y + h / 2 - g; break;
    case EZoLabelPlacement::AboveStart: ox = x; oy = y - g; break;
    case EZoLabelPlacement::AboveCentred: ox = x - w / 2; oy = y - g; break;
    case EZoLabelPlacement::AboveEnd: ox = x - w; oy = y - g; break;
    case EZoLabelPlacement::BelowStart: ox = x; oy = y + g + h; break;
    case EZoLabelPlacement::BelowCentred: ox = x - w / 2; oy = y + g + h; break;
    case EZoLabelPlacement::BelowEnd: ox = x - w; oy = y + g + h; break;
    case EZoLabelPlacement::RightCentre: ox = x + g; oy = y + h / 2; break;
    case EZoLabelPlacement::RightBelow: ox = x + g; oy = y + h; break;
    case EZoLabelPlacement::RightBaseline: ox = x + g; oy = y; break;
    case EZoLabelPlacement::LeftCentre: ox = x - g - w; oy = y + h / 2; break;
    case EZoLabelPlacement::LeftBelow: ox = x - g - w; oy = y + h; break;
    case EZoLabelPlacement::LeftBaseline: ox = x - g - w; oy = y; break;
    }
    // Origins pass through single precision, as the label record keeps them.
    originX = static_cast<float>(ox);
    originY = static_cast<float>(oy);
}

bool CZoNameLabel::FitsALook(const QTransform& device) const
{
    const QRectF rect = TextRect().adjusted(-outlineWidth, -outlineWidth, outlineWidth, outlineWidth);
    return rect.width() * device.m11() <= kLargestLookSide && rect.height() * device.m22() <= kLargestLookSide;
}

QRectF CZoNameLabel::TextRect() const
{
    Measure();
    return QRectF(originX, originY - m_ascent, m_textWidth, m_blockHeight);
}

bool CZoNameLabel::IsShownAt(int lod, const IZoGraphicsMapLayer* layer) const
{
    // The switch first: the text lives elsewhere in memory, and a view change
    // asks this of every object.
    if (!visible || lod < minLod || lod > maxLod || text.isEmpty())
        return false;
    if (layer && (lod < layer->GetNameMinLodLevel() || lod > layer->GetNameMaxLodLevel()))
        return false;
    return true;
}

void CZoNameLabel::Draw(QPainter* painter) const
{
    if (!painter || (originX == 0.0 && originY == 0.0) || text.isEmpty())
        return;
    if (clipToRect && !(clipRect.isValid() && !clipRect.isEmpty() && clipRect.contains(QPointF(originX, originY))))
        return;

    const CZoDevicePixels pixels(painter);
    if (!pixels.IsValid())
        return; // a painter that squashes everything flat shows nothing
    const QTransform& device = pixels.FromPainter();
    if (!ScalesOnly(device) || !FitsALook(device))
    {
        DrawOutlines(painter, pixels.AreaInPainter());
        return;
    }

    // The look is drawn at the device's scale and at the origin's sub-pixel
    // phase, then put down pixel for pixel.
    const QPointF at = device.map(QPointF(originX, originY));
    double wholeX = std::floor(at.x());
    double wholeY = std::floor(at.y());
    int phaseX = static_cast<int>(std::lround((at.x() - wholeX) * kPhaseUnit));
    int phaseY = static_cast<int>(std::lround((at.y() - wholeY) * kPhaseUnit));
    if (phaseX == kPhaseUnit)
    {
        phaseX = 0;
        wholeX += 1.0;
    }
    if (phaseY == kPhaseUnit)
    {
        phaseY = 0;
        wholeY += 1.0;
    }
    const int scaleX = static_cast<int>(std::lround(device.m11() * kScaleUnit));
    const int scaleY = static_cast<int>(std::lround(device.m22() * kScaleUnit));
    if (scaleX <= 0 || scaleY <= 0 || std::abs(wholeX) > 1e9 || std::abs(wholeY) > 1e9)
        return;
    const bool antialias = painter->testRenderHint(QPainter::Antialiasing);

    std::shared_ptr<const SZoLabelLook> look = m_look.lock();
    if (!look || look->key.scaleX != scaleX || look->key.scaleY != scaleY || look->key.phaseX != phaseX ||
        look->key.phaseY != phaseY || look->key.antialias != antialias || look->key.text != text ||
        look->key.textColor != textColor.rgba() || look->key.outlineColor != outlineColor.rgba() ||
        look->key.outlineWidth != outlineWidth || look->key.font != font)
    {
        SZoLabelLookKey key;
        key.text = text;
        key.font = font;
        key.textColor = textColor.rgba();
        key.outlineColor = outlineColor.rgba();
        key.outlineWidth = outlineWidth;
        key.scaleX = scaleX;
        key.scaleY = scaleY;
        key.phaseX = phaseX;
        key.phaseY = phaseY;
        key.antialias = antialias;
        look = ZoLabelLookCache::Obtain(key, Glyphs());
        m_look = look;
    }
    else
    {
        look->MarkUsed();
    }
    if (look->image.isNull())
        return;

    painter->save();
    pixels.Enter(painter);
    painter->drawImage(QPointF(wholeX + look->offset.x(), wholeY + look->offset.y()), look->image);
    painter->restore();
}

const std::vector<SZoPlacedGlyph>& CZoNameLabel::Glyphs() const
{
    if (!m_glyphs)
        m_glyphs = std::make_shared<const std::vector<SZoPlacedGlyph>>(
            ZoLayOutText(text, font, QFontMetricsF(font).lineSpacing()));
    return *m_glyphs;
}

void CZoNameLabel::DrawOutlines(QPainter* painter, const QRectF& visible) const
{
    // A long name reaches far beyond the view, and stroking all of it would
    // take seconds and gigabytes: only glyphs that can touch what the painter
    // shows are drawn. A glyph reaches at most this far from its origin
    // (fallback fonts included), its halo around it.
    if (visible.isEmpty())
        return;
    const QFontMetricsF metrics(font);
    const double reach = 4.0 * metrics.height() + metrics.maxWidth() + 2.5 * outlineWidth;
    const QRectF within = visible.translated(-originX, -originY).adjusted(-reach, -reach, reach, reach);
    painter->save();
    painter->translate(originX, originY);
    ZoPaintLabelGlyphs(painter, Glyphs(), within, textColor, outlineColor, outlineWidth);
    painter->restore();
}

bool ZoSurfaceLabelAnchor(unsigned int position, unsigned int alignment, double w, double h, QPointF* anchor,
                          EZoLabelPlacement* placement)
{
    if (position > E_LABEL_CENTRE || alignment > E_LABEL_ALIGN_END)
        return false;
    if (position == E_LABEL_CENTRE)
    {
        *anchor = QPointF(0.0, 0.0);
        *placement = EZoLabelPlacement::Centred;
        return true;
    }
    // Along a side, alignment runs from its start (left or top end) to its end.
    const double along = (static_cast<double>(alignment) - E_LABEL_ALIGN_MIDDLE) * 0.5;
    static const EZoLabelPlacement kPlacements[4][3] = {
        {EZoLabelPlacement::AboveStart, EZoLabelPlacement::AboveCentred, EZoLabelPlacement::AboveEnd},
        {EZoLabelPlacement::BelowStart, EZoLabelPlacement::BelowCentred, EZoLabelPlacement::BelowEnd},
        {EZoLabelPlacement::LeftBelow, EZoLabelPlacement::LeftCentre, EZoLabelPlacement::LeftBaseline},
        {EZoLabelPlacement::RightBelow, EZoLabelPlacement::RightCentre, EZoLabelPlacement::RightBaseline},
    };
    switch (position)
    {
    case E_LABEL_TOP: *anchor = QPointF(along * w, -h / 2); break;
    case E_LABEL_BOTTOM: *anchor = QPointF(along * w, h / 2); break;
    case E_LABEL_LEFT: *anchor = QPointF(-w / 2, along * h); break;
    default: *anchor = QPointF(w / 2, along * h); break;
    }
    *placement = kPlacements[position][alignment];
    return true;
}
