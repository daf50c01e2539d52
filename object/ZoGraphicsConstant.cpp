#include <ZoGraphics/ZoGraphicsConstant.h>

namespace ZoGraphicsConstantNS
{
const char* const STR_CODE_PAGE = "GB18030";

const QColor CLR_DEFAULT_FILL(139, 139, 139, 50);
const QColor CLR_DEFAULT_OUTLINE(0, 0, 255, 255);
const QColor CLR_DEFAULT_NAME_OUTLINE(Qt::black);
const QColor CLR_DEFAULT_NAME(Qt::red);

// "微软雅黑" as UTF-8; the same text the GB18030 bytes D0 A2 C8 ED D1 C5 BA DA decode to.
const QFont FONT_DEFAULT_NAME(QString::fromUtf8("\xE5\xBE\xAE\xE8\xBD\xAF\xE9\x9B\x85\xE9\xBB\x91"), 12, -1, false);

const std::string STR_BUTTON_STYLE =
    "border-radius:3px;border:0px;color: rgb(255, 255, 255);background-color: rgb(83, 130, 224);";
const std::string STR_FLAT_BUTTON_STYLE =
    "border-radius:3px;border:0px;background-color: transparent;}QPushButton::hover{border-radius:3px;border:0px;"
    "background-color: rgb(83, 130, 224);";

const std::string STR_SCENE_HOVER_ENTER = "Scene_HoverEnter";
const std::string STR_SCENE_HOVER_MOVE = "Scene_HoverMove";
const std::string STR_SCENE_HOVER_LEAVE = "Scene_HoverLeave";
const std::string STR_SCENE_MOUSE_PRESS = "Scene_MousePress";
const std::string STR_SCENE_MOUSE_PRESS_GRAB = "Scene_MousePressGrab";
const std::string STR_SCENE_MOUSE_RELEASE = "Scene_MouseRelease";
const std::string STR_SCENE_MOUSE_DOUBLE_CLICKED = "Scene_MouseDoubleClicked";
const std::string STR_SCENE_KEY_PRESS = "Scene_KeyPress";
const std::string STR_SCENE_KEY_PRESS_GRAB = "Scene_KeyPressGrab";
const std::string STR_SCENE_KEY_RELEASE = "Scene_KeyRelease";
const std::string STR_SCENE_WHEEL_PRESS = "Scene_WheelPress";
const std::string STR_SCENE_WHEEL_PRESS_GRAB = "Scene_WheelPressGrab";
} // namespace ZoGraphicsConstantNS
