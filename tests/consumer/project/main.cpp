// An outside program built against the installed package.
#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>
#include <QApplication>
#include <cmath>
#include <cstdio>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    CZoMapModule map;
    map.SetZoom(10.0);
    IZoMapModule& module = map;
    int px = 0, py = 0, expectedX = 0, expectedY = 0;
    double lon = 0.0, lat = 0.0;
    const bool converted = module.ConvertSceneToPixel(&px, &py, 116.4074, 39.9042);
    ITileModel::GetTileModel(E_TILE_MODEL_WEB_MERCATOR)->ConvertGeoToPixel(&expectedX, &expectedY, 10, 116.4074, 39.9042);
    module.ConvertPixelToScene(&lon, &lat, px, py);
    std::printf("(116.4074, 39.9042) at level 10 -> pixel (%d, %d) -> (%.5f, %.5f)\n", px, py, lon, lat);
    return converted && px == expectedX && py == expectedY && std::abs(lon - 116.4074) < 1e-3 &&
                   std::abs(lat - 39.9042) < 1e-3 && module.GetScene() && module.GetEventObject()
               ? 0
               : 1;
}
