#include "shapes/bubble/CBubbleItemQtImpl.h"

#include "object/CZoEmbeddedWidgetProxy.h"
#include "shapes/bubble/CZoBubbleMapObject.h"

#include <ZoGraphics/ZoGraphicsConstant.h>

#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <memory>

namespace
{
constexpr double kTailLength = 12.0;
constexpr double kTailHalfWidth = 7.0;
// How far from the nearer corner a tail on the left or right edge leaves.
constexpr double kTailInset = 18.0;
constexpr double kCornerRadius = 6.0;
constexpr double kShadowOffset = 3.0;
constexpr int kMinBoxWidth = 48;
constexpr int kMinBoxHeight = 36;
constexpr int kCloseSize = 18;

// Tells the item when the widgets in its box ask for another size: styles
// polished late, a label given longer text, a widget shown or hidden.
class CLayoutRequestFilter final : public QObject
{
public:
    CLayoutRequestFilter(QWidget* watched, std::function<void()> onRequest)
        : QObject(watched), m_onRequest(std::move(onRequest))
    {
        watched->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::LayoutRequest)
            m_onRequest();
        return false;
    }

private:
    std::function<void()> m_onRequest;
};

QString CloseButtonStyle()
{
    // The flat style closes its own rule and opens a hover rule; the pressed
    // button takes the solid style.
    return QStringLiteral("QPushButton{%1}QPushButton:pressed{%2}")
        .arg(QString::fromStdString(ZoGraphicsConstantNS::STR_FLAT_BUTTON_STYLE),
             QString::fromStdString(ZoGraphicsConstantNS::STR_BUTTON_STYLE));
}
} // namespace

QRectF ZoBubbleBox(const QSizeF& box, int direction, double tail, QPointF* base1, QPointF* base2)
{
    const double w = box.width();
    const double h = box.height();
    const double inset = std::min(kTailInset, h / 2);
    switch (direction)
    {
    case E_BUBBLE_TAIL_TOP:
        *base1 = QPointF(-kTailHalfWidth, tail);
        *base2 = QPointF(kTailHalfWidth, tail);
        return QRectF(-w / 2, tail, w, h);
    case E_BUBBLE_TAIL_LEFT_TOP:
    case E_BUBBLE_TAIL_LEFT_BOTTOM:
        *base1 = QPointF(tail, -kTailHalfWidth);
        *base2 = QPointF(tail, kTailHalfWidth);
        return QRectF(tail, direction == E_BUBBLE_TAIL_LEFT_TOP ? -inset : inset - h, w, h);
    case E_BUBBLE_TAIL_RIGHT_TOP:
    case E_BUBBLE_TAIL_RIGHT_BOTTOM:
        *base1 = QPointF(-tail, -kTailHalfWidth);
        *base2 = QPointF(-tail, kTailHalfWidth);
        return QRectF(-tail - w, direction == E_BUBBLE_TAIL_RIGHT_TOP ? -inset : inset - h, w, h);
    default:
        *base1 = QPointF(-kTailHalfWidth, -tail);
        *base2 = QPointF(kTailHalfWidth, -tail);
        return QRectF(-w / 2, -tail - h, w, h);
    }
}

CBubbleItemQtImpl::CBubbleItemQtImpl(CZoBubbleMapObject* owner)
    : TZoGraphicsItem(owner), m_proxy(new CZoEmbeddedWidgetProxy(owner, this))
{
    // Pixel sizes at every zoom: the item draws in device pixels.
    setFlag(QGraphicsItem::ItemIgnoresTransformations);

    auto container = std::make_unique<QWidget>();
    container->setAttribute(Qt::WA_TranslucentBackground);
    m_layout = new QVBoxLayout(container.get());
    m_layout->setContentsMargins(8, 2, 8, 8);
    m_layout->setSpacing(0);
    auto* top = new QHBoxLayout();
    top->addStretch(1);
    m_close = new QPushButton(QString(QChar(0x00D7)), container.get());
    m_close->setFixedSize(kCloseSize, kCloseSize);
    m_close->setStyleSheet(CloseButtonStyle());
    m_close->setCursor(Qt::PointingHandCursor);
    top->addWidget(m_close);
    m_layout->addLayout(top);
    // Closing hides the bubble; the host shows it again with SetVisible.
    QObject::connect(m_close, &QPushButton::clicked, m_close, [this]() {
        if (m_owner)
            m_owner->SetVisible(false);
    });
    m_container = container.get();
    new CLayoutRequestFilter(m_container, [this]() {
        if (m_owner)
            RebuildShape(true);
    });
    m_proxy->setWidget(container.release());

    if (owner)
        Embed(owner->GetWidget());
}

CBubbleItemQtImpl::~CBubbleItemQtImpl()
{
    Release();
}

void CBubbleItemQtImpl::ForgetOwner()
{
    TZoGraphicsItem::ForgetOwner();
    m_proxy->ForgetOwner();
}

void CBubbleItemQtImpl::Embed(QWidget* widget)
{
    Release();
    if (!widget)
        return;
    m_formerParent = widget->parentWidget();
    m_embedded = widget;
    m_layout->addWidget(widget, 1);
    widget->show();
}

void CBubbleItemQtImpl::Release()
{
    // Another bubble may have taken the widget meanwhile: then it is not ours
    // to hand back.
    if (!m_embedded || m_embedded->parentWidget() != m_container)
    {
        m_embedded = nullptr;
        return;
    }
    m_layout->removeWidget(m_embedded);
    m_embedded->hide();
    m_embedded->setParent(m_formerParent);
    m_embedded = nullptr;
}

QRectF CBubbleItemQtImpl::boundingRect() const
{
    return m_frame.controlPointRect().adjusted(-1.0, -1.0, kShadowOffset + 1.0, kShadowOffset + 1.0);
}

QPainterPath CBubbleItemQtImpl::shape() const
{
    return m_frame;
}

void CBubbleItemQtImpl::RebuildShape(bool)
{
    QSize size = m_owner->RequestedSize();
    const QSize natural = m_container->sizeHint();
    if (size.width() <= 0)
        size.setWidth(natural.width());
    if (size.height() <= 0)
        size.setHeight(natural.height());
    size = size.expandedTo(QSize(kMinBoxWidth, kMinBoxHeight));

    QPointF base1;
    QPointF base2;
    const QRectF box = ZoBubbleBox(size, m_owner->GetTailDirection(), kTailLength, &base1, &base2);
    QPainterPath frame;
    frame.addRoundedRect(box, kCornerRadius, kCornerRadius);
    // The tail's base reaches a pixel into the box, so that the two join.
    const QPointF inward = (base1 + base2) / 2 / kTailLength;
    QPainterPath tail;
    tail.moveTo(0.0, 0.0);
    tail.lineTo(base1);
    tail.lineTo(base1 + inward);
    tail.lineTo(base2 + inward);
    tail.lineTo(base2);
    tail.closeSubpath();
    frame = frame.united(tail);

    prepareGeometryChange();
    m_box = box;
    m_frame = frame;
    m_proxy->setPos(box.topLeft());
    m_proxy->resize(box.size());
    update();
}

void CBubbleItemQtImpl::RebuildName(bool)
{
    // The widget is the bubble's content; its name is not drawn.
}

void CBubbleItemQtImpl::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    PaintFrame(painter);
}

void CBubbleItemQtImpl::PaintOnCanvas(QPainter* painter, int)
{
    PaintFrame(painter);
    m_container->render(painter, m_box.topLeft().toPoint(), QRegion(), QWidget::DrawChildren);
}

void CBubbleItemQtImpl::PaintFrame(QPainter* painter) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(0, 0, 0, 60));
    painter->drawPath(m_frame.translated(kShadowOffset, kShadowOffset));
    painter->setPen(QPen(QColor(90, 100, 120), 1.0));
    painter->setBrush(QColor(255, 255, 255, 245));
    painter->drawPath(m_frame);
    painter->restore();
}

void CBubbleItemQtImpl::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    ZoRecordGrabbedPress(m_owner);
    event->accept();
}

void CBubbleItemQtImpl::wheelEvent(QGraphicsSceneWheelEvent* event)
{
    ZoRecordGrabbedWheel(m_owner);
    event->accept();
}
