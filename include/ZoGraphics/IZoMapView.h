#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

class QAbstractScrollArea;

/// The host's view as the edit gadgets see it.
///
/// The view is passed to every pointer and key handler of IZoMapEventHandler;
/// gadgets use it to set cursors and to turn the pointer position into a
/// geographic point. It is called from the GUI thread.
class ZOGRAPHICS_EXPORT IZoMapView
{
public:
    /// Creates the interface part of a view.
    IZoMapView() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoMapView(const IZoMapView&) = default;
    IZoMapView& operator=(const IZoMapView&) = default;
    /// @}
    /// Destroys the view.
    virtual ~IZoMapView();

    /// The scroll area whose viewport takes the cursors. Null means the view
    /// has none, and the gadgets then leave the cursor alone.
    virtual QAbstractScrollArea* GetScrollArea() = 0;
    /// Converts a point in view pixels (the coordinates the event handlers
    /// receive) to longitude and latitude in degrees.
    /// @return false when the point is off the map; the outputs are then not
    ///         to be used.
    virtual bool ConvertPixelToGeo(int x, int y, double* lon, double* lat) = 0;
};
