// Every setter of every kind with hostile values, each followed now and then
// by a rebuild at another zoom, a paint and a hit test. Nothing may crash,
// and no NaN or infinity may reach an item's geometry.
#include "fuzz/ZoFuzz.h"
#include <ZoGraphics/CZoMapModule.h>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QLabel>
#include <cmath>
#include <typeinfo>
#include <utility>

namespace
{
CVector3D Point(CZoFuzzInput& in)
{
    return in.Bool() ? CVector3D{in.Plain(-80, 80), in.Plain(-60, 60), in.Plain(-1, 1)}
                     : CVector3D{in.Double(), in.Double(), in.Double()};
}

// Braced lists read their values in order.
EXTENT Extent(CZoFuzzInput& in) { return EXTENT{in.Double(), in.Double(), in.Double(), in.Double()}; }
QColor Color(CZoFuzzInput& in) { return QColor{in.Byte(), in.Byte(), in.Byte(), in.Byte()}; }
float Float(CZoFuzzInput& in) { return static_cast<float>(in.Double()); }

unsigned Flags(CZoFuzzInput& in)
{
    if (in.Bool())
        return in.Byte();
    const unsigned high = static_cast<unsigned>(in.Int(0, 65535)) << 16;
    return high | in.Byte();
}

std::vector<CVector3D> Points(CZoFuzzInput& in)
{
    std::vector<CVector3D> points(static_cast<std::size_t>(in.Int(0, 5)));
    for (CVector3D& p : points)
        p = Point(in);
    return points;
}

std::vector<std::vector<CVector3D>> Lines(CZoFuzzInput& in) { return {Points(in), Points(in)}; }

QFont Font(CZoFuzzInput& in)
{
    QFont font;
    const double size = in.Double();
    if (std::isfinite(size) && size > 0 && size < 400)
        font.setPointSizeF(size);
    return font;
}

template <class T>
using Ops = ZoFuzzOperation<T>;

// Two values read in order (a function's arguments are evaluated in an order
// the compiler picks, and an input must mean the same under every compiler).
template <class T>
void SetSize(T* target, CZoFuzzInput& in)
{
    const int width = in.Int(-100000, 100000);
    target->SetSize(width, in.Int(-100000, 100000));
}
template <class T, void (T::*Set)(double, double)>
void SetTwo(T* target, CZoFuzzInput& in)
{
    const double first = in.Double();
    (target->*Set)(first, in.Double());
}

const Ops<IZoGraphicsMapObject> kShared[] = {
    ZO_FUZZ_DO(SetName(in.Bytes(24))), ZO_FUZZ_DO(SetNameVisible(in.Bool())), ZO_FUZZ_DO(SetNameFont(Font(in))),
    ZO_FUZZ_DO(SetNameColor(Color(in))), ZO_FUZZ_DO(SetNameOutlineWidth(in.Double())),
    ZO_FUZZ_DO(SetNameOffset(Float(in))), ZO_FUZZ_DO(SetNameMinLodLevel(in.Int(-100, 100))),
    ZO_FUZZ_DO(SetNameMaxLodLevel(in.Int(-100, 100))), ZO_FUZZ_DO(SetZValue(in.Int(-1000000, 1000000))),
    ZO_FUZZ_DO(SetVisible(in.Bool())), ZO_FUZZ_DO(SetRebuildThreshold(in.Double())),
    ZO_FUZZ_DO(SetEditAngle(in.Double())), ZO_FUZZ_DO(SetResolution(in.Double())), ZO_FUZZ_DO(Rebuild(in.Double())),
    ZO_FUZZ_DO(UpdateVisibility(in.Int(-100, 100))), ZO_FUZZ_DO(SetMinLodLevel(in.Int(-100, 100))),
    ZO_FUZZ_DO(SetMaxLodLevel(in.Int(-100, 100))), ZO_FUZZ_DO(SetInteractive(in.Bool())),
    ZO_FUZZ_DO(SetAlwaysRebuild(in.Bool())),
    [](auto* o, auto&) {
        o->UpdatePosition();
        o->Dirty();
        o->Update();
    }};

const Ops<IZoSurfaceStyleGraphicsMapObject> kSurface[] = {
    ZO_FUZZ_DO(SetLabelPosition(Flags(in))), ZO_FUZZ_DO(SetLabelAlignment(Flags(in))),
    ZO_FUZZ_DO(SetPenColor(Color(in))), ZO_FUZZ_DO(SetPenWidth(Float(in))), ZO_FUZZ_DO(SetPenStyle(Flags(in))),
    ZO_FUZZ_DO(SetBrushColor(Color(in))), [](auto* s, auto& in) {
        const unsigned style = Flags(in);
        s->SetBrushTextureFile(style, in.Bytes(8));
    }};
const Ops<IZoLineStyleGraphicsMapObject> kLine[] = {
    ZO_FUZZ_DO(SetLabelPosition(Flags(in))), ZO_FUZZ_DO(SetPenColor(Color(in))), ZO_FUZZ_DO(SetPenWidth(Float(in))),
    ZO_FUZZ_DO(SetPenStyle(Flags(in))), ZO_FUZZ_DO(SetArrowVisible(in.Bool())), ZO_FUZZ_DO(SetArrowAtEnd(in.Bool()))};

const Ops<IZoDotMapObject> kDot[] = {ZO_FUZZ_DO(SetPosition(Point(in))), ZO_FUZZ_DO(SetRadius(in.Double())),
                                     ZO_FUZZ_DO(SetOffset(Point(in))), ZO_FUZZ_DO(SetRotation(in.Double()))};
const Ops<IZoCircleMapObject> kCircle[] = {ZO_FUZZ_DO(SetCenter(Point(in))), ZO_FUZZ_DO(SetRadiusPoint(Point(in))),
                                           ZO_FUZZ_DO(SetAuxPoint(Point(in)))};
// The ellipse and the rectangle; the bow has its angles first.
template <class T>
const Ops<T> kExtentShape[] = {ZO_FUZZ_DO(SetExtent(Extent(in))), ZO_FUZZ_DO(SetCenter(Point(in))),
                               ZO_FUZZ_DO(SetRotation(in.Double())), ZO_FUZZ_DO(SetAuxPoint(Point(in)))};
const Ops<IZoBowMapObject> kBow[] = {ZO_FUZZ_DO(SetStartAngle(in.Double())), ZO_FUZZ_DO(SetSpanAngle(in.Double())),
                                     ZO_FUZZ_DO(SetExtent(Extent(in))),      ZO_FUZZ_DO(SetCenter(Point(in))),
                                     ZO_FUZZ_DO(SetRotation(in.Double())),   ZO_FUZZ_DO(SetAuxPoint(Point(in)))};
// Any value the tail's enumeration can hold, named or not.
const Ops<IZoBubbleMapObject> kBubble[] = {
    ZO_FUZZ_DO(SetPosition(Point(in))), SetSize<IZoBubbleMapObject>,
    ZO_FUZZ_DO(SetTailDirection(static_cast<EZoBubbleTailDirection>(in.Int(0, 7))))};
const Ops<IZoPolylineMapObject> kPolyline[] = {ZO_FUZZ_DO(SetData(Points(in))), ZO_FUZZ_DO(SetPosition(Point(in))),
                                               ZO_FUZZ_DO(SetClosed(in.Bool()))};
const Ops<IZoMultiDotMapObject> kMultiDot[] = {ZO_FUZZ_DO(SetData(Points(in))), ZO_FUZZ_DO(SetDotSize(in.Double())),
                                               ZO_FUZZ_DO(SetPosition(Point(in)))};
// The polygon and the multi-lists: a move or new data.
template <class T, auto Data>
const Ops<T> kDataOrMove[] = {ZO_FUZZ_DO(SetPosition(Point(in))), ZO_FUZZ_DO(SetData(Data(in)))};
const Ops<IZoTextMapObject> kText[] = {
    ZO_FUZZ_DO(SetPosition(Point(in))), ZO_FUZZ_DO(SetRotateAngle(in.Double())),
    ZO_FUZZ_DO(SetRotationVector(Point(in))), ZO_FUZZ_DO(SetText(in.Bytes(32))), ZO_FUZZ_DO(SetHtml(in.Bytes(48))),
    ZO_FUZZ_DO(SetFont(Font(in))), ZO_FUZZ_DO(SetTextColor(Color(in))), ZO_FUZZ_DO(SetOutlineColor(Color(in))),
    ZO_FUZZ_DO(SetOutlineWidth(in.Double())), ZO_FUZZ_DO(SetPadding(in.Double())),
    ZO_FUZZ_DO(SetBackgroundColor(Color(in))), ZO_FUZZ_DO(SetBorderWidth(in.Double())),
    ZO_FUZZ_DO(SetBorderColor(Color(in))), ZO_FUZZ_DO(SetScaleWithMap(in.Bool()))};
const Ops<IZoMarkPointMapObject> kMarkPoint[] = {
    ZO_FUZZ_DO(SetPosition(Point(in))), ZO_FUZZ_DO(SetRotateAngle(in.Double())),
    SetTwo<IZoMarkPointMapObject, &IZoMarkPointMapObject::SetIconSize>, ZO_FUZZ_DO(SetIconAnchor(Point(in))),
    ZO_FUZZ_DO(SetIconFile(in.Bytes(8))), ZO_FUZZ_DO(SetIconVisible(in.Bool())),
    ZO_FUZZ_DO(SetLabelPosition(Flags(in))), ZO_FUZZ_DO(SetLabelAlignment(Flags(in))), [](auto* m, auto& in) {
        const int width = in.Int(0, 40);
        QPixmap icon(width, in.Int(0, 40));
        icon.fill(Qt::red);
        m->SetIcon(icon);
    }};
const Ops<IZoSVGMapObject> kSVG[] = {
    ZO_FUZZ_DO(SetGeoExtent(Extent(in))), ZO_FUZZ_DO(SetCenter(Point(in))),
    SetTwo<IZoSVGMapObject, &IZoSVGMapObject::SetXYScale>, ZO_FUZZ_DO(SetXScale(in.Double())),
    ZO_FUZZ_DO(SetYScale(in.Double())), SetTwo<IZoSVGMapObject, &IZoSVGMapObject::MoveBy>,
    ZO_FUZZ_DO(Rotate(in.Double()))};
const Ops<IZoWidgetMapObject> kWidget[] = {ZO_FUZZ_DO(SetPosition(Point(in))), SetSize<IZoWidgetMapObject>,
                                           ZO_FUZZ_DO(SetAnchor(Point(in)))};
const Ops<IZoLayerCanvasMapObject> kCanvas[] = {
    [](auto* c, auto& in) {
        const int width = in.Int(0, 64);
        QImage image(width, in.Int(0, 64), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::blue);
        c->SetImage(image);
    },
    ZO_FUZZ_DO(SetExtent(Extent(in)))};

// Applies a table when the object is of its kind.
template <class T, std::size_t N>
bool Try(IZoGraphicsMapObject* o, CZoFuzzInput& in, const Ops<T> (&operations)[N])
{
    T* typed = dynamic_cast<T*>(o);
    return typed && (in.Apply(typed, operations), true);
}

void SetStyle(IZoGraphicsMapObject* o, CZoFuzzInput& in)
{
    Try(o, in, kSurface);
    Try(o, in, kLine);
}

// The kinds are tried in the order of their interfaces' inheritance: a
// derived one before its base.
void SetOwn(IZoGraphicsMapObject* o, CZoFuzzInput& in)
{
    Try(o, in, kDot) || Try(o, in, kCircle) || Try(o, in, kExtentShape<IZoEllipseMapObject>) ||
        Try(o, in, kBow) || Try(o, in, kExtentShape<IZoRectangleMapObject>) || Try(o, in, kBubble) ||
        Try(o, in, kPolyline) || Try(o, in, kDataOrMove<IZoPolygonMapObject, Points>) ||
        Try(o, in, kMultiDot) || Try(o, in, kDataOrMove<IZoMultiLineMapObject, Lines>) ||
        Try(o, in, kDataOrMove<IZoMultiPolygonMapObject, Lines>) || Try(o, in, kText) ||
        Try(o, in, kMarkPoint) || Try(o, in, kSVG) || Try(o, in, kWidget) || Try(o, in, kCanvas);
}

// No item's position, bounds or scene bounds may hold a value that is not
// finite.
void CheckScene(QGraphicsScene* scene)
{
    for (QGraphicsItem* item : scene->items())
        for (const QRectF& r : {QRectF(item->pos(), QSizeF()), item->boundingRect(), item->sceneBoundingRect()})
            ZO_FUZZ_CHECK(std::isfinite(r.x()) && std::isfinite(r.y()) && std::isfinite(r.width()) && std::isfinite(r.height()),
                          std::string(typeid(*item).name()) + " " + std::to_string(r.x()) + "," + std::to_string(r.y()) +
                              " " + std::to_string(r.width()) + "x" + std::to_string(r.height()));
}
} // namespace

int ZoFuzzSetters(const std::uint8_t* data, std::size_t size)
{
    ZoFuzzEnsureApplication();
    CZoQuietLog quiet;
    CZoFuzzInput in(data, size);
    CZoMapModule map;
    map.SetZoomAround(3.0, 0.0, 0.0);
    CZoGraphicsModule module;
    module.Initialise("fuzz", &map);
    std::vector<IZoGraphicsMapObject*> objects;
    QLabel label("fuzz"); // a widget for the kinds that embed one
    constexpr int kKinds = sizeof(kZoFuzzKinds) / sizeof(kZoFuzzKinds[0]);
    for (int n = in.Int(1, 3); n > 0; --n)
    {
        // Two numbers past the kinds make dots, as they always did.
        const int kind = in.Int(0, kKinds + 1);
        if (IZoGraphicsMapObject* o = kZoFuzzKinds[kind < kKinds ? kind : 0].make(module, in.Bytes(12), nullptr))
        {
            objects.push_back(o);
            if (auto* w = dynamic_cast<IZoWidgetMapObject*>(o); w && in.Bool())
                w->SetWidget(&label);
        }
    }
    for (int step = 0; step < 200 && !in.Empty() && !objects.empty(); ++step)
    {
        IZoGraphicsMapObject* o = objects[static_cast<std::size_t>(in.Int(0, static_cast<int>(objects.size()) - 1))];
        switch (in.Int(0, 9))
        {
        case 0:
        case 1: in.Apply(o, kShared); break;
        case 2:
        case 3: SetStyle(o, in); break;
        case 4: ZoFuzzZoom(map, in, 80.0); break;
        case 5: {
            const bool antialiased = in.Bool();
            const QRectF source{in.Plain(-2000, 2000), in.Plain(-2000, 2000), in.Plain(1, 4000), in.Plain(1, 4000)};
            ZoFuzzPaint(map.GetScene(), source, antialiased);
            break;
        }
        case 6: {
            const QPointF at{in.Plain(-3000, 3000), in.Plain(-3000, 3000)};
            for (QGraphicsItem* item : map.GetScene()->items(at))
                item->contains(item->mapFromScene(at));
            break;
        }
        default: SetOwn(o, in); break;
        }
        CheckScene(map.GetScene());
    }
    // A widget the object did not make must survive the object.
    for (IZoGraphicsMapObject* o : objects)
        module.DestroyGraphicsMapObject(o);
    module.Unintialise();
    return 0;
}
