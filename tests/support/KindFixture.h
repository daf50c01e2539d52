#pragma once

#include "support/MapObjectKinds.h"
#include "support/ModuleFixture.h"

#include <QGraphicsItem>

// An object of one kind on a layer of its own, made before each test with
// the log cleared.
template <class Kind>
class KindFixture : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("layer");
        object = Kind::Create(module, "object", layer);
        ASSERT_NE(object, nullptr);
        log.Clear();
    }
    // The concrete class, for the internals a test looks into.
    typename Kind::Impl* Impl() const { return static_cast<typename Kind::Impl*>(object); }
    const CZoNameLabel& Label() const { return Impl()->Core().Label(); }
    QRectF ShapeRect() const { return object->GetQtItem()->shape().boundingRect(); }
    // The look the paint references were drawn with: named, the name shown in
    // DejaVu Sans 9, a two-pixel blue pen.
    static void StyleLikeTheReferences(IZoSurfaceStyleGraphicsMapObject* o, const char* name, const QColor& brush)
    {
        o->SetName(name);
        o->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 9));
        o->SetNameVisible(true);
        o->SetPenWidth(2.0f);
        o->SetPenColor(QColor(20, 40, 160));
        o->SetBrushColor(brush);
    }
    IZoGraphicsMapLayer* layer = nullptr;
    typename Kind::Interface* object = nullptr;
};
