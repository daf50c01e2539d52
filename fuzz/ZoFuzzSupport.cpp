#include "fuzz/ZoFuzz.h"

#include <ZoGraphics/ZoLogSystem.h>

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace
{
void AbortOnFailure(const std::string& what)
{
    std::fprintf(stderr, "model mismatch: %s\n", what.c_str());
    std::abort();
}

ZoFuzzFailureHandler g_failureHandler = AbortOnFailure;

constexpr double kHostile[] = {
    0.0,
    -0.0,
    1.0,
    -1.0,
    0.5,
    -5.0,
    90.0,
    180.0,
    -360.0,
    720.5,
    1e300,
    -1e300,
    1e-300,
    1e18,
    -1e18,
    std::numeric_limits<double>::quiet_NaN(),
    std::numeric_limits<double>::infinity(),
    -std::numeric_limits<double>::infinity(),
    std::numeric_limits<double>::denorm_min(),
    std::numeric_limits<double>::max(),
    std::numeric_limits<double>::lowest(),
    2147483648.0,
    -2147483649.0,
};
} // namespace

void ZoFuzzSetFailureHandler(ZoFuzzFailureHandler handler)
{
    g_failureHandler = handler ? handler : AbortOnFailure;
}

void ZoFuzzFail(const std::string& what)
{
    g_failureHandler(what);
}

int CZoFuzzInput::Int(int low, int high)
{
    if (high <= low)
        return low;
    const unsigned span = static_cast<unsigned>(high - low) + 1u;
    const unsigned raw = span > 256u ? static_cast<unsigned>(Byte()) << 8 | Byte() : Byte();
    return low + static_cast<int>(raw % span);
}

double CZoFuzzInput::Double()
{
    const std::uint8_t pick = Byte();
    constexpr std::size_t kCount = sizeof(kHostile) / sizeof(kHostile[0]);
    if (pick < kCount * 8)
        return kHostile[pick % kCount];
    if (pick < 240)
        return Plain(-200.0, 200.0);
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i)
        bits = bits << 8 | Byte();
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

double CZoFuzzInput::Plain(double low, double high)
{
    const int raw = static_cast<int>(Byte()) << 8 | Byte();
    return low + (high - low) * raw / 65535.0;
}

std::string CZoFuzzInput::Bytes(std::size_t maxLength)
{
    const std::size_t length = static_cast<std::size_t>(Byte()) % (maxLength + 1);
    std::string text;
    for (std::size_t i = 0; i < length && !Empty(); ++i)
        text.push_back(static_cast<char>(Byte()));
    return text;
}

void ZoFuzzEnsureApplication()
{
    if (QApplication::instance())
        return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "zographics_fuzz";
    static char* argv[] = {name, nullptr};
    // libFuzzer ends the process with exit(): an application destroyed among
    // the static objects would run Qt's post routines after the caches they
    // clean up are gone. It lives as long as the process instead.
    static QApplication* const application = new QApplication(argc, argv);
    Q_UNUSED(application);
}

CZoQuietLog::CZoQuietLog() : m_previous(ZoSetLogSink([](EZoLogLevel, const std::string&) {})) {}

CZoQuietLog::~CZoQuietLog()
{
    ZoSetLogSink(m_previous);
}
