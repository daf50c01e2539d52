#include <ZoGraphics/SrsToolkit.h>

#include <proj.h>

namespace
{
PJ* AsPJ(void* handle)
{
    return static_cast<PJ*>(handle);
}
}

CSpatialReference::~CSpatialReference()
{
    proj_destroy(AsPJ(m_pj));
}

std::string CSpatialReference::GetName() const
{
    const char* name = proj_get_name(AsPJ(m_pj));
    return name ? std::string(name) : std::string();
}

bool CSpatialReference::IsGeographic() const
{
    switch (proj_get_type(AsPJ(m_pj)))
    {
    case PJ_TYPE_GEOGRAPHIC_CRS:
    case PJ_TYPE_GEOGRAPHIC_2D_CRS:
    case PJ_TYPE_GEOGRAPHIC_3D_CRS:
        return true;
    default:
        return false;
    }
}
