#include "content/canvas/CZoLayerCanvasMapObject.h"
#include "support/BenchRatios.h"
#include "support/BenchStatistics.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QCoreApplication>
#include <QGraphicsScene>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <atomic>
#include <benchmark/benchmark.h>
#include <chrono>
#include <memory>
#include <mutex>
#include <random>
#include <thread>

// Content objects against plain Qt: pins against one painter drawing the same
// pictures and names, and the canvas's picture hand-over against a bare
// pointer swap under a mutex.
namespace
{
constexpr std::uint64_t kPinSeed = 20261124;
const QSize kPinFrame(1280, 720);
constexpr double kPinZoom = 6.0; // view scale 1: scene units are pixels
constexpr double kPinLon = 15.0;
constexpr double kPinLat = 50.0;

// The icon every pin shows: a 24 x 34 drop, anchored at its tip.
QPixmap PinIcon()
{
    QImage image(24, 34, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(214, 48, 39));
    painter.drawEllipse(QRectF(1.5, 0.5, 21, 21));
    painter.drawPolygon(QPolygonF({QPointF(3, 14), QPointF(21, 14), QPointF(12, 34)}));
    return QPixmap::fromImage(image);
}

QString PinName(int i)
{
    return QString::fromUtf8("标记%1").arg(i);
}

// N pins in view: their scene points and the frame around the centre.
struct SPinLayout
{
    explicit SPinLayout(CZoMapModule& map, int count)
    {
        map.SetZoomAround(kPinZoom, kPinLon, kPinLat);
        QPointF centre;
        map.GeoToScenePoint(kPinLon, kPinLat, &centre);
        frame = QRectF(centre - QPointF(kPinFrame.width() / 2.0, kPinFrame.height() / 2.0), QSizeF(kPinFrame));
        std::mt19937_64 random(kPinSeed);
        std::uniform_real_distribution<double> lon(1.5, 28.5);
        std::uniform_real_distribution<double> lat(45.0, 54.5);
        for (int i = 0; i < count; ++i)
            geo.emplace_back(lon(random), lat(random));
    }
    QRectF frame;
    std::vector<QPointF> geo;
};

void BM_Floor_PainterPinsAndNames(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    CZoMapModule map;
    const SPinLayout layout(map, count);
    std::vector<std::pair<QPointF, QString>> pins;
    for (int i = 0; i < count; ++i)
    {
        QPointF at;
        map.GeoToScenePoint(layout.geo[i].x(), layout.geo[i].y(), &at);
        pins.emplace_back(at - layout.frame.topLeft(), PinName(i));
    }
    const QImage icon = PinIcon().toImage();
    const QFont font(QStringLiteral("微软雅黑"), 12);
    QImage image(kPinFrame, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
    {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setFont(font);
        painter.setPen(Qt::red);
        for (const auto& pin : pins)
        {
            painter.drawImage(QRectF(pin.first - QPointF(12.0, 34.0), QSizeF(24.0, 34.0)), icon);
            painter.drawText(pin.first + QPointF(-12.0, -38.0), pin.second);
        }
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_Floor_PainterPinsAndNames)->Arg(10000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// One 1280 x 720 frame of N pins in view, each with its icon and its name
// above it.
void BM_FramePins(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    CZoMapModule map;
    const SPinLayout layout(map, count);
    CZoGraphicsModule graphics;
    graphics.Initialise("bench", &map);
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("pins");
    const QPixmap icon = PinIcon();
    for (int i = 0; i < count; ++i)
    {
        IZoMarkPointMapObject* pin =
            graphics.CreateMarkPointMapObject(ConvertQStringToStdString(PinName(i), "GB18030"), layer);
        pin->SetPosition(CVector3D(layout.geo[i].x(), layout.geo[i].y(), 0.0));
        pin->SetIcon(icon);
        pin->SetIconAnchor(CVector3D(12.0, 34.0, 0.0));
        pin->SetNameVisible(true);
    }
    QCoreApplication::processEvents();
    QImage image(kPinFrame, QImage::Format_ARGB32_Premultiplied);
    const auto render = [&] {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        map.GetScene()->render(&painter, QRectF(image.rect()), layout.frame);
    };
    render(); // the first frame draws the label looks
    for (auto _ : state)
        render();
    state.SetItemsProcessed(state.iterations() * count);
    graphics.Unintialise();
}
BENCHMARK(BM_FramePins)->Arg(10000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// --- picture hand-over from a worker -------------------------------------------

// Waits of the GUI thread while a worker hands over pictures in a loop: each
// benchmark iteration is one GUI-side read, timed alone; the counters give
// the longest and the 99th-percentile wait in microseconds.
template <class Read, class Write>
void MeasureGuiWaits(benchmark::State& state, Read read, Write write)
{
    std::atomic<bool> stop{false};
    std::thread worker([&] {
        for (int i = 0; !stop.load(std::memory_order_relaxed); ++i)
            write(i);
    });
    std::vector<double> waits;
    waits.reserve(1 << 20);
    for (auto _ : state)
    {
        const auto start = std::chrono::steady_clock::now();
        read();
        const std::chrono::duration<double> wait = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(wait.count());
        if (waits.size() < waits.capacity())
            waits.push_back(wait.count() * 1e6);
        // Repaints the worker asks for arrive here, as in a GUI's event loop.
        if ((waits.size() & 255) == 0)
            QCoreApplication::processEvents();
    }
    stop = true;
    worker.join();
    QCoreApplication::processEvents();
    std::sort(waits.begin(), waits.end());
    state.counters["max_wait_us"] = waits.empty() ? 0.0 : waits.back();
    state.counters["p99_wait_us"] = waits.empty() ? 0.0 : waits[waits.size() * 99 / 100];
    // Waits long enough to be the scheduler's rather than the lock's.
    state.counters["waits_over_50us"] =
        static_cast<double>(waits.end() - std::upper_bound(waits.begin(), waits.end(), 50.0));
}

// Two 4096 x 4096 pictures, made once: the worker's cost is the hand-over.
std::array<QImage, 2> LargePictures(int side)
{
    std::array<QImage, 2> pictures{QImage(side, side, QImage::Format_ARGB32_Premultiplied),
                                   QImage(side, side, QImage::Format_ARGB32_Premultiplied)};
    pictures[0].fill(Qt::darkBlue);
    pictures[1].fill(Qt::darkGreen);
    return pictures;
}

void BM_Floor_PointerSwapWait(benchmark::State& state)
{
    const std::array<QImage, 2> pictures = LargePictures(static_cast<int>(state.range(0)));
    std::mutex mutex;
    const QImage* current = &pictures[0];
    const QImage* seen = nullptr;
    MeasureGuiWaits(
        state,
        [&] {
            std::lock_guard<std::mutex> lock(mutex);
            seen = current;
            benchmark::DoNotOptimize(seen);
        },
        [&](int i) {
            std::lock_guard<std::mutex> lock(mutex);
            current = &pictures[i & 1];
        });
}
BENCHMARK(BM_Floor_PointerSwapWait)->Arg(4096)->UseManualTime()->Iterations(200000)->Unit(benchmark::kMicrosecond);

void BM_CanvasSetImageGuiWait(benchmark::State& state)
{
    const std::array<QImage, 2> pictures = LargePictures(static_cast<int>(state.range(0)));
    CZoMapModule map;
    CZoGraphicsModule graphics;
    graphics.Initialise("bench", &map);
    auto* canvas = static_cast<CZoLayerCanvasMapObject*>(graphics.CreateLayerCanvasMapObject("canvas", nullptr));
    canvas->SetExtent(EXTENT{0.0, 0.0, 10.0, 10.0});
    // What the GUI's paint waits for: the image lock, held by a painter for
    // its drawing and by the worker for its hand-over.
    MeasureGuiWaits(
        state, [&] { canvas->WithImage([](const QImage& image) { benchmark::DoNotOptimize(image.constBits()); }); },
        [&](int i) { canvas->SetImage(pictures[i & 1]); });
    graphics.Unintialise();
}
BENCHMARK(BM_CanvasSetImageGuiWait)->Arg(4096)->UseManualTime()->Iterations(200000)->Unit(benchmark::kMicrosecond);

const bool kContentRatios[] = {
    ZoBench::AddRatio("frame of 10,000 pins with names / one painter", "BM_FramePins/10000",
                      "BM_Floor_PainterPinsAndNames/10000", 3.0),
    ZoBench::AddRatio("longest GUI wait, worker SetImage 4096 / pointer swap",
                      "BM_CanvasSetImageGuiWait/4096",
                      "BM_Floor_PointerSwapWait/4096", 2.0, "max_wait_us"),
    ZoBench::AddRatio("99th-percentile GUI wait, worker SetImage 4096 / pointer swap",
                      "BM_CanvasSetImageGuiWait/4096",
                      "BM_Floor_PointerSwapWait/4096", 2.0, "p99_wait_us"),
};
} // namespace
