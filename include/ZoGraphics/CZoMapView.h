#pragma once

#include <ZoGraphics/ZoMapHostExport.h>
#include <ZoGraphics/IZoMapEventHandler.h>
#include <ZoGraphics/IZoMapView.h>

#include <QCursor>
#include <QGraphicsView>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

class CZoMapModule;
class CZoBasemap;

/// The reference host's map view.
///
/// Its layout follows the map module: the transform is scale(view scale) and
/// the module's centre sits in the middle of the viewport. It pans by dragging
/// the empty map or with the arrow keys, zooms with the wheel about the
/// pointer, by double-clicking the empty map or with +/-, and draws the
/// basemap behind the scene's items.
///
/// Pointer events reach the scene's items first; the view then publishes the
/// scene events they recorded (sceneEvent()) and passes the event to the
/// module's handlers with the id of the topmost map object under the pointer.
/// A handler that consumes a left-button press holds the pointer until the
/// release: moves and the release carry the pressed object's id. The view
/// pans or zooms only what neither a handler nor an item took.
///
/// As an IZoMapView it returns itself as the scroll area, and converts a
/// pixel only when it lies on the world (false off the map, without a module
/// or for a null output). The view does not own the module; it stops working
/// (conversions fail, nothing pans) once the module is gone.
class ZOMAPHOST_EXPORT CZoMapView : public QGraphicsView, public IZoMapView
{
    Q_OBJECT
    Q_DISABLE_COPY(CZoMapView)

public:
    /// Zoom step of one wheel notch.
    static constexpr double kWheelNotchZoom = 0.5;
    /// Zoom step of one +/- key press and of a double click.
    static constexpr double kKeyZoom = 1.0;

    /// Creates a view that shows the module's scene and follows its layout.
    /// The module is not owned and may be null (the view then shows an empty
    /// map). The basemap data folder starts as the first of these that holds
    /// the country files: the ZOGRAPHICS_DATA_DIR environment variable,
    /// `../share/ZoGraphics/data` from the program's folder, the installed
    /// share folder.
    explicit CZoMapView(CZoMapModule* module, QWidget* parent = nullptr);
    ~CZoMapView() override;

    QAbstractScrollArea* GetScrollArea() override;
    bool ConvertPixelToGeo(int x, int y, double* lon, double* lat) override;
    /// Converts a fractional point in view pixels to longitude and latitude
    /// in degrees, as ConvertPixelToGeo() does.
    bool ConvertViewPointToGeo(const QPointF& viewPoint, double* lon, double* lat) const;

    /// The module given at construction; null once it is destroyed.
    CZoMapModule* GetMapModule() const;
    /// Sets the folder holding the Natural Earth country files and repaints.
    /// A file is read when a level first needs it (countries-110m.geojson
    /// below level 4, countries-50m.geojson from level 4 on). One that cannot
    /// be opened or parsed leaves the land out and logs, once per folder,
    /// "[CZoBasemap::Load] 打开文件失败: " or
    /// "[CZoBasemap::Load] GeoJSON解析失败: " followed by its path.
    void SetBasemapDataDir(const QString& dir);
    /// The folder of the Natural Earth country files.
    QString GetBasemapDataDir() const;

    /// The id (item data key 101) of the topmost visible map-object item under
    /// a point in view pixels, -1 if none. Labels and handles count as their
    /// object's item.
    int MapObjectIdAt(const QPoint& viewPoint) const;
    /// Reads and clears the "Scene_*" properties of the module's event object,
    /// emitting sceneEvent() for each one that carries something (a non-empty
    /// id list or a true grab flag); returns the names emitted. Without a
    /// module or an event object it returns an empty list.
    QStringList PublishSceneEvents();

signals:
    /// A scene event recorded by the map objects' items: name is the property
    /// ("Scene_MousePress" and the others), value the id list or the grab
    /// flag.
    void sceneEvent(const QString& name, const QVariant& value);
    /// The pointer moved to (lon, lat), in degrees; valid is false off the
    /// map and when the pointer left the view, and the position is then not
    /// to be used.
    void pointerGeoChanged(bool valid, double lon, double lat);

protected:
    /// Draws the basemap of the module's tile model and level under the
    /// scene's items; without a module it fills the area with the colour
    /// outside the world.
    void drawBackground(QPainter* painter, const QRectF& rect) override;
    /// Keeps the module's centre in the middle of the resized viewport.
    void resizeEvent(QResizeEvent* event) override;
    /// Pointer events: the scene sees them first, then the handlers and the
    /// view; see the class description.
    bool viewportEvent(QEvent* event) override;
    /// Gives the key to the scene, then to the handlers (OnKeyPress); if none
    /// consumes it and no item has the keyboard, +/- zoom about the centre
    /// and the arrow keys pan by an eighth of the view.
    void keyPressEvent(QKeyEvent* event) override;
    /// Gives the key to the scene and publishes the scene events it recorded.
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    void SyncToModule();
    void HandleMouse(QMouseEvent* event, const QStringList& published);
    void HandleWheel(QWheelEvent* event, const QStringList& published);
    // Tells the handlers when the topmost map object under the pointer changes.
    void UpdateHover(const QPoint& viewPoint, int id);
    using PointerHandler = bool (IZoMapEventHandler::*)(IZoMapView*, int, int, int);
    bool DispatchPointer(PointerHandler handler, const QPoint& viewPoint, int objectId);
    // Whether an embedded widget or another item kept the mouse for itself.
    bool SceneTookMouse(const QStringList& published) const;
    void ZoomAbout(double zoomDelta, const QPointF& viewPoint);
    void PanBy(const QPointF& viewDelta);
    QPointF ViewportCentre() const;

    QPointer<CZoMapModule> m_module;
    std::unique_ptr<CZoBasemap> m_basemap;
    int m_hoverId = -1;
    // A handler that consumed a press holds the pointer, as an item grabbing
    // the mouse would: until the release, moves and the release carry the
    // pressed object's id, however fast the pointer outruns it.
    bool m_grabbed = false;
    int m_grabId = -1;
    bool m_panning = false;
    QPoint m_panLast;
    QPoint m_lastPointer;
    QCursor m_cursorBeforePan;
};
