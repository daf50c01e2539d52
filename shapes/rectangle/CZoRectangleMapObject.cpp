#include "shapes/rectangle/CZoRectangleMapObject.h"

#include <ZoGraphics/ZoTileModel.h>

namespace
{
// Tiles are laid out in the world pixels of the deepest level.
constexpr int kTileLevel = 21;
} // namespace

void CZoRectangleMapObject::SetTile(bool tile)
{
    m_tile = tile;
    Core().UpdatePosition();
    Core().RebuildAndRepaint(true);
}

CTileModel* CZoRectangleMapObject::TileModel() const
{
    IZoMapModule* map = Core().GetMapModule();
    return map ? ITileModel::GetTileModel(map->GetTileModelKind(), true) : nullptr;
}

QPointF CZoRectangleMapObject::ConvertAnchorToPixel()
{
    IZoMapModule* map = Core().GetMapModule();
    if (!m_tile || !map)
        return ZoAnchorToScenePixel(Core(), GetCenter());
    if (!TileModel())
    {
        ZoLogWarnAt(kLogNames.className, "ConvertGeoToPixel")
            << "获取TileModel为空, TileModel: " << map->GetTileModelKind();
        return QPointF(0.0, 0.0);
    }
    QPointF pixel;
    if (!GeoToPixel(GetCenter(), &pixel))
    {
        ZoLogWarnAt(kLogNames.className, "ConvertGeoToPixel") << ZoLogReason::kConvertFailed;
        return QPointF(0.0, 0.0);
    }
    return pixel;
}

bool CZoRectangleMapObject::GeoToPixel(const CVector3D& point, QPointF* pixel) const
{
    if (!m_tile)
        return Base::GeoToPixel(point, pixel);
    CTileModel* model = TileModel();
    double px = 0.0;
    double py = 0.0;
    if (!model || !ZoIsFinitePoint(point) || !model->ConvertGeoToPixel(&px, &py, kTileLevel, point.x, point.y))
        return false;
    *pixel = QPointF(px, py);
    return true;
}

CVector3D CZoRectangleMapObject::PixelToGeo(const QPointF& pixel) const
{
    if (!m_tile)
        return Base::PixelToGeo(pixel);
    CVector3D point;
    if (CTileModel* model = TileModel())
        model->ConvertPixelToGeo(&point.x, &point.y, kTileLevel, pixel.x(), pixel.y());
    return point;
}
