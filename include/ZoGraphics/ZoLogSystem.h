#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

#include <QString>
#include <functional>
#include <sstream>
#include <string>

enum EZoLogLevel { ZO_LOG_DEBUG, ZO_LOG_INFO, ZO_LOG_WARN, ZO_LOG_ERROR };

// A sink receives every message, UTF-8, exactly as streamed.
using ZoLogSink = std::function<void(EZoLogLevel, const std::string& message)>;

// Installs a sink and returns the previous one. An empty sink restores the
// default, which writes to the Qt logging category "zo.graphics".
// Thread-safe; a sink may be called from any thread that logs.
ZOGRAPHICS_EXPORT ZoLogSink ZoSetLogSink(ZoLogSink sink);

// One log message in the making; it is emitted when the object is destroyed.
// Texts are UTF-8 (std::string, const char*) or QString.
class ZOGRAPHICS_EXPORT CZoLogObject
{
public:
    explicit CZoLogObject(EZoLogLevel level);
    CZoLogObject(CZoLogObject&& other) noexcept;
    CZoLogObject(const CZoLogObject&) = delete;
    CZoLogObject& operator=(const CZoLogObject&) = delete;
    CZoLogObject& operator=(CZoLogObject&&) = delete;
    ~CZoLogObject();

    CZoLogObject& operator<<(const char* text);
    CZoLogObject& operator<<(const std::string& text);
    CZoLogObject& operator<<(const QString& text);
    CZoLogObject& operator<<(char c);
    CZoLogObject& operator<<(int value);
    CZoLogObject& operator<<(unsigned int value);
    CZoLogObject& operator<<(long value);
    CZoLogObject& operator<<(unsigned long value);
    CZoLogObject& operator<<(long long value);
    CZoLogObject& operator<<(unsigned long long value);
    CZoLogObject& operator<<(double value);

private:
    EZoLogLevel m_level;
    bool m_active = true;
    std::string m_message;
};

ZOGRAPHICS_EXPORT CZoLogObject ZoLogDebug();
ZOGRAPHICS_EXPORT CZoLogObject ZoLogInfo();
ZOGRAPHICS_EXPORT CZoLogObject ZoLogWarn();
ZOGRAPHICS_EXPORT CZoLogObject ZoLogError();
