#pragma once

#include <ZoGraphics/ZoLogSystem.h>

// Every warning of the library reads "[Class::Method] reason". The prefix is
// built here, once, from the names the caller passes; free functions pass no
// class and read "[Function] reason".
inline CZoLogObject ZoLogWarnAt(const char* className, const char* method)
{
    CZoLogObject log = ZoLogWarn();
    log << '[';
    if (className)
        log << className << "::";
    log << method << "] ";
    return log;
}

// The reasons shared by many classes.
namespace ZoLogReason
{
constexpr const char* kMapModuleNull = "MapModule传入为空";
constexpr const char* kMapModuleNotSet = "MapModule模块未初始化设置";
constexpr const char* kModuleNotSet = "模块未初始化设置";
constexpr const char* kItemMissing = "Qt-Item不存在";
constexpr const char* kItemNull = "Qt-Item为空";
constexpr const char* kArgumentNull = "传入参数为空";
constexpr const char* kConvertFailed = "ConvertSceneToPixel失败";
constexpr const char* kInitialiseFailed = "初始化失败";
constexpr const char* kIndexOutOfRange = "Index越界: ";
constexpr const char* kNotGuiThread = "只能在GUI线程调用";
constexpr const char* kForeignLayer = "图层不属于本模块";
} // namespace ZoLogReason
