#pragma once

#include "support/ImageCompare.h"

#include <QGraphicsItem>
#include <QPainter>

// Paints an item, antialiased, with its origin at origin on a white canvas.
inline QImage RenderItemAt(QGraphicsItem* item, int width, int height, const QPointF& origin)
{
    QImage image = BlankCanvas(width, height);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(origin);
    item->paint(&painter, nullptr, nullptr);
    painter.end();
    return image;
}

// The same with the item's origin at the canvas's centre.
inline QImage RenderItemCentred(QGraphicsItem* item, int width, int height)
{
    return RenderItemAt(item, width, height, QPointF(width / 2, height / 2));
}
