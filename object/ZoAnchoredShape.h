#pragma once

#include "object/CZoNameLabel.h"

#include <ZoGraphics/ZoCoreTypes.h>

#include <QPointF>
#include <QRectF>

class CZoMapObjectCore;
class IZoGraphicsMapLayer;
class IZoMapModule;

// Helpers of the shapes placed by a geographic centre or extent: circle,
// ellipse, bow and rectangle.

// Both coordinates are numbers a map module can convert.
bool ZoIsFinitePoint(const CVector3D& point);

// Finite corners; an extent of zero width or height is valid and draws a
// degenerate shape, one with a minimum above its maximum is drawn between
// its corners (a scale box's frame passes through such while dragged).
bool ZoIsValidExtent(const EXTENT& extent);
// The east edge of an extent as a longitude that continues its west edge.
// An x maximum below the minimum is reached the short way: 170 to -170 is
// 20 degrees across the antimeridian, 5 to 3 the box from 3 to 5.
double ZoExtentEast(const EXTENT& extent);
// A non-finite corner handed to a setter is refused with "[cls::method] 坐标无效".
bool ZoAcceptExtent(const EXTENT& extent, const char* cls, const char* method);

// Geographic point to integer scene pixels through the map module, without
// logging. False without a map module, for a non-finite point, or when the
// module cannot convert it. A longitude past +-180 lies beside the world, so
// that a shape's corners and rim may continue across the antimeridian.
bool ZoGeoToScenePixel(IZoMapModule* mapModule, const CVector3D& point, QPointF* pixel);

// The item position of an anchor. A point that cannot be converted, a
// non-finite one included, logs the kind's conversion text and gives (0, 0).
QPointF ZoAnchorToScenePixel(const CZoMapObjectCore& core, const CVector3D& anchor);

// Start and span angles may be exactly -360; the result lies in [-360, 360).
double ZoNormaliseBowAngle(double degrees);
// Rotations may not; the result lies in (-360, 360).
double ZoNormaliseRotation(double degrees);

// Places a surface shape's label on an outline of w by h item pixels centred
// on the item origin, if it shows at lod. The centre position clips to the
// outline when the layer's second cache switch says so.
void ZoPlaceSurfaceLabel(CZoNameLabel& label, const IZoGraphicsMapLayer* layer, int lod, unsigned int position,
                         unsigned int alignment, double w, double h);
