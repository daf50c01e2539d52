#include "support/ImageCompare.h"
#include "support/ModuleFixture.h"
#include "object/ZoDevicePixels.h"

#include <QElapsedTimer>
#include <QGraphicsScene>
#include <QPainter>

class LongLabel : public ModuleFixture
{
protected:
    // One frame of a 400 x 300 view with the dot near its left edge.
    QImage Frame(const std::string& name)
    {
        IZoDotMapObject* dot = module.CreateDotMapObject(name, DefaultLayer());
        dot->SetPosition(CVector3D(0.0, 0.0, 0.0));
        dot->SetLabelPosition(3);
        dot->SetNameVisible(true);
        QImage image = BlankCanvas(400, 300);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        map.Scene()->render(&painter, QRectF(image.rect()), QRectF(-50, -150, 400, 300));
        painter.end();
        module.DestroyGraphicsMapObject(dot);
        return image;
    }
};

// Only what the view can show of a name is drawn: a name of 100,000
// characters costs its first frame well under two seconds, mostly laying it
// out once (it took ten seconds and more than a gigabyte), and looks as its
// first few hundred characters do.
TEST_F(LongLabel, DrawsOnlyWhatTheViewShows)
{
    const std::string start(300, 'W');
    const QImage shortName = Frame(start);
    QElapsedTimer timer;
    timer.start();
    const QImage longName = Frame(start + std::string(100000 - start.size(), 'W'));
    EXPECT_LT(timer.elapsed(), 2000);
    EXPECT_EQ(longName, shortName);
    EXPECT_NE(shortName, BlankCanvas(400, 300));
}

TEST(DevicePixels, NoPainterOrAnIdleOneLeavesNothingToDrawIn)
{
    QPainter idle;
    EXPECT_FALSE(CZoDevicePixels(nullptr).IsValid() || CZoDevicePixels(&idle).IsValid());
}
