#pragma once

#include "object/TZoGraphicsItem.h"

#include <QGraphicsSvgItem>
#include <QSvgRenderer>
#include <memory>

class CZoSVGMapObject;

// Draws an SVG picture through a renderer of its own. A load that fails keeps
// the picture (and size) it had.
class CSVGItemQtImpl final : public TZoGraphicsItem<QGraphicsSvgItem, CZoSVGMapObject>
{
public:
    explicit CSVGItemQtImpl(CZoSVGMapObject* owner);

    // Refusals are logged as "[CZoSVGMapObject::method] ...".
    bool Load(const QString& path, const char* method);
    QSvgRenderer* Renderer() const { return m_renderer.get(); }
    // Without a picture the item covers nothing: Qt would report a -1 by -1
    // rectangle, and the extent taken from it would come out inverted.
    QRectF boundingRect() const override
    {
        return m_renderer->isValid() ? QGraphicsSvgItem::boundingRect() : QRectF();
    }

    void RebuildShape(bool) override {}
    void RebuildName(bool) override {}
    void PaintOnCanvas(QPainter* painter, int level) override;

private:
    std::unique_ptr<QSvgRenderer> m_renderer;
};
