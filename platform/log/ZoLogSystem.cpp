#include <ZoGraphics/ZoLogSystem.h>

#include <QLoggingCategory>

#include <mutex>
#include <utility>

Q_LOGGING_CATEGORY(lcZoGraphics, "zo.graphics")

namespace
{
struct SinkSlot
{
    std::mutex mutex;
    ZoLogSink sink; // empty: the Qt logging category
};

SinkSlot& GlobalSink()
{
    static SinkSlot slot;
    return slot;
}

void WriteToCategory(EZoLogLevel level, const std::string& message)
{
    const QString text = QString::fromUtf8(message.data(), static_cast<int>(message.size()));
    switch (level)
    {
    case ZO_LOG_DEBUG:
        qCDebug(lcZoGraphics).noquote() << text;
        break;
    case ZO_LOG_INFO:
        qCInfo(lcZoGraphics).noquote() << text;
        break;
    case ZO_LOG_WARN:
        qCWarning(lcZoGraphics).noquote() << text;
        break;
    case ZO_LOG_ERROR:
        qCCritical(lcZoGraphics).noquote() << text;
        break;
    }
}

void Emit(EZoLogLevel level, const std::string& message)
{
    ZoLogSink sink;
    {
        SinkSlot& slot = GlobalSink();
        std::lock_guard<std::mutex> lock(slot.mutex);
        sink = slot.sink;
    }
    // Called unlocked so that a sink may itself log or replace the sink.
    if (sink)
        sink(level, message);
    else
        WriteToCategory(level, message);
}
}

ZoLogSink ZoSetLogSink(ZoLogSink sink)
{
    SinkSlot& slot = GlobalSink();
    std::lock_guard<std::mutex> lock(slot.mutex);
    std::swap(slot.sink, sink);
    return sink;
}

CZoLogObject::CZoLogObject(EZoLogLevel level) : m_level(level) {}

CZoLogObject::CZoLogObject(CZoLogObject&& other) noexcept
    : m_level(other.m_level), m_active(other.m_active), m_message(std::move(other.m_message))
{
    other.m_active = false;
}

CZoLogObject::~CZoLogObject()
{
    if (!m_active)
        return;
    try
    {
        Emit(m_level, m_message);
    }
    catch (...)
    {
        // A throwing sink must not take the caller down with it.
    }
}

CZoLogObject& CZoLogObject::operator<<(const char* text)
{
    if (text)
        m_message += text;
    return *this;
}

CZoLogObject& CZoLogObject::operator<<(const std::string& text)
{
    m_message += text;
    return *this;
}

CZoLogObject& CZoLogObject::operator<<(const QString& text)
{
    m_message += text.toUtf8().toStdString();
    return *this;
}

CZoLogObject& CZoLogObject::operator<<(char c)
{
    m_message += c;
    return *this;
}

CZoLogObject& CZoLogObject::operator<<(int value)
{
    return *this << static_cast<long long>(value);
}

CZoLogObject& CZoLogObject::operator<<(long value)
{
    return *this << static_cast<long long>(value);
}

CZoLogObject& CZoLogObject::operator<<(long long value)
{
    m_message += std::to_string(value);
    return *this;
}

CZoLogObject& CZoLogObject::operator<<(unsigned int value)
{
    return *this << static_cast<unsigned long long>(value);
}

CZoLogObject& CZoLogObject::operator<<(unsigned long value)
{
    return *this << static_cast<unsigned long long>(value);
}

CZoLogObject& CZoLogObject::operator<<(unsigned long long value)
{
    m_message += std::to_string(value);
    return *this;
}

CZoLogObject& CZoLogObject::operator<<(double value)
{
    std::ostringstream stream;
    stream << value;
    m_message += stream.str();
    return *this;
}

CZoLogObject ZoLogDebug()
{
    return CZoLogObject(ZO_LOG_DEBUG);
}

CZoLogObject ZoLogInfo()
{
    return CZoLogObject(ZO_LOG_INFO);
}

CZoLogObject ZoLogWarn()
{
    return CZoLogObject(ZO_LOG_WARN);
}

CZoLogObject ZoLogError()
{
    return CZoLogObject(ZO_LOG_ERROR);
}
