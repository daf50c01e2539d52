#pragma once

#include "content/canvas/CZoLayerCanvasMapObject.h"
#include "content/markpoint/CZoMarkPointMapObject.h"
#include "content/svg/CZoSVGMapObject.h"
#include "content/text/CZoTextMapObject.h"
#include "content/widget/CZoWidgetMapObject.h"
#include "shapes/bow/CZoBowMapObject.h"
#include "shapes/bubble/CZoBubbleMapObject.h"
#include "shapes/circle/CZoCircleMapObject.h"
#include "shapes/dot/CZoDotMapObject.h"
#include "shapes/ellipse/CZoEllipseMapObject.h"
#include "shapes/multidot/CZoMultiDotMapObject.h"
#include "shapes/multiline/CZoMultiLineMapObject.h"
#include "shapes/multipolygon/CZoMultiPolygonMapObject.h"
#include "shapes/polygon/CZoPolygonMapObject.h"
#include "shapes/polyline/CZoPolylineMapObject.h"
#include "shapes/rectangle/CZoRectangleMapObject.h"

#include <ZoGraphics/ZoGraphics.h>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

// What each class logs when used before Initialise or when its anchor fails
// to convert; hosts match on these texts, so they are written out in full.
struct KindTexts
{
    const char* initialise;
    const char* isVisible;
    const char* isNameVisible;
    const char* setMinLod;
    const char* setMaxLod;
    const char* dirty; // null: Dirty makes the missing item instead
    const char* paintOnCanvas;
    const char* anchorFailure;
    const char* setVisible; // null: SetVisible needs no map module
    bool keepsPlaceOnFailure; // a failed conversion leaves the item where it was
    bool rotatable;
};

enum class KindRow { Dot, Text, Circle, Ellipse, Rectangle, Bow, Bubble, MarkPoint, SVG, Widget, LayerCanvas,
                     Polyline, Polygon, MultiDot, MultiLine, MultiPolygon };

inline const KindTexts kKindTexts[] = {
    {"[CZoTextMapObject::Initialise] MapModule传入为空", "[CZoDotMapObject::IsVisible] 模块未初始化设置",
     "[CZoDotMapObject::IsNameVisible] MapModule模块未初始化设置", "[CZoDotMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoDotMapObject::SetMinLodLevel] MapModule模块未初始化设置", "[CZoDotMapObject::Dirty] Qt-Item不存在",
     "[CZoDotMapObject::PaintOnCanvas] 传入参数为空", "[CZoDotMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败",
     nullptr, false, false},
    {"[CZoTextMapObject::Initialise] MapModule传入为空", "[CZoTextMapObject::IsVisible] 模块未初始化设置",
     "[CZoTextMapObject::IsNameVisible] MapModule模块未初始化设置", "[CZoTextMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoTextMapObject::SetMaxLodLevel] MapModule模块未初始化设置", nullptr,
     "[CZoTextMapObject::PaintOnCanvas] 传入参数为空", "[CZoTextMapObject::UpdatePixelPosition] ConvertSceneToPixel失败",
     "[CZoTextMapObject::SetVisible] MapModule模块未初始化设置", true, false},
    {"[CZoCircleMapObject::Initialise] MapModule传入为空", "[CZoCircleMapObject::IsVisible] 模块未初始化设置",
     "[CZoCircleMapObject::IsNameVisible] MapModule模块未初始化设置", "[CZoCircleMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoCircleMapObject::SetMaxLodLevel] MapModule模块未初始化设置", "[CZoCircleMapObject::Dirty] Qt-Item不存在",
     "[CZoCircleMapObject::PaintOnCanvas] 传入参数为空", "[CZoCircleMapObject::ConvertCenterToPixel] ConvertSceneToPixel失败",
     nullptr, false, false},
    {"[CZoEllipseMapObject::Initialise] MapModule传入为空", "[CZoEllipseMapObject::IsVisible] 模块未初始化设置",
     "[CZoEllipseMapObject::IsNameVisible] MapModule模块未初始化设置", "[CZoEllipseMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoEllipseMapObject::SetMaxLodLevel] MapModule模块未初始化设置", "[CZoEllipseMapObject::Dirty] Qt-Item不存在",
     "[CZoEllipseMapObject::PaintOnCanvas] 传入参数为空", "[CZoEllipseMapObject::ConvertCenterToPixel] ConvertSceneToPixel失败",
     nullptr, false, false},
    {"[CZoRectangleMapObject::Initialise] MapModule传入为空", "[CZoRectangleMapObject::IsVisible] 模块未初始化设置",
     "[CZoRectangleMapObject::IsNameVisible] MapModule模块未初始化设置",
     "[CZoRectangleMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoRectangleMapObject::SetMaxLodLevel] MapModule模块未初始化设置", "[CZoRectangleMapObject::Dirty] Qt-Item不存在",
     "[CZoRectangleMapObject::PaintOnCanvas] 传入参数为空",
     "[CZoRectangleMapObject::ConvertGeoToPixel] ConvertSceneToPixel失败", nullptr, false, false},
    {"[CZoBowMapObject::Initialise] MapModule传入为空", "[CZoBowMapObject::IsVisible] 模块未初始化设置",
     "[CZoBowMapObject::IsNameVisible] MapModule模块未初始化设置", "[CZoBowMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoBowMapObject::SetMaxLodLevel] MapModule模块未初始化设置", "[CZoBowMapObject::Dirty] Qt-Item不存在",
     "[CZoBowMapObject::PaintOnCanvas] 传入参数为空", "[CZoBowMapObject::ConvertCenterToPixel] ConvertSceneToPixel失败",
     nullptr, false, true},
    {"[CZoBubbleMapObject::Initialise] MapModule传入为空", "[CZoBubbleMapObject::IsVisible] 模块未初始化设置",
     "[CZoBubbleMapObject::IsNameVisible] MapModule模块未初始化设置", "[CZoBubbleMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoBubbleMapObject::SetMaxLodLevel] MapModule模块未初始化设置", "[CZoBubbleMapObject::Dirty] Qt-Item不存在",
     "[CZoBubbleMapObject::PaintOnCanvas] 传入参数为空", "[CZoBubbleMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败",
     nullptr, false, false},
    {"[CZoMarkPointMapObject::Initialise] MapModule传入为空", "[CZoMarkPointMapObject::IsVisible] 模块未初始化设置",
     "[CZoMarkPointMapObject::IsNameVisible] MapModule模块未初始化设置",
     "[CZoMarkPointMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoMarkPointMapObject::SetMinLodLevel] MapModule模块未初始化设置", "[CZoMarkPointMapObject::Dirty] Qt-Item不存在",
     "[CZoMarkPointMapObject::PaintOnCanvas] 传入参数为空",
     "[CZoMarkPointMapObject::UpdatePixelCenterPos] ConvertSceneToPixel失败", nullptr, false, false},
    {"[CZoSVGMapObject::Initialise] MapModule传入为空", "[CZoSVGMapObject::IsVisible] 模块未初始化设置",
     "[CZoSVGMapObject::IsNameVisible] MapModule模块未初始化设置", "[CZoSVGMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoSVGMapObject::SetMaxLodLevel] MapModule模块未初始化设置", "[CZoSVGMapObject::Dirty] Qt-Item不存在",
     "[CZoSVGMapObject::PaintOnCanvas] 传入参数为空", "[CZoSVGMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败",
     nullptr, false, false},
    {"[CZoWidgetMapObject::Initialise] MapModule传入为空", "[CZoWidgetMapObject::IsVisible] 模块未初始化设置",
     "[CZoWidgetMapObject::IsNameVisible] MapModule模块未初始化设置", "[CZoWidgetMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoWidgetMapObject::SetMaxLodLevel] MapModule模块未初始化设置", "[CZoWidgetMapObject::Dirty] Qt-Item不存在",
     "[CZoWidgetMapObject::PaintOnCanvas] 传入参数为空", "[CZoWidgetMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败",
     nullptr, false, false},
    {"[CZoLayerCanvasMapObject::Initialise] MapModule传入为空", "[CZoLayerCanvasMapObject::IsVisible] 模块未初始化设置",
     "[CZoLayerCanvasMapObject::IsNameVisible] MapModule模块未初始化设置",
     "[CZoLayerCanvasMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoLayerCanvasMapObject::SetMaxLodLevel] MapModule模块未初始化设置", "[CZoLayerCanvasMapObject::Dirty] Qt-Item不存在",
     "[CZoLayerCanvasMapObject::PaintOnCanvas] 传入参数为空",
     "[CZoLayerCanvasMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败", nullptr, false, false},
    {"[CZoPolylineMapObject::Initialise] MapModule传入为空", "[CZoPolylineMapObject::IsVisible] 模块未初始化设置",
     "[CZoPolylineMapObject::IsNameVisible] MapModule模块未初始化设置", "[CZoPolylineMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoPolylineMapObject::SetMaxLodLevel] MapModule模块未初始化设置", "[CZoPolylineMapObject::Dirty] Qt-Item不存在",
     "[CZoPolylineMapObject::PaintOnCanvas] 传入参数为空", "[CZoPolylineMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败",
     nullptr, false, false},
    {"[CZoPolygonMapObject::Initialise] MapModule传入为空", "[CZoPolygonMapObject::IsVisible] 模块未初始化设置",
     "[CZoPolygonMapObject::IsNameVisible] MapModule模块未初始化设置", "[CZoPolygonMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoPolygonMapObject::SetMaxLodLevel] MapModule模块未初始化设置", "[CZoPolygonMapObject::Dirty] Qt-Item不存在",
     "[CZoPolygonMapObject::PaintOnCanvas] 传入参数为空", "[CZoPolygonMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败",
     nullptr, false, true},
    {"[CZoMultiDotMapObject::Initialise] MapModule传入为空", "[CZoMultiDotMapObject::IsVisible] 模块未初始化设置",
     "[CZoMultiDotMapObject::IsNameVisible] MapModule模块未初始化设置", "[CZoMultiDotMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoMultiDotMapObject::SetMaxLodLevel] MapModule模块未初始化设置", "[CZoMultiDotMapObject::Dirty] Qt-Item不存在",
     "[CZoMultiDotMapObject::PaintOnCanvas] 传入参数为空", "[CZoMultiDotMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败",
     nullptr, false, false},
    {"[CZoMultiLineMapObject::Initialise] MapModule传入为空", "[CZoMultiLineMapObject::IsVisible] 模块未初始化设置",
     "[CZoMultiLineMapObject::IsNameVisible] MapModule模块未初始化设置", "[CZoMultiLineMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoMultiLineMapObject::SetMaxLodLevel] MapModule模块未初始化设置", "[CZoMultiLineMapObject::Dirty] Qt-Item不存在",
     "[CZoMultiLineMapObject::PaintOnCanvas] 传入参数为空", "[CZoMultiLineMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败",
     nullptr, false, false},
    {"[CZoMultiPolygonMapObject::Initialise] MapModule传入为空", "[CZoMultiPolygonMapObject::IsVisible] 模块未初始化设置",
     "[CZoMultiPolygonMapObject::IsNameVisible] MapModule模块未初始化设置",
     "[CZoMultiPolygonMapObject::SetMinLodLevel] MapModule模块未初始化设置",
     "[CZoMultiPolygonMapObject::SetMaxLodLevel] MapModule模块未初始化设置", "[CZoMultiPolygonMapObject::Dirty] Qt-Item不存在",
     "[CZoMultiPolygonMapObject::PaintOnCanvas] 传入参数为空",
     "[CZoMultiPolygonMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败", nullptr, false, false},
};

// One entry per object kind, for the tests that every kind must pass alike: it
// creates itself through the module, builds an uninitialised instance for the
// failure paths and is placed at (x, y) by its own anchor.
template <class I, class Object, I* (IZoGraphicsModule::*Creator)(const std::string&, IZoGraphicsMapLayer*),
          I* (IZoGraphicsModule::*Lookup)(const std::string&) const, KindRow row>
struct Kind
{
    using Interface = I;
    using Impl = Object;
    static constexpr KindRow kRow = row;
    static const KindTexts& Texts() { return kKindTexts[static_cast<int>(row)]; }
    static Interface* Create(IZoGraphicsModule& module, const std::string& name, IZoGraphicsMapLayer* layer)
    {
        return (module.*Creator)(name, layer);
    }
    static Interface* Find(const IZoGraphicsModule& module, const std::string& name) { return (module.*Lookup)(name); }
    static std::unique_ptr<IZoGraphicsMapObject> Construct() { return std::make_unique<Object>(); }
    // Points by their position, a circle and a picture by their centre, a
    // canvas by its top-left corner, point lists by a list of the one point,
    // the other extents by an extent around it.
    static void PlaceAt(Interface* object, double x, double y)
    {
        const CVector3D point(x, y, 0.0);
        if constexpr (std::is_same_v<I, IZoCircleMapObject> || std::is_same_v<I, IZoSVGMapObject>)
            object->SetCenter(point);
        else if constexpr (std::is_same_v<I, IZoLayerCanvasMapObject>)
            object->SetExtent(EXTENT{x, y - 1.0, x + 1.0, y});
        else if constexpr (std::is_same_v<I, IZoMultiLineMapObject> || std::is_same_v<I, IZoMultiPolygonMapObject>)
            object->SetData({{point}});
        else if constexpr (std::is_same_v<I, IZoPolylineMapObject> || std::is_same_v<I, IZoPolygonMapObject> ||
                           std::is_same_v<I, IZoMultiDotMapObject>)
            object->SetData(std::vector<CVector3D>{point});
        else if constexpr (std::is_same_v<I, IZoEllipseMapObject> || std::is_same_v<I, IZoRectangleMapObject> ||
                           std::is_same_v<I, IZoBowMapObject>)
            object->SetExtent(EXTENT{x - 1.0, y - 1.0, x + 1.0, y + 1.0});
        else
            object->SetPosition(point);
    }
};

#define ZO_KIND(Name, Interface, Object, Creator, Lookup, Row)                                                  \
    using Name = Kind<Interface, Object, &IZoGraphicsModule::Creator, &IZoGraphicsModule::Lookup, KindRow::Row>;
ZO_KIND(DotKind, IZoDotMapObject, CZoDotMapObject, CreateDotMapObject, LookupDotMapObject, Dot)
ZO_KIND(TextKind, IZoTextMapObject, CZoTextMapObject, CreateTextMapObject, LookupTextMapObject, Text)
ZO_KIND(CircleKind, IZoCircleMapObject, CZoCircleMapObject, CreateCircleMapObject, LookupCircleMapObject, Circle)
ZO_KIND(EllipseKind, IZoEllipseMapObject, CZoEllipseMapObject, CreateEllipseMapObject, LookupEllipseMapObject, Ellipse)
ZO_KIND(RectangleKind, IZoRectangleMapObject, CZoRectangleMapObject, CreateRectangleMapObject, LookupRectangleMapObject, Rectangle)
ZO_KIND(TileKind, IZoRectangleMapObject, CZoRectangleMapObject, CreateTileMapObject, LookupRectangleMapObject, Rectangle)
ZO_KIND(PieKind, IZoBowMapObject, CZoBowMapObject, CreatePieMapObject, LookupBowMapObject, Bow)
ZO_KIND(ArcKind, IZoBowMapObject, CZoBowMapObject, CreateArcMapObject, LookupBowMapObject, Bow)
ZO_KIND(ChordKind, IZoBowMapObject, CZoBowMapObject, CreateChordMapObject, LookupBowMapObject, Bow)
ZO_KIND(BubbleKind, IZoBubbleMapObject, CZoBubbleMapObject, CreateBubbleMapObject, LookupBubbleMapObject, Bubble)
ZO_KIND(MarkPointKind, IZoMarkPointMapObject, CZoMarkPointMapObject, CreateMarkPointMapObject, LookupLabelMapObject, MarkPoint)
ZO_KIND(SVGKind, IZoSVGMapObject, CZoSVGMapObject, CreateSVGMapObject, LookupSVGMapObject, SVG)
ZO_KIND(WidgetKind, IZoWidgetMapObject, CZoWidgetMapObject, CreateWidgetMapObject, LookupWidgetMapObject, Widget)
ZO_KIND(LayerCanvasKind, IZoLayerCanvasMapObject, CZoLayerCanvasMapObject, CreateLayerCanvasMapObject, LookupLayerCanvasMapObject, LayerCanvas)
ZO_KIND(PolylineKind, IZoPolylineMapObject, CZoPolylineMapObject, CreatePolylineMapObject, LookupPolylineMapObject, Polyline)
ZO_KIND(PolygonKind, IZoPolygonMapObject, CZoPolygonMapObject, CreatePolygonMapObject, LookupPolygonMapObject, Polygon)
ZO_KIND(MultiDotKind, IZoMultiDotMapObject, CZoMultiDotMapObject, CreateMultiDotMapObject, LookupMultiDotMapObject, MultiDot)
ZO_KIND(MultiLineKind, IZoMultiLineMapObject, CZoMultiLineMapObject, CreateMultiLineMapObject, LookupMultiLineMapObject, MultiLine)
ZO_KIND(MultiPolygonKind, IZoMultiPolygonMapObject, CZoMultiPolygonMapObject, CreateMultiPolygonMapObject, LookupMultiPolygonMapObject,
        MultiPolygon)
#undef ZO_KIND

using MapObjectKindList =
    ::testing::Types<DotKind, TextKind, CircleKind, PieKind, ArcKind, ChordKind, EllipseKind, RectangleKind,
                     BubbleKind, MarkPointKind, LayerCanvasKind, SVGKind, PolylineKind, PolygonKind, MultiDotKind,
                     MultiLineKind, MultiPolygonKind, WidgetKind>;

// Every kind's creator as a value, for loops over all kinds at run time.
using MapObjectMaker =
    std::function<IZoGraphicsMapObject*(IZoGraphicsModule&, const std::string&, IZoGraphicsMapLayer*)>;

template <class... Kinds>
std::vector<MapObjectMaker> MakersOf(::testing::Types<Kinds...>)
{
    return {[](IZoGraphicsModule& m, const std::string& name, IZoGraphicsMapLayer* layer) -> IZoGraphicsMapObject* {
        return Kinds::Create(m, name, layer);
    }...};
}

inline std::vector<MapObjectMaker> EveryKindMaker()
{
    return MakersOf(MapObjectKindList());
}
