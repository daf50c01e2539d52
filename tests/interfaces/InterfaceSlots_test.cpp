// Virtual operations are called through the vtable across library boundaries,
// so their order is part of every interface. These tables pin selected
// operations of each interface to their slot numbers.

#include <ZoGraphics/ZoGraphics.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace
{
// Itanium C++ ABI (g++ and clang on Linux): a pointer to a virtual member
// function keeps 1 + the byte offset of its vtable entry in its first word;
// the odd value marks it virtual. Returns -1 for a non-virtual function.
template <class MemberFunction>
std::ptrdiff_t VtableIndex(MemberFunction function)
{
    static_assert(sizeof(MemberFunction) == 2 * sizeof(std::uintptr_t), "Itanium member pointer expected");
    std::uintptr_t word = 0;
    std::memcpy(&word, &function, sizeof word);
    if ((word & 1u) == 0)
        return -1;
    return static_cast<std::ptrdiff_t>((word - 1) / sizeof(void*));
}

// A virtual destructor takes two vtable entries (complete and deleting
// destructor), so every slot after it lies one entry further on. The IObject
// chain declares its destructor at slot 2, everything else at slot 0.
constexpr std::ptrdiff_t IndexOfSlot(int slot, int destructorSlot = 0)
{
    return slot < destructorSlot ? slot : slot + 1;
}

struct SlotRow
{
    const char* name;
    std::ptrdiff_t actual;
    std::ptrdiff_t expected;
};

constexpr int kObjectChainDestructor = 2;
} // namespace

#define ZO_SLOT(Class, Op, slot) SlotRow{#Class "::" #Op, VtableIndex(&Class::Op), IndexOfSlot(slot)}
#define ZO_OBJECT_SLOT(Class, Op, slot) \
    SlotRow{#Class "::" #Op, VtableIndex(&Class::Op), IndexOfSlot(slot, kObjectChainDestructor)}
#define ZO_OVERLOAD_SLOT(Class, Op, Signature, slot) \
    SlotRow{#Class "::" #Op " " #Signature, VtableIndex(static_cast<Signature>(&Class::Op)), IndexOfSlot(slot)}

TEST(InterfaceSlots, EveryInterfaceKeepsItsSlots)
{
    using LookupByName = IZoGraphicsMapObject* (IZoGraphicsModule::*)(const std::string&) const;
    using LookupById = IZoGraphicsMapObject* (IZoGraphicsModule::*)(int) const;
    using KeyPoint = CVector3D (IZoGraphicsEditableUser::*)(IZoGraphicsEditObject*, int);
    using KeyPoints = std::vector<CVector3D> (IZoGraphicsEditableUser::*)(IZoGraphicsEditObject*);
    using TileToPixelInt = bool (CTileModel::*)(int*, int*, int, double, double) const;
    using TileToPixelDouble = bool (CTileModel::*)(double*, double*, int, double, double) const;
    using TileToGeoInt = bool (CTileModel::*)(double*, double*, int, int, int) const;
    using TileToGeoDouble = bool (CTileModel::*)(double*, double*, int, double, double) const;
    const SlotRow rows[] = {
        ZO_SLOT(IZoMapModule, GetEventObject, 9), ZO_SLOT(IZoMapModule, GetScene, 10),
        ZO_SLOT(IZoMapModule, GetTileModelKind, 16), ZO_SLOT(IZoMapModule, GetViewScale, 28),
        ZO_SLOT(IZoMapModule, GetCurrentLodLevel, 36), ZO_SLOT(IZoMapModule, ConvertSceneToPixel, 60),
        ZO_SLOT(IZoMapModule, ConvertPixelToScene, 61), ZO_SLOT(IZoMapModule, CalculateDistance, 77),
        ZO_SLOT(IZoMapModule, RegisterEventHandler, 106), ZO_SLOT(IZoMapModule, UnregisterEventHandler, 107),
        ZO_SLOT(IZoMapEventHandler, OnMousePress, 1), ZO_SLOT(IZoMapEventHandler, OnMouseDoubleClick, 4),
        ZO_SLOT(IZoMapEventHandler, OnMouseMove, 7), ZO_SLOT(IZoMapEventHandler, OnMouseRelease, 8),
        ZO_SLOT(IZoMapEventHandler, OnHoverEnter, 11), ZO_SLOT(IZoMapEventHandler, OnHoverLeave, 12),
        ZO_SLOT(IZoMapEventHandler, OnKeyPress, 27), ZO_SLOT(IZoMapEventHandler, OnLodLevelChanged, 40),
        ZO_SLOT(IZoMapEventHandler, OnViewScaleChanged, 42), ZO_SLOT(IZoMapEventHandler, OnViewChanged, 44),
        ZO_SLOT(IZoMapEventHandler, OnViewMoved, 46), ZO_SLOT(IZoMapView, GetScrollArea, 1),
        ZO_SLOT(IZoMapView, ConvertPixelToGeo, 2), ZO_SLOT(CTileModel, GetKind, 1),
        ZO_SLOT(CTileModel, GetTileGeoExtent, 14),
        ZO_OVERLOAD_SLOT(CTileModel, ConvertGeoToPixel, TileToPixelInt, 31),
        ZO_OVERLOAD_SLOT(CTileModel, ConvertGeoToPixel, TileToPixelDouble, 32),
        ZO_OVERLOAD_SLOT(CTileModel, ConvertPixelToGeo, TileToGeoInt, 33),
        ZO_OVERLOAD_SLOT(CTileModel, ConvertPixelToGeo, TileToGeoDouble, 34), ZO_OBJECT_SLOT(IZoMapLayer, GetUUID, 0),
        ZO_OBJECT_SLOT(IZoMapLayer, SetUUID, 1), ZO_OBJECT_SLOT(IZoMapLayer, GetLayerID, 3),
        ZO_OBJECT_SLOT(IZoMapLayer, GetZValue, 16), ZO_OBJECT_SLOT(IZoMapLayer, ReservedLayerSlot18, 18),
        ZO_OBJECT_SLOT(IZoGraphicsMapLayer, Initialise, 19), ZO_OBJECT_SLOT(IZoGraphicsMapLayer, Unintialise, 20),
        ZO_OBJECT_SLOT(IZoGraphicsMapLayer, AttachMapObject, 27),
        ZO_OBJECT_SLOT(IZoGraphicsMapLayer, ReservedLayerSlot39, 39),
        ZO_OBJECT_SLOT(IZoGraphicsMapLayer, IsSimplifyEnabled, 40), ZO_SLOT(IZoLabelDeclutter, SetLabelDeclutter, 1),
        ZO_SLOT(IZoLabelDeclutter, IsLabelDeclutter, 2), ZO_SLOT(IZoLabelDeclutter2, GetPlacedLabelCount, 3),
        ZO_SLOT(IZoLabelDeclutter2, GetDroppedLabelCount, 4), ZO_SLOT(IZoMapObject, Initialise, 1),
        ZO_SLOT(IZoMapObject, GetMapLayer, 10), ZO_SLOT(IZoGraphicsMapObject, Initialise, 1),
        ZO_SLOT(IZoGraphicsMapObject, GetMapModule, 11), ZO_SLOT(IZoGraphicsMapObject, GetNameOffset, 29),
        ZO_SLOT(IZoGraphicsMapObject, GetBoundingBox, 43), ZO_SLOT(IZoGraphicsMapObject, PaintOnCanvas, 51),
        ZO_SLOT(IZoGraphicsMapObject, Update, 58), ZO_SLOT(IZoSurfaceStyleGraphicsMapObject, SetLabelPosition, 59),
        ZO_SLOT(IZoSurfaceStyleGraphicsMapObject, GetBrushTextureFile, 75),
        ZO_SLOT(IZoLineStyleGraphicsMapObject, SetLabelPosition, 59),
        ZO_SLOT(IZoLineStyleGraphicsMapObject, IsArrowAtEnd, 70), ZO_SLOT(IZoDotMapObject, SetPosition, 76),
        ZO_SLOT(IZoDotMapObject, GetRotation, 83), ZO_SLOT(IZoCircleMapObject, SetCenter, 76),
        ZO_SLOT(IZoCircleMapObject, GetAuxPoint, 82), ZO_SLOT(IZoEllipseMapObject, SetExtent, 76),
        ZO_SLOT(IZoEllipseMapObject, GetAuxPoint, 85), ZO_SLOT(IZoBowMapObject, SetStartAngle, 76),
        ZO_SLOT(IZoBowMapObject, GetOutlinePoints, 88), ZO_SLOT(IZoBowMapObject, GetAuxPoint, 90),
        ZO_SLOT(IZoRectangleMapObject, SetExtent, 76), ZO_SLOT(IZoRectangleMapObject, GetAuxPoint, 85),
        ZO_SLOT(IZoBubbleMapObject, SetPosition, 59), ZO_SLOT(IZoBubbleMapObject, GetTailDirection, 67),
        ZO_SLOT(IZoPolylineMapObject, SetClosed, 71), ZO_SLOT(IZoPolylineMapObject, GetPointNumber, 83),
        ZO_SLOT(IZoPolylineMapObject, GetAllControlPoint, 86), ZO_SLOT(IZoPolygonMapObject, SetData, 76),
        ZO_SLOT(IZoPolygonMapObject, SetExtraPoint, 90), ZO_SLOT(IZoMultiDotMapObject, SetData, 76),
        ZO_SLOT(IZoMultiDotMapObject, SetPosition, 85), ZO_SLOT(IZoMultiDotMapObject, GetExtraPoint, 90),
        ZO_SLOT(IZoMultiLineMapObject, SetClosed, 71), ZO_SLOT(IZoMultiLineMapObject, AppendLine, 76),
        ZO_SLOT(IZoMultiLineMapObject, SetPosition, 90), ZO_SLOT(IZoMultiPolygonMapObject, SetData, 76),
        ZO_SLOT(IZoMultiPolygonMapObject, ModifyData, 87), ZO_SLOT(IZoMultiPolygonMapObject, GetExtraPoint, 95),
        ZO_SLOT(IZoTextMapObject, SetPosition, 59), ZO_SLOT(IZoTextMapObject, SetFont, 69),
        ZO_SLOT(IZoTextMapObject, GetBorderColor, 84), ZO_SLOT(IZoTextMapObject, IsTextInteractionEnabled, 88),
        ZO_SLOT(IZoMarkPointMapObject, SetPosition, 59), ZO_SLOT(IZoMarkPointMapObject, SetIcon, 69),
        ZO_SLOT(IZoMarkPointMapObject, GetLabelAlignment, 77), ZO_SLOT(IZoSVGMapObject, LoadSVGFile, 59),
        ZO_SLOT(IZoSVGMapObject, SetGeoExtent, 63), ZO_SLOT(IZoSVGMapObject, CalculateGeoExtent, 67),
        ZO_SLOT(IZoSVGMapObject, GetRotation, 76), ZO_SLOT(IZoWidgetMapObject, SetPosition, 59),
        ZO_SLOT(IZoWidgetMapObject, GetWidget, 67), ZO_SLOT(IZoLayerCanvasMapObject, SetImage, 59),
        ZO_SLOT(IZoLayerCanvasMapObject, GetExtent, 62), ZO_SLOT(IZoGraphicsModule, GetDeafultGraphicsLayer, 1),
        ZO_OVERLOAD_SLOT(IZoGraphicsModule, LookupGraphicObject, LookupByName, 10),
        ZO_OVERLOAD_SLOT(IZoGraphicsModule, LookupGraphicObject, LookupById, 11),
        ZO_SLOT(IZoGraphicsModule, CreateTextMapObject, 13),
        ZO_SLOT(IZoGraphicsModule, LookupLayerCanvasMapObject, 47), ZO_SLOT(IZoGraphicsModule, StackedTop, 48),
        ZO_SLOT(IZoGraphicsModule, StackedBottom, 51), ZO_SLOT(IZoGraphicsEditObject, Initialise, 47),
        ZO_SLOT(IZoGraphicsEditObject, IsVisible, 54), ZO_SLOT(IZoGraphicsEditObject, RemoveKeyPoint, 60),
        ZO_SLOT(IZoGraphicsEditableUser, GetEditorPosition, 1),
        ZO_SLOT(IZoGraphicsEditableUser, OnBackoutTranslation, 4),
        ZO_SLOT(IZoGraphicsEditableUser, GetEditorBoundingBox, 12),
        ZO_OVERLOAD_SLOT(IZoGraphicsEditableUser, GetEditorKeyPointSet, KeyPoint, 17),
        ZO_OVERLOAD_SLOT(IZoGraphicsEditableUser, GetEditorKeyPointSet, KeyPoints, 18),
        ZO_SLOT(IZoGraphicsEditableUser, OnCompleteKeyPointDelete, 26),
    };
    for (const SlotRow& row : rows)
        EXPECT_EQ(row.actual, row.expected) << row.name;
}


// A host's user that overrides nothing leaves every step to the gadget:
// every answer is false and the extent it is handed stays as it was.
TEST(InterfaceSlots, AnEditableUserOverridingNothingHandlesNothing)
{
    struct DefaultUser : IZoGraphicsEditableUser {} user;
    IZoGraphicsEditObject* e = nullptr;
    const CVector3D p(1.0, 2.0, 3.0);
    EXTENT box{1.0, 2.0, 3.0, 4.0};
    const bool handled[] = {
        user.OnStartTranslation(e), user.OnProcessTranslation(e, p), user.OnBackoutTranslation(e, p),
        user.OnCompleteTranslation(e, p), user.OnStartRotation(e), user.OnProcessRotation(e, 10.0, 5.0),
        user.OnBackoutRotation(e, 10.0), user.OnCompleteRotation(e, 10.0), user.OnStartScaleBoundingBox(e),
        user.OnProcessScaleBoundingBox(e, box), user.OnBackoutScaleBoundingBox(e, box),
        user.OnCompleteScaleBoundingBox(e, box), user.OnStartKeyPointSet(e), user.OnProcessKeyPointChange(e, 0, p),
        user.OnBackoutKeyPointChange(e, 0, p), user.OnCompleteKeyPointChange(e, 0, p),
        user.OnCompleteKeyPointInsert(e, 0, p), user.OnCompleteKeyPointDelete(e, 0, p),
    };
    EXPECT_EQ(std::count(std::begin(handled), std::end(handled), true), 0);
    EXPECT_EQ(box, (EXTENT{1.0, 2.0, 3.0, 4.0}));
}
