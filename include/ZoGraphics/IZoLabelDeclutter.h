#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

/// Label decluttering for the graphics layers of this library.
///
/// Layers made by CZoGraphicsModule implement this interface beside
/// IZoGraphicsMapLayer; reach it with `dynamic_cast<IZoLabelDeclutter*>(layer)`.
///
/// When it is on, the layer places its objects' name labels in priority order
/// (higher z value first, then lower object id). A label whose text box, halo
/// included, would overlap a label already placed tries other places around
/// its object's anchor, at the distance its own placement keeps: above right,
/// below right, above left, below left, then above, below, left and right. A
/// label that fits in none of them is not drawn. Collisions
/// are tested in screen pixels; the objects themselves are still drawn and
/// still take part in hit tests. Labels that are not drawn anyway (hidden
/// object, name out of its level range, object out of the scene) take no
/// room. Labels of different layers do not compete. Off by default.
class ZOGRAPHICS_EXPORT IZoLabelDeclutter
{
public:
    /// Virtual, so that an implementation may be deleted through this interface.
    virtual ~IZoLabelDeclutter();

    /// Turns decluttering on or off and repaints every object of the layer;
    /// setting the current value again does nothing. Turning it off shows
    /// every label that decluttering had hidden.
    virtual void SetLabelDeclutter(bool enabled) = 0;
    /// Whether decluttering is on; false by default.
    virtual bool IsLabelDeclutter() const = 0;
};

/// What the last decluttering decision came to, for hosts that compare label
/// placement or watch its cost. Layers made by CZoGraphicsModule implement it;
/// reach it with `dynamic_cast<IZoLabelDeclutter2*>(layer)`.
///
/// A decision is taken when a frame first draws a label after the layer's
/// objects, their labels or the view's scale changed, or when a frame shows
/// more than the last decision covered. It covers the part of the scene the
/// frame shows, together with what every view of the scene shows, and a
/// quarter of that again on every side, so that a pan within that margin keeps
/// it; labels that cannot reach that area wait for a frame that shows them.
/// The counts are of the labels anchored in the frame and the views, without
/// the margin. Labels that are not drawn anyway (hidden
/// object, name out of its level range) count as neither placed nor dropped.
/// Both counts are 0 until the first decision and after decluttering is
/// turned off.
class ZOGRAPHICS_EXPORT IZoLabelDeclutter2 : public IZoLabelDeclutter
{
public:
    ~IZoLabelDeclutter2() override;

    /// Labels drawn, at their own place or at another one.
    virtual int GetPlacedLabelCount() const = 0;
    /// Labels that found no free place and are not drawn.
    virtual int GetDroppedLabelCount() const = 0;
};
