#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

/// Label decluttering for the graphics layers of this library.
///
/// Layers made by CZoGraphicsModule implement this interface beside
/// IZoGraphicsMapLayer; reach it with `dynamic_cast<IZoLabelDeclutter*>(layer)`.
///
/// When it is on, the layer places its objects' name labels in priority order
/// (higher z value first, then lower object id) and does not draw a label whose
/// text box, halo included, would overlap a label already placed. Collisions
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
