#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

class QObject;
class QGraphicsScene;
class IZoMapEventHandler;

// The host's map module as the graphics library sees it: 108 virtual slots,
// slot 0 the destructor. The library uses the named operations; the others are
// reserved operations of the host interface that keep the slot numbering.
// Every operation has a neutral default body (null, 0, false; view scale 1.0)
// so that a host or a test double overrides only what it needs.
class ZOGRAPHICS_EXPORT IZoMapModule
{
public:
    IZoMapModule() = default;
    IZoMapModule(const IZoMapModule&) = default;
    IZoMapModule& operator=(const IZoMapModule&) = default;
    virtual ~IZoMapModule();                                      // 0

    virtual int ReservedSlot001() { return 0; }
    virtual int ReservedSlot002() { return 0; }
    virtual int ReservedSlot003() { return 0; }
    virtual int ReservedSlot004() { return 0; }
    virtual int ReservedSlot005() { return 0; }
    virtual int ReservedSlot006() { return 0; }
    virtual int ReservedSlot007() { return 0; }
    virtual int ReservedSlot008() { return 0; }
    // 9: the QObject on which items record scene events as dynamic properties
    virtual QObject* GetEventObject() { return nullptr; }
    // 10: the scene that shows the map objects' items
    virtual QGraphicsScene* GetScene() { return nullptr; }
    virtual int ReservedSlot011() { return 0; }
    virtual int ReservedSlot012() { return 0; }
    virtual int ReservedSlot013() { return 0; }
    virtual int ReservedSlot014() { return 0; }
    virtual int ReservedSlot015() { return 0; }
    // 16: E_TILE_MODEL of the map; 2 also means geographic outline computation
    virtual int GetTileModelKind() { return 0; }
    virtual int ReservedSlot017() { return 0; }
    virtual int ReservedSlot018() { return 0; }
    virtual int ReservedSlot019() { return 0; }
    virtual int ReservedSlot020() { return 0; }
    virtual int ReservedSlot021() { return 0; }
    virtual int ReservedSlot022() { return 0; }
    virtual int ReservedSlot023() { return 0; }
    virtual int ReservedSlot024() { return 0; }
    virtual int ReservedSlot025() { return 0; }
    virtual int ReservedSlot026() { return 0; }
    virtual int ReservedSlot027() { return 0; }
    // 28: fractional zoom factor within the current level
    virtual double GetViewScale() { return 1.0; }
    virtual int ReservedSlot029() { return 0; }
    virtual int ReservedSlot030() { return 0; }
    virtual int ReservedSlot031() { return 0; }
    virtual int ReservedSlot032() { return 0; }
    virtual int ReservedSlot033() { return 0; }
    virtual int ReservedSlot034() { return 0; }
    virtual int ReservedSlot035() { return 0; }
    // 36: current level of detail
    virtual int GetCurrentLodLevel() { return 0; }
    virtual int ReservedSlot037() { return 0; }
    virtual int ReservedSlot038() { return 0; }
    virtual int ReservedSlot039() { return 0; }
    virtual int ReservedSlot040() { return 0; }
    virtual int ReservedSlot041() { return 0; }
    virtual int ReservedSlot042() { return 0; }
    virtual int ReservedSlot043() { return 0; }
    virtual int ReservedSlot044() { return 0; }
    virtual int ReservedSlot045() { return 0; }
    virtual int ReservedSlot046() { return 0; }
    virtual int ReservedSlot047() { return 0; }
    virtual int ReservedSlot048() { return 0; }
    virtual int ReservedSlot049() { return 0; }
    virtual int ReservedSlot050() { return 0; }
    virtual int ReservedSlot051() { return 0; }
    virtual int ReservedSlot052() { return 0; }
    virtual int ReservedSlot053() { return 0; }
    virtual int ReservedSlot054() { return 0; }
    virtual int ReservedSlot055() { return 0; }
    virtual int ReservedSlot056() { return 0; }
    virtual int ReservedSlot057() { return 0; }
    virtual int ReservedSlot058() { return 0; }
    virtual int ReservedSlot059() { return 0; }
    // 60: geographic point to integer scene pixels
    virtual bool ConvertSceneToPixel(int* px, int* py, double x, double y) { (void)px; (void)py; (void)x; (void)y; return false; }
    // 61: integer scene pixels back to a geographic point
    virtual void ConvertPixelToScene(double* x, double* y, int px, int py) { (void)x; (void)y; (void)px; (void)py; }
    virtual int ReservedSlot062() { return 0; }
    virtual int ReservedSlot063() { return 0; }
    virtual int ReservedSlot064() { return 0; }
    virtual int ReservedSlot065() { return 0; }
    virtual int ReservedSlot066() { return 0; }
    virtual int ReservedSlot067() { return 0; }
    virtual int ReservedSlot068() { return 0; }
    virtual int ReservedSlot069() { return 0; }
    virtual int ReservedSlot070() { return 0; }
    virtual int ReservedSlot071() { return 0; }
    virtual int ReservedSlot072() { return 0; }
    virtual int ReservedSlot073() { return 0; }
    virtual int ReservedSlot074() { return 0; }
    virtual int ReservedSlot075() { return 0; }
    virtual int ReservedSlot076() { return 0; }
    // 77: distance between two geographic points in the map's unit
    virtual double CalculateDistance(double x1, double y1, double x2, double y2) { (void)x1; (void)y1; (void)x2; (void)y2; return 0.0; }
    virtual int ReservedSlot078() { return 0; }
    virtual int ReservedSlot079() { return 0; }
    virtual int ReservedSlot080() { return 0; }
    virtual int ReservedSlot081() { return 0; }
    virtual int ReservedSlot082() { return 0; }
    virtual int ReservedSlot083() { return 0; }
    virtual int ReservedSlot084() { return 0; }
    virtual int ReservedSlot085() { return 0; }
    virtual int ReservedSlot086() { return 0; }
    virtual int ReservedSlot087() { return 0; }
    virtual int ReservedSlot088() { return 0; }
    virtual int ReservedSlot089() { return 0; }
    virtual int ReservedSlot090() { return 0; }
    virtual int ReservedSlot091() { return 0; }
    virtual int ReservedSlot092() { return 0; }
    virtual int ReservedSlot093() { return 0; }
    virtual int ReservedSlot094() { return 0; }
    virtual int ReservedSlot095() { return 0; }
    virtual int ReservedSlot096() { return 0; }
    virtual int ReservedSlot097() { return 0; }
    virtual int ReservedSlot098() { return 0; }
    virtual int ReservedSlot099() { return 0; }
    virtual int ReservedSlot100() { return 0; }
    virtual int ReservedSlot101() { return 0; }
    virtual int ReservedSlot102() { return 0; }
    virtual int ReservedSlot103() { return 0; }
    virtual int ReservedSlot104() { return 0; }
    virtual int ReservedSlot105() { return 0; }
    // 106: adds a handler; handlers are asked in order until one consumes an event
    virtual void RegisterEventHandler(IZoMapEventHandler* handler, int priority) { (void)handler; (void)priority; }
    // 107
    virtual void UnregisterEventHandler(IZoMapEventHandler* handler) { (void)handler; }
};
