#pragma once

#include "CTileModelBase.h"

// Spherical (Web) Mercator, EPSG:3857: one 256-pixel tile at level 0,
// latitudes clamped to the square world's edge.
class CWebMercatorTileModel final : public CTileModelBase
{
public:
    static constexpr double kMaxLatitude = 85.05112877980659;
    static constexpr double kEarthRadius = 6378137.0;

    CWebMercatorTileModel();

protected:
    void GeoToUnit(double x, double y, double* u, double* v) const override;
    void UnitToGeo(double u, double v, double* x, double* y) const override;
};
