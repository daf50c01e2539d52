#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>
#include <ZoGraphics/ZoCoreTypes.h>

#include <QColor>
#include <QFont>
#include <string>
#include <vector>

namespace ZoGraphicsConstantNS
{
// Code page of every std::string that crosses the library boundary.
ZOGRAPHICS_EXPORT extern const char* const STR_CODE_PAGE; // "GB18030"

// Default colours.
ZOGRAPHICS_EXPORT extern const QColor CLR_DEFAULT_FILL;         // translucent grey fill of new surface styles
ZOGRAPHICS_EXPORT extern const QColor CLR_DEFAULT_OUTLINE;      // opaque blue pen of new styles
ZOGRAPHICS_EXPORT extern const QColor CLR_DEFAULT_NAME_OUTLINE; // halo of new name labels
ZOGRAPHICS_EXPORT extern const QColor CLR_DEFAULT_NAME;         // glyphs of new name labels

// Font of new name labels: "微软雅黑", 12 points, default weight, upright.
ZOGRAPHICS_EXPORT extern const QFont FONT_DEFAULT_NAME;

// Push-button style sheets. The flat one closes its rule and opens a hover
// rule, so it goes between "QPushButton{" and "}".
ZOGRAPHICS_EXPORT extern const std::string STR_BUTTON_STYLE;
ZOGRAPHICS_EXPORT extern const std::string STR_FLAT_BUTTON_STYLE;

// Scene events, recorded as dynamic properties of the map's event object.
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_HOVER_ENTER;
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_HOVER_MOVE;
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_HOVER_LEAVE;
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_MOUSE_PRESS;
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_MOUSE_PRESS_GRAB;
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_MOUSE_RELEASE;
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_MOUSE_DOUBLE_CLICKED;
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_KEY_PRESS;
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_KEY_PRESS_GRAB;
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_KEY_RELEASE;
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_WHEEL_PRESS;
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_WHEEL_PRESS_GRAB;

// Thins a geographic point list with Douglas-Peucker (tolerance 0.4) when it
// holds more than 400 points and level is below 18; otherwise copies it. The
// third argument is ignored. Kept points carry single precision.
ZOGRAPHICS_EXPORT void DPSmooth(std::vector<CVector3D>& out, const std::vector<CVector3D>& in, int unused,
                                int level);
} // namespace ZoGraphicsConstantNS
