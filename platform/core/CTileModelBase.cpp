#include "CTileModelBase.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace
{
bool AllFinite(double a, double b)
{
    return std::isfinite(a) && std::isfinite(b);
}

bool RoundToInt(double value, int* out)
{
    if (!(value >= static_cast<double>(INT_MIN) && value < static_cast<double>(INT_MAX) + 0.5))
        return false;
    *out = static_cast<int>(std::lround(value));
    return true;
}
}

CTileModelBase::CTileModelBase(const Scheme& scheme) : m_scheme(scheme) {}

CTileModelBase::~CTileModelBase() = default;

E_TILE_MODEL CTileModelBase::GetKind() const
{
    return m_scheme.kind;
}

int CTileModelBase::GetEPSG() const
{
    return m_scheme.epsg;
}

int CTileModelBase::GetTileSize() const
{
    return kTileSize;
}

int CTileModelBase::GetMinLevel() const
{
    return kMinLevel;
}

int CTileModelBase::GetMaxLevel() const
{
    return kMaxLevel;
}

int CTileModelBase::GetTileCountX(int level) const
{
    return IsValidLevel(level) ? m_scheme.tilesAcrossAtLevel0 << level : 0;
}

int CTileModelBase::GetTileCountY(int level) const
{
    return IsValidLevel(level) ? 1 << level : 0;
}

double CTileModelBase::GetWorldPixelWidth(int level) const
{
    return static_cast<double>(GetTileCountX(level)) * kTileSize;
}

double CTileModelBase::GetWorldPixelHeight(int level) const
{
    return static_cast<double>(GetTileCountY(level)) * kTileSize;
}

double CTileModelBase::GetResolution(int level) const
{
    return IsValidLevel(level) ? m_scheme.worldWidthInMapUnits / GetWorldPixelWidth(level) : 0.0;
}

EXTENT CTileModelBase::GetGeoExtent() const
{
    return m_scheme.geoExtent;
}

bool CTileModelBase::IsValidLevel(int level) const
{
    return level >= kMinLevel && level <= kMaxLevel;
}

bool CTileModelBase::GeoToWorld(int level, double x, double y, double* px, double* py) const
{
    if (!IsValidLevel(level) || !AllFinite(x, y))
        return false;
    double u = 0.0;
    double v = 0.0;
    GeoToUnit(x, y, &u, &v);
    if (!AllFinite(u, v))
        return false;
    // Far off the map the pixels themselves overflow.
    const double worldX = u * GetWorldPixelWidth(level);
    const double worldY = v * GetWorldPixelHeight(level);
    if (!AllFinite(worldX, worldY))
        return false;
    *px = worldX;
    *py = worldY;
    return true;
}

bool CTileModelBase::WorldToGeo(int level, double px, double py, double* x, double* y) const
{
    if (!IsValidLevel(level) || !AllFinite(px, py))
        return false;
    double gx = 0.0;
    double gy = 0.0;
    UnitToGeo(px / GetWorldPixelWidth(level), py / GetWorldPixelHeight(level), &gx, &gy);
    if (!AllFinite(gx, gy))
        return false;
    *x = gx;
    *y = gy;
    return true;
}

bool CTileModelBase::GetTileOfGeo(int* col, int* row, int level, double x, double y) const
{
    double px = 0.0;
    double py = 0.0;
    if (!col || !row || !GeoToWorld(level, x, y, &px, &py))
        return false;
    if (px < 0.0 || py < 0.0 || px > GetWorldPixelWidth(level) || py > GetWorldPixelHeight(level))
        return false;
    // The right and bottom edges belong to the last tile.
    *col = std::min(static_cast<int>(px / kTileSize), GetTileCountX(level) - 1);
    *row = std::min(static_cast<int>(py / kTileSize), GetTileCountY(level) - 1);
    return true;
}

EXTENT CTileModelBase::GetTileGeoExtent(int col, int row, int level) const
{
    EXTENT extent;
    if (!IsValidLevel(level) || col < 0 || row < 0 || col >= GetTileCountX(level) || row >= GetTileCountY(level))
        return extent;
    const double left = static_cast<double>(col) * kTileSize;
    const double top = static_cast<double>(row) * kTileSize;
    WorldToGeo(level, left, top, &extent.xmin, &extent.ymax);
    WorldToGeo(level, left + kTileSize, top + kTileSize, &extent.xmax, &extent.ymin);
    return extent;
}

bool CTileModelBase::ConvertGeoToPixel(int* px, int* py, int level, double x, double y) const
{
    double fx = 0.0;
    double fy = 0.0;
    int ix = 0;
    int iy = 0;
    if (!px || !py || !GeoToWorld(level, x, y, &fx, &fy) || !RoundToInt(fx, &ix) || !RoundToInt(fy, &iy))
        return false;
    *px = ix;
    *py = iy;
    return true;
}

bool CTileModelBase::ConvertGeoToPixel(double* px, double* py, int level, double x, double y) const
{
    return px && py && GeoToWorld(level, x, y, px, py);
}

bool CTileModelBase::ConvertPixelToGeo(double* x, double* y, int level, int px, int py) const
{
    return x && y && WorldToGeo(level, px, py, x, y);
}

bool CTileModelBase::ConvertPixelToGeo(double* x, double* y, int level, double px, double py) const
{
    return x && y && WorldToGeo(level, px, py, x, y);
}
