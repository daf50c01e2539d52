#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>
#include <ZoGraphics/ZoCoreTypes.h>

#include <memory>
#include <string>

// A coordinate reference system, backed by PROJ. Geographic systems take and
// give x = longitude, y = latitude (the traditional GIS axis order), whatever
// the authority's axis order.
class ZOGRAPHICS_EXPORT CSpatialReference
{
public:
    ~CSpatialReference();
    CSpatialReference(const CSpatialReference&) = delete;
    CSpatialReference& operator=(const CSpatialReference&) = delete;

    int GetEPSG() const { return m_epsg; }
    std::string GetName() const;
    bool IsGeographic() const;
    // PROJ's object (PJ*), for code that talks to PROJ directly.
    void* GetHandle() const { return m_pj; }

private:
    friend class CSpatialReferenceFactory;
    CSpatialReference(int epsg, void* pj) : m_epsg(epsg), m_pj(pj) {}

    int m_epsg;
    void* m_pj;
};

// Creates spatial references once per code and keeps them for the life of the
// process. Thread-safe.
class ZOGRAPHICS_EXPORT CSpatialReferenceFactory
{
public:
    CSpatialReferenceFactory();
    ~CSpatialReferenceFactory();
    CSpatialReferenceFactory(const CSpatialReferenceFactory&) = delete;
    CSpatialReferenceFactory& operator=(const CSpatialReferenceFactory&) = delete;

    // Null for a code PROJ does not know.
    CSpatialReference* GetOrCreateSRSViaEPSG(int code);
    // Transforms a point from one code's system to another's (x = longitude,
    // y = latitude for geographic systems, z carried). The operation is built
    // once per pair of codes. False when a code is unknown, PROJ has no
    // operation, or the result is not finite; the result is then untouched.
    bool TransformPoint(const CVector3D& point, int fromEpsg, int toEpsg, CVector3D* result);

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

class ZOGRAPHICS_EXPORT CSpatialReferenceFactorySingleton
{
public:
    static CSpatialReferenceFactory* Instance();
};

namespace RxGDALUtilityNS
{
// Transforms a point between two references (z is carried through). A
// failure (null reference, no transformation, non-finite result) is logged
// and the input is returned unchanged.
ZOGRAPHICS_EXPORT CVector3D TransformGeoSRS_Point(const CVector3D& point, CSpatialReference* from,
                                                  CSpatialReference* to);
}
