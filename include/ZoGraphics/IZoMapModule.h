#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

class QObject;
class QGraphicsScene;
class IZoMapEventHandler;

/// The host's map module as the graphics library sees it: 108 virtual slots,
/// slot 0 the destructor.
///
/// The library uses the named operations; the others are reserved operations
/// of the host interface that keep the slot numbering. Every operation has a
/// neutral default body (null, 0, false; view scale 1.0) so that a host or a
/// test double overrides only what it needs. The defaults log nothing.
///
/// Geographic points are x = longitude and y = latitude in degrees (WGS 84).
/// The library calls the module from the GUI thread only.
class ZOGRAPHICS_EXPORT IZoMapModule
{
public:
    /// Creates a module whose operations all give their neutral results.
    IZoMapModule() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoMapModule(const IZoMapModule&) = default;
    IZoMapModule& operator=(const IZoMapModule&) = default;
    /// @}
    /// Destroys the module. The library never deletes the host's module.
    virtual ~IZoMapModule();                                      // 0

    /// @{ Reserved operations of the host interface: they hold the slot
    /// numbering and return 0.
    virtual int ReservedSlot001() { return 0; }
    virtual int ReservedSlot002() { return 0; }
    virtual int ReservedSlot003() { return 0; }
    virtual int ReservedSlot004() { return 0; }
    virtual int ReservedSlot005() { return 0; }
    virtual int ReservedSlot006() { return 0; }
    virtual int ReservedSlot007() { return 0; }
    virtual int ReservedSlot008() { return 0; }
    /// @}
    /// The QObject on which items record scene events as dynamic properties.
    /// Items append their object id to a QVariantList property named after the
    /// event ("Scene_MousePress" and the others; the grab events set a bool
    /// instead); the host reads and clears them. Default: null, and then no
    /// scene event is recorded.
    virtual QObject* GetEventObject() { return nullptr; } // 9
    /// The scene that shows the map objects' items. The library adds and
    /// removes items but never deletes the scene. Default: null, and then
    /// objects keep their items out of any scene.
    virtual QGraphicsScene* GetScene() { return nullptr; } // 10
    /// @{ Reserved operations of the host interface: they hold the slot
    /// numbering and return 0.
    virtual int ReservedSlot011() { return 0; }
    virtual int ReservedSlot012() { return 0; }
    virtual int ReservedSlot013() { return 0; }
    virtual int ReservedSlot014() { return 0; }
    virtual int ReservedSlot015() { return 0; }
    /// @}
    /// The map's tiling scheme, an ::E_TILE_MODEL value. Objects that convert
    /// through a tile model take the model of this kind; the value 2
    /// (::E_TILE_MODEL_GEODETIC) also makes shapes that compute outlines (the
    /// circle) work in geographic units. Default: 0, a kind without a model.
    virtual int GetTileModelKind() { return 0; } // 16
    /// @{ Reserved operations of the host interface: they hold the slot
    /// numbering and return 0.
    virtual int ReservedSlot017() { return 0; }
    virtual int ReservedSlot018() { return 0; }
    virtual int ReservedSlot019() { return 0; }
    virtual int ReservedSlot020() { return 0; }
    virtual int ReservedSlot021() { return 0; }
    virtual int ReservedSlot022() { return 0; }
    virtual int ReservedSlot023() { return 0; }
    virtual int ReservedSlot024() { return 0; }
    virtual int ReservedSlot025() { return 0; }
    virtual int ReservedSlot026() { return 0; }
    virtual int ReservedSlot027() { return 0; }
    /// @}
    /// The fractional zoom factor within the current level (1.0 = no extra
    /// magnification). Sizes given in pixels become scene units by
    /// k = 1 / scale; a value outside [1e-12, 1e12] or not a number leaves the
    /// objects' k unchanged. Default: 1.0.
    virtual double GetViewScale() { return 1.0; } // 28
    /// @{ Reserved operations of the host interface: they hold the slot
    /// numbering and return 0.
    virtual int ReservedSlot029() { return 0; }
    virtual int ReservedSlot030() { return 0; }
    virtual int ReservedSlot031() { return 0; }
    virtual int ReservedSlot032() { return 0; }
    virtual int ReservedSlot033() { return 0; }
    virtual int ReservedSlot034() { return 0; }
    virtual int ReservedSlot035() { return 0; }
    /// @}
    /// The current level of detail. It is the integer zoom level (0 to 21
    /// with this library's tile models) that objects and layers test against
    /// their level-of-detail ranges. Default: 0.
    virtual int GetCurrentLodLevel() { return 0; } // 36
    /// @{ Reserved operations of the host interface: they hold the slot
    /// numbering and return 0.
    virtual int ReservedSlot037() { return 0; }
    virtual int ReservedSlot038() { return 0; }
    virtual int ReservedSlot039() { return 0; }
    virtual int ReservedSlot040() { return 0; }
    virtual int ReservedSlot041() { return 0; }
    virtual int ReservedSlot042() { return 0; }
    virtual int ReservedSlot043() { return 0; }
    virtual int ReservedSlot044() { return 0; }
    virtual int ReservedSlot045() { return 0; }
    virtual int ReservedSlot046() { return 0; }
    virtual int ReservedSlot047() { return 0; }
    virtual int ReservedSlot048() { return 0; }
    virtual int ReservedSlot049() { return 0; }
    virtual int ReservedSlot050() { return 0; }
    virtual int ReservedSlot051() { return 0; }
    virtual int ReservedSlot052() { return 0; }
    virtual int ReservedSlot053() { return 0; }
    virtual int ReservedSlot054() { return 0; }
    virtual int ReservedSlot055() { return 0; }
    virtual int ReservedSlot056() { return 0; }
    virtual int ReservedSlot057() { return 0; }
    virtual int ReservedSlot058() { return 0; }
    virtual int ReservedSlot059() { return 0; }
    /// @}
    /// Converts a geographic point (x = longitude, y = latitude, degrees) to
    /// integer pixel coordinates of the scene, where items are placed.
    /// @return false when the point cannot be converted; objects then log
    ///         their conversion-failure text (ending in
    ///         "ConvertSceneToPixel失败") and place the item at (0, 0).
    ///         The default returns false and leaves the outputs untouched.
    virtual bool ConvertSceneToPixel(int* px, int* py, double x, double y) { (void)px; (void)py; (void)x; (void)y; return false; } // 60
    /// Converts integer scene pixels back to a geographic point (x = longitude,
    /// y = latitude, degrees); the reverse of ConvertSceneToPixel(). There is
    /// no result: a pixel that cannot be converted leaves the outputs
    /// untouched, so callers set them beforehand. The default does nothing.
    virtual void ConvertPixelToScene(double* x, double* y, int px, int py) { (void)x; (void)y; (void)px; (void)py; } // 61
    /// @{ Reserved operations of the host interface: they hold the slot
    /// numbering and return 0.
    virtual int ReservedSlot062() { return 0; }
    virtual int ReservedSlot063() { return 0; }
    virtual int ReservedSlot064() { return 0; }
    virtual int ReservedSlot065() { return 0; }
    virtual int ReservedSlot066() { return 0; }
    virtual int ReservedSlot067() { return 0; }
    virtual int ReservedSlot068() { return 0; }
    virtual int ReservedSlot069() { return 0; }
    virtual int ReservedSlot070() { return 0; }
    virtual int ReservedSlot071() { return 0; }
    virtual int ReservedSlot072() { return 0; }
    virtual int ReservedSlot073() { return 0; }
    virtual int ReservedSlot074() { return 0; }
    virtual int ReservedSlot075() { return 0; }
    virtual int ReservedSlot076() { return 0; }
    /// @}
    /// The distance between two geographic points in the map's distance unit.
    /// The points are longitude, latitude in degrees; objects report radii,
    /// widths and heights in this unit. Default: 0.0.
    virtual double CalculateDistance(double x1, double y1, double x2, double y2) { (void)x1; (void)y1; (void)x2; (void)y2; return 0.0; } // 77
    /// @{ Reserved operations of the host interface: they hold the slot
    /// numbering and return 0.
    virtual int ReservedSlot078() { return 0; }
    virtual int ReservedSlot079() { return 0; }
    virtual int ReservedSlot080() { return 0; }
    virtual int ReservedSlot081() { return 0; }
    virtual int ReservedSlot082() { return 0; }
    virtual int ReservedSlot083() { return 0; }
    virtual int ReservedSlot084() { return 0; }
    virtual int ReservedSlot085() { return 0; }
    virtual int ReservedSlot086() { return 0; }
    virtual int ReservedSlot087() { return 0; }
    virtual int ReservedSlot088() { return 0; }
    virtual int ReservedSlot089() { return 0; }
    virtual int ReservedSlot090() { return 0; }
    virtual int ReservedSlot091() { return 0; }
    virtual int ReservedSlot092() { return 0; }
    virtual int ReservedSlot093() { return 0; }
    virtual int ReservedSlot094() { return 0; }
    virtual int ReservedSlot095() { return 0; }
    virtual int ReservedSlot096() { return 0; }
    virtual int ReservedSlot097() { return 0; }
    virtual int ReservedSlot098() { return 0; }
    virtual int ReservedSlot099() { return 0; }
    virtual int ReservedSlot100() { return 0; }
    virtual int ReservedSlot101() { return 0; }
    virtual int ReservedSlot102() { return 0; }
    virtual int ReservedSlot103() { return 0; }
    virtual int ReservedSlot104() { return 0; }
    virtual int ReservedSlot105() { return 0; }
    /// @}
    /// Adds a handler of the map's events; handlers are asked in order until
    /// one consumes an event. The handler is not owned and must be
    /// unregistered before it is destroyed. Layers register with priority 0,
    /// edit gadgets with 100. The default does nothing.
    virtual void RegisterEventHandler(IZoMapEventHandler* handler, int priority) { (void)handler; (void)priority; } // 106
    /// Removes a handler added with RegisterEventHandler(); a handler that is
    /// not registered is ignored. The default does nothing.
    virtual void UnregisterEventHandler(IZoMapEventHandler* handler) { (void)handler; } // 107
};
