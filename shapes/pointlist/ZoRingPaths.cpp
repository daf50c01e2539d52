#include "shapes/pointlist/ZoRingPaths.h"

#include <algorithm>
#include <cmath>

namespace ZoPointList
{
namespace
{
double SignedArea(const QPolygonF& ring)
{
    double twice = 0.0;
    for (int i = 0, n = ring.size(); i < n; ++i)
    {
        const QPointF& a = ring[i];
        const QPointF& b = ring[(i + 1) % n];
        twice += a.x() * b.y() - b.x() * a.y();
    }
    return twice * 0.5;
}

// A few vertices spread over the inner ring, all inside the outer one: a
// ring that only overlaps another is not taken for a hole in it.
bool LiesInside(const QPolygonF& inner, const QPolygonF& outer)
{
    const int n = inner.size();
    for (int k = 0; k < 3; ++k)
        if (!outer.containsPoint(inner[k * n / 3], Qt::OddEvenFill))
            return false;
    return true;
}
} // namespace

QPolygonF CloseRoundPole(const QPolygonF& ring, const CZoPointOffsets& world)
{
    if (world.worldWidth <= 0.0 || ring.size() < 3 ||
        std::fabs(ring.last().x() - ring.first().x()) <= world.worldWidth * 0.5)
        return ring;
    double ySum = 0.0;
    for (const QPointF& point : ring)
        ySum += point.y();
    const bool north = std::fabs(ySum / ring.size() - world.northEdge) < std::fabs(ySum / ring.size() - world.southEdge);
    const double edge = north ? world.northEdge : world.southEdge;
    QPolygonF closed = ring;
    closed << QPointF(ring.last().x(), edge) << QPointF(ring.first().x(), edge);
    return closed;
}

QPainterPath RingsPath(const std::vector<QPolygonF>& given, const CZoPointOffsets& world, bool oddEven)
{
    std::vector<QPolygonF> rings;
    rings.reserve(given.size());
    for (const QPolygonF& ring : given)
        if (ring.size() >= 2)
            rings.push_back(CloseRoundPole(ring, world));
    QPainterPath path;
    path.setFillRule(oddEven ? Qt::OddEvenFill : Qt::WindingFill);
    std::vector<QRectF> boxes;
    if (!oddEven)
        for (const QPolygonF& ring : rings)
            boxes.push_back(ring.boundingRect());
    for (std::size_t i = 0; i < rings.size(); ++i)
    {
        QPolygonF ring = rings[i];
        if (!oddEven)
        {
            int depth = 0;
            for (std::size_t j = 0; j < rings.size(); ++j)
                if (j != i && rings[j].size() >= 3 && boxes[j].contains(boxes[i]) && LiesInside(ring, rings[j]))
                    ++depth;
            // Parts turn one way and holes the other, whatever the data says.
            const bool hole = depth % 2 == 1;
            if (hole == (SignedArea(ring) > 0.0))
                std::reverse(ring.begin(), ring.end());
        }
        path.addPolygon(ring);
        path.closeSubpath();
    }
    return path;
}
} // namespace ZoPointList

namespace ZoPointList
{
std::vector<QPainterPath> ApartPieces(const QPainterPath& path)
{
    const QList<QPolygonF> rings = path.toSubpathPolygons();
    const int n = rings.size();
    if (n < 2)
        return {path};
    std::vector<QRectF> boxes;
    boxes.reserve(static_cast<std::size_t>(n));
    for (const QPolygonF& ring : rings)
        boxes.push_back(ring.boundingRect());
    // Rings whose boxes meet share a piece: union-find over a sweep from
    // west to east, each box against the boxes still open at its left edge.
    std::vector<int> piece(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i)
        piece[i] = i;
    const auto root = [&piece](int i) {
        while (piece[i] != i)
            i = piece[i] = piece[piece[i]];
        return i;
    };
    std::vector<int> order(piece);
    std::sort(order.begin(), order.end(), [&boxes](int a, int b) { return boxes[a].left() < boxes[b].left(); });
    std::vector<int> open;
    for (int i : order)
    {
        open.erase(std::remove_if(open.begin(), open.end(),
                                  [&](int j) { return boxes[j].right() < boxes[i].left(); }),
                   open.end());
        for (int j : open)
            if (boxes[j].top() <= boxes[i].bottom() && boxes[i].top() <= boxes[j].bottom())
                piece[root(j)] = root(i);
        open.push_back(i);
    }
    std::vector<int> index(static_cast<std::size_t>(n), -1);
    std::vector<QPainterPath> pieces;
    for (int i = 0; i < n; ++i)
    {
        int& slot = index[root(i)];
        if (slot < 0)
        {
            slot = static_cast<int>(pieces.size());
            pieces.emplace_back();
            pieces.back().setFillRule(path.fillRule());
        }
        pieces[slot].addPolygon(rings[i]);
        pieces[slot].closeSubpath();
    }
    if (pieces.size() == 1)
        return {path};
    return pieces;
}
} // namespace ZoPointList
