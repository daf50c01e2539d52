#pragma once

#include "shapes/dot/CZoDotMapObject.h"

#include <ZoGraphics/ZoGraphics.h>

#include <gtest/gtest.h>
#include <memory>

// One entry per object kind, for the tests that every kind must pass alike.
// A kind names its class as its log texts do, creates itself through the
// module, and builds an uninitialised instance for the failure paths.
struct DotKind
{
    using Interface = IZoDotMapObject;
    static constexpr const char* kClassName = "CZoDotMapObject";
    static constexpr const char* kInitialiseClass = "CZoTextMapObject";
    static constexpr const char* kSetMaxLodMethod = "SetMinLodLevel";
    static constexpr const char* kAnchorMethod = "ConvertSceneToPixel";

    static Interface* Create(IZoGraphicsModule& module, const std::string& name, IZoGraphicsMapLayer* layer)
    {
        return module.CreateDotMapObject(name, layer);
    }
    static std::unique_ptr<IZoGraphicsMapObject> Construct() { return std::make_unique<CZoDotMapObject>(); }
    static void PlaceAt(Interface* object, double x, double y) { object->SetPosition(CVector3D(x, y, 0.0)); }
};

using MapObjectKindList = ::testing::Types<DotKind>;
