#pragma once

class IZoGraphicsModule;
class IZoGraphicsMapLayer;
class IZoDotMapObject;
class IZoPolylineMapObject;
class IZoRectangleMapObject;
class IZoTextMapObject;

// The map objects the gadgets draw themselves with, created through the
// module and set up alike for every gadget. Null without a module or when the
// module cannot create the object.
namespace ZoEditHandles
{
// User data role 0 set to true marks a map object as an edit handle.
constexpr int kHandleMarkRole = 0;

IZoDotMapObject* CreateMainDot(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer);
IZoDotMapObject* CreateSmallDot(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer);
IZoPolylineMapObject* CreateGuideLine(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer);
IZoRectangleMapObject* CreateFrame(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer);
IZoTextMapObject* CreateLabel(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer);
} // namespace ZoEditHandles
