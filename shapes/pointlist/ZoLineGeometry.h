#pragma once

#include <QLineF>
#include <QPolygonF>
#include <QRectF>
#include <vector>

class QPainter;
class QPainterPath;
class QPen;

namespace ZoPointList
{
// Bounding rectangle of every point of every line; null without points.
QRectF BoundsOf(const std::vector<QPolygonF>& lines);

// The lines without points that repeat the one before. The integer pixels of
// a low zoom level repeat most of a detailed outline's points, and drawing
// them costs time for no pixel; a line that shrinks to one point keeps two,
// so that what its pen draws stays.
std::vector<QPolygonF> WithoutRepeats(const std::vector<QPolygonF>& lines);

// Bounding rectangle of the stroke QPainterPathStroker makes of the lines
// (square caps, bevel joins) with half width halfWidth, after every point is
// multiplied by a positive factor; null without points. Computed from the
// points: no outline is built.
QRectF StrokeBounds(const std::vector<QPolygonF>& lines, double factor, double halfWidth);

// Draws an open polyline as QPainter::drawPolyline does. Points closer than
// a quarter of a device pixel to the last one kept are dropped. Qt strokes a
// long wide polyline as one huge outline, many times slower than drawing it
// thin, so a solid pen a little wider than a pixel goes through a widened
// hairline (a coverage mask for dense lines on raster devices, two shifted
// hairlines otherwise), and wider pens stroke it in short overlapping runs.
void DrawPolyline(QPainter* painter, const QPolygonF& points, const QPen& pen);

// The two wing points of an arrow whose tip and base are given: at distance
// length from the tip, turned 22.5 degrees either side of the direction from
// the tip towards the base. False when tip and base coincide.
bool ArrowWings(const QPointF& tip, const QPointF& base, double length, QPointF* left, QPointF* right);

// Whether the path is a rectangle with sides along the axes (as Qt builds to
// ask which items lie under a pixel), and which.
bool IsAxisAlignedRect(const QPainterPath& path, QRectF* rect);

// Segments of polylines bucketed on a grid: a point query visits only the
// segments near it, so hovering over a line of a million points stays cheap.
class CZoSegmentIndex
{
public:
    // Each line is open; closed lines repeat their first point at the end.
    // The index reads the lines in place: they must stay unchanged until the
    // next Reset or Build.
    void Build(const std::vector<QPolygonF>& lines);
    bool IsBuilt() const { return m_built; }
    void Reset();
    // True when a segment passes within halfWidth of point.
    bool Hits(const QPointF& point, double halfWidth) const;
    // True when a segment passes within halfWidth of the rectangle: the
    // stroke meets it. Qt asks with a pixel-sized rectangle on every mouse
    // move; stroking the whole line to answer would take seconds.
    bool HitsRect(const QRectF& rect, double halfWidth) const;

private:
    bool SegmentNear(int segment, const QRectF& rect, double halfWidth) const;
    QLineF Segment(int id) const;

    bool m_built = false;
    const std::vector<QPolygonF>* m_lines = nullptr;
    std::vector<int> m_lineStart; // id of each line's first segment
    int m_segmentCount = 0;
    std::vector<int> m_cellStart; // CSR over cells: segments of cell c are m_cellSegments[start[c]..start[c+1])
    std::vector<int> m_cellSegments;
    std::vector<int> m_longSegments; // spanning too many cells: always tested
    QRectF m_bounds;
    double m_cellSize = 1.0;
    int m_columns = 0;
    int m_rows = 0;
};
} // namespace ZoPointList
