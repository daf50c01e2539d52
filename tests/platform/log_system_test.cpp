#include <ZoGraphics/ZoLogSystem.h>
#include "support/LogCapture.h"
#include <gtest/gtest.h>
#include <QString>
#include <QtGlobal>
#include <string>
#include <vector>

namespace
{
std::string g_qtMessages; // "type category text|" each
void RecordQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    g_qtMessages += std::to_string(type) + " " + (context.category ? context.category : "") + " " + text.toStdString() + "|";
}
}

TEST(LogSystem, MessageIsExactlyWhatWasStreamedAtItsLevel)
{
    LogCapture capture;
    ZoLogWarn() << "索引越界: " << 42 << ' ' << -7L << ' ' << 4000000000u << ' ' << 18446744073709551615ull << ' '
                << -9000000000LL << ' ' << 3000000000UL;
    ZoLogError() << QStringLiteral("中文") << std::string("+std") << static_cast<const char*>(nullptr) << "|";
    ZoLogInfo() << 1.5 << ' ' << 0.1 + 0.2 << ' ' << 1.0e20 << ' ' << 1.0 / 3.0;
    ZoLogDebug();
    EXPECT_EQ(capture.Messages(), (std::vector<std::string>{
                                      "索引越界: 42 -7 4000000000 18446744073709551615 -9000000000 3000000000",
                                      "中文+std|", "1.5 0.3 1e+20 0.333333", ""}));
    EXPECT_EQ(capture.Levels(), (std::vector<EZoLogLevel>{ZO_LOG_WARN, ZO_LOG_ERROR, ZO_LOG_INFO, ZO_LOG_DEBUG}));
}

// Setting a sink hands back the previous one (empty while the default is
// active); a sink may log and swap sinks itself without a deadlock.
TEST(LogSystem, SinksAreSwappedEvenFromInsideASink)
{
    int firstCalls = 0;
    const ZoLogSink before = ZoSetLogSink([&](EZoLogLevel, const std::string&) { ++firstCalls; });
    std::vector<std::string> seen;
    ZoLogSink recorder = [&](EZoLogLevel, const std::string& message) { seen.push_back("recorder:" + message); };
    ZoLogSink previous = ZoSetLogSink([&](EZoLogLevel, const std::string& message) {
        seen.push_back(message);
        if (message == "outer")
            ZoLogInfo() << "inner";
        if (message == "swap")
            ZoSetLogSink(recorder);
    });
    ASSERT_TRUE(previous);
    previous(ZO_LOG_INFO, "direct");
    EXPECT_EQ(firstCalls, 1);
    ZoLogInfo() << "outer";
    ZoLogInfo() << "swap";
    ZoLogInfo() << "after";
    EXPECT_EQ(seen, (std::vector<std::string>{"outer", "inner", "swap", "recorder:after"}));
    EXPECT_TRUE(ZoSetLogSink(ZoLogSink()));
    EXPECT_FALSE(ZoSetLogSink(before));
}

TEST(LogSystem, DefaultSinkWritesToTheQtCategory)
{
    const ZoLogSink before = ZoSetLogSink(ZoLogSink());
    g_qtMessages.clear();
    const QtMessageHandler previous = qInstallMessageHandler(RecordQtMessage);
    ZoLogWarn() << "[A::B] 失败";
    ZoLogError() << "e";
    ZoLogInfo() << "i";
    qInstallMessageHandler(previous);
    ZoSetLogSink(before);
    EXPECT_EQ(g_qtMessages, "1 zo.graphics [A::B] 失败|2 zo.graphics e|4 zo.graphics i|");
}
