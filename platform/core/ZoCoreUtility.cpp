#include <ZoGraphics/ZoCoreUtility.h>

#include <QTextCodec>
#include <QUuid>

#include <algorithm>
#include <atomic>
#include <cfloat>
#include <cmath>
#include <string>

namespace
{
// Constant-initialised, so usable from other translation units' static
// initialisers.
std::atomic<int> g_moduleId{0};
std::atomic<int> g_objectId{0};

// A code page's codec, and whether plain ASCII is the same bytes in it.
struct SCodePage
{
    QTextCodec* codec = nullptr;
    bool asciiSafe = false;
};

SCodePage CodecFor(const char* codePage)
{
    // Qt looks a codec up by name under a global lock and asks ICU to resolve
    // the alias each time (its MIB number too); every name that crosses the
    // interface comes here, so each thread remembers the last answer. Codecs
    // live until the process ends, so the pointer stays valid.
    thread_local std::string lastPage;
    thread_local SCodePage last;
    if (last.codec && codePage && lastPage == codePage)
        return last;
    QTextCodec* codec = codePage ? QTextCodec::codecForName(codePage) : nullptr;
    if (!codec)
        return {QTextCodec::codecForName("UTF-8"), true};
    // US-ASCII, Latin-1, UTF-8, GBK and GB18030: the code pages the library
    // meets that keep ASCII as it is.
    constexpr int kAsciiCompatible[] = {3, 4, 106, 113, 114};
    const int mib = codec->mibEnum();
    lastPage = codePage;
    last.codec = codec;
    last.asciiSafe = std::find(std::begin(kAsciiCompatible), std::end(kAsciiCompatible), mib) != std::end(kAsciiCompatible);
    return last;
}

// Equal when |a - b| <= tolerance * max(1, |a|, |b|): relative for large
// magnitudes, absolute below 1. NaN compares unequal; equal infinities match.
template <typename T>
bool IsNearlyEqual(T a, T b, T tolerance)
{
    if (a == b)
        return true;
    if (!std::isfinite(a) || !std::isfinite(b))
        return false;
    const T scale = std::max({T(1), std::fabs(a), std::fabs(b)});
    return std::fabs(a - b) <= tolerance * scale;
}
}

int GenerateZoModuleID()
{
    return g_moduleId.fetch_add(1, std::memory_order_relaxed) + 1;
}

int GenerateZoObjectID()
{
    return g_objectId.fetch_add(1, std::memory_order_relaxed) + 1;
}

std::string ZoCreateUUID()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
}

QString ConvertStdStringToQString(const std::string& text, const char* codePage)
{
    // Most names are plain ASCII: a codec's round trip is most of what
    // creating and destroying an object costs.
    const SCodePage page = CodecFor(codePage);
    if (page.asciiSafe && std::all_of(text.cbegin(), text.cend(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return QString::fromLatin1(text.data(), static_cast<int>(text.size()));
    return page.codec->toUnicode(text.data(), static_cast<int>(text.size()));
}

std::string ConvertQStringToStdString(const QString& text, const char* codePage)
{
    const SCodePage page = CodecFor(codePage);
    if (page.asciiSafe && std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80; }))
    {
        std::string plain(static_cast<size_t>(text.size()), '\0');
        std::transform(text.cbegin(), text.cend(), plain.begin(), [](QChar c) { return static_cast<char>(c.unicode()); });
        return plain;
    }
    const QByteArray bytes = page.codec->fromUnicode(text);
    return std::string(bytes.constData(), static_cast<size_t>(bytes.size()));
}

QString ConvertCharArrayToQString(const char* text, const char* codePage)
{
    if (!text)
        return QString();
    return CodecFor(codePage).codec->toUnicode(text);
}

bool IsEqual(float a, float b)
{
    return IsNearlyEqual(a, b, FLT_EPSILON);
}

bool IsEqual(double a, double b)
{
    // Well above DBL_EPSILON so that values that went through a few
    // arithmetic steps (degrees, pixels) still compare equal.
    return IsNearlyEqual(a, b, 1e-12);
}

double NormalizeDegree(double degrees)
{
    if (!std::isfinite(degrees))
        return degrees;
    double result = std::fmod(degrees, 360.0);
    if (result < 0.0)
        result += 360.0;
    // A tiny negative remainder rounds up to exactly 360; -0 becomes +0.
    if (result >= 360.0 || result == 0.0)
        result = 0.0;
    return result;
}
