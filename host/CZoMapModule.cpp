#include <ZoGraphics/CZoMapModule.h>

#include <ZoGraphics/IZoMapEventHandler.h>
#include <ZoGraphics/ZoLogSystem.h>
#include <ZoGraphics/ZoTileModel.h>

#include <QGraphicsScene>

#include <geodesic.h>

#include <algorithm>
#include <cmath>

namespace
{
// Snaps zooms a rounding error below a whole level onto that level.
constexpr double kLevelSnap = 1e-9;

bool SameValue(double a, double b)
{
    return std::abs(a - b) <= 1e-12 * std::max(1.0, std::max(std::abs(a), std::abs(b)));
}
} // namespace

CZoMapModule::CZoMapModule(QObject* parent)
    : QObject(parent), m_scene(new QGraphicsScene(this)), m_eventObject(new QObject(this))
{
    m_eventObject->setObjectName(QStringLiteral("ZoMapEventObject"));
    // Map objects move with every feed update and every zoom: Qt's BSP index
    // would take each one out and put it back, most of the cost of a frame
    // (bench/README.md). A scene without an index draws the same frames.
    m_scene->setItemIndexMethod(QGraphicsScene::NoIndex);
}

CZoMapModule::~CZoMapModule() = default;

QObject* CZoMapModule::GetEventObject()
{
    return m_eventObject;
}

QGraphicsScene* CZoMapModule::GetScene()
{
    return m_scene;
}

int CZoMapModule::GetTileModelKind()
{
    return m_tileModelKind;
}

double CZoMapModule::GetViewScale()
{
    return m_viewScale;
}

int CZoMapModule::GetCurrentLodLevel()
{
    return m_level;
}

bool CZoMapModule::ConvertSceneToPixel(int* px, int* py, double x, double y)
{
    CTileModel* model = GetTileModel();
    if (!px || !py || !model)
        return false;
    return model->ConvertGeoToPixel(px, py, m_level, x, y);
}

void CZoMapModule::ConvertPixelToScene(double* x, double* y, int px, int py)
{
    CTileModel* model = GetTileModel();
    if (!x || !y || !model)
        return;
    double lon = 0.0;
    double lat = 0.0;
    if (model->ConvertPixelToGeo(&lon, &lat, m_level, px, py))
    {
        *x = lon;
        *y = lat;
    }
}

double CZoMapModule::CalculateDistance(double x1, double y1, double x2, double y2)
{
    if (!std::isfinite(x1) || !std::isfinite(y1) || !std::isfinite(x2) || !std::isfinite(y2))
    {
        ZoLogWarn() << "[CZoMapModule::CalculateDistance] 坐标无效";
        return 0.0;
    }
    geod_geodesic wgs84;
    geod_init(&wgs84, 6378137.0, 1.0 / 298.257223563);
    double distance = 0.0;
    geod_inverse(&wgs84, y1, x1, y2, x2, &distance, nullptr, nullptr);
    return distance;
}

void CZoMapModule::RegisterEventHandler(IZoMapEventHandler* handler, int priority)
{
    if (!handler)
    {
        ZoLogWarn() << "[CZoMapModule::RegisterEventHandler] 事件处理器为空";
        return;
    }
    UnregisterEventHandler(handler);
    const auto at = std::find_if(m_handlers.begin(), m_handlers.end(),
                                 [priority](const HandlerEntry& entry) { return entry.priority < priority; });
    m_handlers.insert(at, HandlerEntry{handler, priority});
}

void CZoMapModule::UnregisterEventHandler(IZoMapEventHandler* handler)
{
    m_handlers.erase(std::remove_if(m_handlers.begin(), m_handlers.end(),
                                    [handler](const HandlerEntry& entry) { return entry.handler == handler; }),
                     m_handlers.end());
}

void CZoMapModule::SetTileModelKind(int kind)
{
    if (!ITileModel::GetTileModel(kind, true))
        ZoLogWarn() << "[CZoMapModule::SetTileModelKind] 获取TileModel为空, TileModel: " << kind;
    if (kind == m_tileModelKind)
        return;
    m_tileModelKind = kind;
    ClampToModel(&m_centerLon, &m_centerLat);
    emit viewChanged();
    NotifyHandlers([](IZoMapEventHandler* handler) { return handler->OnViewChanged(); });
}

CTileModel* CZoMapModule::GetTileModel() const
{
    return ITileModel::GetTileModel(m_tileModelKind, true);
}

double CZoMapModule::GetZoom() const
{
    return m_level + std::log2(m_viewScale);
}

void CZoMapModule::SetZoom(double zoom)
{
    SetZoomAround(zoom, m_centerLon, m_centerLat);
}

void CZoMapModule::SetZoomAround(double zoom, double lon, double lat, const QPointF& viewOffset)
{
    if (!std::isfinite(zoom) || !std::isfinite(lon) || !std::isfinite(lat) || !std::isfinite(viewOffset.x()) ||
        !std::isfinite(viewOffset.y()))
    {
        ZoLogWarn() << "[CZoMapModule::SetZoomAround] 缩放参数无效";
        return;
    }
    zoom = std::clamp(zoom, double(kMinLevel), double(kMaxLevel));
    const int level = std::min(kMaxLevel, int(std::floor(zoom + kLevelSnap)));
    const double scale = std::max(1.0, std::exp2(zoom - level));

    const int oldLevel = m_level;
    const double oldScale = m_viewScale;
    const double oldLon = m_centerLon;
    const double oldLat = m_centerLat;
    m_level = level;
    m_viewScale = scale;

    // The anchor keeps its view position: the centre lies viewOffset view
    // pixels, that is viewOffset / scale scene units, away from it.
    ClampToModel(&lon, &lat);
    QPointF anchor;
    double centerLon = lon;
    double centerLat = lat;
    if (!viewOffset.isNull() && GeoToScenePoint(lon, lat, &anchor) &&
        ScenePointToGeo(anchor - viewOffset / scale, &centerLon, &centerLat))
        ClampToModel(&centerLon, &centerLat);
    m_centerLon = centerLon;
    m_centerLat = centerLat;

    const bool levelChanged = level != oldLevel;
    const bool scaleChanged = !SameValue(scale, oldScale);
    const bool centerChanged = !SameValue(m_centerLon, oldLon) || !SameValue(m_centerLat, oldLat);
    if (!levelChanged && !scaleChanged && !centerChanged)
        return;

    emit viewChanged();
    if (levelChanged || scaleChanged)
        emit zoomChanged(GetZoom());
    if (centerChanged)
        emit this->centerChanged(m_centerLon, m_centerLat);

    if (!levelChanged && !scaleChanged)
    {
        NotifyHandlers([](IZoMapEventHandler* handler) { return handler->OnViewMoved(); });
        return;
    }
    if (levelChanged)
        NotifyHandlers([level](IZoMapEventHandler* handler) { return handler->OnLodLevelChanged(level); });
    // Scene coordinates are the pixels of the current level, so a new level
    // rescales the scene even when the fractional scale stays the same:
    // pixel-sized geometry is rebuilt on either change.
    NotifyHandlers([scale](IZoMapEventHandler* handler) { return handler->OnViewScaleChanged(scale); });
    NotifyHandlers([](IZoMapEventHandler* handler) { return handler->OnViewChanged(); });
}

void CZoMapModule::GetCenter(double* lon, double* lat) const
{
    if (lon)
        *lon = m_centerLon;
    if (lat)
        *lat = m_centerLat;
}

void CZoMapModule::SetCenter(double lon, double lat)
{
    SetZoomAround(GetZoom(), lon, lat);
}

bool CZoMapModule::GeoToScenePoint(double lon, double lat, QPointF* scene) const
{
    CTileModel* model = GetTileModel();
    double x = 0.0;
    double y = 0.0;
    if (!scene || !model || !model->ConvertGeoToPixel(&x, &y, m_level, lon, lat))
        return false;
    *scene = QPointF(x, y);
    return true;
}

bool CZoMapModule::ScenePointToGeo(const QPointF& scene, double* lon, double* lat) const
{
    CTileModel* model = GetTileModel();
    double x = 0.0;
    double y = 0.0;
    if (!lon || !lat || !model || !model->ConvertPixelToGeo(&x, &y, m_level, scene.x(), scene.y()))
        return false;
    *lon = x;
    *lat = y;
    return true;
}

QRectF CZoMapModule::GetWorldSceneRect() const
{
    CTileModel* model = GetTileModel();
    if (!model)
        return QRectF();
    return QRectF(0.0, 0.0, model->GetWorldPixelWidth(m_level), model->GetWorldPixelHeight(m_level));
}

bool CZoMapModule::DispatchEvent(const std::function<bool(IZoMapEventHandler*)>& call)
{
    return Dispatch(call, true);
}

void CZoMapModule::NotifyHandlers(const std::function<bool(IZoMapEventHandler*)>& call)
{
    Dispatch(call, false);
}

bool CZoMapModule::Dispatch(const std::function<bool(IZoMapEventHandler*)>& call, bool stopWhenConsumed)
{
    // A handler may (un)register handlers while it runs: walk a snapshot and
    // skip whoever has left in the meantime.
    const std::vector<HandlerEntry> snapshot = m_handlers;
    bool consumed = false;
    for (const HandlerEntry& entry : snapshot)
    {
        if (!IsRegistered(entry.handler))
            continue;
        consumed = call(entry.handler) || consumed;
        if (consumed && stopWhenConsumed)
            break;
    }
    return consumed;
}

bool CZoMapModule::IsRegistered(const IZoMapEventHandler* handler) const
{
    return std::any_of(m_handlers.begin(), m_handlers.end(),
                       [handler](const HandlerEntry& entry) { return entry.handler == handler; });
}

void CZoMapModule::ClampToModel(double* lon, double* lat) const
{
    EXTENT extent{-180.0, -90.0, 180.0, 90.0};
    if (CTileModel* model = GetTileModel())
        extent = model->GetGeoExtent();
    *lon = std::clamp(*lon, extent.xmin, extent.xmax);
    *lat = std::clamp(*lat, extent.ymin, extent.ymax);
}
