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

/// The reference host's map module.
///
/// The zoom is split into an integer level of detail (0-21) and a view scale
/// in [1, 2) within that level; the scene is laid out in the tile model's
/// world pixels at the current level, so a level change moves every item while
/// a scale change only magnifies the view.
///
/// As an IZoMapModule it answers:
/// - conversions between geographic points and integer scene pixels through
///   the tile model of its kind at the current level (to the nearest pixel);
///   they fail (false, outputs untouched) for a null output, a kind without
///   a tile model, a non-finite point or a pixel beyond the int range;
/// - distances as WGS 84 geodesic lengths in metres; a non-finite coordinate
///   gives 0.0 and logs "[CZoMapModule::CalculateDistance] 坐标无效";
/// - handlers by priority: higher priorities are asked first, equal
///   priorities in registration order, and registering a handler again moves
///   it to its new priority. A null handler is ignored with the message
///   "[CZoMapModule::RegisterEventHandler] 事件处理器为空".
///
/// It starts on the Web Mercator model at level 1, view scale 1.0, centred on
/// (0, 0). It owns its scene and its event object. A zoom or centre change
/// emits viewChanged(), then zoomChanged() and centerChanged() as they apply,
/// then tells the handlers: OnLodLevelChanged (new level only),
/// OnViewScaleChanged and OnViewChanged when the zoom changed, OnViewMoved
/// when only the centre moved. Use it from the GUI thread.
class ZOMAPHOST_EXPORT CZoMapModule : public QObject, public IZoMapModule
{
    Q_OBJECT
    Q_DISABLE_COPY(CZoMapModule)

public:
    /// The lowest level of detail and the lowest zoom.
    static constexpr int kMinLevel = 0;
    /// The highest level of detail and the highest zoom.
    static constexpr int kMaxLevel = 21;

    /// Creates the module with its scene and its event object (the QObject
    /// named "ZoMapEventObject"), both children of the module.
    explicit CZoMapModule(QObject* parent = nullptr);
    ~CZoMapModule() override;

    QObject* GetEventObject() override;
    QGraphicsScene* GetScene() override;
    int GetTileModelKind() override;
    double GetViewScale() override;
    int GetCurrentLodLevel() override;
    bool ConvertSceneToPixel(int* px, int* py, double x, double y) override;
    void ConvertPixelToScene(double* x, double* y, int px, int py) override;
    double CalculateDistance(double x1, double y1, double x2, double y2) override;
    void RegisterEventHandler(IZoMapEventHandler* handler, int priority) override;
    void UnregisterEventHandler(IZoMapEventHandler* handler) override;

    /// Sets the ::E_TILE_MODEL of the scene layout. It clamps the centre into
    /// the new model's extent, emits viewChanged() and tells the handlers
    /// OnViewChanged. A kind without a tile model is kept, but every
    /// conversion fails until a valid kind is set; it logs
    /// "[CZoMapModule::SetTileModelKind] 获取TileModel为空, TileModel: "
    /// followed by the kind. Setting the current kind changes nothing.
    void SetTileModelKind(int kind);
    /// The shared tile model of the current kind (not to be deleted); null
    /// when the kind has none.
    CTileModel* GetTileModel() const;

    /// The zoom: level + log2(view scale), within [kMinLevel, kMaxLevel].
    double GetZoom() const;
    /// Sets the zoom and keeps the centre; see SetZoomAround().
    void SetZoom(double zoom);
    /// Sets the zoom and keeps a geographic point where it is in the view.
    /// The point (lon, lat, in degrees) stays at viewOffset view pixels from
    /// the centre of the view; a null offset makes it the centre.
    ///
    /// The zoom is clamped to [kMinLevel, kMaxLevel] and the point to the
    /// tile model's geographic extent. A non-finite argument changes nothing
    /// and logs "[CZoMapModule::SetZoomAround] 缩放参数无效"; so does a
    /// non-finite argument to SetZoom() or SetCenter(), which come here. When
    /// neither zoom nor centre changes, nothing is emitted.
    void SetZoomAround(double zoom, double lon, double lat, const QPointF& viewOffset = QPointF());
    /// The centre of the view in degrees; a null output is skipped.
    void GetCenter(double* lon, double* lat) const;
    /// Moves the centre of the view to (lon, lat), in degrees, keeping the
    /// zoom; see SetZoomAround().
    void SetCenter(double lon, double lat);

    /// Converts a geographic point (degrees) to fractional scene coordinates
    /// at the current level.
    /// @return false, with the output untouched, for a null output, a kind
    ///         without a tile model or a non-finite point.
    bool GeoToScenePoint(double lon, double lat, QPointF* scene) const;
    /// Converts fractional scene coordinates back to a geographic point
    /// (degrees); false, with the outputs untouched, as for GeoToScenePoint().
    bool ScenePointToGeo(const QPointF& scene, double* lon, double* lat) const;
    /// The whole world in scene coordinates, with its top-left corner at
    /// (0, 0); empty without a tile model.
    QRectF GetWorldSceneRect() const;

    /// Asks the handlers in order until one returns true; true if one did.
    /// Safe against handlers that register or unregister during the call: a
    /// handler removed meanwhile is skipped.
    bool DispatchEvent(const std::function<bool(IZoMapEventHandler*)>& call);
    /// Tells every handler in order, whatever they return.
    void NotifyHandlers(const std::function<bool(IZoMapEventHandler*)>& call);

signals:
    /// The zoom changed (level or view scale); gives GetZoom().
    void zoomChanged(double zoom);
    /// The centre of the view moved; gives the new centre in degrees.
    void centerChanged(double lon, double lat);
    /// Zoom, centre or tile model changed: views re-lay themselves out.
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
