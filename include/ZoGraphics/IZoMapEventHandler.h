#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

class IZoMapView;

/// Receives the host map's events.
///
/// 47 virtual slots, slot 0 the destructor; every handler returns true when it
/// consumed the event, and the defaults consume nothing. Pointer handlers get
/// the view, the pointer position in view pixels and the id of the topmost map
/// object under the pointer (-1 if none).
///
/// A handler is added with IZoMapModule::RegisterEventHandler and must be
/// removed with IZoMapModule::UnregisterEventHandler before it is destroyed.
/// Pointer and key events are offered to the handlers in priority order until
/// one returns true; changes of level, scale and view reach every handler,
/// whatever they return. The library's layers register with priority 0 and
/// pass the view changes on to their objects; its edit gadgets register with
/// priority 100 and use the pointer and key events. Everything runs on the
/// GUI thread.
class ZOGRAPHICS_EXPORT IZoMapEventHandler
{
public:
    /// Creates the interface part of a handler.
    IZoMapEventHandler() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoMapEventHandler(const IZoMapEventHandler&) = default;
    IZoMapEventHandler& operator=(const IZoMapEventHandler&) = default;
    /// @}
    /// Virtual, so that a handler may be deleted through this interface.
    /// Unregister the handler from its map module first.
    virtual ~IZoMapEventHandler();                                // 0

    /// A mouse button went down at (`x`, `y`), in pixels of `view`, over the
    /// object `objectId` (-1: none). Return true to take the press: in the
    /// reference view a taken left press also stops the map from panning, and
    /// the moves and the release that follow report the same `objectId`.
    virtual bool OnMousePress(IZoMapView* view, int x, int y, int objectId) { (void)view; (void)x; (void)y; (void)objectId; return false; } // 1
    /// @{ Reserved handlers of the host interface: they hold the slot
    /// numbering and return false.
    virtual bool ReservedHandler02() { return false; }
    virtual bool ReservedHandler03() { return false; }
    /// @}
    /// A mouse button was double-clicked at (`x`, `y`), in view pixels, over
    /// the object `objectId` (-1: none). Return true to take the click; the
    /// reference view then does not zoom in.
    virtual bool OnMouseDoubleClick(IZoMapView* view, int x, int y, int objectId) { (void)view; (void)x; (void)y; (void)objectId; return false; } // 4
    /// @{ Reserved handlers of the host interface: they hold the slot
    /// numbering and return false.
    virtual bool ReservedHandler05() { return false; }
    virtual bool ReservedHandler06() { return false; }
    /// @}
    /// The pointer moved to (`x`, `y`), in view pixels, with or without a
    /// button down; `objectId` is the object under it (-1: none), or the
    /// object of a taken left press until its release. Edit gadgets drag on it.
    virtual bool OnMouseMove(IZoMapView* view, int x, int y, int objectId) { (void)view; (void)x; (void)y; (void)objectId; return false; } // 7
    /// A mouse button went up at (`x`, `y`), in view pixels; `objectId` as for
    /// OnMouseMove(). Edit gadgets end a drag on it.
    virtual bool OnMouseRelease(IZoMapView* view, int x, int y, int objectId) { (void)view; (void)x; (void)y; (void)objectId; return false; } // 8
    /// @{ Reserved handlers of the host interface: they hold the slot
    /// numbering and return false.
    virtual bool ReservedHandler09() { return false; }
    virtual bool ReservedHandler10() { return false; }
    /// @}
    /// The pointer came over the object `objectId` at (`x`, `y`), in view
    /// pixels. Sent when the object under the pointer changes, after
    /// OnHoverLeave() for the previous one; edit gadgets change the cursor.
    virtual bool OnHoverEnter(IZoMapView* view, int x, int y, int objectId) { (void)view; (void)x; (void)y; (void)objectId; return false; } // 11
    /// The pointer left the object `objectId`; (`x`, `y`) is where it is now,
    /// in view pixels. Edit gadgets restore the cursor.
    virtual bool OnHoverLeave(IZoMapView* view, int x, int y, int objectId) { (void)view; (void)x; (void)y; (void)objectId; return false; } // 12
    /// @{ Reserved handlers of the host interface: they hold the slot
    /// numbering and return false.
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
    /// @}
    /// A key was pressed while `view` had the focus; `key` is a `Qt::Key`
    /// code. Edit gadgets cancel a drag on `Qt::Key_Escape`. Return true to
    /// keep the view from using the key (the reference view pans and zooms
    /// with arrows, plus and minus).
    virtual bool OnKeyPress(IZoMapView* view, int key) { (void)view; (void)key; return false; } // 27
    /// @{ Reserved handlers of the host interface: they hold the slot
    /// numbering and return false.
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
    /// @}
    /// The map's level of detail changed to `lod` (an integer zoom level, 0 to
    /// 21 in the reference host). Layers update their objects' visibility.
    virtual bool OnLodLevelChanged(int lod) { (void)lod; return false; } // 40
    /// Reserved handler of the host interface: it holds the slot numbering
    /// and returns false.
    virtual bool ReservedHandler41() { return false; }
    /// The view's scale within the current level changed to `scale` (view
    /// pixels per scene unit; 1 or more in the reference host, which also
    /// sends it after every level change). Layers resize their objects'
    /// pixel-sized symbols.
    virtual bool OnViewScaleChanged(double scale) { (void)scale; return false; } // 42
    /// Reserved handler of the host interface: it holds the slot numbering
    /// and returns false.
    virtual bool ReservedHandler43() { return false; }
    /// The view changed as a whole (a zoom, or another tile model); sent after
    /// the level and scale events. Layers move their objects' items to match.
    virtual bool OnViewChanged() { return false; } // 44
    /// Reserved handler of the host interface: it holds the slot numbering
    /// and returns false.
    virtual bool ReservedHandler45() { return false; }
    /// The view was panned without a change of level or scale. Layers move
    /// their objects' items to match.
    virtual bool OnViewMoved() { return false; } // 46
};
