#pragma once

/// @file
/// The reference host: a map module and a map view that show the Natural Earth
/// basemap and the graphics library's objects. Include this to get CZoMapModule,
/// CZoMapView and the interfaces they implement.
#include <ZoGraphics/ZoMapHostExport.h>
#include <ZoGraphics/IZoMapEventHandler.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/IZoMapView.h>
#include <ZoGraphics/ZoTileModel.h>
#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/CZoMapView.h>
