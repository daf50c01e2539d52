#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>
#include <ZoGraphics/ZoCoreTypes.h>

#include <memory>

class IZoMapModule;

// Finds the vertex nearest to a dragged point, for editable users that snap a
// moved point or a moved object onto the vertices of other objects. Vertices
// are kept in a grid of geographic cells; a search visits only the cells
// within the snapping distance, measured in view pixels at the map's current
// level and view scale.
class ZOGRAPHICS_EXPORT CZoVertexSnapIndex
{
public:
    // The grid's cell size in degrees; about the snapping distance at the
    // levels where snapping is used keeps each search to a few cells.
    explicit CZoVertexSnapIndex(double cellDegrees = 0.05);
    ~CZoVertexSnapIndex();
    CZoVertexSnapIndex(const CZoVertexSnapIndex&) = delete;
    CZoVertexSnapIndex& operator=(const CZoVertexSnapIndex&) = delete;

    void Clear();
    // A vertex of the object ownerId; points that are not finite are ignored.
    void Add(int ownerId, const CVector3D& point);
    int GetCount() const;

    // The vertex nearest to point within pixelRadius view pixels, skipping
    // the vertices of excludeOwner; false when there is none.
    bool FindNearest(IZoMapModule* map, const CVector3D& point, double pixelRadius, int excludeOwner,
                     CVector3D* found) const;

private:
    struct SData;
    std::unique_ptr<SData> m_data;
};
