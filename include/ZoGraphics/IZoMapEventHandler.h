#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

class IZoMapView;

// Receives the host map's events. 47 virtual slots, slot 0 the destructor;
// every handler returns true when it consumed the event, and the defaults
// consume nothing. Pointer handlers get the view, the pointer position in view
// pixels and the id of the topmost map object under the pointer (-1 if none).
class ZOGRAPHICS_EXPORT IZoMapEventHandler
{
public:
    IZoMapEventHandler() = default;
    IZoMapEventHandler(const IZoMapEventHandler&) = default;
    IZoMapEventHandler& operator=(const IZoMapEventHandler&) = default;
    virtual ~IZoMapEventHandler();                                // 0

    virtual bool OnMousePress(IZoMapView* view, int x, int y, int objectId) { (void)view; (void)x; (void)y; (void)objectId; return false; } // 1
    virtual bool ReservedHandler02() { return false; }
    virtual bool ReservedHandler03() { return false; }
    virtual bool OnMouseDoubleClick(IZoMapView* view, int x, int y, int objectId) { (void)view; (void)x; (void)y; (void)objectId; return false; } // 4
    virtual bool ReservedHandler05() { return false; }
    virtual bool ReservedHandler06() { return false; }
    virtual bool OnMouseMove(IZoMapView* view, int x, int y, int objectId) { (void)view; (void)x; (void)y; (void)objectId; return false; } // 7
    virtual bool OnMouseRelease(IZoMapView* view, int x, int y, int objectId) { (void)view; (void)x; (void)y; (void)objectId; return false; } // 8
    virtual bool ReservedHandler09() { return false; }
    virtual bool ReservedHandler10() { return false; }
    virtual bool OnHoverEnter(IZoMapView* view, int x, int y, int objectId) { (void)view; (void)x; (void)y; (void)objectId; return false; } // 11
    virtual bool OnHoverLeave(IZoMapView* view, int x, int y, int objectId) { (void)view; (void)x; (void)y; (void)objectId; return false; } // 12
    virtual bool ReservedHandler13() { return false; }
    virtual bool ReservedHandler14() { return false; }
    virtual bool ReservedHandler15() { return false; }
    virtual bool ReservedHandler16() { return false; }
    virtual bool ReservedHandler17() { return false; }
    virtual bool ReservedHandler18() { return false; }
    virtual bool ReservedHandler19() { return false; }
    virtual bool ReservedHandler20() { return false; }
    virtual bool ReservedHandler21() { return false; }
    virtual bool ReservedHandler22() { return false; }
    virtual bool ReservedHandler23() { return false; }
    virtual bool ReservedHandler24() { return false; }
    virtual bool ReservedHandler25() { return false; }
    virtual bool ReservedHandler26() { return false; }
    virtual bool OnKeyPress(IZoMapView* view, int key) { (void)view; (void)key; return false; } // 27
    virtual bool ReservedHandler28() { return false; }
    virtual bool ReservedHandler29() { return false; }
    virtual bool ReservedHandler30() { return false; }
    virtual bool ReservedHandler31() { return false; }
    virtual bool ReservedHandler32() { return false; }
    virtual bool ReservedHandler33() { return false; }
    virtual bool ReservedHandler34() { return false; }
    virtual bool ReservedHandler35() { return false; }
    virtual bool ReservedHandler36() { return false; }
    virtual bool ReservedHandler37() { return false; }
    virtual bool ReservedHandler38() { return false; }
    virtual bool ReservedHandler39() { return false; }
    virtual bool OnLodLevelChanged(int lod) { (void)lod; return false; } // 40
    virtual bool ReservedHandler41() { return false; }
    virtual bool OnViewScaleChanged(double scale) { (void)scale; return false; } // 42
    virtual bool ReservedHandler43() { return false; }
    virtual bool OnViewChanged() { return false; } // 44
    virtual bool ReservedHandler45() { return false; }
    virtual bool OnViewMoved() { return false; } // 46
};
