#pragma once

// The reference host: a map module and a map view that show the Natural Earth
// basemap and the graphics library's objects.
#include <ZoGraphics/ZoMapHostExport.h>
#include <ZoGraphics/IZoMapEventHandler.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/IZoMapView.h>
#include <ZoGraphics/ZoTileModel.h>
#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/CZoMapView.h>
