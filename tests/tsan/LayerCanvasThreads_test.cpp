#include "support/ModuleFixture.h"

#include "content/canvas/CZoLayerCanvasMapObject.h"

#include <QCoreApplication>
#include <QGraphicsItem>
#include <QPainter>
#include <atomic>
#include <thread>

// A worker replaces the picture in a loop while the GUI thread paints and
// reads it: every frame must show one whole picture, never parts of two.
TEST(LayerCanvasThreads, WorkerImagesAreNeverSeenTorn)
{
    FakeMapModule map;
    CZoGraphicsModule module;
    ASSERT_TRUE(module.Initialise("threads", &map));
    IZoLayerCanvasMapObject* canvas = module.CreateLayerCanvasMapObject("canvas", nullptr);
    canvas->SetExtent(EXTENT{0.0, 0.0, 6.4, 6.4});
    QGraphicsItem* item = canvas->GetQtItem();

    std::atomic<bool> stop{false};
    std::thread worker([&] {
        const QColor colours[] = {Qt::red, Qt::green, Qt::blue};
        for (int i = 0; !stop.load(); ++i)
        {
            QImage image(64, 64, QImage::Format_ARGB32);
            image.fill(colours[i % 3]);
            canvas->SetImage(image);
        }
    });
    int frames = 0;
    int torn = 0;
    for (; frames < 200; ++frames)
    {
        QImage frame(64, 64, QImage::Format_ARGB32);
        frame.fill(Qt::white);
        QPainter painter(&frame);
        item->paint(&painter, nullptr, nullptr);
        painter.end();
        const QRgb first = frame.pixel(0, 0);
        if (frame.pixel(63, 63) != first || frame.pixel(0, 63) != first)
            ++torn;
        const QImage copy = canvas->GetImage();
        if (!copy.isNull() && copy.pixel(0, 0) != copy.pixel(63, 63))
            ++torn;
        // Repaints the worker asked for arrive here.
        QCoreApplication::processEvents();
    }
    stop = true;
    worker.join();
    EXPECT_EQ(torn, 0);
    // Repaints still queued for an object that is gone do nothing.
    canvas->SetImage(QImage(8, 8, QImage::Format_ARGB32));
    std::thread late([&] { canvas->SetImage(QImage(4, 4, QImage::Format_ARGB32)); });
    late.join();
    module.DestroyGraphicsMapObject(canvas);
    QCoreApplication::processEvents();
    module.Unintialise();
}
