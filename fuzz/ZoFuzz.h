#pragma once

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoLogSystem.h>
#include <QtGlobal>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

class CZoMapModule;
class QGraphicsScene;
class QRectF;

// The fuzz targets: each reads its operations from the bytes, checks the
// library against a plain model where it keeps one, and returns 0. They run
// under libFuzzer (FuzzEntry.cpp) and, over their corpora and seeded random
// inputs, in the test suite.
int ZoFuzzRegistry(const std::uint8_t* data, std::size_t size);
int ZoFuzzPointList(const std::uint8_t* data, std::size_t size);
int ZoFuzzSetters(const std::uint8_t* data, std::size_t size);
int ZoFuzzFiles(const std::uint8_t* data, std::size_t size);

// A mismatch with the model: libFuzzer aborts (keeping the input as a
// crash), the test suite turns it into a failure.
using ZoFuzzFailureHandler = void (*)(const std::string& what);
void ZoFuzzSetFailureHandler(ZoFuzzFailureHandler handler);
void ZoFuzzFail(const std::string& what);
#define ZO_FUZZ_CHECK(condition, what)                                                                            \
    ((condition) ? void() : ZoFuzzFail(std::string(__FILE__ ":") + std::to_string(__LINE__) + ": " #condition ": " + (what)))

// Operations and values drawn from the bytes; past the end every read gives
// zero, so that any input is a whole run.
class CZoFuzzInput
{
public:
    CZoFuzzInput(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}
    bool Empty() const { return m_offset >= m_size; }
    std::uint8_t Byte() { return m_offset < m_size ? m_data[m_offset++] : 0; }
    bool Bool() { return Byte() & 1; }
    int Int(int low, int high); // in [low, high]
    // Mostly hostile: NaN, infinities, huge, tiny, far beyond a turn; now
    // and then any bit pattern.
    double Double();
    double Plain(double low, double high); // what a host would use
    std::string Bytes(std::size_t maxLength); // often not valid GB18030
    // One of a table's operations on target, picked by the next value.
    template <class T, std::size_t N>
    void Apply(T* target, void (*const (&operations)[N])(T*, CZoFuzzInput&))
    {
        operations[Int(0, static_cast<int>(N) - 1)](target, *this);
    }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_offset = 0;
};

template <class T>
using ZoFuzzOperation = void (*)(T*, CZoFuzzInput&);
// A row of such a table: one call on the target, its values read from in.
#define ZO_FUZZ_DO(call) [](auto* target, [[maybe_unused]] CZoFuzzInput& in) { target->call; }

// Every kind the module makes, in the order the inputs name them, with its
// typed lookup (kinds found by one lookup share its name).
struct SZoFuzzKind
{
    IZoGraphicsMapObject* (*make)(IZoGraphicsModule&, const std::string&, IZoGraphicsMapLayer*);
    IZoGraphicsMapObject* (*find)(const IZoGraphicsModule&, const std::string&);
    const char* lookup;
};
extern const SZoFuzzKind kZoFuzzKinds[19];

void ZoFuzzEnsureApplication(); // a QApplication on the offscreen platform
void ZoFuzzZoom(CZoMapModule& map, CZoFuzzInput& in, double latitude = 85.0);
void ZoFuzzPaint(QGraphicsScene* scene, const QRectF& source, bool antialiased = false);

// Keeps the library's warnings (expected by the thousand) from the log; a
// run that counts them is handed each.
class CZoQuietLog
{
public:
    explicit CZoQuietLog(std::function<void(const std::string&)> seen = nullptr);
    ~CZoQuietLog();
    Q_DISABLE_COPY(CZoQuietLog)

private:
    ZoLogSink m_previous;
};
