#pragma once

#include <QColor>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <list>
#include <map>
#include <vector>

class CTileModel;
class QPainter;

// Natural Earth country outlines drawn under the scene: ocean, land and
// borders. Rings are kept in longitude/latitude and projected once per tile
// model and level; the last few projections are cached.
class CZoBasemap
{
public:
    static constexpr int kDetailedFromLevel = 4;
    static const QColor kOutsideColour;
    static const QColor kOceanColour;
    static const QColor kLandColour;
    static const QColor kBorderColour;

    // One polygon at one horizontal world copy, in scene coordinates.
    struct Shape
    {
        QRectF bounds;
        QPainterPath path;
    };

    explicit CZoBasemap(const QString& dataDir = DefaultDataDir());
    CZoBasemap(const CZoBasemap&) = delete;
    CZoBasemap& operator=(const CZoBasemap&) = delete;

    // $ZOGRAPHICS_DATA_DIR, share/ZoGraphics/data beside the program, or the
    // installed share folder: the first that holds the country files.
    static QString DefaultDataDir();
    static QString FileNameForLevel(int level);

    void SetDataDir(const QString& dir);
    QString GetDataDir() const;

    // Projected polygons for a level; empty when the file is missing or the
    // model is null.
    const std::vector<Shape>& GetShapes(const CTileModel* model, int level);
    void Draw(QPainter* painter, const QRectF& exposed, const CTileModel* model, int level);

private:
    using Ring = std::vector<QPointF>;
    struct GeoPolygon
    {
        std::vector<Ring> rings;
        double minLon = 0.0;
        double maxLon = 0.0;
    };
    struct Projection
    {
        const CTileModel* model;
        int level;
        std::vector<Shape> shapes;
    };

    const std::vector<GeoPolygon>& Polygons(const QString& fileName);
    static std::vector<GeoPolygon> Load(const QString& path);
    static std::vector<Shape> Project(const std::vector<GeoPolygon>& polygons, const CTileModel* model, int level);

    QString m_dataDir;
    std::map<QString, std::vector<GeoPolygon>> m_polygons;
    std::list<Projection> m_projections;
};
