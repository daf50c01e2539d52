#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

class QAbstractScrollArea;

// The host's view as the edit gadgets see it.
class ZOGRAPHICS_EXPORT IZoMapView
{
public:
    IZoMapView() = default;
    IZoMapView(const IZoMapView&) = default;
    IZoMapView& operator=(const IZoMapView&) = default;
    virtual ~IZoMapView();

    // The scroll area whose viewport takes the cursors.
    virtual QAbstractScrollArea* GetScrollArea() = 0;
    // View pixels to longitude/latitude; false when the point is off the map.
    virtual bool ConvertPixelToGeo(int x, int y, double* lon, double* lat) = 0;
};
