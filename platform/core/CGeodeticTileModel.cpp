#include "CGeodeticTileModel.h"

CGeodeticTileModel::CGeodeticTileModel()
    : CTileModelBase({E_TILE_MODEL_GEODETIC, 4326, 2, 360.0, EXTENT{-180.0, -90.0, 180.0, 90.0}})
{
}

void CGeodeticTileModel::GeoToUnit(double x, double y, double* u, double* v) const
{
    *u = (x + 180.0) / 360.0;
    *v = (90.0 - y) / 180.0;
}

void CGeodeticTileModel::UnitToGeo(double u, double v, double* x, double* y) const
{
    *x = u * 360.0 - 180.0;
    *y = 90.0 - v * 180.0;
}
