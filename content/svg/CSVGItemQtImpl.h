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

    void RebuildShape(bool) override {}
    void RebuildName(bool) override {}
    void PaintOnCanvas(QPainter* painter, int level) override;

private:
    std::unique_ptr<QSvgRenderer> m_renderer;
};
