#pragma once

/// @file
/// Everything a host needs from the graphics library in one include: the
/// platform pieces, the host interfaces, the module, layers, every object
/// kind, GeoJSON and the edit interfaces.

#include <ZoGraphics/ZoGraphicsExport.h>

#include <ZoGraphics/ZoCore.h>
#include <ZoGraphics/ZoCoreTypes.h>
#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/CZoVariantSetObject.h>
#include <ZoGraphics/ZoLogSystem.h>
#include <ZoGraphics/ZoTileModel.h>
#include <ZoGraphics/SrsToolkit.h>
#include <ZoGraphics/ZoGraphicsConstant.h>

#include <ZoGraphics/IObject.h>
#include <ZoGraphics/IZoMapLayer.h>
#include <ZoGraphics/IZoMapObject.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/IZoMapView.h>
#include <ZoGraphics/IZoMapEventHandler.h>

#include <ZoGraphics/IZoGraphicsModule.h>
#include <ZoGraphics/CZoGraphicsModule.h>
#include <ZoGraphics/IZoGraphicsMapLayer.h>
#include <ZoGraphics/IZoLabelDeclutter.h>
#include <ZoGraphics/IZoGraphicsMapObject.h>
#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>
#include <ZoGraphics/IZoLineStyleGraphicsMapObject.h>

#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoCircleMapObject.h>
#include <ZoGraphics/IZoEllipseMapObject.h>
#include <ZoGraphics/IZoBowMapObject.h>
#include <ZoGraphics/IZoRectangleMapObject.h>
#include <ZoGraphics/IZoBubbleMapObject.h>

#include <ZoGraphics/IZoPolylineMapObject.h>
#include <ZoGraphics/IZoPolygonMapObject.h>
#include <ZoGraphics/IZoMultiDotMapObject.h>
#include <ZoGraphics/IZoMultiLineMapObject.h>
#include <ZoGraphics/IZoMultiPolygonMapObject.h>
#include <ZoGraphics/ZoGeoJson.h>

#include <ZoGraphics/IZoTextMapObject.h>
#include <ZoGraphics/IZoMarkPointMapObject.h>
#include <ZoGraphics/IZoSVGMapObject.h>
#include <ZoGraphics/IZoWidgetMapObject.h>
#include <ZoGraphics/IZoLayerCanvasMapObject.h>

#include <ZoGraphics/IZoGraphicsEditObject.h>
#include <ZoGraphics/IZoGraphicsEditableUser.h>
