#include "shapes/pointlist/ZoLineGeometry.h"

#include "shapes/pointlist/ZoPointListRules.h"
#include "object/ZoDevicePixels.h"
#include "object/ZoPixelValues.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>
#include <algorithm>
#include <cmath>
#include <cstring>

namespace
{
// Points per run when a wide pen strokes a line piecewise.
constexpr int kStrokeRun = 48;
// A segment touching more cells than this is tested on every query.
constexpr long kMaxCellsPerSegment = 64;
constexpr long kMaxCells = 1L << 22;
constexpr double kSegmentsPerCell = 32.0;
constexpr double kWingAngle = 22.5;

// A line up to this many device pixels wide is drawn as two hairlines, each
// shifted half the extra width to either side of every segment: the
// hairline rasteriser is many times faster than stroking an outline, and
// two opaque one-pixel lines side by side cover what the wide pen would.
// Beyond two pixels they would leave a gap between them.
constexpr double kMaxTwinWidth = 2.0;

// A dense line up to this many device pixels wide is drawn once as a
// hairline into a coverage mask, which is then widened and tinted in one
// pass over the mask: one hairline's cost plus a few nanoseconds a pixel.
constexpr double kMaxMaskWidth = 2.0;
// The mask pays per pixel of the line's device rectangle, the hairlines per
// segment; below this many pixels a segment the mask is the cheaper.
constexpr double kMaskPixelsPerSegment = 40.0;
// How far the coverage grows along its own gradient, per pixel of extra
// width on each side: fitted against Qt's own stroke of dense and sparse
// lines.
constexpr double kGradientGain = 1.4;

QPointF UnitNormal(const QPointF& a, const QPointF& b)
{
    const QPointF d = b - a;
    const double length = std::sqrt(d.x() * d.x() + d.y() * d.y());
    return length > 0.0 ? QPointF(-d.y() / length, d.x() / length) : QPointF(0.0, 0.0);
}

void DrawTwinHairlines(QPainter* painter, const QPolygonF& points, const QPen& pen, double shift)
{
    // Each vertex moves along the bisector of its two segments' normals, as
    // far as keeps both segments shift away (limited at sharp turns).
    const int n = points.size();
    QPolygonF left(n);
    QPolygonF right(n);
    const QPointF* p = points.constData();
    QPointF* l = left.data();
    QPointF* r = right.data();
    QPointF before = UnitNormal(p[0], p[1]);
    for (int i = 0; i < n; ++i)
    {
        const QPointF after = i + 1 < n ? UnitNormal(p[i], p[i + 1]) : before;
        QPointF bisector = before + after;
        const double dot = bisector.x() * after.x() + bisector.y() * after.y();
        bisector = dot > 0.5 ? bisector * (shift / dot) : after * shift;
        l[i] = p[i] + bisector;
        r[i] = p[i] - bisector;
        before = after;
    }
    QPen hairline = pen;
    hairline.setCosmetic(true);
    hairline.setWidthF(1.0);
    painter->setPen(hairline);
    painter->drawPolyline(left);
    painter->drawPolyline(right);
}

// Widens the antialiased hairline's coverage (alpha of mask) where it falls
// off, by gain times its gradient, and writes the pen colour premultiplied
// by the result back into mask.
void WidenCoverage(QImage* mask, QRgb color, double gain)
{
    const int w = mask->width();
    const int h = mask->height();
    thread_local std::vector<int> rows;
    rows.assign(static_cast<std::size_t>(4 * (w + 2)), 0);
    int* prev = rows.data();
    int* cur = prev + (w + 2);
    int* next = cur + (w + 2);
    int* widened = next + (w + 2);
    auto load = [&](int y, int* row) {
        if (y >= h)
        {
            std::fill(row, row + w + 2, 0);
            return;
        }
        const QRgb* s = reinterpret_cast<const QRgb*>(mask->constScanLine(y));
        for (int x = 0; x < w; ++x)
            row[x + 1] = static_cast<int>(s[x] >> 24);
    };
    load(0, cur);
    load(1, next);
    const int k = static_cast<int>(std::lround(gain * 256.0));
    QRgb tinted[256];
    const QRgb premultiplied = qPremultiply(color);
    for (int v = 0; v < 256; ++v)
        tinted[v] = qRgba((qRed(premultiplied) * v + 127) / 255, (qGreen(premultiplied) * v + 127) / 255,
                          (qBlue(premultiplied) * v + 127) / 255, (qAlpha(premultiplied) * v + 127) / 255);
    for (int y = 0; y < h; ++y)
    {
        // Branch-free, so that the compiler can vectorise it.
        for (int x = 1; x <= w; ++x)
        {
            const int gx = std::abs(cur[x + 1] - cur[x - 1]);
            const int gy = std::abs(next[x] - prev[x]);
            // max + min / 2 stands in for the gradient's length
            const int g = std::max(gx, gy) + (std::min(gx, gy) >> 1);
            widened[x] = std::min(255, cur[x] + ((g * k) >> 9));
        }
        QRgb* d = reinterpret_cast<QRgb*>(mask->scanLine(y));
        for (int x = 1; x <= w; ++x)
            d[x - 1] = tinted[widened[x]];
        std::swap(prev, cur);
        std::swap(cur, next);
        load(y + 2, next);
    }
}

// Draws a dense antialiased line of a width up to kMaxMaskWidth through a
// widened hairline mask on a raster device. False when the painter or the
// line does not suit it (nothing drawn then).
bool DrawThroughMask(QPainter* painter, const QPolygonF& points, const QPen& pen, double deviceWidth)
{
    QPaintEngine* engine = painter->paintEngine();
    if (!engine || engine->type() != QPaintEngine::Raster || !painter->testRenderHint(QPainter::Antialiasing) ||
        painter->compositionMode() != QPainter::CompositionMode_SourceOver || deviceWidth > kMaxMaskWidth)
        return false;
    const CZoDevicePixels pixels(painter);
    if (!pixels.IsValid())
        return false;
    const QTransform& device = pixels.FromPainter();
    const QRect area = (device.mapRect(points.boundingRect()).adjusted(-2.0, -2.0, 2.0, 2.0) &
                        pixels.Area().adjusted(-1.0, -1.0, 1.0, 1.0))
                           .toAlignedRect();
    if (area.isEmpty())
        return true;
    if (static_cast<double>(area.width()) * area.height() > kMaskPixelsPerSegment * (points.size() - 1))
        return false;

    thread_local QImage buffer;
    if (buffer.width() < area.width() || buffer.height() < area.height())
        buffer = QImage(std::max(buffer.width(), area.width()), std::max(buffer.height(), area.height()),
                        QImage::Format_ARGB32_Premultiplied);
    if (buffer.isNull())
        return false;
    QImage mask(buffer.bits(), area.width(), area.height(), buffer.bytesPerLine(),
                QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < area.height(); ++y)
        std::memset(mask.scanLine(y), 0, static_cast<std::size_t>(area.width()) * 4);
    {
        QPainter hairline(&mask);
        hairline.setRenderHint(QPainter::Antialiasing);
        hairline.setTransform(device * QTransform::fromTranslate(-area.x(), -area.y()));
        QPen white(Qt::white, 1.0);
        white.setCosmetic(true);
        hairline.setPen(white);
        hairline.drawPolyline(points);
    }
    WidenCoverage(&mask, pen.color().rgba(), kGradientGain * (deviceWidth - 1.0) / 2.0);
    painter->save();
    pixels.Enter(painter);
    painter->drawImage(area.topLeft(), mask);
    painter->restore();
    return true;
}

QPolygonF ThinForDevice(const QPolygonF& points, double tolerance)
{
    if (points.size() < 3 || !(tolerance > 0.0))
        return points;
    const int n = points.size();
    const QPointF* p = points.constData();
    QPolygonF kept(n);
    QPointF* out = kept.data();
    int count = 0;
    out[count++] = p[0];
    for (int i = 1; i < n - 1; ++i)
    {
        const QPointF& last = out[count - 1];
        if (std::fabs(p[i].x() - last.x()) >= tolerance || std::fabs(p[i].y() - last.y()) >= tolerance)
            out[count++] = p[i];
    }
    out[count++] = p[n - 1];
    kept.resize(count);
    return kept;
}
} // namespace

namespace ZoPointList
{
QRectF BoundsOf(const std::vector<QPolygonF>& lines)
{
    QRectF bounds;
    bool any = false;
    double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
    for (const QPolygonF& line : lines)
    {
        for (const QPointF& p : line)
        {
            if (!any)
            {
                x0 = x1 = p.x();
                y0 = y1 = p.y();
                any = true;
                continue;
            }
            x0 = std::min(x0, p.x());
            x1 = std::max(x1, p.x());
            y0 = std::min(y0, p.y());
            y1 = std::max(y1, p.y());
        }
    }
    return any ? QRectF(QPointF(x0, y0), QPointF(x1, y1)) : QRectF();
}

std::vector<QPolygonF> WithoutRepeats(const std::vector<QPolygonF>& lines)
{
    std::vector<QPolygonF> kept;
    kept.reserve(lines.size());
    for (const QPolygonF& line : lines)
    {
        QPolygonF points;
        points.reserve(line.size());
        for (const QPointF& p : line)
            if (points.isEmpty() || points.last() != p)
                points.append(p);
        if (points.size() == 1 && line.size() > 1)
            points.append(points.first());
        kept.push_back(std::move(points));
    }
    return kept;
}

QRectF StrokeBounds(const std::vector<QPolygonF>& lines, double factor, double halfWidth)
{
    if (std::all_of(lines.begin(), lines.end(), [](const QPolygonF& line) { return line.isEmpty(); }))
        return QRectF();
    const QRectF points = BoundsOf(lines);
    double x0 = points.left() * factor - halfWidth;
    double y0 = points.top() * factor - halfWidth;
    double x1 = points.right() * factor + halfWidth;
    double y1 = points.bottom() * factor + halfWidth;
    // Joins stay within the half width of their vertex; a square cap's
    // corners reach further, by up to the half width times the root of two.
    auto cap = [&](const QPointF& end, const QPointF& before) {
        const QPointF along = end - before;
        const double length = std::hypot(along.x(), along.y());
        if (!(length > 0.0))
            return;
        const QPointF d = along / length * halfWidth;
        const QPointF n(-d.y(), d.x());
        for (const QPointF& corner : {end * factor + d + n, end * factor + d - n})
        {
            x0 = std::min(x0, corner.x());
            x1 = std::max(x1, corner.x());
            y0 = std::min(y0, corner.y());
            y1 = std::max(y1, corner.y());
        }
    };
    for (const QPolygonF& line : lines)
    {
        if (line.size() < 2)
            continue;
        cap(line.first(), line[1]);
        cap(line.last(), line[line.size() - 2]);
    }
    // The stroker rounds differently: a millionth of a pixel keeps its
    // outline inside.
    constexpr double kRounding = 1e-6;
    return QRectF(QPointF(x0 - kRounding, y0 - kRounding), QPointF(x1 + kRounding, y1 + kRounding));
}

void DrawPolyline(QPainter* painter, const QPolygonF& points, const QPen& pen)
{
    if (points.size() < 2)
        return;
    const double deviceScale = std::sqrt(std::fabs(painter->deviceTransform().determinant()));
    const QPolygonF thin = deviceScale > 0.0 ? ThinForDevice(points, 0.25 / deviceScale) : points;
    const double deviceWidth = pen.isCosmetic() ? pen.widthF() : pen.widthF() * deviceScale;
    const bool solid = pen.style() == Qt::SolidLine && pen.brush().style() == Qt::SolidPattern;
    if (!solid || deviceWidth <= 1.0 || thin.size() <= kStrokeRun)
    {
        painter->setPen(pen);
        painter->drawPolyline(thin);
        return;
    }
    if (DrawThroughMask(painter, thin, pen, deviceWidth))
        return;
    if (deviceWidth <= kMaxTwinWidth && pen.color().alpha() == 255)
    {
        DrawTwinHairlines(painter, thin, pen, (deviceWidth - 1.0) / 2.0 / deviceScale);
        return;
    }
    // Neighbouring runs share their end point; round caps at the seams keep
    // the line looking unbroken.
    QPen runPen = pen;
    runPen.setCapStyle(Qt::RoundCap);
    painter->setPen(runPen);
    for (int start = 0; start < thin.size() - 1; start += kStrokeRun - 1)
    {
        const int count = std::min<int>(kStrokeRun, thin.size() - start);
        painter->drawPolyline(thin.constData() + start, count);
    }
}

bool ArrowWings(const QPointF& tip, const QPointF& base, double length, QPointF* left, QPointF* right)
{
    if (SamePoint(tip, base))
        return false;
    const QPointF towardBase = base - tip;
    const double angle = std::atan2(towardBase.y(), towardBase.x());
    const double turn = qDegreesToRadians(kWingAngle);
    *left = tip + QPointF(std::cos(angle + turn), std::sin(angle + turn)) * length;
    *right = tip + QPointF(std::cos(angle - turn), std::sin(angle - turn)) * length;
    return true;
}

void CZoSegmentIndex::Reset()
{
    *this = CZoSegmentIndex();
}

void CZoSegmentIndex::Build(const std::vector<QPolygonF>& lines)
{
    Reset();
    m_built = true;
    // The segments are read from the lines in place: a copy of ten million
    // of them would cost a third of a gigabyte and most of the build's time.
    m_lines = &lines;
    int count = 0;
    for (const QPolygonF& line : lines)
    {
        m_lineStart.push_back(count);
        count += std::max(0, int(line.size()) - 1);
    }
    m_segmentCount = count;
    if (count == 0)
        return;
    m_bounds = BoundsOf(lines);
    const double side = std::max(m_bounds.width(), m_bounds.height());
    // A few segments share a cell: a finer grid than this makes the cell
    // table outgrow the processor's caches, and building it then costs more
    // than the queries save.
    const double cellsPerSide = std::max(1.0, std::sqrt(static_cast<double>(count) / kSegmentsPerCell));
    m_cellSize = std::max(side / cellsPerSide, 1e-9);
    m_columns = static_cast<int>(std::min(2048.0, std::floor(m_bounds.width() / m_cellSize) + 1));
    m_rows = static_cast<int>(std::min(2048.0, std::floor(m_bounds.height() / m_cellSize) + 1));
    m_cellSize = std::max({m_cellSize, m_bounds.width() / m_columns, m_bounds.height() / m_rows});

    // Two passes over the segments, counting then filling, lay the cells out
    // contiguously.
    const long cells = std::min(kMaxCells, static_cast<long>(m_columns) * m_rows);
    m_cellStart.assign(static_cast<std::size_t>(cells) + 1, 0);
    const double inverse = 1.0 / m_cellSize;
    const auto forEachSegmentCells = [&](auto&& visit, auto&& tooLong) {
        int id = 0;
        for (const QPolygonF& line : lines)
        {
            for (int i = 1; i < line.size(); ++i, ++id)
            {
                const QPointF& p = line[i - 1];
                const QPointF& q = line[i];
                const int c0 = std::clamp(static_cast<int>((std::min(p.x(), q.x()) - m_bounds.left()) * inverse), 0, m_columns - 1);
                const int c1 = std::clamp(static_cast<int>((std::max(p.x(), q.x()) - m_bounds.left()) * inverse), 0, m_columns - 1);
                const int r0 = std::clamp(static_cast<int>((std::min(p.y(), q.y()) - m_bounds.top()) * inverse), 0, m_rows - 1);
                const int r1 = std::clamp(static_cast<int>((std::max(p.y(), q.y()) - m_bounds.top()) * inverse), 0, m_rows - 1);
                if (static_cast<long>(c1 - c0 + 1) * (r1 - r0 + 1) > kMaxCellsPerSegment)
                {
                    tooLong(id);
                    continue;
                }
                for (int r = r0; r <= r1; ++r)
                    for (int c = c0; c <= c1; ++c)
                        visit(r * m_columns + c, id);
            }
        }
    };
    forEachSegmentCells([this](int cell, int) { ++m_cellStart[static_cast<std::size_t>(cell) + 1]; }, [](int) {});
    for (std::size_t c = 1; c < m_cellStart.size(); ++c)
        m_cellStart[c] += m_cellStart[c - 1];
    m_cellSegments.assign(static_cast<std::size_t>(m_cellStart.back()), 0);
    std::vector<int> fill(m_cellStart.begin(), m_cellStart.end() - 1);
    forEachSegmentCells(
        [&](int cell, int id) { m_cellSegments[static_cast<std::size_t>(fill[static_cast<std::size_t>(cell)]++)] = id; },
        [this](int id) { m_longSegments.push_back(id); });
}

QLineF CZoSegmentIndex::Segment(int id) const
{
    const auto line = std::upper_bound(m_lineStart.begin(), m_lineStart.end(), id) - 1;
    const QPolygonF& points = (*m_lines)[static_cast<std::size_t>(line - m_lineStart.begin())];
    const int i = id - *line;
    return QLineF(points[i], points[i + 1]);
}

namespace
{
double SquaredDistanceToSegment(const QPointF& p, const QLineF& s)
{
    const QPointF a = s.p1();
    const QPointF d = s.p2() - a;
    const double length2 = d.x() * d.x() + d.y() * d.y();
    double t = 0.0;
    if (length2 > 0.0)
        t = std::clamp(((p.x() - a.x()) * d.x() + (p.y() - a.y()) * d.y()) / length2, 0.0, 1.0);
    const QPointF nearest = a + d * t;
    const double dx = p.x() - nearest.x();
    const double dy = p.y() - nearest.y();
    return dx * dx + dy * dy;
}

double SquaredDistanceToRect(const QPointF& p, const QRectF& r)
{
    const double dx = std::max({r.left() - p.x(), 0.0, p.x() - r.right()});
    const double dy = std::max({r.top() - p.y(), 0.0, p.y() - r.bottom()});
    return dx * dx + dy * dy;
}

// Liang-Barsky: whether some part of the segment lies inside the rectangle.
bool SegmentEntersRect(const QLineF& s, const QRectF& r)
{
    const double dx = s.dx();
    const double dy = s.dy();
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {s.x1() - r.left(), r.right() - s.x1(), s.y1() - r.top(), r.bottom() - s.y1()};
    double t0 = 0.0;
    double t1 = 1.0;
    for (int k = 0; k < 4; ++k)
    {
        if (p[k] == 0.0)
        {
            if (q[k] < 0.0)
                return false;
            continue;
        }
        const double t = q[k] / p[k];
        if (p[k] < 0.0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
        if (t0 > t1)
            return false;
    }
    return true;
}
} // namespace

bool CZoSegmentIndex::SegmentNear(int segment, const QRectF& r, double halfWidth) const
{
    const QLineF s = Segment(segment);
    if (SegmentEntersRect(s, r))
        return true;
    // Apart, the nearest points of a segment and a rectangle include an end
    // of the segment or a corner of the rectangle.
    const double limit = halfWidth * halfWidth;
    return SquaredDistanceToRect(s.p1(), r) <= limit || SquaredDistanceToRect(s.p2(), r) <= limit ||
           SquaredDistanceToSegment(r.topLeft(), s) <= limit || SquaredDistanceToSegment(r.topRight(), s) <= limit ||
           SquaredDistanceToSegment(r.bottomLeft(), s) <= limit ||
           SquaredDistanceToSegment(r.bottomRight(), s) <= limit;
}

bool CZoSegmentIndex::Hits(const QPointF& point, double halfWidth) const
{
    return HitsRect(QRectF(point, QSizeF(0.0, 0.0)), halfWidth);
}

bool CZoSegmentIndex::HitsRect(const QRectF& rect, double halfWidth) const
{
    const QRectF r = rect.normalized();
    if (m_segmentCount == 0 || !std::isfinite(r.left()) || !std::isfinite(r.top()) || !std::isfinite(r.right()) ||
        !std::isfinite(r.bottom()))
        return false;
    for (int segment : m_longSegments)
        if (SegmentNear(segment, r, halfWidth))
            return true;
    const QRectF probe = r.adjusted(-halfWidth, -halfWidth, halfWidth, halfWidth);
    const QRectF reach = m_bounds.adjusted(-m_cellSize, -m_cellSize, m_cellSize, m_cellSize);
    if (probe.right() < reach.left() || probe.left() > reach.right() || probe.bottom() < reach.top() ||
        probe.top() > reach.bottom())
        return false;
    const int c0 = std::clamp(ZoPixelInt(std::floor((probe.left() - m_bounds.left()) / m_cellSize)), 0, m_columns - 1);
    const int c1 = std::clamp(ZoPixelInt(std::floor((probe.right() - m_bounds.left()) / m_cellSize)), 0, m_columns - 1);
    const int r0 = std::clamp(ZoPixelInt(std::floor((probe.top() - m_bounds.top()) / m_cellSize)), 0, m_rows - 1);
    const int r1 = std::clamp(ZoPixelInt(std::floor((probe.bottom() - m_bounds.top()) / m_cellSize)), 0, m_rows - 1);
    for (int row = r0; row <= r1; ++row)
    {
        for (int c = c0; c <= c1; ++c)
        {
            const std::size_t cell = static_cast<std::size_t>(row * m_columns + c);
            if (cell + 1 >= m_cellStart.size())
                continue;
            for (int k = m_cellStart[cell]; k < m_cellStart[cell + 1]; ++k)
                if (SegmentNear(m_cellSegments[static_cast<std::size_t>(k)], r, halfWidth))
                    return true;
        }
    }
    return false;
}

bool IsAxisAlignedRect(const QPainterPath& path, QRectF* rect)
{
    const int count = path.elementCount();
    if (count < 4 || count > 5)
        return false;
    const QRectF box = path.controlPointRect();
    for (int i = 0; i < count; ++i)
    {
        const QPainterPath::Element e = path.elementAt(i);
        if (e.isCurveTo() || (i > 0 && e.isMoveTo()))
            return false;
        if ((e.x != box.left() && e.x != box.right()) || (e.y != box.top() && e.y != box.bottom()))
            return false;
    }
    *rect = box;
    return true;
}
} // namespace ZoPointList
