// Out-of-line destructors of the kind and edit interfaces. Each is its class's
// key function, so the vtable and typeinfo are emitted once, here, and
// dynamic_cast between interfaces works across library boundaries.

#include <ZoGraphics/IZoBowMapObject.h>
#include <ZoGraphics/IZoBubbleMapObject.h>
#include <ZoGraphics/IZoCircleMapObject.h>
#include <ZoGraphics/IZoEllipseMapObject.h>
#include <ZoGraphics/IZoGraphicsEditObject.h>
#include <ZoGraphics/IZoLayerCanvasMapObject.h>
#include <ZoGraphics/IZoMarkPointMapObject.h>
#include <ZoGraphics/IZoMultiDotMapObject.h>
#include <ZoGraphics/IZoMultiLineMapObject.h>
#include <ZoGraphics/IZoMultiPolygonMapObject.h>
#include <ZoGraphics/IZoPolygonMapObject.h>
#include <ZoGraphics/IZoPolylineMapObject.h>
#include <ZoGraphics/IZoRectangleMapObject.h>
#include <ZoGraphics/IZoSVGMapObject.h>
#include <ZoGraphics/IZoTextMapObject.h>
#include <ZoGraphics/IZoWidgetMapObject.h>

IZoCircleMapObject::~IZoCircleMapObject() = default;
IZoEllipseMapObject::~IZoEllipseMapObject() = default;
IZoBowMapObject::~IZoBowMapObject() = default;
IZoRectangleMapObject::~IZoRectangleMapObject() = default;
IZoBubbleMapObject::~IZoBubbleMapObject() = default;

IZoPolylineMapObject::~IZoPolylineMapObject() = default;
IZoPolygonMapObject::~IZoPolygonMapObject() = default;
IZoMultiDotMapObject::~IZoMultiDotMapObject() = default;
IZoMultiLineMapObject::~IZoMultiLineMapObject() = default;
IZoMultiPolygonMapObject::~IZoMultiPolygonMapObject() = default;

IZoTextMapObject::~IZoTextMapObject() = default;
IZoMarkPointMapObject::~IZoMarkPointMapObject() = default;
IZoSVGMapObject::~IZoSVGMapObject() = default;
IZoWidgetMapObject::~IZoWidgetMapObject() = default;
IZoLayerCanvasMapObject::~IZoLayerCanvasMapObject() = default;

IZoGraphicsEditObject::~IZoGraphicsEditObject() = default;
