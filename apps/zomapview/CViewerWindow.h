#pragma once

#include <QImage>
#include <QMainWindow>
#include <QVariant>

#include <memory>

class CZoGraphicsModule;
class CZoMapModule;
class CZoMapView;
class QLabel;

// The viewer's main window: the reference host's map view and a status bar
// with the pointer's position and the zoom.
class CViewerWindow : public QMainWindow
{
    Q_OBJECT
    Q_DISABLE_COPY(CViewerWindow)

public:
    explicit CViewerWindow(QWidget* parent = nullptr);
    ~CViewerWindow() override;

    CZoMapModule* MapModule() const { return m_mapModule; }
    CZoMapView* MapView() const { return m_view; }

    void ShowArea(double lon, double lat, double zoom);
    // The map alone at the given size, drawn without showing the window.
    QImage RenderMap(const QSize& size);

    // The graphics module on this window's map, made on the first call,
    // with no objects of its own.
    CZoGraphicsModule& InitialiseGraphics();
    // Puts the demos on the map (once) and the capital cities of
    // dataDir/capitals.csv as interactive dots with their Chinese names;
    // returns how many capitals.
    int PopulateGraphics(const QString& dataDir);
    CZoGraphicsModule* Graphics() const { return m_graphics.get(); }

private:
    void ShowPointer(bool valid, double lon, double lat);
    void ShowZoom(double zoom);
    // A press on map objects: name and id of the topmost one.
    void ShowSceneEvent(const QString& name, const QVariant& value);

    CZoMapModule* m_mapModule;
    CZoMapView* m_view;
    QLabel* m_pointerLabel;
    QLabel* m_zoomLabel;
    QLabel* m_selectionLabel;
    std::unique_ptr<CZoGraphicsModule> m_graphics;
};
