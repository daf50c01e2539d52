#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>
#include <ZoGraphics/ZoCoreTypes.h>

#include <memory>
#include <string>

/// @file
/// The spatial reference toolkit: coordinate reference systems by EPSG code
/// and point transformations between them, backed by PROJ.

/// A coordinate reference system, backed by PROJ. Geographic systems take and
/// give x = longitude, y = latitude (the traditional GIS axis order), whatever
/// the authority's axis order.
///
/// Only CSpatialReferenceFactory makes references; the factory owns them and
/// keeps them as long as it lives, so callers never delete one.
class ZOGRAPHICS_EXPORT CSpatialReference
{
public:
    /// Releases PROJ's object; only the owning factory destroys references.
    ~CSpatialReference();
    CSpatialReference(const CSpatialReference&) = delete;
    CSpatialReference& operator=(const CSpatialReference&) = delete;

    /// The EPSG code the reference was made from.
    int GetEPSG() const { return m_epsg; }
    /// PROJ's name of the system, e.g. "WGS 84"; empty if it has none.
    std::string GetName() const;
    /// Whether the system is geographic (2-D or 3-D longitude/latitude).
    bool IsGeographic() const;
    /// PROJ's object (PJ*), for code that talks to PROJ directly. It belongs
    /// to the factory's PROJ context, which the factory uses under its own
    /// lock: do not use the handle while another thread uses the factory.
    void* GetHandle() const { return m_pj; }

private:
    friend class CSpatialReferenceFactory;
    CSpatialReference(int epsg, void* pj) : m_epsg(epsg), m_pj(pj) {}

    int m_epsg;
    void* m_pj;
};

/// Creates spatial references once per code and keeps them for the life of the
/// factory (the process, for the singleton's). Thread-safe.
///
/// Failures are remembered too, so an unknown code costs one database lookup
/// only.
class ZOGRAPHICS_EXPORT CSpatialReferenceFactory
{
public:
    /// Creates a factory with its own PROJ context; PROJ's own logging is
    /// switched off, failures are reported through the log system instead.
    CSpatialReferenceFactory();
    /// Destroys the references and operations the factory made.
    ~CSpatialReferenceFactory();
    CSpatialReferenceFactory(const CSpatialReferenceFactory&) = delete;
    CSpatialReferenceFactory& operator=(const CSpatialReferenceFactory&) = delete;

    /// The reference of an EPSG code, made on the first request and owned by
    /// the factory. Null for a code PROJ does not know; every such request
    /// logs "[CSpatialReferenceFactory::GetOrCreateSRSViaEPSG] 未知的EPSG代码: "
    /// followed by the code.
    CSpatialReference* GetOrCreateSRSViaEPSG(int code);
    /// Transforms a point from one code's system to another's (x = longitude,
    /// y = latitude for geographic systems, z carried). The operation is built
    /// once per pair of codes.
    /// @return false when the result pointer is null, a code is unknown (which
    ///         GetOrCreateSRSViaEPSG() logs), PROJ has no operation, or the
    ///         result is not finite; the result is then untouched.
    bool TransformPoint(const CVector3D& point, int fromEpsg, int toEpsg, CVector3D* result);

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

/// Access to the process-wide spatial reference factory.
class ZOGRAPHICS_EXPORT CSpatialReferenceFactorySingleton
{
public:
    /// The process-wide factory, made on first use (thread-safe) and never
    /// null; it must not be deleted.
    static CSpatialReferenceFactory* Instance();
};

/// Point transformation helpers over spatial references.
namespace RxGDALUtilityNS
{
/// Transforms a point between two references (z is carried through), using
/// the process-wide factory's operation for their EPSG codes; references of
/// the same code give the point back untouched. A failure (null reference,
/// no transformation, non-finite result) logs
/// "[RxGDALUtilityNS::TransformGeoSRS_Point] 坐标转换失败" and returns the
/// input unchanged.
ZOGRAPHICS_EXPORT CVector3D TransformGeoSRS_Point(const CVector3D& point, CSpatialReference* from,
                                                  CSpatialReference* to);
}
