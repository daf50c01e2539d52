#include "ZoDouglasPeucker.h"

#include <ZoGraphics/ZoGraphicsConstant.h>

namespace
{
// Short lists and close-up views are drawn as given.
constexpr std::size_t kMaxUnthinnedPoints = 400;
constexpr int kFirstUnthinnedLevel = 18;
constexpr double kSmoothTolerance = 0.4;
} // namespace

namespace ZoGraphicsConstantNS
{
void DPSmooth(std::vector<CVector3D>& out, const std::vector<CVector3D>& in, int /*unused*/, int level)
{
    if (level >= kFirstUnthinnedLevel || in.size() <= kMaxUnthinnedPoints)
    {
        if (&out != &in)
            out = in;
        return;
    }
    if (&out == &in)
    {
        std::vector<CVector3D> kept;
        ZoGraphicsInternalNS::DouglasPeuckerReduce(kept, in, kSmoothTolerance);
        out.swap(kept);
        return;
    }
    out.clear();
    ZoGraphicsInternalNS::DouglasPeuckerReduce(out, in, kSmoothTolerance);
}
} // namespace ZoGraphicsConstantNS
