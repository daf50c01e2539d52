#include "support/ModuleFixture.h"

class SharedStyle : public ModuleFixture
{
};

// Objects that never changed their style share one record: a change to one
// object stays with it, and the others keep the defaults.
TEST_F(SharedStyle, ChangesStayWithTheirObject)
{
    IZoDotMapObject* a = module.CreateDotMapObject("a", nullptr);
    IZoDotMapObject* b = module.CreateDotMapObject("b", nullptr);
    IZoCircleMapObject* c = module.CreateCircleMapObject("c", nullptr);
    IZoPolylineMapObject* p = module.CreatePolylineMapObject("p", nullptr);
    IZoPolylineMapObject* q = module.CreatePolylineMapObject("q", nullptr);
    const QColor pen = b->GetPenColor();
    const QColor brush = b->GetBrushColor();

    a->SetPenColor(QColor(1, 2, 3));
    a->SetBrushColor(QColor(4, 5, 6));
    a->SetPenWidth(3.0f);
    c->SetLabelPosition(3);
    p->SetArrowVisible(!q->IsArrowVisible());

    EXPECT_EQ(a->GetPenColor(), QColor(1, 2, 3));
    EXPECT_EQ(a->GetBrushColor(), QColor(4, 5, 6));
    EXPECT_FLOAT_EQ(a->GetPenWidth(), 3.0f);
    EXPECT_EQ(b->GetPenColor(), pen);
    EXPECT_EQ(b->GetBrushColor(), brush);
    EXPECT_FLOAT_EQ(b->GetPenWidth(), 1.0f);
    EXPECT_EQ(c->GetLabelPosition(), 3u);
    EXPECT_EQ(b->GetLabelPosition(), 1u);
    EXPECT_NE(p->IsArrowVisible(), q->IsArrowVisible());

    // An object with a record of its own keeps changing it in place.
    a->SetPenColor(QColor(7, 8, 9));
    EXPECT_EQ(a->GetPenColor(), QColor(7, 8, 9));
    EXPECT_EQ(b->GetPenColor(), pen);
}
