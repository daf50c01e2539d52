#pragma once

#include "support/ImageCompare.h"

#include <ZoGraphics/IZoGraphicsMapObject.h>
#include <ZoGraphics/ZoTileModel.h>

#include <QPainter>

// What an object paints, antialiased over white, on the part (in world
// pixels) of a Web Mercator canvas of the given level.
inline QImage OnCanvas(IZoGraphicsMapObject* object, int level, const QRect& part)
{
    QImage image = BlankCanvas(part.width(), part.height());
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-part.topLeft());
    object->PaintOnCanvas(&painter, ITileModel::GetTileModel(E_TILE_MODEL_WEB_MERCATOR, true), level, nullptr);
    painter.end();
    return image;
}
