// Every setter of every kind with hostile values, each followed now and then
// by a rebuild at another zoom, a paint and a hit test. Nothing may crash,
// and no NaN or infinity may reach an item's geometry.
#include "fuzz/ZoFuzz.h"

#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/ZoGraphics.h>

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <cmath>
#include <memory>
#include <utility>
#include <typeinfo>

namespace
{
constexpr int kKinds = 21;

IZoGraphicsMapObject* Make(IZoGraphicsModule& m, int kind, const std::string& name)
{
    switch (kind)
    {
    case 0: return m.CreateDotMapObject(name, nullptr);
    case 1: return m.CreateCircleMapObject(name, nullptr);
    case 2: return m.CreateEllipseMapObject(name, nullptr);
    case 3: return m.CreatePieMapObject(name, nullptr);
    case 4: return m.CreateArcMapObject(name, nullptr);
    case 5: return m.CreateChordMapObject(name, nullptr);
    case 6: return m.CreateRectangleMapObject(name, nullptr);
    case 7: return m.CreateTileMapObject(name, nullptr);
    case 8: return m.CreateBubbleMapObject(name, nullptr);
    case 9: return m.CreatePolylineMapObject(name, nullptr);
    case 10: return m.CreatePolygonMapObject(name, nullptr);
    case 11: return m.CreateMultiDotMapObject(name, nullptr);
    case 12: return m.CreateMultiLineMapObject(name, nullptr);
    case 13: return m.CreateMultiPolygonMapObject(name, nullptr);
    case 14: return m.CreateTextMapObject(name, nullptr);
    case 15: return m.CreateMarkPointMapObject(name, nullptr);
    case 16: return m.CreateSVGMapObject(name, nullptr);
    case 17: return m.CreateWidgetMapObject(name, nullptr);
    case 18: return m.CreateLayerCanvasMapObject(name, nullptr);
    default: return m.CreateDotMapObject(name, nullptr);
    }
}

CVector3D Point(CZoFuzzInput& in)
{
    return in.Bool() ? CVector3D{in.Plain(-80, 80), in.Plain(-60, 60), in.Plain(-1, 1)}
                     : CVector3D{in.Double(), in.Double(), in.Double()};
}

EXTENT Extent(CZoFuzzInput& in)
{
    EXTENT e;
    e.xmin = in.Double();
    e.ymin = in.Double();
    e.xmax = in.Double();
    e.ymax = in.Double();
    return e;
}

QColor Color(CZoFuzzInput& in)
{
    return QColor{in.Byte(), in.Byte(), in.Byte(), in.Byte()};
}

float Float(CZoFuzzInput& in)
{
    return static_cast<float>(in.Double());
}

unsigned Flags(CZoFuzzInput& in)
{
    if (in.Bool())
        return in.Byte();
    const unsigned high = static_cast<unsigned>(in.Int(0, 65535)) << 16;
    return high | in.Byte();
}

// Two values read in order (a function's arguments are evaluated in an order
// the compiler picks, and an input must mean the same under every compiler).
std::pair<int, int> Ints(CZoFuzzInput& in, int low, int high)
{
    const int first = in.Int(low, high);
    return {first, in.Int(low, high)};
}
std::pair<double, double> Doubles(CZoFuzzInput& in)
{
    const double first = in.Double();
    return {first, in.Double()};
}

std::vector<CVector3D> Points(CZoFuzzInput& in)
{
    std::vector<CVector3D> points(static_cast<std::size_t>(in.Int(0, 5)));
    for (CVector3D& p : points)
        p = Point(in);
    return points;
}

QFont Font(CZoFuzzInput& in)
{
    QFont font;
    const double size = in.Double();
    if (std::isfinite(size) && size > 0 && size < 400)
        font.setPointSizeF(size);
    return font;
}

void SetShared(IZoGraphicsMapObject* o, CZoFuzzInput& in)
{
    switch (in.Int(0, 19))
    {
    case 0: o->SetName(in.Bytes(24)); break;
    case 1: o->SetNameVisible(in.Bool()); break;
    case 2: o->SetNameFont(Font(in)); break;
    case 3: o->SetNameColor(Color(in)); break;
    case 4: o->SetNameOutlineWidth(in.Double()); break;
    case 5: o->SetNameOffset(Float(in)); break;
    case 6: o->SetNameMinLodLevel(in.Int(-100, 100)); break;
    case 7: o->SetNameMaxLodLevel(in.Int(-100, 100)); break;
    case 8: o->SetZValue(in.Int(-1000000, 1000000)); break;
    case 9: o->SetVisible(in.Bool()); break;
    case 10: o->SetRebuildThreshold(in.Double()); break;
    case 11: o->SetEditAngle(in.Double()); break;
    case 12: o->SetResolution(in.Double()); break;
    case 13: o->Rebuild(in.Double()); break;
    case 14: o->UpdateVisibility(in.Int(-100, 100)); break;
    case 15: o->SetMinLodLevel(in.Int(-100, 100)); break;
    case 16: o->SetMaxLodLevel(in.Int(-100, 100)); break;
    case 17: o->SetInteractive(in.Bool()); break;
    case 18: o->SetAlwaysRebuild(in.Bool()); break;
    default:
        o->UpdatePosition();
        o->Dirty();
        o->Update();
        break;
    }
}

void SetStyle(IZoGraphicsMapObject* o, CZoFuzzInput& in)
{
    if (auto* s = dynamic_cast<IZoSurfaceStyleGraphicsMapObject*>(o))
        switch (in.Int(0, 6))
        {
        case 0: s->SetLabelPosition(Flags(in)); break;
        case 1: s->SetLabelAlignment(Flags(in)); break;
        case 2: s->SetPenColor(Color(in)); break;
        case 3: s->SetPenWidth(Float(in)); break;
        case 4: s->SetPenStyle(Flags(in)); break;
        case 5: s->SetBrushColor(Color(in)); break;
        default: {
            const unsigned style = Flags(in);
            s->SetBrushTextureFile(style, in.Bytes(8));
            break;
        }
        }
    if (auto* l = dynamic_cast<IZoLineStyleGraphicsMapObject*>(o))
        switch (in.Int(0, 5))
        {
        case 0: l->SetLabelPosition(Flags(in)); break;
        case 1: l->SetPenColor(Color(in)); break;
        case 2: l->SetPenWidth(Float(in)); break;
        case 3: l->SetPenStyle(Flags(in)); break;
        case 4: l->SetArrowVisible(in.Bool()); break;
        default: l->SetArrowAtEnd(in.Bool()); break;
        }
}

void SetOwn(IZoGraphicsMapObject* o, CZoFuzzInput& in)
{
    if (auto* d = dynamic_cast<IZoDotMapObject*>(o))
        switch (in.Int(0, 3))
        {
        case 0: d->SetPosition(Point(in)); break;
        case 1: d->SetRadius(in.Double()); break;
        case 2: d->SetOffset(Point(in)); break;
        default: d->SetRotation(in.Double()); break;
        }
    else if (auto* c = dynamic_cast<IZoCircleMapObject*>(o))
        switch (in.Int(0, 2))
        {
        case 0: c->SetCenter(Point(in)); break;
        case 1: c->SetRadiusPoint(Point(in)); break;
        default: c->SetAuxPoint(Point(in)); break;
        }
    else if (auto* e = dynamic_cast<IZoEllipseMapObject*>(o))
        switch (in.Int(0, 3))
        {
        case 0: e->SetExtent(Extent(in)); break;
        case 1: e->SetCenter(Point(in)); break;
        case 2: e->SetRotation(in.Double()); break;
        default: e->SetAuxPoint(Point(in)); break;
        }
    else if (auto* b = dynamic_cast<IZoBowMapObject*>(o))
        switch (in.Int(0, 5))
        {
        case 0: b->SetStartAngle(in.Double()); break;
        case 1: b->SetSpanAngle(in.Double()); break;
        case 2: b->SetExtent(Extent(in)); break;
        case 3: b->SetCenter(Point(in)); break;
        case 4: b->SetRotation(in.Double()); break;
        default: b->SetAuxPoint(Point(in)); break;
        }
    else if (auto* r = dynamic_cast<IZoRectangleMapObject*>(o))
        switch (in.Int(0, 3))
        {
        case 0: r->SetExtent(Extent(in)); break;
        case 1: r->SetCenter(Point(in)); break;
        case 2: r->SetRotation(in.Double()); break;
        default: r->SetAuxPoint(Point(in)); break;
        }
    else if (auto* bubble = dynamic_cast<IZoBubbleMapObject*>(o))
        switch (in.Int(0, 2))
        {
        case 0: bubble->SetPosition(Point(in)); break;
        case 1: {
            const auto [width, height] = Ints(in, -100000, 100000);
            bubble->SetSize(width, height);
            break;
        }
        default:
            // Any value the enumeration can hold, named or not.
            bubble->SetTailDirection(static_cast<EZoBubbleTailDirection>(in.Int(0, 7)));
            break;
        }
    else if (auto* line = dynamic_cast<IZoPolylineMapObject*>(o))
        switch (in.Int(0, 2))
        {
        case 0: line->SetData(Points(in)); break;
        case 1: line->SetPosition(Point(in)); break;
        default: line->SetClosed(in.Bool()); break;
        }
    else if (auto* ring = dynamic_cast<IZoPolygonMapObject*>(o))
        in.Bool() ? ring->SetData(Points(in)) : ring->SetPosition(Point(in));
    else if (auto* dots = dynamic_cast<IZoMultiDotMapObject*>(o))
        switch (in.Int(0, 2))
        {
        case 0: dots->SetData(Points(in)); break;
        case 1: dots->SetDotSize(in.Double()); break;
        default: dots->SetPosition(Point(in)); break;
        }
    else if (auto* lines = dynamic_cast<IZoMultiLineMapObject*>(o))
        in.Bool() ? lines->SetData({Points(in), Points(in)}) : lines->SetPosition(Point(in));
    else if (auto* rings = dynamic_cast<IZoMultiPolygonMapObject*>(o))
        in.Bool() ? rings->SetData({Points(in), Points(in)}) : rings->SetPosition(Point(in));
    else if (auto* t = dynamic_cast<IZoTextMapObject*>(o))
        switch (in.Int(0, 13))
        {
        case 0: t->SetPosition(Point(in)); break;
        case 1: t->SetRotateAngle(in.Double()); break;
        case 2: t->SetRotationVector(Point(in)); break;
        case 3: t->SetText(in.Bytes(32)); break;
        case 4: t->SetHtml(in.Bytes(48)); break;
        case 5: t->SetFont(Font(in)); break;
        case 6: t->SetTextColor(Color(in)); break;
        case 7: t->SetOutlineColor(Color(in)); break;
        case 8: t->SetOutlineWidth(in.Double()); break;
        case 9: t->SetPadding(in.Double()); break;
        case 10: t->SetBackgroundColor(Color(in)); break;
        case 11: t->SetBorderWidth(in.Double()); break;
        case 12: t->SetBorderColor(Color(in)); break;
        default: t->SetScaleWithMap(in.Bool()); break;
        }
    else if (auto* pin = dynamic_cast<IZoMarkPointMapObject*>(o))
        switch (in.Int(0, 8))
        {
        case 0: pin->SetPosition(Point(in)); break;
        case 1: pin->SetRotateAngle(in.Double()); break;
        case 2: {
            const auto [width, height] = Doubles(in);
            pin->SetIconSize(width, height);
            break;
        }
        case 3: pin->SetIconAnchor(Point(in)); break;
        case 4: pin->SetIconFile(in.Bytes(8)); break;
        case 5: pin->SetIconVisible(in.Bool()); break;
        case 6: pin->SetLabelPosition(Flags(in)); break;
        case 7: pin->SetLabelAlignment(Flags(in)); break;
        default: {
            QPixmap icon{in.Int(0, 40), in.Int(0, 40)};
            icon.fill(Qt::red);
            pin->SetIcon(icon);
            break;
        }
        }
    else if (auto* svg = dynamic_cast<IZoSVGMapObject*>(o))
        switch (in.Int(0, 6))
        {
        case 0: svg->SetGeoExtent(Extent(in)); break;
        case 1: svg->SetCenter(Point(in)); break;
        case 2: {
            const auto [x, y] = Doubles(in);
            svg->SetXYScale(x, y);
            break;
        }
        case 3: svg->SetXScale(in.Double()); break;
        case 4: svg->SetYScale(in.Double()); break;
        case 5: {
            const auto [x, y] = Doubles(in);
            svg->MoveBy(x, y);
            break;
        }
        default: svg->Rotate(in.Double()); break;
        }
    else if (auto* w = dynamic_cast<IZoWidgetMapObject*>(o))
        switch (in.Int(0, 2))
        {
        case 0: w->SetPosition(Point(in)); break;
        case 1: {
            const auto [width, height] = Ints(in, -100000, 100000);
            w->SetSize(width, height);
            break;
        }
        default: w->SetAnchor(Point(in)); break;
        }
    else if (auto* canvas = dynamic_cast<IZoLayerCanvasMapObject*>(o))
    {
        if (in.Bool())
            canvas->SetExtent(Extent(in));
        else
        {
            QImage image{in.Int(0, 64), in.Int(0, 64), QImage::Format_ARGB32_Premultiplied};
            image.fill(Qt::blue);
            canvas->SetImage(image);
        }
    }
}

bool Finite(const QRectF& r)
{
    return std::isfinite(r.x()) && std::isfinite(r.y()) && std::isfinite(r.width()) && std::isfinite(r.height());
}

std::string Describe(const QGraphicsItem* item, const QRectF& r)
{
    return std::string(typeid(*item).name()) + " " + std::to_string(r.x()) + "," + std::to_string(r.y()) + " " +
           std::to_string(r.width()) + "x" + std::to_string(r.height());
}

void CheckScene(QGraphicsScene* scene)
{
    for (QGraphicsItem* item : scene->items())
    {
        ZO_FUZZ_CHECK(std::isfinite(item->pos().x()) && std::isfinite(item->pos().y()),
                      Describe(item, QRectF(item->pos(), QSizeF())));
        ZO_FUZZ_CHECK(Finite(item->boundingRect()), Describe(item, item->boundingRect()));
        ZO_FUZZ_CHECK(Finite(item->sceneBoundingRect()), Describe(item, item->sceneBoundingRect()));
    }
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
    for (int n = in.Int(1, 3); n > 0; --n)
    {
        const int kind = in.Int(0, kKinds - 1);
        if (IZoGraphicsMapObject* o = Make(module, kind, in.Bytes(12)))
        {
            objects.push_back(o);
            if (auto* w = dynamic_cast<IZoWidgetMapObject*>(o); w && in.Bool())
                w->SetWidget(&label);
        }
    }
    QImage image(96, 64, QImage::Format_ARGB32_Premultiplied);
    for (int step = 0; step < 200 && !in.Empty() && !objects.empty(); ++step)
    {
        IZoGraphicsMapObject* o = objects[static_cast<std::size_t>(in.Int(0, static_cast<int>(objects.size()) - 1))];
        switch (in.Int(0, 9))
        {
        case 0:
        case 1: SetShared(o, in); break;
        case 2:
        case 3: SetStyle(o, in); break;
        case 4: {
            const double level = in.Plain(0.0, 21.0);
            const double x = in.Plain(-180, 180);
            const double y = in.Plain(-80, 80);
            map.SetZoomAround(level, x, y);
            break;
        }
        case 5: {
            image.fill(Qt::white);
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing, in.Bool());
            map.GetScene()->render(&painter, QRectF(image.rect()), QRectF{in.Plain(-2000, 2000), in.Plain(-2000, 2000),
                                                                          in.Plain(1, 4000), in.Plain(1, 4000)});
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
    for (IZoGraphicsMapObject* o : objects)
    {
        // A widget the object did not make must survive the object.
        module.DestroyGraphicsMapObject(o);
    }
    module.Unintialise();
    return 0;
}
