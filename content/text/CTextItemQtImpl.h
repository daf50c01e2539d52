#pragma once

#include "object/TZoGraphicsItem.h"

#include <QGraphicsTextItem>

class CZoTextMapObject;

// Draws a text object through the item's document. Cursor moves re-apply the
// character format, so that typed text takes the object's look; content
// changes are copied back into the object.
class CTextItemQtImpl final : public TZoGraphicsItem<QGraphicsTextItem, CZoTextMapObject>
{
    Q_OBJECT
public:
    explicit CTextItemQtImpl(CZoTextMapObject* owner);
    ~CTextItemQtImpl() override;

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    void RebuildShape(bool) override {}
    void RebuildName(bool) override {}
    void PaintOnCanvas(QPainter* painter, int level) override;

private slots:
    void OnCursorPosChanged();
    void OnContentsChanged();

private:
    // Applying the character format moves the cursor itself.
    bool m_applyingFormat = false;
};
