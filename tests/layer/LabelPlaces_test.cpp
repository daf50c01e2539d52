#include "support/ImageCompare.h"
#include "support/ModuleFixture.h"

#include <QPainter>
#include <array>

// Nine dots of radius 20 on one spot, names on their right. The first keeps
// its own place; the next ones move round the dot before any is dropped.
class LabelPlaces : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("cluster");
        declutter = dynamic_cast<IZoLabelDeclutter2*>(layer);
        ASSERT_NE(declutter, nullptr);
        const QColor colours[] = {QColor(255, 0, 0), QColor(0, 0, 255), QColor(255, 0, 255)};
        for (int i = 0; i < 9; ++i)
        {
            IZoDotMapObject* dot = module.CreateDotMapObject("Town" + std::to_string(i), layer);
            dot->SetPosition(CVector3D(10.0, -10.0, 0.0)); // scene (100, 100)
            dot->SetRadius(20.0);
            dot->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 10));
            dot->SetNameColor(i < 3 ? colours[i] : QColor(90, 90, 90));
            dot->SetNameOutlineWidth(0.0);
            dot->SetBrushColor(QColor(0, 160, 0));
            dot->SetPenWidth(0.0f);
            dot->SetLabelPosition(3);
            dot->SetNameVisible(true);
            dots.push_back(dot);
        }
    }

    // The scene from (0, 0) to (200, 200): the dots' centre is the frame's.
    QImage Frame()
    {
        QImage image = BlankCanvas(200, 200);
        QPainter painter(&image);
        map.Scene()->render(&painter, QRectF(image.rect()), QRectF(0, 0, 200, 200));
        painter.end();
        return image.convertToFormat(QImage::Format_ARGB32);
    }

    // Pixels of a colour in each quadrant about the centre: above right,
    // below right, above left, below left.
    static std::array<int, 4> Quadrants(const QImage& image, QRgb colour)
    {
        std::array<int, 4> n{};
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) == colour)
                    ++n[(x < 100 ? 2 : 0) + (y < 100 ? 0 : 1)];
        return n;
    }

    IZoGraphicsMapLayer* layer = nullptr;
    IZoLabelDeclutter2* declutter = nullptr;
    std::vector<IZoDotMapObject*> dots;
};

TEST_F(LabelPlaces, LabelsTheOwnPlaceWouldDropMoveToTheDiagonalsFirst)
{
    declutter->SetLabelDeclutter(true);
    const QImage frame = Frame();
    const std::array<int, 4> own = Quadrants(frame, qRgb(255, 0, 0));
    const std::array<int, 4> second = Quadrants(frame, qRgb(0, 0, 255));
    const std::array<int, 4> third = Quadrants(frame, qRgb(255, 0, 255));
    // The first label stays beside the dot, across its middle line.
    EXPECT_GT(own[0], 10);
    EXPECT_GT(own[1], 10);
    EXPECT_EQ(own[2] + own[3], 0);
    // The second goes above right, the third below right.
    EXPECT_GT(second[0], 20);
    EXPECT_EQ(second[1] + second[2] + second[3], 0);
    EXPECT_GT(third[1], 20);
    EXPECT_EQ(third[0] + third[2] + third[3], 0);
    // Own place, four diagonals and the left; above, below and right collide.
    EXPECT_EQ(declutter->GetPlacedLabelCount(), 6);
    EXPECT_EQ(declutter->GetDroppedLabelCount(), 3);
}

TEST_F(LabelPlaces, CountsFollowTheLastFrame)
{
    EXPECT_EQ(declutter->GetPlacedLabelCount(), 0);
    declutter->SetLabelDeclutter(true);
    Frame();
    EXPECT_EQ(declutter->GetPlacedLabelCount(), 6);
    EXPECT_EQ(declutter->GetDroppedLabelCount(), 3);

    dots[8]->SetPosition(CVector3D(2.0, -2.0, 0.0)); // alone in a corner
    dots[7]->SetNameVisible(false);                   // counted nowhere
    Frame();
    EXPECT_EQ(declutter->GetPlacedLabelCount(), 7);
    EXPECT_EQ(declutter->GetDroppedLabelCount(), 1);

    declutter->SetLabelDeclutter(false);
    EXPECT_EQ(declutter->GetPlacedLabelCount(), 0);
    EXPECT_EQ(declutter->GetDroppedLabelCount(), 0);
}
