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
#include <iterator>
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

// Each text is "[<class>::<operation>] <reason>"; a row names the class, the
// operation whose conversion failure is told, and where a class strays from
// the others: the class its Initialise names, the operation its SetMaxLodLevel
// names, and the Dirty and SetVisible texts it has or lacks.
inline const KindTexts& TextsOf(KindRow row)
{
    struct Row
    {
        const char* cls;
        const char* anchor;
        bool keepsPlace, rotatable;
        const char* initialiseClass = nullptr;
        const char* maxLod = "SetMaxLodLevel";
        bool dirty = true, setVisible = false;
    };
    static const Row rows[] = {
        {"CZoDotMapObject", "ConvertSceneToPixel", false, false, "CZoTextMapObject", "SetMinLodLevel"},
        {"CZoTextMapObject", "UpdatePixelPosition", true, false, nullptr, "SetMaxLodLevel", false, true},
        {"CZoCircleMapObject", "ConvertCenterToPixel", false, false},
        {"CZoEllipseMapObject", "ConvertCenterToPixel", false, false},
        {"CZoRectangleMapObject", "ConvertGeoToPixel", false, false},
        {"CZoBowMapObject", "ConvertCenterToPixel", false, true},
        {"CZoBubbleMapObject", "ConvertSceneToPixel", false, false},
        {"CZoMarkPointMapObject", "UpdatePixelCenterPos", false, false, nullptr, "SetMinLodLevel"},
        {"CZoSVGMapObject", "ConvertSceneToPixel", false, false},
        {"CZoWidgetMapObject", "ConvertSceneToPixel", false, false},
        {"CZoLayerCanvasMapObject", "ConvertSceneToPixel", false, false},
        {"CZoPolylineMapObject", "ConvertSceneToPixel", false, false},
        {"CZoPolygonMapObject", "ConvertSceneToPixel", false, true},
        {"CZoMultiDotMapObject", "ConvertSceneToPixel", false, false},
        {"CZoMultiLineMapObject", "ConvertSceneToPixel", false, false},
        {"CZoMultiPolygonMapObject", "ConvertSceneToPixel", false, false},
    };
    static std::vector<std::string> store = [] {
        std::vector<std::string> s;
        const std::string unset = "MapModule模块未初始化设置";
        for (const Row& r : rows)
        {
            const std::string c = std::string("[") + r.cls + "::";
            s.insert(s.end(), {std::string("[") + (r.initialiseClass ? r.initialiseClass : r.cls) +
                                   "::Initialise] MapModule传入为空",
                               c + "IsVisible] 模块未初始化设置", c + "IsNameVisible] " + unset,
                               c + "SetMinLodLevel] " + unset, c + r.maxLod + "] " + unset, c + "Dirty] Qt-Item不存在",
                               c + "PaintOnCanvas] 传入参数为空", c + r.anchor + "] ConvertSceneToPixel失败",
                               c + "SetVisible] " + unset});
        }
        return s;
    }();
    static std::vector<KindTexts> texts = [] {
        std::vector<KindTexts> t;
        for (std::size_t i = 0; i < std::size(rows); ++i)
        {
            const std::string* s = &store[9 * i];
            t.push_back({s[0].c_str(), s[1].c_str(), s[2].c_str(), s[3].c_str(), s[4].c_str(),
                         rows[i].dirty ? s[5].c_str() : nullptr, s[6].c_str(), s[7].c_str(),
                         rows[i].setVisible ? s[8].c_str() : nullptr, rows[i].keepsPlace, rows[i].rotatable});
        }
        return t;
    }();
    return texts[static_cast<std::size_t>(row)];
}

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
    static const KindTexts& Texts() { return TextsOf(row); }
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

inline std::vector<MapObjectMaker> EveryKindMaker() { return MakersOf(MapObjectKindList()); }
