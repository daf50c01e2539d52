#include "shapes/bow/CBowItemQtImpl.h"

#include "shapes/bow/CZoBowMapObject.h"

#include <QTransform>

#include <cmath>

namespace
{
constexpr double kPi = 3.141592653589793;
} // namespace

QPointF ZoBowEndPoint(const QRectF& rect, double degrees)
{
    const double e = degrees * kPi / 180.0;
    return rect.center() + QPointF(rect.width() * 0.5 * std::cos(e), -rect.height() * 0.5 * std::sin(e));
}

CBowItemQtImpl::CBowItemQtImpl(CZoBowMapObject* owner) : TZoOutlineItem(owner, kTraits)
{
    setRotation(owner->GetRotation());
}

QPainterPath CBowItemQtImpl::BuildShape(const QRectF& outline, const QRectF& rect) const
{
    const double start = m_owner->GetStartAngle();
    const double span = m_owner->GetSpanAngle();
    QPainterPath path;
    switch (m_owner->GetKind())
    {
    case EZoBowKind::Pie:
        // From the centre, the item origin, to the arc's start and along it.
        path.arcTo(rect, start, span);
        break;
    case EZoBowKind::Arc:
    case EZoBowKind::Chord:
    {
        // The closed chord outline: from the arc's end straight to its start,
        // then along the arc. The arc is hit like its chord.
        // An ellipse less than a pixel wide or high has no outline to hit.
        if (std::trunc(outline.width()) * 0.5 <= 1e-9 || std::trunc(outline.height()) * 0.5 <= 1e-9)
            break;
        // Where arcTo ends, so that the chord closes exactly on the arc.
        path.moveTo(ZoBowEndPoint(rect, start + span));
        path.arcTo(rect, start, span);
        break;
    }
    }
    return path;
}

void CBowItemQtImpl::PaintShape(QPainter* painter, const QRectF& outline, double s) const
{
    painter->scale(s, s);
    const QRectF rect = QTransform::fromScale(1.0 / s, 1.0 / s).mapRect(outline);
    ZoApplySurfaceStyle(painter, *m_owner, 1.0, rect);
    const int start = static_cast<int>(m_owner->GetStartAngle() * 16);
    const int span = static_cast<int>(m_owner->GetSpanAngle() * 16);
    switch (m_owner->GetKind())
    {
    case EZoBowKind::Pie: painter->drawPie(rect, start, span); break;
    case EZoBowKind::Arc: painter->drawArc(rect, start, span); break; // the pen only: an arc is never filled
    case EZoBowKind::Chord: painter->drawChord(rect, start, span); break;
    }
}
