#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

#include <QString>
#include <functional>
#include <sstream>
#include <string>

/// @file
/// The log system: every warning of the library goes through a sink that the
/// host may replace. Messages read "[Class::Method] reason".

/// The severity of a log message.
enum EZoLogLevel
{
    ZO_LOG_DEBUG, ///< Detail for developers; Qt's debug level by default.
    ZO_LOG_INFO,  ///< Information; Qt's info level by default.
    ZO_LOG_WARN,  ///< A failure answered with a neutral result; Qt's warning level by default.
    ZO_LOG_ERROR  ///< A serious failure; Qt's critical level by default.
};

/// A sink receives every message, UTF-8, exactly as streamed.
using ZoLogSink = std::function<void(EZoLogLevel, const std::string& message)>;

/// Installs a sink and returns the previous one. An empty sink restores the
/// default, which writes to the Qt logging category "zo.graphics".
///
/// Thread-safe; a sink may be called from any thread that logs, and is called
/// outside the lock, so it may log or replace the sink itself. An exception
/// thrown by a sink is swallowed.
ZOGRAPHICS_EXPORT ZoLogSink ZoSetLogSink(ZoLogSink sink);

/// One log message in the making; it is emitted when the object is destroyed.
/// Texts are UTF-8 (std::string, const char*) or QString.
///
/// Obtain one from ZoLogWarn() and the other level functions and stream the
/// parts into it; the message goes to the sink at the end of the statement.
class ZOGRAPHICS_EXPORT CZoLogObject
{
public:
    /// Starts an empty message of the given level.
    explicit CZoLogObject(EZoLogLevel level);
    /// Takes over another message; only this object will emit it.
    CZoLogObject(CZoLogObject&& other) noexcept;
    CZoLogObject(const CZoLogObject&) = delete;
    CZoLogObject& operator=(const CZoLogObject&) = delete;
    CZoLogObject& operator=(CZoLogObject&&) = delete;
    /// Emits the message to the current sink (even when it is empty), unless
    /// it was moved away.
    ~CZoLogObject();

    /// Appends UTF-8 text; a null pointer appends nothing.
    CZoLogObject& operator<<(const char* text);
    /// Appends UTF-8 text.
    CZoLogObject& operator<<(const std::string& text);
    /// Appends text, converted to UTF-8.
    CZoLogObject& operator<<(const QString& text);
    /// Appends one character (byte).
    CZoLogObject& operator<<(char c);
    /// @{ Appends an integer in decimal.
    CZoLogObject& operator<<(int value);
    CZoLogObject& operator<<(unsigned int value);
    CZoLogObject& operator<<(long value);
    CZoLogObject& operator<<(unsigned long value);
    CZoLogObject& operator<<(long long value);
    CZoLogObject& operator<<(unsigned long long value);
    /// @}
    /// Appends a number as a default std::ostream writes it (six significant
    /// digits).
    CZoLogObject& operator<<(double value);

private:
    EZoLogLevel m_level;
    bool m_active = true;
    std::string m_message;
};

/// Starts a message of level ::ZO_LOG_DEBUG; stream the text into the result.
ZOGRAPHICS_EXPORT CZoLogObject ZoLogDebug();
/// Starts a message of level ::ZO_LOG_INFO; stream the text into the result.
ZOGRAPHICS_EXPORT CZoLogObject ZoLogInfo();
/// Starts a message of level ::ZO_LOG_WARN, the level of the library's
/// failure messages: `ZoLogWarn() << "[Class::Method] " << reason;`.
ZOGRAPHICS_EXPORT CZoLogObject ZoLogWarn();
/// Starts a message of level ::ZO_LOG_ERROR; stream the text into the result.
ZOGRAPHICS_EXPORT CZoLogObject ZoLogError();
