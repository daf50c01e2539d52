#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

#include <string>
#include <vector>

class IZoGraphicsMapLayer;
class IZoGraphicsMapObject;
class IZoGraphicsEditObject;
class IZoTextMapObject;
class IZoWidgetMapObject;
class IZoBubbleMapObject;
class IZoSVGMapObject;
class IZoDotMapObject;
class IZoCircleMapObject;
class IZoEllipseMapObject;
class IZoRectangleMapObject;
class IZoPolygonMapObject;
class IZoMarkPointMapObject;
class IZoPolylineMapObject;
class IZoBowMapObject;
class IZoMultiDotMapObject;
class IZoMultiPolygonMapObject;
class IZoMultiLineMapObject;
class IZoLayerCanvasMapObject;

// Name of the layer that Initialise creates and that creators use when they
// are given no layer.
ZOGRAPHICS_EXPORT extern const std::string STR_DEAFULT_GRAPHICS_LAYER_NAME;

// The graphics module: factory and registry of layers, map objects and edit
// objects (52 slots).
class ZOGRAPHICS_EXPORT IZoGraphicsModule
{
public:
    IZoGraphicsModule() = default;
    IZoGraphicsModule(const IZoGraphicsModule&) = default;
    IZoGraphicsModule& operator=(const IZoGraphicsModule&) = default;
    virtual ~IZoGraphicsModule();                                                          // 0

    virtual IZoGraphicsMapLayer* GetDeafultGraphicsLayer() const = 0;                       // 1
    virtual IZoGraphicsMapLayer* CreateGraphicsLayer(const std::string& name) = 0;          // 2
    virtual IZoGraphicsMapLayer* LookupGraphicsLayer(const std::string& name) const = 0;    // 3
    virtual void DestroyGraphicsLayer(IZoGraphicsMapLayer* layer) = 0;                      // 4
    virtual IZoGraphicsEditObject* CreateTranslateEditObject(IZoGraphicsMapLayer* layer) = 0;   // 5
    virtual IZoGraphicsEditObject* CreateRotationEditObject(IZoGraphicsMapLayer* layer) = 0;    // 6
    virtual IZoGraphicsEditObject* CreateScaleEditObject(IZoGraphicsMapLayer* layer) = 0;       // 7
    virtual IZoGraphicsEditObject* CreateKeyPointSetEditObject(IZoGraphicsMapLayer* layer) = 0; // 8
    virtual void DestroyGraphicsEditObject(IZoGraphicsEditObject* editObject) = 0;          // 9
    virtual IZoGraphicsMapObject* LookupGraphicObject(const std::string& name) const = 0;   // 10
    virtual IZoGraphicsMapObject* LookupGraphicObject(int id) const = 0;                    // 11
    virtual void DestroyGraphicsMapObject(IZoGraphicsMapObject* object) = 0;                // 12

    virtual IZoTextMapObject* CreateTextMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;        // 13
    virtual IZoTextMapObject* LookupTextMapObject(const std::string& name) const = 0;                             // 14
    virtual IZoWidgetMapObject* CreateWidgetMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;    // 15
    virtual IZoWidgetMapObject* LookupWidgetMapObject(const std::string& name) const = 0;                         // 16
    virtual IZoBubbleMapObject* CreateBubbleMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;    // 17
    virtual IZoBubbleMapObject* LookupBubbleMapObject(const std::string& name) const = 0;                         // 18
    virtual IZoSVGMapObject* CreateSVGMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;          // 19
    virtual IZoSVGMapObject* LookupSVGMapObject(const std::string& name) const = 0;                               // 20
    virtual IZoDotMapObject* CreateDotMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;          // 21
    virtual IZoDotMapObject* LookupDotMapObject(const std::string& name) const = 0;                               // 22
    virtual IZoCircleMapObject* CreateCircleMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;    // 23
    virtual IZoCircleMapObject* LookupCircleMapObject(const std::string& name) const = 0;                         // 24
    virtual IZoEllipseMapObject* CreateEllipseMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;  // 25
    virtual IZoEllipseMapObject* LookupEllipseMapObject(const std::string& name) const = 0;                       // 26
    virtual IZoRectangleMapObject* CreateRectangleMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0; // 27
    virtual IZoRectangleMapObject* CreateTileMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;      // 28
    virtual IZoRectangleMapObject* LookupRectangleMapObject(const std::string& name) const = 0;                      // 29
    virtual IZoPolygonMapObject* CreatePolygonMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;  // 30
    virtual IZoPolygonMapObject* LookupPolygonMapObject(const std::string& name) const = 0;                       // 31
    virtual IZoMarkPointMapObject* CreateMarkPointMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0; // 32
    virtual IZoMarkPointMapObject* LookupLabelMapObject(const std::string& name) const = 0;                          // 33
    virtual IZoPolylineMapObject* CreatePolylineMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;  // 34
    virtual IZoPolylineMapObject* LookupPolylineMapObject(const std::string& name) const = 0;                       // 35
    virtual IZoBowMapObject* CreatePieMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;          // 36
    virtual IZoBowMapObject* CreateArcMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;          // 37
    virtual IZoBowMapObject* CreateChordMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;        // 38
    virtual IZoBowMapObject* LookupBowMapObject(const std::string& name) const = 0;                               // 39
    virtual IZoMultiDotMapObject* CreateMultiDotMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;  // 40
    virtual IZoMultiDotMapObject* LookupMultiDotMapObject(const std::string& name) const = 0;                       // 41
    virtual IZoMultiPolygonMapObject* CreateMultiPolygonMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0; // 42
    virtual IZoMultiPolygonMapObject* LookupMultiPolygonMapObject(const std::string& name) const = 0;                      // 43
    virtual IZoMultiLineMapObject* CreateMultiLineMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;  // 44
    virtual IZoMultiLineMapObject* LookupMultiLineMapObject(const std::string& name) const = 0;                       // 45
    virtual IZoLayerCanvasMapObject* CreateLayerCanvasMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0; // 46
    virtual IZoLayerCanvasMapObject* LookupLayerCanvasMapObject(const std::string& name) const = 0;                      // 47

    // 48-51: stack an object against the objects with the given ids.
    virtual void StackedTop(IZoGraphicsMapObject* object, const std::vector<int>& ids) = 0;
    virtual void StackedUpper(IZoGraphicsMapObject* object, const std::vector<int>& ids) = 0;
    virtual void StackedLower(IZoGraphicsMapObject* object, const std::vector<int>& ids) = 0;
    virtual void StackedBottom(IZoGraphicsMapObject* object, const std::vector<int>& ids) = 0;
};

// The process-wide module a host may publish for its other modules. The
// pointer is not owned; clear or replace it before destroying the module.
ZOGRAPHICS_EXPORT void SetGlobalZoGraphicsModule(IZoGraphicsModule* module);
ZOGRAPHICS_EXPORT IZoGraphicsModule* GetGlobalZoGraphicsModule();
// Named secondary modules are not supported; always null.
ZOGRAPHICS_EXPORT IZoGraphicsModule* GetSlaveZoGraphicsModule(const std::string& name);
