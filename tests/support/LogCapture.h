#pragma once

#include <ZoGraphics/ZoLogSystem.h>

#include <mutex>
#include <string>
#include <vector>

// Collects every log message for the lifetime of the object and restores the
// previous sink afterwards.
class LogCapture
{
public:
    LogCapture()
    {
        m_previous = ZoSetLogSink([this](EZoLogLevel level, const std::string& message) {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_levels.push_back(level);
            m_messages.push_back(message);
        });
    }
    ~LogCapture() { ZoSetLogSink(m_previous); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;
    std::vector<std::string> Messages() const
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_messages;
    }
    std::vector<EZoLogLevel> Levels() const
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_levels;
    }
    void Clear()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_messages.clear();
        m_levels.clear();
    }

private:
    ZoLogSink m_previous;
    mutable std::mutex m_mutex;
    std::vector<std::string> m_messages;
    std::vector<EZoLogLevel> m_levels;
};
