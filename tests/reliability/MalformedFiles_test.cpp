#include "support/ModuleFixture.h"
#include "support/RenderItem.h"
#include "support/ScratchFiles.h"

#include <ZoGraphics/ZoGeoJson.h>

#include <QFile>

// Files a user hands the host that are not what they claim: each reader
// refuses them with a neutral result, paints nothing broken, and keeps
// working for the next good file.
namespace
{
QByteArray DataFile(const char* name)
{
    QFile file(QStringLiteral(ZO_SOURCE_DATA_DIR "/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

struct SMalformed
{
    const char* name;
    QByteArray (*bytes)();
};

const SMalformed kMalformed[] = {
    {"Empty", [] { return QByteArray(); }},
    {"Truncated", [] { return DataFile("demo/compass_rose.svg").left(300); }},
    {"TruncatedPng", [] { return DataFile("demo/pin.png").left(60); }},
    {"Binary", [] { return QByteArray("\x00\x01\x02\xff\xfe\x89PNG\r\n\x1a\n", 14); }},
    {"WrongKindOfText", [] { return QByteArray("just some words, not a picture or a map"); }},
    {"UnclosedXml", [] { return QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"20\"><rect"); }},
    {"HugeSvg", [] { return QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1e12\" height=\"1e12\"/>"); }},
    {"NegativeSvg", [] { return QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"-20\" height=\"-1\"/>"); }},
    {"JsonNotGeoJson", [] { return QByteArray(R"({"type":"Topology","objects":{}})"); }},
    {"JsonCutShort", [] { return DataFile("countries-110m.geojson").left(5000); }},
    {"DeeplyNested", [] { return QByteArray(100000, '['); }},
};

class MalformedFiles : public ModuleFixture, public ::testing::WithParamInterface<SMalformed>
{
protected:
    ScratchFiles files;
};
} // namespace

TEST_P(MalformedFiles, AreRefusedAndTheReadersKeepWorking)
{
    const std::string path = files.Write(QStringLiteral("file"), GetParam().bytes());
    const std::string good = files.Write(QStringLiteral("good.svg"), DataFile("demo/compass_rose.svg"));
    const bool isPicture = QString(GetParam().name) == QLatin1String("HugeSvg");

    // SVG pictures.
    const QImage image = ConvertSVGToImage(path);
    EXPECT_LE(image.width(), 8192);
    EXPECT_LE(image.height(), 8192);
    IZoSVGMapObject* svg = module.CreateSVGMapObject("svg", nullptr);
    ASSERT_NE(svg, nullptr);
    if (!isPicture)
        EXPECT_FALSE(svg->LoadSVGFile(path, CVector3D(1, 1, 0)));
    RenderItemCentred(svg->GetQtItem(), 40, 40);
    EXPECT_TRUE(svg->LoadSVGFile(good, CVector3D(1, 1, 0)));

    // Icons and textures.
    IZoMarkPointMapObject* pin = module.CreateMarkPointMapObject("pin", nullptr);
    pin->SetIconFile(path);
    EXPECT_TRUE(pin->GetIcon().isNull());
    RenderItemCentred(pin->GetQtItem(), 40, 40);
    IZoCircleMapObject* circle = module.CreateCircleMapObject("circle", nullptr);
    circle->SetRadiusPoint(CVector3D(1, 0, 0));
    circle->SetBrushTextureFile(Qt::TexturePattern, path);
    EXPECT_NE(RenderItemCentred(circle->GetQtItem(), 40, 40), BlankCanvas(40, 40));

    // GeoJSON.
    const ZoGeoJsonNS::SZoGeoJsonLoadResult loaded = ZoGeoJsonNS::LoadGeoJsonFile(&module, nullptr, path);
    EXPECT_FALSE(loaded.parsed);
    EXPECT_TRUE(loaded.objects.empty());
    EXPECT_TRUE(ZoGeoJsonNS::LoadGeoJsonFile(&module, nullptr, ZO_SOURCE_DATA_DIR "/countries-110m.geojson").parsed);
}

INSTANTIATE_TEST_SUITE_P(Cases, MalformedFiles, ::testing::ValuesIn(kMalformed),
                         [](const ::testing::TestParamInfo<SMalformed>& info) { return std::string(info.param.name); });
