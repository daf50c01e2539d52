#include "support/LogCapture.h"

#include <ZoGraphics/ZoGraphics.h>

#include <gtest/gtest.h>

using Messages = std::vector<std::string>;

// A module that was never initialised has no map: each content creator lets
// its object say so, then adds its own text and gives null.
TEST(ContentCreators, FailWithTheObjectsTextThenTheirOwn)
{
    CZoGraphicsModule module;
    LogCapture log;
    EXPECT_EQ(module.CreateTextMapObject("t", nullptr), nullptr);
    EXPECT_EQ(module.CreateMarkPointMapObject("m", nullptr), nullptr);
    EXPECT_EQ(module.CreateSVGMapObject("s", nullptr), nullptr);
    EXPECT_EQ(module.CreateWidgetMapObject("w", nullptr), nullptr);
    EXPECT_EQ(module.CreateLayerCanvasMapObject("c", nullptr), nullptr);
    EXPECT_EQ(log.Messages(), (Messages{"[CZoTextMapObject::Initialise] MapModule传入为空",
                                        "[CZoGraphicsModule::CreateTextMapObject] 初始化失败",
                                        "[CZoMarkPointMapObject::Initialise] MapModule传入为空",
                                        "[CZoGraphicsModule::CreateMarkPointMapObject] 初始化失败",
                                        "[CZoSVGMapObject::Initialise] MapModule传入为空",
                                        "[CZoGraphicsModule::CreateSVGMapObject] 初始化失败",
                                        "[CZoWidgetMapObject::Initialise] MapModule传入为空",
                                        "[CZoGraphicsModule::CreateWidgetMapObject] 初始化失败",
                                        "[CZoLayerCanvasMapObject::Initialise] MapModule传入为空",
                                        "[CZoGraphicsModule::CreateLayerCanvasMapObject] 初始化失败"}));
    EXPECT_EQ(module.LookupTextMapObject("t"), nullptr);
    EXPECT_EQ(module.GetRegisteredObjectCount(), 0);
}
