#include "CWebMercatorTileModel.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

CWebMercatorTileModel::CWebMercatorTileModel()
    : CTileModelBase({E_TILE_MODEL_WEB_MERCATOR, 3857, 1, 2.0 * M_PI * kEarthRadius,
                      EXTENT{-180.0, -kMaxLatitude, 180.0, kMaxLatitude}})
{
}

void CWebMercatorTileModel::GeoToUnit(double x, double y, double* u, double* v) const
{
    const double phi = qDegreesToRadians(std::clamp(y, -kMaxLatitude, kMaxLatitude));
    *u = (x + 180.0) / 360.0;
    *v = (1.0 - std::log(std::tan(phi) + 1.0 / std::cos(phi)) / M_PI) / 2.0;
}

void CWebMercatorTileModel::UnitToGeo(double u, double v, double* x, double* y) const
{
    *x = u * 360.0 - 180.0;
    *y = qRadiansToDegrees(std::atan(std::sinh(M_PI * (1.0 - 2.0 * v))));
}
