#pragma once

#include "CTileModelBase.h"

// Plate carrée on WGS 84 degrees, EPSG:4326: two 256-pixel tiles across at
// level 0, so a pixel spans the same angle in both directions.
class CGeodeticTileModel final : public CTileModelBase
{
public:
    CGeodeticTileModel();

protected:
    void GeoToUnit(double x, double y, double* u, double* v) const override;
    void UnitToGeo(double u, double v, double* x, double* y) const override;
};
