#pragma once

#include "layer/ZoSceneEvents.h"
#include "object/CZoMapObjectCore.h"
#include "object/IZoGraphicsItemImpl.h"
#include "object/ZoItemLifetime.h"

#include <ZoGraphics/ZoGraphicsConstant.h>

#include <QGraphicsItem>
#include <QGraphicsSceneHoverEvent>
#include <QVariant>
#include <QGraphicsSceneMouseEvent>

// Item data keys by which scene-side code finds the object of an item.
constexpr int kZoItemDataIsMapObject = 100;
constexpr int kZoItemDataObjectId = 101;

// The Qt item side shared by every kind: the back pointer to the owning
// object, the item data tags, and the hover and mouse reporting. Kinds add
// only their geometry and painting.
template <class QtBase, class Owner>
class TZoGraphicsItem : public QtBase, public IZoGraphicsItemImpl
{
public:
    explicit TZoGraphicsItem(Owner* owner) : QtBase(nullptr), m_owner(owner), m_core(owner ? &owner->Core() : nullptr)
    {
        if (m_owner)
        {
            this->setData(kZoItemDataIsMapObject, QVariant(true));
            this->setData(kZoItemDataObjectId, QVariant(m_owner->GetObjectID()));
        }
    }
    // A scene deletes the items it still holds when it goes (a host that
    // deletes its map module first): the object must stop using its item.
    ~TZoGraphicsItem() override
    {
        if (m_core)
            m_core->ForgetDeletedItem(this);
    }
    TZoGraphicsItem(const TZoGraphicsItem&) = delete;
    TZoGraphicsItem& operator=(const TZoGraphicsItem&) = delete;

    QGraphicsItem* GraphicsItem() override { return this; }
    void NotifyGeometryChange() override { prepareGeometryChange(); }
    void Repaint() override { this->update(); }
    void ForgetOwner() override
    {
        m_owner = nullptr;
        m_core = nullptr;
    }
    Owner* GetOwner() const { return m_owner; }

protected:
    // Hides Qt's own, so that the layer's hover grid hears of every shape
    // change the kinds announce.
    void prepareGeometryChange()
    {
        QtBase::prepareGeometryChange();
        if (m_core)
            m_core->NoteItemShapeChanging();
    }
    // Sent while the item is hovered through the layer's grid.
    QVariant itemChange(QGraphicsItem::GraphicsItemChange change, const QVariant& value) override
    {
        switch (change)
        {
        case QGraphicsItem::ItemPositionHasChanged:
        case QGraphicsItem::ItemTransformHasChanged:
        case QGraphicsItem::ItemRotationHasChanged:
        case QGraphicsItem::ItemScaleHasChanged:
        case QGraphicsItem::ItemTransformOriginPointHasChanged:
            if (m_core)
                m_core->NoteItemMoved();
            break;
        default:
            break;
        }
        return QtBase::itemChange(change, value);
    }
    bool sceneEvent(QEvent* event) override
    {
        CZoItemEventScope delivering;
        return QtBase::sceneEvent(event);
    }
    void hoverEnterEvent(QGraphicsSceneHoverEvent*) override { Record(ZoGraphicsConstantNS::STR_SCENE_HOVER_ENTER); }
    void hoverMoveEvent(QGraphicsSceneHoverEvent*) override { Record(ZoGraphicsConstantNS::STR_SCENE_HOVER_MOVE); }
    void hoverLeaveEvent(QGraphicsSceneHoverEvent*) override { Record(ZoGraphicsConstantNS::STR_SCENE_HOVER_LEAVE); }

    // Mouse events are reported and then ignored, so that they travel on to
    // the items below and to the view.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override
    {
        RecordAndIgnore(ZoGraphicsConstantNS::STR_SCENE_MOUSE_PRESS, event);
    }
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override
    {
        RecordAndIgnore(ZoGraphicsConstantNS::STR_SCENE_MOUSE_RELEASE, event);
    }
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override
    {
        RecordAndIgnore(ZoGraphicsConstantNS::STR_SCENE_MOUSE_DOUBLE_CLICKED, event);
    }

    void Record(const std::string& eventName) { RecordSceneEvent(eventName, m_owner); }
    void RecordAndIgnore(const std::string& eventName, QEvent* event)
    {
        Record(eventName);
        event->ignore();
    }

    Owner* m_owner;

private:
    CZoMapObjectCore* m_core;
};
