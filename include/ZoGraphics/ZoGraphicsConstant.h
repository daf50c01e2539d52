#pragma once

/// @file
/// Constants shared by the library's objects (default colours and font,
/// button style sheets, scene event names) and the exported path thinning.

#include <ZoGraphics/ZoGraphicsExport.h>
#include <ZoGraphics/ZoCoreTypes.h>

#include <QColor>
#include <QFont>
#include <string>
#include <vector>

/// Defaults and names shared by the library and its host. The constants are
/// built at load time and never change.
///
/// The scene event names are dynamic properties of the map module's event
/// object (IZoMapModule::GetEventObject), where the objects' Qt items report
/// what happened to them. A plain name holds a QVariantList of int object
/// ids, appended in delivery order (an id repeats when delivered twice); a
/// name ending in "Grab" holds a bool, true when an embedded widget took the
/// event itself. The library only appends and sets them; reading and clearing
/// them is the host's business.
namespace ZoGraphicsConstantNS
{
/// Code page of every std::string that crosses the library boundary: names,
/// texts and file paths are converted to and from QString with it.
ZOGRAPHICS_EXPORT extern const char* const STR_CODE_PAGE; // "GB18030"

// Default colours.
/// Fill of new surface styles: translucent grey, RGBA (139, 139, 139, 50).
ZOGRAPHICS_EXPORT extern const QColor CLR_DEFAULT_FILL;         // translucent grey fill of new surface styles
/// Pen of new surface and line styles: opaque blue, RGBA (0, 0, 255, 255).
ZOGRAPHICS_EXPORT extern const QColor CLR_DEFAULT_OUTLINE;      // opaque blue pen of new styles
/// Halo of new name labels: black.
ZOGRAPHICS_EXPORT extern const QColor CLR_DEFAULT_NAME_OUTLINE; // halo of new name labels
/// Glyphs of new name labels: red.
ZOGRAPHICS_EXPORT extern const QColor CLR_DEFAULT_NAME;         // glyphs of new name labels

/// Font of new name labels and text objects: "微软雅黑", 12 points, default
/// weight, upright. Where the family is missing, Qt's font matching picks
/// another.
ZOGRAPHICS_EXPORT extern const QFont FONT_DEFAULT_NAME;

// Push-button style sheets.
/// Push-button style sheet: white text on blue (83, 130, 224), no border,
/// corners rounded by 3 pixels. The bubble's buttons use it.
ZOGRAPHICS_EXPORT extern const std::string STR_BUTTON_STYLE;
/// Flat push-button style sheet: transparent, blue on hover. It closes its
/// rule and opens a hover rule, so it goes between "QPushButton{" and "}".
ZOGRAPHICS_EXPORT extern const std::string STR_FLAT_BUTTON_STYLE;

// Scene events, recorded as dynamic properties of the map's event object.
/// "Scene_HoverEnter": the ids of the interactive objects the pointer came
/// over.
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_HOVER_ENTER;
/// "Scene_HoverMove": the ids of the interactive objects the pointer moved
/// over.
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_HOVER_MOVE;
/// "Scene_HoverLeave": the ids of the interactive objects the pointer left.
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_HOVER_LEAVE;
/// "Scene_MousePress": the ids of the interactive objects pressed on. Items
/// leave the press unaccepted, so the view still receives it.
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_MOUSE_PRESS;
/// "Scene_MousePressGrab": set to true when an embedded widget (a bubble's
/// or a widget object's) took a press.
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_MOUSE_PRESS_GRAB;
/// "Scene_MouseRelease": the ids of the interactive objects released over.
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_MOUSE_RELEASE;
/// "Scene_MouseDoubleClicked" (with "Clicked", unlike the other names): the
/// ids of the interactive objects double-clicked.
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_MOUSE_DOUBLE_CLICKED;
/// "Scene_KeyPress": named for the host's use; no item of the library
/// records it.
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_KEY_PRESS;
/// "Scene_KeyPressGrab": named for the host's use, true when a widget took
/// the key; no item of the library sets it.
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_KEY_PRESS_GRAB;
/// "Scene_KeyRelease": named for the host's use; no item of the library
/// records it.
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_KEY_RELEASE;
/// "Scene_WheelPress": the ids of the objects whose embedded widget
/// received a wheel turn.
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_WHEEL_PRESS;
/// "Scene_WheelPressGrab": set to true together with "Scene_WheelPress",
/// since the embedded widget took the wheel turn.
ZOGRAPHICS_EXPORT extern const std::string STR_SCENE_WHEEL_PRESS_GRAB;

/// Thins a geographic point list with Douglas-Peucker (tolerance 0.4) when it
/// holds more than 400 points and level is below 18; otherwise copies it. The
/// third argument is ignored. Kept points carry single precision.
///
/// The tolerance is in the points' own units (degrees for longitude and
/// latitude), and z takes part in the distances. The first and last points
/// are always kept. Nothing in the library calls it.
/// @param out receives the result; it may be the same vector as `in`.
/// @param in points with x = longitude and y = latitude, in degrees.
/// @param unused ignored.
/// @param level the host map's zoom level; 18 and above always copy.
ZOGRAPHICS_EXPORT void DPSmooth(std::vector<CVector3D>& out, const std::vector<CVector3D>& in, int unused,
                                int level);
} // namespace ZoGraphicsConstantNS
