#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>
#include <ZoGraphics/ZoCoreTypes.h>

#include <memory>

class IZoMapModule;

/// Finds the vertex nearest to a dragged point, for editable users that snap a
/// moved point or a moved object onto the vertices of other objects. Vertices
/// are kept in a grid of geographic cells; a search visits only the cells
/// within the snapping distance, measured in view pixels at the map's current
/// level and view scale.
///
/// Vertices are `CVector3D` with x = longitude and y = latitude in degrees,
/// each tagged with the id of the object it belongs to. The index logs
/// nothing; it is not locked, so use it from one thread (normally the GUI
/// thread, where the map module is called).
class ZOGRAPHICS_EXPORT CZoVertexSnapIndex
{
public:
    /// Makes an empty index whose grid cells are cellDegrees degrees on each side.
    ///
    /// A cell size of about the snapping distance at the levels where snapping
    /// is used keeps each search to a few cells. A size that is not finite or
    /// not above 0 falls back to 0.05, silently.
    explicit CZoVertexSnapIndex(double cellDegrees = 0.05);
    ~CZoVertexSnapIndex();
    CZoVertexSnapIndex(const CZoVertexSnapIndex&) = delete;
    CZoVertexSnapIndex& operator=(const CZoVertexSnapIndex&) = delete;

    /// Forgets every vertex; the cell size stays.
    void Clear();
    /// A vertex of the object ownerId; points that are not finite are ignored.
    /// Only x and y are checked, and z is kept and given back by FindNearest.
    void Add(int ownerId, const CVector3D& point);
    /// The number of vertices added since construction or the last Clear.
    int GetCount() const;

    /// The vertex nearest to point within pixelRadius view pixels, skipping
    /// the vertices of excludeOwner; false when there is none.
    ///
    /// Distances are measured between the whole map pixels the map module
    /// converts point and each vertex to; pixelRadius is divided by the view
    /// scale (taken as 1 when not above 0) to match them, and a vertex exactly
    /// at the radius counts. The vertex is written to found only on success.
    /// Also false, with found untouched and nothing logged, when map or found
    /// is null, pixelRadius is not above 0, point is not finite, or the map
    /// module cannot convert point; vertices it cannot convert are skipped.
    /// Between vertices at the same distance, which one wins is not fixed.
    bool FindNearest(IZoMapModule* map, const CVector3D& point, double pixelRadius, int excludeOwner,
                     CVector3D* found) const;

private:
    struct SData;
    std::unique_ptr<SData> m_data;
};
