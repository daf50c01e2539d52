#include "fuzz/ZoFuzz.h"
#include <ZoGraphics/CZoMapModule.h>
#include <QApplication>
#include <QGraphicsScene>
#include <QImage>
#include <QPainter>
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

using Limits = std::numeric_limits<double>;
constexpr double kHostile[] = {
    0.0, -0.0, 1.0, -1.0, 0.5, -5.0, 90.0, 180.0, -360.0, 720.5, 1e300, -1e300, 1e-300, 1e18, -1e18,
    Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), Limits::denorm_min(), Limits::max(),
    Limits::lowest(), 2147483648.0, -2147483649.0,
};

#define ZO_FUZZ_KIND(Create, Lookup)                                                                              \
    {[](IZoGraphicsModule& m, const std::string& name, IZoGraphicsMapLayer* layer) -> IZoGraphicsMapObject* {     \
         return m.Create(name, layer);                                                                            \
     },                                                                                                           \
     [](const IZoGraphicsModule& m, const std::string& name) -> IZoGraphicsMapObject* { return m.Lookup(name); }, \
     #Lookup}
} // namespace

const SZoFuzzKind kZoFuzzKinds[19] = {
    ZO_FUZZ_KIND(CreateDotMapObject, LookupDotMapObject),
    ZO_FUZZ_KIND(CreateCircleMapObject, LookupCircleMapObject),
    ZO_FUZZ_KIND(CreateEllipseMapObject, LookupEllipseMapObject),
    ZO_FUZZ_KIND(CreatePieMapObject, LookupBowMapObject),
    ZO_FUZZ_KIND(CreateArcMapObject, LookupBowMapObject),
    ZO_FUZZ_KIND(CreateChordMapObject, LookupBowMapObject),
    ZO_FUZZ_KIND(CreateRectangleMapObject, LookupRectangleMapObject),
    ZO_FUZZ_KIND(CreateTileMapObject, LookupRectangleMapObject),
    ZO_FUZZ_KIND(CreateBubbleMapObject, LookupBubbleMapObject),
    ZO_FUZZ_KIND(CreatePolylineMapObject, LookupPolylineMapObject),
    ZO_FUZZ_KIND(CreatePolygonMapObject, LookupPolygonMapObject),
    ZO_FUZZ_KIND(CreateMultiDotMapObject, LookupMultiDotMapObject),
    ZO_FUZZ_KIND(CreateMultiLineMapObject, LookupMultiLineMapObject),
    ZO_FUZZ_KIND(CreateMultiPolygonMapObject, LookupMultiPolygonMapObject),
    ZO_FUZZ_KIND(CreateTextMapObject, LookupTextMapObject),
    ZO_FUZZ_KIND(CreateMarkPointMapObject, LookupLabelMapObject),
    ZO_FUZZ_KIND(CreateSVGMapObject, LookupSVGMapObject),
    ZO_FUZZ_KIND(CreateWidgetMapObject, LookupWidgetMapObject),
    ZO_FUZZ_KIND(CreateLayerCanvasMapObject, LookupLayerCanvasMapObject),
};
#undef ZO_FUZZ_KIND

void ZoFuzzSetFailureHandler(ZoFuzzFailureHandler handler) { g_failureHandler = handler ? handler : AbortOnFailure; }
void ZoFuzzFail(const std::string& what) { g_failureHandler(what); }

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
    double value;
    return *static_cast<double*>(std::memcpy(&value, &bits, sizeof value));
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
    // libFuzzer ends with exit(): a static application would run Qt's post
    // routines after the caches they clean up are gone. It lives on instead.
    static QApplication* const application = new QApplication(argc, argv);
    Q_UNUSED(application);
}

void ZoFuzzZoom(CZoMapModule& map, CZoFuzzInput& in, double latitude)
{
    const double level = in.Plain(0.0, 21.0), x = in.Plain(-180, 180);
    map.SetZoomAround(level, x, in.Plain(-latitude, latitude));
}

void ZoFuzzPaint(QGraphicsScene* scene, const QRectF& source, bool antialiased)
{
    QImage image(96, 64, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, antialiased);
    scene->render(&painter, QRectF(image.rect()), source);
}

CZoQuietLog::CZoQuietLog(std::function<void(const std::string&)> seen)
    : m_previous(ZoSetLogSink([seen](EZoLogLevel, const std::string& message) { seen ? seen(message) : void(); }))
{
}
CZoQuietLog::~CZoQuietLog() { ZoSetLogSink(m_previous); }
