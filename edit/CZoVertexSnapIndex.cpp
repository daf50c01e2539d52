#include <ZoGraphics/CZoVertexSnapIndex.h>

#include <ZoGraphics/IZoMapModule.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace
{
struct SVertex
{
    int owner;
    CVector3D point;
};

// Searches covering more cells than this scan the vertices directly.
constexpr double kMaxCellsPerSearch = 4096.0;
} // namespace

struct CZoVertexSnapIndex::SData
{
    double cell = 0.05;
    std::vector<SVertex> vertices;
    std::unordered_map<std::int64_t, std::vector<int>> cells;

    std::int64_t Column(double v) const { return static_cast<std::int64_t>(std::floor(v / cell)); }
    static std::int64_t Key(std::int64_t column, std::int64_t row) { return (column << 32) ^ (row & 0xffffffff); }
};

CZoVertexSnapIndex::CZoVertexSnapIndex(double cellDegrees) : m_data(std::make_unique<SData>())
{
    if (std::isfinite(cellDegrees) && cellDegrees > 0.0)
        m_data->cell = cellDegrees;
}

CZoVertexSnapIndex::~CZoVertexSnapIndex() = default;

void CZoVertexSnapIndex::Clear()
{
    m_data->vertices.clear();
    m_data->cells.clear();
}

void CZoVertexSnapIndex::Add(int ownerId, const CVector3D& point)
{
    if (!std::isfinite(point.x) || !std::isfinite(point.y))
        return;
    m_data->cells[SData::Key(m_data->Column(point.x), m_data->Column(point.y))].push_back(
        static_cast<int>(m_data->vertices.size()));
    m_data->vertices.push_back({ownerId, point});
}

int CZoVertexSnapIndex::GetCount() const
{
    return static_cast<int>(m_data->vertices.size());
}

bool CZoVertexSnapIndex::FindNearest(IZoMapModule* map, const CVector3D& point, double pixelRadius, int excludeOwner,
                                     CVector3D* found) const
{
    int px = 0;
    int py = 0;
    if (!map || !found || !(pixelRadius > 0.0) || !std::isfinite(point.x) || !std::isfinite(point.y) ||
        !map->ConvertSceneToPixel(&px, &py, point.x, point.y))
        return false;
    const double scale = map->GetViewScale();
    // Scene pixels at this level; the view magnifies them by the view scale.
    const double radius = pixelRadius / (scale > 0.0 ? scale : 1.0);
    const int reach = static_cast<int>(std::ceil(radius));
    double x0 = 0.0, y0 = 0.0, x1 = 0.0, y1 = 0.0;
    map->ConvertPixelToScene(&x0, &y0, px - reach, py - reach);
    map->ConvertPixelToScene(&x1, &y1, px + reach, py + reach);

    double best = radius * radius;
    bool any = false;
    const auto consider = [&](const SVertex& vertex) {
        int vx = 0;
        int vy = 0;
        if (vertex.owner == excludeOwner || !map->ConvertSceneToPixel(&vx, &vy, vertex.point.x, vertex.point.y))
            return;
        const double dx = vx - px;
        const double dy = vy - py;
        const double distance = dx * dx + dy * dy;
        if (distance <= best)
        {
            best = distance;
            *found = vertex.point;
            any = true;
        }
    };
    const std::int64_t c0 = m_data->Column(std::min(x0, x1));
    const std::int64_t c1 = m_data->Column(std::max(x0, x1));
    const std::int64_t r0 = m_data->Column(std::min(y0, y1));
    const std::int64_t r1 = m_data->Column(std::max(y0, y1));
    if (!std::isfinite(x0 + x1 + y0 + y1) ||
        double(c1 - c0 + 1) * double(r1 - r0 + 1) > std::max(kMaxCellsPerSearch, double(m_data->vertices.size())))
    {
        for (const SVertex& vertex : m_data->vertices)
            consider(vertex);
        return any;
    }
    for (std::int64_t c = c0; c <= c1; ++c)
    {
        for (std::int64_t r = r0; r <= r1; ++r)
        {
            const auto cell = m_data->cells.find(SData::Key(c, r));
            if (cell == m_data->cells.end())
                continue;
            for (int index : cell->second)
                consider(m_data->vertices[index]);
        }
    }
    return any;
}
