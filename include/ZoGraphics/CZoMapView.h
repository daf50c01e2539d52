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

// The reference host's map view. Its layout follows the map module: the
// transform is scale(view scale) and the module's centre sits in the middle of
// the viewport. It pans by dragging the empty map or with the arrow keys,
// zooms with the wheel about the pointer or with +/-, and draws the basemap
// behind the scene's items.
class ZOMAPHOST_EXPORT CZoMapView : public QGraphicsView, public IZoMapView
{
    Q_OBJECT
    Q_DISABLE_COPY(CZoMapView)

public:
    // Zoom steps of one wheel notch and of one +/- key press.
    static constexpr double kWheelNotchZoom = 0.5;
    static constexpr double kKeyZoom = 1.0;

    explicit CZoMapView(CZoMapModule* module, QWidget* parent = nullptr);
    ~CZoMapView() override;

    QAbstractScrollArea* GetScrollArea() override;
    bool ConvertPixelToGeo(int x, int y, double* lon, double* lat) override;
    bool ConvertViewPointToGeo(const QPointF& viewPoint, double* lon, double* lat) const;

    CZoMapModule* GetMapModule() const;
    // Folder holding the Natural Earth country files.
    void SetBasemapDataDir(const QString& dir);
    QString GetBasemapDataDir() const;

    // Id (item data 101) of the topmost map-object item under a view point, -1 if none.
    int MapObjectIdAt(const QPoint& viewPoint) const;
    // Reads and clears the "Scene_*" properties of the event object, emitting
    // sceneEvent for each one that carries something; returns the names emitted.
    QStringList PublishSceneEvents();

signals:
    // A scene event recorded by the map objects' items: the id list or the grab flag.
    void sceneEvent(const QString& name, const QVariant& value);
    // The pointer moved; valid is false off the map.
    void pointerGeoChanged(bool valid, double lon, double lat);

protected:
    void drawBackground(QPainter* painter, const QRectF& rect) override;
    void resizeEvent(QResizeEvent* event) override;
    // Pointer events: the scene sees them first, then the handlers and the view.
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
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
