#pragma once

#include "object/TZoGraphicsItem.h"

#include <QGraphicsProxyWidget>
#include <QPointer>

class CZoWidgetMapObject;

// Shows the object's widget at its pixel size whatever the view's zoom. The
// widget takes presses and wheel turns itself; the host learns of them
// through the grab flags.
//
// The widget is the caller's, and a proxy deletes what it embeds and deletes
// itself when its widget dies. So the proxy embeds a frame of its own, and the
// caller's widget sits inside that frame: the caller may delete it at any
// time, and it is handed back (parentless, hidden) when it is replaced or the
// item goes.
class CWidgetItemQtImpl final : public TZoGraphicsItem<QGraphicsProxyWidget, CZoWidgetMapObject>
{
public:
    explicit CWidgetItemQtImpl(CZoWidgetMapObject* owner);
    ~CWidgetItemQtImpl() override;

    // Puts the caller's widget into the frame (null empties it).
    void Embed(QWidget* widget);
    QWidget* Embedded() const { return m_embedded; }

    // The position depends on the pixel scale: a new scale places it anew.
    void RebuildShape(bool) override;
    void RebuildName(bool) override {}
    void PaintOnCanvas(QPainter* painter, int level) override;

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    void wheelEvent(QGraphicsSceneWheelEvent* event) override;

private:
    void Release();

    QWidget* m_frame; // owned by the proxy
    QPointer<QWidget> m_embedded;
};
