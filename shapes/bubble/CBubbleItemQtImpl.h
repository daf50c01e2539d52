#pragma once

#include "object/TZoGraphicsItem.h"

#include <QGraphicsItem>
#include <QPainterPath>
#include <QPointer>

class CZoBubbleMapObject;
class CZoEmbeddedWidgetProxy;
class QPushButton;
class QVBoxLayout;
class QWidget;

// Draws the bubble's box and tail in device pixels (the item ignores the
// view's scale) with the tip on the item origin, and shows the host widget
// below a close button through a proxy widget inside the box.
class CBubbleItemQtImpl final : public TZoGraphicsItem<QGraphicsItem, CZoBubbleMapObject>
{
public:
    explicit CBubbleItemQtImpl(CZoBubbleMapObject* owner);
    ~CBubbleItemQtImpl() override;

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    void RebuildShape(bool forced) override;
    void RebuildName(bool forced) override;
    void PaintOnCanvas(QPainter* painter, int level) override;
    void ForgetOwner() override;

    // Shows widget in the box (null shows none), handing back the one shown before.
    void Embed(QWidget* widget);
    QSize BoxSize() const { return m_box.size().toSize(); }
    QRectF Box() const { return m_box; }
    QPushButton* CloseButton() const { return m_close; }

protected:
    // The frame is part of what the host embedded: presses and wheel turns on
    // it are taken, not passed to the map below.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void wheelEvent(QGraphicsSceneWheelEvent* event) override;

private:
    void Release();
    void PaintFrame(QPainter* painter) const;

    CZoEmbeddedWidgetProxy* m_proxy; // a child item: deleted with this one
    QWidget* m_container = nullptr;  // owned by the proxy
    QVBoxLayout* m_layout = nullptr;
    QPushButton* m_close = nullptr;
    QPointer<QWidget> m_embedded;
    QPointer<QWidget> m_formerParent;
    QRectF m_box;
    QPainterPath m_frame;
};

// The box of a bubble of size box whose tail, tail pixels long, leaves it in
// direction and ends on the origin, with the two points where the tail meets
// the box.
QRectF ZoBubbleBox(const QSizeF& box, int direction, double tail, QPointF* base1, QPointF* base2);
