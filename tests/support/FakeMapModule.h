#pragma once

#include <ZoGraphics/IZoMapEventHandler.h>
#include <ZoGraphics/IZoMapModule.h>

#include <QGraphicsScene>
#include <QObject>
#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <vector>

// A map module double with a plain linear projection: scene pixel =
// (x * pixelsPerDegree, -y * pixelsPerDegree), rounded. Conversions can be
// made to fail, and LOD and view scale are set directly; handler
// registration is recorded.
class FakeMapModule : public IZoMapModule
{
public:
    FakeMapModule() : m_scene(std::make_unique<QGraphicsScene>()), m_events(std::make_unique<QObject>()) {}
    QObject* GetEventObject() override { return m_events.get(); }
    QGraphicsScene* GetScene() override { return m_scene.get(); }
    int GetTileModelKind() override { return tileModelKind; }
    double GetViewScale() override { return viewScale; }
    int GetCurrentLodLevel() override { return lod; }
    bool ConvertSceneToPixel(int* px, int* py, double x, double y) override
    {
        if (failConversions)
            return false;
        *px = static_cast<int>(std::lround(x * pixelsPerDegree));
        *py = static_cast<int>(std::lround(-y * pixelsPerDegree));
        return true;
    }
    void ConvertPixelToScene(double* x, double* y, int px, int py) override
    {
        if (nanConversions)
        {
            *x = *y = std::numeric_limits<double>::quiet_NaN();
            return;
        }
        *x = px / pixelsPerDegree;
        *y = -py / pixelsPerDegree;
    }
    double CalculateDistance(double x1, double y1, double x2, double y2) override
    {
        return std::hypot(x2 - x1, y2 - y1);
    }
    void RegisterEventHandler(IZoMapEventHandler* handler, int) override { handlers.push_back(handler); }
    void UnregisterEventHandler(IZoMapEventHandler* handler) override
    {
        handlers.erase(std::remove(handlers.begin(), handlers.end(), handler), handlers.end());
    }
    // Tells every handler about a new level, as a host does when it zooms.
    void ChangeLod(int level)
    {
        lod = level;
        for (IZoMapEventHandler* handler : std::vector<IZoMapEventHandler*>(handlers))
            handler->OnLodLevelChanged(level);
    }
    void ChangeViewScale(double scale)
    {
        viewScale = scale;
        for (IZoMapEventHandler* handler : std::vector<IZoMapEventHandler*>(handlers))
            handler->OnViewScaleChanged(scale);
    }
    QGraphicsScene* Scene() const { return m_scene.get(); }

    int lod = 10;
    double viewScale = 1.0;
    double pixelsPerDegree = 10.0;
    int tileModelKind = 1;
    bool failConversions = false;
    bool nanConversions = false; // pixel-to-scene answers NaN, as a broken host projection might
    std::vector<IZoMapEventHandler*> handlers;

private:
    std::unique_ptr<QGraphicsScene> m_scene;
    std::unique_ptr<QObject> m_events;
};
