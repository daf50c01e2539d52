#pragma once

#include "content/canvas/CZoLayerCanvasMapObject.h"
#include "content/markpoint/CZoMarkPointMapObject.h"
#include "content/svg/CZoSVGMapObject.h"
#include "content/widget/CZoWidgetMapObject.h"
#include "content/text/CZoTextMapObject.h"
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

// One entry per object kind, for the tests that every kind must pass alike.
// A kind names its class as its log texts do, creates itself through the
// module, and builds an uninitialised instance for the failure paths.
struct DotKind
{
    using Interface = IZoDotMapObject;
    static constexpr const char* kClassName = "CZoDotMapObject";
    static constexpr const char* kInitialiseClass = "CZoTextMapObject";
    static constexpr const char* kSetMaxLodMethod = "SetMinLodLevel";
    static constexpr const char* kAnchorMethod = "ConvertSceneToPixel";

    static Interface* Create(IZoGraphicsModule& module, const std::string& name, IZoGraphicsMapLayer* layer)
    {
        return module.CreateDotMapObject(name, layer);
    }
    static std::unique_ptr<IZoGraphicsMapObject> Construct() { return std::make_unique<CZoDotMapObject>(); }
    static void PlaceAt(Interface* object, double x, double y) { object->SetPosition(CVector3D(x, y, 0.0)); }
};

// Differences a kind may declare (absent means false):
//   kDirtyCreatesItem        Dirty makes the missing item instead of logging;
//   kKeepsPlaceOnFailure     a failed anchor conversion leaves the item where it was;
//   kSetVisibleNeedsModule   SetVisible without a map module logs its own text;
//   kRotatable               IsRotatable answers true.
#define ZO_KIND_FLAG(Flag)                                                                                       \
    template <class Kind, class = void>                                                                         \
    struct Has##Flag : std::false_type                                                                          \
    {                                                                                                           \
    };                                                                                                          \
    template <class Kind>                                                                                       \
    struct Has##Flag<Kind, std::void_t<decltype(Kind::k##Flag)>> : std::bool_constant<Kind::k##Flag>            \
    {                                                                                                           \
    };
ZO_KIND_FLAG(DirtyCreatesItem)
ZO_KIND_FLAG(KeepsPlaceOnFailure)
ZO_KIND_FLAG(SetVisibleNeedsModule)
ZO_KIND_FLAG(Rotatable)
#undef ZO_KIND_FLAG

// The shapes anchored by a point or an extent take every text from their
// class's log names. A circle is placed at (x, y) by its centre, a bubble by
// its position, the others by an extent around it.
template <class I, class Object, I* (IZoGraphicsModule::*Creator)(const std::string&, IZoGraphicsMapLayer*)>
struct AnchoredShapeKind
{
    using Interface = I;
    static constexpr const char* kClassName = Object::kLogNames.className;
    static constexpr const char* kInitialiseClass = Object::kLogNames.className;
    static constexpr const char* kSetMaxLodMethod = Object::kLogNames.setMaxLodMethod;
    static constexpr const char* kAnchorMethod = Object::kLogNames.anchorConvertMethod;
    static constexpr bool kRotatable = std::is_same_v<Object, CZoBowMapObject>;

    static Interface* Create(IZoGraphicsModule& module, const std::string& name, IZoGraphicsMapLayer* layer)
    {
        return (module.*Creator)(name, layer);
    }
    static std::unique_ptr<IZoGraphicsMapObject> Construct() { return std::make_unique<Object>(); }
    static void PlaceAt(Interface* object, double x, double y)
    {
        if constexpr (std::is_same_v<I, IZoCircleMapObject>)
            object->SetCenter(CVector3D(x, y, 0.0));
        else if constexpr (std::is_same_v<I, IZoBubbleMapObject>)
            object->SetPosition(CVector3D(x, y, 0.0));
        else
            object->SetExtent(EXTENT{x - 1.0, y - 1.0, x + 1.0, y + 1.0});
    }
};
using CircleKind = AnchoredShapeKind<IZoCircleMapObject, CZoCircleMapObject, &IZoGraphicsModule::CreateCircleMapObject>;
using EllipseKind =
    AnchoredShapeKind<IZoEllipseMapObject, CZoEllipseMapObject, &IZoGraphicsModule::CreateEllipseMapObject>;
using RectangleKind =
    AnchoredShapeKind<IZoRectangleMapObject, CZoRectangleMapObject, &IZoGraphicsModule::CreateRectangleMapObject>;
// The tile: a rectangle placed in level-21 pixels of the tile model.
using TileKind =
    AnchoredShapeKind<IZoRectangleMapObject, CZoRectangleMapObject, &IZoGraphicsModule::CreateTileMapObject>;
using PieKind = AnchoredShapeKind<IZoBowMapObject, CZoBowMapObject, &IZoGraphicsModule::CreatePieMapObject>;
using ArcKind = AnchoredShapeKind<IZoBowMapObject, CZoBowMapObject, &IZoGraphicsModule::CreateArcMapObject>;
using ChordKind = AnchoredShapeKind<IZoBowMapObject, CZoBowMapObject, &IZoGraphicsModule::CreateChordMapObject>;

using BubbleKind = AnchoredShapeKind<IZoBubbleMapObject, CZoBubbleMapObject, &IZoGraphicsModule::CreateBubbleMapObject>;

// The point-list kinds are placed by a list holding the one point.
template <class I, class Object, I* (IZoGraphicsModule::*Creator)(const std::string&, IZoGraphicsMapLayer*),
          bool nested>
struct PointListKind
{
    using Interface = I;
    static constexpr const char* kClassName = Object::kLogNames.className;
    static constexpr const char* kInitialiseClass = Object::kLogNames.className;
    static constexpr const char* kSetMaxLodMethod = "SetMaxLodLevel";
    static constexpr const char* kAnchorMethod = "ConvertSceneToPixel";
    static constexpr bool kRotatable = std::is_same_v<Object, CZoPolygonMapObject>;

    static Interface* Create(IZoGraphicsModule& module, const std::string& name, IZoGraphicsMapLayer* layer)
    {
        return (module.*Creator)(name, layer);
    }
    static std::unique_ptr<IZoGraphicsMapObject> Construct() { return std::make_unique<Object>(); }
    static void PlaceAt(Interface* object, double x, double y)
    {
        const std::vector<CVector3D> line{CVector3D(x, y, 0.0)};
        if constexpr (nested)
            object->SetData({line});
        else
            object->SetData(line);
    }
};
using PolylineKind = PointListKind<IZoPolylineMapObject, CZoPolylineMapObject,
                                   &IZoGraphicsModule::CreatePolylineMapObject, false>;
using PolygonKind = PointListKind<IZoPolygonMapObject, CZoPolygonMapObject, &IZoGraphicsModule::CreatePolygonMapObject, false>;
using MultiDotKind = PointListKind<IZoMultiDotMapObject, CZoMultiDotMapObject,
                                   &IZoGraphicsModule::CreateMultiDotMapObject, false>;
using MultiLineKind = PointListKind<IZoMultiLineMapObject, CZoMultiLineMapObject,
                                    &IZoGraphicsModule::CreateMultiLineMapObject, true>;
using MultiPolygonKind = PointListKind<IZoMultiPolygonMapObject, CZoMultiPolygonMapObject,
                                       &IZoGraphicsModule::CreateMultiPolygonMapObject, true>;

// The content kinds take their texts from their class's log names; the text
// differs from the rest in Dirty, failed conversions and SetVisible.
template <class I, class Object, I* (IZoGraphicsModule::*Creator)(const std::string&, IZoGraphicsMapLayer*)>
struct ContentKind
{
    using Interface = I;
    static constexpr const char* kClassName = Object::kLogNames.className;
    static constexpr const char* kInitialiseClass = Object::kLogNames.className;
    static constexpr const char* kSetMaxLodMethod = Object::kLogNames.setMaxLodMethod;
    static constexpr const char* kAnchorMethod = Object::kLogNames.anchorConvertMethod;
    static constexpr bool kDirtyCreatesItem = std::is_same_v<Object, CZoTextMapObject>;
    static constexpr bool kKeepsPlaceOnFailure = kDirtyCreatesItem;
    static constexpr bool kSetVisibleNeedsModule = kDirtyCreatesItem;

    static Interface* Create(IZoGraphicsModule& module, const std::string& name, IZoGraphicsMapLayer* layer)
    {
        return (module.*Creator)(name, layer);
    }
    static std::unique_ptr<IZoGraphicsMapObject> Construct() { return std::make_unique<Object>(); }
    // A picture by its centre, a canvas by its top-left corner, the rest by
    // their position.
    static void PlaceAt(Interface* object, double x, double y)
    {
        if constexpr (std::is_same_v<I, IZoSVGMapObject>)
            object->SetCenter(CVector3D(x, y, 0.0));
        else if constexpr (std::is_same_v<I, IZoLayerCanvasMapObject>)
            object->SetExtent(EXTENT{x, y - 1.0, x + 1.0, y});
        else
            object->SetPosition(CVector3D(x, y, 0.0));
    }
};
using TextKind = ContentKind<IZoTextMapObject, CZoTextMapObject, &IZoGraphicsModule::CreateTextMapObject>;
using MarkPointKind =
    ContentKind<IZoMarkPointMapObject, CZoMarkPointMapObject, &IZoGraphicsModule::CreateMarkPointMapObject>;
using SVGKind = ContentKind<IZoSVGMapObject, CZoSVGMapObject, &IZoGraphicsModule::CreateSVGMapObject>;
using WidgetKind = ContentKind<IZoWidgetMapObject, CZoWidgetMapObject, &IZoGraphicsModule::CreateWidgetMapObject>;
using LayerCanvasKind =
    ContentKind<IZoLayerCanvasMapObject, CZoLayerCanvasMapObject, &IZoGraphicsModule::CreateLayerCanvasMapObject>;

using MapObjectKindList = ::testing::Types<DotKind, TextKind, CircleKind, PieKind, ArcKind, ChordKind, EllipseKind, RectangleKind, BubbleKind, MarkPointKind, LayerCanvasKind, SVGKind, PolylineKind, PolygonKind, MultiDotKind, MultiLineKind, MultiPolygonKind, WidgetKind>;

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
