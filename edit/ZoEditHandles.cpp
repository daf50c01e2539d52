#include "edit/ZoEditHandles.h"

#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoGraphicsModule.h>
#include <ZoGraphics/IZoPolylineMapObject.h>
#include <ZoGraphics/IZoRectangleMapObject.h>
#include <ZoGraphics/IZoTextMapObject.h>

#include <QColor>

namespace
{
const char* const kDotName = "CustomEditDot";
const char* const kLineName = "CustomEditLine";
const char* const kRectName = "CustomEditRect";

// Every marked handle gets the same framing: marked, rebuilt at every view
// change and hit-testable first, its name hidden last.
template <class T, class Style>
T* MarkedHandle(T* handle, Style style)
{
    if (!handle)
        return nullptr;
    handle->SetUserData(ZoEditHandles::kHandleMarkRole, true);
    handle->SetAlwaysRebuild(true);
    handle->SetInteractive(true);
    style(handle);
    handle->SetNameVisible(false);
    return handle;
}

IZoDotMapObject* Dot(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer, double radius, const QColor& brush,
                     const QColor& pen, float penWidth)
{
    if (!module)
        return nullptr;
    return MarkedHandle(module->CreateDotMapObject(kDotName, layer), [&](IZoDotMapObject* dot) {
        dot->SetRadius(radius);
        dot->SetBrushColor(brush);
        dot->SetPenColor(pen);
        dot->SetPenWidth(penWidth);
    });
}
} // namespace

namespace ZoEditHandles
{
IZoDotMapObject* CreateMainDot(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer)
{
    return Dot(module, layer, 6.0, Qt::white, Qt::black, 2.0f);
}

IZoDotMapObject* CreateSmallDot(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer)
{
    return Dot(module, layer, 4.5, Qt::red, Qt::red, 1.0f);
}

IZoPolylineMapObject* CreateGuideLine(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer)
{
    if (!module)
        return nullptr;
    return MarkedHandle(module->CreatePolylineMapObject(kLineName, layer), [](IZoPolylineMapObject* line) {
        line->SetPenColor(Qt::red);
        line->SetPenWidth(2.0f);
        line->SetPenStyle(Qt::DashDotLine);
    });
}

IZoRectangleMapObject* CreateFrame(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer)
{
    if (!module)
        return nullptr;
    return MarkedHandle(module->CreateRectangleMapObject(kRectName, layer), [](IZoRectangleMapObject* frame) {
        frame->SetPenColor(Qt::red);
        frame->SetPenWidth(2.0f);
        frame->SetPenStyle(Qt::DashDotLine);
        frame->SetBrushColor(Qt::transparent);
    });
}

IZoTextMapObject* CreateLabel(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer)
{
    if (!module)
        return nullptr;
    IZoTextMapObject* label = module->CreateTextMapObject("", layer);
    if (!label)
        return nullptr;
    label->SetBackgroundColor(Qt::white);
    label->SetBorderColor(Qt::black);
    label->SetBorderWidth(1.0);
    return label;
}
} // namespace ZoEditHandles
