#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

// Label decluttering for the graphics layers of this library. Layers made by
// CZoGraphicsModule implement this interface beside IZoGraphicsMapLayer;
// reach it with dynamic_cast<IZoLabelDeclutter*>(layer).
//
// When it is on, the layer places its objects' name labels in priority order
// (higher z value first, then lower object id) and does not draw a label whose
// text box, halo included, would overlap a label already placed. Collisions
// are tested in screen pixels; the objects themselves are still drawn and
// still take part in hit tests. Labels of different layers do not compete.
// Off by default.
class ZOGRAPHICS_EXPORT IZoLabelDeclutter
{
public:
    virtual ~IZoLabelDeclutter();

    virtual void SetLabelDeclutter(bool enabled) = 0;
    virtual bool IsLabelDeclutter() const = 0;
};
