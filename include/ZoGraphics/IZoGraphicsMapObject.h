#pragma once

#include <ZoGraphics/IZoMapObject.h>
#include <ZoGraphics/ZoCoreTypes.h>

#include <QColor>
#include <QFont>
#include <QVariant>

class QPainter;
class QGraphicsItem;
class CTileModel;
class CSpatialReference;
class IZoGraphicsMapLayer;

/// Values of `SetLabelPosition` for the surface shapes, the dot and the map
/// pin: the side of the shape or icon on which the name label stands.
enum EZoLabelSide : unsigned int
{
    E_LABEL_TOP = 0,    ///< Above the shape.
    E_LABEL_BOTTOM = 1, ///< Below the shape.
    E_LABEL_LEFT = 2,   ///< Left of the shape.
    E_LABEL_RIGHT = 3,  ///< Right of the shape.
    E_LABEL_CENTRE = 4, ///< On the shape's centre.
};

/// Values of `SetLabelAlignment`: where along its side the label stands, from
/// the side's start (its left or top end) to its end.
enum EZoLabelAlignment : unsigned int
{
    E_LABEL_ALIGN_START = 0,  ///< At the side's start.
    E_LABEL_ALIGN_MIDDLE = 1, ///< At the side's middle.
    E_LABEL_ALIGN_END = 2,    ///< At the side's end.
};

/// Values of `SetLabelPosition` for the line shapes: the segment at whose
/// middle the name label stands.
enum EZoLabelSegment : unsigned int
{
    E_LABEL_FIRST_SEGMENT = 0,  ///< Points 0 and 1.
    E_LABEL_MIDDLE_SEGMENT = 1, ///< The segment in the middle of the line.
    E_LABEL_LAST_SEGMENT = 2,   ///< The last two points.
};

/// What every graphic map object shares (slots 0 to 58): name and name
/// label, levels of detail and visibility, stacking, input, host properties,
/// its Qt item in the host's scene, and painting on a foreign canvas.
///
/// Objects are made, attached to a layer and destroyed only through
/// IZoGraphicsModule, which owns them: never delete one yourself. Each object
/// owns its Qt item and takes it out of the scene before deleting it.
/// Geometry is given in geographic coordinates, x longitude and y latitude in
/// degrees (WGS 84); sizes of symbols, pens and labels are in screen pixels
/// and keep their on-screen size as the view zooms. Levels of detail are the
/// host map's zoom levels; objects and labels show from 0 to 21 by default.
/// Call everything from the GUI thread that owns the scene.
///
/// No operation throws. A failure logs a warning and leaves a neutral result:
/// false, a default value, or nothing done. Warnings read
/// `[Class::Method] reason`, where Class is the concrete class, for example
/// `CZoDotMapObject`; each kind's interface lists the texts particular to it.
/// Setters called before `Initialise` store their value and skip the item.
/// The trailing numbers record each operation's fixed slot in the virtual
/// table, counted on from those of IZoMapObject.
class ZOGRAPHICS_EXPORT IZoGraphicsMapObject : public IZoMapObject
{
public:
    IZoGraphicsMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoGraphicsMapObject(const IZoGraphicsMapObject&) = default;
    IZoGraphicsMapObject& operator=(const IZoGraphicsMapObject&) = default;
    /// @}
    ~IZoGraphicsMapObject() override;

    /// The host map module given to `Initialise`; null before it and after
    /// `Unintialise`. Not owned.
    virtual IZoMapModule* GetMapModule() const = 0;                          // 11
    /// The object's layer as a graphics layer: null before `Initialise`, after
    /// `Unintialise`, or when the layer is not an IZoGraphicsMapLayer. Not owned.
    virtual IZoGraphicsMapLayer* GetGraphicsMapLayer() const = 0;            // 12
    /// Renames the object and lays its name label out again.
    /// @param name the new name, GB18030-encoded. Line feeds break the label
    /// into lines; an empty name draws no label. The module's lookups by name
    /// find the object under its new name.
    virtual void SetName(const std::string& name) = 0;                       // 13
    /// Stores a host value under a text key, replacing any earlier value; the
    /// library never reads it.
    virtual void SetProperty(const std::string& key, const QVariant& value) = 0; // 14
    /// The value stored under `key`, or an invalid QVariant for a key never set.
    virtual QVariant GetProperty(const std::string& key) const = 0;          // 15
    /// Stores a host value under an int role, replacing any earlier value; the
    /// library never reads it.
    virtual void SetUserData(int role, const QVariant& value) = 0;           // 16
    /// The value stored under `role`, or an invalid QVariant for a role never set.
    virtual QVariant GetUserData(int role) const = 0;                        // 17
    /// Switches the name label on or off (off by default) and lays it out again.
    /// The label shows only while the name is not empty and the current level
    /// lies within both the label's level range and the layer's name range.
    /// The layer's own SetNameVisible sets this switch on all its objects.
    virtual void SetNameVisible(bool visible) = 0;                           // 18
    /// Whether the name label shows at the map's current level: switched on, and
    /// the level within the label's range and, with a graphics layer, the layer's
    /// name range (bounds included). The object's own visibility is not consulted.
    /// Without a map module logs `[Class::IsNameVisible] MapModule模块未初始化设置`
    /// and returns false.
    virtual bool IsNameVisible() const = 0;                                  // 19
    /// Sets the label's font and lays the label out again. The default is 微软雅黑
    /// at 12 points.
    virtual void SetNameFont(const QFont& font) = 0;                         // 20
    /// The label's font.
    virtual QFont GetNameFont() const = 0;                                   // 21
    /// Sets the colour of the label's glyphs (default red) and repaints.
    virtual void SetNameColor(const QColor& color) = 0;                      // 22
    /// The colour of the label's glyphs.
    virtual QColor GetNameColor() const = 0;                                 // 23
    /// Sets the colour of the halo around the label's glyphs (default black) and
    /// repaints.
    virtual void SetNameOutlineColor(const QColor& color) = 0;               // 24
    /// The colour of the label's halo.
    virtual QColor GetNameOutlineColor() const = 0;                          // 25
    /// Sets the label's halo width (default 1.0) and repaints: 0 draws no halo,
    /// any other width a halo pen 2.5 times as wide, in pixels. A negative width,
    /// one above 1e6 or one that is not a number is ignored.
    virtual void SetNameOutlineWidth(double width) = 0;                      // 26
    /// The label's halo width; the halo pen is 2.5 times as wide, in pixels.
    virtual double GetNameOutlineWidth() const = 0;                          // 27
    /// Sets the gap in pixels between the label's anchor on the shape and its
    /// text (default 0) and lays the label out again. An offset beyond 1e6 pixels
    /// either way, or one that is not a number, is ignored.
    virtual void SetNameOffset(float offset) = 0;                            // 28
    /// The gap in pixels between the label's anchor and its text.
    virtual float GetNameOffset() const = 0;                                 // 29
    /// Sets the lowest level of detail at which the label shows (default 0).
    /// Only stored: it takes effect at the next repaint.
    virtual void SetNameMinLodLevel(int level) = 0;                          // 30
    /// The lowest level of detail at which the label shows.
    virtual int GetNameMinLodLevel() const = 0;                              // 31
    /// Sets the highest level of detail at which the label shows (default 21).
    /// Only stored: it takes effect at the next repaint.
    virtual void SetNameMaxLodLevel(int level) = 0;                          // 32
    /// The highest level of detail at which the label shows.
    virtual int GetNameMaxLodLevel() const = 0;                              // 33
    /// Sets the stacking value of the object's item: higher values draw above
    /// lower ones. `Initialise` starts from the layer's value, and attaching the
    /// object to a layer or changing the layer's value overwrites it.
    virtual void SetZValue(int z) = 0;                                       // 34
    /// The stacking value of the object's item.
    virtual int GetZValue() const = 0;                                       // 35
    /// Switches hover and mouse input of the item on or off (off by default).
    /// Only an interactive object reports hover and clicks to the host; presses,
    /// releases and double clicks still travel on to the items below and the view.
    virtual void SetInteractive(bool interactive) = 0;                       // 36
    /// Whether the item takes hover and mouse input.
    virtual bool IsInteractive() const = 0;                                  // 37
    /// The user's visibility switch (on by default). The object is drawn while
    /// the switch is on, the current level lies within the object's and the
    /// layer's level ranges and the layer is visible. Without a map module the
    /// switch is only stored, to take effect at the next level change. The
    /// layer's own SetVisible sets this switch on all its objects.
    virtual void SetVisible(bool visible) = 0;                               // 38
    /// Whether the object shows at the map's current level by its own switch and
    /// the object's and the layer's level ranges (bounds included). Unlike the
    /// drawing it does not consult the layer's own visible flag. Without a map
    /// module or a graphics layer logs `[Class::IsVisible] 模块未初始化设置` and
    /// returns false.
    virtual bool IsVisible() const = 0;                                      // 39
    /// Makes the object rebuild and paint on every request, whatever the layer's
    /// shape cache (off by default); see SetRebuildThreshold().
    virtual void SetAlwaysRebuild(bool always) = 0;                          // 40
    /// Whether the object ignores the layer's shape cache.
    virtual bool IsAlwaysRebuild() const = 0;                                // 41
    /// Whether the kind declares itself rotatable: true for the bow and the
    /// polygon, false for every other kind. The library itself does not consult it.
    virtual bool IsRotatable() const = 0;                                    // 42
    /// The object's box in geographic coordinates (x longitude, y latitude, in
    /// degrees). Kinds placed by an anchor, the circle, ellipse, bow and
    /// rectangle included, answer the degenerate box at their anchor, from
    /// (x, y, -1) to (x, y, 1); kinds made of point lists span their points.
    virtual CAABB GetBoundingBox() const = 0;                                // 43: geographic
    /// Sets the value that, with the layer's shape cache, holds the object still
    /// (default -1.0). While the graphics layer's shape cache is enabled,
    /// always-rebuild is off and the threshold lies strictly between -1.0 and
    /// 12.0, requests to rebuild that are not forced are skipped and the item
    /// draws nothing. With the default every request rebuilds.
    virtual void SetRebuildThreshold(double threshold) = 0;                  // 44
    /// The value that, with the layer's shape cache, holds the object still.
    virtual double GetRebuildThreshold() const = 0;                          // 45
    /// Does nothing in every kind; kept for the interface.
    virtual void SetEditAngle(double degrees) = 0;                           // 46
    /// Always 0.
    virtual double GetEditAngle() const = 0;                                 // 47
    /// Works out whether the object shows at level `lod` and shows or hides its
    /// item to match; the layer calls it for every object when the map's level
    /// changes. The object shows while its switch is on, `lod` lies within its own
    /// and the layer's level ranges (bounds included) and the layer is visible.
    virtual void UpdateVisibility(int lod) = 0;                              // 48
    /// Takes the host's view scale and rebuilds the shape for it, forced past the
    /// shape cache: sizes in pixels become scene units by k = 1 / `scale`. The
    /// layer calls it for every object when the view scale changes. A scale
    /// outside 1e-12 to 1e12, or not a number, keeps the previous k.
    virtual void SetResolution(double scale) = 0;                            // 49
    /// Moves the item to the pixel position of the object's geographic anchor;
    /// the layer calls it for every object when the view moves. Does nothing
    /// without an item. Without a map module the item goes to (0, 0); an anchor
    /// the map module cannot convert logs the kind's conversion warning, for the
    /// dot `[CZoDotMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败`, and
    /// also goes to (0, 0).
    virtual void UpdatePosition() = 0;                                       // 50
    /// Draws the object into a foreign painter outside the scene, for example
    /// a layer canvas or an export. Sizes are drawn in pixels (scale 1.0). An
    /// object without a Qt item paints through a temporary one.
    /// @param painter what to draw into; saved and restored.
    /// @param converter the tile model that turns geographic points into the
    /// canvas's pixels at `level`.
    /// @param level the canvas's level of detail: it selects the pixels and
    /// whether the name label shows.
    /// @param target the canvas's spatial reference, or null for longitude and
    /// latitude; given, the geometry is first transformed from EPSG:4326 to it.
    ///
    /// A null painter or converter logs `[Class::PaintOnCanvas] 传入参数为空` and
    /// draws nothing; an anchor the converter cannot place draws nothing, silently.
    virtual void PaintOnCanvas(QPainter* painter, CTileModel* converter, int level,
                               CSpatialReference* target) = 0;               // 51
    /// The Qt item that draws the object, or null while there is none: before
    /// `Initialise` on a layer that does not add automatically, and after
    /// `Unintialise`. The object owns it; do not delete it or put it into a
    /// scene yourself.
    virtual QGraphicsItem* GetQtItem() const = 0;                            // 52
    /// Whether the item is in the map module's scene.
    virtual bool IsInScene() const = 0;                                      // 53
    /// Puts the item into the map module's scene, creating it if there is none,
    /// and reapplies visibility and input. Does nothing when already in the
    /// scene, or (silently) without a map module or scene.
    virtual void AddToScene() = 0;                                           // 54
    /// Takes the item out of the scene and switches off its visibility and
    /// input; the item is kept for a later AddToScene().
    virtual void RemoveFromScene() = 0;                                      // 55
    /// Rebuilds the shape now, forced past the shape cache, creating the item
    /// (outside the scene) if there is none.
    /// @param scale the host's view scale: from 1e-12 to 1e12 it sets
    /// k = 1 / `scale`; any other value keeps k.
    virtual void Rebuild(double scale) = 0;                                  // 56
    /// Reapplies everything to the item after a change of view or layer: z
    /// value, input, visibility and position, then the visibility at the map's
    /// current level. Without an item logs `[Class::Dirty] Qt-Item不存在` and does
    /// nothing.
    virtual void Dirty() = 0;                                                // 57
    /// Schedules a repaint of the item; does nothing without one.
    virtual void Update() = 0;                                               // 58
};
