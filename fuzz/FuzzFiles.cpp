// The readers of files a user hands the host: SVG pictures, icon and
// texture images, GeoJSON. The first byte picks the reader, the rest is the
// file.
#include "fuzz/ZoFuzz.h"
#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/ZoGeoJson.h>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QGraphicsScene>
#include <QImage>

namespace
{
// One scratch file per process, written anew for every input.
std::string ScratchFile(const QByteArray& bytes, const char* suffix)
{
    const QString path = QDir::temp().filePath(
        QStringLiteral("zographics-fuzz-%1%2").arg(QCoreApplication::applicationPid()).arg(QLatin1String(suffix)));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
    return path.toStdString();
}
} // namespace

int ZoFuzzFiles(const std::uint8_t* data, std::size_t size)
{
    ZoFuzzEnsureApplication();
    CZoQuietLog quiet;
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), static_cast<int>(size - 1));
    CZoMapModule map;
    map.SetZoomAround(3.0, 0.0, 0.0);
    CZoGraphicsModule module;
    module.Initialise("fuzz", &map);
    switch (data[0] % 5)
    {
    case 0: {
        const std::string path = ScratchFile(bytes, ".svg");
        const QImage image = ConvertSVGToImage(path);
        ZO_FUZZ_CHECK(image.width() <= 8192 && image.height() <= 8192, "SVG image size");
        if (IZoSVGMapObject* svg = module.CreateSVGMapObject("svg", nullptr))
        {
            svg->LoadSVGFile(path, CVector3D(10, 10, 0));
            svg->ConvertToImage();
        }
        break;
    }
    case 1:
        if (IZoMarkPointMapObject* pin = module.CreateMarkPointMapObject("pin", nullptr))
            pin->SetIconFile(ScratchFile(bytes, ".png"));
        break;
    case 2:
        if (IZoCircleMapObject* circle = module.CreateCircleMapObject("circle", nullptr))
        {
            circle->SetCenter(CVector3D(0, 0, 0));
            circle->SetRadiusPoint(CVector3D(5, 0, 0));
            circle->SetBrushTextureFile(Qt::TexturePattern, ScratchFile(bytes, ".img"));
        }
        break;
    default: {
        const ZoGeoJsonNS::SZoGeoJsonLoadResult result = ZoGeoJsonNS::LoadGeoJson(&module, nullptr, bytes);
        if (result.parsed)
        {
            // What was read must be written and read back to the same geometry.
            const QByteArray written = ZoGeoJsonNS::WriteGeoJson(result.objects);
            CZoGraphicsModule again;
            again.Initialise("again", &map);
            const ZoGeoJsonNS::SZoGeoJsonLoadResult reread = ZoGeoJsonNS::LoadGeoJson(&again, nullptr, written);
            ZO_FUZZ_CHECK(reread.parsed && reread.skipped == 0, "written GeoJSON reads back");
            ZO_FUZZ_CHECK(reread.objects.size() == result.objects.size(), "object count after a round trip");
            for (std::size_t i = 0; i < reread.objects.size() && i < result.objects.size(); ++i)
            {
                const CAABB a = result.objects[i]->GetBoundingBox();
                const CAABB b = reread.objects[i]->GetBoundingBox();
                ZO_FUZZ_CHECK(a.min == b.min && a.max == b.max, "extent after a round trip");
            }
            again.Unintialise();
        }
        break;
    }
    }
    ZoFuzzPaint(map.GetScene(), QRectF(-1500, -1000, 3000, 2000));
    module.Unintialise();
    return 0;
}
