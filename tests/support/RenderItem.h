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
