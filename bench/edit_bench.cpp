// The edit gadgets at scale: a key-point set on a line of 100,000 vertices
// (attaching it and one vertex drag together), and one move step of the move
// ball among 100,000 dots. The floor of the first is 100,000 plain ellipse
// items put into a scene.
#include "edit/CKeyPointSet.h"
#include "edit/CTranslateBall.h"
#include "support/BenchData.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <benchmark/benchmark.h>

#include <QGraphicsEllipseItem>
#include <QGraphicsScene>
#include <memory>

namespace
{
constexpr double kZoom = 8.0;
constexpr int kVertexCount = 100000;
constexpr std::uint64_t kSeed = 20261124;

// Serves a line's points and applies each vertex change to it.
class LineUser : public IZoGraphicsEditableUser
{
public:
    explicit LineUser(IZoPolylineMapObject* line) : m_line(line) {}
    std::vector<CVector3D> GetEditorKeyPointSet(IZoGraphicsEditObject*) override { return m_line->GetData(); }
    bool IsEnableVirtualIndicate() const override { return true; }
    bool OnProcessKeyPointChange(IZoGraphicsEditObject*, int index, const CVector3D& point) override
    {
        m_line->Modify(index, point);
        return false;
    }
    bool OnCompleteKeyPointChange(IZoGraphicsEditObject* editor, int index, const CVector3D& point) override
    {
        return OnProcessKeyPointChange(editor, index, point);
    }

private:
    IZoPolylineMapObject* m_line;
};

// A map, its view and a graphics module, torn down in that order's reverse.
class EditScene
{
public:
    EditScene(double lon, double lat) : m_view(&m_map)
    {
        m_map.SetZoomAround(kZoom, lon, lat);
        m_view.resize(1024, 640);
        m_view.show();
        m_graphics.Initialise("bench", &m_map);
    }
    ~EditScene() { m_graphics.Unintialise(); }

    CZoMapModule& Map() { return m_map; }
    CZoMapView& View() { return m_view; }
    CZoGraphicsModule& Graphics() { return m_graphics; }
    QPoint At(const CVector3D& p)
    {
        QPointF scene;
        m_map.GeoToScenePoint(p.x, p.y, &scene);
        return m_view.mapFromScene(scene);
    }

private:
    CZoMapModule m_map;
    CZoMapView m_view;
    CZoGraphicsModule m_graphics;
};

// A line of 100,000 vertices 0.0015 degrees apart, from 30 to 180 degrees
// east: the view at level 8 shows a few thousand of them.
void BM_KeyPointSetAttachAndDrag(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    std::vector<CVector3D> points;
    for (int i = 0; i < count; ++i)
        points.emplace_back(30.0 + i * (150.0 / count), 20.0 + 0.01 * (i % 7), 0.0);
    const int middle = count / 2;
    for (auto _ : state)
    {
        state.PauseTiming();
        auto scene = std::make_unique<EditScene>(points[middle].x, points[middle].y);
        IZoPolylineMapObject* line = scene->Graphics().CreatePolylineMapObject("line", nullptr);
        line->SetData(points);
        LineUser user(line);
        auto* set = static_cast<CKeyPointSet*>(scene->Graphics().CreateKeyPointSetEditObject(nullptr));
        state.ResumeTiming();

        set->AttachEditableUser(&user);
        IZoDotMapObject* handle = set->GetPointHandle(middle);
        const int id = handle ? handle->GetObjectID() : -1;
        const QPoint at = scene->At(points[middle]);
        set->OnMousePress(&scene->View(), at.x(), at.y(), id);
        for (int step = 1; step <= 10; ++step)
            set->OnMouseMove(&scene->View(), at.x() + step, at.y() + step, id);
        set->OnMouseRelease(&scene->View(), at.x() + 10, at.y() + 10, id);
        const bool dragged = line->At(middle) != points[middle];
        int handles = 0;
        for (int i = 0; i < count; ++i)
            handles += set->GetPointHandle(i) != nullptr;

        state.PauseTiming();
        scene->Graphics().DestroyGraphicsEditObject(set);
        scene.reset();
        state.counters["point_handles"] = handles;
        if (!dragged)
            state.SkipWithError("the vertex did not move");
        state.ResumeTiming();
    }
}
BENCHMARK(BM_KeyPointSetAttachAndDrag)->Arg(kVertexCount)->Unit(benchmark::kMillisecond)->Iterations(3);

// Floor: as many plain items as the line has vertices, put into a scene.
void BM_Floor_PlainItems(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state)
    {
        QGraphicsScene scene;
        for (int i = 0; i < count; ++i)
        {
            auto* item = new QGraphicsEllipseItem(-6.0, -6.0, 12.0, 12.0);
            item->setPos(i * 0.5, 0.0);
            scene.addItem(item);
        }
        state.PauseTiming();
        scene.clear();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Floor_PlainItems)->Arg(kVertexCount)->Unit(benchmark::kMillisecond)->Iterations(3);

// One move of a ball drag with 100,000 dots on the map: the process callback
// and the placement of the ball.
void BM_BallMoveStep(benchmark::State& state)
{
    EditScene scene(100.0, 30.0);
    const ZoBench::Path places = ZoBench::RandomWalk(static_cast<std::size_t>(state.range(0)), kSeed, 0.001);
    for (const CVector3D& place : places)
        scene.Graphics().CreateDotMapObject("dot", nullptr)->SetPosition(place);
    IZoGraphicsEditableUser user;
    auto* ball = static_cast<CTranslateBall*>(scene.Graphics().CreateTranslateEditObject(nullptr));
    ball->AttachEditableUser(&user);
    ball->SetEditorPoint(CVector3D(100.0, 30.0, 0.0), 0);
    const int id = ball->GetDot()->GetObjectID();
    const QPoint at = scene.At(CVector3D(100.0, 30.0, 0.0));
    ball->OnMousePress(&scene.View(), at.x(), at.y(), id);
    int step = 0;
    for (auto _ : state)
    {
        ++step;
        ball->OnMouseMove(&scene.View(), at.x() + (step % 2), at.y() + (step % 3), id);
    }
    if (ball->GetDot()->GetPosition() == CVector3D(100.0, 30.0, 0.0))
        state.SkipWithError("the ball did not move");
    scene.Graphics().DestroyGraphicsEditObject(ball);
}
BENCHMARK(BM_BallMoveStep)->Arg(kVertexCount)->Unit(benchmark::kMicrosecond);
} // namespace
