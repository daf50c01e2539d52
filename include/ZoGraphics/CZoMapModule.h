#pragma once

#include <ZoGraphics/ZoMapHostExport.h>
#include <ZoGraphics/IZoMapModule.h>

#include <QObject>
#include <QPointF>
#include <QRectF>

#include <functional>
#include <vector>

class QGraphicsScene;
class CTileModel;

// The reference host's map module. The zoom is split into an integer level of
// detail (0-21) and a view scale in [1, 2) within that level; the scene is laid
// out in the tile model's world pixels at the current level, so a level change
// moves every item while a scale change only magnifies the view.
class ZOMAPHOST_EXPORT CZoMapModule : public QObject, public IZoMapModule
{
    Q_OBJECT
    Q_DISABLE_COPY(CZoMapModule)

public:
    static constexpr int kMinLevel = 0;
    static constexpr int kMaxLevel = 21;

    explicit CZoMapModule(QObject* parent = nullptr);
    ~CZoMapModule() override;

    QObject* GetEventObject() override;
    QGraphicsScene* GetScene() override;
    int GetTileModelKind() override;
    double GetViewScale() override;
    int GetCurrentLodLevel() override;
    // Geographic point to integer scene pixels at the current level.
    bool ConvertSceneToPixel(int* px, int* py, double x, double y) override;
    // Integer scene pixels back to a geographic point; outputs untouched on failure.
    void ConvertPixelToScene(double* x, double* y, int px, int py) override;
    // WGS 84 geodesic distance in metres.
    double CalculateDistance(double x1, double y1, double x2, double y2) override;
    // Higher priorities are asked first; equal priorities in registration order.
    // Registering a handler again moves it to its new priority.
    void RegisterEventHandler(IZoMapEventHandler* handler, int priority) override;
    void UnregisterEventHandler(IZoMapEventHandler* handler) override;

    // E_TILE_MODEL of the scene layout. A kind without a tile model is kept,
    // but every conversion fails until a valid kind is set.
    void SetTileModelKind(int kind);
    CTileModel* GetTileModel() const;

    // Zoom = level + log2(view scale), clamped to [kMinLevel, kMaxLevel].
    double GetZoom() const;
    void SetZoom(double zoom);
    // Sets the zoom and keeps the geographic point (lon, lat) at viewOffset
    // view pixels from the centre of the view.
    void SetZoomAround(double zoom, double lon, double lat, const QPointF& viewOffset = QPointF());
    void GetCenter(double* lon, double* lat) const;
    void SetCenter(double lon, double lat);

    // Fractional conversions between geographic and scene coordinates.
    bool GeoToScenePoint(double lon, double lat, QPointF* scene) const;
    bool ScenePointToGeo(const QPointF& scene, double* lon, double* lat) const;
    // The whole world in scene coordinates; empty without a tile model.
    QRectF GetWorldSceneRect() const;

    // Asks the handlers in order until one returns true; true if one did.
    // Safe against handlers that register or unregister during the call.
    bool DispatchEvent(const std::function<bool(IZoMapEventHandler*)>& call);
    // Tells every handler, whatever they return.
    void NotifyHandlers(const std::function<bool(IZoMapEventHandler*)>& call);

signals:
    void zoomChanged(double zoom);
    void centerChanged(double lon, double lat);
    // Zoom, centre or tile model changed: views re-lay themselves out.
    void viewChanged();

private:
    struct HandlerEntry
    {
        IZoMapEventHandler* handler;
        int priority;
    };

    bool Dispatch(const std::function<bool(IZoMapEventHandler*)>& call, bool stopWhenConsumed);
    bool IsRegistered(const IZoMapEventHandler* handler) const;
    void ClampToModel(double* lon, double* lat) const;

    QGraphicsScene* m_scene;
    QObject* m_eventObject;
    std::vector<HandlerEntry> m_handlers;
    int m_tileModelKind = 1;
    int m_level = 1;
    double m_viewScale = 1.0;
    double m_centerLon = 0.0;
    double m_centerLat = 0.0;
};
