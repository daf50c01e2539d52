#pragma once

#include <ZoGraphics/ZoCoreTypes.h>

#include <QPolygonF>
#include <QRectF>
#include <QSize>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

class CZoMapModule;
class QGraphicsScene;
class QImage;

namespace ZoBench
{
using Path = std::vector<CVector3D>;

// The frame of a view of the given size centred on (lon, lat), in the map's
// scene units.
QRectF FrameAround(CZoMapModule& map, double lon, double lat, const QSize& size);

// The source rectangle of the scene drawn into the whole image, on white and
// antialiased, as a host's view draws a frame.
void RenderFrame(QGraphicsScene* scene, const QRectF& source, QImage& image);

// Path of a file in the repository's data/ folder.
QString SourceDataFile(const char* name);

// Every ring (outer and holes) of the Polygon and MultiPolygon features of a
// GeoJSON FeatureCollection, as longitude/latitude points with z = 0. Empty
// when the file is missing or malformed.
std::vector<Path> LoadGeoJsonRings(const QString& path);

// Natural Earth 50m country rings, loaded once.
const std::vector<Path>& Countries50mRings();

// Planar random walk from (100, 30) with normally distributed steps in x and
// y (z = 0); the same seed gives the same walk on every run.
Path RandomWalk(std::size_t count, std::uint64_t seed, double stepSigma);

// Closed pixel polygons of count points (the last repeats the first).
// The country outlines one after another, scaled to pixels as a flat map
// would draw them (y down), repeated until count points are reached.
QPolygonF CountryOutlinePixels(int count, double pixelsPerDegree);
// A circle sampled every 2 pi radius / count pixels.
QPolygonF DenseCircle(int count, double radius);
// The same circle with every inner point moved by up to half a pixel.
QPolygonF JitteryRing(int count, double radius, std::uint64_t seed);

// Total number of points in a set of paths.
std::size_t PointCount(const std::vector<Path>& paths);
} // namespace ZoBench
