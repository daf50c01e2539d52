#pragma once

#include "object/CZoNameLabel.h"
#include "shapes/pointlist/TZoPointListItem.h"
#include "shapes/pointlist/ZoLineGeometry.h"
#include "shapes/pointlist/ZoPointListRules.h"

#include <QPainter>
#include <QPainterPathStroker>
#include <QtMath>
#include <cmath>

// How the two line kinds differ, as data.
struct SZoLineItemTraits
{
    double marginPixels;        // pixels around the stroke kept in the bounding rectangle for arrows and names
    bool drawsClosingEdge;      // a closed line is drawn with its first point repeated, not only hit there
    bool coversPointsOverScale; // the rectangle also covers the stroke of the points divided by the pixel scale
};

// The stroked lines of the polyline and the multi-line: every line of the
// owner drawn with the line style, its arrow, and the name along a segment.
// The hit area is the stroke of the lines as drawn, answered from a segment
// grid built when Qt first asks; the bounding rectangle is the stroke's,
// grown by the margin, so that it always holds the hit area.
template <class QtBase, class Owner>
class TZoLineItem : public TZoPointListItem<QtBase, Owner>
{
public:
    TZoLineItem(Owner* owner, const SZoLineItemTraits& traits)
        : TZoPointListItem<QtBase, Owner>(owner), m_traits(traits)
    {
    }

    QPainterPath shape() const override
    {
        if (this->Suppressed())
            return QPainterPath();
        QMutexLocker lock(&this->m_mutex);
        if (!m_shapeValid)
        {
            QPainterPath path;
            for (const QPolygonF& line : m_hitLines)
                path.addPolygon(line);
            QPainterPathStroker stroker;
            stroker.setWidth(2.0 * m_halfWidth);
            m_shape = m_hitLines.empty() ? QPainterPath() : stroker.createStroke(path);
            m_shapeValid = true;
        }
        return m_shape;
    }

    bool contains(const QPointF& point) const override
    {
        return IndexHits(QRectF(point, QSizeF(0.0, 0.0)));
    }

    // Qt asks which items lie under the pointer with a pixel-sized rectangle;
    // the segment grid answers that without stroking the whole line.
    bool collidesWithPath(const QPainterPath& path, Qt::ItemSelectionMode mode) const override
    {
        QRectF rect;
        if (mode != Qt::IntersectsItemShape || !ZoPointList::IsAxisAlignedRect(path, &rect))
            return QtBase::collidesWithPath(path, mode);
        return IndexHits(rect);
    }

    void RebuildShape(bool forced) override
    {
        if (!this->BeginRebuild(forced))
            return;
        const double s = this->Scale();
        std::vector<QPolygonF> drawn = this->DrawnLines(s);
        std::vector<QPolygonF> hit;
        hit.reserve(drawn.size());
        for (const QPolygonF& line : drawn)
        {
            if (line.isEmpty())
                continue;
            hit.push_back(line);
            if (this->m_owner->IsClosed())
                hit.back().append(line.first());
        }
        const bool anyPoint = !hit.empty();
        const double halfWidth = 0.75 * static_cast<double>(this->m_owner->Style().penWidth) * s;
        const double margin = m_traits.marginPixels * s;
        QRectF bounds = ZoPointList::StrokeBounds(hit, 1.0, halfWidth).adjusted(-margin, -margin, margin, margin);
        if (m_traits.coversPointsOverScale)
            bounds |= ZoPointList::StrokeBounds(hit, 1.0 / s, halfWidth).adjusted(-margin, -margin, margin, margin);
        {
            QMutexLocker lock(&this->m_mutex);
            this->m_drawn = std::move(drawn);
            m_hitLines = std::move(hit);
            m_halfWidth = halfWidth;
            m_shapeValid = false;
            m_index.Reset();
        }
        // Without points the old rectangle stays, as nothing is drawn in it.
        if (anyPoint)
            this->SetBounds(bounds);
        RebuildName(forced);
    }

    // The name sits above the middle of its segment, raised by the pen-style
    // value as the line kinds have always done.
    void RebuildName(bool forced) override
    {
        CZoMapObjectCore& core = this->m_owner->Core();
        if (!forced && this->Suppressed())
            return;
        CZoNameLabel& label = core.Label();
        if (!label.IsShownAt(core.CurrentLod(), this->m_owner->GetGraphicsMapLayer()))
            return;
        QPointF from;
        QPointF to;
        {
            QMutexLocker lock(&this->m_mutex);
            if (!LabelSegment(this->m_drawn, &from, &to))
                return;
        }
        const double s = this->Scale();
        const QPointF middle = (from + to) / (2.0 * s);
        label.Place(EZoLabelPlacement::AboveCentred, middle.x(),
                    middle.y() - static_cast<double>(this->m_owner->GetPenStyle()));
    }

private:
    bool IndexHits(const QRectF& rect) const
    {
        if (this->Suppressed())
            return false;
        QMutexLocker lock(&this->m_mutex);
        if (!m_index.IsBuilt())
            m_index.Build(m_hitLines);
        return m_index.HitsRect(rect, m_halfWidth);
    }

    // The segment the name follows, by the label placement: 0 the first,
    // 1 the middle, 2 the last segment of the first drawn line.
    bool LabelSegment(const std::vector<QPolygonF>& lines, QPointF* from, QPointF* to) const
    {
        const QPolygonF* line = nullptr;
        for (const QPolygonF& candidate : lines)
        {
            if (candidate.size() >= 2)
            {
                line = &candidate;
                break;
            }
        }
        if (!line)
            return false;
        const int count = line->size();
        int first = 0;
        switch (this->m_owner->GetLabelPosition())
        {
        case E_LABEL_FIRST_SEGMENT:
            first = 0;
            break;
        case E_LABEL_MIDDLE_SEGMENT:
            first = std::max(0, static_cast<int>(count * 0.5) - 1);
            break;
        case E_LABEL_LAST_SEGMENT:
            first = count - 2;
            break;
        default:
            return false;
        }
        *from = (*line)[first];
        *to = (*line)[first + 1];
        return !ZoPointList::SamePoint(*from, *to);
    }

    void PaintLines(QPainter* painter, const std::vector<QPolygonF>& drawn, double s, int lod) const override
    {
        if (drawn.empty())
            return;
        QPointF from;
        QPointF to;
        const bool labelled = LabelSegment(drawn, &from, &to);
        const LineStyle& style = this->m_owner->Style();
        QPen pen;
        style.ApplyToPen(pen, s);
        const bool closed = m_traits.drawsClosingEdge && this->m_owner->IsClosed();
        painter->save();
        painter->setBrush(Qt::NoBrush);
        for (const QPolygonF& open : drawn)
        {
            QPolygonF line = open;
            if (closed && !line.isEmpty())
                line.append(line.first());
            ZoPointList::DrawPolyline(painter, line, pen);
            if (style.arrowVisible && line.size() >= 2)
                PaintArrow(painter, line, pen, s, style.arrowAtEnd);
        }
        painter->restore();
        if (labelled)
            PaintLabel(painter, this->m_owner->Core().Label(), from, to, s, lod);
    }

    static void PaintArrow(QPainter* painter, const QPolygonF& line, const QPen& pen, double s, bool atEnd)
    {
        const int n = line.size();
        const QPointF tip = atEnd ? line[n - 1] : line[0];
        const QPointF base = atEnd ? line[n - 2] : line[1];
        const double length = std::min(50.0 * s, QLineF(tip, base).length() / 10.0);
        QPointF left;
        QPointF right;
        if (!ZoPointList::ArrowWings(tip, base, length, &left, &right))
            return;
        painter->setPen(pen);
        painter->drawLine(tip, left);
        painter->drawLine(tip, right);
    }

    void PaintLabel(QPainter* painter, const CZoNameLabel& label, const QPointF& from, const QPointF& to, double s,
                    int lod) const
    {
        const IZoGraphicsMapLayer* layer = this->m_owner->GetGraphicsMapLayer();
        if (!label.IsShownAt(lod, layer))
            return;
        const double length = QLineF(from, to).length();
        // The layer's second cache switch doubles as the fit check: names
        // longer than their segment are left out.
        // The label's own measurement, taken once: measuring the text at every
        // paint costs a long name a full shaping per frame.
        if (layer && layer->IsSecondShapeCache() && label.TextRect().width() * s > length)
            return;
        double angle = qRadiansToDegrees(std::atan2(to.y() - from.y(), to.x() - from.x()));
        if (angle < -90.0 || angle > 90.0)
        {
            angle += 180.0;
            while (angle >= 360.0)
                angle -= 360.0;
            while (angle <= -360.0)
                angle += 360.0;
        }
        const bool flipped = angle != qRadiansToDegrees(std::atan2(to.y() - from.y(), to.x() - from.x()));
        CZoNameLabel along = label;
        const double middle = length / (2.0 * s) * (flipped ? -1.0 : 1.0);
        along.Place(EZoLabelPlacement::AboveCentred, middle, -static_cast<double>(this->m_owner->GetPenStyle()));
        painter->save();
        painter->translate(from);
        painter->rotate(angle);
        this->m_owner->Core().PaintName(painter, along, s, lod);
        painter->restore();
    }

    const SZoLineItemTraits m_traits;
    std::vector<QPolygonF> m_hitLines;
    double m_halfWidth = 0.0;
    mutable QPainterPath m_shape;
    mutable bool m_shapeValid = false;
    mutable ZoPointList::CZoSegmentIndex m_index;
};
