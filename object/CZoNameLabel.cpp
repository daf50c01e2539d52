#include "object/CZoNameLabel.h"

#include "object/ZoTextPath.h"

#include <ZoGraphics/IZoGraphicsMapLayer.h>
#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/ZoGraphicsConstant.h>

#include <QFontMetrics>
#include <QFontMetricsF>
#include <QPainter>
#include <QStringList>

namespace
{
// A fresh font with the default request. Copying the shared constant would
// carry the resolution it was built with before any application existed.
QFont DefaultNameFont()
{
    const QFont& request = ZoGraphicsConstantNS::FONT_DEFAULT_NAME;
    QFont font;
    font.setFamily(request.family());
    font.setPointSize(request.pointSize());
    if (request.weight() >= 0)
        font.setWeight(request.weight());
    font.setItalic(request.italic());
    return font;
}

int WidestLine(const QFontMetrics& metrics, const QString& text)
{
    int widest = 0;
    for (const QString& line : text.split(QLatin1Char('\n')))
        widest = std::max(widest, metrics.horizontalAdvance(line));
    return widest;
}
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
    Layout();
}

void CZoNameLabel::SetFont(const QFont& newFont)
{
    font = newFont;
    Layout();
}

void CZoNameLabel::SetOffset(float newOffset)
{
    offset = newOffset;
    Layout();
}

void CZoNameLabel::Layout()
{
    QPainterPath path = ZoTextToPath(text, font, QFontMetricsF(font).lineSpacing());
    path.translate(originX, originY);
    textPath = path;
    boundingRect = textPath.boundingRect();
    const QFontMetrics metrics(font);
    m_textWidth = WidestLine(metrics, text);
    m_textHeight = metrics.height();
}

void CZoNameLabel::Place(EZoLabelPlacement placement, double x, double y)
{
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
    ox = static_cast<float>(ox);
    oy = static_cast<float>(oy);

    // Moving a bounding rectangle gives exactly the moved path's, without
    // walking the glyph outlines again.
    textPath.translate(ox - originX, oy - originY);
    boundingRect.translate(ox - originX, oy - originY);
    originX = ox;
    originY = oy;
}

bool CZoNameLabel::IsShownAt(int lod, const IZoGraphicsMapLayer* layer) const
{
    if (text.isEmpty() || !visible || lod < minLod || lod > maxLod)
        return false;
    if (layer && (lod < layer->GetNameMinLodLevel() || lod > layer->GetNameMaxLodLevel()))
        return false;
    return true;
}

void CZoNameLabel::Draw(QPainter* painter) const
{
    if (!painter || (originX == 0.0 && originY == 0.0))
        return;
    if (clipToRect && !(clipRect.isValid() && !clipRect.isEmpty() && clipRect.contains(QPointF(originX, originY))))
        return;

    painter->save();
    const QPen pen = IsEqual(outlineWidth, 0.0) ? QPen(Qt::NoPen)
                                                : QPen(QBrush(outlineColor), outlineWidth * 2.5, Qt::SolidLine);
    const QBrush brush(textColor, Qt::SolidPattern);
    painter->setPen(pen);
    painter->setBrush(brush);
    painter->setFont(font);
    if (!textPath.isEmpty())
    {
        // The halo is stroked under the glyphs, then the glyphs are filled on top.
        painter->strokePath(textPath, pen);
        painter->drawPath(textPath);
        painter->fillPath(textPath, brush);
    }
    painter->restore();
}

bool ZoSurfaceLabelAnchor(unsigned int position, unsigned int alignment, double w, double h, QPointF* anchor,
                          EZoLabelPlacement* placement)
{
    if (position > 4 || alignment > 2)
        return false;
    if (position == 4)
    {
        *anchor = QPointF(0.0, 0.0);
        *placement = EZoLabelPlacement::Centred;
        return true;
    }
    // Along a side, alignment runs from its start (left or top end) to its end.
    const double along = (static_cast<double>(alignment) - 1.0) * 0.5;
    static const EZoLabelPlacement kPlacements[4][3] = {
        {EZoLabelPlacement::AboveStart, EZoLabelPlacement::AboveCentred, EZoLabelPlacement::AboveEnd},
        {EZoLabelPlacement::BelowStart, EZoLabelPlacement::BelowCentred, EZoLabelPlacement::BelowEnd},
        {EZoLabelPlacement::LeftBelow, EZoLabelPlacement::LeftCentre, EZoLabelPlacement::LeftBaseline},
        {EZoLabelPlacement::RightBelow, EZoLabelPlacement::RightCentre, EZoLabelPlacement::RightBaseline},
    };
    switch (position)
    {
    case 0: *anchor = QPointF(along * w, -h / 2); break;
    case 1: *anchor = QPointF(along * w, h / 2); break;
    case 2: *anchor = QPointF(-w / 2, along * h); break;
    default: *anchor = QPointF(w / 2, along * h); break;
    }
    *placement = kPlacements[position][alignment];
    return true;
}
