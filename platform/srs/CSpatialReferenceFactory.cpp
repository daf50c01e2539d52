#include <ZoGraphics/SrsToolkit.h>
#include <ZoGraphics/ZoLogSystem.h>

#include <proj.h>

#include <cmath>
#include <map>
#include <mutex>
#include <utility>

// PROJ objects are not thread-safe and are bound to the context that made
// them, so every use of the context, the references' PJs and the cached
// operations happens under one mutex. Failures are cached as null entries so
// that an unknown code costs one database lookup only.
struct CSpatialReferenceFactory::Impl
{
    std::mutex mutex;
    PJ_CONTEXT* context = nullptr;
    std::map<int, std::unique_ptr<CSpatialReference>> references;
    std::map<std::pair<int, int>, PJ*> operations;

    Impl() : context(proj_context_create())
    {
        // Failures are reported through our own log instead of stderr.
        proj_log_level(context, PJ_LOG_NONE);
    }

    ~Impl()
    {
        for (auto& entry : operations)
            proj_destroy(entry.second);
        operations.clear();
        references.clear(); // before the context their PJs belong to
        proj_context_destroy(context);
    }

    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    PJ* CreateCrs(int code) const
    {
        const std::string text = std::to_string(code);
        return proj_create_from_database(context, "EPSG", text.c_str(), PJ_CATEGORY_CRS, 0, nullptr);
    }

    PJ* CreateOperation(CSpatialReference* from, CSpatialReference* to) const
    {
        if (!from || !to)
            return nullptr;
        PJ* raw = proj_create_crs_to_crs_from_pj(context, static_cast<PJ*>(from->GetHandle()),
                                                 static_cast<PJ*>(to->GetHandle()), nullptr, nullptr);
        if (!raw)
            return nullptr;
        // Longitude first for geographic systems, whatever the authority says.
        PJ* normalized = proj_normalize_for_visualization(context, raw);
        proj_destroy(raw);
        return normalized;
    }
};

CSpatialReferenceFactory::CSpatialReferenceFactory() : m_impl(std::make_unique<Impl>()) {}

CSpatialReferenceFactory::~CSpatialReferenceFactory() = default;

CSpatialReference* CSpatialReferenceFactory::GetOrCreateSRSViaEPSG(int code)
{
    CSpatialReference* reference = nullptr;
    {
        std::lock_guard<std::mutex> lock(m_impl->mutex);
        auto it = m_impl->references.find(code);
        if (it == m_impl->references.end())
        {
            std::unique_ptr<CSpatialReference> created;
            if (PJ* pj = m_impl->CreateCrs(code))
                created.reset(new CSpatialReference(code, pj));
            it = m_impl->references.emplace(code, std::move(created)).first;
        }
        reference = it->second.get();
    }
    // Logged unlocked: a log sink may come back here.
    if (!reference)
        ZoLogWarn() << "[CSpatialReferenceFactory::GetOrCreateSRSViaEPSG] 未知的EPSG代码: " << code;
    return reference;
}

bool CSpatialReferenceFactory::TransformPoint(const CVector3D& point, int fromEpsg, int toEpsg,
                                              CVector3D* result)
{
    if (!result)
        return false;
    CSpatialReference* from = GetOrCreateSRSViaEPSG(fromEpsg);
    CSpatialReference* to = GetOrCreateSRSViaEPSG(toEpsg);

    std::lock_guard<std::mutex> lock(m_impl->mutex);
    const auto key = std::make_pair(fromEpsg, toEpsg);
    auto it = m_impl->operations.find(key);
    if (it == m_impl->operations.end())
        it = m_impl->operations.emplace(key, m_impl->CreateOperation(from, to)).first;
    if (!it->second)
        return false;

    const PJ_COORD out = proj_trans(it->second, PJ_FWD, proj_coord(point.x, point.y, point.z, 0.0));
    if (!std::isfinite(out.xyz.x) || !std::isfinite(out.xyz.y) || !std::isfinite(out.xyz.z))
        return false;
    *result = CVector3D(out.xyz.x, out.xyz.y, out.xyz.z);
    return true;
}

CSpatialReferenceFactory* CSpatialReferenceFactorySingleton::Instance()
{
    static CSpatialReferenceFactory factory;
    return &factory;
}
