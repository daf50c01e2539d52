#include <ZoGraphics/CZoMapView.h>

#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/IZoMapEventHandler.h>
#include <ZoGraphics/ZoGraphicsConstant.h>

#include "CZoBasemap.h"

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace
{
// Item data keys with which map objects tag their items.
constexpr int kMapObjectFlagKey = 100;
constexpr int kMapObjectIdKey = 101;
// One arrow key press pans by this fraction of the view.
constexpr double kKeyPanFraction = 0.125;

using namespace ZoGraphicsConstantNS;
const std::string* const kSceneEventNames[] = {
    &STR_SCENE_HOVER_ENTER,  &STR_SCENE_HOVER_MOVE,      &STR_SCENE_HOVER_LEAVE,
    &STR_SCENE_MOUSE_PRESS,  &STR_SCENE_MOUSE_PRESS_GRAB, &STR_SCENE_MOUSE_RELEASE,
    &STR_SCENE_MOUSE_DOUBLE_CLICKED, &STR_SCENE_KEY_PRESS, &STR_SCENE_KEY_PRESS_GRAB,
    &STR_SCENE_KEY_RELEASE,  &STR_SCENE_WHEEL_PRESS,     &STR_SCENE_WHEEL_PRESS_GRAB,
};

bool CarriesSomething(const QVariant& value)
{
    switch (value.userType())
    {
    case QMetaType::QVariantList:
        return !value.toList().isEmpty();
    case QMetaType::Bool:
        return value.toBool();
    default:
        return value.isValid();
    }
}

bool WasPublished(const QStringList& published, const std::string& name)
{
    return published.contains(QString::fromStdString(name));
}
} // namespace

CZoMapView::CZoMapView(CZoMapModule* module, QWidget* parent)
    : QGraphicsView(parent), m_module(module), m_basemap(std::make_unique<CZoBasemap>())
{
    setFrameShape(QFrame::NoFrame);
    // The layout follows the module; the scroll bars never move (see SyncToModule).
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTransformationAnchor(QGraphicsView::NoAnchor);
    setResizeAnchor(QGraphicsView::NoAnchor);
    setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    setRenderHint(QPainter::Antialiasing, true);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    if (m_module)
    {
        setScene(m_module->GetScene());
        connect(m_module.data(), &CZoMapModule::viewChanged, this, &CZoMapView::SyncToModule);
    }
    SyncToModule();
}

CZoMapView::~CZoMapView() = default;

QAbstractScrollArea* CZoMapView::GetScrollArea()
{
    return this;
}

bool CZoMapView::ConvertPixelToGeo(int x, int y, double* lon, double* lat)
{
    return ConvertViewPointToGeo(QPointF(x, y), lon, lat);
}

bool CZoMapView::ConvertViewPointToGeo(const QPointF& viewPoint, double* lon, double* lat) const
{
    if (!m_module || !lon || !lat)
        return false;
    const QPointF scenePoint = viewportTransform().inverted().map(viewPoint);
    return m_module->GetWorldSceneRect().contains(scenePoint) && m_module->ScenePointToGeo(scenePoint, lon, lat);
}

CZoMapModule* CZoMapView::GetMapModule() const
{
    return m_module.data();
}

void CZoMapView::SetBasemapDataDir(const QString& dir)
{
    m_basemap->SetDataDir(dir);
    viewport()->update();
}

QString CZoMapView::GetBasemapDataDir() const
{
    return m_basemap->GetDataDir();
}

int CZoMapView::MapObjectIdAt(const QPoint& viewPoint) const
{
    for (QGraphicsItem* hit : items(viewPoint))
    {
        // Labels and handles are children of the tagged item.
        for (QGraphicsItem* item = hit; item; item = item->parentItem())
        {
            if (item->isVisible() && item->data(kMapObjectFlagKey).toBool())
                return item->data(kMapObjectIdKey).toInt();
        }
    }
    return -1;
}

QStringList CZoMapView::PublishSceneEvents()
{
    QStringList published;
    QObject* events = m_module ? m_module->GetEventObject() : nullptr;
    if (!events)
        return published;
    for (const std::string* name : kSceneEventNames)
    {
        const QVariant value = events->property(name->c_str());
        if (!value.isValid())
            continue;
        events->setProperty(name->c_str(), QVariant());
        if (!CarriesSomething(value))
            continue;
        const QString eventName = QString::fromStdString(*name);
        published << eventName;
        emit sceneEvent(eventName, value);
    }
    return published;
}

void CZoMapView::drawBackground(QPainter* painter, const QRectF& rect)
{
    if (m_module)
        m_basemap->Draw(painter, rect, m_module->GetTileModel(), m_module->GetCurrentLodLevel());
    else
        painter->fillRect(rect, CZoBasemap::kOutsideColour);
}

void CZoMapView::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    SyncToModule();
}

bool CZoMapView::viewportEvent(QEvent* event)
{
    // Qt delivers the event to the scene first; its items record what they saw.
    const bool handled = QGraphicsView::viewportEvent(event);
    const QEvent::Type type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick && type != QEvent::MouseMove &&
        type != QEvent::MouseButtonRelease && type != QEvent::Wheel && type != QEvent::Leave)
        return handled;
    const QStringList published = PublishSceneEvents();
    if (!m_module)
        return handled;
    if (type == QEvent::Wheel)
        HandleWheel(static_cast<QWheelEvent*>(event), published);
    else if (type == QEvent::Leave)
    {
        UpdateHover(m_lastPointer, -1);
        emit pointerGeoChanged(false, 0.0, 0.0);
    }
    else
        HandleMouse(static_cast<QMouseEvent*>(event), published);
    return handled;
}

void CZoMapView::HandleMouse(QMouseEvent* event, const QStringList& published)
{
    const QEvent::Type type = event->type();
    const QPoint point = event->pos();
    const bool left = event->button() == Qt::LeftButton;
    const int found = MapObjectIdAt(point);
    const int id = m_grabbed && (type == QEvent::MouseMove || type == QEvent::MouseButtonRelease) ? m_grabId : found;
    m_lastPointer = point;
    if (type == QEvent::MouseMove && !m_grabbed)
        UpdateHover(point, id);
    const PointerHandler handler = type == QEvent::MouseButtonPress      ? &IZoMapEventHandler::OnMousePress
                                   : type == QEvent::MouseButtonDblClick ? &IZoMapEventHandler::OnMouseDoubleClick
                                   : type == QEvent::MouseMove           ? &IZoMapEventHandler::OnMouseMove
                                                                         : &IZoMapEventHandler::OnMouseRelease;
    const bool consumed = DispatchPointer(handler, point, id);
    if (consumed)
        event->accept();
    if (type == QEvent::MouseButtonPress && consumed && left)
    {
        m_grabbed = true;
        m_grabId = id;
    }
    else if (type == QEvent::MouseButtonRelease && m_grabbed && left)
    {
        m_grabbed = false;
        m_grabId = -1;
        UpdateHover(point, found);
    }

    switch (type)
    {
    case QEvent::MouseButtonPress:
        // Only the empty map pans: not under a gadget nor an embedded widget.
        if (consumed || !left || SceneTookMouse(published))
            return;
        m_panning = true;
        m_cursorBeforePan = viewport()->cursor();
        viewport()->setCursor(Qt::ClosedHandCursor);
        break;
    case QEvent::MouseButtonDblClick:
        if (consumed || !left || id != -1 || SceneTookMouse(published))
            return;
        ZoomAbout(kKeyZoom, point);
        break;
    case QEvent::MouseMove:
    {
        double lon = 0.0;
        double lat = 0.0;
        if (m_panning && !consumed)
            PanBy(point - m_panLast);
        const bool valid = ConvertViewPointToGeo(point, &lon, &lat);
        emit pointerGeoChanged(valid, lon, lat);
        if (!m_panning)
            return;
        break;
    }
    default:
        if (!m_panning || !left)
            return;
        m_panning = false;
        viewport()->setCursor(m_cursorBeforePan);
        break;
    }
    m_panLast = point;
    event->accept();
}

void CZoMapView::HandleWheel(QWheelEvent* event, const QStringList& published)
{
    if (WasPublished(published, STR_SCENE_WHEEL_PRESS_GRAB))
        return;
    const double notches = event->angleDelta().y() / 120.0;
    if (notches != 0.0)
        ZoomAbout(notches * kWheelNotchZoom, event->position());
    event->accept();
}

void CZoMapView::keyPressEvent(QKeyEvent* event)
{
    QGraphicsView::keyPressEvent(event);
    const QStringList published = PublishSceneEvents();
    if (!m_module)
        return;
    const int key = event->key();
    if (m_module->DispatchEvent([this, key](IZoMapEventHandler* handler) { return handler->OnKeyPress(this, key); }))
        return;
    // A focused item (an embedded widget) owns the keyboard.
    if (WasPublished(published, STR_SCENE_KEY_PRESS_GRAB) || (scene() && scene()->focusItem()))
        return;
    const QPointF step(viewport()->width() * kKeyPanFraction, viewport()->height() * kKeyPanFraction);
    switch (key)
    {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        ZoomAbout(kKeyZoom, ViewportCentre());
        break;
    case Qt::Key_Minus:
        ZoomAbout(-kKeyZoom, ViewportCentre());
        break;
    case Qt::Key_Left:
        PanBy(QPointF(step.x(), 0.0));
        break;
    case Qt::Key_Right:
        PanBy(QPointF(-step.x(), 0.0));
        break;
    case Qt::Key_Up:
        PanBy(QPointF(0.0, step.y()));
        break;
    case Qt::Key_Down:
        PanBy(QPointF(0.0, -step.y()));
        break;
    default:
        return;
    }
    event->accept();
}

void CZoMapView::keyReleaseEvent(QKeyEvent* event)
{
    QGraphicsView::keyReleaseEvent(event);
    PublishSceneEvents();
}

void CZoMapView::SyncToModule()
{
    if (!m_module)
        return;
    // The view's scene rectangle is exactly the visible area around the
    // module's centre: QGraphicsView then centres it and its scroll bars have
    // nothing to scroll, so nothing but the module moves the map.
    const double scale = m_module->GetViewScale();
    double lon = 0.0;
    double lat = 0.0;
    m_module->GetCenter(&lon, &lat);
    QPointF centre;
    if (!m_module->GeoToScenePoint(lon, lat, &centre))
        centre = QPointF();
    const QSizeF visible(viewport()->width() / scale, viewport()->height() / scale);
    setTransform(QTransform::fromScale(scale, scale));
    setSceneRect(QRectF(centre - QPointF(visible.width() / 2.0, visible.height() / 2.0), visible));
    viewport()->update();
}

void CZoMapView::UpdateHover(const QPoint& viewPoint, int id)
{
    if (id == m_hoverId)
        return;
    const int previous = m_hoverId;
    m_hoverId = id;
    if (previous != -1)
        DispatchPointer(&IZoMapEventHandler::OnHoverLeave, viewPoint, previous);
    if (id != -1)
        DispatchPointer(&IZoMapEventHandler::OnHoverEnter, viewPoint, id);
}

bool CZoMapView::DispatchPointer(PointerHandler handler, const QPoint& viewPoint, int objectId)
{
    if (!m_module)
        return false;
    return m_module->DispatchEvent([&](IZoMapEventHandler* target) {
        return (target->*handler)(this, viewPoint.x(), viewPoint.y(), objectId);
    });
}

bool CZoMapView::SceneTookMouse(const QStringList& published) const
{
    return WasPublished(published, STR_SCENE_MOUSE_PRESS_GRAB) || (scene() && scene()->mouseGrabberItem());
}

// A host's handler may have destroyed the module while the event was being
// dispatched: the view then has nothing left to move.
void CZoMapView::ZoomAbout(double zoomDelta, const QPointF& viewPoint)
{
    if (!m_module)
        return;
    double lon = 0.0;
    double lat = 0.0;
    const double zoom = m_module->GetZoom() + zoomDelta;
    if (ConvertViewPointToGeo(viewPoint, &lon, &lat))
        m_module->SetZoomAround(zoom, lon, lat, viewPoint - ViewportCentre());
    else
        m_module->SetZoom(zoom);
}

void CZoMapView::PanBy(const QPointF& viewDelta)
{
    if (!m_module)
        return;
    double lon = 0.0;
    double lat = 0.0;
    m_module->GetCenter(&lon, &lat);
    QPointF centre;
    if (!m_module->GeoToScenePoint(lon, lat, &centre))
        return;
    const QRectF world = m_module->GetWorldSceneRect();
    centre -= viewDelta / m_module->GetViewScale();
    centre.setX(qBound(world.left(), centre.x(), world.right()));
    centre.setY(qBound(world.top(), centre.y(), world.bottom()));
    if (m_module->ScenePointToGeo(centre, &lon, &lat))
        m_module->SetCenter(lon, lat);
}

QPointF CZoMapView::ViewportCentre() const
{
    return QPointF(viewport()->width() / 2.0, viewport()->height() / 2.0);
}
